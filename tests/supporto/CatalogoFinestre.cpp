#include "supporto/CatalogoFinestre.h"

#include "archive/DataBase.h"
#include "common/frmAiuto.h"
#include "common/frmMSG.h"
#include "common/Scatola.h"
#include "download/frmCorrezioneOffLine.h"
#include "download/frmErroriTempiOffLine.h"
#include "download/frmRicezioneLista.h"
#include "download/frmRicezioneOFFLINE.h"
#include "download/frmRicezioneProvediMedia.h"
#include "download/RicercaErrori.h"
#include "entries/frmModuloIscrizioni.h"
#include "entries/frmRicercaAnagrafica.h"
#include "event/frmCambiaManifestazione.h"
#include "event/frmModificaGruppo.h"
#include "event/frmModificaManifestazione.h"
#include "event/frmModificaProva.h"
#include "event/frmModificaSquadra.h"
#include "event/frmNuovaManifestazione.h"
#include "event/frmNuovaManifestazione2.h"
#include "event/frmNuovaManifestazione2Bis.h"
#include "event/frmNuovaManifestazione3.h"
#include "event/frmNuovaManifestazione4.h"
#include "event/frmProveSvolte.h"
#include "event/frmUtilityPMI.h"
#include "live/frmClassificaDiProvaInTempoReale.h"
#include "live/frmOrologio.h"
#include "live/frmRicezioneONLINE.h"
#include "live/frmRXONLINE.h"
#include "live/frmSelezionaRXONLINE.h"
#include "output/frmAnteprima.h"
#include "output/Pittore.h"
#include "output/RapportiDefiniti.h"
#include "readings/frmPenalitaAggiuntive.h"
#include "readings/frmTempiManuale.h"
#include "scoring/frmClassificaDiGruppo.h"
#include "shell/frmInformazioni.h"
#include "shell/frmMain.h"
#include "shell/frmSplash.h"
#include "starts/frmGestioneOrariDiPartenza.h"
#include "starts/frmRipartenza.h"
#include "supporto/PorteDiProva.h"
#include "tools/CreaEsempio.h"

#include <QPrinter>

namespace {

int prima(const char* tabella, const char* chiave) {
    return leggiValore(QStringLiteral("SELECT min(%2) FROM %1 WHERE IDMan_FK=?").arg(tabella, chiave),
                       {IDMan})
        ->toInt();
}

Catena primaCatena() {
    return elencaCatene(leggiProveCronometrate(IDMan)).constFirst();
}

QString testoLungo() {
    return QStringLiteral("N. 7 - ROSSI MARIO - LANCIA APRILIA\n").repeated(200);
}

template <typename Finestra>
std::unique_ptr<QWidget> semplice() {
    return std::make_unique<Finestra>();
}

template <typename Finestra>
std::function<std::unique_ptr<QWidget>()> conRiga(const char* tabella, const char* chiave) {
    return [=] {
        auto finestra = std::make_unique<Finestra>();
        finestra->carica(prima(tabella, chiave));
        return finestra;
    };
}

std::unique_ptr<QWidget> principale() {
    ChiudiDataBase();  // it opens the archive itself
    return std::make_unique<frmMain>();
}

std::unique_ptr<QWidget> scatola() {
    auto finestra = std::make_unique<Scatola>("Equipaggi Esclusi", testoLungo(), Icona::Domanda);
    finestra->aggiungi("&Sì", 1);
    finestra->aggiungi("&No", 0);
    return finestra;
}

std::unique_ptr<QWidget> ricezione() {
    ParametriOnLine parametri;
    parametri.catena = primaCatena();
    parametri.idEqu = prima("Equipaggi", "IDEqu");
    parametri.taglia = [](const QString& tempo) { return tempo; };
    parametri.penalita = [](int scarto) { return std::optional<double>(scarto); };
    return std::make_unique<frmRXONLINE>(parametri, "N. 1 - ROSSI-BIANCHI - LANCIA APRILIA", 1, 0);
}

std::unique_ptr<QWidget> anteprima() {
    static std::unique_ptr<QPrinter> stampante;
    stampante = std::make_unique<QPrinter>(QPrinter::HighResolution);
    const Rapporto rapporto = componiRapporto("Lista", {}, "Lista di Partenza", {}, {});
    impostaPagina(*stampante, rapporto);
    return std::make_unique<frmAnteprima>(rapporto, stampante.get());
}

std::unique_ptr<QWidget> riepilogo() {
    auto finestra = std::make_unique<frmNuovaManifestazione4>();
    finestra->mostra({.dati = leggiManifestazione(IDMan),
                      .gruppi = leggiGruppi(IDMan),
                      .squadre = leggiSquadre(IDMan),
                      .prove = leggiProve(IDMan)});
    return finestra;
}

std::unique_ptr<QWidget> provePerGuida() {
    auto finestra = std::make_unique<frmNuovaManifestazione3>();
    finestra->attiva(false, "13/06/2026");
    return finestra;
}

const FinestraInCatalogo Finestre[] = {
    {"Scatola", scatola},
    {"frmAiuto", semplice<frmAiuto>},
    {"frmAnteprima", anteprima},
    {"frmCambiaManifestazione", semplice<frmCambiaManifestazione>},
    {"frmClassificaDiGruppo", semplice<frmClassificaDiGruppo>},
    {"frmClassificaDiProvaInTempoReale",
     [] { return std::make_unique<frmClassificaDiProvaInTempoReale>(primaCatena()); }},
    {"frmCorrezioneOffLine",
     [] { return std::make_unique<frmCorrezioneOffLine>(prima("Equipaggi", "IDEqu")); }},
    {"frmErroriTempiOffLine", semplice<frmErroriTempiOffLine>},
    {"frmGestioneOrariDiPartenza", semplice<frmGestioneOrariDiPartenza>},
    {"frmInformazioni", semplice<frmInformazioni>},
    {"frmMSG", [] { return std::make_unique<frmMSG>("Manifestazione Selezionata"); }},
    {"frmMain", principale},
    {"frmModificaGruppo", conRiga<frmModificaGruppo>("Raggruppamenti", "IDGru")},
    {"frmModificaManifestazione", semplice<frmModificaManifestazione>},
    {"frmModificaProva", conRiga<frmModificaProva>("Prove", "IDPro")},
    {"frmModificaSquadra", conRiga<frmModificaSquadra>("Squadre", "IDSqu")},
    {"frmModuloIscrizioni", semplice<frmModuloIscrizioni>},
    {"frmNuovaManifestazione", semplice<frmNuovaManifestazione>},
    {"frmNuovaManifestazione2", semplice<frmNuovaManifestazione2>},
    {"frmNuovaManifestazione2Bis", semplice<frmNuovaManifestazione2Bis>},
    {"frmNuovaManifestazione3", provePerGuida},
    {"frmNuovaManifestazione4", riepilogo},
    {"frmOrologio", semplice<frmOrologio>},
    {"frmPenalitaAggiuntive", semplice<frmPenalitaAggiuntive>},
    {"frmProveSvolte", semplice<frmProveSvolte>},
    {"frmRXONLINE", ricezione},
    {"frmRicercaAnagrafica", semplice<frmRicercaAnagrafica>},
    {"frmRicezioneLista",
     [] { return std::make_unique<frmRicezioneLista>([](const QList<TempoInLista>& /*tempi*/) {}); }},
    {"frmRicezioneOFFLINE", semplice<frmRicezioneOFFLINE>},
    {"frmRicezioneONLINE", [] { return std::make_unique<frmRicezioneONLINE>(primaCatena()); }},
    {"frmRicezioneProvediMedia", semplice<frmRicezioneProvediMedia>},
    {"frmRipartenza", semplice<frmRipartenza>},
    {"frmSelezionaRXONLINE", semplice<frmSelezionaRXONLINE>},
    {"frmSplash", [] { return std::make_unique<frmSplash>([] {}); }},
    {"frmTempiManuale", semplice<frmTempiManuale>},
    {"frmUtilityPMI", semplice<frmUtilityPMI>},
};

// Received, not saved: crews with too few times, one that is not entered, times without a number.
void scarica() {
    EsitoRicerca ricevuti;
    const int idPro = primaCatena().constFirst().idPro;
    Statement equipaggio("SELECT IDEqu,Num,Cog FROM Equipaggi WHERE IDMan_FK=? ORDER BY Num LIMIT 20");
    equipaggio.esegui({IDMan});
    while (equipaggio.prossima()) {
        const int num = equipaggio.intero(1);
        ricevuti.tempi << TempoRicevuto{.idPro = idPro,
                                        .idEqu = equipaggio.intero(0),
                                        .num = num,
                                        .ruolo = Ruolo::Arrivo,
                                        .tempo = "10:00:00:00"};
        ricevuti.errori << ErroreScarico{.idEqu = equipaggio.intero(0),
                                         .num = num,
                                         .equipaggio = equipaggio.testo(2),
                                         .veicolo = "LANCIA APRILIA",
                                         .pochiTempi = true};
        ricevuti.scartati << TempoScartato{num, "10:00:01:00"} << TempoScartato{0, "10:00:02:00"};
    }
    ErroreScarico nonIscritto;
    nonIscritto.num = 999;
    nonIscritto.nonIscritto = true;
    ricevuti.errori << nonIscritto;
    scriviRicerca(ricevuti);
}

const FabbricaDiProva& porte() {
    static const FabbricaDiProva fabbrica;
    return fabbrica;
}

}  // namespace

std::span<const FinestraInCatalogo> catalogoFinestre() {
    return Finestre;
}

ProgrammaPieno::ProgrammaPieno() {
    porte();
    m_programma.dialoghi.accettaTutto();
    IDMan = creaEsempio(CARTELLA_ESEMPIO, PercorsoApp);
    m_programma.impostazioni.valori["IDMan/IDMan"] = QString::number(IDMan);
    ApriDataBase();
    scarica();
}

ProgrammaPieno::~ProgrammaPieno() = default;

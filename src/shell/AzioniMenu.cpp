#include "shell/AzioniMenu.h"

#include "archive/DataBase.h"
#include "common/Dialoghi.h"
#include "common/Subroutine.h"
#include "download/frmRicezioneOFFLINE.h"
#include "entries/frmModuloIscrizioni.h"
#include "event/CreazioneManifestazione.h"
#include "event/frmCambiaManifestazione.h"
#include "event/frmModificaManifestazione.h"
#include "event/frmProveSvolte.h"
#include "event/ManifestazioneAttiva.h"
#include "live/frmSelezionaRXONLINE.h"
#include "output/ApriReport.h"
#include "readings/frmPenalitaAggiuntive.h"
#include "readings/frmTempiManuale.h"
#include "scoring/frmClassificaDiGruppo.h"
#include "scoring/MostraClassifica.h"
#include "shell/DataGiornaliera.h"
#include "shell/frmInformazioni.h"
#include "shell/frmMain.h"
#include "shell/ScaricoVersione.h"
#include "starts/frmGestioneOrariDiPartenza.h"
#include "starts/frmRipartenza.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

AzioneMenu classifica(const RichiestaClassifica& richiesta) {
    return [richiesta](frmMain&) {
        const CursoreAttesa cursore;
        MostraClassifica(richiesta);
    };
}

// Every test of the day counts, run or not.
AzioneMenu classificaGiornaliera(int tipo) {
    return [tipo](frmMain&) {
        const std::optional<QString> giorno = chiediGiorno(u"Data Classifica Giornaliera"_s);
        if (!giorno)
            return;
        const CursoreAttesa cursore;
        MostraClassifica({.tipo = tipo, .dat = *giorno});
    };
}

void classificaDiGruppo(frmMain& principale, const QString& giorno) {
    frmClassificaDiGruppo finestra(&principale);
    finestra.Data = giorno;
    finestra.exec();
}

void classificaGiornalieraDiGruppo(frmMain& principale) {
    if (const std::optional<QString> giorno = chiediGiorno(u"Data Classifica Giornaliera"_s))
        classificaDiGruppo(principale, *giorno);
}

// What was written must be on disk for the reader of the list.
AzioneMenu lista(const QString& tipo) {
    return [tipo](frmMain&) {
        ChiudiDataBase();
        ApriDataBase();
        ApriReport(tipo, {}, {}, {}, {});
    };
}

// The name over the panel follows what is made, changed, chosen or deleted.
void creaManifestazione(frmMain& principale) {
    CreazioneManifestazione creazione(&principale);
    QObject::connect(&creazione, &CreazioneManifestazione::manifestazioneAttivata, &principale,
                     &frmMain::scriviNome);
    creazione.esegui();
}

void modificaManifestazioneAttiva(frmMain& principale) {
    frmModificaManifestazione finestra(&principale);
    QObject::connect(&finestra, &frmModificaManifestazione::manifestazioneModificata, &principale,
                     &frmMain::scriviNome);
    finestra.exec();
}

void cambiaManifestazione(frmMain& principale) {
    frmCambiaManifestazione finestra(&principale);
    QObject::connect(&finestra, &frmCambiaManifestazione::manifestazioneAttivata, &principale,
                     &frmMain::scriviNome);
    finestra.exec();
}

void eliminaManifestazione(frmMain& principale) {
    if (EliminaManifestazione())
        principale.scriviNome({});
    principale.attivazione();
}

template <typename Finestra>
AzioneMenu finestra() {
    return [](frmMain& principale) { Finestra(&principale).exec(); };
}

const QHash<QString, AzioneMenu>& azioni() {
    static const QHash<QString, AzioneMenu> tutte{
        {u"mnuNuovaManifestazione"_s, creaManifestazione},
        {u"mnuModificaManifestazione"_s, modificaManifestazioneAttiva},
        {u"mnuEliminaManifestazione"_s, eliminaManifestazione},
        {u"mnuCambiaManifestazione"_s, cambiaManifestazione},
        {u"mnuProveSvolte"_s, finestra<frmProveSvolte>()},
        {u"mnuImmManuale"_s, finestra<frmTempiManuale>()},
        {u"mnuPenalitaAggiuntive"_s, finestra<frmPenalitaAggiuntive>()},
        {u"mnuOrariDiPartenza"_s, finestra<frmGestioneOrariDiPartenza>()},
        {u"mnuCreaRipartenza"_s, finestra<frmRipartenza>()},
        {u"mnuRXONLINE"_s, finestra<frmSelezionaRXONLINE>()},
        {u"mnuRXOFFLINE"_s, finestra<frmRicezioneOFFLINE>()},
        {u"mnuModuloIscrizioni"_s, finestra<frmModuloIscrizioni>()},
        {u"mnuClasAssoluta"_s, classifica({.soloSvolte = true})},
        {u"mnuClasASI"_s, classifica({.tipo = 1, .soloSvolte = true})},
        {u"mnuClasNONASI"_s, classifica({.tipo = 2, .soloSvolte = true})},
        {u"mnuClasFemminile"_s, classifica({.femminile = true, .soloSvolte = true})},
        {u"mnuClasRaggruppamento"_s, [](frmMain& principale) { classificaDiGruppo(principale, {}); }},
        {u"mnuClasGioTutti"_s, classificaGiornaliera(0)},
        {u"mnuClasGioASI"_s, classificaGiornaliera(1)},
        {u"mnuClasGioNoASI"_s, classificaGiornaliera(2)},
        {u"mnuClasGioGru"_s, classificaGiornalieraDiGruppo},
        {u"mnuStampaListaDiPartenza"_s, lista(u"Lista"_s)},
        {u"mnuStampaListaDiPartenzaConOrari"_s, lista(u"ListaConOrari"_s)},
        {u"mnuStampaPenalitàAggiuntive"_s,
         [](frmMain&) { ApriReport(u"PenalitàAggiuntive"_s, {}, u"Penalità Aggiuntive"_s, {}, {}); }},
        {u"mnuUpdateVLM"_s, [](frmMain& principale) { aggiornaViaInternet(&principale); }},
        {u"mnuInformazioni"_s, finestra<frmInformazioni>()},
        {u"mnuEsci"_s, [](frmMain& principale) { principale.close(); }},
    };
    return tutte;
}

}  // namespace

AzioneMenu azioneMenu(const QString& nome) {
    return azioni().value(nome);
}

bool domandaPrima(const QString& nome) {
    if (nome != u"mnuRiorganizzaArchivi")
        return true;
    return Dialoghi::corrente().domanda(u"Riorganizzazione Archivi"_s,
                                        u"La Riorganizzazione Può Impiegare Diverso Tempo.\n"
                                        "Confermare l'Operazione ?"_s,
                                        Icona::Domanda);
}

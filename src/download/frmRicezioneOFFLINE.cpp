#include "download/frmRicezioneOFFLINE.h"

#include "common/Dialoghi.h"
#include "common/Public.h"
#include "common/Subroutine.h"
#include "download/frmErroriTempiOffLine.h"
#include "download/RicercaErrori.h"
#include "scoring/TagliaTempo.h"
#include "ui_frmRicezioneOFFLINE.h"

using namespace Qt::StringLiterals;

namespace {

// The event is asked once per kind of test, however many records there are.
ClasseNonIscritto classeNonIscritto() {
    return [note = QHash<QString, bool>()](const QString& tipo) mutable {
        if (const auto nota = note.constFind(tipo); nota != note.cend())
            return *nota;
        return *note.insert(tipo, PrecisioneASINonInferiore(tipo));
    };
}

RecordScartato scartato(const TempoScartato& tempo) {
    return {{tempo.num, tempo.tempo},
            tempo.num == 0 ? RecordScartato::Motivo::SenzaEquipaggio : RecordScartato::Motivo::TroppiTempi};
}

}  // namespace

frmRicezioneOFFLINE::frmRicezioneOFFLINE(QWidget* padre)
    : FinestraPressostati(Azzera::AncheErrori, padre), m_ui(std::make_unique<Ui::frmRicezioneOFFLINE>()) {
    m_ui->setupUi(this);
    m_ui->divisore->setSizes({690, 610});
    collega({m_ui->cboChrono, m_ui->cboPortaCOM, m_ui->cmdIniziaRicezione, m_ui->cmdArrestaRicezione,
             m_ui->frmStatus},
            {m_ui->lstPre, m_ui->chkNumero, m_ui->grTempi, m_ui->grScartati, m_ui->cmdSalva, m_ui->cmdEsci});
}

frmRicezioneOFFLINE::~frmRicezioneOFFLINE() = default;

QStringList frmRicezioneOFFLINE::riepilogo(const EsitoAssegnazione& esito) const {
    return FinestraPressostati::riepilogo(esito) << u"Su %1 Tempi Previsti da Ricevere"_s.arg(esito.previsti);
}

void frmRicezioneOFFLINE::elaboraConRicercaErrori(const QByteArray& flusso) {
    EsitoAssegnazione esito;
    qsizetype errori = 0;
    {
        const CursoreAttesa attesa;
        stato().mostra({u"Ricerca Errori in Corso...."_s}, PannelloStato::Tono::Lavoro);
        const QList<EquipaggioCronometrato> equipaggi = leggiEquipaggi(IDMan);
        const EsitoRicerca ricerca =
            ricercaErrori(leggiRecord(Dispositivo::CP520, flusso), equipaggi, scelti(),
                          soloPrimoPressostato(), taglio(), classeNonIscritto());
        scriviRicerca(ricerca);
        errori = ricerca.errori.size();
        esito.tempi = ricerca.tempi;
        esito.validi = ricerca.validi;
        esito.previsti = static_cast<int>(equipaggi.size() * scelti().size());
        for (const TempoScartato& tempo : ricerca.scartati)
            esito.scartati << scartato(tempo);
    }
    mostraRicevuti(esito);
    if (errori > 0 &&
        Dialoghi::corrente().domanda(
            u"ATTENZIONE : PROBABILI ERRORI NEI RILEVAMENTI"_s,
            u"Ci Sono %1 Equipaggi con Probabili Errori Nei Tempi Rilevati.\n"
            "Si Desidera Accedere alla Finestra di Visualizzazione e Correzione degli Errori ?"_s.arg(errori),
            Icona::Domanda, Innocua::Si))  // refused, the list is not reached again
        frmErroriTempiOffLine(this).exec();
}

#include "download/FinestraPressostati.h"

#include "common/Dialoghi.h"
#include "common/Impostazioni.h"
#include "common/Public.h"
#include "common/Subroutine.h"
#include "download/ElencoPressostati.h"

#include <algorithm>
#include <QCheckBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

const QString Chiave = u"offline"_s;

void preparaGriglia(QTableView* griglia, QAbstractItemModel* modello, int colonnaLarga) {
    griglia->setModel(modello);
    griglia->setSelectionBehavior(QAbstractItemView::SelectRows);
    griglia->setSelectionMode(QAbstractItemView::SingleSelection);
    griglia->setEditTriggers(QAbstractItemView::NoEditTriggers);
    griglia->setTabKeyNavigation(false);
    griglia->setAlternatingRowColors(true);
    griglia->setWordWrap(false);
    griglia->verticalHeader()->hide();
    griglia->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    griglia->verticalHeader()->setDefaultSectionSize(griglia->fontMetrics().height() + 7);
    griglia->horizontalHeader()->setHighlightSections(false);
    griglia->horizontalHeader()->setSectionResizeMode(colonnaLarga, QHeaderView::Stretch);
}

}  // namespace

FinestraPressostati::FinestraPressostati(Azzera azzera, QWidget* padre)
    : FinestraScarico(padre), m_azzera(azzera) {}

void FinestraPressostati::collega(const Controlli& controlli, const ControlliPressostati& pressostati) {
    m_pressostati = pressostati;
    Controlli tutti = controlli;
    tutti.altri << pressostati.lstPre << pressostati.chkNumero << pressostati.grTempi
                << pressostati.grScartati << pressostati.cmdSalva;
    FinestraScarico::collega(tutti, Chiave);
    m_pressostati.chkNumero->setChecked(Impostazioni::corrente().leggi(u"numero"_s, Chiave, u"0"_s).toInt() !=
                                        0);
    m_pressostati.lstPre->mostra(elencaPressostati(leggiProveCronometrate(IDMan)));
    preparaGriglie();
    connect(m_pressostati.cmdSalva, &QPushButton::clicked, this, &FinestraPressostati::salva);
    connect(m_pressostati.cmdEsci, &QPushButton::clicked, this, &FinestraPressostati::esci);
    m_pressostati.lstPre->setFocus();
}

void FinestraPressostati::preparaGriglie() {
    preparaGriglia(m_pressostati.grTempi, &m_tempi, ModelloTempRil::Prova);
    preparaGriglia(m_pressostati.grScartati, &m_scartati, ModelloScartati::Motivo);
    QHeaderView* titoli = m_pressostati.grTempi->horizontalHeader();
    titoli->setSectionResizeMode(ModelloTempRil::Equipaggio, QHeaderView::Stretch);
    titoli->setSectionsClickable(true);
    const QFontMetrics misure = m_pressostati.grTempi->fontMetrics();
    titoli->resizeSection(ModelloTempRil::Numero, misure.horizontalAdvance(u"0000000"_s));
    m_pressostati.grScartati->setColumnWidth(ModelloScartati::Numero, misure.horizontalAdvance(u"0000000"_s));
    connect(titoli, &QHeaderView::sectionClicked, this, [this, titoli](int colonna) {
        titoli->setSortIndicator(colonna, Qt::AscendingOrder);
        titoli->setSortIndicatorShown(true);
        mostraTempi(colonna);
    });
    mostraTempi();
}

void FinestraPressostati::mostraTempi(std::optional<int> ordine) {
    const int riga = std::max(0, m_pressostati.grTempi->currentIndex().row());
    ordine ? m_tempi.ordina(*ordine) : m_tempi.ricarica();
    m_pressostati.grTempi->selectRow(std::min(riga, m_tempi.rowCount() - 1));
}

QList<Pressostato> FinestraPressostati::scelti() const {
    return m_pressostati.lstPre->scelti();
}

bool FinestraPressostati::soloPrimoPressostato() const {
    return m_pressostati.chkNumero->isChecked();
}

bool FinestraPressostati::prepara() {
    azzeraScarico(m_azzera);
    m_daSalvare = false;
    mostraTempi();
    m_scartati.mostra({});
    const QString difetto = difettoScelta(m_pressostati.lstPre->righeScelte());
    if (difetto.isEmpty())
        return true;
    avverti(u"Impossibile Ricevere"_s, difetto);
    m_pressostati.lstPre->setFocus();
    return false;
}

void FinestraPressostati::elabora(Dispositivo dispositivo, const QByteArray& flusso) {
    EsitoAssegnazione esito;
    {
        const CursoreAttesa attesa;
        RecordScarico ultimo;
        const auto informa = [&] {
            stato().informa(u"Eq. N. : %1 --> T.: %2"_s.arg(QString::number(ultimo.numero), ultimo.tempo));
        };
        esito = assegnaTempi(leggiRecord(dispositivo, flusso), leggiEquipaggi(IDMan), scelti(),
                             soloPrimoPressostato(), taglio(), [&](const RecordScarico& record) {
                                 ultimo = record;
                                 if (stato().attendeInformazioni())
                                     informa();
                             });
        if (esito.validi > 0)
            informa();
        scriviTempRil(esito.tempi);
    }
    mostraRicevuti(esito);
}

QStringList FinestraPressostati::riepilogo(const EsitoAssegnazione& esito) const {
    return {u"Ricevuti %1 Rilevamenti Validi"_s.arg(esito.validi)};
}

void FinestraPressostati::mostraRicevuti(const EsitoAssegnazione& esito) {
    m_daSalvare = !esito.tempi.isEmpty();
    m_rinuncia = false;
    mostraTempi();
    m_scartati.mostra(esito.scartati);
    m_pressostati.grScartati->selectRow(0);
    const QStringList righe = riepilogo(esito);
    stato().mostra(QStringList{u"ELABORAZIONE "_s, u"TERMINATA"_s} + righe, PannelloStato::Tono::Terminata);
    Dialoghi::corrente().messaggio(
        u"Ricezione OK"_s, (QStringList{u"Ricezione Terminata"_s} + righe).join(u'\n'), Icona::Informazione);
}

QWidget* FinestraPressostati::prossimoControllo() const {
    return m_pressostati.cmdSalva;
}

void FinestraPressostati::salva() {
    if (!ciSonoTempiRicevuti()) {
        avverti(u"Impossibile Salvare i Tempi"_s, u"Nessun Tempo Ricevuto"_s);
        return;
    }
    {
        const CursoreAttesa attesa;
        salvaTempi(scelti());
    }
    m_daSalvare = false;
    mostraTempi();
    Dialoghi::corrente().messaggio(u"Salvataggio OK"_s, u"Salvataggio Completato"_s, Icona::Informazione);
}

void FinestraPressostati::scriviImpostazioni() const {
    FinestraScarico::scriviImpostazioni();
    Impostazioni::corrente().scrivi(u"numero"_s, Chiave, soloPrimoPressostato() ? u"1"_s : u"0"_s);
}

// The button says what it does; Esc and the close box may be a slip.
void FinestraPressostati::esci() {
    m_rinuncia = true;
    close();
}

bool FinestraPressostati::puoChiudere() {
    if (m_daSalvare && !m_rinuncia) {
        m_rinuncia = Dialoghi::corrente().domanda(u"Conferma Chiusura"_s,
                                                  u"I Tempi Ricevuti NON Sono Ancora Stati Salvati.\n"
                                                  "Chiudere Veramente la Finestra Senza Salvarli ?"_s,
                                                  Icona::Domanda);
        if (!m_rinuncia)
            return false;
    }
    const auto elimina = [this] {
        if (m_daSalvare)
            azzeraScarico(Azzera::SoloTempi);
        m_daSalvare = false;
        return true;
    };
    const auto perduto = [] { return u"i Tempi Ricevuti, che si Rivedranno alla Prossima Apertura"_s; };
    return lasciaDopo(elimina, perduto) && FinestraScarico::puoChiudere();
}

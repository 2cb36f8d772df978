#include "readings/GrigliaRilevamenti.h"

#include "common/Dialoghi.h"
#include "common/Funzioni.h"
#include "common/Valori.h"

#include <algorithm>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTableView>
#include <utility>

using namespace Qt::StringLiterals;
using enum ModelloRilevamenti::Colonna;

namespace {

constexpr int Margine = 14;  // of a cell's text on both sides, in pixels
constexpr int MargineRiga = 9;
constexpr int NomeMinimo = 150;
constexpr int NomeAmpio = 240;

void preparaTabella(QTableView* tabella, ModelloRilevamenti* modello) {
    tabella->setModel(modello);
    tabella->setSelectionMode(QAbstractItemView::NoSelection);
    tabella->setTabKeyNavigation(false);
    tabella->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    tabella->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tabella->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    tabella->setWordWrap(false);
    tabella->verticalHeader()->hide();
    tabella->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    tabella->verticalHeader()->setDefaultSectionSize(tabella->fontMetrics().height() + MargineRiga);
    tabella->horizontalHeader()->setSectionsClickable(false);
    tabella->horizontalHeader()->setHighlightSections(false);
    tabella->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
}

int larghezzaColonna(const QTableView* tabella, int colonna) {
    const bool numero = colonna == PenAgg || colonna == Penalita;
    QFont grassetto = tabella->font();
    grassetto.setBold(true);
    const QFontMetrics misure(grassetto);
    const QString titolo = tabella->model()->headerData(colonna, Qt::Horizontal).toString();
    return std::max(misure.horizontalAdvance(numero ? u"0000000,0"_s : u"00:00:00:00"_s),
                    misure.horizontalAdvance(titolo)) +
           Margine;
}

}  // namespace

GrigliaRilevamenti::GrigliaRilevamenti(QWidget* padre)
    : QWidget(padre),
      m_modello(new ModelloRilevamenti(this)),
      m_grT(new QTableView(this)),
      m_grS(new QTableView(this)),
      m_vBar(new QScrollBar(Qt::Vertical, this)),
      m_lblEsito(new QLabel(this)),
      m_etichettaTotale(new QLabel(u"Penalità Totali : "_s, this)),
      m_lblTotPen(new QLabel(this)),
      m_delegato(new DelegatoRilevamenti(m_grT)) {
    componi();
    legaScorrimento();
    m_grT->installEventFilter(this);
    m_grT->viewport()->installEventFilter(this);
    setFocusProxy(m_grT);

    connect(m_delegato, &DelegatoRilevamenti::mossa, this, &GrigliaRilevamenti::muovi);
    // Not from within the change of focus: a box may come, or the control that has taken it may end the cell
    // in its own way.
    connect(m_delegato, &DelegatoRilevamenti::fuocoPerso, this, &GrigliaRilevamenti::fuocoPerso,
            Qt::QueuedConnection);
    connect(m_delegato, &DelegatoRilevamenti::virgolaRifiutata, this, &GrigliaRilevamenti::rifiutaVirgola);
    connect(m_modello, &ModelloRilevamenti::totaleCambiato, this, &GrigliaRilevamenti::mostraTotale);
    connect(m_modello, &ModelloRilevamenti::modificata, this, &GrigliaRilevamenti::modificata);
    // The whole row stands out, here and beside.
    connect(m_grT->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        m_grT->viewport()->update();
        m_grS->viewport()->update();
    });
    connect(m_grS, &QTableView::clicked, this, [this](const QModelIndex& indice) {
        if (concludiModifica(Uscita::Altrove))
            vaiAllaCella(indice.row(), m_grT->currentIndex().column());
    });
}

void GrigliaRilevamenti::componi() {
    m_grT->setObjectName(u"grT"_s);
    m_grS->setObjectName(u"grS"_s);
    m_vBar->setObjectName(u"vBar"_s);
    m_lblTotPen->setObjectName(u"lblTotPen"_s);
    m_lblEsito->setObjectName(u"lblEsito"_s);
    m_lblEsito->setTextFormat(Qt::PlainText);
    m_lblEsito->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    for (QTableView* tabella : {m_grT, m_grS})
        preparaTabella(tabella, m_modello);
    m_grT->setItemDelegate(m_delegato);
    m_grS->setItemDelegate(new DelegatoRilevamenti(m_grT));
    m_grT->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::AnyKeyPressed);
    m_grS->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grS->setFocusPolicy(Qt::NoFocus);
    for (int colonna = 0; colonna < ModelloRilevamenti::Colonne; ++colonna)
        (colonna < ModelloRilevamenti::Netto ? m_grS : m_grT)->hideColumn(colonna);

    QFont grande = font();
    grande.setBold(true);
    grande.setPointSizeF(grande.pointSizeF() * 1.3);
    m_lblTotPen->setFont(grande);
    m_lblTotPen->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto* disposizione = new QGridLayout(this);
    disposizione->setContentsMargins(0, 0, 0, 0);
    disposizione->setHorizontalSpacing(2);
    disposizione->addWidget(m_grT, 0, 0);
    disposizione->addWidget(m_grS, 0, 1);
    disposizione->addWidget(m_vBar, 0, 2);
    disposizione->addWidget(m_etichettaTotale, 1, 0, Qt::AlignRight);
    disposizione->addWidget(m_lblTotPen, 1, 1);
    disposizione->addWidget(m_lblEsito, 2, 0, 1, 3);
    disposizione->setColumnStretch(0, 1);
    disposizione->setRowStretch(0, 1);
}

void GrigliaRilevamenti::legaScorrimento() {
    QScrollBar* tabelle[] = {m_grT->verticalScrollBar(), m_grS->verticalScrollBar()};
    for (QScrollBar* barra : tabelle) {
        connect(barra, &QScrollBar::valueChanged, m_vBar, &QScrollBar::setValue);
        connect(m_vBar, &QScrollBar::valueChanged, barra, &QScrollBar::setValue);
    }
    connect(tabelle[0], &QScrollBar::rangeChanged, this, [this, barra = tabelle[0]](int minimo, int massimo) {
        m_vBar->setRange(minimo, massimo);
        m_vBar->setPageStep(barra->pageStep());
        m_vBar->setValue(barra->value());
    });
}

void GrigliaRilevamenti::apri(ModoGriglia modo) {
    m_modello->apri(modo);
    const bool penalita = modo == ModoGriglia::PenalitaAggiuntive;
    for (const int colonna : {TempoImposto, TempoStart, TempoPassaggio})
        m_grT->setColumnHidden(colonna, penalita);
    m_grT->setColumnHidden(PenAgg, modo == ModoGriglia::Ricezione || modo == ModoGriglia::Correzione);
    m_grT->setColumnHidden(DesPenAgg, !penalita);
    m_grS->setVisible(!penalita);
    m_etichettaTotale->setVisible(!penalita);
    m_lblTotPen->setVisible(!penalita);

    int digitate = 2 * m_grT->frameWidth() + NomeMinimo;
    int calcolate = 2 * m_grS->frameWidth();
    for (int colonna = TempoImposto; colonna < ModelloRilevamenti::Colonne; ++colonna) {
        QTableView* tabella = colonna < ModelloRilevamenti::Netto ? m_grT : m_grS;
        tabella->setColumnWidth(colonna, larghezzaColonna(tabella, colonna));
        // A hidden column has no width.
        (colonna < ModelloRilevamenti::Netto ? digitate : calcolate) += tabella->columnWidth(colonna);
    }
    m_grT->setMinimumWidth(digitate);
    m_grS->setFixedWidth(calcolate);
    // Of a fixed size, a new total does not lay the whole window out again.
    m_lblTotPen->setFixedSize(calcolate, m_lblTotPen->fontMetrics().height() + MargineRiga);
    // What is read at length takes the room that is left.
    m_grT->setColumnWidth(NomeProva, NomeAmpio);
    m_grT->horizontalHeader()->setSectionResizeMode(penalita ? DesPenAgg : NomeProva, QHeaderView::Stretch);
}

bool GrigliaRilevamenti::mostraEquipaggio(int idEqu, bool asi) {
    if (!concludiModifica())
        return false;
    const QModelIndex prima = m_grT->currentIndex();
    const int idPro = prima.isValid() ? m_modello->righe()[static_cast<std::size_t>(prima.row())].idPro : 0;
    const int colonna = prima.column();
    const bool altro = idEqu != m_modello->idEqu();
    m_modello->mostra(idEqu, asi);
    if (altro) {
        const QString esito = std::exchange(m_esito, {});
        m_lblEsito->setText(esito.isEmpty() ? esito : u"Equipaggio precedente - "_s + esito);
    }
    m_grT->setCurrentIndex({});
    const std::vector<RigaRilevamento>& righe = m_modello->righe();
    const auto stessa = std::ranges::find(righe, idPro, &RigaRilevamento::idPro);
    if (stessa == righe.end()) {
        avanti(1);
    } else {
        vaiAllaCella(static_cast<int>(stessa - righe.begin()), colonna);
    }
    return true;
}

void GrigliaRilevamenti::ricarica() {
    if (concludiModifica())
        m_modello->ricarica();
}

bool GrigliaRilevamenti::concludiModifica(Uscita come) {
    const QPointer<QLineEdit> editor = m_delegato->editor();
    if (!editor)
        return true;
    // A box about the cell is still open.
    if (m_concludendo)
        return false;
    const QScopedValueRollback concludendo(m_concludendo, true);
    bool registrata = false;
    const auto riprendi = qScopeGuard([&] {
        if (!registrata && editor)
            editor->setFocus();
    });
    registrata = !editor->isModified() || registra(come);
    if (registrata)
        m_delegato->chiudi();
    return registrata;
}

// What is in the open editor; it stays open.
bool GrigliaRilevamenti::registra(Uscita come) {
    const QLineEdit& editor = *m_delegato->editor();
    const QModelIndex cella = m_delegato->cella();
    const QString testo = editor.text();
    const bool diTempo = ModelloRilevamenti::diTempo(cella.column());
    if (diTempo && testo.isEmpty() && come != Uscita::Altrove) {
        if (!cella.data(Qt::EditRole).toString().isEmpty())
            chiediCancellazione(cella);
    } else if (diTempo && come != Uscita::Conferma && aMeta(editor)) {
        racconta(cella, cella.data(Qt::EditRole).toString() + u" - meno di sei cifre, resta com'era"_s);
    } else if (m_modello->scrivi(cella, testo)) {
        racconta(cella, cella.data(Qt::EditRole).toString());
    } else {
        rifiutaPenalita(u"\"%1\" non è un numero: la penalità resta com'era."_s.arg(testo));
        return false;
    }
    return true;
}

void GrigliaRilevamenti::rifiutaPenalita(const QString& perche) {
    avverti(u"Penalità NON Valida"_s, perche);
    if (QLineEdit* editor = m_delegato->editor()) {
        editor->setFocus();
        editor->selectAll();
    }
}

void GrigliaRilevamenti::rifiutaVirgola() {
    rifiutaPenalita(
        u"Qui la penalità si scrive in sole cifre, senza virgola.\n"
        "Con la virgola si scrive in Gestione Penalità Aggiuntive."_s);
}

void GrigliaRilevamenti::fuocoPerso() {
    if (m_delegato->editor() && !m_delegato->editor()->hasFocus() && !m_concludendo && isVisible())
        concludiModifica(Uscita::Altrove);
}

void GrigliaRilevamenti::abbandonaModifica() {
    m_delegato->chiudi();
}

QString GrigliaRilevamenti::modificaInCorso() const {
    const QLineEdit* editor = m_delegato->editor();
    return editor ? nomeCella(m_delegato->cella()) + editor->text() : QString();
}

QString GrigliaRilevamenti::nomeCella(const QModelIndex& indice) const {
    return m_modello->righe()[static_cast<std::size_t>(indice.row())].nome + u", "_s +
           m_modello->headerData(indice.column(), Qt::Horizontal).toString() + u" : "_s;
}

void GrigliaRilevamenti::racconta(const QModelIndex& indice, const QString& esito) {
    m_esito = nomeCella(indice) + esito;
    m_lblEsito->setText(m_esito);
}

void GrigliaRilevamenti::vaiA(int idPro, std::optional<CampoTempo> campo) {
    const std::vector<RigaRilevamento>& righe = m_modello->righe();
    const auto trovata = std::ranges::find(righe, idPro, &RigaRilevamento::idPro);
    if (trovata != righe.end()) {
        vaiAllaCella(static_cast<int>(trovata - righe.begin()),
                     campo == CampoTempo::Arrivo ? TempoPassaggio : TempoStart);
    }
    prendiFuoco();
}

void GrigliaRilevamenti::prendiFuoco() {
    m_grT->setFocus(Qt::OtherFocusReason);
}

void GrigliaRilevamenti::vaiAllaCella(int riga, int colonna) {
    const QModelIndex indice = m_modello->index(riga, std::max<int>(colonna, NomeProva));
    m_grT->setCurrentIndex(indice);
    m_grT->scrollTo(indice);
}

bool GrigliaRilevamenti::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == m_grT && evento->type() == QEvent::KeyPress && tasto(static_cast<QKeyEvent&>(*evento)))
        return true;
    // Before another cell becomes the current one.
    if (oggetto == m_grT->viewport() && evento->type() == QEvent::MouseButtonPress &&
        !concludiModifica(Uscita::Altrove))
        return true;
    return QWidget::eventFilter(oggetto, evento);
}

bool GrigliaRilevamenti::tasto(const QKeyEvent& evento) {
    const int tasto = evento.key();
    // What the editor does not want: only a page up or down leaves the cell.
    if (m_delegato->editor()) {
        const bool pagina = tasto == Qt::Key_PageUp || tasto == Qt::Key_PageDown;
        return pagina && !concludiModifica(Uscita::Altrove);
    }
    if (tasto == Qt::Key_Backspace || tasto == Qt::Key_Delete)
        return cancella(evento);
    const std::optional<Mossa> verso = mossaDelTasto(tasto);
    // The arrows and the ends of the grid under Tab are the view's and the window's own.
    if (verso && verso != Mossa::Su && verso != Mossa::Giu) {
        const QModelIndex prima = m_grT->currentIndex();
        muovi(*verso);
        const bool tab = tasto == Qt::Key_Tab || tasto == Qt::Key_Backtab;
        return !tab || m_grT->currentIndex() != prima;
    }
    const QString testo = evento.text();
    const int colonna = m_grT->currentIndex().column();
    if (colonna == PenAgg && m_modello->modo() == ModoGriglia::Manuale &&
        (testo == ","_L1 || testo == "."_L1))
        rifiutaVirgola();
    // A letter in a locked cell would search the column and lose the place.
    return !testo.isEmpty() && testo.at(0).isPrint() && !digitabile(testo, colonna);
}

bool GrigliaRilevamenti::digitabile(const QString& testo, int colonna) const {
    if (!m_modello->modificabile(colonna))
        return false;
    if (colonna == DesPenAgg)
        return true;
    const int codice = testo.at(0).unicode();
    return FiltroCifreValore(codice) != 0 ||
           (m_modello->modo() == ModoGriglia::PenalitaAggiuntive && codice == ',');
}

bool GrigliaRilevamenti::cancella(const QKeyEvent& evento) {
    const QModelIndex indice = m_grT->currentIndex();
    // Held down it only asks once.
    if (!indice.isValid() || !m_modello->modificabile(indice.column()) || evento.isAutoRepeat())
        return true;
    if (ModelloRilevamenti::diTempo(indice.column())) {
        chiediCancellazione(indice);
        return true;
    }
    // Emptied in its editor: Esc still brings the old text back.
    m_grT->edit(indice);
    if (QLineEdit* editor = m_delegato->editor()) {
        editor->clear();
        editor->setModified(true);
    }
    return true;
}

void GrigliaRilevamenti::chiediCancellazione(const QModelIndex& indice) {
    if (!Dialoghi::corrente().domanda(u"Conferma Cancellazione"_s, u"Cancellare il Tempo Selezionato ?"_s,
                                      Icona::Domanda))
        return;
    m_modello->cancellaTempo(indice);
    racconta(indice, u"cancellato"_s);
}

void GrigliaRilevamenti::muovi(Mossa verso) {
    const bool conferma = verso == Mossa::Avanti || verso == Mossa::Indietro;
    const bool equipaggio = verso == Mossa::EquipaggioDopo || verso == Mossa::EquipaggioPrima;
    if (!concludiModifica(equipaggio ? Uscita::Equipaggio : conferma ? Uscita::Conferma : Uscita::Altrove))
        return;
    switch (verso) {
        case Mossa::Avanti:
            avanti(1);
            break;
        case Mossa::Indietro:
            avanti(-1);
            break;
        case Mossa::Su:
        case Mossa::Giu: {
            const int riga = m_grT->currentIndex().row() + (verso == Mossa::Giu ? 1 : -1);
            if (riga >= 0 && riga < m_modello->rowCount())
                vaiAllaCella(riga, m_grT->currentIndex().column());
            break;
        }
        case Mossa::EquipaggioDopo:
            Q_EMIT equipaggioRichiesto(1);
            break;
        case Mossa::EquipaggioPrima:
            Q_EMIT equipaggioRichiesto(-1);
            break;
    }
}

// By rows, from the cell after (or before) the current one; stays where there is none.
void GrigliaRilevamenti::avanti(int passo) {
    constexpr int colonne = ModelloRilevamenti::Colonne;
    const QModelIndex corrente = m_grT->currentIndex();
    const int celle = m_modello->rowCount() * colonne;
    const int da = corrente.isValid() ? corrente.row() * colonne + corrente.column() : -1;
    for (int cella = da + passo; cella >= 0 && cella < celle; cella += passo) {
        if (daDigitare(cella / colonne, cella % colonne)) {
            vaiAllaCella(cella / colonne, cella % colonne);
            return;
        }
    }
}

bool GrigliaRilevamenti::daDigitare(int riga, int colonna) const {
    if (!m_modello->modificabile(colonna))
        return false;
    if (m_modello->modo() == ModoGriglia::PenalitaAggiuntive)
        return true;
    const bool concatenata = riga > 0 && m_modello->righe()[static_cast<std::size_t>(riga)].concatenata;
    return colonna == TempoPassaggio || (colonna == TempoStart && !concatenata);
}

void GrigliaRilevamenti::mostraTotale() {
    m_lblTotPen->setText(numeroInTesto(m_modello->totale()));
}

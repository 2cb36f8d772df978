#include "output/frmAnteprima.h"

#include "archive/ErroreArchivio.h"
#include "common/Dialoghi.h"
#include "common/Subroutine.h"
#include "output/Pittore.h"

#include <algorithm>
#include <QAction>
#include <QCoreApplication>
#include <QFileInfo>
#include <QGraphicsView>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QPrinter>
#include <QPrintPreviewWidget>
#include <QScreen>
#include <QScrollBar>
#include <QStandardPaths>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr double ParteDelloSchermo = 0.94;

// A name for the file that every system takes.
QString nomeFile(const QString& titolo) {
    QString nome = titolo.simplified();
    for (QChar& segno : nome) {
        if (uR"(\/:*?"<>|)"_s.contains(segno))
            segno = u'-';
    }
    return nome.isEmpty() ? u"Rapporto"_s : nome;
}

// An entry of the toolkit's own bar, by its English name.
QAction* voceDellaBarra(const QToolBar* barra, const char* nome) {
    const QString testo = QCoreApplication::translate("QPrintPreviewDialog", nome);
    const QList<QAction*> azioni = barra->actions();
    const auto trovata = std::ranges::find(azioni, testo, &QAction::text);
    return trovata == azioni.cend() ? nullptr : *trovata;
}

}  // namespace

frmAnteprima::frmAnteprima(const Rapporto& rapporto, QPrinter* stampante, QWidget* padre)
    : QPrintPreviewDialog(stampante, padre, Qt::Window),
      m_rapporto(rapporto),
      m_pagine(findChild<QPrintPreviewWidget*>()),
      m_vista(m_pagine->findChild<QGraphicsView*>()) {
    setObjectName(u"frmAnteprima"_s);
    setWindowTitle(rapporto.titoloFinestra);
    connect(this, &QPrintPreviewDialog::paintRequested, this, &frmAnteprima::disegna);
    preparaBarra();
    preparaPagine();
    resize(screen()->availableSize() * ParteDelloSchermo);
}

// The toolkit's own bar, and beside it the PDF and a way out.
void frmAnteprima::preparaBarra() {
    auto* barra = findChild<QToolBar*>();
    barra->addSeparator();
    const auto conTasto = [&](const char* voce, const QString& nome, QKeySequence::StandardKey tasto,
                              const QString& spiegazione) {
        if (QAction* azione = voceDellaBarra(barra, voce)) {
            azione->setObjectName(nome);
            azione->setShortcut(tasto);
            azione->setToolTip(spiegazione);
        }
    };
    conTasto("Print", u"cmdStampa"_s, QKeySequence::Print, u"Stampa il rapporto (Ctrl+P)"_s);
    conTasto("Zoom in", u"cmdIngrandisci"_s, QKeySequence::ZoomIn, u"Ingrandisce (Ctrl e +)"_s);
    conTasto("Zoom out", u"cmdRimpicciolisci"_s, QKeySequence::ZoomOut, u"Rimpicciolisce (Ctrl e -)"_s);
    auto* salva = new QAction(style()->standardIcon(QStyle::SP_DialogSaveButton), u"Salva PDF"_s, this);
    salva->setObjectName(u"cmdSalvaPDF"_s);
    salva->setShortcut(QKeySequence::Save);
    salva->setToolTip(u"Salva il rapporto in un file PDF (Ctrl+S)"_s);
    connect(salva, &QAction::triggered, this, &frmAnteprima::salvaPdf);
    auto* esci = new QAction(style()->standardIcon(QStyle::SP_DialogCloseButton), u"Chiudi"_s, this);
    esci->setObjectName(u"cmdEsci"_s);
    esci->setToolTip(u"Chiude l'anteprima (Esc)"_s);
    connect(esci, &QAction::triggered, this, &frmAnteprima::close);
    const QList<QAction*> azioni{salva, esci};
    barra->addActions(azioni);
    for (QAction* azione : azioni) {
        if (auto* pulsante = qobject_cast<QToolButton*>(barra->widgetForAction(azione))) {
            pulsante->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
            pulsante->setText(u'&' + azione->text());  // an action gives its text without the mnemonic
        }
    }
}

// The keys act on the pages from the first moment, and stand under them.
void frmAnteprima::preparaPagine() {
    m_vista->installEventFilter(this);
    auto* tasti = new QLabel(
        u"PagGiù e PagSu sfogliano   ·   Inizio e Fine: prima e ultima pagina   ·   "
        "Frecce scorrono   ·   Ctrl+P stampa   ·   Ctrl+S salva PDF   ·   Esc chiude"_s);
    tasti->setObjectName(u"lblTasti"_s);
    tasti->setTextFormat(Qt::PlainText);
    tasti->setWordWrap(true);
    auto* barra = findChild<QMainWindow*>()->statusBar();
    barra->setSizeGripEnabled(false);
    barra->addWidget(tasti, 1);
}

void frmAnteprima::showEvent(QShowEvent* evento) {
    QPrintPreviewDialog::showEvent(evento);
    if (std::exchange(m_mostrata, true))
        return;
    CentraFinestra(this);
    if (QAction* larghezza = voceDellaBarra(findChild<QToolBar*>(), "Fit width"))
        larghezza->trigger();
    m_vista->setFocus();
}

bool frmAnteprima::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == m_vista && evento->type() == QEvent::KeyPress) {
        const auto& tasto = static_cast<QKeyEvent&>(*evento);
        if ((tasto.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && sfoglia(tasto.key()))
            return true;
    }
    return QPrintPreviewDialog::eventFilter(oggetto, evento);
}

bool frmAnteprima::sfoglia(int tasto) {
    QScrollBar* verticale = m_vista->verticalScrollBar();
    const bool paginaIntera = m_pagine->zoomMode() == QPrintPreviewWidget::FitInView;
    const bool tuttaLarga = m_vista->horizontalScrollBar()->maximum() == 0;
    int passo = 0;
    switch (tasto) {
        case Qt::Key_Home:
            verticale->setValue(verticale->minimum());
            return true;
        case Qt::Key_End:
            verticale->setValue(verticale->maximum());
            return true;
        case Qt::Key_PageDown:
            passo = paginaIntera ? 1 : 0;
            break;
        case Qt::Key_PageUp:
            passo = paginaIntera ? -1 : 0;
            break;
        case Qt::Key_Right:
            passo = tuttaLarga ? 1 : 0;
            break;
        case Qt::Key_Left:
            passo = tuttaLarga ? -1 : 0;
            break;
        default:
            break;
    }
    if (passo != 0)
        m_pagine->setCurrentPage(std::clamp(m_pagine->currentPage() + passo, 1, m_pagine->pageCount()));
    return passo != 0;
}

void frmAnteprima::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_F1) {
        mostraAiuto(this);
    } else {
        QPrintPreviewDialog::keyPressEvent(evento);
    }
}

// A failure must not travel through the toolkit's own printing.
void frmAnteprima::disegna(QPrinter* stampante) {
    try {
        stampa(m_rapporto, *stampante);
    } catch (const Errore& errore) {
        avverti(u"Impossibile Stampare"_s, errore.testo());
    }
}

void frmAnteprima::salvaPdf() {
    const QString cartella = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QString percorso = Dialoghi::corrente().salvaFile(
        u"Salva PDF"_s, cartella + u'/' + nomeFile(m_rapporto.titoloFinestra) + u".pdf"_s,
        u"Documenti PDF (*.pdf)"_s);
    if (percorso.isEmpty())
        return;
    if (!percorso.endsWith(u".pdf"_s, Qt::CaseInsensitive)) {
        percorso += u".pdf"_s;
        // The file dialog has asked about the other name.
        if (QFileInfo::exists(percorso) &&
            !Dialoghi::corrente().domanda(
                u"Salva PDF"_s, u"Il file %1 esiste già.\nSostituirlo ?"_s.arg(percorso), Icona::Domanda))
            return;
    }
    try {
        const CursoreAttesa cursore;
        scriviPdf(m_rapporto, percorso);
    } catch (const Errore& errore) {
        avverti(u"Impossibile Salvare"_s, errore.testo());
        return;
    }
    MostraMessaggio(u"PDF Salvato"_s);
}

#include "output/frmAnteprima.h"

#include "archive/ErroreArchivio.h"
#include "common/Dialoghi.h"
#include "common/Subroutine.h"
#include "output/Pittore.h"

#include <algorithm>
#include <QAction>
#include <QCoreApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPrinter>
#include <QScreen>
#include <QStandardPaths>
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
    : QPrintPreviewDialog(stampante, padre, Qt::Window), m_rapporto(rapporto) {
    setObjectName(u"frmAnteprima"_s);
    setWindowTitle(rapporto.titoloFinestra);
    connect(this, &QPrintPreviewDialog::paintRequested, this, &frmAnteprima::disegna);
    preparaBarra();
    resize(screen()->availableSize() * ParteDelloSchermo);
}

// The toolkit's own bar, and beside it the PDF and a way out.
void frmAnteprima::preparaBarra() {
    auto* barra = findChild<QToolBar*>();
    barra->addSeparator();
    if (QAction* stampa = voceDellaBarra(barra, "Print")) {
        stampa->setShortcut(QKeySequence::Print);
        stampa->setToolTip(u"Stampa il rapporto (Ctrl+P)"_s);
    }
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

void frmAnteprima::showEvent(QShowEvent* evento) {
    QPrintPreviewDialog::showEvent(evento);
    if (std::exchange(m_mostrata, true))
        return;
    CentraFinestra(this);
    if (QAction* larghezza = voceDellaBarra(findChild<QToolBar*>(), "Fit width"))
        larghezza->trigger();
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

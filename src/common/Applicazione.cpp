#include "common/Applicazione.h"

#include "archive/ErroreArchivio.h"
#include "common/Aspetto.h"
#include "common/DialoghiQt.h"
#include "common/Schermo.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLabel>
#include <QLibraryInfo>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

constexpr int Tentativi = 10;
constexpr std::chrono::milliseconds PausaFraTentativi{100};

void mostraErrore(const QString& testo) {
    Dialoghi::corrente().messaggio(u"Velmora"_s, testo, Icona::Stop);
}

// Typed texts, those of workbooks and of other archives are never markup: not in a label, nor in a tool tip,
// which is a label of the toolkit's own. Before the first measure, so that nothing a text names is ever
// fetched.
void mostraComeTesto(QObject* oggetto) {
    if (auto* etichetta = qobject_cast<QLabel*>(oggetto))
        etichetta->setTextFormat(Qt::PlainText);
}

// Alt and a letter with no button for it (or a disabled one) must not be typed into the field. AltGr is
// another key, or Ctrl and Alt together; menus read their own letters.
bool letteraConAlt(const QObject* ricevente, const QKeyEvent& tasto) {
    return (tasto.modifiers() & (Qt::AltModifier | Qt::ControlModifier)) == Qt::AltModifier &&
           !tasto.text().isEmpty() && tasto.text().at(0).isPrint() &&
           !qobject_cast<const QMenu*>(ricevente) && !qobject_cast<const QMenuBar*>(ricevente);
}

// The toolkit waits a tenth of a second to show the button pressed; what is typed meanwhile would still go to
// what was on show before.
bool premiSubito(QObject* ricevente, const QShortcutEvent& tasto) {
    auto* pulsante = qobject_cast<QAbstractButton*>(ricevente);
    if (!pulsante || tasto.isAmbiguous())
        return false;
    if (pulsante->isCheckable() && pulsante->focusPolicy() & Qt::ClickFocus)
        pulsante->setFocus();
    pulsante->click();
    return true;
}

bool aperta(const QWidget* finestra) {
    return finestra->isVisible() &&
           (finestra->windowType() == Qt::Window || finestra->windowType() == Qt::Dialog);
}

// True when the event has had its answer.
bool preso(QObject* ricevente, QEvent* evento) {
    switch (evento->type()) {
        case QEvent::Polish:
            mostraComeTesto(ricevente);
            return false;
        case QEvent::Show:
        case QEvent::LayoutRequest:
            if (auto* finestra = qobject_cast<QWidget*>(ricevente); finestra && aperta(finestra))
                adattaAlloSchermo(finestra);
            return false;
        case QEvent::KeyPress:
            return ricevente->isWidgetType() && letteraConAlt(ricevente, static_cast<QKeyEvent&>(*evento));
        case QEvent::Shortcut:
            return premiSubito(ricevente, static_cast<QShortcutEvent&>(*evento));
        default:
            return false;
    }
}

}  // namespace

Applicazione::Applicazione(int& argc, char** argv)
    : QApplication(argc, argv), m_dialoghi(std::make_unique<DialoghiQt>()) {
    setApplicationName(u"VLM"_s);
    setApplicationVersion(QLatin1String(VELMORA_VERSIONE));
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    setStyle(u"Fusion"_s);
    setPalette(coloriDelProgramma());
    auto* testi = new QTranslator(this);
    if (testi->load(u"qtbase_it"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(testi);
    Dialoghi::installa(m_dialoghi.get());
    m_restituzione.setSingleShot(true);
    connect(&m_restituzione, &QTimer::timeout, this, &Applicazione::restituisciTastiera);
}

Applicazione::~Applicazione() {
    Dialoghi::installa(nullptr);
}

// A window that closes hands the keyboard to the one behind it. The window manager does that for one window;
// where the one behind closes too before its turn has come (a notice, and the window that it was about), some
// managers leave the keyboard with a window that is gone.
void Applicazione::nascosta(const QWidget* finestra) {
    const bool popup = finestra->windowType() == Qt::Popup || finestra->windowType() == Qt::ToolTip;
    // Not when the operator is in another program.
    if (!finestra->isWindow() || popup || applicationState() != Qt::ApplicationActive)
        return;
    m_sotto = finestra->parentWidget() ? finestra->parentWidget()->window() : nullptr;
    m_tentativi = Tentativi;
    m_restituzione.start(0);
}

void Applicazione::restituisciTastiera() {
    QWidget* sotto = activeModalWidget() ? activeModalWidget() : m_sotto.get();
    if (!sotto || !sotto->isVisible() || sotto->isActiveWindow() || activePopupWidget()) {
        m_tentativi = 0;
        return;
    }
    sotto->activateWindow();
    if (--m_tentativi > 0)
        m_restituzione.start(PausaFraTentativi);
}

bool Applicazione::notify(QObject* ricevente, QEvent* evento) {
    try {
        if (evento->type() == QEvent::Hide && ricevente->isWidgetType())
            nascosta(static_cast<QWidget*>(ricevente));
        return preso(ricevente, evento) || QApplication::notify(ricevente, evento);
    } catch (const Errore& errore) {
        mostraErrore(errore.testo());
    } catch (const std::exception& errore) {
        mostraErrore(u"Errore imprevisto.\n(%1)"_s.arg(QString::fromUtf8(errore.what())));
    }
    return true;
}

// The program up to the first painting of its main window, in the program folder given; the operator answers
// the splash as soon as it has painted.

#include "archive/PercorsoApp.h"
#include "common/Applicazione.h"
#include "PrimoDisegno.h"
#include "shell/Avvio.h"

#include <cstdlib>
#include <QAbstractButton>

namespace {

QWidget* finestra(const char* nome) {
    const QWidgetList tutte = QApplication::topLevelWidgets();
    for (QWidget* una : tutte) {
        if (una->objectName() == QLatin1String(nome))
            return una;
    }
    return nullptr;
}

void rispondi() {
    finestra("frmSplash")->findChild<QAbstractButton*>(QStringLiteral("cmdOK"))->click();
    // What the exit does is not start-up.
    new PrimoDisegno(finestra("frmMain"), [] { std::_Exit(0); });
}

}  // namespace

int main(int argc, char** argv) {
    const Applicazione applicazione(argc, argv);
    PercorsoApp = QString::fromLocal8Bit(argv[1]);
    QTimer::singleShot(0, qApp, [] { new PrimoDisegno(finestra("frmSplash"), &rispondi); });
    return avvia();
}

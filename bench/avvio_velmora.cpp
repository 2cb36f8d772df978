// The program up to its usable main window, in the program folder given; the operator answers the splash at
// once.

#include "archive/PercorsoApp.h"
#include "common/Applicazione.h"
#include "shell/Avvio.h"

#include <cstdlib>
#include <QAbstractButton>
#include <QDialog>
#include <QTimer>

namespace {

void rispondi() {
    QWidget* finestra = QApplication::activeModalWidget();
    if (auto* ok = finestra ? finestra->findChild<QAbstractButton*>(QStringLiteral("cmdOK")) : nullptr)
        ok->click();
    // The loop comes back here once the main window has painted; what the exit does is not start-up.
    QTimer::singleShot(0, qApp, [] { std::_Exit(0); });
}

}  // namespace

int main(int argc, char** argv) {
    const Applicazione applicazione(argc, argv);
    PercorsoApp = QString::fromLocal8Bit(argv[1]);
    QTimer::singleShot(0, qApp, &rispondi);
    return avvia();
}

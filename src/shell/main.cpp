#include "archive/PercorsoApp.h"
#include "common/Applicazione.h"
#include "shell/Avvio.h"

int main(int argc, char** argv) {
    const Applicazione applicazione(argc, argv);
    PercorsoApp = QCoreApplication::applicationDirPath();
    return avvia();
}

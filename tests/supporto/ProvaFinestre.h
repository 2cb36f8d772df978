#pragma once

#include "common/Applicazione.h"
#include "supporto/Controlli.h"
#include "supporto/ProgrammaDiProva.h"

// The main function of a window test: like QTEST_MAIN, on the program's own application object, so that a
// failure of the archive reaches the operator's box as it does in the program.
#define PROVA_FINESTRE(Classe)                       \
    int main(int argc, char** argv) {                \
        const Applicazione applicazione(argc, argv); \
        Classe prova;                                \
        return QTest::qExec(&prova, argc, argv);     \
    }

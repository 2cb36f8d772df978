#pragma once

#include "simulatori/SimulatoreTabellone.h"
#include "simulatori/SimulatoreTag.h"
#include "supporto/ProgrammaDiProva.h"

#include <QTest>

// A chronometer on port 1 and a scoreboard on port 2.
struct BancoOnLine {
    explicit BancoOnLine(ProgrammaDiProva::Archivio archivio, Dispositivo dispositivo = Dispositivo::CP520)
        : programma(archivio), tag(dispositivo, linea) {}

    ProgrammaDiProva programma;
    PseudoTerminale linea{PercorsoApp, 1};
    PseudoTerminale lineaTabellone{PercorsoApp, 2};
    SimulatoreTag tag;
    SimulatoreTabellone tabellone{lineaTabellone};
};

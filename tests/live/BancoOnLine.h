#pragma once

#include "simulatori/SimulatoreTabellone.h"
#include "simulatori/SimulatoreTag.h"
#include "supporto/ProgrammaDiProva.h"

// A chronometer on port 1 and a scoreboard on port 2.
struct BancoOnLine {
    explicit BancoOnLine(Dispositivo dispositivo = Dispositivo::CP520) : tag(dispositivo, linea) {}

    PseudoTerminale linea{PercorsoApp, 1};
    PseudoTerminale lineaTabellone{PercorsoApp, 2};
    SimulatoreTag tag;
    SimulatoreTabellone tabellone{lineaTabellone};
};

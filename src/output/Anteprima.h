#pragma once

#include "output/Rapporto.h"

// Where a finished report is shown: the program's preview, or what a test puts in its place.
class Anteprima {
public:
    Anteprima() = default;
    Q_DISABLE_COPY_MOVE(Anteprima)
    virtual ~Anteprima() = default;

    // Returns when the operator has closed it.
    virtual void mostra(const Rapporto& rapporto) = 0;

    static Anteprima& corrente();
    static void installa(Anteprima* anteprima);  // not owned; nullptr goes back to the program's own
};

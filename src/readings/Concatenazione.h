#pragma once

#include "readings/Rilevamenti.h"

#include <cstddef>
#include <span>

// How a typed time reaches the other ends of its chain: the start of a chained test is the arrival of the
// test before it.

enum class RegolaCatena {
    Manuale,    // the next test, and from one time control to the next over the tests between
    Ricezione,  // from a test to the next, over the time controls, which are never written; both the next row
                // and the one that receives are chained
};

struct TempoScritto {
    std::size_t riga = 0;
    CampoTempo campo = CampoTempo::Partenza;
    QString valore;

    bool operator==(const TempoScritto&) const = default;
};

// What is to be written after `digitato` (in the mask, or empty) was typed in a cell: that cell first. The
// value is cut to the precision of its test; with Manuale it is cut again for each test that receives it,
// with Ricezione they all take the same time.
std::vector<TempoScritto> propagaTempo(std::span<const RigaRilevamento> righe, std::size_t riga,
                                       CampoTempo campo, const QString& digitato,
                                       const Impostazione& impostazione, bool asi, RegolaCatena regola);

// Writes them all or none. Throws ErroreArchivio, and Errore when a row is gone.
void scriviTempi(std::span<const RigaRilevamento> righe, std::span<const TempoScritto> tempi);

#pragma once

#include <QString>
#include <span>
#include <vector>

// The running order of the crews that have started a test or a chain, from the readings as they stand.

struct RigaTempoReale {
    int num = 0;
    QString equipaggio;   // Cog and CogNav
    QString veicolo;      // Mar and Mod
    double penalita = 0;  // with the added ones
    qint64 ordine = 0;    // the whole number by which the rows stand, and which is shown
};

// `prove`: the chain by keys, its head first. Ascending; equal crews stand by number. A penalty that cannot
// be computed is told to the operator and counts nothing.
std::vector<RigaTempoReale> classificaTempoReale(std::span<const int> prove);

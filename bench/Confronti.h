#pragma once

#include <string>
#include <vector>

// A measure beside its baseline, from the same run: the ratio of their median times and the most it may be.
struct Confronto {
    std::string misura;  // name of the benchmark
    std::string base;    // name of its baseline
    double massimo = 0;  // ratio allowed
    std::string descrizione;
};

// Every benchmark source adds its own before main runs.
std::vector<Confronto>& confronti();

struct AggiungiConfronto {
    AggiungiConfronto(Confronto confronto) { confronti().push_back(std::move(confronto)); }
};

#pragma once

#include <string>
#include <vector>

// A measure beside its baseline, from the same run: the ratio of the shortest times of their repetitions, and
// the most it may be. A busy machine makes repetitions longer, none shorter.
struct Confronto {
    std::string misura;  // name of the benchmark
    std::string base;    // name of its baseline
    double massimo = 0;  // ratio allowed
    std::string descrizione;
    // Where growth is compared: the names of the same two measures on the smaller event.
    std::string misuraPiccola = {};
    std::string basePiccola = {};
    std::string tolta = {};  // a measure whose time is first taken from the first one's
};

// Every benchmark source adds its own before main runs.
std::vector<Confronto>& confronti();

struct AggiungiConfronto {
    AggiungiConfronto(Confronto confronto) { confronti().push_back(std::move(confronto)); }
};

#pragma once

#include "readings/Rilevamenti.h"

#include <functional>

// The search for wrong and missing times over the tests run: crews, their tests, what is wrong with each.
//
// A reading out of the average has a penalty above 2.5 times the crew's mean without its best and worst test.
// Added penalties do not count. Single precision at every step.

struct TempoTrovato {
    int idRil = 0;
    CampoTempo campo = CampoTempo::Partenza;
    QString testo;

    bool operator==(const TempoTrovato&) const = default;
};

struct ProvaTrovata {
    int idPro = 0;
    QString nome;
    std::vector<TempoTrovato> tempi;  // none when the penalty is just at the limit
};

struct EquipaggioTrovato {
    int idEqu = 0;
    int num = 0;
    QString testo;  // number, names, mean
    std::vector<ProvaTrovata> prove;
};

struct RisultatoRicerca {
    std::vector<EquipaggioTrovato> equipaggi;  // by number
    std::vector<int> nonCercati;               // numbers of the crews that the search cannot hold
};

inline constexpr int NumeroMassimoRicerca = 999;

enum class FaseRicerca { Medie, Tempi };
// Told at each whole percentage of each phase.
using AvanzamentoRicerca = std::function<void(FaseRicerca, int percento)>;

bool esistonoProveSvolte();

// Of the whole event, or of one crew. Throws Errore when a penalty overflows.
RisultatoRicerca cercaTempi(const AvanzamentoRicerca& avanzamento = {}, std::optional<int> idEqu = {});

// Keys of the nodes: "/EQ" crew, "/PR" test, "/PA" or "/AR" reading; each holds those of its parents.
QString chiaveEquipaggio(int idEqu);
QString chiaveProva(int idEqu, int idPro);
QString chiaveTempo(int idEqu, int idPro, const TempoTrovato& tempo);

struct NodoRicerca {
    int idEqu = 0;
    std::optional<int> idPro;
    std::optional<CampoTempo> campo;
};
// Nothing for a text that is no key.
std::optional<NodoRicerca> leggiChiave(const QString& chiave);

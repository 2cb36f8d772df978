#pragma once

#include <optional>
#include <QString>
#include <span>
#include <vector>

// Start times of the crews, from the first one and an interval.

struct OrarioPartenza {
    int num = 0;
    QString ora;  // generated "hh:mm:ss.00", received "hh:mm:ss:cc"
    int idEqu = 0;
};

// A time control among which the first one that a restart changes is chosen.
struct ControlloOrario {
    int idPro = 0;
    QString nome;
    QString tempo;
};

std::vector<ControlloOrario> leggiControlliOrari();

// Whole seconds, 0 or more; nothing for any other text.
std::optional<int> leggiIntervallo(const QString& testo);

// The crews in order of number from `primoNumero` on (empty: from the first one), the one reached at
// `primoOrario` (seconds of the day), each next one `intervallo` seconds later, modulo 24 hours. Nothing when
// no crew has that number.
std::optional<std::vector<OrarioPartenza>> generaOrari(int primoOrario, int intervallo,
                                                       const QString& primoNumero);

// Writes the times as starts of the crews' time controls that are not chained; from the given test on, when
// one is given. All or none.
void salvaOrari(std::span<const OrarioPartenza> orari, std::optional<int> daIDPro = {});

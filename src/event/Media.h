#pragma once

#include <optional>
#include <QString>

// Average speed (km/h), distance (km) and time (hh:mm:ss), as typed; each from the other two. Nothing when
// one of them is missing, is no number or no time, or gives no result.
std::optional<QString> calcolaDistanza(const QString& tempo, const QString& velocita);
std::optional<QString> calcolaTempo(const QString& distanza, const QString& velocita);
std::optional<QString> calcolaVelocita(const QString& tempo, const QString& distanza);

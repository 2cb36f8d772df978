#pragma once

#include <optional>
#include <QString>

// Asks the day of a daily classification until it is a date; the text as typed. Nothing on an empty answer,
// on cancel, and, after the usual message, when no event is active.
std::optional<QString> chiediGiorno(const QString& titolo);

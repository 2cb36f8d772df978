#pragma once

#include <QList>
#include <QString>

// Composes the report of a kind (output/RapportiDefiniti tells the arguments) and shows it; returns when its
// preview is closed. Closes and reopens the archive's connections first. Without an active event it says so
// and shows nothing.
void ApriReport(const QString& tipo, const QString& filtro, const QString& titolo, const QString& esclusi,
                const QList<int>& prove);

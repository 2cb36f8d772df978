#pragma once

#include <QString>

// After it the folder's entries (a file made, renamed or removed) outlive a power cut, as far as the system
// lets a program ask for that; what it refuses is no failure.
void sincronizzaCartella(const QString& cartella);

// Gives a file the name of another, which it replaces at one stroke or not at all; durable. False on failure.
bool sostituisciFile(const QString& nuovo, const QString& percorso);

#pragma once

#include "shell/AggiornamentoSoftware.h"

#include <chrono>
#include <QUrl>

class QWidget;

// The network's part of the check for a new version.

inline std::chrono::milliseconds AttesaScarico{20000};  // for the whole answer
inline constexpr qint64 MassimoScarico = 65536;         // bytes; a longer answer is none of ours

QUrl indirizzoVersione();  // on the server that the build names

// Brings the file at that address to the path, which holds it whole or not at all. Events go on meanwhile,
// behind a modal notice of the wait with its "Annulla". Throws Errore when the file cannot be written.
EsitoScarico scaricaVersione(const QUrl& indirizzo, const QString& percorso, QWidget* padre = nullptr);

// The menu's "Aggiornamento sofwtare via Internet". Throws Errore.
void aggiornaViaInternet(QWidget* padre);

#pragma once

#include <array>
#include <functional>
#include <QString>

// The check for a new version, without the network and without a window.

using Versione = std::array<int, 3>;  // major, minor, revision

Versione versioneProgramma();
QString testoVersione(const Versione& versione);  // "1.0.0"

// The version that a file states, one number per line; a line that is no number, or is missing, counts 0.
// Throws Errore on a fourth line or when the file cannot be read.
Versione leggiVersione(const QString& percorso);

// Whether one number of the running program is smaller than the remote one. Each is compared by itself: 2.6.1
// counts as newer than 2.7.0.
bool versioneNuova(const Versione& remota, const Versione& locale);

// The separate program that installs a new version.
inline constexpr QStringView NomeAggiornatore = u"VLMUpdater.exe";
QString percorsoAggiornatore();

enum class EsitoScarico { Riuscito, Fallito, Annullato };

// What the check needs from outside; tests replace it.
struct MezziAggiornamento {
    // Brings the server's version file to that path.
    std::function<EsitoScarico(const QString& percorso)> scarica;
    // Starts a program that outlives this one; false when it cannot be started. By default QProcess does it.
    std::function<bool(const QString& programma)> avvia;
    // Ends the process at once, without its exit steps. By default the process really ends.
    std::function<void()> termina;
};

// Asks the server, tells the operator, and on his word hands over to the updater. Throws Errore.
void aggiornaSoftware(const MezziAggiornamento& mezzi);

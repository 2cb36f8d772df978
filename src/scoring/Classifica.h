#pragma once

#include <optional>
#include <QString>

// `Pen` of an excluded crew.
inline constexpr int PenEscluso = 999999999;

// What a classification is asked for.
struct RichiestaClassifica {
    int tipo = 0;      // 0 all crews, 1 ASI crews, 2 crews that are not ASI
    int idGru = 0;     // a group's key; then `tipo` is not looked at
    QString dat = {};  // a day as typed, or empty for the whole event; then all its tests count, run or not
    bool femminile = false;   // both driver and navigator women; `tipo` and `idGru` are not looked at
    bool silenziosa = false;  // fills the table only: no warning on tests not run, no output
    bool excel = false;       // output to a sheet rather than to a report
    bool soloSvolte = false;  // only tests run, for the whole event
    bool senzaControlloAnni = false;
};

struct EsitoClassifica {
    QString titolo;   // empty for a `tipo` that is none: there is no output then
    QString esclusi;  // the excluded crews with their reasons
};

// Fills `Classifica` with the ranked crews of the active event: ascending `Pen`, the older vehicle first
// among equals, excluded crews last. Nothing when it stopped (no event, wrong years): the table is as it was.
// An archive failure throws and leaves everything as it was.
std::optional<EsitoClassifica> GeneraClassifica(const RichiestaClassifica& richiesta);

// One line per crew whose vehicle's year is missing, before 1850 or within the last ten years; empty when
// none is. `fatNoAsi`: only ASI crews are checked, the others get the fixed coefficient.
QString AnniIncorretti(bool fatNoAsi);
// The check of years with its message, when the event's coefficient goes by year; false when it stops.
bool controllaAnni();
// The first test of every classification routine, with its message: an event is active.
bool controllaManifestazione();

// Excludes, for good, the crews that lack a reading on a test run. Throws Errore when a reading row is
// missing.
void EscludiSenzaRilevamenti();

#pragma once

#include <QString>

// The guards that stand before the menu entries: an event is active and, where the entry needs them, it has
// fee items, tests, run tests, crews. They test in that order, stop at the first failure and show it in a
// box.
enum class Controllo {
    Nessuno,
    Modifica,
    Eliminazione,
    Iscrizioni,
    Prezzi,
    Quote,
    ProveSvolte,
    ImmissioneTempi,
    RicezioneOnLine,
    RicezioneOffLine,
    OrariDiPartenza,
    Ripartenza,
    ClassificaProva,
    ProspettoTempi,
    Verifiche,
    Schede,
    ImportazioneIscrizioni,
    Classifica,
    Pubblicazione,
    InvioSMS,
};

// True when the entry may open; otherwise the box has been shown.
bool controlla(Controllo controllo);

#pragma once

#include "event/Gruppi.h"
#include "event/Manifestazione.h"
#include "event/Prove.h"

// A whole new event, as the pages of its creation hold it.
struct NuovaManifestazione {
    DatiManifestazione dati;
    QList<Gruppo> gruppi;
    QList<Squadra> squadre;
    QList<Prova> prove;
};

// Writes the event, its tests, teams and groups, all or nothing; gives the new key.
int salvaManifestazione(const NuovaManifestazione& nuova);

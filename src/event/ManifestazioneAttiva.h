#pragma once

#include <QList>
#include <QString>

// Choosing and deleting the active event.

struct VoceElencoManifestazioni {
    int id = 0;
    QString nom = {};
    QString loc = {};
    QString date = {};  // first day - last day
    QString clu = {};
};

QList<VoceElencoManifestazioni> leggiManifestazioni();  // the newest first

// Asks, then deletes the active event with all that belongs to it; no event is active afterwards. False when
// the operator thought better of it. The caller shows the new state.
bool EliminaManifestazione();

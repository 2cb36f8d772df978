#pragma once

#include <QList>
#include <QObject>

class QTreeWidget;
class QTreeWidgetItem;

// How the rows of a list come up.

enum class PrimaRiga {
    Scelta,    // chosen at once
    Corrente,  // only current, where "none chosen" is an answer: the first Down or Home chooses it
};

// Where a row keeps what it is known by.
struct ChiaveRiga {
    int colonna = 0;
    int ruolo = Qt::UserRole;
};

// Replaces the rows. The row that was current stays so by its key, chosen or not as it was; where it is gone,
// the one in its place. In a list that was empty it is the first. Nothing is signalled but the change of the
// current row.
void sostituisciRighe(QTreeWidget* elenco, const QList<QTreeWidgetItem*>& righe, PrimaRiga prima,
                      ChiaveRiga chiave = {});

// None chosen, the current row where it was.
void nonScegliere(QTreeWidget* elenco);

// Columns as wide as what they hold, the widest ones less where the list has not the room.
void adattaColonne(QTreeWidget* elenco);

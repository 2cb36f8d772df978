#pragma once

#include <QString>

// What the program does with its files when it ends. Failures throw Errore.

// Path of the day's copy of the archive, by today's date.
QString percorsoCopiaDelGiorno();

// Name of the copy of the latest day, a damaged one only where there is no other; empty when there is none.
QString ultimaCopia();

// Copies the closed archive into the Backup folder, checks the copy, and puts it in place of an earlier one
// of the same day. A copy that is not whole stays beside that one as `mdvlm-DD-MM-YYYY-danneggiato.mdb`, and
// Errore says so. When it fails, every earlier copy is as it was.
void salvaCopiaDelGiorno();

// Puts the updater that waits in the folder `update` in the place of the present one, which is kept as
// VLMUpdater.ex_, and empties that folder of its files. Folders in it stay; one that is only linked is not
// emptied.
void sostituisciAggiornatore();

// Closes the archive, then both, in this order; what fails in one does not stop the next, and is thrown at
// the end.
void salvaAllUscita();

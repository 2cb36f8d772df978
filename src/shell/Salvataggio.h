#pragma once

#include <QString>

// What the program does with its files when it ends. The archive must be closed. Failures throw Errore.

// Path of the day's copy of the archive, by today's date.
QString percorsoCopiaDelGiorno();

// Copies the archive into the Backup folder, in place of an earlier copy of the same day. Older days stay.
// When it fails, every earlier copy is as it was.
void salvaCopiaDelGiorno();

// Puts the updater that waits in the folder `update` in the place of the present one, which is kept as
// VLMUpdater.ex_, and empties that folder of its files. Folders in it stay.
void sostituisciAggiornatore();

// Both, in this order; what fails in the first does not stop the second, and is thrown at the end.
void salvaAllUscita();

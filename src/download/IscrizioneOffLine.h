#pragma once

// Enters a crew of the active event of which a download brought times: its number and a reading row, with no
// times, per test. The times that wait to be saved under that number become its own. Gives the new key; all
// or nothing. Throws Errore when the number is taken.
int iscriviDaScarico(int num);

#pragma once

#include <QString>

// Builds the archive of the sample rally from a folder of tab-separated files, one per table, UTF-8, with a
// first line of column names. References are natural keys: race number, test number, name of group or team,
// description of a fee.
//
// Makes mdvlm.mdb in the destination folder, whole or not at all, and gives the key of the event. An archive
// that stands there is never touched. Throws Errore: for bad data the text names file and line.
int creaEsempio(const QString& cartellaDati, const QString& cartellaArchivio);

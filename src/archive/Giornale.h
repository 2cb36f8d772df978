#pragma once

#include <QString>

// The rollback journal that an interrupted action leaves beside an archive. The engine rolls back whatever
// file of that name it finds: one that belongs to another archive (the one that stood there before a copy was
// put back) would destroy this one.
//
// File format: https://www.sqlite.org/fileformat2.html#the_rollback_journal

QString percorsoGiornale(const QString& archivio);

enum class Giornale {
    Innocuo,   // none, or one whose rolling back changes nothing
    Proprio,   // of this archive's last action
    Estraneo,  // of another file
};

// Whose it is: its copy of page 1 bears our identifier and the archive's change counter, or the one before.
// With an archive whose header is hurt the size stands in for the counter.
Giornale riconosciGiornale(const QString& archivio);

// Gives the journal a dated name beside the archive, whatever it is; its new path, empty when there was none.
QString mettiDaParteGiornale(const QString& archivio);

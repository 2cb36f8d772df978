#pragma once

#include <QList>
#include <span>

// The archive's own migration: at each start an archive of any earlier kind is brought up to date, step by
// step and without a version number, by testing for what is missing.

struct PassoAggiornamento {
    int ordine;           // the number that Schema gives to what the step brings
    const char* tabella;  // table tested, and altered or made
    const char* colonna;  // column tested, by its exact name; nullptr when the table itself is tested
};

// In their fixed order, from 1.
std::span<const PassoAggiornamento> passiAggiornamento();

// Runs the missing steps on Conn(), all of them in one transaction, and gives those that changed the archive.
// Throws ErroreArchivio at the first that fails, and the archive is as it was before the first.
QList<int> AggiornaArchivio();

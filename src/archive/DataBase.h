#pragma once

#include "archive/Connessione.h"

// The archive: one SQLite file in the program folder and the two connections that serve it for as long as the
// program runs. All functions throw ErroreArchivio.

inline constexpr int IdentificativoArchivio = 0x564C4D31;  // "VLM1" in the header of the file

QString percorsoArchivio();

Connessione& Conn();       // all reads and writes
Connessione& ConnShape();  // the parent-and-children queries of the reports

// At start, before the connections open: makes a new archive when the file is missing, and refuses a file
// that is not an archive of ours or cannot be written. Once they are open, VerificaArchivio refuses one that
// is damaged. A refused file is left as it is. Gives what the operator must be told: a journal of another
// file was set aside, a hurt archive was recovered; empty when there is nothing.
QString PreparaArchivio();
void VerificaArchivio();

void ApriDataBase();
void ChiudiDataBase();

// Makes a new archive, with every table, at a path where no file is. It appears there whole or not at all.
// `primaDelPasso`: the tables as they were before that upgrade step; by default as they are now.
void creaArchivio(const QString& percorso, int primaDelPasso = 0);

// What is wrong with the file as an archive, indexes included, in the operator's words; empty when nothing
// is.
QString difettoArchivio(const QString& percorso);

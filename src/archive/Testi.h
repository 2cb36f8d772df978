#pragma once

#include <QStringView>

struct sqlite3;

// How the archive's queries order and match texts, in place of the engine's ASCII rules. Named by the queries
// alone, never by the schema: any SQLite tool can still open and check an archive.

// For ORDER BY: base letters first, accents break ties, case never counts. Equal texts give 0.
inline constexpr const char* Ordinamento = "ITALIANO";
int confrontaTesti(QStringView a, QStringView b);

// LIKE of two and of three arguments: "%" any text, "_" one character, case ignored for every letter, accents
// told apart.
bool somiglia(QStringView testo, QStringView modello, char32_t fuga = 0);

// Gives a connection the collation and the LIKE above.
void registraTesti(sqlite3* motore);

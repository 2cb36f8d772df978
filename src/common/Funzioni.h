#pragma once

#include <optional>
#include <QString>

// Key filters of entry fields: a key code that may not be typed becomes 0. Digits and backspace pass.
int FiltroCifre(int& tasto);
int FiltroCifreValore(int tasto);
int FiltroCifreVirgola(int& tasto);  // and the comma

// Replaces markup and accented characters, in place; every ampersand becomes "&pound;", those of the first
// two replacements too: the published pages carry this output.
QString TestoInHTML(QString& testo);

// The first value of a column that begins with the text, for type-ahead; nothing when none does.
// Table and column must be of the archive.
std::optional<QString> primoCompletamento(const QString& tabella, const QString& colonna,
                                          const QString& inizio);

// Event getters. With no active event they answer the empty value; when the event's row is gone they also
// clear the active event and its setting.
QString NomeManifestazione(int idMan);
QString DateManifestazione(int idMan);  // first and last day, with a blank between
QString DatVerManifestazione(int idMan);
QString ClubManifestazione(int idMan);
bool FatAnnManifestazione(int idMan);
bool AutoEscManifestazione(int idMan);
bool RagAutoManifestazione(int idMan);
bool ASIeNONASIManifestazione(int idMan);

// ASI crew: its homologation is not Null and not blank.
bool equipaggioASI(const QString& omologazione);
// The same test in SQL, on a column `Omo`.
inline constexpr char SqlASI[] = "(Omo IS NOT NULL AND trim(Omo)<>'')";
inline constexpr char SqlNonASI[] = "(Omo IS NULL OR trim(Omo)='')";

#pragma once

#include <optional>
#include <QDate>
#include <QString>
#include <string_view>

// Times, dates and numbers as text and back.
//
// A time is a signed 32-bit count of hundredths of a second since midnight, or text hh:mm:ss:cc (hh:mm:ss for
// an imposed time). "00:00:00:00" stands for no time.

inline constexpr int CentesimiAlSecondo = 100;
inline constexpr int CentesimiAlMinuto = 6000;
inline constexpr int CentesimiAllOra = 360000;
inline constexpr int CentesimiAlGiorno = 8640000;

// Text h:mm:ss; the hour group is not padded once it is not zero (3661 is "1:01:01").
QString SecondiInTempo(int secondi);
// Text h:mm:ss:cc, for display: with one-digit hours it is no input for TempoInCentesimi.
QString CentesimiInTempo(int centesimi);
// Never fails: blanks count as zeros, and a text that is no time is worth its last two characters alone.
int TempoInCentesimi(QStringView testo) noexcept;
int TempoInCentesimi(std::string_view utf8);
// Distance of two times of day on the 24-hour circle, 0 to 4320000: midnight costs the short way round.
int DifferenzaTempi(int a, int b) noexcept;

// A time of day in text, "hh:mm" to "hh:mm:ss", one or two digits a group; seconds since midnight.
std::optional<int> leggiOra(QStringView testo) noexcept;

// A date typed day, month, year with "/", "-" or "."; years of two digits 00-29 are 20xx, 30-99 are 19xx.
std::optional<QDate> leggiData(const QString& testo);
QString scriviData(QDate data);  // dd/mm/yyyy; empty for no date

// A whole text that is a number, the Italian way (comma; a point is accepted too).
std::optional<double> leggiNumero(const QString& testo);
// The number at the start of a text, 0 when there is none: "12 km" is 12.
double valoreNumerico(QStringView testo);
// Up to 15 significant digits, decimal comma, no exponent for ordinary values.
QString numeroInTesto(double valore);
// 1.234,56
QString importoInTesto(double valore);

#pragma once

#include <QByteArray>
#include <QString>

class Porta;

// The six-position scoreboard. Its characters are seven-segment ones: B, O, S and Z go out as 8, 0, 5 and 2,
// what has no code as a blank that takes a position, and a point is lit on the position before it.

inline constexpr int PosizioniTabellone = 6;

// The 9 bytes that show a text; what lies beyond the sixth position is not sent.
QByteArray frameTabellone(QStringView testo);

// Write one frame. A closed port is opened for it and closed after it; an open one stays open. False when the
// port failed: its guasto() tells why.
bool InviaTabellone(Porta& porta, QStringView testo);
bool AzzeraTabellone(Porta& porta);

// What on-line reception shows. Texts longer than their width stay whole.
QString tabellonePronto(int numero);   // crew ready at the start
QString tabellonePartito(int numero);  // crew started
// A partial at the precision of the event ("SEC", "DEC", "CEN"); blank for any other word.
QString tabelloneParziale(int centesimi, const QString& precisione);
QString tabellonePenalita(const QString& penalita);  // total of the test, as text
inline constexpr char16_t TabelloneErrore[] = u"ERRORE";

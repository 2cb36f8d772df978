#pragma once

#include "devices/Dispositivo.h"

#include <optional>
#include <QByteArray>
#include <QList>

// The text of a download: its lines, its records, and the frames around it.

struct RecordScarico {
    int numero = 0;  // crew number; 0 when the record carries none
    QString tempo;  // hh:mm:ss:cc; other characters than digits as they came, what a cut field lacks left out
};

// The records of a download, in order. Lines are cut at the device's terminator; a line that does not begin
// with its record mark, or is not terminated, is no record.
QList<RecordScarico> leggiRecord(Dispositivo dispositivo, QByteArrayView flusso);

// Checksummed frames of the TAG CP540.
QByteArray frameAccettato();
QByteArray frameRifiutato();
QByteArray frameFine(const QString& manche);

QByteArray comandoIdentifica();
QByteArray comandoScarica(const QString& manche);

// The heat as the operator typed it; nothing when it is not a whole number from 1 to 99.
std::optional<QString> leggiManche(const QString& testo);

// Serial number in the identity reply, the text that ends in the accepted frame.
QString numeroDiSerie(QByteArrayView risposta);

// The data lines of a TAG CP540 download that has ended: without its first three lines and its trailer.
QByteArray spogliaScarico(QByteArrayView flusso);

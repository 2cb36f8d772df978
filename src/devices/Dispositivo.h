#pragma once

#include <QString>

// The chronometers, in the order of the device boxes: the value is what the settings keep.
enum class Dispositivo { CP520, CP540 };

inline QString nomeDispositivo(Dispositivo dispositivo) {
    return dispositivo == Dispositivo::CP520 ? QStringLiteral("TAG CP520") : QStringLiteral("TAG CP540");
}

// Waits on the lines, in milliseconds. A test may shorten them.
struct AtteseDiLinea {
    int rispostaCP540 = 5000;  // to "#ID" and "#DL_", from the moment they are sent
    int silenzioCP520 = 3000;  // that ends a download
    int chiusura = 500;        // at most, for what is still to be written when a port is closed
};
inline AtteseDiLinea AtteseLinea;

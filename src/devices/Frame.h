#pragma once

#include "devices/Dispositivo.h"

#include <optional>
#include <QByteArray>
#include <QList>

// The frames of an on-line run, and the checksum of the line.

// Sum of the codes of all characters but the last, upper-case hexadecimal, at least four digits.
// Throws Errore when the sum leaves a signed 16-bit value.
QByteArray SommaControlloTAG(QByteArrayView testo);

enum class TipoFrame { Partenza, Tempo };

struct FrameOnLine {
    TipoFrame tipo = TipoFrame::Partenza;
    QByteArray record;  // the first record, the only one that is read
};

// The buffer of on-line reception. A frame counts only when the buffer holds it as a whole, and there is no
// resynchronisation: what starts with a stray character or has run past its frame never matches again.
// Characters are judged one at a time, so that the result does not depend on how the platform groups them.
class RicevitoreFrame final {
public:
    explicit RicevitoreFrame(Dispositivo dispositivo) : m_dispositivo(dispositivo) {}

    // The frames completed by these characters, in order. A window that lets events run while it handles one
    // must itself ignore what comes meanwhile.
    QList<FrameOnLine> aggiungi(QByteArrayView caratteri);
    void svuota();
    // Characters received that have made no frame yet.
    [[nodiscard]] qsizetype inAttesa() const { return m_lunghezza; }

private:
    [[nodiscard]] std::optional<TipoFrame> riconosci() const;

    Dispositivo m_dispositivo;
    QByteArray m_buffer;        // kept no longer than the longest frame
    qsizetype m_lunghezza = 0;  // whole length
};

// Elapsed time of a time frame in hundredths, at most 32767 (5:27.67); nothing when the datum is bad: beyond
// that limit, or a field that is no number.
std::optional<int> tempoTrascorso(Dispositivo dispositivo, QByteArrayView record);

// Sets the scoreboard clock from the first line of the TAG CP520 that ends in CR, whatever its record mark.
class Sincronismo final {
public:
    // Time of day in hundredths once the line is complete; the buffer is empty then.
    std::optional<int> aggiungi(QByteArrayView caratteri);

private:
    QByteArray m_riga;
};

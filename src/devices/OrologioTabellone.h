#pragma once

#include <array>
#include <QString>

// The running clock of the scoreboard. It counts by a monotonic clock that its caller reads, not by the ticks
// of a timer, so that a late tick costs nothing.

struct FormatoOrologio {
    int intervallo;  // between ticks, milliseconds
    int passo;       // of a tick, hundredths
    int da;          // part of the time text that is shown: first character, from 0
    int lunghezza;
};
inline constexpr std::array<FormatoOrologio, 3> FormatiOrologio{
    {{1000, 100, 0, 8}, {100, 10, 1, 9}, {10, 1, 3, 8}}};

class OrologioTabellone final {
public:
    // `adesso` everywhere: nanoseconds of one monotonic clock, never less than at the call before.
    void impostaFormato(int formato);                   // 1 to 3; step and interval from the next tick
    void sincronizza(int centesimi, qint64 adesso);     // time of day at that instant; starts it
    QString batti(qint64 adesso);                       // a tick: what is shown from now on
    [[nodiscard]] int alProssimo(qint64 adesso) const;  // milliseconds until the next tick is due
    [[nodiscard]] int centesimi() const { return m_centesimi; }  // at the last tick; no end at midnight

private:
    [[nodiscard]] const FormatoOrologio& formato() const { return FormatiOrologio[m_formato]; }
    [[nodiscard]] qint64 intervallo() const;            // nanoseconds
    [[nodiscard]] qint64 passati(qint64 adesso) const;  // ticks since m_inizio

    std::size_t m_formato = 0;
    std::size_t m_scelto = 0;
    int m_base = 0;  // hundredths at m_inizio
    qint64 m_inizio = 0;
    qint64 m_battiti = 0;  // since m_inizio
    int m_centesimi = 0;
};

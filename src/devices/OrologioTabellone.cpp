#include "devices/OrologioTabellone.h"

#include "common/Valori.h"

#include <algorithm>

namespace {

constexpr qint64 Millisecondo = 1'000'000;
// A timer may fire this much before its time.
constexpr qint64 Anticipo = Millisecondo;

}  // namespace

qint64 OrologioTabellone::intervallo() const {
    return formato().intervallo * Millisecondo;
}

qint64 OrologioTabellone::passati(qint64 adesso) const {
    return (adesso - m_inizio + Anticipo) / intervallo();
}

void OrologioTabellone::impostaFormato(int formato) {
    m_scelto = static_cast<std::size_t>(std::clamp<int>(formato, 1, FormatiOrologio.size()) - 1);
}

void OrologioTabellone::sincronizza(int centesimi, qint64 adesso) {
    m_formato = m_scelto;
    m_base = centesimi;
    m_centesimi = centesimi;
    m_inizio = adesso;
    m_battiti = 0;
}

QString OrologioTabellone::batti(qint64 adesso) {
    if (m_formato != m_scelto && passati(adesso) > m_battiti) {
        // The tick that was under way ends as it began; the intervals and steps after it are of the new
        // format.
        ++m_battiti;
        m_base += static_cast<int>(m_battiti * formato().passo);
        m_inizio += m_battiti * intervallo();
        m_battiti = 0;
        m_formato = m_scelto;
    }
    m_battiti = std::max(m_battiti, passati(adesso));
    m_centesimi = m_base + static_cast<int>(m_battiti * formato().passo);
    return CentesimiInTempo(m_centesimi).mid(formato().da, formato().lunghezza);
}

int OrologioTabellone::alProssimo(qint64 adesso) const {
    const qint64 mancano = m_inizio + (m_battiti + 1) * intervallo() - adesso;
    return static_cast<int>(std::max<qint64>(0, (mancano + Millisecondo - 1) / Millisecondo));
}

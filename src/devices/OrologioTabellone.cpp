#include "devices/OrologioTabellone.h"

#include "common/Valori.h"

#include <algorithm>

namespace {

constexpr qint64 Millisecondo = 1'000'000;
constexpr qint64 Centesimo = 10 * Millisecondo;
// A timer may fire this much before its time.
constexpr qint64 Anticipo = Millisecondo;

}  // namespace

qint64 OrologioTabellone::intervallo() const {
    return formato().intervallo * Millisecondo;
}

void OrologioTabellone::impostaFormato(int formato, qint64 adesso) {
    // What has passed since the last tick is not lost.
    const qint64 passati = std::max<qint64>(0, adesso - m_inizio) / Centesimo;
    m_base += static_cast<int>(passati);
    m_inizio += passati * Centesimo;
    m_battiti = 0;
    m_formato = static_cast<std::size_t>(std::clamp<int>(formato, 1, FormatiOrologio.size()) - 1);
}

void OrologioTabellone::sincronizza(int centesimi, qint64 adesso) {
    m_base = centesimi;
    m_centesimi = centesimi;
    m_inizio = adesso;
    m_battiti = 0;
}

QString OrologioTabellone::batti(qint64 adesso) {
    m_battiti = std::max(m_battiti, (adesso - m_inizio + Anticipo) / intervallo());
    m_centesimi = m_base + static_cast<int>(m_battiti * formato().passo);
    return CentesimiInTempo(m_centesimi).mid(formato().da, formato().lunghezza);
}

int OrologioTabellone::alProssimo(qint64 adesso) const {
    const qint64 mancano = m_inizio + (m_battiti + 1) * intervallo() - adesso;
    return static_cast<int>(std::max<qint64>(0, (mancano + Millisecondo - 1) / Millisecondo));
}

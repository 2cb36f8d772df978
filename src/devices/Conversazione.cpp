#include "devices/Conversazione.h"

#include "devices/Scarico.h"

#include <algorithm>

Conversazione::Azioni Conversazione::inizia() {
    m_buffer.clear();
    m_serie.clear();
    if (m_dispositivo == Dispositivo::CP520) {
        m_stato = Stato::AttesaDati;
        return {{Cosa::ApriPorta}};
    }
    m_stato = Stato::Identificazione;
    return {{Cosa::ApriPorta},
            {Cosa::Invia, comandoIdentifica()},
            {Cosa::ArmaTimer, {}, AtteseLinea.rispostaCP540}};
}

Conversazione::Azioni Conversazione::manche(const QString& testo) {
    if (m_stato != Stato::RichiestaManche)
        return {};
    m_buffer.clear();
    m_fine = frameFine(testo);
    m_stato = Stato::AttesaRisposta;
    return {{Cosa::ApriPorta},
            {Cosa::Invia, comandoScarica(testo)},
            {Cosa::ArmaTimer, {}, AtteseLinea.rispostaCP540}};
}

Conversazione::Azioni Conversazione::ferma() {
    m_stato = Stato::Ferma;
    m_buffer.clear();
    return {{Cosa::FermaTimer}, {Cosa::ChiudiPorta}};
}

Conversazione::Azioni Conversazione::scaduto() {
    switch (m_stato) {
        case Stato::Identificazione:
        case Stato::AttesaRisposta: {
            Azioni azioni = ferma();
            return azioni << Azione{Cosa::NessunaRisposta};
        }
        case Stato::Ricezione:
            if (m_dispositivo == Dispositivo::CP540)
                return {};
            m_stato = Stato::Terminata;
            return {{Cosa::ChiudiPorta}, {Cosa::Finita}};
        default:
            return {};
    }
}

Conversazione::Azioni Conversazione::ricevuti(QByteArrayView caratteri) {
    if (caratteri.isEmpty())
        return {};
    switch (m_stato) {
        case Stato::Identificazione:
            return identifica(caratteri);
        case Stato::AttesaRisposta:
            return attendiRisposta(caratteri);
        case Stato::AttesaDati:
            return ricevi520(caratteri);
        case Stato::Ricezione:
            return m_dispositivo == Dispositivo::CP520 ? ricevi520(caratteri) : ricevi540(caratteri);
        default:
            return {};
    }
}

// In the three states of the TAG CP540 each character counts as one arrival, however the platform groups
// them; what follows a frame that closes the port is lost with it.

Conversazione::Azioni Conversazione::identifica(QByteArrayView caratteri) {
    for (const char c : caratteri) {
        m_buffer += c;
        if (c != '\n' || !m_buffer.endsWith(frameAccettato()))
            continue;
        m_serie = ::numeroDiSerie(m_buffer);
        m_buffer.clear();
        m_stato = Stato::RichiestaManche;
        return {{Cosa::FermaTimer}, {Cosa::ChiudiPorta}, {Cosa::ChiediManche}};
    }
    return {};
}

Conversazione::Azioni Conversazione::attendiRisposta(QByteArrayView caratteri) {
    const QByteArray accettato = frameAccettato();
    // The answer must open the buffer: what does not is never looked at again.
    const qsizetype presi = std::min(caratteri.size(), accettato.size() - m_buffer.size());
    m_buffer += caratteri.first(presi);
    if (m_buffer == frameRifiutato()) {
        m_buffer.clear();
        m_stato = Stato::RichiestaManche;
        return {{Cosa::FermaTimer}, {Cosa::ChiudiPorta}, {Cosa::MancheErrata}, {Cosa::ChiediManche}};
    }
    if (m_buffer != accettato)
        return {};
    m_stato = Stato::Ricezione;
    Azioni azioni{{Cosa::FermaTimer}, {Cosa::DatiInArrivo}};
    return azioni << ricevi540(caratteri.sliced(presi));
}

Conversazione::Azioni Conversazione::ricevi540(QByteArrayView caratteri) {
    // The end frame can only lie where an LF has just come.
    while (!caratteri.isEmpty()) {
        const qsizetype lf = caratteri.indexOf('\n');
        const qsizetype presi = lf < 0 ? caratteri.size() : lf + 1;
        m_buffer += caratteri.first(presi);
        caratteri = caratteri.sliced(presi);
        if (lf < 0 || !m_buffer.endsWith(m_fine))
            continue;
        m_buffer = spogliaScarico(m_buffer);
        m_stato = Stato::Terminata;
        return {{Cosa::ChiudiPorta}, {Cosa::Finita}};
    }
    return {};
}

Conversazione::Azioni Conversazione::ricevi520(QByteArrayView caratteri) {
    m_buffer += caratteri;
    m_stato = Stato::Ricezione;
    return {{Cosa::DatiInArrivo}, {Cosa::ArmaTimer, {}, AtteseLinea.silenzioCP520}};
}

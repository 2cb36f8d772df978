#include "readings/Concatenazione.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "scoring/TagliaTempo.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Cella {
    std::size_t riga;
    CampoTempo campo;
};

bool controlloOrario(const RigaRilevamento& riga) {
    return riga.tipo == TipoProva::CO;
}

// The cells, beside the edited one, that take its time.
class Catena final {
public:
    Catena(std::span<const RigaRilevamento> righe, RegolaCatena regola) : m_righe(righe), m_regola(regola) {}

    std::vector<Cella> raggiunte(std::size_t riga, CampoTempo campo) {
        const bool manuale = m_regola == RegolaCatena::Manuale;
        if (campo == CampoTempo::Arrivo && riga + 1 < m_righe.size())
            manuale ? daArrivo(riga) : daArrivoRicevuto(riga);
        if (campo == CampoTempo::Partenza && riga > 0 && m_righe[riga].concatenata)
            manuale ? daPartenza(riga) : daPartenzaRicevuta(riga);
        return m_celle;
    }

private:
    void daArrivo(std::size_t riga) {
        const std::size_t prossima = riga + 1;
        const bool versoCO = controlloOrario(m_righe[prossima]);
        if (!controlloOrario(m_righe[riga])) {
            if (!versoCO)
                partenzaSeConcatenata(prossima);
            return;
        }
        partenzaSeConcatenata(prossima);
        if (!versoCO)
            partenzaSeConcatenata(primoDa(prossima, true));
    }

    void daPartenza(std::size_t riga) {
        if (!controlloOrario(m_righe[riga])) {
            m_celle.push_back({riga - 1, CampoTempo::Arrivo});
            partenzaSeConcatenata(primoDa(riga, true));
            return;
        }
        const std::size_t precedente = ultimoFinoA(riga - 1, true);
        if (precedente == m_righe.size())
            return;
        m_celle.push_back({precedente, CampoTempo::Arrivo});
        partenzaSeConcatenata(precedente + 1);
    }

    void daArrivoRicevuto(std::size_t riga) {
        if (m_righe[riga + 1].concatenata)
            partenzaSeConcatenata(primoDa(riga + 1, false));
    }

    void daPartenzaRicevuta(std::size_t riga) {
        const std::size_t precedente = ultimoFinoA(riga - 1, false);
        if (precedente != m_righe.size())
            m_celle.push_back({precedente, CampoTempo::Arrivo});
    }

    // First row from `riga` on that is, or is not, a time control; the number of rows when there is none.
    [[nodiscard]] std::size_t primoDa(std::size_t riga, bool co) const {
        const auto inizio = m_righe.begin() + static_cast<std::ptrdiff_t>(riga);
        return static_cast<std::size_t>(
            std::find_if(inizio, m_righe.end(),
                         [&](const RigaRilevamento& r) { return controlloOrario(r) == co; }) -
            m_righe.begin());
    }

    [[nodiscard]] std::size_t ultimoFinoA(std::size_t riga, bool co) const {
        for (std::size_t i = riga + 1; i > 0; --i) {
            if (controlloOrario(m_righe[i - 1]) == co)
                return i - 1;
        }
        return m_righe.size();
    }

    void partenzaSeConcatenata(std::size_t riga) {
        if (riga < m_righe.size() && m_righe[riga].concatenata)
            m_celle.push_back({riga, CampoTempo::Partenza});
    }

    std::span<const RigaRilevamento> m_righe;
    RegolaCatena m_regola;
    std::vector<Cella> m_celle;
};

}  // namespace

std::vector<TempoScritto> propagaTempo(std::span<const RigaRilevamento> righe, std::size_t riga,
                                       CampoTempo campo, const QString& digitato,
                                       const Impostazione& impostazione, bool asi, RegolaCatena regola) {
    const QString valore = tagliaTempo(impostazione, digitato, asi, righe[riga].tipo);
    std::vector<TempoScritto> tempi{{riga, campo, valore}};
    for (const Cella& cella : Catena(righe, regola).raggiunte(riga, campo)) {
        // A time control right after the one before it leads back to the cell that was typed.
        if (cella.riga == riga && cella.campo == campo)
            continue;
        tempi.push_back({cella.riga, cella.campo,
                         regola == RegolaCatena::Manuale
                             ? tagliaTempo(impostazione, valore, asi, righe[cella.riga].tipo)
                             : valore});
    }
    return tempi;
}

void scriviTempi(std::span<const RigaRilevamento> righe, std::span<const TempoScritto> tempi) {
    Transazione transazione;
    for (const TempoScritto& tempo : tempi) {
        const QString colonna = tempo.campo == CampoTempo::Partenza ? u"TPar"_s : u"TArr"_s;
        // A deleted time is the empty text: Null is a reading that was never there.
        const QString valore = tempo.valore.isNull() ? u""_s : tempo.valore;
        if (esegui(u"UPDATE Rilevamenti SET %1=? WHERE IDRil=?"_s.arg(colonna),
                   {valore, righe[tempo.riga].idRil}) == 0)
            throw Errore(u"Il rilevamento non è più nell'archivio."_s);
    }
    transazione.conferma();
}

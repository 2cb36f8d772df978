#include "output/Impaginazione.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr double Tolleranza = 1e-6;
constexpr double AriaRigide = 1.15;
constexpr qsizetype RigheMinime = 2;  // fewer rows than these do not stay alone with a heading

double somma(const QList<double>& valori) {
    return std::accumulate(valori.cbegin(), valori.cend(), 0.0);
}

class Impaginatore final {
public:
    explicit Impaginatore(const Ingombri& ingombri) : m_ingombri(ingombri) { nuovaPagina(true); }

    QList<Pagina> pagine() {
        for (qsizetype g = 0; g < m_ingombri.gruppi.size(); ++g)
            metti(g);
        for (qsizetype i = 0; i < m_ingombri.coda.size(); ++i) {
            if (!entra(m_ingombri.coda.at(i)))
                nuovaPagina(false);
            aggiungi(Pezzo::Coda, 0, i, m_ingombri.coda.at(i));
        }
        return m_pagine;
    }

private:
    [[nodiscard]] bool entra(double altezza) const { return m_y + altezza <= m_spazio + Tolleranza; }
    [[nodiscard]] bool vuota() const { return m_pagine.constLast().elementi.isEmpty(); }

    void nuovaPagina(bool testaIntera) {
        m_pagine << Pagina{testaIntera, {}};
        m_spazio = testaIntera ? m_ingombri.primaPagina : m_ingombri.altraPagina;
        m_y = 0;
    }

    void aggiungi(Pezzo pezzo, qsizetype gruppo, qsizetype riga, double altezza) {
        if (altezza <= 0)
            return;
        m_pagine.last().elementi << Elemento{pezzo, gruppo, riga, m_y, altezza};
        m_y += altezza;
    }

    // A page for a group of its own, or for what does not fit below the group before.
    void preparaPagina(qsizetype g, const IngombroGruppo& gruppo) {
        if (vuota())
            return;
        if (m_ingombri.paginaPerGruppo) {
            nuovaPagina(true);
            return;
        }
        const double intero = gruppo.testa + gruppo.testata + somma(gruppo.righe) + gruppo.piede;
        const double inizio = gruppo.testa + gruppo.testata +
                              somma(gruppo.righe.first(std::min(RigheMinime, gruppo.righe.size())));
        m_y += g > 0 ? m_ingombri.fraGruppi : 0;
        const bool unPezzo = intero <= m_ingombri.altraPagina + Tolleranza;
        if (!entra(unPezzo ? intero : inizio))
            nuovaPagina(false);
    }

    void metti(qsizetype g) {
        const IngombroGruppo& gruppo = m_ingombri.gruppi.at(g);
        preparaPagina(g, gruppo);
        aggiungi(Pezzo::Testa, g, 0, gruppo.testa);
        aggiungi(Pezzo::Testata, g, 0, gruppo.testata);
        for (qsizetype r = 0; r < gruppo.righe.size(); ++r) {
            // The last row takes the foot along.
            const bool ultima = r == gruppo.righe.size() - 1;
            if (!entra(gruppo.righe.at(r) + (ultima ? gruppo.piede : 0)) && !appenaCominciata())
                seguito(g, gruppo);
            aggiungi(Pezzo::Riga, g, r, gruppo.righe.at(r));
        }
        aggiungi(Pezzo::Piede, g, 0, gruppo.piede);
    }

    void seguito(qsizetype g, const IngombroGruppo& gruppo) {
        nuovaPagina(false);
        aggiungi(Pezzo::TestaSeguito, g, 0, gruppo.testaSeguito);
        aggiungi(Pezzo::Testata, g, 0, gruppo.testata);
    }

    // No row yet: a new page would give no more room.
    [[nodiscard]] bool appenaCominciata() const {
        const QList<Elemento>& elementi = m_pagine.constLast().elementi;
        return std::ranges::none_of(elementi, [](const Elemento& e) { return e.pezzo == Pezzo::Riga; });
    }

    const Ingombri& m_ingombri;
    QList<Pagina> m_pagine;
    double m_spazio = 0;
    double m_y = 0;
};

}  // namespace

QList<Pagina> impagina(const Ingombri& ingombri) {
    return Impaginatore(ingombri).pagine();
}

QList<double> ripartisci(const QList<Larghezza>& colonne, double spazio) {
    QList<double> larghezze(colonne.size(), 0.0);
    QList<qsizetype> strette;  // those that may have to do with less than they need
    double perStrette = 0;     // but not with less than half their share
    double perTutte = 0;
    double necessarie = 0;
    for (qsizetype i = 0; i < colonne.size(); ++i) {
        perTutte += colonne.at(i).quota;
        if (colonne.at(i).rigida) {
            necessarie += colonne.at(i).necessaria;
        } else {
            strette << i;
            perStrette += colonne.at(i).quota;
        }
    }
    const double massimo = perTutte > 0 ? spazio * (1 - perStrette / perTutte / 2) : spazio;
    const double ridotte = std::min(1.0, massimo / std::max(necessarie, Tolleranza));
    double resto = spazio;
    for (qsizetype i = 0; i < colonne.size(); ++i) {
        if (!colonne.at(i).rigida)
            continue;
        larghezze[i] = colonne.at(i).necessaria * ridotte;
        resto -= larghezze[i];
    }
    // Whoever needs less than its share gives the difference to the others, until nobody does.
    for (bool cambiato = true; cambiato && !strette.isEmpty();) {
        const double quote = std::accumulate(strette.cbegin(), strette.cend(), 0.0,
                                             [&](double s, qsizetype i) { return s + colonne.at(i).quota; });
        const double unita = resto / quote;
        const auto paghe = std::stable_partition(strette.begin(), strette.end(), [&](qsizetype i) {
            return colonne.at(i).necessaria > colonne.at(i).quota * unita;
        });
        cambiato = paghe != strette.end();
        for (auto it = paghe; it != strette.end(); ++it) {
            larghezze[*it] = colonne.at(*it).necessaria;
            resto -= larghezze[*it];
        }
        strette.erase(paghe, strette.end());
        if (!cambiato) {
            for (const qsizetype i : strette)
                larghezze[i] = colonne.at(i).quota * unita;
            resto = 0;
        }
    }
    const double usato = somma(larghezze);
    if (usato <= 0)
        return larghezze;
    // Room left over goes to the columns that had to share, the others breathe a little.
    double rigide = 0;
    for (qsizetype i = 0; i < colonne.size(); ++i)
        rigide += colonne.at(i).rigida ? larghezze.at(i) : 0;
    const double comune = spazio / usato;
    const bool soloRigide = rigide >= usato - Tolleranza;
    const double perRigide = soloRigide ? comune : std::min(comune, AriaRigide);
    const double perAltre = soloRigide ? comune : (spazio - rigide * perRigide) / (usato - rigide);
    for (qsizetype i = 0; i < colonne.size(); ++i)
        larghezze[i] *= colonne.at(i).rigida ? perRigide : perAltre;
    return larghezze;
}

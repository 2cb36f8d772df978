#include "output/Tavola.h"

#include "output/Impaginazione.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double Margine = 4;       // left and right of a cell's text
constexpr double PassoRiga = 1.25;  // line to line, in font sizes
constexpr double AriaRiga = 0.42;   // above and below a row's lines together
constexpr qsizetype RigheTestata = 3;
constexpr qsizetype RigheCella = 14;  // more would not fit a page
// A text column may be narrowed to this share of its longest text before the table's font gets smaller.
constexpr double StrettaTollerata = 0.8;
constexpr double MinimoNumeri = 0.5;  // a number is made smaller, hardly ever shortened
constexpr double MinimoTesti = 0.78;  // a text that would get smaller still goes on below
constexpr double MinimoTestata = 0.7;
constexpr double TestataSuCelle = 1.6;  // a test's long name widens its column up to here

double ascissa(Allineamento allineamento, double inizio, double spazio, double larghezza) {
    switch (allineamento) {
        case Allineamento::Sinistra:
            break;
        case Allineamento::Centro:
            return inizio + (spazio - larghezza) / 2;
        case Allineamento::Destra:
            return inizio + spazio - larghezza;
    }
    return inizio;
}

}  // namespace

double Tavola::Posto::spazio() const {
    return larghezza - 2 * Margine;
}

Tavola::Tavola(const QList<ColonnaRapporto>& colonne, const QList<const QStringList*>& campione,
               double larghezza, const Aspetto& aspetto, Caratteri& caratteri)
    : m_larghezza(larghezza), m_aspetto(aspetto), m_caratteri(caratteri) {
    for (const ColonnaRapporto& colonna : colonne) {
        m_posti.append(Posto{.colonna = colonna, .testata = {}});
        m_conSopra = m_conSopra || !colonna.sopra.isEmpty();
        m_conSotto = m_conSotto || !colonna.sotto.isEmpty();
    }
    misura(campione);
    intesta();
}

// What each column needs at the largest size at which the table fits, and that size.
QList<double> Tavola::corpoEdEsigenze(const QList<const QStringList*>& campione) {
    const Carattere& testo = m_caratteri.carattere(m_aspetto.corpo, m_aspetto.gruppo);
    const Carattere& evidente = m_caratteri.carattere(m_aspetto.corpo, true);
    const Carattere& testata = m_caratteri.carattere(m_aspetto.corpo - 1, true);
    QList<double> esigenze;
    double quote = 0;
    for (qsizetype i = 0; i < m_posti.size(); ++i) {
        const ColonnaRapporto& colonna = m_posti.at(i).colonna;
        const Carattere& carattere = colonna.evidente ? evidente : testo;
        double celle = testata.larghezza(colonna.sotto);
        for (const QStringList* riga : campione)
            celle = std::max(celle, carattere.larghezza(riga->value(i)));
        double intestazione = testata.larghezza(colonna.testata);
        if (!colonna.sotto.isEmpty()) {
            intestazione =
                std::min(testata.parolaPiuLunga(colonna.testata) * MinimoTestata, celle * TestataSuCelle);
        }
        esigenze << std::max(celle, intestazione);
        quote += esigenze.last() > 0 ? colonna.larghezza : 0;
    }
    double minime = 0;
    double margini = 0;
    for (qsizetype i = 0; i < m_posti.size(); ++i) {
        const ColonnaRapporto& colonna = m_posti.at(i).colonna;
        margini += esigenze.at(i) > 0 ? 2 * Margine : 0;
        // A text column that has its share of the page does not make the font smaller: its texts go on below.
        minime += colonna.allineamento == Allineamento::Sinistra
                      ? std::min(esigenze.at(i) * StrettaTollerata, m_larghezza * colonna.larghezza / quote)
                      : esigenze.at(i);
    }
    const double scala = std::min(1.0, (m_larghezza - margini) / std::max(1.0, minime));
    m_aspetto.corpo = std::max(m_aspetto.corpo * scala, m_aspetto.corpoMinimo);
    for (double& esigenza : esigenze)
        esigenza *= m_aspetto.corpo / testo.corpo();
    return esigenze;
}

void Tavola::misura(const QList<const QStringList*>& campione) {
    const QList<double> esigenze = corpoEdEsigenze(campione);
    QList<Larghezza> richieste;
    for (qsizetype i = 0; i < m_posti.size(); ++i) {
        const ColonnaRapporto& colonna = m_posti.at(i).colonna;
        richieste << Larghezza{.necessaria = esigenze.at(i) > 0 ? esigenze.at(i) + 2 * Margine : 0,
                               .quota = esigenze.at(i) > 0 ? colonna.larghezza : 0,
                               .rigida = colonna.allineamento != Allineamento::Sinistra};
    }
    const QList<double> larghezze = ripartisci(richieste, m_larghezza);
    double x = 0;
    for (qsizetype i = 0; i < m_posti.size(); ++i) {
        Posto& posto = m_posti[i];
        posto.x = x;
        posto.larghezza = larghezze.at(i);
        posto.carattere = &m_caratteri.carattere(m_aspetto.corpo, m_aspetto.gruppo || posto.colonna.evidente);
        x += posto.larghezza;
    }
}

void Tavola::intesta() {
    m_carattereTestata = &m_caratteri.carattere(std::max(m_aspetto.corpo - 1, 5.0), true);
    m_carattereSotto = &m_caratteri.carattere(std::max(m_aspetto.corpo - 1, 5.0));
    for (Posto& posto : m_posti) {
        if (posto.larghezza <= 0)
            continue;
        posto.testata = m_caratteri.adattaSuRighe(posto.colonna.testata, posto.spazio(), *m_carattereTestata,
                                                  RigheTestata);
        m_righeTestata = std::max(m_righeTestata, posto.testata.righe.size());
    }
    const double righe = static_cast<double>(m_righeTestata) + (m_conSopra ? 1.25 : 0) + (m_conSotto ? 1 : 0);
    m_altezzaTestata = righe * m_carattereTestata->corpo() * PassoRiga + 6;
}

double Tavola::inizio(qsizetype colonna) const {
    return m_posti.at(colonna).x + Margine;
}

double Tavola::altezzaRiga() const {
    return m_aspetto.corpo * (PassoRiga + AriaRiga);
}

double Tavola::altezzaRiga(const QStringList& riga) const {
    qsizetype linee = 1;
    for (qsizetype i = 0; i < m_posti.size(); ++i) {
        const Posto& posto = m_posti.at(i);
        const QString& testo = riga.at(i);
        if (posto.colonna.allineamento == Allineamento::Sinistra &&
            posto.carattere->larghezza(testo) * MinimoTesti > posto.spazio())
            linee = std::max(linee, componiCella(posto, testo, *posto.carattere).righe.size());
    }
    return altezzaRiga() + static_cast<double>(linee - 1) * m_aspetto.corpo * PassoRiga;
}

TestoAdatto Tavola::componiCella(const Posto& posto, const QString& testo, const Carattere& carattere) const {
    if (posto.colonna.allineamento != Allineamento::Sinistra)
        return m_caratteri.adatta(testo, posto.spazio(), carattere, MinimoNumeri);
    if (carattere.larghezza(testo) * MinimoTesti <= posto.spazio())
        return m_caratteri.adatta(testo, posto.spazio(), carattere, MinimoTesti - 0.02);
    return m_caratteri.adattaSuRighe(testo, posto.spazio(), carattere, RigheCella);
}

void Tavola::scriviRighe(Penna& penna, const Posto& posto, const TestoAdatto& testo, double y,
                         double passo) const {
    for (const QString& riga : testo.righe) {
        const double larghezza = testo.carattere->larghezza(riga);
        penna.scrivi(*testo.carattere,
                     ascissa(posto.colonna.allineamento, posto.x + Margine, posto.spazio(), larghezza),
                     y + testo.carattere->ascesa(), riga, Colori::Testo);
        y += passo;
    }
}

// The headings that span neighbours.
void Tavola::disegnaSopra(Penna& penna, double y) const {
    const double altezza = m_carattereTestata->corpo() * PassoRiga * 1.25;
    for (qsizetype da = 0; da < m_posti.size();) {
        qsizetype a = da;
        const QString sopra = m_posti.at(da).colonna.sopra;
        while (a < m_posti.size() && m_posti.at(a).colonna.sopra == sopra)
            ++a;
        const double sinistra = m_posti.at(da).x;
        const double destra = m_posti.at(a - 1).x + m_posti.at(a - 1).larghezza;
        if (!sopra.isEmpty()) {
            const TestoAdatto testo =
                m_caratteri.adatta(sopra, destra - sinistra - 2 * Margine, *m_carattereTestata);
            const double larghezza = testo.carattere->larghezza(testo.righe.first());
            penna.scrivi(*testo.carattere, (sinistra + destra - larghezza) / 2,
                         y + 2 + testo.carattere->ascesa(), testo.righe.first(), Colori::Titolo);
            penna.linea(sinistra + Margine, destra - Margine, y + altezza, 0.5, Colori::Tenue);
        }
        da = a;
    }
}

void Tavola::disegnaTestata(Penna& penna, double y) const {
    penna.riempi(QRectF(0, y, m_larghezza, m_altezzaTestata),
                 m_aspetto.gruppo || m_aspetto.minore ? Colori::Alterna : Colori::Fascia);
    const double passo = m_carattereTestata->corpo() * PassoRiga;
    double alto = y + 3;
    if (m_conSopra) {
        disegnaSopra(penna, y);
        alto += passo * 1.25;
    }
    for (const Posto& posto : m_posti) {
        if (posto.larghezza <= 0)
            continue;
        // Short heads stand at the bottom, near their column.
        const double vuote = static_cast<double>(m_righeTestata - posto.testata.righe.size());
        scriviRighe(penna, posto, posto.testata, alto + vuote * passo, passo);
        if (!posto.colonna.sotto.isEmpty()) {
            scriviRighe(penna, posto,
                        m_caratteri.adatta(posto.colonna.sotto, posto.spazio(), *m_carattereSotto),
                        alto + static_cast<double>(m_righeTestata) * passo, passo);
        }
    }
    penna.linea(0, m_larghezza, y + m_altezzaTestata, m_aspetto.minore ? 0.4 : 0.9, Colori::Titolo);
}

void Tavola::disegnaCella(Penna& penna, qsizetype colonna, double y, const QString& testo,
                          const Carattere& carattere) const {
    const Posto& posto = m_posti.at(colonna);
    if (testo.isEmpty() || posto.larghezza <= 0)
        return;
    const double larghezza = carattere.larghezza(testo);
    if (larghezza <= posto.spazio()) {
        penna.scrivi(carattere,
                     ascissa(posto.colonna.allineamento, posto.x + Margine, posto.spazio(), larghezza),
                     y + carattere.ascesa(), testo, Colori::Testo);
        return;
    }
    const TestoAdatto adatto = componiCella(posto, testo, carattere);
    scriviRighe(penna, posto, adatto, y + carattere.ascesa() - adatto.carattere->ascesa(),
                m_aspetto.corpo * PassoRiga);
}

void Tavola::disegnaRiga(Penna& penna, double y, double altezza, const QStringList& riga,
                         bool alterna) const {
    if (alterna || m_aspetto.gruppo)
        penna.riempi(QRectF(0, y, m_larghezza, altezza), m_aspetto.gruppo ? Colori::Fascia : Colori::Alterna);
    const double alto = y + m_aspetto.corpo * (AriaRiga / 2 + 0.04);
    for (qsizetype i = 0; i < m_posti.size(); ++i)
        disegnaCella(penna, i, alto, riga.value(i), *m_posti.at(i).carattere);
    if (m_aspetto.verticali) {
        for (const Posto& posto : m_posti) {
            if (posto.x > 0)
                penna.lineaVerticale(posto.x, y, y + altezza, 0.35, Colori::Filo);
        }
    }
    penna.linea(0, m_larghezza, y + altezza, 0.35, Colori::Filo);
}

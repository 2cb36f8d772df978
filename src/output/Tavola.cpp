#include "output/Tavola.h"

#include "output/Blocco.h"
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
constexpr double CentroTollerato = 2;   // shares of the page that a column of short texts may take
constexpr double TestataSuCelle = 1.6;  // a test's long name widens its column up to here

// Where a number written the Italian way has its comma: past its end when it has none, -1 when it is no
// number.
qsizetype virgola(const QString& testo) {
    qsizetype posto = -1;
    for (qsizetype i = testo.startsWith(u'-') ? 1 : 0; i < testo.size(); ++i) {
        if (testo.at(i) == u',' && posto < 0 && i > 0) {
            posto = i;
        } else if (testo.at(i) < u'0' || testo.at(i) > u'9') {
            return -1;
        }
    }
    const bool cifre = !testo.isEmpty() && testo.back().isDigit();
    return !cifre ? -1 : posto < 0 ? testo.size() : posto;
}

}  // namespace

double Tavola::Posto::spazio() const {
    return larghezza - 2 * Margine;
}

double Tavola::Posto::inizio(const QString& riga, const Carattere& scritta) const {
    const double lunga = scritta.larghezza(riga);
    const double sinistra = x + Margine;
    const qsizetype intero = colonna.allineamento == Allineamento::Destra ? virgola(riga) : -1;
    if (intero < 0)
        return ascissa(colonna.allineamento, sinistra, spazio(), lunga);
    const double sottoVirgola =
        sinistra + spazio() - decimali - scritta.larghezza(QStringView(riga).left(intero));
    return std::max(sinistra, std::min(sottoVirgola, sinistra + spazio() - lunga));
}

double Tavola::Misura::larghezza() const {
    return std::max({testi, interi + decimali, testata});
}

Tavola::Tavola(const QList<ColonnaRapporto>& colonne, const QList<Campione>& campione, double larghezza,
               const Aspetto& aspetto, Caratteri& caratteri)
    : m_larghezza(larghezza), m_aspetto(aspetto), m_caratteri(caratteri), m_testataSuCelle(TestataSuCelle) {
    for (const ColonnaRapporto& colonna : colonne) {
        m_posti.append(Posto{.colonna = colonna, .testata = {}});
        m_conSopra = m_conSopra || !colonna.sopra.isEmpty();
        m_conSotto = m_conSotto || !colonna.sotto.isEmpty();
    }
    disponi(campione);
    intesta();
}

const Carattere& Tavola::carattereDi(const ColonnaRapporto& colonna) const {
    return m_caratteri.carattere(m_aspetto.corpo, m_aspetto.gruppo || colonna.evidente);
}

Tavola::Misura Tavola::misuraColonna(qsizetype indice, const QList<Campione>& campione) const {
    const ColonnaRapporto& colonna = m_posti.at(indice).colonna;
    const Carattere& proprio = carattereDi(colonna);
    const Carattere& testata = m_caratteri.carattere(m_aspetto.corpo - 1, true);
    Misura misura{.testi = testata.larghezza(colonna.sotto)};
    for (const Campione& cella : campione) {
        const QString& testo = cella.celle->at(indice);
        const Carattere& carattere = cella.carattere ? *cella.carattere : proprio;
        const double larghezza = carattere.larghezza(testo);
        const qsizetype intero = colonna.allineamento == Allineamento::Destra ? virgola(testo) : -1;
        if (intero < 0) {
            misura.testi = std::max(misura.testi, larghezza);
            continue;
        }
        const double parteIntera = carattere.larghezza(QStringView(testo).left(intero));
        misura.interi = std::max(misura.interi, parteIntera);
        misura.decimali = std::max(misura.decimali, larghezza - parteIntera);
    }
    misura.testata = testata.larghezza(colonna.testata);
    if (!colonna.sotto.isEmpty()) {
        misura.testata = std::min(testata.parolaPiuLunga(colonna.testata) * MinimoTestata,
                                  misura.larghezza() * m_testataSuCelle);
    }
    return misura;
}

QList<Tavola::Misura> Tavola::misuraColonne(const QList<Campione>& campione) const {
    QList<Misura> misure;
    for (qsizetype i = 0; i < m_posti.size(); ++i)
        misure << misuraColonna(i, campione);
    const double quota = m_larghezza / std::max(quote(misure), 1.0);
    for (qsizetype i = 0; i < m_posti.size(); ++i) {
        const ColonnaRapporto& colonna = m_posti.at(i).colonna;
        // One long text does not crush the other columns: beyond this it goes on below.
        if (colonna.allineamento == Allineamento::Centro)
            misure[i].testi = std::min(misure.at(i).testi, quota * colonna.larghezza * CentroTollerato);
    }
    return misure;
}

// The shares of the columns that are not empty.
double Tavola::quote(const QList<Misura>& misure) const {
    double somma = 0;
    for (qsizetype i = 0; i < m_posti.size(); ++i)
        somma += misure.at(i).larghezza() > 0 ? m_posti.at(i).colonna.larghezza : 0;
    return somma;
}

// The room against what the table must have; below 1 it must get smaller.
double Tavola::scala(const QList<Misura>& misure) const {
    const double quota = m_larghezza / std::max(quote(misure), 1.0);
    double minime = 0;
    double margini = 0;
    for (qsizetype i = 0; i < m_posti.size(); ++i) {
        const ColonnaRapporto& colonna = m_posti.at(i).colonna;
        const double larghezza = misure.at(i).larghezza();
        margini += larghezza > 0 ? 2 * Margine : 0;
        // A text column that has its share of the page does not make the font smaller: its texts go on below.
        minime += colonna.allineamento == Allineamento::Sinistra
                      ? std::min(larghezza * StrettaTollerata, quota * colonna.larghezza)
                      : larghezza;
    }
    return (m_larghezza - margini) / std::max(1.0, minime);
}

// The largest size at which the table fits, and what its columns take at that size. The heads give way first.
QList<Tavola::Misura> Tavola::scegliCorpo(const QList<Campione>& campione) {
    QList<Misura> misure = misuraColonne(campione);
    if (scala(misure) < 1) {
        m_testataSuCelle = 1;
        misure = misuraColonne(campione);
    }
    if (const double minore = scala(misure); minore < 1) {
        // Measured anew: a font is of a whole number of tenths, and not as wide as worked out.
        m_aspetto.corpo =
            std::max(m_caratteri.carattere(m_aspetto.corpo * minore).corpo(), m_aspetto.corpoMinimo);
        misure = misuraColonne(campione);
    }
    return misure;
}

void Tavola::disponi(const QList<Campione>& campione) {
    const QList<Misura> misure = scegliCorpo(campione);
    QList<Larghezza> richieste;
    for (qsizetype i = 0; i < m_posti.size(); ++i) {
        const ColonnaRapporto& colonna = m_posti.at(i).colonna;
        const double larghezza = misure.at(i).larghezza();
        richieste << Larghezza{.necessaria = larghezza > 0 ? larghezza + 2 * Margine : 0,
                               .quota = larghezza > 0 ? colonna.larghezza : 0,
                               .rigida = colonna.allineamento != Allineamento::Sinistra};
    }
    const QList<double> larghezze = ripartisci(richieste, m_larghezza);
    double x = 0;
    for (qsizetype i = 0; i < m_posti.size(); ++i) {
        Posto& posto = m_posti[i];
        posto.x = x;
        posto.larghezza = larghezze.at(i);
        posto.decimali = misure.at(i).decimali;
        posto.carattere = &carattereDi(posto.colonna);
        x += posto.larghezza;
    }
}

void Tavola::intesta() {
    m_carattereTestata = &m_caratteri.carattere(std::max(m_aspetto.corpo - 1, 5.0), true);
    m_carattereSotto = &m_caratteri.carattere(std::max(m_aspetto.corpo - 1, 5.0));
    for (Posto& posto : m_posti) {
        if (posto.larghezza <= 0)
            continue;
        posto.testata =
            m_caratteri.adatta(posto.colonna.testata, posto.spazio(), *m_carattereTestata, 1, RigheTestata);
        m_righeTestata = std::max(m_righeTestata, posto.testata.righe.size());
    }
    const double righe = static_cast<double>(m_righeTestata) + (m_conSopra ? 1.25 : 0) + (m_conSotto ? 1 : 0);
    m_altezzaTestata = righe * m_carattereTestata->corpo() * PassoRiga + 6;
}

double Tavola::inizio(qsizetype colonna) const {
    return m_posti.at(colonna).x + Margine;
}

double Tavola::altezzaRiga(const QStringList& riga) const {
    qsizetype linee = 1;
    for (qsizetype i = 0; i < m_posti.size(); ++i) {
        const Posto& posto = m_posti.at(i);
        if (posto.larghezza > 0 && posto.carattere->larghezza(riga.at(i)) > posto.spazio())
            linee = std::max(linee, componiCella(posto, riga.at(i), *posto.carattere).righe.size());
    }
    return m_aspetto.corpo * (AriaRiga + static_cast<double>(linee) * PassoRiga);
}

TestoAdatto Tavola::componiCella(const Posto& posto, const QString& testo, const Carattere& carattere) const {
    if (virgola(testo) >= 0)
        return m_caratteri.suUnaRiga(testo, posto.spazio(), carattere, MinimoNumeri);
    // A time, a plate: rather small than in two pieces.
    const bool intera = posto.colonna.allineamento != Allineamento::Sinistra &&
                        carattere.parolaPiuLunga(testo) >= carattere.larghezza(testo);
    return m_caratteri.adatta(testo, posto.spazio(), carattere, intera ? MinimoNumeri : MinimoTesti,
                              RigheCella);
}

void Tavola::scriviRighe(Penna& penna, const Posto& posto, const TestoAdatto& testo, double y,
                         double passo) const {
    for (const QString& riga : testo.righe) {
        penna.scrivi(*testo.carattere, posto.inizio(riga, *testo.carattere), y + testo.carattere->ascesa(),
                     riga, Colori::Testo);
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
            const TestoAdatto testo = m_caratteri.suUnaRiga(sopra, destra - sinistra - 2 * Margine,
                                                            *m_carattereTestata, MinimoTestata);
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
            scriviRighe(
                penna, posto,
                m_caratteri.suUnaRiga(posto.colonna.sotto, posto.spazio(), *m_carattereSotto, MinimoNumeri),
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
    if (carattere.larghezza(testo) <= posto.spazio()) {
        penna.scrivi(carattere, posto.inizio(testo, carattere), y + carattere.ascesa(), testo, Colori::Testo);
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

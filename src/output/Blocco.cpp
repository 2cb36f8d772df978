#include "output/Blocco.h"

namespace {

constexpr double PassoRiga = 1.25;  // in font sizes

}  // namespace

double passo(const Carattere& carattere) {
    return carattere.corpo() * PassoRiga;
}

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

double Blocco::scrivi(const TestoAdatto& testo, double x, double spazio, Allineamento allineamento,
                      double base, const QColor& colore) {
    double ultima = base;
    for (const QString& riga : testo.righe) {
        const double larghezza = testo.carattere->larghezza(riga);
        m_scritte << Scritta{testo.carattere, ascissa(allineamento, x, spazio, larghezza), base, riga,
                             colore};
        ultima = std::exchange(base, base + passo(*testo.carattere));
    }
    return ultima;
}

void Blocco::riempi(const QRectF& zona, const QColor& colore) {
    m_fondi << Fondo{zona, colore};
}

void Blocco::linea(double x1, double x2, double y, double spessore, const QColor& colore) {
    riempi(QRectF(x1, y - spessore / 2, x2 - x1, spessore), colore);
}

void Blocco::disegna(Penna& penna, double y) const {
    for (const Fondo& fondo : m_fondi)
        penna.riempi(fondo.zona.translated(0, y), fondo.colore);
    for (const Scritta& scritta : m_scritte)
        penna.scrivi(*scritta.carattere, scritta.x, y + scritta.base, scritta.testo, scritta.colore);
}

#pragma once

#include "output/Caratteri.h"
#include "output/Rapporto.h"

#include <QList>

// Texts, rules and grounds placed once: the height that the pages are laid out with is that of what is drawn.
// Lengths in points, from the block's upper left corner.
class Blocco final {
public:
    // The lines of a text, the first one standing on `base`, in a room of its own. Gives the base of the
    // last.
    double scrivi(const TestoAdatto& testo, double x, double spazio, Allineamento allineamento, double base,
                  const QColor& colore);
    void riempi(const QRectF& zona, const QColor& colore);
    void linea(double x1, double x2, double y, double spessore, const QColor& colore);

    void impostaAltezza(double altezza) { m_altezza = altezza; }
    [[nodiscard]] double altezza() const { return m_altezza; }

    void disegna(Penna& penna, double y) const;

private:
    struct Scritta {
        const Carattere* carattere;
        double x;
        double base;
        QString testo;
        QColor colore;
    };
    struct Fondo {
        QRectF zona;
        QColor colore;
    };

    QList<Fondo> m_fondi;
    QList<Scritta> m_scritte;
    double m_altezza = 0;
};

// From line to line of one text.
double passo(const Carattere& carattere);

// Where a text of a width begins in a room.
double ascissa(Allineamento allineamento, double inizio, double spazio, double larghezza);

#pragma once

#include "output/Caratteri.h"
#include "output/Rapporto.h"

// One table of a report on a width: where its columns stand, how its heads break, how high its rows are.
// Lengths in points.
class Tavola final {
public:
    struct Aspetto {
        double corpo = 9;
        double corpoMinimo = 6;
        bool gruppo = false;     // the rows are headings of groups
        bool minore = false;     // its heads stand below those of groups
        bool verticali = false;  // rules between the columns
    };

    // `campione`: the rows, and what else must fit the columns; texts are measured, not kept.
    Tavola(const QList<ColonnaRapporto>& colonne, const QList<const QStringList*>& campione, double larghezza,
           const Aspetto& aspetto, Caratteri& caratteri);

    [[nodiscard]] double altezzaTestata() const { return m_altezzaTestata; }
    [[nodiscard]] double altezzaRiga(const QStringList& riga) const;
    // Of a row of one line.
    [[nodiscard]] double altezzaRiga() const;
    // Left edge of a column's text.
    [[nodiscard]] double inizio(qsizetype colonna) const;

    void disegnaTestata(Penna& penna, double y) const;
    void disegnaRiga(Penna& penna, double y, double altezza, const QStringList& riga, bool alterna) const;
    // A cell of its own style: `y` is the top of its row.
    void disegnaCella(Penna& penna, qsizetype colonna, double y, const QString& testo,
                      const Carattere& carattere) const;

private:
    struct Posto {
        ColonnaRapporto colonna;
        double x = 0;
        double larghezza = 0;  // 0 for a column that is empty from head to foot
        TestoAdatto testata;
        const Carattere* carattere = nullptr;
        [[nodiscard]] double spazio() const;
    };

    void misura(const QList<const QStringList*>& campione);
    void intesta();
    [[nodiscard]] QList<double> corpoEdEsigenze(const QList<const QStringList*>& campione);
    void scriviRighe(Penna& penna, const Posto& posto, const TestoAdatto& testo, double y,
                     double passo) const;
    [[nodiscard]] TestoAdatto componiCella(const Posto& posto, const QString& testo,
                                           const Carattere& carattere) const;
    void disegnaSopra(Penna& penna, double y) const;

    QList<Posto> m_posti;
    double m_larghezza;
    Aspetto m_aspetto;
    Caratteri& m_caratteri;
    const Carattere* m_carattereTestata = nullptr;
    const Carattere* m_carattereSotto = nullptr;
    qsizetype m_righeTestata = 1;
    bool m_conSopra = false;
    bool m_conSotto = false;
    double m_altezzaTestata = 0;
};

// Colours of the reports; they stay apart on a black-and-white printer.
namespace Colori {
inline const QColor Testo(0x11, 0x11, 0x11);
inline const QColor Tenue(0x55, 0x5F, 0x6B);
inline const QColor Titolo(0x1B, 0x36, 0x5D);
inline const QColor Fascia(0xDD, 0xE5, 0xEF);
inline const QColor Alterna(0xF3, 0xF6, 0xFA);
inline const QColor Filo(0xB4, 0xBF, 0xCC);
}  // namespace Colori

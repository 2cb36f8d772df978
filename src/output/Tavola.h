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

    // Cells that must fit the columns; those of a font of their own keep its size.
    struct Campione {
        const QStringList* celle;
        const Carattere* carattere = nullptr;
    };

    // `campione` is measured, not kept.
    Tavola(const QList<ColonnaRapporto>& colonne, const QList<Campione>& campione, double larghezza,
           const Aspetto& aspetto, Caratteri& caratteri);

    [[nodiscard]] double altezzaTestata() const { return m_altezzaTestata; }
    [[nodiscard]] double altezzaRiga(const QStringList& riga) const;
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
        double decimali = 0;   // from the comma on: where the numbers of the column line up
        TestoAdatto testata;
        const Carattere* carattere = nullptr;
        [[nodiscard]] double spazio() const;
        // Where a line of the column begins.
        [[nodiscard]] double inizio(const QString& riga, const Carattere& scritta) const;
    };
    // What the cells of a column take at the table's size.
    struct Misura {
        double testi = 0;
        double interi = 0;    // of numbers, up to the comma
        double decimali = 0;  // and from it on
        double testata = 0;
        [[nodiscard]] double larghezza() const;
    };

    [[nodiscard]] const Carattere& carattereDi(const ColonnaRapporto& colonna) const;
    [[nodiscard]] Misura misuraColonna(qsizetype colonna, const QList<Campione>& campione) const;
    [[nodiscard]] QList<Misura> misuraColonne(const QList<Campione>& campione) const;
    [[nodiscard]] double quote(const QList<Misura>& misure) const;
    [[nodiscard]] double scala(const QList<Misura>& misure) const;
    [[nodiscard]] QList<Misura> scegliCorpo(const QList<Campione>& campione);
    void disponi(const QList<Campione>& campione);
    void intesta();
    void scriviRighe(Penna& penna, const Posto& posto, const TestoAdatto& testo, double y,
                     double passo) const;
    [[nodiscard]] TestoAdatto componiCella(const Posto& posto, const QString& testo,
                                           const Carattere& carattere) const;
    void disegnaSopra(Penna& penna, double y) const;

    QList<Posto> m_posti;
    double m_larghezza;
    Aspetto m_aspetto;
    Caratteri& m_caratteri;
    double m_testataSuCelle;
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

#pragma once

#include "output/Caratteri.h"
#include "output/Impaginazione.h"
#include "output/Rapporto.h"
#include "output/Tavola.h"

#include <memory>
#include <QSizeF>

class QPagedPaintDevice;
class QPainter;
class QPrinter;

// The one painter of all reports: laid out once for a size of paper, then drawn page by page.
class Pittore final {
public:
    // `foglio`: the paper within its margins, in points. The report must outlive the painter.
    Pittore(const Rapporto& rapporto, QSizeF foglio);
    Q_DISABLE_COPY_MOVE(Pittore)
    ~Pittore() = default;

    // What stands on which page.
    [[nodiscard]] const QList<Pagina>& pagine() const { return m_pagine; }
    // The lines of the excluded text: at the foot of each page, or after the rows when they are many.
    [[nodiscard]] const QStringList& righeEsclusi() const { return m_esclusi; }

    // `numero` counts from 0.
    void disegna(QPainter& pittore, double puntiPerPollice, qsizetype numero);

private:
    [[nodiscard]] Ingombri ingombri() const;
    [[nodiscard]] double altezzaTesta(bool intera) const;
    [[nodiscard]] double altezzaFondo() const;
    [[nodiscard]] QString dicituraETesto(const QString& nome) const;

    void disegnaTestaIntera(Penna& penna);
    void disegnaTestaBreve(Penna& penna);
    void disegnaFondo(Penna& penna, qsizetype numero);
    void disegnaElemento(Penna& penna, const Elemento& elemento, double y);
    void disegnaTestaGruppo(Penna& penna, const GruppoRapporto& gruppo, double y, double altezza);
    void disegnaSeguito(Penna& penna, const GruppoRapporto& gruppo, double y, double altezza);
    void disegnaVoci(Penna& penna, const QList<Voce>& voci, double y, double corpo);
    void disegnaPiede(Penna& penna, const GruppoRapporto& gruppo, double y);
    void disegnaCoda(Penna& penna, const Elemento& elemento, double y);

    const Rapporto& m_rapporto;
    double m_larghezza;
    double m_altezza;
    Caratteri m_caratteri;
    std::unique_ptr<Tavola> m_tavola;
    std::unique_ptr<Tavola> m_tavolaGruppo;  // the groups' own columns, where they have any
    QStringList m_esclusi;
    bool m_esclusiInCoda = false;
    QList<Pagina> m_pagine;
};

// A4, upright or on its long side as the report asks.
void impostaPagina(QPagedPaintDevice& dispositivo, const Rapporto& rapporto);

// Prints on the printer's own paper; of a chosen range, those pages alone. Throws Errore.
void stampa(const Rapporto& rapporto, QPrinter& stampante);

// The report as a PDF file of mode 0600, which appears whole or not at all. Throws Errore.
void scriviPdf(const Rapporto& rapporto, const QString& percorso);

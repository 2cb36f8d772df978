#pragma once

#include "output/Blocco.h"
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
    [[nodiscard]] Ingombri ingombri();
    [[nodiscard]] double altezzaTesta(bool intera) const;
    [[nodiscard]] double altezzaFondo() const;
    [[nodiscard]] QString dicituraETesto(const QString& nome) const;

    [[nodiscard]] Blocco componiTestaIntera();
    [[nodiscard]] Blocco componiTestaBreve();
    // A card's heading, and the short one of a card that goes on.
    [[nodiscard]] Blocco componiTestaScheda(const GruppoRapporto& gruppo);
    [[nodiscard]] Blocco componiSeguito(const GruppoRapporto& gruppo);
    // One line of a heading, from `y` down. Gives where it ends.
    double componiVoci(Blocco& blocco, const QList<Voce>& voci, double y, double corpo);
    const Carattere& caratterePiede(const RigaPiede& piede);

    void disegnaFondo(Penna& penna, qsizetype numero);
    void disegnaElemento(Penna& penna, const Elemento& elemento, double y);
    void disegnaTestaGruppo(Penna& penna, const GruppoRapporto& gruppo, const Elemento& elemento, double y);
    void disegnaPiede(Penna& penna, const GruppoRapporto& gruppo, double y);
    void disegnaCoda(Penna& penna, const Elemento& elemento, double y);

    const Rapporto& m_rapporto;
    double m_larghezza;
    double m_altezza;
    Caratteri m_caratteri;
    std::unique_ptr<Tavola> m_tavola;
    std::unique_ptr<Tavola> m_tavolaGruppo;  // the groups' own columns, where they have any
    Blocco m_testaIntera;
    Blocco m_testaBreve;
    QStringList m_esclusi;
    bool m_esclusiInCoda = false;
    QList<Pagina> m_pagine;
};

// A4, upright or on its long side as the report asks.
void impostaPagina(QPagedPaintDevice& dispositivo, const Rapporto& rapporto);

// Prints on the printer's own paper; of a chosen range, those pages alone. Throws Errore.
void stampa(const Rapporto& rapporto, QPrinter& stampante);

// The report as a PDF file, which appears whole or not at all. Throws Errore.
void scriviPdf(const Rapporto& rapporto, const QString& percorso);

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// A printed report as one value: what the painter draws and what a test asks for are the same cells.

enum class Allineamento { Sinistra, Centro, Destra };

// A text of the head or of the page foot, by the name of its label.
struct Etichetta {
    QString nome{};      // "lblTitolo"
    QString dicitura{};  // fixed words before it, often none
    QString testo{};
    bool operator==(const Etichetta&) const = default;
};

struct ColonnaRapporto {
    QString testata{};
    QString campo{};       // bound field
    double larghezza = 1;  // share of the room, against the other columns
    Allineamento allineamento = Allineamento::Sinistra;
    QString sopra{};        // heading over all neighbours that bear the same
    QString sotto{};        // second line of the heading
    bool evidente = false;  // the cells the reader looks for first
    bool operator==(const ColonnaRapporto&) const = default;
};

// One item of a group's heading.
struct Voce {
    QString etichetta{};
    QString valore{};
    double larghezza = 1;  // share of its line
    bool evidente = false;
    QString coda{};  // short, and right after the value however long that is
    bool operator==(const Voce&) const = default;
};

// One line under a group's rows: its words and the values that stand under columns.
struct RigaPiede {
    QString etichetta{};
    QStringList valori{};  // one per column; empty where there is none
    bool evidente = false;
    bool operator==(const RigaPiede&) const = default;
};

struct GruppoRapporto {
    QStringList celle{};  // one per group column
    QList<QList<Voce>> testa{};
    QList<QStringList> righe{};  // one cell per column
    QList<RigaPiede> piede{};
    bool operator==(const GruppoRapporto&) const = default;
};

struct Rapporto {
    QString titoloFinestra{};
    QList<Etichetta> etichette{};
    QList<ColonnaRapporto> colonneGruppo{};  // a group's own columns, headed once a page
    QList<ColonnaRapporto> colonne{};
    QList<GruppoRapporto> gruppi{};  // a plain list is one group without a heading
    bool orizzontale = false;
    bool paginaPerGruppo = false;
    bool operator==(const Rapporto&) const = default;

    [[nodiscard]] QString etichetta(const QString& nome) const;  // empty when there is none
    // All rows, whatever their group.
    [[nodiscard]] QList<QStringList> righe() const;
    // The cells of one field, top to bottom; empty when no column is bound to it.
    [[nodiscard]] QStringList celle(const QString& campo) const;
};

// "Pagina n di N".
QString numeroDiPagina(int pagina, int pagine);

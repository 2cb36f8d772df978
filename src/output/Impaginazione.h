#pragma once

#include <QList>

// What goes on which page, worked out from heights alone; any unit of length.

struct IngombroGruppo {
    double testa = 0;         // the group's heading
    double testaSeguito = 0;  // its short form, where the group goes on on another page
    double testata = 0;       // column heads, under each heading
    QList<double> righe{};
    double piede = 0;
};

struct Ingombri {
    double primaPagina = 0;  // room under the full head
    double altraPagina = 0;  // room under the short one
    QList<IngombroGruppo> gruppi{};
    double fraGruppi = 0;
    bool paginaPerGruppo = false;
    QList<double> coda{};  // lines after everything else
};

enum class Pezzo { Testa, TestaSeguito, Testata, Riga, Piede, Coda };

struct Elemento {
    Pezzo pezzo = Pezzo::Riga;
    qsizetype gruppo = 0;
    qsizetype riga = 0;  // of its group; for Coda, the line
    double y = 0;        // under the page's head
    double altezza = 0;
    bool operator==(const Elemento&) const = default;
};

struct Pagina {
    bool testaIntera = false;
    QList<Elemento> elementi{};
};

// At least one page. A group stays together where a page can hold it; where it must be split, neither its
// heading nor its foot stands without a row, and each page repeats heading and column heads.
QList<Pagina> impagina(const Ingombri& ingombri);

// Widths of columns in a room: those that must not be narrowed (`rigide`) get what they need, the others
// share the rest by `quote`, and never less than half their share of the whole; none gets more than it needs
// while another is short. Room left over widens all but the empty ones.
struct Larghezza {
    double necessaria = 0;
    double quota = 1;
    bool rigida = false;
};
QList<double> ripartisci(const QList<Larghezza>& colonne, double spazio);

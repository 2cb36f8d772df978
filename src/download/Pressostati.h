#pragma once

#include <QList>
#include <QString>

// The physical switches of an event and what a time of each means.

struct ProvaCronometrata {
    int idPro = 0;
    QString tip;  // "PA", "PM", "CO"
    QString nom;
    QString tem;
    int conA = 0;
};

enum class Ruolo { Start, Arrivo };

// What one time of a switch becomes: the start or the arrival reading of a test.
struct Bersaglio {
    int idPro = 0;
    QString testo;  // "ARRIVO -> " or "START  -> ", kind, " - ", name, " - ", imposed time

    // Both are read back from the text, as the list shows it: a name that holds "START" makes a start.
    [[nodiscard]] Ruolo ruolo() const;
    [[nodiscard]] QString tipo() const;
};

using Pressostato = QList<Bersaglio>;  // one to three, no two alike

// What the texts of a switch's targets say, read once for all its records.
struct Destinazione {
    int idPro = 0;
    Ruolo ruolo = Ruolo::Arrivo;
    QString tipo;
};
QList<QList<Destinazione>> leggiDestinazioni(const QList<Pressostato>& pressostati);

QList<ProvaCronometrata> leggiProveCronometrate(int idMan);  // in their order
QList<Pressostato> elencaPressostati(const QList<ProvaCronometrata>& prove);

// What is wrong with a choice of switches, as the box "Impossibile Ricevere" says it; empty when nothing is.
// `righe`: indexes of the checked rows, ascending.
QString difettoScelta(const QList<int>& righe);

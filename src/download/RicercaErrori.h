#pragma once

#include "download/Assegnazione.h"

// The second processor of a TAG CP520 download: it assigns the times as the first one does, and keeps what
// the first one passes over.

struct ErroreScarico {
    int idEqu = 0;  // 0: not entered
    int num = 0;
    QString equipaggio;
    QString veicolo;
    bool nonIscritto = false;
    bool troppiTempi = false;
    bool pochiTempi = false;

    // The words of the "Errore" cell.
    [[nodiscard]] QString testo() const;
};

struct TempoScartato {
    int num = 0;  // 0: the record carried no number
    QString tempo;
};

struct EsitoRicerca {
    QList<TempoRicevuto> tempi;
    QList<ErroreScarico> errori;  // one per crew
    QList<TempoScartato> scartati;
    int validi = 0;
};

// Class of a crew that is not entered, by kind of test: PrecisioneASINonInferiore.
using ClasseNonIscritto = std::function<bool(const QString& tipo)>;

EsitoRicerca ricercaErrori(const QList<RecordScarico>& record, const QList<EquipaggioCronometrato>& equipaggi,
                           const QList<Pressostato>& scelti, bool soloPrimoPressostato, const Taglio& taglia,
                           const ClasseNonIscritto& classe);

// Replaces TempRil, ErroriSca and TempScar with a result, in one transaction.
void scriviRicerca(const EsitoRicerca& esito);

// What the scratch tables hold, for the correction windows.
QList<ErroreScarico> leggiErrori();
QList<TempoScartato> leggiTempiScartati();

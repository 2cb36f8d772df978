#pragma once

#include "event/Rifiuto.h"

#include <QList>
#include <QStringList>

// Tests: their order is that of their keys, and a chained one refers to a test before it: a PA or PM to the
// test directly before, a CO to the nearest CO before.

struct Prova {
    int id = 0;        // IDPro; 0 while it is not in the archive
    QString tip = {};  // "PA", "PM", "CO"
    QString nom = {};
    QString loc = {};
    QString tem = {};  // imposed time, hh:mm:ss
    QString dat = {};  // dd/mm/yyyy, or empty
    bool concatenata = false;
};

QStringList tipiDiProva();  // "PA" first
QList<Prova> leggiProve(int idMan);
bool controlliOrariAllaPartenza(int idMan);  // TipoCO "PAR": no time control is chained

// Whether a test can stand at a position of the list; to add is the position after the last.
std::optional<Rifiuto> verificaProva(const Prova& prova, const QList<Prova>& elenco, qsizetype posizione);

// Unchains every time control.
void sciogliControlliOrari(QList<Prova>& elenco);

// The tests of a new event, in order; the caller holds the transaction.
void inserisciProve(int idMan, const QList<Prova>& elenco);

// On an event that exists; each is one transaction, and chains of other tests are repaired. A new test goes
// to the end and gets one reading row per crew.
int aggiungiProva(int idMan, const Prova& prova);
void modificaProva(int idMan, const Prova& prova);
void eliminaProva(int idMan, int idPro);

struct ProvaSvolta {
    int id = 0;
    QString nom = {};
    QString dat = {};
    bool svolta = false;
};
QList<ProvaSvolta> leggiProveSvolte(int idMan);
void scriviProveSvolte(const QList<ProvaSvolta>& prove);

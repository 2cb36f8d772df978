#pragma once

#include "event/Rifiuto.h"

#include <QList>
#include <QStringList>

// Groups (crews by the year of their vehicle, with a factor on their penalties) and teams.

struct Gruppo {
    int id = 0;  // IDGru; 0 while it is not in the archive
    QString nom = {};
    QString fat = {};    // as typed: the comma is the decimal separator
    QString daAnn = {};  // years, or empty
    QString aAnn = {};
};

// What is being done, and where: the titles of some refusals depend on it.
enum class Operazione { Aggiunta, ModificaInCreazione, ModificaInArchivio };

// The tests on a group, in their order, against the other groups of the event. `assegnazioneAutomatica`:
// crews go to groups by year, so that both years are needed.
std::optional<Rifiuto> verificaGruppo(const Gruppo& gruppo, const QList<Gruppo>& altri,
                                      bool assegnazioneAutomatica, Operazione operazione);
// A year typed into a group: from 1850 to 2000, or nothing.
std::optional<Rifiuto> verificaAnno(const QString& testo);
// Automatic assignment can be turned on only when every group has both years.
std::optional<Rifiuto> verificaAssegnazione(const QList<Gruppo>& gruppi);

// The standard groups; the last one ends twenty years before today.
QList<Gruppo> gruppiASI();

QList<Gruppo> leggiGruppi(int idMan);
void inserisciGruppi(int idMan, const QList<Gruppo>& gruppi);  // the caller holds the transaction

// On an event that exists; each is one transaction. Where the event assigns crews by year, an added group
// takes its crews, and any other change assigns all crews anew.
int aggiungiGruppo(int idMan, const Gruppo& gruppo, bool assegnazioneAutomatica);
void modificaGruppo(int idMan, const Gruppo& gruppo, bool assegnazioneAutomatica);
void eliminaGruppo(int idMan, int idGru);  // its crews fall back to no group
void sostituisciConGruppiASI(int idMan, bool assegnazioneAutomatica);

struct Squadra {
    int id = 0;
    QString nom = {};
};

std::optional<Rifiuto> verificaSquadra(const Squadra& squadra, Operazione operazione);
QList<Squadra> leggiSquadre(int idMan);
int aggiungiSquadra(int idMan, const QString& nom);
void modificaSquadra(const Squadra& squadra);
void eliminaSquadra(int idMan, int idSqu);  // its crews fall back to no team

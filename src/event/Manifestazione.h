#pragma once

#include "event/Rifiuto.h"

#include <QMap>
#include <QStringList>
#include <QVariantMap>
#include <span>

// The settings of an event. One table says which control of the two windows goes to which column and by which
// rule; reading, storing, enabling and the recap all follow it.

enum class GenereVoce { Testo, Data, Interruttore, Precisione, Lungo, Doppio, TipoCO };

struct VoceManifestazione {
    const char* controllo;  // in the wizard
    const char* colonna;
    GenereVoce genere;
    bool soloNoASI = false;                   // of the crews that are not ASI, under their own switch
    bool zeroSeSpento = false;                // a new event stores 0, not nothing, when the switch is off
    const char* iniziale = "";                // dates: today
    const char* interruttore = nullptr;       // column of the switch without which the value does not count
    const char* proposta = nullptr;           // text that the switch proposes when it goes on
    const char* controlloModifica = nullptr;  // in the edit window, where its name differs
};

std::span<const VoceManifestazione> vociManifestazione();
inline constexpr char InterruttoreNoASI[] = "ASIeNONASI";

// Column -> text as a window shows it: "SI" or "NO" for switches, the whole word of a precision, "CON" or
// "PAR", dd/mm/yyyy or nothing for a date.
using DatiManifestazione = QMap<QString, QString>;

QString siNo(bool valore);
bool acceso(const DatiManifestazione& dati, const QString& colonna);
// Whether the switches on which a value depends are on.
bool voceAttiva(const VoceManifestazione& voce, const DatiManifestazione& dati);

QStringList parolePrecisione();                          // as the combos list them
QString parolaPrecisione(const QString& abbreviazione);  // "MIN" is "MINUTO"; empty for an unknown one

DatiManifestazione datiIniziali();
DatiManifestazione leggiManifestazione(int idMan);  // empty when the event is not there

enum class Scrittura { Nuova, Modifica };
// The columns to write; those whose value must stay as it is are not in it.
QVariantMap colonneManifestazione(const DatiManifestazione& dati, Scrittura scrittura);

// What stops the first page.
std::optional<Rifiuto> verificaDati(const DatiManifestazione& dati);

// Rewrites the settings; under "PAR" the chains of the event's time controls go too.
void modificaManifestazione(int idMan, const DatiManifestazione& dati);

// Label of a unit penalty ("PA", "PM", "CO"), which follows the chosen precision.
enum class FormaEtichetta { Creazione, Riepilogo, Modifica };
QString etichettaPenalita(const QString& tipo, const QString& precisione, FormaEtichetta forma);

// The recap: name of its box -> text.
QMap<QString, QString> riepilogo(const DatiManifestazione& dati);

#pragma once

#include <optional>
#include <QHash>
#include <QList>
#include <QString>
#include <span>

// The crews of the active event: the columns that the entry windows work on, and how a crew is stored.
// Everything that touches the archive throws ErroreArchivio.

enum class TipoDato {
    Numero,  // race number: always written
    Chiave,  // of a group or team: always written, 0 for none
    Testo,
    Cifre,  // a number; Null when there is none
    Data,   // typed dd/mm/yyyy; Null when it is no date
    Sesso,  // "M" or "F"; an empty one keeps what is stored
    Spunta  // "1" or "0"
};

// What the copy of a person from the archive does with a column.
enum class Copia { No, Uguale, Maiuscola };

struct ColonnaEquipaggio {
    const char* nome;
    const char* controllo;  // of the entry forms
    TipoDato tipo;
    Copia copia = Copia::No;
    bool completa = false;   // its box completes from what the archive already holds
    bool soloCifre = false;  // its box takes digits alone
};

std::span<const ColonnaEquipaggio> colonneEquipaggio();

// A crew as its controls hold it: text by column. A column that is not there is not touched.
using SchedaEquipaggio = QHash<QString, QString>;

SchedaEquipaggio leggiEquipaggio(int idEqu);
// What the copy of a person takes over: the columns that are not Null, in upper case where the table says so.
SchedaEquipaggio copiaDaArchivio(int idEqu);

// Test of a race number as typed; `attuale` is the number under which a stored crew is listed.
enum class EsitoNumero { Valido, Mancante, TroppoGrande, Assegnato };
EsitoNumero controllaNumero(const QString& numero, std::optional<int> attuale = std::nullopt);

// Stores a new crew with its reading rows, all or nothing, and gives its key. Empty columns stay Null, and a
// mobile number goes over the telephone number: only the writing back of a stored crew fills `Cel`.
int inserisciEquipaggio(const SchedaEquipaggio& scheda);
// Writes a stored crew back; a text that was emptied is stored empty, not Null.
void aggiornaEquipaggio(int idEqu, const SchedaEquipaggio& scheda);
// The crew's readings and receipts go with it.
void eliminaEquipaggio(int idEqu);
// One reading row, with no times, per test of the crew's event. Part of the caller's transaction.
void creaRilevamenti(int idEqu);

struct RigaEquipaggio {
    int idEqu = 0;
    int num = 0;
    QString conducente;
};
QList<RigaEquipaggio> elencoEquipaggi();  // by number

struct VoceScelta {
    int chiave = 0;
    QString nome;
};
QList<VoceScelta> elencoRaggruppamenti();
QList<VoceScelta> elencoSquadre();

// Whether a vehicle of that year may run: from 1850 to ten calendar years ago.
bool annoAmmesso(int anno);
// The event's first group whose years hold the given one, both ends included.
std::optional<int> raggruppamentoPerAnno(int anno);

// A stored date as the date masks take it, dd/mm/yyyy; a date in another form gets a year of four digits.
QString dataPerMaschera(const QString& data);

#pragma once

#include "scoring/Impostazione.h"

#include <optional>
#include <QString>
#include <vector>

// A crew's readings as the windows show them: one row per test of the active event, with net time, deviation
// and penalty.

enum class CampoTempo { Partenza, Arrivo };  // `TPar`, `TArr`

struct RigaRilevamento {
    int idRil = 0;
    int idPro = 0;
    QString nome;
    QString imposto;  // hh:mm:ss
    TipoProva tipo = TipoProva::Altro;
    bool concatenata = false;
    QString tPar;  // hh:mm:ss:cc, or empty
    QString tArr;
    std::optional<double> penAgg;  // nothing for Null
    QString desPenAgg;

    [[nodiscard]] const QString& tempo(CampoTempo campo) const {
        return campo == CampoTempo::Partenza ? tPar : tArr;
    }
    [[nodiscard]] QString& tempo(CampoTempo campo) { return campo == CampoTempo::Partenza ? tPar : tArr; }
};

// In the order of the tests.
std::vector<RigaRilevamento> leggiRilevamenti(int idEqu);

// How a crew stands to the imposed time: faster is Positivo. Errato where a reading is blank or no time.
enum class StileScarto { Errato, Positivo, Negativo, Netto };

struct CalcoloRiga {
    QString netto;  // time as text; empty when a reading is no time
    QString scarto;
    std::optional<double> penalita;  // with the added one; nothing when it cannot be computed
    StileScarto stile = StileScarto::Errato;
};

// A blank reading counts as missing, and as "00:00:00:00" where no fixed penalty is in force.
CalcoloRiga calcolaRiga(const Impostazione& impostazione, bool asi, const RigaRilevamento& riga);

// The digits of a text in the mask hh:mm:ss:cc, filled from the right when there are fewer than eight; of
// more the last eight. Empty when there is none.
QString mascheraTempo(QStringView testo);

// Writes one row; throw ErroreArchivio, and Errore when the row is gone.
void scriviPenalitaAggiunta(int idRil, double penAgg);
void scriviDescrizionePenalita(int idRil, const QString& descrizione);

// A crew as the lists show it.
struct EquipaggioElenco {
    int idEqu = 0;
    int num = 0;
    QString nome;     // driver-navigator
    QString veicolo;  // make and model
    bool asi = false;
};

// The crews of the active event by number.
std::vector<EquipaggioElenco> leggiEquipaggi();

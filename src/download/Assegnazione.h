#pragma once

#include "devices/Scarico.h"
#include "download/Pressostati.h"

#include <functional>
#include <QHash>

// From the records of a download to readings. The assignment is positional: the k-th time of a crew belongs
// to the k-th chosen switch, whatever the clock says.

struct EquipaggioCronometrato {
    int idEqu = 0;
    int num = 0;
    QString nomi;     // Cog and CogNav
    QString veicolo;  // Mar and Mod
    bool asi = false;
};

QList<EquipaggioCronometrato> leggiEquipaggi(int idMan);  // by number

// Cuts a time (hh:mm:ss:cc) to the event's precision for the crew's class and the kind of test; empty when
// there is no such precision.
using Taglio = std::function<QString(const QString& tempo, bool asi, const QString& tipo)>;

struct TempoRicevuto {
    int idPro = 0;
    int idEqu = 0;  // 0: the crew is not entered
    int num = 0;
    Ruolo ruolo = Ruolo::Arrivo;
    QString tempo;
};

struct RecordScartato {
    enum class Motivo { SenzaEquipaggio, TroppiTempi };
    RecordScarico record;  // with the number that counted for it
    Motivo motivo = Motivo::SenzaEquipaggio;

    [[nodiscard]] QString testo() const;  // the reason, in the words of the error search
};

struct EsitoAssegnazione {
    QList<TempoRicevuto> tempi;  // one per target of each valid record
    QList<RecordScartato> scartati;
    int validi = 0;    // records
    int previsti = 0;  // crews entered times switches
};

// Number that counts for each record: its own, or, where the device gets the number for the first switch
// alone, the last one that was not 0.
class NumeroCorrente final {
public:
    explicit NumeroCorrente(bool soloPrimoPressostato) : m_soloPrimo(soloPrimoPressostato) {}
    int prossimo(const RecordScarico& record) {
        if (!m_soloPrimo || record.numero != 0)
            m_ultimo = record.numero;
        return m_ultimo;
    }

private:
    bool m_soloPrimo;
    int m_ultimo = 0;
};

// `scelti`: the chosen switches in their order. `valido` hears of each valid record, for the status panel.
EsitoAssegnazione assegnaTempi(const QList<RecordScarico>& record,
                               const QList<EquipaggioCronometrato>& equipaggi,
                               const QList<Pressostato>& scelti, bool soloPrimoPressostato,
                               const Taglio& taglia,
                               const std::function<void(const RecordScarico&)>& valido = {});

// One reading per target of the switch.
void aggiungiTempi(QList<TempoRicevuto>& tempi, const QList<Destinazione>& destinazioni,
                   const RecordScarico& record, int idEqu, const Taglio& taglia,
                   const std::function<bool(const QString& tipo)>& asi);

// Reception by list: every record of an entered crew, in order, cut as for a time control.
struct TempoInLista {
    int idEqu = 0;
    int num = 0;
    QString tempo;
};
QList<TempoInLista> assegnaALista(const QList<RecordScarico>& record,
                                  const QList<EquipaggioCronometrato>& equipaggi, const Taglio& taglia);

void inserisciTempRil(const QList<TempoRicevuto>& tempi);  // within the caller's transaction

// The scratch tables. Each call is one transaction.
enum class Azzera { SoloTempi, AncheErrori };  // TempRil; ErroriSca and TempScar too
void azzeraScarico(Azzera azzera);
void scriviTempRil(const QList<TempoRicevuto>& tempi);
bool ciSonoTempiRicevuti();

// Moves TempRil into the readings (a time of the other kind stays) and marks the switches' tests as run.
void salvaTempi(const QList<Pressostato>& scelti);

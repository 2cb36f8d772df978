#pragma once

#include "scoring/Impostazione.h"

#include <cstdint>
#include <optional>
#include <QHash>
#include <QString>
#include <span>
#include <vector>

// The arithmetic of the penalties on values, and the one bulk reading of an event that feeds it. The
// functions of Penalita.h and the classifications stand on this; no formula is written anywhere else.
//
// Net time: distance of the two readings on the 24-hour circle. Deviation: imposed less net. Penalty of a
// test: deviation in units of the precision, times the points per unit, lowered to the cap. All times in
// hundredths.

struct ProvaCalcolo {
    int idPro = 0;
    TipoProva tipo = TipoProva::Altro;
    int imposto = 0;
    bool svolta = false;
    bool conta = true;  // in the sums: of the day and of those run, where the selection asks for it
};

struct LetturaCalcolo {
    bool esiste = false;  // there is a reading row
    bool manca = true;    // a reading is missing: no row, Null or empty text
    int partenza = 0;     // 0 when missing
    int arrivo = 0;
    double penAgg = 0;  // added penalty; Null counts 0
};

struct EquipaggioCalcolo {
    int idEqu = 0;
    int num = 0;
    int anno = 0;  // Null counts 0
    int idGru = 0;
    bool asi = false;
    QString cog;
    QString cogNav;
};

LetturaCalcolo componiLettura(const QString& tPar, const QString& tArr, double penAgg);

int nettoProva(const LetturaCalcolo& lettura);
int scartoProva(const ProvaCalcolo& prova, const LetturaCalcolo& lettura);  // signed: positive is early

// Capped penalty of one test without the added one; nothing when the product at the hundredth overflows 32
// bits.
std::optional<double> penalitaProva(const Impostazione& impostazione, bool asi, const ProvaCalcolo& prova,
                                    const LetturaCalcolo& lettura);

// Mean without the best and the worst where there are more than two; single precision at every step. 0 for
// none.
float mediaTagliata(std::span<const float> penalita);

// A crew's three numbers. Each holds what was summed when `errore` stopped it.
struct PenalitaEquipaggio {
    double tempi = 0;     // capped penalties of the tests
    double aggiunte = 0;  // added penalties
    double coefficiente = 0;
    bool errore = false;
    [[nodiscard]] double totale() const { return tempi * coefficiente + aggiunte; }
};

// What is summed (the tests of a day, those run) and what is read: one test alone, one crew alone.
struct SelezioneCalcolo {
    QString dat = {};  // a day as typed, or empty
    bool soloSvolte = false;
    std::optional<int> idPro = {};
    std::optional<int> num = {};
    std::optional<int> idEqu = {};
};

// The active event as it stands now: settings, tests in order, crews, readings, group factors.
class Calcolo final {
public:
    // One statement per table. Throws Errore on a day that is no date or an event that is gone.
    explicit Calcolo(const SelezioneCalcolo& selezione);

    [[nodiscard]] const Impostazione& impostazione() const { return m_impostazione; }
    [[nodiscard]] const std::vector<ProvaCalcolo>& prove() const { return m_prove; }
    [[nodiscard]] const std::vector<EquipaggioCalcolo>& equipaggi() const { return m_equipaggi; }
    [[nodiscard]] const EquipaggioCalcolo* trova(int idEqu) const;
    // Of a crew and a test by their places in the two lists.
    [[nodiscard]] const LetturaCalcolo& lettura(std::size_t equipaggio, std::size_t prova) const;

    [[nodiscard]] PenalitaEquipaggio calcola(const EquipaggioCalcolo& equipaggio) const;
    // Capped penalty on the test of that place, and the mean over the tests run that have a reading row,
    // without the best and the worst; without added penalties. Both throw Errore on overflow.
    [[nodiscard]] double penalita(const EquipaggioCalcolo& equipaggio, std::size_t prova) const;
    [[nodiscard]] float media(const EquipaggioCalcolo& equipaggio) const;
    // Whether the crew has both readings on every test run; throws Errore when a reading row is missing.
    [[nodiscard]] bool tempiCompleti(const EquipaggioCalcolo& equipaggio) const;
    // The single sums; nothing is shown on a failure, `errore` becomes true.
    [[nodiscard]] double sommaTempi(const EquipaggioCalcolo& equipaggio, bool& errore) const;
    [[nodiscard]] double sommaAggiunte(const EquipaggioCalcolo& equipaggio, bool& errore) const;
    [[nodiscard]] double coefficiente(const EquipaggioCalcolo& equipaggio, bool& errore) const;

private:
    void leggiProve(const SelezioneCalcolo& selezione);
    void leggiEquipaggi(const SelezioneCalcolo& selezione);
    void leggiRilevamenti(const SelezioneCalcolo& selezione);
    // Of a crew, by the places of the tests.
    [[nodiscard]] std::span<const LetturaCalcolo> letture(const EquipaggioCalcolo& equipaggio) const;

    Impostazione m_impostazione;
    std::vector<ProvaCalcolo> m_prove;
    std::vector<EquipaggioCalcolo> m_equipaggi;
    std::vector<LetturaCalcolo> m_letture;  // crews by tests
    QHash<int, std::size_t> m_postoEquipaggio;
    QHash<int, std::optional<double>> m_fattori;  // by group; nothing for a Null factor
};

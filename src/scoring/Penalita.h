#pragma once

#include <QString>

// The penalty engine, by race number, on the active event as it stands at the call: nothing is kept between
// calls. `num`: race number; `dat`: a day as typed, empty for all; `soloSvolte`: only tests marked as run.

// Capped penalty of one crew on one test, plus its added penalty unless `senzaPenAgg`. Throws Errore when the
// crew, the test or (where it is needed) the reading row is missing, and when the product at the hundredth
// overflows.
double PenalitaProva(int num, int idPro, bool senzaPenAgg);

// The three sums show the operator which crew's times to check when they fail, and return what they held
// then.
double PenalitaTempi(int num, const QString& dat, bool soloSvolte);     // capped, without added penalties
double PenalitaAggiunte(int num, const QString& dat, bool soloSvolte);  // added penalties of the same tests
double CoefficienteEquipaggio(int num);  // year or fixed coefficient times group factor
// PenalitaTempi x CoefficienteEquipaggio + PenalitaAggiunte, unrounded.
double PenalitaTotale(int num, const QString& dat, bool soloSvolte);

// Imposed less net time in hundredths: positive is early. Throws Errore as PenalitaProva.
int ScartoProva(int num, int idPro);

// Mean of a crew's penalties on the tests run, without the best and the worst where there are more than two.
float MediaPenalita(int idEqu);

// Whether the crew has both readings on every test run; true for a crew that is not in the event.
// Throws Errore when a reading row is missing.
bool TempiCompleti(int num);

int NumeroEquipaggi();

// The box that names a crew whose times stopped a sum.
void avvisaErrorePenalita(int num, const QString& cog, const QString& cogNav);

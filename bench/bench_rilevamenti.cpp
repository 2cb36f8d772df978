// One cell edited in the readings grid against one durable single-row write to the same archive, and the
// search for wrong times against the classification of the same event.

#include "archive/Statement.h"
#include "Confronti.h"
#include "Manifestazioni.h"
#include "readings/frmTempiManuale.h"
#include "readings/ModelloRilevamenti.h"
#include "readings/RicercaTempi.h"

#include <benchmark/benchmark.h>
#include <QCoreApplication>
#include <QTableView>

namespace {

constexpr int Equipaggi = 400;
constexpr int Prove = 60;

// A time that differs from the one before: a row written as it stood would cost no write.
QString orario(int giro) {
    return QString::number(10000000 + (giro % 50) * 10000);
}

void cellaModificata(benchmark::State& stato) {
    const ManifestazioneDiMisura manifestazione(Equipaggi, Prove);
    // All chained: the arrival of a time control writes three rows.
    esegui(QStringLiteral("UPDATE Prove SET ConA=IDPro-1 WHERE IDPro>(SELECT min(IDPro) FROM Prove)"));
    frmTempiManuale finestra;
    finestra.show();
    QAbstractItemModel* modello = finestra.findChild<QTableView*>(QStringLiteral("grT"))->model();
    const QModelIndex arrivo = modello->index(2, ModelloRilevamenti::TempoPassaggio);
    int giro = 0;
    for ([[maybe_unused]] auto passo : stato) {
        if (!modello->setData(arrivo, orario(++giro)))
            stato.SkipWithError("the cell was refused");
        QCoreApplication::processEvents();  // what changed is on the screen
    }
}

void scritturaDiUnaRiga(benchmark::State& stato) {
    const ManifestazioneDiMisura manifestazione(Equipaggi, Prove);
    const int idRil = leggiValore(QStringLiteral("SELECT max(IDRil) FROM Rilevamenti"))->toInt();
    int giro = 0;
    for ([[maybe_unused]] auto passo : stato)
        esegui(QStringLiteral("UPDATE Rilevamenti SET TArr=? WHERE IDRil=?"), {orario(++giro), idRil});
}

void ricercaTempi(benchmark::State& stato) {
    const ManifestazioneDiMisura manifestazione(Equipaggi, Prove);
    for ([[maybe_unused]] auto passo : stato)
        benchmark::DoNotOptimize(cercaTempi().equipaggi.size());
}

BENCHMARK(cellaModificata)->Unit(benchmark::kMillisecond);
BENCHMARK(scritturaDiUnaRiga)->Unit(benchmark::kMillisecond);
BENCHMARK(ricercaTempi)->Unit(benchmark::kMillisecond);

const AggiungiConfronto Cella({"cellaModificata", "scritturaDiUnaRiga", 3,
                               "one edited cell in 400 x 60, one durable single-row write"});
const AggiungiConfronto Ricerca({"ricercaTempi", "classifica/400", 3,
                                 "search for wrong times in 400 x 60, its classification"});

}  // namespace

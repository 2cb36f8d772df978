// The general classification against the bare reading, through SQLite's own interface, of the same event's
// readings.

#include "archive/DataBase.h"
#include "common/Public.h"
#include "Confronti.h"
#include "Manifestazioni.h"
#include "scoring/Classifica.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int Prove = 60;

void classifica(benchmark::State& stato) {
    const ManifestazioneDiMisura manifestazione(static_cast<int>(stato.range(0)), Prove);
    for ([[maybe_unused]] auto giro : stato) {
        if (!GeneraClassifica({.silenziosa = true, .soloSvolte = true}))
            stato.SkipWithError("no classification");
    }
}

void letturaNuda(benchmark::State& stato) {
    const ManifestazioneDiMisura manifestazione(static_cast<int>(stato.range(0)), Prove);
    const QByteArray percorso = percorsoArchivio().toUtf8();
    for ([[maybe_unused]] auto giro : stato) {
        sqlite3* archivio = nullptr;
        sqlite3_stmt* lettura = nullptr;
        sqlite3_open_v2(percorso.constData(), &archivio, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_prepare_v2(archivio,
                           "SELECT IDEqu_FK,IDPro_FK,TPar,TArr,PenAgg FROM Rilevamenti WHERE IDEqu_FK IN "
                           "(SELECT IDEqu FROM Equipaggi WHERE IDMan_FK=?)",
                           -1, &lettura, nullptr);
        sqlite3_bind_int(lettura, 1, IDMan);
        int righe = 0;
        while (sqlite3_step(lettura) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_int(lettura, 0) + sqlite3_column_int(lettura, 1));
            benchmark::DoNotOptimize(sqlite3_column_text(lettura, 2));
            benchmark::DoNotOptimize(sqlite3_column_text(lettura, 3));
            benchmark::DoNotOptimize(sqlite3_column_double(lettura, 4));
            ++righe;
        }
        sqlite3_finalize(lettura);
        sqlite3_close(archivio);
        if (righe != stato.range(0) * Prove)
            stato.SkipWithError("wrong number of rows");
    }
}

BENCHMARK(classifica)->Arg(400)->Arg(4000)->Unit(benchmark::kMillisecond);
BENCHMARK(letturaNuda)->Arg(400)->Arg(4000)->Unit(benchmark::kMillisecond);

const AggiungiConfronto Prima({"classifica/400", "letturaNuda/400", 2,
                               "classification of 400 x 60, bare read of its readings"});
const AggiungiConfronto Seconda({"classifica/4000", "letturaNuda/4000", 1.1,
                                 "its growth to 4,000 x 60, that of the bare read", "classifica/400",
                                 "letturaNuda/400"});

}  // namespace

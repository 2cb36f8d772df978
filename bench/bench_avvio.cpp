// From process start to the usable main window, the splash answered at once, against a bare window.

#include "Confronti.h"

#include <benchmark/benchmark.h>
#include <QProcess>
#include <QTemporaryDir>

namespace {

void processo(benchmark::State& stato, const char* programma) {
    const QTemporaryDir cartella;
    for ([[maybe_unused]] auto giro : stato) {
        if (QProcess::execute(QString::fromLocal8Bit(programma), {cartella.path()}) != 0)
            stato.SkipWithError("the process failed");
    }
}

void avvioVelmora(benchmark::State& stato) {
    processo(stato, AVVIO_VELMORA);
}

void avvioNudo(benchmark::State& stato) {
    processo(stato, AVVIO_NUDO);
}

// Wall time: the work is another process's.
BENCHMARK(avvioVelmora)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(avvioNudo)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

const AggiungiConfronto Avvio({"avvioVelmora/iterations:20/real_time", "avvioNudo/iterations:20/real_time",
                               1.5, "process start to the main window, to a bare window"});

}  // namespace

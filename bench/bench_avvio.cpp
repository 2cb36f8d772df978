// From process start to the usable main window, the splash answered at once, against a bare window.

#include "Confronti.h"

#include <benchmark/benchmark.h>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace {

// On a display where there is one, as the club's own machine has.
QProcessEnvironment ambiente() {
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    if (ambiente.contains(QStringLiteral("DISPLAY")))
        ambiente.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    return ambiente;
}

void misura(benchmark::State& stato, const char* programma) {
    const QTemporaryDir cartella;
    QProcess processo;
    processo.setProgram(QString::fromLocal8Bit(programma));
    processo.setArguments({cartella.path()});
    processo.setProcessEnvironment(ambiente());
    processo.setStandardErrorFile(QProcess::nullDevice());
    for ([[maybe_unused]] auto giro : stato) {
        processo.start();
        if (!processo.waitForFinished() || processo.exitCode() != 0)
            stato.SkipWithError("the process failed");
    }
}

void avvioVelmora(benchmark::State& stato) {
    misura(stato, AVVIO_VELMORA);
}

void avvioNudo(benchmark::State& stato) {
    misura(stato, AVVIO_NUDO);
}

// Wall time: the work is another process's.
BENCHMARK(avvioVelmora)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(avvioNudo)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

const AggiungiConfronto Avvio({"avvioVelmora/iterations:20/real_time", "avvioNudo/iterations:20/real_time",
                               1.5, "process start to the main window, to a bare window"});

}  // namespace

// From process start to the usable main window, the splash answered at once, against a bare window: on a new
// archive, and on one of ten large events, whose check at the start is measured apart.

#include "archive/DataBase.h"
#include "archive/PercorsoApp.h"
#include "Confronti.h"
#include "Manifestazioni.h"

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

void misura(benchmark::State& stato, const char* programma, const QString& argomento) {
    QProcess processo;
    processo.setProgram(QString::fromLocal8Bit(programma));
    processo.setArguments({argomento});
    processo.setProcessEnvironment(ambiente());
    processo.setStandardErrorFile(QProcess::nullDevice());
    for ([[maybe_unused]] auto giro : stato) {
        processo.start();
        if (!processo.waitForFinished() || processo.exitCode() != 0)
            stato.SkipWithError("the process failed");
    }
}

void avvioVelmora(benchmark::State& stato) {
    const QTemporaryDir cartella;
    misura(stato, AVVIO_VELMORA, cartella.path());
}

void avvioNudo(benchmark::State& stato) {
    misura(stato, AVVIO_NUDO, {});
}

void avvioPieno(benchmark::State& stato) {
    const ManifestazioneDiMisura manifestazioni(400, 60, 10);
    ChiudiDataBase();
    misura(stato, AVVIO_VELMORA, PercorsoApp);
}

void controlloPieno(benchmark::State& stato) {
    const ManifestazioneDiMisura manifestazioni(400, 60, 10);
    ChiudiDataBase();
    misura(stato, CONTROLLO, percorsoArchivio());
}

// Wall time: the work is another process's.
BENCHMARK(avvioVelmora)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(avvioNudo)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

BENCHMARK(avvioPieno)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(controlloPieno)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

const AggiungiConfronto Avvio({"avvioVelmora/iterations:20/real_time", "avvioNudo/iterations:20/real_time",
                               1.5, "process start to the main window, to a bare window"});
const AggiungiConfronto AvvioPieno({"avvioPieno/iterations:20/real_time",
                                    "avvioNudo/iterations:20/real_time",
                                    1.5,
                                    "the same on ten events, less the check of their archive",
                                    {},
                                    {},
                                    "controlloPieno/iterations:20/real_time"});

}  // namespace

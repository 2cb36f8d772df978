// On-line reception: the last byte of a time frame on the line to the committed rows and the window that
// shows them, against one durable single-row write. And the scoreboard clock: how far what is shown at the
// moment of its frame is behind the true time, over a minute.

#include "archive/DataBase.h"
#include "common/Impostazioni.h"
#include "common/Public.h"
#include "common/Valori.h"
#include "Confronti.h"
#include "download/Assegnazione.h"
#include "live/frmOrologio.h"
#include "live/frmRXONLINE.h"
#include "Manifestazioni.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <algorithm>
#include <functional>
#include <optional>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

class PortaFinta final : public Porta {
public:
    [[nodiscard]] bool aperta() const override { return m_aperta; }
    bool apri() override { return m_aperta = true; }
    bool chiudi() override {
        m_aperta = false;
        return true;
    }
    QByteArray leggiTutto() override { return std::exchange(m_arrivati, {}); }
    bool scrivi(const QByteArray& /*dati*/) override {
        if (alFrame)
            alFrame();
        return true;
    }
    void arriva(const QByteArray& dati) {
        m_arrivati = dati;
        Q_EMIT ricevuto();
    }
    std::function<void()> alFrame;

private:
    bool m_aperta = false;
    QByteArray m_arrivati;
};

class PorteFinte final : public FabbricaPorte {
public:
    PorteFinte() { installa(this); }
    ~PorteFinte() override { installa(nullptr); }
    Q_DISABLE_COPY_MOVE(PorteFinte)
    [[nodiscard]] std::unique_ptr<Porta> crea(Linea linea) const override {
        auto porta = std::make_unique<PortaFinta>();
        (linea == Linea::Cronometro ? cronometro : tabellone) = porta.get();
        return porta;
    }
    mutable PortaFinta* cronometro = nullptr;
    mutable PortaFinta* tabellone = nullptr;
};

QByteArray record(char marca, const QByteArray& tempo) {
    return (marca + QByteArray(14, ' ') + tempo).leftJustified(30, ' ') + '\r';
}

// A time that differs from the one before: a row written as it stood would cost no write.
QByteArray tempo(int giro) {
    const QByteArray record1 = record('T', "00:01:" + QByteArray::number(10 + giro % 50) + ".00");
    return record1 + record('T', {});
}

void tempoOnLine(benchmark::State& stato) {
    const ManifestazioneDiMisura manifestazione(400, 60);
    const PorteFinte porte;
    ParametriOnLine parametri;
    parametri.idEqu = leggiEquipaggi(IDMan).first().idEqu;
    // As long as the measure lasts: the same tests over and over.
    const QList<ProvaCronometrata> prove = leggiProveCronometrate(IDMan);
    for (int i = 0; i < 2000; ++i)
        parametri.catena += prove;
    parametri.precisione = u"CEN"_s;
    parametri.taglia = [](const QString& testo) { return testo; };
    parametri.penalita = [](int scarto) { return std::optional<double>(scarto); };
    frmRXONLINE finestra(parametri, u"Equipaggio"_s, 1, 0);
    finestra.inizia();
    finestra.show();
    porte.cronometro->arriva(record('A', {}));
    int giro = 0;
    for ([[maybe_unused]] auto passo : stato) {
        stato.PauseTiming();
        const QByteArray frame = tempo(++giro);
        porte.cronometro->arriva(frame.chopped(1));
        stato.ResumeTiming();
        porte.cronometro->arriva(frame.last(1));
    }
    if (finestra.findChild<QLabel*>(u"lblImp"_s)->text().section(u' ', 2, 2).toInt() != giro)
        stato.SkipWithError("not all times were received");
}

void scritturaNuda(benchmark::State& stato) {
    const ManifestazioneDiMisura manifestazione(400, 60);
    sqlite3* archivio = nullptr;
    sqlite3_open_v2(percorsoArchivio().toUtf8().constData(), &archivio, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_exec(archivio, "PRAGMA journal_mode=DELETE; PRAGMA synchronous=EXTRA", nullptr, nullptr, nullptr);
    sqlite3_stmt* riga = nullptr;
    sqlite3_prepare_v2(archivio, "UPDATE Rilevamenti SET TArr=? WHERE IDRil=1", -1, &riga, nullptr);
    int giro = 0;
    for ([[maybe_unused]] auto passo : stato) {
        const QByteArray testo = "00:01:" + QByteArray::number(10 + ++giro % 50) + ":00";
        sqlite3_bind_text(riga, 1, testo.constData(), static_cast<int>(testo.size()), nullptr);
        if (sqlite3_step(riga) != SQLITE_DONE)
            stato.SkipWithError("not written");
        sqlite3_reset(riga);
    }
    sqlite3_finalize(riga);
    sqlite3_close(archivio);
}

// Seconds by which the clock of hundredths was behind, at worst, when it wrote a frame; nothing when it wrote
// hardly any.
std::optional<double> misuraDeriva() {
    constexpr int Minuto = 60000;
    constexpr int FrameMinimi = 3000;
    const PorteFinte porte;
    frmOrologio finestra;
    auto* tabellone = porte.tabellone;
    auto* cronometro = porte.cronometro;
    finestra.show();
    for (const QString& nome : {u"optCOMTAB_2"_s, u"optCOMTAG_1"_s, u"optFormato_3"_s})
        finestra.findChild<QRadioButton*>(nome)->setChecked(true);
    finestra.findChild<QRadioButton*>(u"optFormato_3"_s)->click();
    const auto* orario = finestra.findChild<QLabel*>(u"lblOrario"_s);
    QElapsedTimer vero;
    qint64 peggiore = 0;
    int frame = 0;
    tabellone->alFrame = [&] {
        if (orario->text().isEmpty())
            return;
        const qint64 mostrato = TempoInCentesimi(u"00:"_s + orario->text()) * 10'000'000LL;
        ++frame;
        peggiore = std::max(peggiore, std::abs(vero.nsecsElapsed() - mostrato));
    };
    finestra.findChild<QPushButton*>(u"cmdSynchro"_s)->click();
    vero.start();
    cronometro->arriva(record('T', "10:00:00.00"));
    while (vero.elapsed() < Minuto)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    tabellone->alFrame = {};
    if (frame < FrameMinimi)
        return std::nullopt;
    return static_cast<double>(peggiore) / 1e9;
}

void derivaOrologio(benchmark::State& stato) {
    static const std::optional<double> Deriva = misuraDeriva();
    if (!Deriva)
        stato.SkipWithError("the clock did not run");
    for ([[maybe_unused]] auto passo : stato)
        stato.SetIterationTime(*Deriva);
}

void battitoOrologio(benchmark::State& stato) {
    for ([[maybe_unused]] auto passo : stato)
        stato.SetIterationTime(0.010);
}

// Wall time: the disk counts.
BENCHMARK(tempoOnLine)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(scritturaNuda)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(derivaOrologio)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);
BENCHMARK(battitoOrologio)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

const AggiungiConfronto Tempo({"tempoOnLine/real_time", "scritturaNuda/real_time", 2,
                               "last byte of an on-line time to its rows, one durable single-row write"});
const AggiungiConfronto Orologio({"derivaOrologio/iterations:1/manual_time",
                                  "battitoOrologio/iterations:1/manual_time", 1,
                                  "clock of hundredths: worst drift in a minute, one tick"});

}  // namespace

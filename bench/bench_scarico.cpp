// A download of 10,000 records through its window, from their arrival to the readings on show, against the
// same rows inserted bare, through SQLite's own interface, in one transaction.

#include "archive/DataBase.h"
#include "common/Dialoghi.h"
#include "common/Public.h"
#include "common/Valori.h"
#include "Confronti.h"
#include "download/ElencoPressostati.h"
#include "download/frmRicezioneOFFLINE.h"
#include "Manifestazioni.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <QApplication>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int Equipaggi = 1000;
constexpr int Pressostati = 10;
constexpr int Prove = 8;

int oraDi(int equipaggio, int pressostato) {
    return 10 * CentesimiAllOra + pressostato * CentesimiAllOra / 2 + equipaggio * 317;
}

QByteArray flusso() {
    QByteArray righe;
    for (int p = 0; p < Pressostati; ++p) {
        for (int e = 1; e <= Equipaggi; ++e) {
            QByteArray riga(30, ' ');
            riga[0] = 'T';
            riga.replace(7, 4, QByteArray::number(e).rightJustified(4));
            riga.replace(15, 11, CentesimiInTempo(oraDi(e, p)).toLatin1());
            righe += riga + '\r';
        }
    }
    return righe;
}

class PortaFinta final : public Porta {
public:
    [[nodiscard]] bool aperta() const override { return m_aperta; }
    bool apri() override { return m_aperta = true; }
    bool chiudi() override {
        m_aperta = false;
        return true;
    }
    QByteArray leggiTutto() override { return std::exchange(m_arrivati, {}); }
    bool scrivi(const QByteArray& /*dati*/) override { return true; }
    void arriva(const QByteArray& dati) {
        m_arrivati = dati;
        Q_EMIT ricevuto();
    }

private:
    bool m_aperta = false;
    QByteArray m_arrivati;
};

class PorteFinte final : public FabbricaPorte {
public:
    PorteFinte() { installa(this); }
    ~PorteFinte() override { installa(nullptr); }
    Q_DISABLE_COPY_MOVE(PorteFinte)
    [[nodiscard]] std::unique_ptr<Porta> crea(Linea /*linea*/) const override {
        auto porta = std::make_unique<PortaFinta>();
        ultima = porta.get();
        return porta;
    }
    mutable PortaFinta* ultima = nullptr;
};

// Takes the place of the program's boxes; the one at the end of the download ends the measure.
class ScatoleMute final : public Dialoghi {
public:
    ScatoleMute() : m_prima(corrente()) { installa(this); }
    ~ScatoleMute() override { installa(&m_prima); }
    Q_DISABLE_COPY_MOVE(ScatoleMute)
    void messaggio(const QString& titolo, const QString& testo, Icona /*icona*/) override {
        finita = true;
        riuscita =
            titolo == "Ricezione OK"_L1 && testo.contains(u"Ricevuti %1 "_s.arg(Equipaggi * Pressostati));
    }
    bool domanda(const QString&, const QString&, Icona, Innocua) override { return false; }
    std::optional<QString> chiedi(const QString&, const QString&, const QString&) override { return {}; }
    QString apriFile(const QString&, const QString&, const QString&) override { return {}; }
    QString salvaFile(const QString&, const QString&, const QString&) override { return {}; }
    void avviso(const QString&) override {}
    bool finita = false;
    bool riuscita = false;

private:
    Dialoghi& m_prima;
};

void scarico(benchmark::State& stato) {
    const ManifestazioneDiMisura manifestazione(Equipaggi, Prove);
    const PorteFinte porte;
    ScatoleMute scatole;
    const AtteseDiLinea attese = std::exchange(AtteseLinea, {.silenzioCP520 = 0});
    frmRicezioneOFFLINE finestra;
    auto* lista = finestra.findChild<ElencoPressostati*>(u"lstPre"_s);
    for (int i = 0; i < Pressostati; ++i)
        lista->topLevelItem(i)->setCheckState(0, Qt::Checked);
    finestra.show();
    const QByteArray dati = flusso();
    for ([[maybe_unused]] auto giro : stato) {
        stato.PauseTiming();
        finestra.findChild<QPushButton*>(u"cmdIniziaRicezione"_s)->click();
        scatole.finita = false;
        stato.ResumeTiming();
        porte.ultima->arriva(dati);
        while (!scatole.finita)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (!scatole.riuscita)
            stato.SkipWithError("not all records were received");
    }
    AtteseLinea = attese;
}

void inserimentoNudo(benchmark::State& stato) {
    const ManifestazioneDiMisura manifestazione(Equipaggi, Prove);
    sqlite3* archivio = nullptr;
    sqlite3_open_v2(percorsoArchivio().toUtf8().constData(), &archivio, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_exec(archivio, "PRAGMA journal_mode=DELETE; PRAGMA synchronous=EXTRA", nullptr, nullptr, nullptr);
    QList<QByteArray> tempi;
    for (int p = 0; p < Pressostati; ++p) {
        for (int e = 1; e <= Equipaggi; ++e)
            tempi << CentesimiInTempo(oraDi(e, p)).toLatin1();
    }
    for ([[maybe_unused]] auto giro : stato) {
        stato.PauseTiming();
        sqlite3_exec(archivio, "DELETE FROM TempRil", nullptr, nullptr, nullptr);
        stato.ResumeTiming();
        sqlite3_exec(archivio, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_stmt* riga = nullptr;
        sqlite3_prepare_v2(archivio,
                           "INSERT INTO TempRil (IDPro_FK,IDEqu_FK,TPar,TArr,Num) VALUES (?,?,?,?,?)", -1,
                           &riga, nullptr);
        for (qsizetype i = 0; i < tempi.size(); ++i) {
            const int equipaggio = static_cast<int>(i % Equipaggi) + 1;
            sqlite3_bind_int(riga, 1, static_cast<int>(i / Equipaggi));
            sqlite3_bind_int(riga, 2, equipaggio);
            sqlite3_bind_text(riga, 3, tempi[i].constData(), static_cast<int>(tempi[i].size()), nullptr);
            sqlite3_bind_int(riga, 5, equipaggio);
            sqlite3_step(riga);
            sqlite3_reset(riga);
        }
        sqlite3_finalize(riga);
        if (sqlite3_exec(archivio, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
            stato.SkipWithError("not committed");
    }
    sqlite3_close(archivio);
}

// Wall time: the disk counts.
BENCHMARK(scarico)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(inserimentoNudo)->Unit(benchmark::kMillisecond)->UseRealTime();

const AggiungiConfronto Scarico({"scarico/real_time", "inserimentoNudo/real_time", 3,
                                 "download of 10,000 records, the same rows inserted bare"});

}  // namespace

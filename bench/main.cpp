#include "archive/ErroreArchivio.h"
#include "common/Applicazione.h"
#include "common/Impostazioni.h"
#include "Confronti.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>

namespace {

// Keeps the user's own settings out of the measures.
class SenzaImpostazioni final : public Impostazioni {
public:
    QString leggi(const QString& /*sezione*/, const QString& /*chiave*/,
                  const QString& predefinito) const override {
        return predefinito;
    }
    void scrivi(const QString& /*sezione*/, const QString& /*chiave*/, const QString& /*valore*/) override {}
};

class Mediane final : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& giri) override {
        ConsoleReporter::ReportRuns(giri);
        for (const Run& giro : giri) {
            if (giro.run_type == Run::RT_Aggregate && giro.aggregate_name == "median")
                m_mediane[giro.run_name.str()] = giro.GetAdjustedRealTime();
        }
    }

    // False when a measure is missing or past its ratio.
    bool rapporti() const {
        bool buoni = true;
        std::printf("\n%-70s %12s %12s %8s %8s\n", "measure, baseline", "ms", "baseline ms", "ratio",
                    "at most");
        for (const Confronto& confronto : confronti()) {
            const auto misura = m_mediane.find(confronto.misura);
            const auto base = m_mediane.find(confronto.base);
            if (misura == m_mediane.end() || base == m_mediane.end()) {
                std::printf("%-70s not measured\n", confronto.descrizione.c_str());
                buoni = false;
                continue;
            }
            const double rapporto = misura->second / base->second;
            std::printf("%-70s %12.2f %12.2f %8.2f %8.2f%s\n", confronto.descrizione.c_str(), misura->second,
                        base->second, rapporto, confronto.massimo,
                        rapporto > confronto.massimo ? "  OVER" : "");
            buoni = buoni && rapporto <= confronto.massimo;
        }
        return buoni;
    }

private:
    std::map<std::string, double> m_mediane;
};

}  // namespace

int main(int argc, char** argv) {
    const Applicazione applicazione(argc, argv);
    SenzaImpostazioni impostazioni;
    Impostazioni::installa(&impostazioni);
    benchmark::Initialize(&argc, argv);
    Mediane mediane;
    try {
        benchmark::RunSpecifiedBenchmarks(&mediane);
    } catch (const Errore& errore) {
        std::fprintf(stderr, "%s\n", qPrintable(errore.testo()));
        return 1;
    }
    return mediane.rapporti() ? 0 : 1;
}

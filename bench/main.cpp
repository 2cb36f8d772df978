#include "archive/ErroreArchivio.h"
#include "common/Applicazione.h"
#include "common/Impostazioni.h"
#include "Confronti.h"

#include <benchmark/benchmark.h>
#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>

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

// Keeps the times of each measure's repetitions, and shows what the library makes of them.
class Tabella final : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& giri) override {
        std::vector<Run> riassunti;
        for (const Run& giro : giri) {
            if (giro.run_type == Run::RT_Aggregate) {
                riassunti.push_back(giro);
            } else if (!giro.error_occurred) {
                m_tempi[giro.run_name.str()].push_back(giro.GetAdjustedRealTime());
            }
        }
        ConsoleReporter::ReportRuns(riassunti);
    }

    // False when a measure is missing or past its ratio.
    bool rapporti() const {
        bool buoni = true;
        std::printf("\n%-66s %17s %17s %7s %7s\n", "measure, baseline", "ms min/median", "baseline", "ratio",
                    "at most");
        for (const Confronto& confronto : confronti())
            buoni = riga(confronto) && buoni;
        return buoni;
    }

private:
    struct Tempi {
        double minimo = 0;
        double mediana = 0;
    };

    bool riga(const Confronto& confronto) const {
        const std::optional<Tempi> misura = trova(confronto.misura);
        const std::optional<Tempi> base = trova(confronto.base);
        const std::optional<Tempi> misuraPiccola = trova(confronto.misuraPiccola);
        const std::optional<Tempi> basePiccola = trova(confronto.basePiccola);
        const bool crescita = !confronto.misuraPiccola.empty();
        if (!misura || !base || (crescita && (!misuraPiccola || !basePiccola)) ||
            (!confronto.tolta.empty() && !trova(confronto.tolta))) {
            std::printf("%-66s not measured\n", confronto.descrizione.c_str());
            return false;
        }
        const std::optional<Tempi> tolta = trova(confronto.tolta);
        double rapporto = (misura->minimo - tolta.value_or(Tempi()).minimo) / base->minimo;
        if (crescita)
            rapporto /= misuraPiccola->minimo / basePiccola->minimo;
        std::printf("%-66s %8.2f/%8.2f %8.2f/%8.2f %7.2f %7.2f%s\n", confronto.descrizione.c_str(),
                    misura->minimo, misura->mediana, base->minimo, base->mediana, rapporto, confronto.massimo,
                    rapporto > confronto.massimo ? "  OVER" : "");
        return rapporto <= confronto.massimo;
    }

    std::optional<Tempi> trova(const std::string& nome) const {
        const auto trovati = m_tempi.find(nome);
        if (trovati == m_tempi.end())
            return std::nullopt;
        std::vector<double> tempi = trovati->second;
        std::ranges::sort(tempi);
        return Tempi{tempi.front(), tempi[tempi.size() / 2]};
    }

    std::map<std::string, std::vector<double>> m_tempi;
};

}  // namespace

int main(int argc, char** argv) {
    const Applicazione applicazione(argc, argv);
    SenzaImpostazioni impostazioni;
    Impostazioni::installa(&impostazioni);
    benchmark::Initialize(&argc, argv);
    Tabella tabella;
    try {
        benchmark::RunSpecifiedBenchmarks(&tabella);
    } catch (const Errore& errore) {
        std::fprintf(stderr, "%s\n", qPrintable(errore.testo()));
        return 1;
    }
    return tabella.rapporti() ? 0 : 1;
}

// The PDF of a long classification against the same texts on a bare painter.

#include "Confronti.h"
#include "output/Pittore.h"
#include "output/Rapporto.h"

#include <benchmark/benchmark.h>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int Righe = 1000;
constexpr int RighePerPagina = 45;

Rapporto classificaLunga() {
    Rapporto rapporto;
    rapporto.titoloFinestra = u"CLASSIFICA ASSOLUTA"_s;
    rapporto.etichette = {{u"lblTitolo"_s, {}, u"Coppa delle Colline"_s},
                          {u"lblData"_s, {}, u"13/06/2026 14/06/2026"_s},
                          {u"lblTipoClas"_s, {}, u"CLASSIFICA ASSOLUTA"_s}};
    const QStringList testate{u"POS."_s, u"NUM."_s,   u"PEN."_s,   u"EQUIPAGGIO"_s, u"VEICOLO"_s,
                              u"ANNO"_s, u"P.NET."_s, u"P.AGG."_s, u"COEFF."_s};
    for (const QString& testata : testate) {
        ColonnaRapporto colonna;
        colonna.testata = testata;
        rapporto.colonne << colonna;
    }
    GruppoRapporto gruppo;
    for (int i = 1; i <= Righe; ++i) {
        gruppo.righe << QStringList{QString::number(i),
                                    QString::number(i * 7 % 1009),
                                    QString::number(i * 3.37, 'f', 2),
                                    u"D'ANGELÒ BIANCHINI %1"_s.arg(i),
                                    u"ALFA ROMEO GIULIETTA SPRINT"_s,
                                    QString::number(1925 + i % 65),
                                    QString::number(i * 3),
                                    u"0"_s,
                                    u"1,55"_s};
    }
    rapporto.gruppi << gruppo;
    return rapporto;
}

void stampaRapporto(benchmark::State& stato) {
    const QTemporaryDir cartella;
    const Rapporto rapporto = classificaLunga();
    for ([[maybe_unused]] auto giro : stato)
        scriviPdf(rapporto, cartella.filePath(u"rapporto.pdf"_s));
}

void stampaNuda(benchmark::State& stato) {
    const QTemporaryDir cartella;
    const Rapporto rapporto = classificaLunga();
    const QList<QStringList> righe = rapporto.righe();
    for ([[maybe_unused]] auto giro : stato) {
        QPdfWriter foglio(cartella.filePath(u"nudo.pdf"_s));
        foglio.setResolution(72);
        QPainter pittore(&foglio);
        pittore.setFont(QFont(u"DejaVu Sans"_s, 8));
        for (qsizetype r = 0; r < righe.size(); ++r) {
            if (r > 0 && r % RighePerPagina == 0)
                foglio.newPage();
            for (qsizetype c = 0; c < righe.at(r).size(); ++c)
                pittore.drawText(QPointF(double(c) * 55, double(r % RighePerPagina) * 15 + 20),
                                 righe.at(r).at(c));
        }
    }
}

BENCHMARK(stampaRapporto)->Unit(benchmark::kMillisecond);
BENCHMARK(stampaNuda)->Unit(benchmark::kMillisecond);

const AggiungiConfronto Stampa({"stampaRapporto", "stampaNuda", 2,
                                "PDF of 1,000 rows, the same texts on a bare painter"});

}  // namespace

#include "output/Impaginazione.h"

#include <algorithm>
#include <QMap>
#include <QTest>

class tst_Impaginazione final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void impaginati();
    void ripartizione();
};

namespace {

// A page as text: "*" under the full head, T group's heading, t its short form, h column heads, f foot, c a
// line of the tail, and the rows' numbers.
QString descrivi(const Pagina& pagina) {
    static const QMap<Pezzo, QString> segni{{Pezzo::Testa, "T"},
                                            {Pezzo::TestaSeguito, "t"},
                                            {Pezzo::Testata, "h"},
                                            {Pezzo::Piede, "f"},
                                            {Pezzo::Coda, "c"}};
    QStringList pezzi(pagina.testaIntera ? "*" : "");
    for (const Elemento& e : pagina.elementi) {
        const bool testa = e.pezzo == Pezzo::Testa || e.pezzo == Pezzo::TestaSeguito;
        pezzi << segni.value(e.pezzo, QString::number(e.riga)) + (testa ? QString::number(e.gruppo) : "");
    }
    return pezzi.join(' ').trimmed();
}

IngombroGruppo gruppo(int righe, double testa = 10, double piede = 0) {
    return {.testa = testa,
            .testaSeguito = testa / 2,
            .testata = 10,
            .righe = QList<double>(righe, 10.0),
            .piede = piede};
}

}  // namespace

void tst_Impaginazione::impaginati() {
    IngombroGruppo alta = gruppo(8, 0);
    alta.righe[3] = 25;
    const struct {
        const char* nome;
        Ingombri ingombri;
        QStringList pagine;
    } casi[] = {{"list", {40, 50, {gruppo(8, 0)}}, {"* h 0 1 2", "h 3 4 5 6", "h 7"}},
                {"list, a row of several lines", {40, 50, {alta}}, {"* h 0 1 2", "h 3 4", "h 5 6 7"}},
                {"list, tail",
                 {50, 30, {gruppo(3, 0)}, 0, false, QList<double>(5, 10.0)},
                 {"* h 0 1 2 c", "c c c", "c"}},
                {"no group", {50, 50, {}}, {"*"}},
                {"no row", {50, 50, {gruppo(0, 0)}}, {"* h"}},
                {"a row no page can hold still stands on one",
                 {50, 50, {{.testata = 10, .righe = {90, 10}}}},
                 {"* h 0", "h 1"}},
                {"groups together",
                 {100, 100, {gruppo(2), gruppo(4), gruppo(3), gruppo(1)}, 5},
                 {"* T0 h 0 1", "T1 h 0 1 2 3", "T2 h 0 1 2 T3 h 0"}},
                {"a longer one starts below where two rows go with its heading",
                 {100, 100, {gruppo(3), gruppo(12)}, 5},
                 {"* T0 h 0 1 2 T1 h 0 1", "t1 h 2 3 4 5 6 7 8 9", "t1 h 10 11"}},
                {"or on a page of its own",
                 {85, 85, {gruppo(3), gruppo(12)}, 5},
                 {"* T0 h 0 1 2", "T1 h 0 1 2 3 4 5", "t1 h 6 7 8 9 10 11"}},
                {"foot never alone", {60, 60, {gruppo(4, 10, 20)}}, {"* T0 h 0 1 2", "t0 h 3 f"}},
                {"page of each group",
                 {50, 60, {gruppo(1), gruppo(5), gruppo(2)}, 0, true},
                 {"* T0 h 0", "* T1 h 0 1 2", "t1 h 3 4", "* T2 h 0 1"}}};
    for (const auto& [nome, ingombri, pagine] : casi) {
        QStringList testi;
        for (const Pagina& pagina : impagina(ingombri)) {
            testi << descrivi(pagina);
            // One piece under the other, with room between groups alone.
            double y = 0;
            for (const Elemento& e : pagina.elementi) {
                y += e.pezzo == Pezzo::Testa && y > 0 ? ingombri.fraGruppi : 0;
                QCOMPARE(e.y, y);
                y += e.altezza;
            }
        }
        QVERIFY2(testi == pagine, nome);
    }
}

void tst_Impaginazione::ripartizione() {
    struct Caso {
        const char* nome;
        QList<Larghezza> colonne;
        QList<double> attese;
    };
    for (const Caso& caso : std::initializer_list<Caso>{
             {"one needs little, the others share by quota",
              {{10, 1, true}, {20, 3}, {90, 2}, {90, 1}},
              {10, 20, 46.6667, 23.3333}},
             {"all fit: what is left goes to the soft ones", {{20, 1, true}, {30}, {10}}, {23, 57.75, 19.25}},
             {"only rigid", {{20, 1, true}, {30, 1, true}}, {40, 60}},
             {"rigid ones alone are too many", {{80, 1, true}, {120, 1, true}, {30, 2}}, {30, 45, 25}},
             {"an empty column takes nothing", {{0, 0}, {50}}, {0, 100}},
             {"no column needs anything", {{0, 0, true}, {0, 0}}, {0, 0}}}) {
        const QList<double> larghezze = ripartisci(caso.colonne, 100);
        QVERIFY2(std::ranges::equal(larghezze, caso.attese,
                                    [](double a, double b) { return qAbs(a - b) < 0.001; }),
                 caso.nome);
    }
}

QTEST_APPLESS_MAIN(tst_Impaginazione)
#include "tst_Impaginazione.moc"

#include "output/Impaginazione.h"

#include <numeric>
#include <QTest>

class tst_Impaginazione final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void elenco();
    void gruppiInsieme();
    void gruppoPiuLungoDiUnaPagina();
    void piedeMaiSolo();
    void paginaPerGruppo();
    void vuoto();
    void coda();
    void ripartizione_data();
    void ripartizione();
};

namespace {

// A page as text: T heading, t its short form, h column heads, f foot, c a line of the tail, and the rows'
// numbers.
QString descrivi(const Pagina& pagina) {
    QStringList pezzi;
    for (const Elemento& e : pagina.elementi) {
        switch (e.pezzo) {
            case Pezzo::Testa:
                pezzi << QStringLiteral("T%1").arg(e.gruppo);
                break;
            case Pezzo::TestaSeguito:
                pezzi << QStringLiteral("t%1").arg(e.gruppo);
                break;
            case Pezzo::Testata:
                pezzi << "h";
                break;
            case Pezzo::Riga:
                pezzi << QString::number(e.riga);
                break;
            case Pezzo::Piede:
                pezzi << "f";
                break;
            case Pezzo::Coda:
                pezzi << "c";
                break;
        }
    }
    return pezzi.join(' ');
}

QStringList descrivi(const Ingombri& ingombri) {
    QStringList testi;
    for (const Pagina& pagina : impagina(ingombri))
        testi << descrivi(pagina);
    return testi;
}

IngombroGruppo gruppo(int righe, double testa = 10, double piede = 0) {
    return {.testa = testa,
            .testaSeguito = testa / 2,
            .testata = 10,
            .righe = QList<double>(righe, 10.0),
            .piede = piede};
}

}  // namespace

void tst_Impaginazione::elenco() {
    Ingombri i{.primaPagina = 40, .altraPagina = 50, .gruppi = {gruppo(8, 0)}};
    QCOMPARE(descrivi(i), QStringList({"h 0 1 2", "h 3 4 5 6", "h 7"}));
    const QList<Pagina> pagine = impagina(i);
    QVERIFY(pagine.at(0).testaIntera);
    QVERIFY(!pagine.at(1).testaIntera);
    QCOMPARE(pagine.at(1).elementi.last().y, 40.0);
    i.gruppi[0].righe[3] = 25;  // a row of several lines
    QCOMPARE(descrivi(i), QStringList({"h 0 1 2", "h 3 4", "h 5 6 7"}));
}

void tst_Impaginazione::gruppiInsieme() {
    const Ingombri i{.primaPagina = 100,
                     .altraPagina = 100,
                     .gruppi = {gruppo(2), gruppo(4), gruppo(3), gruppo(1)},
                     .fraGruppi = 5};
    QCOMPARE(descrivi(i), QStringList({"T0 h 0 1", "T1 h 0 1 2 3", "T2 h 0 1 2 T3 h 0"}));
}

void tst_Impaginazione::gruppoPiuLungoDiUnaPagina() {
    // It starts below the one before as soon as two rows go with its heading.
    QCOMPARE(descrivi(Ingombri{
                 .primaPagina = 100, .altraPagina = 100, .gruppi = {gruppo(3), gruppo(12)}, .fraGruppi = 5}),
             QStringList({"T0 h 0 1 2 T1 h 0 1", "t1 h 2 3 4 5 6 7 8 9", "t1 h 10 11"}));
    QCOMPARE(descrivi(Ingombri{
                 .primaPagina = 85, .altraPagina = 85, .gruppi = {gruppo(3), gruppo(12)}, .fraGruppi = 5}),
             QStringList({"T0 h 0 1 2", "T1 h 0 1 2 3 4 5", "t1 h 6 7 8 9 10 11"}));
}

void tst_Impaginazione::piedeMaiSolo() {
    const Ingombri i{.primaPagina = 60, .altraPagina = 60, .gruppi = {gruppo(4, 10, 20)}};
    QCOMPARE(descrivi(i), QStringList({"T0 h 0 1 2", "t0 h 3 f"}));
}

void tst_Impaginazione::paginaPerGruppo() {
    const Ingombri i{.primaPagina = 50,
                     .altraPagina = 60,
                     .gruppi = {gruppo(1), gruppo(5), gruppo(2)},
                     .paginaPerGruppo = true};
    QCOMPARE(descrivi(i), QStringList({"T0 h 0", "T1 h 0 1 2", "t1 h 3 4", "T2 h 0 1"}));
    QList<bool> intere;
    for (const Pagina& pagina : impagina(i))
        intere << pagina.testaIntera;
    QCOMPARE(intere, QList<bool>({true, true, false, true}));
}

void tst_Impaginazione::vuoto() {
    QCOMPARE(descrivi(Ingombri{.primaPagina = 50, .altraPagina = 50, .gruppi = {}}), QStringList({""}));
    QCOMPARE(descrivi(Ingombri{.primaPagina = 50, .altraPagina = 50, .gruppi = {gruppo(0, 0)}}),
             QStringList({"h"}));
    // A row no page can hold still stands on one.
    QCOMPARE(descrivi(Ingombri{
                 .primaPagina = 50, .altraPagina = 50, .gruppi = {{.testata = 10, .righe = {90, 10}}}}),
             QStringList({"h 0", "h 1"}));
}

void tst_Impaginazione::coda() {
    const Ingombri i{
        .primaPagina = 50, .altraPagina = 30, .gruppi = {gruppo(3, 0)}, .coda = QList<double>(5, 10.0)};
    QCOMPARE(descrivi(i), QStringList({"h 0 1 2 c", "c c c", "c"}));
}

void tst_Impaginazione::ripartizione_data() {
    QTest::addColumn<QList<double>>("necessarie");
    QTest::addColumn<QList<double>>("quote");
    QTest::addColumn<QList<bool>>("rigide");
    QTest::addColumn<QList<double>>("attese");
    using D = QList<double>;
    using B = QList<bool>;
    QTest::newRow("one needs little, the others share by quota")
        << D{10, 20, 90, 90} << D{1, 3, 2, 1} << B{true, false, false, false} << D{10, 20, 46.6667, 23.3333};
    QTest::newRow("all fit: what is left goes to the soft ones")
        << D{20, 30, 10} << D{1, 1, 1} << B{true, false, false} << D{23, 57.75, 19.25};
    QTest::newRow("only rigid") << D{20, 30} << D{1, 1} << B{true, true} << D{40, 60};
    QTest::newRow("rigid ones alone are too many")
        << D{80, 120, 30} << D{1, 1, 1} << B{true, true, false} << D{40, 60, 0};
    QTest::newRow("an empty column takes nothing") << D{0, 50} << D{0, 1} << B{false, false} << D{0, 100};
    QTest::newRow("no column needs anything") << D{0, 0} << D{0, 0} << B{true, false} << D{0, 0};
}

void tst_Impaginazione::ripartizione() {
    QFETCH(const QList<double>, necessarie);
    QFETCH(const QList<double>, quote);
    QFETCH(const QList<bool>, rigide);
    QFETCH(const QList<double>, attese);
    QList<Larghezza> colonne;
    for (qsizetype i = 0; i < necessarie.size(); ++i)
        colonne << Larghezza{necessarie.at(i), quote.at(i), rigide.at(i)};
    const QList<double> larghezze = ripartisci(colonne, 100);
    QCOMPARE(larghezze.size(), attese.size());
    for (qsizetype i = 0; i < attese.size(); ++i)
        QVERIFY2(qAbs(larghezze.at(i) - attese.at(i)) < 0.001, qPrintable(QString::number(larghezze.at(i))));
}

QTEST_APPLESS_MAIN(tst_Impaginazione)
#include "tst_Impaginazione.moc"

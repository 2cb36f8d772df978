#include "common/Valori.h"

#include <QTest>

class tst_Valori final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tempoInCentesimi();
    void testiDiTempo();
    void differenza();
    void date();
    void numeri();
};

void tst_Valori::tempoInCentesimi() {
    // Masks left empty or half filled, whole times, the hundredths of what is no time of day, other shapes.
    const std::pair<const char*, int> casi[] = {{"", 0},
                                                {"  :  :  :  ", 0},
                                                {" 1: 2:  : 4", 372004},
                                                {"01:02:03:04", 372304},
                                                {"23:59:59:99", 8639999},
                                                {"24:00:00:55", 55},
                                                {"10:60:00:07", 7},
                                                {"10:00:60:07", 7},
                                                {"1:2:3", 372300},
                                                {"1:02:03:04", 4},
                                                {"ab:cd:ef:gh", 0},
                                                {"xx:xx:xx:5x", 5}};
    for (const auto& [testo, atteso] : casi)
        QVERIFY2(TempoInCentesimi(QString(testo)) == atteso, testo);
}

void tst_Valori::testiDiTempo() {
    const std::pair<int, const char*> casi[] = {
        {0, "00:00:00:00"},     {123456, "00:20:34:56"},
        {360000, "1:00:00:00"}, {CentesimiAlGiorno - 1, "23:59:59:99"},
        {-5, "00:00:00:-5"},    {-123, "00:00:00:23"}};
    for (const auto& [centesimi, atteso] : casi)
        QCOMPARE(CentesimiInTempo(centesimi), QString(atteso));
    QCOMPARE(SecondiInTempo(59), QString("00:00:59"));
    QCOMPARE(SecondiInTempo(3661), QString("1:01:01"));
}

void tst_Valori::differenza() {
    // Across midnight, half a day, and just to either side of it.
    const std::array casi{std::array{8639900, 100, 200}, std::array{0, 4320000, 4320000},
                          std::array{0, 4319999, 4319999}, std::array{0, 4320001, 4319999}};
    for (const auto& [a, b, atteso] : casi) {
        QCOMPARE(DifferenzaTempi(a, b), atteso);
        QCOMPARE(DifferenzaTempi(b, a), atteso);
    }
}

void tst_Valori::date() {
    const std::pair<const char*, const char*> casi[] = {{"14/06/2026", "14/06/2026"},
                                                        {"1-6-26", "01/06/2026"},
                                                        {"1.6.2026", "01/06/2026"},
                                                        {"01/01/29", "01/01/2029"},
                                                        {"01/01/30", "01/01/1930"},
                                                        {"29/02/2026", ""},
                                                        {"01/01/926", ""},
                                                        {"2026-06-14", ""},
                                                        {"", ""}};
    for (const auto& [testo, atteso] : casi)
        QVERIFY2(scriviData(leggiData(QString(testo)).value_or(QDate())) == atteso, testo);
}

void tst_Valori::numeri() {
    const std::pair<const char*, double> letti[] = {{"1,5", 1.5}, {"1.5", 1.5}, {",5", 0.5}, {"-3", -3}};
    for (const auto& [testo, atteso] : letti)
        QCOMPARE(leggiNumero(QString(testo)), atteso);
    for (const char* testo : {"1,5,2", "12a", ""})
        QVERIFY2(!leggiNumero(QString(testo)), testo);
    QCOMPARE(valoreNumerico(u"2,5x km"), 2.5);
    QCOMPARE(valoreNumerico(u"km"), 0.0);
    const std::pair<double, const char*> scritti[] = {
        {882, "882"}, {882.5, "882,5"}, {0.1 + 0.2, "0,3"}, {1.705, "1,705"}, {123456789012, "123456789012"},
        {-18, "-18"}, {-0.0, "0"}};
    for (const auto& [numero, atteso] : scritti)
        QCOMPARE(numeroInTesto(numero), QString(atteso));
    QCOMPARE(importoInTesto(1234.56), QString("1.234,56"));
}

QTEST_APPLESS_MAIN(tst_Valori)
#include "tst_Valori.moc"

#include "common/Valori.h"

#include <QTest>

class tst_Valori final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tempoInCentesimi_data();
    void tempoInCentesimi();
    void testiDiTempo();
    void differenza_data();
    void differenza();
    void date_data();
    void date();
    void numeri();
    void numeriInTesto_data();
    void numeriInTesto();
};

void tst_Valori::tempoInCentesimi_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("atteso");
    QTest::newRow("nothing") << "" << 0;
    QTest::newRow("no time") << "00:00:00:00" << 0;
    QTest::newRow("ordinary") << "01:02:03:04" << 372304;
    QTest::newRow("empty mask") << "  :  :  :  " << 0;
    QTest::newRow("half-filled mask") << " 1: 2:  : 4" << 372004;
    QTest::newRow("imposed") << "00:01:30:00" << 9000;
    QTest::newRow("day's end") << "24:00:00:00" << 0;
    QTest::newRow("day's end and hundredths") << "24:00:00:55" << 55;
    QTest::newRow("impossible") << "99:99:99:12" << 12;
    QTest::newRow("60 minutes") << "10:60:00:07" << 7;
    QTest::newRow("60 seconds") << "10:00:60:07" << 7;
    QTest::newRow("last instant") << "23:59:59:99" << 8639999;
    QTest::newRow("one-digit groups") << "1:2:3" << 372300;
    QTest::newRow("display form is no input") << "1:02:03:04" << 4;
    QTest::newRow("letters") << "ab:cd:ef:gh" << 0;
    QTest::newRow("number first") << "xx:xx:xx:5x" << 5;
}

void tst_Valori::tempoInCentesimi() {
    QFETCH(QString, testo);
    QTEST(TempoInCentesimi(testo), "atteso");
}

void tst_Valori::testiDiTempo() {
    QCOMPARE(CentesimiInTempo(0), QStringLiteral("00:00:00:00"));
    QCOMPARE(CentesimiInTempo(99), QStringLiteral("00:00:00:99"));
    QCOMPARE(CentesimiInTempo(123456), QStringLiteral("00:20:34:56"));
    QCOMPARE(CentesimiInTempo(360000), QStringLiteral("1:00:00:00"));
    QCOMPARE(CentesimiInTempo(CentesimiAlGiorno - 1), QStringLiteral("23:59:59:99"));
    QCOMPARE(CentesimiInTempo(-5), QStringLiteral("00:00:00:-5"));
    QCOMPARE(CentesimiInTempo(-123), QStringLiteral("00:00:00:23"));
    QCOMPARE(SecondiInTempo(0), QStringLiteral("00:00:00"));
    QCOMPARE(SecondiInTempo(59), QStringLiteral("00:00:59"));
    QCOMPARE(SecondiInTempo(3661), QStringLiteral("1:01:01"));
    QCOMPARE(SecondiInTempo(36000), QStringLiteral("10:00:00"));
}

void tst_Valori::differenza_data() {
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<int>("atteso");
    QTest::newRow("same") << 5 << 5 << 0;
    QTest::newRow("across midnight") << TempoInCentesimi(u"23:59:59:00") << TempoInCentesimi(u"00:00:01:00")
                                     << 200;
    QTest::newRow("half a day") << 0 << 4320000 << 4320000;
    QTest::newRow("just under half a day") << 0 << 4319999 << 4319999;
    QTest::newRow("just over half a day") << 0 << 4320001 << 4319999;
}

void tst_Valori::differenza() {
    QFETCH(int, a);
    QFETCH(int, b);
    QTEST(DifferenzaTempi(a, b), "atteso");
    QTEST(DifferenzaTempi(b, a), "atteso");
}

void tst_Valori::date_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QString>("atteso");
    QTest::newRow("full") << "14/06/2026"
                          << "14/06/2026";
    QTest::newRow("short, dashes") << "1-6-26"
                                   << "01/06/2026";
    QTest::newRow("points") << "1.6.2026"
                            << "01/06/2026";
    QTest::newRow("year 29") << "01/01/29"
                             << "01/01/2029";
    QTest::newRow("year 30") << "01/01/30"
                             << "01/01/1930";
    QTest::newRow("leap day") << "29/02/2024"
                              << "29/02/2024";
    QTest::newRow("no leap day") << "29/02/2026"
                                 << "";
    QTest::newRow("month 13") << "01/13/2026"
                              << "";
    QTest::newRow("year of three digits") << "01/01/926"
                                          << "";
    QTest::newRow("ISO is not typed here") << "2026-06-14"
                                           << "";
    QTest::newRow("words") << "oggi"
                           << "";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_Valori::date() {
    QFETCH(QString, testo);
    QTEST(scriviData(leggiData(testo).value_or(QDate())), "atteso");
}

void tst_Valori::numeri() {
    QCOMPARE(leggiNumero(QStringLiteral("1,5")), 1.5);
    QCOMPARE(leggiNumero(QStringLiteral("1.5")), 1.5);
    QCOMPARE(leggiNumero(QStringLiteral(",5")), 0.5);
    QCOMPARE(leggiNumero(QStringLiteral("-3")), -3.0);
    QVERIFY(!leggiNumero(QStringLiteral("1,5,2")));
    QVERIFY(!leggiNumero(QStringLiteral("12a")));
    QVERIFY(!leggiNumero(QString()));
    QCOMPARE(valoreNumerico(u"12 km"), 12.0);
    QCOMPARE(valoreNumerico(u"2,5x"), 2.5);
    QCOMPARE(valoreNumerico(u"km"), 0.0);
}

void tst_Valori::numeriInTesto_data() {
    QTest::addColumn<double>("valore");
    QTest::addColumn<QString>("atteso");
    QTest::newRow("whole") << 882.0 << "882";
    QTest::newRow("decimals") << 882.5 << "882,5";
    QTest::newRow("binary dust is gone") << 0.1 + 0.2 << "0,3";
    QTest::newRow("coefficient") << 1.705 << "1,705";
    QTest::newRow("excluded") << 999999999.0 << "999999999";
    QTest::newRow("large") << 123456789012.0 << "123456789012";
    QTest::newRow("small") << 0.001 << "0,001";
    QTest::newRow("negative") << -18.0 << "-18";
    QTest::newRow("zero") << 0.0 << "0";
    QTest::newRow("minus zero") << -0.0 << "0";
}

void tst_Valori::numeriInTesto() {
    QFETCH(double, valore);
    QTEST(numeroInTesto(valore), "atteso");
    QCOMPARE(importoInTesto(1234.56), QStringLiteral("1.234,56"));
}

QTEST_APPLESS_MAIN(tst_Valori)
#include "tst_Valori.moc"

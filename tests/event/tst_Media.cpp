#include "event/Media.h"

#include <QTest>

class tst_Media final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void calcoli_data();
    void calcoli();
};

void tst_Media::calcoli_data() {
    QTest::addColumn<QString>("quale");
    QTest::addColumn<QString>("primo");
    QTest::addColumn<QString>("secondo");
    QTest::addColumn<QString>("atteso");  // empty: no result
    QTest::newRow("distance") << "s"
                              << "00:12:00"
                              << "50"
                              << "10";
    QTest::newRow("distance, decimals") << "s"
                                        << "00:10:00"
                                        << "38,4"
                                        << "6,4";
    QTest::newRow("distance, no time") << "s"
                                       << ""
                                       << "50"
                                       << "";
    QTest::newRow("distance, no valid time") << "s"
                                             << "00:61:00"
                                             << "50"
                                             << "";
    QTest::newRow("distance, no speed") << "s"
                                        << "00:12:00"
                                        << ""
                                        << "";
    QTest::newRow("distance, speed 0") << "s"
                                       << "00:12:00"
                                       << "0"
                                       << "0";
    QTest::newRow("time") << "t"
                          << "10"
                          << "50"
                          << "00:12:00";
    QTest::newRow("time, whole seconds") << "t"
                                         << "7,35"
                                         << "42"
                                         << "00:10:30";
    QTest::newRow("time, hours") << "t"
                                 << "61"
                                 << "60"
                                 << "1:01:00";
    QTest::newRow("time, speed 0") << "t"
                                   << "10"
                                   << "0"
                                   << "";
    QTest::newRow("time, no distance") << "t"
                                       << ","
                                       << "50"
                                       << "";
    QTest::newRow("time, too long for its field") << "t"
                                                  << "100"
                                                  << "1"
                                                  << "";
    QTest::newRow("speed") << "v"
                           << "00:12:00"
                           << "10"
                           << "50";
    QTest::newRow("speed, time 0") << "v"
                                   << "00:00:00"
                                   << "10"
                                   << "";
    QTest::newRow("speed, no distance") << "v"
                                        << "00:12:00"
                                        << ""
                                        << "";
}

void tst_Media::calcoli() {
    QFETCH(QString, quale);
    QFETCH(QString, primo);
    QFETCH(QString, secondo);
    const std::optional<QString> risultato = quale == "s"   ? calcolaDistanza(primo, secondo)
                                             : quale == "t" ? calcolaTempo(primo, secondo)
                                                            : calcolaVelocita(primo, secondo);
    QTEST(risultato.value_or(QString("")), "atteso");
}

QTEST_GUILESS_MAIN(tst_Media)
#include "tst_Media.moc"

#include "archive/ErroreArchivio.h"
#include "supporto/PorteDiProva.h"
#include "timing/Frame.h"
#include "timing/Scarico.h"
#include "timing/Tabellone.h"

#include <QTest>

class tst_Protocolli final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sommaDiControllo();
    void frameDelCP540_data();
    void frameDelCP540();
    void manche_data();
    void manche();
    void tabellone_data();
    void tabellone();
    void testiDelTabellone();
    void portaDelTabellone();
    void diluvio();
};

void tst_Protocolli::sommaDiControllo() {
    QCOMPARE(SommaControlloTAG("AK C\t"), "00EF");
    QCOMPARE(SommaControlloTAG("AK F\t"), "00F2");
    QCOMPARE(SommaControlloTAG("DE 07\t"), "0110");
    // The last character is left out whatever it is; no character gives no sum.
    QCOMPARE(SommaControlloTAG("AK CX"), "00EF");
    QCOMPARE(SommaControlloTAG("x"), "0000");
    QCOMPARE(SommaControlloTAG(""), "0000");
    // Codes above 127 count as such: 128 times 255 is 7F80, the next one is too much.
    const QByteArray grande(128, '\xff');
    QCOMPARE(SommaControlloTAG(grande + '\t'), "7F80");
    QVERIFY_EXCEPTION_THROWN(SommaControlloTAG(grande + "\xff\t"), Errore);
}

void tst_Protocolli::frameDelCP540_data() {
    QTest::addColumn<QString>("manche");
    QTest::addColumn<QByteArray>("comando");
    QTest::addColumn<QByteArray>("fine");
    QTest::newRow("one digit") << "7" << QByteArray("#DL_7\t\r\n") << QByteArray("DE 07\t0110\r\n");
    QTest::newRow("two digits") << "42" << QByteArray("#DL_42\t\r\n") << QByteArray("DE 42\t010F\r\n");
    QTest::newRow("typed with zeros")
        << "007" << QByteArray("#DL_007\t\r\n") << QByteArray("DE 07\t0110\r\n");
}

void tst_Protocolli::frameDelCP540() {
    QFETCH(QString, manche);
    QTEST(comandoScarica(manche), "comando");
    QTEST(frameFine(manche), "fine");
    QCOMPARE(comandoIdentifica(), "#ID\t\r\n");
    QCOMPARE(frameAccettato(), "AK C\t00EF\r\n");
    QCOMPARE(frameRifiutato(), "AK F\t00F2\r\n");
}

void tst_Protocolli::manche_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QString>("letta");  // Null: not accepted
    QTest::newRow("first") << "1"
                           << "1";
    QTest::newRow("last") << "99"
                          << "99";
    QTest::newRow("as typed") << "07"
                              << "07";
    QTest::newRow("blanks around") << " 7 "
                                   << "7";
    for (const char* errata : {"", " ", "0", "00", "100", "-1", "+1", "7,5", "7.5", "1e1", "sette", "7 7",
                               "99999999999999999999", "٧"})
        QTest::newRow(errata) << QString::fromUtf8(errata) << QString();
}

void tst_Protocolli::manche() {
    QFETCH(QString, testo);
    const std::optional<QString> letta = leggiManche(testo);
    QTEST(letta.value_or(QString()), "letta");
}

void tst_Protocolli::tabellone_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QByteArray>("posizioni");
    QTest::newRow("nothing") << "" << QByteArray("      ");
    QTest::newRow("point inside") << "1.23"
                                  << QByteArray(
                                         "\xb1"
                                         "23   ");
    QTest::newRow("comma inside") << "1,23"
                                  << QByteArray(
                                         "\xb1"
                                         "23   ");
    QTest::newRow("two points") << "1..2" << QByteArray("\xb1.2   ");
    QTest::newRow("point, comma, point") << ".,." << QByteArray("...   ");
    QTest::newRow("point on the sixth") << "ERRORE." << QByteArray("Err0r\xc5");
    QTest::newRow("point past the sixth") << "ERRORE3." << QByteArray("Err0rE");
    QTest::newRow("point on a blank") << " .1"
                                      << QByteArray(
                                             "\xa0"
                                             "1    ");
    QTest::newRow("point on a character without code") << "K.1"
                                                       << QByteArray(
                                                              "\xa0"
                                                              "1    ");
    QTest::newRow("seven with a point") << "1234.56"
                                        << QByteArray(
                                               "123\xb4"
                                               "56");
    QTest::newRow("beyond the sixth") << "12345678" << QByteArray("123456");
    QTest::newRow("clock") << "12:34:56" << QByteArray("12 34 ");
    QTest::newRow("digits and signs") << "09'-8" << QByteArray("09'-8 ");
    QTest::newRow("shared codes") << "bosz" << QByteArray("8052  ");
    QTest::newRow("lower case codes") << "DR" << QByteArray("dr    ");
    QTest::newRow("own codes") << "ACEFHI" << QByteArray("ACEFHI");
    QTest::newRow("own codes, rest") << "lnpu" << QByteArray("LNPU  ");
    QTest::newRow("without code") << "GJKMQT" << QByteArray("      ");
    QTest::newRow("without code, rest") << "vwxyè\t" << QByteArray("      ");
}

void tst_Protocolli::tabellone() {
    QFETCH(QString, testo);
    QFETCH(QByteArray, posizioni);
    QCOMPARE(frameTabellone(testo), "\x02\x11" + posizioni + '\x03');
    QCOMPARE(frameTabellone(testo).size(), 9);
}

void tst_Protocolli::testiDelTabellone() {
    QCOMPARE(tabellonePronto(7), "PAR  7");
    QCOMPARE(tabellonePronto(1234), "PAR1234");
    QCOMPARE(tabellonePartito(12), "IN  12");
    QCOMPARE(tabellonePenalita("74"), "P   74");
    QCOMPARE(tabellonePenalita("1234,567"), "P1234,567");
    QCOMPARE(tabelloneParziale(6234, "CEN"), "  62.34");
    QCOMPARE(tabelloneParziale(5, "CEN"), "   0.05");
    QCOMPARE(tabelloneParziale(6230, "DEC"), "   62.3");
    QCOMPARE(tabelloneParziale(6299, "SEC"), "     62");
    QCOMPARE(tabelloneParziale(6234, "MIN"), "       ");
    // What the spectators see of them.
    QCOMPARE(frameTabellone(tabelloneParziale(6234, "CEN")),
             "\x02\x11  6\xb2"
             "34\x03");
    QCOMPARE(frameTabellone(tabelloneParziale(6299, "SEC")), "\x02\x11     6\x03");
    QCOMPARE(frameTabellone(TabelloneErrore),
             "\x02\x11"
             "Err0rE\x03");
}

void tst_Protocolli::portaDelTabellone() {
    FabbricaDiProva fabbrica;
    const std::unique_ptr<Porta> porta = FabbricaPorte::corrente().crea(Linea::Tabellone);
    PortaDiProva& prova = *fabbrica.ultima();
    QVERIFY(InviaTabellone(*porta, u"IN  12"));
    QVERIFY(AzzeraTabellone(*porta));
    QVERIFY(!porta->aperta());
    QCOMPARE(prova.aperture, 2);
    QCOMPARE(prova.scritti, "\x02\x11IN  12\x03\x02\x11      \x03");

    QVERIFY(porta->apri());
    QVERIFY(InviaTabellone(*porta, u"1"));
    QVERIFY(porta->aperta());
    QCOMPARE(prova.aperture, 3);

    porta->chiudi();
    prova.guastoInApertura = {13, "Porta Inesistente"};
    QVERIFY(!InviaTabellone(*porta, u"1"));
    QCOMPARE(porta->guasto().testo(), "Errore n. : 13 - Porta Inesistente");
}

// A burst must neither be kept nor make the decoders slow.
void tst_Protocolli::diluvio() {
    for (const Dispositivo dispositivo : {Dispositivo::CP520, Dispositivo::CP540}) {
        RicevitoreFrame ricevitore(dispositivo);
        const QByteArray diluvio(1 << 20, 'T');
        QVERIFY(ricevitore.aggiungi(diluvio).isEmpty());
        QCOMPARE(ricevitore.inAttesa(), diluvio.size());
        ricevitore.svuota();
        QCOMPARE(ricevitore.inAttesa(), 0);
        QVERIFY(leggiRecord(dispositivo, diluvio).isEmpty());
        QCOMPARE(leggiRecord(dispositivo, QByteArray(1 << 20, '\r')).size(), 0);
    }
}

QTEST_APPLESS_MAIN(tst_Protocolli)
#include "tst_Protocolli.moc"

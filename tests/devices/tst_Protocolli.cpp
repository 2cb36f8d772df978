#include "archive/ErroreArchivio.h"
#include "devices/Frame.h"
#include "devices/Scaricamento.h"
#include "devices/Scarico.h"
#include "devices/Tabellone.h"
#include "supporto/PorteDiProva.h"

#include <QTest>

class tst_Protocolli final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sommaDiControllo();
    void manche();
    void tabellone();
    void nonSiRiapre();
    void gestoreCheFerma();
    void attesaPrecisa();
};

void tst_Protocolli::sommaDiControllo() {
    QCOMPARE(SommaControlloTAG("AK C\t"), "00EF");
    // The last character is left out whatever it is; no character gives no sum.
    QCOMPARE(SommaControlloTAG("AK CX"), "00EF");
    QCOMPARE(SommaControlloTAG("x"), "0000");
    QCOMPARE(SommaControlloTAG(""), "0000");
    // Codes above 127 count as such: 128 times 255 is 7F80, the next one is too much.
    const QByteArray grande(128, '\xff');
    QCOMPARE(SommaControlloTAG(grande + '\t'), "7F80");
    QVERIFY_EXCEPTION_THROWN(SommaControlloTAG(grande + "\xff\t"), Errore);
}

void tst_Protocolli::manche() {
    for (const auto& [scritta, letta] : {std::pair{"1", "1"}, {"99", "99"}, {"07", "07"}, {" 7 ", " 7 "}})
        QCOMPARE(leggiManche(scritta), QString(letta));
    for (const char* errata :
         {"", " ", "00", "100", "-1", "+1", "7,5", "1e1", "sette", "7 7", "7\t", "99999999999999999999", "٧"})
        QVERIFY2(!leggiManche(errata), errata);
}

void tst_Protocolli::tabellone() {
    // "^" marks a position with its point.
    const std::pair<QString, const char*> casi[] = {
        {"", "      "},
        // Points: inside, two, at the sixth position and past it, on a blank.
        {"1.23", "^123   "},
        {".,.", "...   "},
        {"ERRORE3.", "Err0rE"},
        {" .1", "^ 1    "},
        {"1234.56", "123^456"},
        // Shared, lower case and own codes, and what has none.
        {"12:34:56", "12 34 "},
        {"ACEFHI", "ACEFHI"},
        {"lnpu", "LNPU  "},
        {"GJKMQT", "      "},
        {"vwxyè\t", "      "},
        {tabellonePronto(1234), "PAr123"},
        {tabellonePartito(12), "IN  12"},
        {tabellonePenalita("1234,567"), "P123^45"},
        {tabelloneParziale(6234, "CEN"), "  6^234"},
        {tabelloneParziale(5, "CEN"), "   ^005"},
        {tabelloneParziale(6234, "MIN"), "      "}};
    for (const auto& [testo, posizioni] : casi) {
        QByteArray codici = "\x02\x11";
        for (const char c : QByteArray(posizioni)) {
            if (codici.endsWith('^'))
                codici.back() = static_cast<char>(c | 0x80);
            else
                codici += c;
        }
        QCOMPARE(frameTabellone(testo), codici + '\x03');
    }
}

// The line goes away while the operator types the heat.
void tst_Protocolli::nonSiRiapre() {
    FabbricaDiProva fabbrica;
    Scaricamento scaricamento;
    PortaDiProva& porta = *fabbrica.ultima();
    int guasti = 0;
    connect(&scaricamento, &Scaricamento::guasta, this, [&] { ++guasti; });
    QVERIFY(scaricamento.inizia(Dispositivo::CP540, 1));
    porta.arriva(frameAccettato());
    porta.guastoInApertura = {9, "Porta Scollegata"};
    scaricamento.manche("7");
    QCOMPARE(guasti, 1);
    QCOMPARE(scaricamento.guasto().testo(), "Errore n. : 9 - Porta Scollegata");
    QCOMPARE(scaricamento.stato(), Conversazione::Stato::Ferma);
    porta.guastoInApertura = {};
    QVERIFY(scaricamento.inizia(Dispositivo::CP540, 1));
}

// A window that stops, or is deleted, from within a signal hears nothing more of the same arrival.
void tst_Protocolli::gestoreCheFerma() {
    FabbricaDiProva fabbrica;
    auto scaricamento = std::make_unique<Scaricamento>();
    int finiti = 0;
    connect(scaricamento.get(), &Scaricamento::datiInArrivo, this, [&] { scaricamento->ferma(); });
    connect(scaricamento.get(), &Scaricamento::finito, this, [&] { ++finiti; });
    QVERIFY(scaricamento->inizia(Dispositivo::CP540, 1));
    fabbrica.ultima()->arriva(frameAccettato());
    scaricamento->manche("7");
    fabbrica.ultima()->arriva(frameAccettato() + "H1\r\nH2\r\n" + frameFine("7"));
    QCOMPARE(finiti, 0);
    QCOMPARE(scaricamento->stato(), Conversazione::Stato::Ferma);
}

// Three seconds are three seconds, and what has come by then, though nobody has told it yet, is not lost.
void tst_Protocolli::attesaPrecisa() {
    AtteseLinea.silenzioCP520 = 20;
    FabbricaDiProva fabbrica;
    Scaricamento scaricamento;
    QByteArray flusso;
    connect(&scaricamento, &Scaricamento::finito, this, [&](const QByteArray& dati) { flusso = dati; });
    QVERIFY(scaricamento.inizia(Dispositivo::CP520, 1));
    fabbrica.ultima()->arriva("in time,");
    QCOMPARE(scaricamento.findChild<QTimer*>()->timerType(), Qt::PreciseTimer);
    fabbrica.ultima()->blockSignals(true);
    fabbrica.ultima()->arriva(" and at the last moment");
    QTRY_COMPARE(flusso, "in time, and at the last moment");
    AtteseLinea = {};
}

QTEST_GUILESS_MAIN(tst_Protocolli)
#include "tst_Protocolli.moc"

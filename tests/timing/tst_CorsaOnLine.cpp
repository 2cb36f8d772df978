#include "simulatori/SimulatoreTag.h"
#include "supporto/ProgrammaDiProva.h"
#include "timing/CorsaOnLine.h"

#include <QTest>

class tst_CorsaOnLine final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tabella_data();
    void tabella();
    void letture();
};

namespace {

FrameOnLine frame(Dispositivo dispositivo, const QString& testo) {
    if (testo == "start")
        return {TipoFrame::Partenza, SimulatoreTag::framePartenza(dispositivo)};
    QByteArray record = SimulatoreTag::frameTempo(dispositivo, testo.toInt());
    if (testo == "bad")
        record.replace(':', '?').replace('0', 'x');
    return {TipoFrame::Tempo, record};
}

QString descrivi(const CorsaOnLine::Passo& passo) {
    static constexpr const char* Nomi[] = {"start", "time", "last", "reset", "again", "bad", "-"};
    QString testo = Nomi[static_cast<int>(passo.evento)];
    if (passo.evento == CorsaOnLine::Evento::Tempo || passo.evento == CorsaOnLine::Evento::UltimoTempo)
        testo += QStringLiteral(" %1 %2 %3").arg(passo.ricevuti).arg(passo.tempo).arg(passo.parziale);
    return testo;
}

}  // namespace

void tst_CorsaOnLine::tabella_data() {
    QTest::addColumn<int>("catena");
    QTest::addColumn<QString>("frame");
    QTest::addColumn<QString>("passi");
    const auto riga = [](const char* titolo, int catena, const char* frame, const char* passi) {
        QTest::newRow(titolo) << catena << frame << passi;
    };
    riga("one test", 1, "start 6234", "start, last 1 00:01:02:34 6234");
    riga("chain of three", 3, "start 6234 12300 18001 start",
         "start, time 1 00:01:02:34 6234, time 2 00:02:03:00 6066, last 3 00:03:00:01 5701, -");
    riga("time before any start", 2, "6234 start", "reset, -");
    riga("start during a run", 2, "start 6234 start 12300", "start, time 1 00:01:02:34 6234, again, -");
    riga("start twice at once", 1, "start start 6234", "start, again, -");
    riga("largest that passes", 1, "start 32767", "start, last 1 00:05:27:67 32767");
    riga("one more", 1, "start 32768 6234", "start, bad, -");
    riga("no number, half way", 3, "start 6234 bad 12300", "start, time 1 00:01:02:34 6234, bad, -");
}

void tst_CorsaOnLine::tabella() {
    QFETCH(int, catena);
    QFETCH(QString, frame);
    QFETCH(QString, passi);
    for (const Dispositivo dispositivo : {Dispositivo::CP520, Dispositivo::CP540}) {
        CorsaOnLine corsa(dispositivo, catena, [](const QString& tempo) { return tempo; });
        QStringList avuti;
        for (const QString& parola : frame.split(' '))
            avuti << descrivi(corsa.ricevi(::frame(dispositivo, parola)));
        QCOMPARE(avuti.join(", "), passi);
    }
    // The cut comes before the partial: to the second, 1:02.99 and 2:03.01 are 61 seconds apart.
    CorsaOnLine alSecondo(Dispositivo::CP540, 2, [](const QString& tempo) { return tempo.left(9) + "00"; });
    alSecondo.ricevi(::frame(Dispositivo::CP540, "start"));
    alSecondo.ricevi(::frame(Dispositivo::CP540, "6299"));
    QCOMPARE(descrivi(alSecondo.ricevi(::frame(Dispositivo::CP540, "12301"))), "last 2 00:02:03:00 6100");
}

void tst_CorsaOnLine::letture() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const int prima = nuovaProva();
    const int seconda = nuovaProva({{"ConA", prima}});
    const int equ = nuovoEquipaggio(1);
    const int altro = nuovoEquipaggio(2);
    scriviRilevamento(equ, prima, "09:00:00:00", "09:01:00:00", 5);
    scriviPartenza(equ, prima);
    scriviArrivo(equ, prima, seconda, "00:01:02:34");
    scriviArrivo(equ, seconda, 0, "00:02:03:00");
    QCOMPARE(
        contaRighe("Rilevamenti", QStringLiteral("IDEqu_FK=%1 AND IDPro_FK=%2 AND TPar='00:00:00:00' AND "
                                                 "TArr='00:01:02:34' AND PenAgg=5")
                                      .arg(equ)
                                      .arg(prima)),
        1);
    QCOMPARE(
        contaRighe("Rilevamenti", QStringLiteral("IDEqu_FK=%1 AND IDPro_FK=%2 AND TPar='00:01:02:34' AND "
                                                 "TArr='00:02:03:00'")
                                      .arg(equ)
                                      .arg(seconda)),
        1);
    QCOMPARE(contaRighe("Rilevamenti", QStringLiteral("IDEqu_FK=%1 AND TPar='' AND TArr=''").arg(altro)), 2);
}

QTEST_GUILESS_MAIN(tst_CorsaOnLine)
#include "tst_CorsaOnLine.moc"

#include "scoring/Calcolo.h"
#include "scoring/Penalita.h"
#include "scoring/TagliaTempo.h"
#include "supporto/ProgrammaDiProva.h"

#include <array>
#include <QTest>

#include "archive/ErroreArchivio.h"

namespace {

const QVariant Null;

void attendiErrore(ProgrammaDiProva& programma, int num) {
    programma.dialoghi.attendiMessaggio(
        "Attenzione: Errore nelle Penalità",
        QStringLiteral(
            "Errore Nel Calcolo delle Penalità.\nControllare i Tempi Inseriti dell'Equipaggio n. %1 - "
            "ROSSI BIANCHI")
            .arg(num),
        Icona::Stop);
}

}  // namespace

class tst_Penalita final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void prova_data();
    void prova();
    void provaNonCatturaNulla();
    void coefficiente_data();
    void coefficiente();
    void totale();
    void sommePerGiornoESvolte();
    void traboccoAlCentesimo();
    void rigaMancante();
    void gruppoSparito();
    void scarto();
    void media_data();
    void media();
    void mediaDalleProveSvolte();
    void taglia_data();
    void taglia();
    void precisioni();
    void completi();
    void nienteTenutoDaParte();
};

void tst_Penalita::prova_data() {
    QTest::addColumn<QVariantMap>("manifestazione");
    QTest::addColumn<QString>("tip");
    QTest::addColumn<QString>("tem");
    QTest::addColumn<QString>("tPar");
    QTest::addColumn<QString>("tArr");
    QTest::addColumn<double>("senza");  // without the added penalty
    QTest::addColumn<QString>("omo");
    using M = QVariantMap;
    const QString asi("A1");
    const M nessuna;
    const M separati{{"ASIeNONASI", 1},    {"PrePANoASI", "SEC"}, {"PenUniPANoASI", 10}, {"PenMaxNoASI", 5},
                     {"PenUniPMNoASI", 7}, {"PrePMNoASI", "DEC"}, {"PenMaxAtt", 1},      {"PenMax", 50}};

    const auto riga = [](const char* nome, const M& m, const char* tip, const char* tem, const char* tPar,
                         const char* tArr, double senza, const QString& omo) {
        QTest::newRow(nome) << m << tip << tem << tPar << tArr << senza << omo;
    };
    riga("PA hundredths", nessuna, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 74, asi);
    riga("PM seconds", nessuna, "PM", "00:30:00", "09:00:05:00", "09:30:07:00", 4, asi);
    riga("CO minutes across midnight", nessuna, "CO", "00:20:00", "23:50:00:00", "00:12:00:00", 120, asi);
    riga("PA tenths", M{{"PrePA", "DEC"}, {"PenUniPA", 3}}, "PA", "00:02:30", "11:00:00:40", "11:02:29:70",
         21, asi);
    riga("seconds are not rounded", M{{"PrePA", "SEC"}}, "PA", "00:00:10", "10:00:00:00", "10:00:11:50", 1.5,
         asi);
    riga("early costs as late", nessuna, "PA", "00:01:00", "10:00:00:00", "10:00:59:26", 74, asi);
    riga("swapped readings", nessuna, "PA", "00:01:00", "10:16:21:08", "10:15:20:34", 74, asi);
    riga("short way over midnight", nessuna, "PA", "00:00:10", "23:59:50:00", "00:00:10:00", 1000, asi);
    riga("twelve hours apart", nessuna, "PA", "00:00:00", "00:00:00:00", "12:00:00:00", 4320000, asi);
    riga("start missing", nessuna, "PA", "00:01:00", "", "10:00:30:00", 3597000, asi);
    riga("arrival missing, folded", nessuna, "PA", "00:01:00", "20:00:00:00", "", 1440000 - 6000, asi);
    riga("both missing", nessuna, "PA", "00:01:00", "", "", 6000, asi);
    riga("00:00:00:00 is a reading", M{{"PenProNonSvo", 1}, {"NumPenProNonSvo", 5000}}, "PA", "00:01:00",
         "00:00:00:00", "00:01:00:00", 0, asi);
    const M fissa{{"PenProNonSvo", 1}, {"NumPenProNonSvo", 5000}, {"PenMaxAtt", 1}, {"PenMax", 100}};
    riga("fixed stands above the cap", fissa, "PA", "00:01:00", "", "10:00:00:00", 5000, asi);
    riga("fixed for every kind", fissa, "CO", "00:01:00", "10:00:00:00", "", 5000, asi);
    riga("fixed Null counts 0", M{{"PenProNonSvo", 1}}, "PA", "00:01:00", "", "", 0, asi);
    const M tetto{{"PenMaxAtt", 1}, {"PenMax", 74}};
    riga("equal to the cap", tetto, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 74, asi);
    riga("above the cap", tetto, "PA", "00:01:00", "10:15:20:34", "10:16:21:09", 74, asi);
    riga("cap switched off", M{{"PenMaxAtt", 0}, {"PenMax", 10}}, "PA", "00:01:00", "10:15:20:34",
         "10:16:21:08", 74, asi);
    riga("cap Null counts 0", M{{"PenMaxAtt", 1}}, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 0, asi);
    riga("NON ASI own precision and cap", separati, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 5, "  ");
    riga("NON ASI tenths, own unit, own cap", separati, "PM", "00:01:00", "10:00:00:00", "10:01:00:05", 3.5,
         "");
    riga("ASI keeps its own", separati, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 50, asi);
    M uniti = separati;
    uniti["ASIeNONASI"] = 0;
    riga("classes not told apart", uniti, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 50, "");
    riga("unknown kind", nessuna, "XX", "00:01:00", "10:00:00:00", "10:05:00:00", 0, asi);
    riga("unknown precision", M{{"PrePA", "ORE"}}, "PA", "00:01:00", "10:00:00:00", "10:05:00:00", 0, asi);
    riga("settings Null", M{{"PrePA", Null}, {"PenUniPA", Null}}, "PA", "00:01:00", "10:00:00:00",
         "10:05:00:00", 0, asi);
    riga("a text that is no time", nessuna, "PA", "00:01:00", "99:99:99:12", "00:01:00:12", 0 + 0, asi);
}

void tst_Penalita::prova() {
    QFETCH(QVariantMap, manifestazione);
    QFETCH(QString, tip);
    QFETCH(QString, tem);
    QFETCH(QString, tPar);
    QFETCH(QString, tArr);
    QFETCH(double, senza);
    QFETCH(QString, omo);
    ProgrammaDiProva programma;
    nuovaManifestazione(manifestazione);
    const int pro = nuovaProva({{"Tip", tip}, {"Tem", tem}});
    const int equ = nuovoEquipaggio(7, {{"Omo", omo}});
    scriviRilevamento(equ, pro, tPar, tArr, -12.5);
    QCOMPARE(PenalitaProva(7, pro, true), senza);
    QCOMPARE(PenalitaProva(7, pro, false), senza - 12.5);  // outside the cap, negative as any other
    QCOMPARE(PenalitaTempi(7, QString(), true), senza);
    QCOMPARE(PenalitaAggiunte(7, QString(), true), -12.5);
}

void tst_Penalita::provaNonCatturaNulla() {
    ProgrammaDiProva programma;
    nuovaManifestazione({{"PenProNonSvo", 1}, {"NumPenProNonSvo", 300}});
    const int pro = nuovaProva();
    const int equ = nuovoEquipaggio(1);
    QVERIFY_EXCEPTION_THROWN(PenalitaProva(99, pro, true), Errore);
    QVERIFY_EXCEPTION_THROWN(PenalitaProva(1, 99, true), Errore);
    QVERIFY_EXCEPTION_THROWN(ScartoProva(99, pro), Errore);
    esegui("DELETE FROM Rilevamenti WHERE IDEqu_FK=?", {equ});
    QCOMPARE(PenalitaProva(1, pro, true), 300.0);
    QVERIFY_EXCEPTION_THROWN(PenalitaProva(1, pro, false), Errore);
}

void tst_Penalita::coefficiente_data() {
    QTest::addColumn<bool>("fatAnn");
    QTest::addColumn<bool>("fatNoASI");
    QTest::addColumn<bool>("asi");
    QTest::addColumn<QVariant>("anno");
    QTest::addColumn<QVariant>("fattore");  // invalid: no group
    QTest::addColumn<double>("atteso");
    const QVariant senza;
    QTest::newRow("year, fixed, ASI") << true << true << true << QVariant(1955) << senza << 1.55;
    QTest::newRow("year, fixed, NON ASI") << true << true << false << QVariant(1955) << senza << 3.0;
    QTest::newRow("year, NON ASI") << true << false << false << QVariant(1975) << senza << 1.75;
    QTest::newRow("fixed, NON ASI") << false << true << false << QVariant(1955) << senza << 3.0;
    QTest::newRow("fixed, ASI, group") << false << true << true << QVariant(1955) << QVariant(1.1) << 1.1;
    QTest::newRow("neither") << false << false << false << QVariant(1955) << senza << 1.0;
    QTest::newRow("1900") << true << false << true << QVariant(1900) << senza << 1.0;
    QTest::newRow("year Null") << true << false << true << QVariant() << senza << -18.0;
    QTest::newRow("year and group") << true << false << true << QVariant(1955) << QVariant(1.1) << 1.55 * 1.1;
    QTest::newRow("group factor 0") << true << false << true << QVariant(1955) << QVariant(0.0) << 1.55;
}

void tst_Penalita::coefficiente() {
    QFETCH(bool, fatAnn);
    QFETCH(bool, fatNoASI);
    QFETCH(bool, asi);
    QFETCH(QVariant, anno);
    QFETCH(QVariant, fattore);
    ProgrammaDiProva programma;
    const int man =
        nuovaManifestazione({{"FatAnn", int(fatAnn)}, {"FatNoASI", int(fatNoASI)}, {"NumFatNoASI", 3}});
    int gruppo = 0;
    if (fattore.isValid())
        gruppo = inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}, {"Fat", fattore}});
    nuovoEquipaggio(1, {{"Omo", asi ? "A1" : "   "}, {"Ann", anno}, {"IDGru_FK", gruppo}});
    QTEST(CoefficienteEquipaggio(1), "atteso");
}

void tst_Penalita::totale() {
    ProgrammaDiProva programma;
    const int man = nuovaManifestazione({{"FatAnn", 1}, {"PenMaxAtt", 1}, {"PenMax", 300}});
    const int gruppo = inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}, {"Fat", 1.1}});
    const int prima = nuovaProva();
    const int seconda = nuovaProva();
    const int equ = nuovoEquipaggio(9, {{"IDGru_FK", gruppo}});
    scriviRilevamento(equ, prima, "10:00:00:00", "10:01:02:00", 10);    // 200
    scriviRilevamento(equ, seconda, "10:00:00:00", "10:09:00:00", 20);  // capped to 300
    QCOMPARE(PenalitaTempi(9, QString(), true), 500.0);
    QCOMPARE(PenalitaTotale(9, QString(), true), 882.5);
    QCOMPARE(NumeroEquipaggi(), 1);
}

void tst_Penalita::sommePerGiornoESvolte() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const std::array prove{nuovaProva({{"Dat", "13/06/2026"}}), nuovaProva({{"Dat", "14/06/2026"}}),
                           nuovaProva({{"Dat", "14/06/2026"}, {"Svo", 0}})};
    const int equ = nuovoEquipaggio(1);
    scriviRilevamento(equ, prove[0], "10:00:00:00", "10:01:00:01", 100);
    scriviRilevamento(equ, prove[1], "10:00:00:00", "10:01:00:20", 200);
    scriviRilevamento(equ, prove[2], "", "", 400);
    const auto somme = [](const char* dat, bool soloSvolte) {
        return std::array{PenalitaTempi(1, dat, soloSvolte), PenalitaAggiunte(1, dat, soloSvolte)};
    };
    QCOMPARE(somme("", true), (std::array{21.0, 300.0}));
    QCOMPARE(somme("", false), (std::array{6021.0, 700.0}));
    QCOMPARE(somme("14/06/2026", true), (std::array{20.0, 200.0}));
    QCOMPARE(somme("14-6-26", false), (std::array{6020.0, 600.0}));
    QCOMPARE(somme("15/06/2026", false), (std::array{0.0, 0.0}));
}

void tst_Penalita::traboccoAlCentesimo() {
    // 4320000 hundredths x 498 passes 32 bits: a failure even with a cap in force.
    ProgrammaDiProva programma;
    nuovaManifestazione({{"PenUniPA", 498}, {"PenMaxAtt", 1}, {"PenMax", 100}});
    const int prima = nuovaProva();
    const int seconda = nuovaProva({{"Tem", "00:00:00"}});
    const int terza = nuovaProva();
    const int equ = nuovoEquipaggio(3);
    scriviRilevamento(equ, prima, "10:00:00:00", "10:01:00:00", 5);
    scriviRilevamento(equ, seconda, "00:00:00:00", "12:00:00:00", 5);
    scriviRilevamento(equ, terza, "10:00:00:00", "10:09:00:00", 5);
    QVERIFY_EXCEPTION_THROWN(PenalitaProva(3, seconda, true), Errore);
    attendiErrore(programma, 3);
    QCOMPARE(PenalitaTempi(3, QString(), true), 0.0);  // the sum so far
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(PenalitaAggiunte(3, QString(), true), 15.0);
    esegui("UPDATE Manifestazioni SET PenUniPA=497");
    QCOMPARE(PenalitaTempi(3, QString(), true), 200.0);
    // Tenths are no whole-number product.
    esegui("UPDATE Manifestazioni SET PrePA='DEC',PenUniPA=1000000,PenMaxAtt=0");
    QCOMPARE(PenalitaProva(3, seconda, true), 432000.0 * 1000000);
}

void tst_Penalita::rigaMancante() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const int prima = nuovaProva();
    const int equ = nuovoEquipaggio(4);
    scriviRilevamento(equ, prima, "10:00:00:00", "10:01:00:01", 8);
    nuovaProva();  // made without its reading rows
    QCOMPARE(PenalitaTempi(4, QString(), true), 6001.0);
    attendiErrore(programma, 4);
    QCOMPARE(PenalitaAggiunte(4, QString(), true), 8.0);
    QVERIFY(programma.dialoghi.finite());
    QVERIFY_EXCEPTION_THROWN(TempiCompleti(4), Errore);

    programma.dialoghi.attendiMessaggio("Attenzione: Errore nelle Penalità", QString(), Icona::Stop);
    QCOMPARE(PenalitaTempi(99, QString(), true), 0.0);
    QVERIFY(programma.dialoghi.finite());
}

void tst_Penalita::gruppoSparito() {
    ProgrammaDiProva programma;
    const int man = nuovaManifestazione({{"FatAnn", 1}});
    const int senzaFattore = inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}});
    const int equ = nuovoEquipaggio(5, {{"IDGru_FK", senzaFattore}});
    for (const int gruppo : {senzaFattore, 999}) {
        aggiornaRiga("Equipaggi", "IDEqu", equ, {{"IDGru_FK", gruppo}});
        attendiErrore(programma, 5);
        QCOMPARE(CoefficienteEquipaggio(5), 1.55);
        QVERIFY(programma.dialoghi.finite());
    }
    aggiornaRiga("Equipaggi", "IDEqu", equ, {{"IDGru_FK", Null}});
    QCOMPARE(CoefficienteEquipaggio(5), 1.55);
    aggiornaRiga("Equipaggi", "IDEqu", equ, {{"Ann", 99999}});  // past 16 bits
    attendiErrore(programma, 5);
    QCOMPARE(CoefficienteEquipaggio(5), 0.0);
    QVERIFY(programma.dialoghi.finite());
}

void tst_Penalita::scarto() {
    ProgrammaDiProva programma;
    nuovaManifestazione({{"PenMaxAtt", 1}, {"PenMax", 1}});
    const int pro = nuovaProva();
    const int equ = nuovoEquipaggio(1);
    scriviRilevamento(equ, pro, "10:00:00:00", "10:00:59:26");
    QCOMPARE(ScartoProva(1, pro), 74);
    scriviRilevamento(equ, pro, "10:00:00:00", "10:01:00:74");
    QCOMPARE(ScartoProva(1, pro), -74);
    scriviRilevamento(equ, pro, "", "");
    QCOMPARE(ScartoProva(1, pro), 6000);
}

void tst_Penalita::media_data() {
    QTest::addColumn<QList<float>>("penalita");
    QTest::addColumn<float>("attesa");
    QTest::newRow("none") << QList<float>{} << 0.0F;
    QTest::newRow("one") << QList<float>{7} << 7.0F;
    QTest::newRow("two: plain mean") << QList<float>{10, 20} << 15.0F;
    QTest::newRow("three: the middle one") << QList<float>{10, 90, 20} << 20.0F;
    QTest::newRow("best and worst out once each") << QList<float>{5, 5, 8, 40, 40} << (98.0F - 5 - 40) / 3;
}

void tst_Penalita::media() {
    QFETCH(QList<float>, penalita);
    QTEST(mediaTagliata({penalita.constData(), std::size_t(penalita.size())}), "attesa");
}

void tst_Penalita::mediaDalleProveSvolte() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const std::array prove{nuovaProva(), nuovaProva(), nuovaProva(), nuovaProva({{"Svo", 0}})};
    const int equ = nuovoEquipaggio(1);
    nuovoEquipaggio(2);
    const std::array arrivi{"10:01:00:10", "10:01:00:90", "10:01:00:20", "10:09:00:00"};
    for (std::size_t i = 0; i < prove.size(); ++i)
        scriviRilevamento(equ, prove[i], "10:00:00:00", arrivi[i], 1000);
    QCOMPARE(MediaPenalita(equ), 20.0F);
}

void tst_Penalita::taglia_data() {
    QTest::addColumn<QString>("parola");
    QTest::addColumn<QString>("atteso");
    QTest::newRow("MIN") << "MIN"
                         << "10:15:00:00";
    QTest::newRow("SEC") << "SEC"
                         << "10:15:20:00";
    QTest::newRow("DEC") << "DEC"
                         << "10:15:20:30";
    QTest::newRow("CEN") << "CEN"
                         << "10:15:20:37";
    QTest::newRow("none") << "ORE"
                          << "";
}

void tst_Penalita::taglia() {
    QFETCH(QString, parola);
    QFETCH(QString, atteso);
    ProgrammaDiProva programma;
    nuovaManifestazione({{"PrePA", parola}, {"PrePANoASI", "SEC"}});
    QCOMPARE(TagliaTempo("10:15:20:37", true, "PA"), atteso);
    QCOMPARE(TagliaTempo("10:15:20:37", false, "PA"), atteso);  // classes not told apart
    esegui("UPDATE Manifestazioni SET ASIeNONASI=1");
    QCOMPARE(TagliaTempo("10:15:20:37", true, "PA"), atteso);
    QCOMPARE(TagliaTempo("10:15:20:37", false, "PA"), QStringLiteral("10:15:20:00"));
    QCOMPARE(TagliaTempo("   ", true, "PA"), QString());
    QCOMPARE(TagliaTempo("10:15:20:37", true, "XX"), QString());
}

void tst_Penalita::precisioni() {
    ProgrammaDiProva programma;
    nuovaManifestazione({{"PrePA", "CEN"},
                         {"PrePANoASI", "DEC"},
                         {"PrePM", "SEC"},
                         {"PrePMNoASI", "SEC"},
                         {"PreCO", "ORE"},
                         {"PreCONoASI", "SEC"}});
    QVERIFY(PrecisioneASINonInferiore("PA"));
    QVERIFY(PrecisioneASINonInferiore("PM"));
    QVERIFY(!PrecisioneASINonInferiore("CO"));
    esegui("UPDATE Manifestazioni SET PreCONoASI='MIN'");
    QVERIFY(PrecisioneASINonInferiore("CO"));
}

void tst_Penalita::completi() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const int svolta = nuovaProva();
    nuovaProva({{"Svo", 0}});
    const int equ = nuovoEquipaggio(1);
    QVERIFY(!TempiCompleti(1));
    scriviRilevamento(equ, svolta, "10:00:00:00", "00:00:00:00");
    QVERIFY(TempiCompleti(1));
    esegui("UPDATE Rilevamenti SET TArr=NULL");
    QVERIFY(!TempiCompleti(1));
    QVERIFY(TempiCompleti(99));
    esegui("UPDATE Prove SET Svo=0");
    QVERIFY(TempiCompleti(1));
}

void tst_Penalita::nienteTenutoDaParte() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const int pro = nuovaProva();
    const int equ = nuovoEquipaggio(1);
    scriviRilevamento(equ, pro, "10:00:00:00", "10:01:00:10");
    // Of rows written twice the first counts.
    inserisciRiga("Rilevamenti",
                  {{"IDEqu_FK", equ}, {"IDPro_FK", pro}, {"TPar", "10:00:00:00"}, {"TArr", "11:00:00:00"}});
    QCOMPARE(PenalitaTotale(1, QString(), true), 10.0);
    esegui("UPDATE Manifestazioni SET PenUniPA=2");
    QCOMPARE(PenalitaTotale(1, QString(), true), 20.0);
    scriviRilevamento(equ, pro, "10:00:00:00", "10:01:00:11");
    QCOMPARE(PenalitaTotale(1, QString(), true), 22.0);
}

QTEST_GUILESS_MAIN(tst_Penalita)
#include "tst_Penalita.moc"

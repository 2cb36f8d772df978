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
    void coefficiente();
    void sommePerGiornoESvolte();
    void traboccoAlCentesimo();
    void rigaMancante();
    void gruppoSparito();
    void scarto();
    void media();
    void mediaDalleProveSvolte();
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
    const M nessuna;
    const M separati{{"ASIeNONASI", 1},    {"PrePANoASI", "SEC"}, {"PenUniPANoASI", 10}, {"PenMaxNoASI", 5},
                     {"PenUniPMNoASI", 7}, {"PrePMNoASI", "DEC"}, {"PenMaxAtt", 1},      {"PenMax", 50}};

    const auto riga = [](const char* nome, const M& m, const char* tip, const char* tem, const char* tPar,
                         const char* tArr, double senza, const QString& omo = "A1") {
        QTest::newRow(nome) << m << tip << tem << tPar << tArr << senza << omo;
    };
    riga("PA hundredths", nessuna, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 74);
    riga("PM seconds", nessuna, "PM", "00:30:00", "09:00:05:00", "09:30:07:00", 4);
    riga("CO minutes across midnight", nessuna, "CO", "00:20:00", "23:50:00:00", "00:12:00:00", 120);
    riga("PA tenths", M{{"PrePA", "DEC"}, {"PenUniPA", 3}}, "PA", "00:02:30", "11:00:00:40", "11:02:29:70",
         21);
    riga("seconds are not rounded", M{{"PrePA", "SEC"}}, "PA", "00:00:10", "10:00:00:00", "10:00:11:50", 1.5);
    riga("early costs as late", nessuna, "PA", "00:01:00", "10:00:00:00", "10:00:59:26", 74);
    riga("swapped readings", nessuna, "PA", "00:01:00", "10:16:21:08", "10:15:20:34", 74);
    riga("short way over midnight", nessuna, "PA", "00:00:10", "23:59:50:00", "00:00:10:00", 1000);
    riga("twelve hours apart", nessuna, "PA", "00:00:00", "00:00:00:00", "12:00:00:00", 4320000);
    riga("start missing", nessuna, "PA", "00:01:00", "", "10:00:30:00", 3597000);
    riga("arrival missing, folded", nessuna, "PA", "00:01:00", "20:00:00:00", "", 1440000 - 6000);
    riga("both missing", nessuna, "PA", "00:01:00", "", "", 6000);
    riga("00:00:00:00 is a reading", M{{"PenProNonSvo", 1}, {"NumPenProNonSvo", 5000}}, "PA", "00:01:00",
         "00:00:00:00", "00:01:00:00", 0);
    const M fissa{{"PenProNonSvo", 1}, {"NumPenProNonSvo", 5000}, {"PenMaxAtt", 1}, {"PenMax", 100}};
    riga("fixed stands above the cap", fissa, "PA", "00:01:00", "", "10:00:00:00", 5000);
    riga("fixed for every kind", fissa, "CO", "00:01:00", "10:00:00:00", "", 5000);
    riga("fixed Null counts 0", M{{"PenProNonSvo", 1}}, "PA", "00:01:00", "", "", 0);
    const M tetto{{"PenMaxAtt", 1}, {"PenMax", 74}};
    riga("equal to the cap", tetto, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 74);
    riga("above the cap", tetto, "PA", "00:01:00", "10:15:20:34", "10:16:21:09", 74);
    riga("cap switched off", M{{"PenMaxAtt", 0}, {"PenMax", 10}}, "PA", "00:01:00", "10:15:20:34",
         "10:16:21:08", 74);
    riga("cap Null counts 0", M{{"PenMaxAtt", 1}}, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 0);
    riga("NON ASI own precision and cap", separati, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 5, "  ");
    riga("NON ASI tenths, own unit, own cap", separati, "PM", "00:01:00", "10:00:00:00", "10:01:00:05", 3.5,
         "");
    riga("ASI keeps its own", separati, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 50);
    M uniti = separati;
    uniti["ASIeNONASI"] = 0;
    riga("classes not told apart", uniti, "PA", "00:01:00", "10:15:20:34", "10:16:21:08", 50, "");
    riga("unknown kind", nessuna, "XX", "00:01:00", "10:00:00:00", "10:05:00:00", 0);
    riga("unknown precision", M{{"PrePA", "ORE"}}, "PA", "00:01:00", "10:00:00:00", "10:05:00:00", 0);
    riga("settings Null", M{{"PrePA", Null}, {"PenUniPA", Null}}, "PA", "00:01:00", "10:00:00:00",
         "10:05:00:00", 0);
    riga("a text that is no time", nessuna, "PA", "00:01:00", "99:99:99:12", "00:01:00:12", 0);
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

void tst_Penalita::coefficiente() {
    struct Caso {
        const char* nome;
        bool fatAnn, fatNoASI, asi;
        QVariant anno, fattore;  // no factor: no group
        double atteso;
    };
    const Caso casi[] = {{"year, fixed, ASI", true, true, true, 1955, Null, 1.55},
                         {"year, fixed, NON ASI", true, true, false, 1955, Null, 3.0},
                         {"year, NON ASI", true, false, false, 1975, Null, 1.75},
                         {"fixed, NON ASI", false, true, false, 1955, Null, 3.0},
                         {"fixed, ASI, group", false, true, true, 1955, 1.1, 1.1},
                         {"neither", false, false, false, 1955, Null, 1.0},
                         {"1900", true, false, true, 1900, Null, 1.0},
                         {"year Null", true, false, true, Null, Null, -18.0},
                         {"year and group", true, false, true, 1955, 1.1, 1.55 * 1.1},
                         {"group factor 0", true, false, true, 1955, 0.0, 1.55}};
    for (const Caso& caso : casi) {
        ProgrammaDiProva programma;
        const int man = nuovaManifestazione(
            {{"FatAnn", int(caso.fatAnn)}, {"FatNoASI", int(caso.fatNoASI)}, {"NumFatNoASI", 3}});
        int gruppo = 0;
        if (caso.fattore.isValid())
            gruppo = inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}, {"Fat", caso.fattore}});
        nuovoEquipaggio(1, {{"Omo", caso.asi ? "A1" : "   "}, {"Ann", caso.anno}, {"IDGru_FK", gruppo}});
        QVERIFY2(qFuzzyCompare(CoefficienteEquipaggio(1), caso.atteso), caso.nome);
    }
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
    QCOMPARE(NumeroEquipaggi(), 1);
    const auto somme = [](const char* dat, bool soloSvolte) {
        return std::array{PenalitaTempi(1, dat, soloSvolte), PenalitaAggiunte(1, dat, soloSvolte)};
    };
    QCOMPARE(somme("", true), (std::array{21.0, 300.0}));
    QCOMPARE(somme("", false), (std::array{6021.0, 700.0}));
    QCOMPARE(somme("14/06/2026", true), (std::array{20.0, 200.0}));
    QCOMPARE(somme("14-6-26", false), (std::array{6020.0, 600.0}));
    QCOMPARE(somme("15/06/2026", false), (std::array{0.0, 0.0}));
    // The coefficient on the sum of the times alone, each capped before.
    esegui("UPDATE Manifestazioni SET FatAnn=1,PenMaxAtt=1,PenMax=20");
    QCOMPARE(PenalitaTotale(1, QString(), false), (1 + 20 + 20) * 1.55 + 700);
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
    const std::tuple<const char*, const char*, int> casi[] = {
        {"10:00:00:00", "10:00:59:26", 74}, {"10:00:00:00", "10:01:00:74", -74}, {"", "", 6000}};
    for (const auto& [tPar, tArr, atteso] : casi) {
        scriviRilevamento(equ, pro, tPar, tArr);
        QCOMPARE(ScartoProva(1, pro), atteso);
    }
}

void tst_Penalita::media() {
    // None, one, the plain mean of two, the middle one of three, best and worst out once each.
    const std::pair<std::vector<float>, float> casi[] = {
        {{}, 0}, {{7}, 7}, {{10, 20}, 15}, {{10, 90, 20}, 20}, {{5, 5, 8, 40, 40}, (98.0F - 5 - 40) / 3}};
    for (const auto& [penalita, attesa] : casi)
        QCOMPARE(mediaTagliata(penalita), attesa);
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

void tst_Penalita::taglia() {
    const std::pair<const char*, const char*> casi[] = {{"MIN", "10:15:00:00"},
                                                        {"SEC", "10:15:20:00"},
                                                        {"DEC", "10:15:20:30"},
                                                        {"CEN", "10:15:20:37"},
                                                        {"ORE", ""}};
    ProgrammaDiProva programma;
    for (const auto& [parola, testo] : casi) {
        const QString atteso(testo);
        nuovaManifestazione({{"PrePA", parola}, {"PrePANoASI", "SEC"}});
        QCOMPARE(TagliaTempo("10:15:20:37", false, "PA"), atteso);  // classes not told apart
        esegui("UPDATE Manifestazioni SET ASIeNONASI=1");
        QCOMPARE(TagliaTempo("10:15:20:37", true, "PA"), atteso);
        QCOMPARE(TagliaTempo("10:15:20:37", false, "PA"), QString("10:15:20:00"));
    }
    QCOMPARE(TagliaTempo("   ", false, "PA"), QString());
    QCOMPARE(TagliaTempo("10:15:20:37", true, "XX"), QString());
}

void tst_Penalita::precisioni() {
    const std::tuple<const char*, const char*, bool> casi[] = {
        {"CEN", "DEC", true}, {"SEC", "SEC", true}, {"ORE", "SEC", false}, {"ORE", "MIN", true}};
    ProgrammaDiProva programma;
    for (const auto& [asi, nonASI, bene] : casi) {
        nuovaManifestazione({{"PreCO", asi}, {"PreCONoASI", nonASI}});
        QCOMPARE(PrecisioneASINonInferiore("CO"), bene);
    }
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

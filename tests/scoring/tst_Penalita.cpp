#include "scoring/Calcolo.h"
#include "scoring/Penalita.h"
#include "scoring/TagliaTempo.h"
#include "supporto/ProgrammaDiProva.h"

#include <array>

namespace {

const QVariant Null;

}  // namespace

class tst_Penalita final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void prova();
    void unaProva();
    void coefficiente();
    void sommePerGiornoESvolte();
    void traboccoAlCentesimo();
    void rigaMancante();
    void gruppoSparito();
    void media();
    void taglia();
    void precisioni();
    void completi();

private:
    void attendiErrore(int num) {
        dialoghi().attendiMessaggio(
            "Attenzione: Errore nelle Penalità",
            QStringLiteral("Errore Nel Calcolo delle Penalità.\nControllare i Tempi Inseriti "
                           "dell'Equipaggio n. %1 - ROSSI BIANCHI")
                .arg(num),
            Icona::Stop);
    }
};

void tst_Penalita::prova() {
    struct Caso {
        const char* nome;
        QVariantMap manifestazione;
        const char *tip, *tem, *tPar, *tArr;
        double senza;  // without the added penalty
        const char* omo = "A1";
    };
    using M = QVariantMap;
    const M separati{{"ASIeNONASI", 1},    {"PrePANoASI", "SEC"}, {"PenUniPANoASI", 10}, {"PenMaxNoASI", 5},
                     {"PenUniPMNoASI", 7}, {"PrePMNoASI", "DEC"}, {"PenMaxAtt", 1},      {"PenMax", 50}};
    M uniti = separati;
    uniti["ASIeNONASI"] = 0;
    const M fissa{{"PenProNonSvo", 1}, {"NumPenProNonSvo", 5000}, {"PenMaxAtt", 1}, {"PenMax", 100}};
    const M tetto{{"PenMaxAtt", 1}, {"PenMax", 74}};
    const M spento{{"PenMaxAtt", 0}, {"PenMax", 10}};
    const M decimi{{"PrePA", "DEC"}, {"PenUniPA", 3}};
    const M ignota{{"PrePA", "ORE"}};
    const M nulle{{"PrePA", Null}, {"PenUniPA", Null}};
    const char* const Par = "10:15:20:34";
    const char* const Arr = "10:16:21:08";
    const Caso casi[] = {
        {"PA hundredths", {}, "PA", "00:01:00", Par, Arr, 74},
        {"PM seconds", {}, "PM", "00:30:00", "09:00:05:00", "09:30:07:00", 4},
        {"CO minutes across midnight", {}, "CO", "00:20:00", "23:50:00:00", "00:12:00:00", 120},
        {"PA tenths", decimi, "PA", "00:02:30", "11:00:00:40", "11:02:29:70", 21},
        {"seconds are not rounded", {{"PrePA", "SEC"}}, "PA", "00:00:10", "10:00:00:00", "10:00:11:50", 1.5},
        {"early costs as late", {}, "PA", "00:01:00", "10:00:00:00", "10:00:59:26", 74},
        {"twelve hours apart", {}, "PA", "00:00:00", "00:00:00:00", "12:00:00:00", 4320000},
        {"start missing", {}, "PA", "00:01:00", "", "10:00:30:00", 3597000},
        {"arrival missing, folded", {}, "PA", "00:01:00", "20:00:00:00", "", 1440000 - 6000},
        {"both missing", {}, "PA", "00:01:00", "", "", 6000},
        {"00:00:00:00 is a reading", fissa, "PA", "00:01:00", "00:00:00:00", "00:01:00:00", 0},
        {"fixed stands above the cap", fissa, "PA", "00:01:00", "", "10:00:00:00", 5000},
        {"fixed Null counts 0", {{"PenProNonSvo", 1}}, "PA", "00:01:00", "", "", 0},
        {"equal to the cap", tetto, "PA", "00:01:00", Par, Arr, 74},
        {"above the cap", tetto, "PA", "00:01:00", "10:15:20:34", "10:16:21:09", 74},
        {"cap switched off", spento, "PA", "00:01:00", Par, Arr, 74},
        {"cap Null counts 0", {{"PenMaxAtt", 1}}, "PA", "00:01:00", Par, Arr, 0},
        {"NON ASI own precision and cap", separati, "PA", "00:01:00", Par, Arr, 5, "  "},
        {"NON ASI tenths, own unit, own cap", separati, "PM", "00:01:00", "10:00:00:00", "10:01:00:05", 3.5,
         ""},
        {"ASI keeps its own", separati, "PA", "00:01:00", Par, Arr, 50},
        {"classes not told apart", uniti, "PA", "00:01:00", Par, Arr, 50, ""},
        {"unknown kind", {}, "XX", "00:01:00", "10:00:00:00", "10:05:00:00", 0},
        {"unknown precision", ignota, "PA", "00:01:00", "10:00:00:00", "10:05:00:00", 0},
        {"settings Null", nulle, "PA", "00:01:00", "10:00:00:00", "10:05:00:00", 0},
        {"a text that is no time", {}, "PA", "00:01:00", "99:99:99:12", "00:01:00:12", 0}};
    for (const Caso& caso : casi) {
        ricomincia();
        nuovaManifestazione(caso.manifestazione);
        const int pro = nuovaProva({{"Tip", caso.tip}, {"Tem", caso.tem}});
        const int equ = nuovoEquipaggio(7, {{"Omo", caso.omo}});
        scriviRilevamento(equ, pro, caso.tPar, caso.tArr, -12.5);
        QVERIFY2(qFuzzyCompare(PenalitaProva(7, pro, true), caso.senza), caso.nome);
        QCOMPARE(PenalitaProva(7, pro, false), caso.senza - 12.5);  // outside the cap, negative as any other
        QCOMPARE(PenalitaTempi(7, QString(), true), caso.senza);
        QCOMPARE(PenalitaAggiunte(7, QString(), true), -12.5);
    }
}

void tst_Penalita::unaProva() {
    nuovaManifestazione({{"PenProNonSvo", 1}, {"NumPenProNonSvo", 300}, {"PenMaxAtt", 1}, {"PenMax", 1}});
    const int pro = nuovaProva();
    const int equ = nuovoEquipaggio(1);
    const std::tuple<const char*, const char*, int> scarti[] = {
        {"10:00:00:00", "10:00:59:26", 74}, {"10:00:00:00", "10:01:00:74", -74}, {"", "", 6000}};
    for (const auto& [tPar, tArr, atteso] : scarti) {
        scriviRilevamento(equ, pro, tPar, tArr);
        QCOMPARE(ScartoProva(1, pro), atteso);
    }
    // Failures are thrown here, not told.
    QVERIFY_EXCEPTION_THROWN(PenalitaProva(99, pro, true), Errore);
    QVERIFY_EXCEPTION_THROWN(PenalitaProva(1, 99, true), Errore);
    QVERIFY_EXCEPTION_THROWN(ScartoProva(99, pro), Errore);
    esegui("DELETE FROM Rilevamenti");
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
        ricomincia();
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
    nuovaManifestazione();
    const std::array prove{nuovaProva({{"Dat", "13/06/2026"}}), nuovaProva({{"Dat", "14/06/2026"}}),
                           nuovaProva({{"Dat", "14/06/2026"}, {"Svo", 0}})};
    const int equ = nuovoEquipaggio(1);
    scriviRilevamento(equ, prove[0], "10:00:00:00", "10:01:00:01", 100);
    scriviRilevamento(equ, prove[1], "10:00:00:00", "10:01:00:20", 200);
    scriviRilevamento(equ, prove[2], "", "", 400);
    inserisciRiga("Rilevamenti", {{"IDEqu_FK", equ}, {"IDPro_FK", prove[0]}, {"TArr", "11:00:00:00"}});
    QCOMPARE(NumeroEquipaggi(), 1);
    // Of rows written twice the first counts.
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
    nuovaManifestazione({{"PenUniPA", 498}, {"PenMaxAtt", 1}, {"PenMax", 100}});
    const int prima = nuovaProva();
    const int seconda = nuovaProva({{"Tem", "00:00:00"}});
    const int terza = nuovaProva();
    const int equ = nuovoEquipaggio(3);
    scriviRilevamento(equ, prima, "10:00:00:00", "10:01:00:00", 5);
    scriviRilevamento(equ, seconda, "00:00:00:00", "12:00:00:00", 5);
    scriviRilevamento(equ, terza, "10:00:00:00", "10:09:00:00", 5);
    QVERIFY_EXCEPTION_THROWN(PenalitaProva(3, seconda, true), Errore);
    attendiErrore(3);
    QCOMPARE(PenalitaTempi(3, QString(), true), 0.0);  // the sum so far
    QCOMPARE(PenalitaAggiunte(3, QString(), true), 15.0);
    esegui("UPDATE Manifestazioni SET PenUniPA=497");
    QCOMPARE(PenalitaTempi(3, QString(), true), 200.0);
    // Tenths are no whole-number product.
    esegui("UPDATE Manifestazioni SET PrePA='DEC',PenUniPA=1000000,PenMaxAtt=0");
    QCOMPARE(PenalitaProva(3, seconda, true), 432000.0 * 1000000);
}

void tst_Penalita::rigaMancante() {
    nuovaManifestazione();
    const int prima = nuovaProva();
    const int equ = nuovoEquipaggio(4);
    scriviRilevamento(equ, prima, "10:00:00:00", "10:01:00:01", 8);
    nuovaProva();  // made without its reading rows
    QCOMPARE(PenalitaTempi(4, QString(), true), 6001.0);
    attendiErrore(4);
    QCOMPARE(PenalitaAggiunte(4, QString(), true), 8.0);
    QVERIFY_EXCEPTION_THROWN(TempiCompleti(4), Errore);
    attendiErrore(4);
    QCOMPARE(PenalitaTempi(4, "31/02/2026", false), 0.0);

    dialoghi().attendiMessaggio("Attenzione: Errore nelle Penalità", QString(), Icona::Stop);
    QCOMPARE(PenalitaTempi(99, QString(), true), 0.0);
}

void tst_Penalita::gruppoSparito() {
    const int man = nuovaManifestazione({{"FatAnn", 1}});
    const int senzaFattore = inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}});
    const int equ = nuovoEquipaggio(5, {{"IDGru_FK", senzaFattore}});
    for (const int gruppo : {senzaFattore, 999}) {
        aggiornaRiga("Equipaggi", "IDEqu", equ, {{"IDGru_FK", gruppo}});
        attendiErrore(5);
        QCOMPARE(CoefficienteEquipaggio(5), 1.55);
    }
    aggiornaRiga("Equipaggi", "IDEqu", equ, {{"IDGru_FK", Null}});
    QCOMPARE(CoefficienteEquipaggio(5), 1.55);
    aggiornaRiga("Equipaggi", "IDEqu", equ, {{"Ann", 99999}});  // past 16 bits
    attendiErrore(5);
    QCOMPARE(CoefficienteEquipaggio(5), 0.0);
}

void tst_Penalita::media() {
    // None, one, the plain mean of two, the middle one of three, best and worst out once each.
    const std::pair<std::vector<float>, float> casi[] = {
        {{}, 0}, {{7}, 7}, {{10, 20}, 15}, {{10, 90, 20}, 20}, {{5, 5, 8, 40, 40}, (98.0F - 5 - 40) / 3}};
    for (const auto& [penalita, attesa] : casi)
        QCOMPARE(mediaTagliata(penalita), attesa);
    // Of the tests run, without what was added.
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
    nuovaManifestazione({{"PrePA", "CEN"},
                         {"PrePANoASI", "DEC"},
                         {"PrePM", "SEC"},
                         {"PrePMNoASI", "SEC"},
                         {"PreCO", "ORE"},
                         {"PreCONoASI", "SEC"}});
    QVERIFY(PrecisioneASINonInferiore("PA") && PrecisioneASINonInferiore("PM"));
    QVERIFY(!PrecisioneASINonInferiore("CO"));
    esegui("UPDATE Manifestazioni SET PreCONoASI='MIN'");
    QVERIFY(PrecisioneASINonInferiore("CO"));
}

void tst_Penalita::completi() {
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

QTEST_GUILESS_MAIN(tst_Penalita)
#include "tst_Penalita.moc"

#include "scoring/Classifica.h"
#include "supporto/ProgrammaDiProva.h"

namespace {

using Richiesta = RichiestaClassifica;

// The ranked numbers as "Pos:Num=Pen".
QStringList classifica() {
    return leggiColonna("SELECT Pos||':'||Num||'='||CAST(Pen AS INTEGER) FROM Classifica ORDER BY Pos");
}

QStringList numeri() {
    return leggiColonna("SELECT Num FROM Classifica ORDER BY Pos");
}

// A crew with one reading whose deviation on the one-minute test is `scarto` hundredths.
int equipaggio(int num, int pro, int scarto, const QVariantMap& valori = {}) {
    const int id = nuovoEquipaggio(num, valori);
    scriviRilevamento(id, pro, "10:00:00:00", QStringLiteral("10:01:00:%1").arg(scarto, 2, 10, QChar('0')));
    return id;
}

}  // namespace

class tst_Classifica final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void ordineEParimerito();
    void righeScritte();
    void selezioni();
    void avvisoProveNonSvolte();
    void giornaliera();
    void controlloAnni();
    void esclusioneAutomatica();
    void erroriNominanoLEquipaggio();
    void fallimentoNonLasciaMeta();
};

void tst_Classifica::ordineEParimerito() {
    nuovaManifestazione();
    const int pro = nuovaProva();
    equipaggio(1, pro, 30, {{"Ann", 1970}});
    equipaggio(2, pro, 30, {{"Ann", 1935}});
    equipaggio(3, pro, 30, {{"Ann", QVariant()}});
    equipaggio(4, pro, 5, {{"Ann", 1980}});
    equipaggio(5, pro, 0, {{"Ann", 1960}, {"Esc", 1}, {"MotEsc", "Ritirato"}});
    equipaggio(6, pro, 0, {{"Ann", 1930}, {"Esc", 1}});
    equipaggio(7, pro, 30, {{"Ann", 1970}});
    const auto esito = GeneraClassifica({.soloSvolte = true});
    QVERIFY(esito);
    QCOMPARE(classifica(), (QStringList{"1:4=5", "2:3=30", "3:2=30", "4:1=30", "5:7=30", "6:6=999999999",
                                        "7:5=999999999"}));
    QCOMPARE(esito->esclusi, QStringLiteral("Esclusi : N. 5 Ritirato - N. 6 "));
    QCOMPARE(contaRighe("Classifica", "PenNet IS NULL AND PenAgg IS NULL AND Coeff IS NULL"), 2);
}

void tst_Classifica::righeScritte() {
    const int man = nuovaManifestazione({{"FatAnn", 1}});
    const int pro = nuovaProva();
    const int gruppo = inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}, {"Fat", 1.1}});
    const int equ =
        nuovoEquipaggio(8, {{"IDGru_FK", gruppo}, {"IDSqu_FK", 3}, {"Cog", "D'ANGELÒ"}, {"Mod", QVariant()}});
    scriviRilevamento(equ, pro, "10:00:00:00", "10:01:05:00", 30.5);
    inserisciRiga("Classifica", {{"Num", 99}});  // of the last run
    QVERIFY(GeneraClassifica({.silenziosa = true}));
    Statement riga("SELECT Gru,Squ,Num,Con,Vei,Ann,Pen,PenNet,PenAgg,Coeff,Pos,Nav,PenSqu FROM Classifica");
    QVERIFY(riga.esegui().prossima());
    const QVariantList attesi{
        gruppo, 3,          8, "D'ANGELÒ BIANCHI", "LANCIA ", 1955, 500 * (1.55 * 1.1) + 30.5, 500.0,
        30.5,   1.55 * 1.1, 1};
    for (int i = 0; i < attesi.size(); ++i)
        QCOMPARE(riga.valore(i).toString(), attesi.at(i).toString());
    QVERIFY(riga.nullo(11) && riga.nullo(12));
    QVERIFY(!riga.prossima());
}

void tst_Classifica::selezioni() {
    const std::tuple<const char*, Richiesta, const char*> casi[] = {
        {"all", {}, "1 2 3 4 5"},
        {"ASI", {.tipo = 1}, "1 4"},
        {"NON ASI: blank, Null and empty", {.tipo = 2}, "2 3 5"},
        {"group, whatever the type", {.tipo = 2, .idGru = 1}, "1 3"},
        {"group that is none", {.idGru = 9}, ""},
        {"women, before group and type", {.tipo = 1, .idGru = 1, .femminile = true}, "2 5"},
        {"no such type", {.tipo = 3}, ""}};
    const int man = nuovaManifestazione();
    for (int i = 0; i < 2; ++i)
        inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}, {"Fat", 1}});
    const int pro = nuovaProva();
    equipaggio(1, pro, 1, {{"Omo", "123"}, {"IDGru_FK", 1}, {"Ses", "F"}, {"SesNav", "M"}});
    equipaggio(2, pro, 2, {{"Omo", "  "}, {"IDGru_FK", 2}, {"Ses", "f"}, {"SesNav", "F"}});
    equipaggio(3, pro, 3, {{"Omo", QVariant()}, {"IDGru_FK", 1}, {"Ses", "F"}, {"SesNav", QVariant()}});
    equipaggio(4, pro, 4, {{"Omo", " 9"}, {"IDGru_FK", QVariant()}});
    equipaggio(5, pro, 5, {{"Omo", ""}, {"Ses", "F"}, {"SesNav", "f"}});
    for (const auto& [nome, richiesta, attesi] : casi) {
        const auto esito = GeneraClassifica(richiesta);
        QVERIFY2(esito && numeri().join(' ') == attesi, nome);
        QCOMPARE(esito->titolo.isEmpty(), richiesta.tipo == 3);
    }
}

void tst_Classifica::avvisoProveNonSvolte() {
    nuovaManifestazione();
    nuovaProva({{"Dat", "13/06/2026"}, {"Svo", 1}});
    nuovaProva({{"Dat", "14/06/2026"}, {"Svo", 0}});
    nuovaProva({{"Dat", "14/06/2026"}, {"Svo", QVariant()}});
    const std::pair<Richiesta, bool> casi[] = {{{}, true},
                                               {{.silenziosa = true}, false},
                                               {{.dat = "13/06/2026"}, false},
                                               {{.tipo = 2, .dat = "14/06/2026"}, true},
                                               {{.dat = "14/6/2026"}, false}};  // compared as typed
    for (const auto& [richiesta, avviso] : casi) {
        if (avviso)
            dialoghi().attendiMessaggio("Classifica Assoluta Parziale",
                                        "ATTENZIONE : Alcune Prove NON Sono Ancora State SVOLTE",
                                        Icona::Informazione);
        QVERIFY(GeneraClassifica(richiesta));  // it goes on all the same
    }
}

void tst_Classifica::giornaliera() {
    nuovaManifestazione();
    const int prima = nuovaProva({{"Dat", "13/06/2026"}});
    const int seconda = nuovaProva({{"Dat", "14/06/2026"}, {"Svo", 0}});
    const int equ = nuovoEquipaggio(1);
    scriviRilevamento(equ, prima, "10:00:00:00", "10:01:00:07");
    scriviRilevamento(equ, seconda, "10:00:00:00", "10:01:00:09");
    // All the tests of the day, run or not, whatever is asked.
    QVERIFY(GeneraClassifica({.dat = "14.6.26", .silenziosa = true, .soloSvolte = true}));
    QCOMPARE(classifica(), QStringList{"1:1=9"});
    QVERIFY(GeneraClassifica({.silenziosa = true, .soloSvolte = true}));
    QCOMPARE(classifica(), QStringList{"1:1=7"});
    QVERIFY(GeneraClassifica({.silenziosa = true, .soloSvolte = false}));
    QCOMPARE(classifica(), QStringList{"1:1=16"});
    QVERIFY_EXCEPTION_THROWN(GeneraClassifica({.dat = "domani", .silenziosa = true}), Errore);
    QCOMPARE(classifica(), QStringList{"1:1=16"});
}

void tst_Classifica::controlloAnni() {
    nuovaManifestazione({{"FatAnn", 1}});
    nuovaProva();
    nuovoEquipaggio(30, {{"Ann", 1850}});
    nuovoEquipaggio(31, {{"Ann", 2016}});
    QVERIFY(GeneraClassifica({.silenziosa = true}));

    nuovoEquipaggio(12, {{"Ann", QVariant()}, {"Cog", "VERDI"}, {"CogNav", QVariant()}});
    nuovoEquipaggio(2, {{"Ann", 1849}});
    nuovoEquipaggio(5, {{"Ann", 2017}, {"Omo", " "}});
    const QString inizio(
        "La Manifestazione Prevede il Calcolo delle\nPenalità con il Coeffciente per Anno, ma gli "
        "Anni\ndei seguenti Equipaggi sono Mancanti o Incorretti\n\n");
    const QString due("2 - ROSSI BIANCHI LANCIA APRILIA\n");
    const QString cinque("5 - ROSSI BIANCHI LANCIA APRILIA\n");
    const QString dodici("12 - VERDI  LANCIA APRILIA\n");
    dialoghi().attendiMessaggio("Impossibile Generare la Classifica", inizio + due + cinque + dodici);
    QVERIFY(!GeneraClassifica({.silenziosa = true}));
    QCOMPARE(numeri().size(), 2);  // the last classification stands

    esegui("UPDATE Manifestazioni SET FatNoASI=1");
    dialoghi().attendiMessaggio("Impossibile Generare la Classifica", inizio + due + dodici);
    QVERIFY(!GeneraClassifica({.silenziosa = true}));
    QVERIFY(GeneraClassifica({.silenziosa = true, .senzaControlloAnni = true}));
    QCOMPARE(numeri().size(), 5);
    esegui("UPDATE Manifestazioni SET FatAnn=0");
    QVERIFY(GeneraClassifica({.silenziosa = true}));
}

void tst_Classifica::esclusioneAutomatica() {
    nuovaManifestazione({{"AutoEsc", 1}});
    const int pro = nuovaProva({{"Dat", "13/06/2026"}});
    nuovaProva({{"Dat", "14/06/2026"}, {"Svo", 0}});
    equipaggio(1, pro, 5);
    const int incompleto = equipaggio(2, pro, 0, {{"Esc", 1}, {"MotEsc", "Ritirato"}});
    esegui("UPDATE Rilevamenti SET TArr='' WHERE IDEqu_FK=?", {incompleto});
    // Also for another day than the one of the missing reading, and also of crews that are not asked for.
    const auto esito = GeneraClassifica({.tipo = 1, .dat = "14/06/2026", .silenziosa = true});
    QCOMPARE(esito->esclusi, QStringLiteral("Esclusi : N. 2 Rilevamenti Mancanti"));
    QCOMPARE(contaRighe("Equipaggi", "Num=2 AND Esc=1 AND MotEsc='Rilevamenti Mancanti'"), 1);
    // Readings completed later do not undo it.
    scriviRilevamento(incompleto, pro, "10:00:00:00", "10:01:00:00");
    EscludiSenzaRilevamenti();
    QCOMPARE(contaRighe("Equipaggi", "Num=2 AND Esc=1"), 1);
    QCOMPARE(contaRighe("Equipaggi", "Num=1 AND Esc=1"), 0);
    // A missing row is a damage to be told, never a lasting exclusion.
    esegui("DELETE FROM Rilevamenti WHERE IDEqu_FK<>?", {incompleto});
    QVERIFY_EXCEPTION_THROWN(GeneraClassifica({.silenziosa = true}), Errore);
    QCOMPARE(contaRighe("Equipaggi", "Num=1 AND Esc=1"), 0);
}

void tst_Classifica::erroriNominanoLEquipaggio() {
    nuovaManifestazione({{"PenUniPA", 498}});
    const int pro = nuovaProva({{"Tem", "00:00:00"}});
    const int equ = nuovoEquipaggio(3);
    scriviRilevamento(equ, pro, "00:00:00:00", "12:00:00:00", 40);
    equipaggio(4, pro, 0, {{"Esc", 1}});
    const int altro = nuovoEquipaggio(5);
    scriviRilevamento(altro, pro, "00:00:00:00", "00:00:01:00");
    dialoghi().attendiMessaggio("Attenzione: Errore nelle Penalità", QString(), Icona::Stop);
    QVERIFY(GeneraClassifica({}));
    QCOMPARE(classifica(), (QStringList{"1:3=40", "2:5=49800", "3:4=999999999"}));
}

void tst_Classifica::fallimentoNonLasciaMeta() {
    nuovaManifestazione({{"AutoEsc", 1}});
    nuovaProva();
    nuovoEquipaggio(1);
    inserisciRiga("Classifica", {{"Num", 42}, {"Pos", 1}});
    guasta("INSERT ON Classifica");
    QVERIFY_EXCEPTION_THROWN(GeneraClassifica({.silenziosa = true}), ErroreArchivio);
    QCOMPARE(numeri(), QStringList{"42"});
    QCOMPARE(contaRighe("Equipaggi", "Esc=1"), 0);
    esegui("DROP TRIGGER guasto");
    QVERIFY(GeneraClassifica({.silenziosa = true}));
    QCOMPARE(numeri(), QStringList{"1"});
}

QTEST_GUILESS_MAIN(tst_Classifica)
#include "tst_Classifica.moc"

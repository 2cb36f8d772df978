#include "archive/ErroreArchivio.h"
#include "supporto/ProgrammaDiProva.h"
#include "timing/RicercaErrori.h"

#include <QTest>

// From switches and records to readings, through the archive.
class tst_Assegnazione final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_programma = std::make_unique<ProgrammaDiProva>(); }
    void cleanup() { m_programma.reset(); }

    void pressostati_data();
    void pressostati();
    void testiERuoli();
    void scelta_data();
    void scelta();
    void posizionale_data();
    void posizionale();
    void bersagliETagli();
    void lista();
    void salva();
    void salvaTuttoONiente();
    void scaricoGrande();
    void ricerca_data();
    void ricerca();
    void ricercaNellArchivio();

private:
    std::unique_ptr<ProgrammaDiProva> m_programma;
};

namespace {

QString intero(const QString& tempo, bool, const QString&) {
    return tempo;
}

// "12@10:00:00:00", the number left out where the record has none.
QList<RecordScarico> leggi(const QString& testo) {
    QList<RecordScarico> record;
    for (const QString& parola : testo.split(' ', Qt::SkipEmptyParts))
        record << RecordScarico{parola.section('@', 0, 0).toInt(), parola.section('@', 1)};
    return record;
}

QList<EquipaggioCronometrato> equipaggi(std::initializer_list<int> numeri) {
    QList<EquipaggioCronometrato> elenco;
    for (const int num : numeri)
        elenco << EquipaggioCronometrato{100 + num, num, "ROSSI BIANCHI", "LANCIA APRILIA", true};
    return elenco;
}

// Tests 1, 2... of these kinds; "+" marks a chained one.
QList<ProvaCronometrata> prove(const QString& testo) {
    QList<ProvaCronometrata> elenco;
    for (const QString& parola : testo.split(' ')) {
        const int id = static_cast<int>(elenco.size()) + 1;
        elenco << ProvaCronometrata{id, parola.left(2), "Prova", "00:01:00",
                                    parola.endsWith('+') ? id - 1 : 0};
    }
    return elenco;
}

QString descrivi(const QList<Pressostato>& pressostati) {
    QStringList righe;
    for (const Pressostato& pressostato : pressostati) {
        QStringList bersagli;
        for (const Bersaglio& b : pressostato)
            bersagli << QStringLiteral("%1%2").arg(b.ruolo() == Ruolo::Start ? 'S' : 'A').arg(b.idPro);
        righe << bersagli.join(',');
    }
    return righe.join(" | ");
}

QString descrivi(const QList<TempoRicevuto>& tempi) {
    QStringList righe;
    for (const TempoRicevuto& t : tempi) {
        righe << QStringLiteral("%1%2:%3=%4")
                     .arg(t.ruolo == Ruolo::Start ? 'S' : 'A')
                     .arg(t.idPro)
                     .arg(t.idEqu)
                     .arg(t.tempo.mid(6, 2));
    }
    return righe.join(' ');
}

QString descrivi(const QList<ErroreScarico>& errori) {
    QStringList righe;
    for (const ErroreScarico& e : errori)
        righe << QStringLiteral("%1(%2) %3").arg(e.num).arg(e.idEqu).arg(e.testo());
    return righe.join("; ");
}

}  // namespace

void tst_Assegnazione::pressostati_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QString>("righe");
    const auto riga = [](const char* testo, const char* righe) { QTest::newRow(testo) << testo << righe; };
    riga("PA", "S1 | A1");
    riga("PM PM", "S1 | A1 | S2 | A2");
    riga("PA PA+ PA+", "S1 | A1,S2 | A2,S3 | A3");
    riga("PA PM+", "S1 | A1,S2 | A2");
    riga("PM PA+", "S1 | A1,S2 | A2");
    riga("PA CO+ CO", "S1 | A1 | A2 | A3");
    riga("PA CO PA+", "S1 | A1 | A2,S3 | A3");
    riga("CO PA+ PA+", "A1,S2 | A2,S3 | A3");
    riga("CO PA CO+", "A1 | S2 | A2 | A3");
    riga("CO CO+", "A1,S2 | A2");
    riga("CO CO+ PA+", "A1,S2,S3 | A2,S3 | A3");
    riga("CO CO PA+", "A1,S3 | A2,S3 | A3");
    riga("CO CO+ PA PA+", "A1,S2 | A2 | S3 | A3,S4 | A4");
    riga("CO CO+ CO+ PM+", "A1,S2,S4 | A2,S3,S4 | A3,S4 | A4");
}

void tst_Assegnazione::pressostati() {
    QFETCH(QString, testo);
    QTEST(descrivi(elencaPressostati(prove(testo))), "righe");
    QVERIFY(elencaPressostati({}).isEmpty());
}

void tst_Assegnazione::testiERuoli() {
    nuovaManifestazione();
    const int prima = nuovaProva({{"Nom", "Lungolago"}, {"Tem", "00:00:42"}});
    nuovaProva({{"Nom", "Re-start"}, {"Tip", "PM"}, {"ConA", prima}});
    const int altra = IDMan;
    nuovaManifestazione();
    nuovaProva();
    const QList<Pressostato> righe = elencaPressostati(leggiProveCronometrate(altra));
    QCOMPARE(righe.size(), 3);
    QCOMPARE(righe[0][0].testo, "START  -> PA - Lungolago - 00:00:42");
    QCOMPARE(righe[1][0].testo, "ARRIVO -> PA - Lungolago - 00:00:42");
    QCOMPARE(righe[1][1].testo, "START  -> PM - Re-start - 00:01:00");
    QCOMPARE(righe[1][0].idPro, prima);
    QCOMPARE(righe[1][0].ruolo(), Ruolo::Arrivo);
    QCOMPARE(righe[1][1].tipo(), "PM");
    // The role is read back from the text, so this name turns an arrival into a start.
    QCOMPARE(righe[2][0].testo, "ARRIVO -> PM - Re-start - 00:01:00");
    QCOMPARE(righe[2][0].ruolo(), Ruolo::Start);
}

void tst_Assegnazione::scelta_data() {
    const QString nessuno = "Selezionare Almeno un Pressostato";
    const QString lontani = "I Pressostati Selezionati Devono Essere\nAppartenenti a Prove Consecutive";
    QTest::addColumn<QList<int>>("righe");
    QTest::addColumn<QString>("difetto");
    QTest::newRow("none") << QList<int>{} << nessuno;
    QTest::newRow("one") << QList<int>{5} << "";
    QTest::newRow("adjacent") << QList<int>{2, 3, 4} << "";
    QTest::newRow("first and third") << QList<int>{0, 2} << lontani;
    QTest::newRow("gap at the end") << QList<int>{0, 1, 3} << lontani;
}

void tst_Assegnazione::scelta() {
    QFETCH(QList<int>, righe);
    QTEST(difettoScelta(righe), "difetto");
}

void tst_Assegnazione::posizionale_data() {
    QTest::addColumn<bool>("soloPrimo");
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("tempi");
    QTest::addColumn<int>("validi");
    QTest::addColumn<QList<int>>("scartati");
    const auto riga = [](const char* titolo, bool soloPrimo, const char* record, const char* tempi,
                         int validi, const QList<int>& scartati) {
        QTest::newRow(titolo) << soloPrimo << record << tempi << validi << scartati;
    };
    riga("none", false, "", "", 0, {});
    riga("two crews, mixed", false, "1@10:00:01:00 2@10:00:02:00 2@10:00:03:00 1@10:00:04:00",
         "S1:101=01 S1:102=02 A1:102=03 A1:101=04", 4, {});
    riga("the clock does not count", false, "1@10:00:09:00 1@10:00:05:00", "S1:101=09 A1:101=05", 2, {});
    riga("a third time", false, "1@10:00:01:00 1@10:00:02:00 1@10:00:03:00", "S1:101=01 A1:101=02", 2, {1});
    riga("unknown number", false, "9@10:00:01:00 1@10:00:02:00", "S1:101=02", 1, {9});
    riga("no number", false, "1@10:00:01:00 @10:00:02:00", "S1:101=01", 1, {0});
    riga("number for the first switch alone", true,
         "1@10:00:01:00 @10:00:02:00 2@10:00:03:00 @10:00:04:00 @10:00:05:00",
         "S1:101=01 A1:101=02 S1:102=03 A1:102=04", 4, {2});
    riga("first record without number", true, "@10:00:01:00 1@10:00:02:00", "S1:101=02", 1, {0});
    riga("unknown number and its followers", true, "9@10:00:01:00 @10:00:02:00 1@10:00:03:00", "S1:101=03", 1,
         {9, 9});
}

void tst_Assegnazione::posizionale() {
    QFETCH(bool, soloPrimo);
    QFETCH(QString, record);
    const QList<Pressostato> scelti = elencaPressostati(prove("PA"));
    int sentiti = 0;
    const EsitoAssegnazione esito = assegnaTempi(leggi(record), equipaggi({1, 2}), scelti, soloPrimo, intero,
                                                 [&](const RecordScarico& r) {
                                                     QVERIFY(r.numero == 1 || r.numero == 2);
                                                     ++sentiti;
                                                 });
    QTEST(descrivi(esito.tempi), "tempi");
    QTEST(esito.validi, "validi");
    QCOMPARE(sentiti, esito.validi);
    QCOMPARE(esito.previsti, 4);
    QList<int> scartati;
    for (const RecordScartato& scartato : esito.scartati)
        scartati << scartato.record.numero;
    QTEST(scartati, "scartati");
}

// A switch with three targets gives three readings and one valid record; each is cut for its own kind.
void tst_Assegnazione::bersagliETagli() {
    nuovaManifestazione();
    nuovaProva({{"Tip", "CO"}});
    nuovaProva({{"Tip", "CO"}, {"ConA", 1}});
    nuovaProva({{"ConA", 2}});
    const int asi = nuovoEquipaggio(3);
    const int altro = nuovoEquipaggio(4, {{"Omo", " "}});
    const Taglio taglio = [](const QString& tempo, bool suaClasse, const QString& tipo) {
        return tempo.left(6) + (suaClasse ? "ASI" : "NON") + tipo;
    };
    const EsitoAssegnazione esito =
        assegnaTempi(leggi("3@10:00:01:00 4@10:00:02:00"), leggiEquipaggi(IDMan),
                     {elencaPressostati(leggiProveCronometrate(IDMan)).first()}, false, taglio);
    QCOMPARE(esito.validi, 2);
    QCOMPARE(esito.tempi.size(), 6);
    QStringList tempi;
    for (const TempoRicevuto& t : esito.tempi)
        tempi << QStringLiteral("%1 %2").arg(t.idEqu == asi ? 3 : t.idEqu == altro ? 4 : 0).arg(t.tempo);
    QCOMPARE(tempi, QStringList({"3 10:00:ASICO", "3 10:00:ASICO", "3 10:00:ASIPA", "4 10:00:NONCO",
                                 "4 10:00:NONCO", "4 10:00:NONPA"}));

    scriviTempRil(esito.tempi);
    QCOMPARE(contaRighe("TempRil"), 6);
    QCOMPARE(contaRighe("TempRil", "TPar IS NULL AND TArr IS NOT NULL AND IDPro_FK=1"), 2);
    QCOMPARE(contaRighe("TempRil", "TArr IS NULL AND TPar IS NOT NULL AND Num=4"), 2);
}

void tst_Assegnazione::lista() {
    QList<EquipaggioCronometrato> iscritti = equipaggi({5, 7});
    iscritti[1].asi = false;
    const Taglio taglio = [](const QString& tempo, bool asi, const QString& tipo) {
        return tempo.left(8) + (asi ? '+' : '-') + tipo;
    };
    const QList<TempoInLista> tempi = assegnaALista(
        leggi("7@10:00:01:00 @10:00:02:00 9@10:00:03:00 5@10:00:04:00 7@10:00:05:00"), iscritti, taglio);
    QStringList righe;
    for (const TempoInLista& t : tempi)
        righe << QStringLiteral("%1 %2 %3").arg(t.num).arg(t.idEqu).arg(t.tempo);
    QCOMPARE(righe, QStringList({"7 107 10:00:01-CO", "5 105 10:00:04+CO", "7 107 10:00:05-CO"}));
}

void tst_Assegnazione::salva() {
    nuovaManifestazione();
    const int prima = nuovaProva({{"Svo", 0}});
    const int seconda = nuovaProva({{"Svo", 0}, {"ConA", prima}});
    const int terza = nuovaProva({{"Svo", 0}});
    const int e1 = nuovoEquipaggio(1);
    const int e2 = nuovoEquipaggio(2);
    scriviRilevamento(e1, prima, "09:00:00:00", "09:01:00:00", 5);
    scriviRilevamento(e2, seconda, "09:00:00:00", "09:01:00:00");
    const QList<Pressostato> scelti = elencaPressostati(leggiProveCronometrate(IDMan)).mid(1, 1);
    QVERIFY(!ciSonoTempiRicevuti());

    // An empty time (no precision for the kind) and a crew that is not entered write nothing.
    scriviTempRil({{prima, e1, 1, Ruolo::Arrivo, "10:00:00:01"},
                   {seconda, e1, 1, Ruolo::Start, "10:00:00:01"},
                   {prima, e1, 1, Ruolo::Arrivo, "10:00:00:02"},
                   {prima, e2, 2, Ruolo::Arrivo, ""},
                   {prima, 0, 9, Ruolo::Arrivo, "10:00:00:03"}});
    QVERIFY(ciSonoTempiRicevuti());
    salvaTempi(scelti);
    QVERIFY(!ciSonoTempiRicevuti());

    const auto tempi = [](int equ, int pro) {
        return leggiValore("SELECT TPar||' '||TArr FROM Rilevamenti WHERE IDEqu_FK=? AND IDPro_FK=?",
                           {equ, pro})
            ->toString();
    };
    QCOMPARE(tempi(e1, prima), "09:00:00:00 10:00:00:02");
    QCOMPARE(tempi(e1, seconda), "10:00:00:01 ");
    QCOMPARE(tempi(e1, terza), " ");
    QCOMPARE(tempi(e2, prima), " ");
    QCOMPARE(tempi(e2, seconda), "09:00:00:00 09:01:00:00");
    QCOMPARE(contaRighe("Rilevamenti", "PenAgg=5"), 1);
    QCOMPARE(contaRighe("Prove", QStringLiteral("Svo=1 AND IDPro IN (%1,%2)").arg(prima).arg(seconda)), 2);
    QCOMPARE(contaRighe("Prove", "Svo=1"), 2);

    scriviTempRil({{prima, e1, 1, Ruolo::Arrivo, "10:00:00:01"}});
    scriviRicerca({{}, {{0, 9, "", "", true}}, {{9, "10:00:00:00"}}});
    QVERIFY(!ciSonoTempiRicevuti());
    azzeraScarico(Azzera::SoloTempi);
    QCOMPARE(contaRighe("ErroriSca"), 1);
    azzeraScarico(Azzera::AncheErrori);
    QCOMPARE(contaRighe("ErroriSca") + contaRighe("TempScar"), 0);
}

void tst_Assegnazione::salvaTuttoONiente() {
    nuovaManifestazione();
    const int prova = nuovaProva({{"Svo", 0}});
    const int equ = nuovoEquipaggio(1);
    scriviTempRil(
        {{prova, equ, 1, Ruolo::Start, "10:00:00:00"}, {prova, equ, 1, Ruolo::Arrivo, "10:01:00:00"}});
    esegui(
        "CREATE TRIGGER guasto BEFORE UPDATE OF TArr ON Rilevamenti BEGIN SELECT raise(ABORT,'guasto'); END");
    QVERIFY_EXCEPTION_THROWN(salvaTempi(elencaPressostati(leggiProveCronometrate(IDMan))), ErroreArchivio);
    QCOMPARE(contaRighe("TempRil"), 2);
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>''"), 0);
    QCOMPARE(contaRighe("Prove", "Svo=1"), 0);
    esegui("DROP TRIGGER guasto");
    salvaTempi(elencaPressostati(leggiProveCronometrate(IDMan)));
    QCOMPARE(contaRighe("Rilevamenti", "TPar='10:00:00:00' AND TArr='10:01:00:00'"), 1);
}

// Ten thousand records on a hundred crews and a hundred switches.
void tst_Assegnazione::scaricoGrande() {
    nuovaManifestazione();
    {
        Transazione transazione;
        for (int i = 0; i < 50; ++i)
            nuovaProva();
        for (int num = 1; num <= 100; ++num)
            nuovoEquipaggio(num);
        transazione.conferma();
    }
    const QList<Pressostato> scelti = elencaPressostati(leggiProveCronometrate(IDMan));
    QCOMPARE(scelti.size(), 100);
    QByteArray flusso;
    for (int i = 0; i < 10000; ++i) {
        flusso += "T000000" + QByteArray::number(i % 100 + 1).rightJustified(4, ' ') +
                  "    10:00:" + QByteArray::number(i % 60).rightJustified(2, '0') + ".00    \r";
    }
    const EsitoAssegnazione esito =
        assegnaTempi(leggiRecord(Dispositivo::CP520, flusso), leggiEquipaggi(IDMan), scelti, false, intero);
    QCOMPARE(esito.validi, 10000);
    QCOMPARE(esito.previsti, 10000);
    scriviTempRil(esito.tempi);
    salvaTempi(scelti);
    QCOMPARE(contaRighe("Rilevamenti", "TPar LIKE '10:00:%' AND TArr LIKE '10:00:%'"), 5000);
}

void tst_Assegnazione::ricerca_data() {
    QTest::addColumn<bool>("soloPrimo");
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("tempi");
    QTest::addColumn<QString>("errori");
    QTest::addColumn<QString>("scartati");
    const auto riga = [](const char* titolo, bool soloPrimo, const char* record, const char* tempi,
                         const char* errori, const char* scartati) {
        QTest::newRow(titolo) << soloPrimo << record << tempi << errori << scartati;
    };
    // Crews 1 and 2 are entered, two switches.
    riga("all in order", false, "1@10:00:01:00 1@10:00:02:00 2@10:00:03:00 2@10:00:04:00",
         "S1:101=01 A1:101=02 S1:102=03 A1:102=04", "", "");
    riga("too few, and none", false, "1@10:00:01:00", "S1:101=01", "1(101) Pochi Tempi; 2(102) Pochi Tempi",
         "");
    riga("too many", false,
         "1@10:00:01:00 1@10:00:02:00 1@10:00:03:00 1@10:00:04:00 2@10:00:05:00 2@10:00:06:00",
         "S1:101=01 A1:101=02 S1:102=05 A1:102=06", "1(101) Troppi Tempi", "1@03 1@04");
    riga("not entered", false, "9@10:00:01:00 9@10:00:02:00 9@10:00:03:00", "S1:0=01 A1:0=02",
         "9(0) Equipaggio NON Iscritto, Troppi Tempi; 1(101) Pochi Tempi; 2(102) Pochi Tempi", "9@03");
    riga("not entered, too few", false, "8@10:00:01:00", "S1:0=01",
         "8(0) Equipaggio NON Iscritto, Pochi Tempi; 1(101) Pochi Tempi; 2(102) Pochi Tempi", "");
    riga("without number", false, "@10:00:01:00", "", "1(101) Pochi Tempi; 2(102) Pochi Tempi", "0@01");
    riga("number for the first switch alone", true,
         "@10:00:01:00 1@10:00:02:00 @10:00:03:00 2@10:00:04:00 @10:00:05:00 @10:00:06:00",
         "S1:101=02 A1:101=03 S1:102=04 A1:102=05", "2(102) Troppi Tempi", "0@01 2@06");
}

void tst_Assegnazione::ricerca() {
    QFETCH(bool, soloPrimo);
    QFETCH(QString, record);
    const EsitoRicerca esito = ricercaErrori(leggi(record), equipaggi({1, 2}), elencaPressostati(prove("PA")),
                                             soloPrimo, intero, [](const QString&) { return false; });
    QTEST(descrivi(esito.tempi), "tempi");
    QTEST(descrivi(esito.errori), "errori");
    QStringList scartati;
    for (const TempoScartato& t : esito.scartati)
        scartati << QStringLiteral("%1@%2").arg(t.num).arg(t.tempo.mid(6, 2));
    QTEST(scartati.join(' '), "scartati");
}

void tst_Assegnazione::ricercaNellArchivio() {
    nuovaManifestazione();
    nuovaProva();
    nuovaProva({{"Tip", "PM"}, {"ConA", 1}});
    const int uno = nuovoEquipaggio(1);
    nuovoEquipaggio(4);
    nuovoEquipaggio(4);  // one number, two crews: nobody's
    const Taglio taglio = [](const QString& tempo, bool asi, const QString& tipo) {
        return tempo.left(8) + (asi ? '+' : '-') + tipo;
    };
    // A crew that is not entered takes the class of each target's kind.
    const EsitoRicerca esito =
        ricercaErrori(leggi("9@10:00:01:00 1@10:00:02:00 1@10:00:03:00 @10:00:04:00 4@10:00:05:00"),
                      leggiEquipaggi(IDMan), elencaPressostati(leggiProveCronometrate(IDMan)).mid(1, 1),
                      false, taglio, [](const QString& tipo) { return tipo == "PM"; });
    for (int volta = 0; volta < 2; ++volta)  // the second replaces the first
        scriviRicerca(esito);

    QCOMPARE(contaRighe("TempRil"), 6);
    QCOMPARE(contaRighe("TempRil", "IDEqu_FK IS NULL AND Num=9 AND TArr='10:00:01-PA'"), 1);
    QCOMPARE(contaRighe("TempRil", "IDEqu_FK IS NULL AND Num=9 AND TPar='10:00:01+PM'"), 1);
    QCOMPARE(contaRighe("TempRil", QStringLiteral("IDEqu_FK=%1").arg(uno)), 2);
    QCOMPARE(contaRighe("ErroriSca", "IDEqu_FK IS NULL AND Equ IS NULL AND ErrIsc=1 AND ErrTroTem=0"), 2);
    QCOMPARE(contaRighe("TempScar", "Num IS NULL AND Tem='10:00:04:00'"), 1);

    const QList<ErroreScarico> errori = leggiErrori();
    QCOMPARE(descrivi(errori), QStringLiteral("9(0) Equipaggio NON Iscritto; 1(%1) Troppi Tempi; "
                                              "4(0) Equipaggio NON Iscritto")
                                   .arg(uno));
    QCOMPARE(errori[1].equipaggio, "ROSSI BIANCHI");
    QCOMPARE(errori[1].veicolo, "LANCIA APRILIA");
    const QList<TempoScartato> scartati = leggiTempiScartati();
    QCOMPARE(scartati.size(), 2);
    QCOMPARE(scartati[0].num, 1);
    QCOMPARE(scartati[0].tempo, "10:00:03:00");
    QCOMPARE(scartati[1].num, 0);
}

QTEST_GUILESS_MAIN(tst_Assegnazione)
#include "tst_Assegnazione.moc"

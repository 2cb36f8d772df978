#include "correction/RicercaTempi.h"
#include "scoring/Penalita.h"
#include "supporto/ProgrammaDiProva.h"

#include <QTest>

namespace {

// The result as lines: crew, "  " test, "    " finding.
QStringList righe(const RisultatoRicerca& risultato) {
    QStringList testi;
    for (const EquipaggioTrovato& equipaggio : risultato.equipaggi) {
        testi << equipaggio.testo;
        for (const ProvaTrovata& prova : equipaggio.prove) {
            QStringList tempi;
            for (const TempoTrovato& tempo : prova.tempi)
                tempi << tempo.testo;
            testi << prova.nome + ": " + tempi.join(", ");
        }
    }
    return testi;
}

}  // namespace

class tst_RicercaTempi final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void esito_data();
    void esito();
    void duePreveNessunoScarto();
    void soloProveSvolteSenzaPenAgg();
    void nulliEBianchi();
    void numeriFuoriDallElenco();
    void nodiDaCapoPerEquipaggio();
    void unEquipaggio();
    void avanzamento();
    void chiavi();

private:
    // A crew with one net deviation in hundredths per test (imposed one minute, penalty one a hundredth).
    int equipaggio(int num, const QList<int>& scarti);
    void tempi(int idEqu, int prova, const QVariant& tPar, const QVariant& tArr);

    std::unique_ptr<ProgrammaDiProva> m_programma;
    QList<int> m_prove;
};

void tst_RicercaTempi::init() {
    m_programma = std::make_unique<ProgrammaDiProva>();
    nuovaManifestazione();
    m_prove.clear();
    for (const char* nome : {"P1", "P2", "P3", "P4", "P5"})
        m_prove << nuovaProva({{"Nom", nome}});
}

void tst_RicercaTempi::cleanup() {
    m_programma.reset();
}

int tst_RicercaTempi::equipaggio(int num, const QList<int>& scarti) {
    const int idEqu = nuovoEquipaggio(num);
    for (int i = 0; i < scarti.size(); ++i) {
        scriviRilevamento(idEqu, m_prove[i], "10:00:00:00",
                          QString("10:01:%1:%2")
                              .arg(scarti[i] / 100, 2, 10, QChar('0'))
                              .arg(scarti[i] % 100, 2, 10, QChar('0')));
    }
    return idEqu;
}

void tst_RicercaTempi::tempi(int idEqu, int prova, const QVariant& tPar, const QVariant& tArr) {
    esegui("UPDATE Rilevamenti SET TPar=?,TArr=? WHERE IDEqu_FK=? AND IDPro_FK=?",
           {tPar, tArr, idEqu, m_prove[prova]});
}

void tst_RicercaTempi::esito_data() {
    QTest::addColumn<QList<int>>("scarti");
    QTest::addColumn<QStringList>("attese");
    QTest::newRow("in order") << QList<int>{10, 12, 14, 16, 18} << QStringList();
    QTest::newRow("one above") << QList<int>{10, 10, 10, 10, 26}
                               << QStringList{"7 ROSSI BIANCHI [10]",
                                              "P5: Partenza [Fuori Media], Arrivo [Fuori Media]"};
    QTest::newRow("just at the limit: a test without findings")
        << QList<int>{10, 10, 10, 10, 25} << QStringList{"7 ROSSI BIANCHI [10]", "P5: "};
    QTest::newRow("mean of 0: zeros stand without findings, all else is out")
        << QList<int>{0, 0, 0, 0, 1} << QStringList{"7 ROSSI BIANCHI [0]",
                                                    "P1: ",
                                                    "P2: ",
                                                    "P3: ",
                                                    "P4: ",
                                                    "P5: Partenza [Fuori Media], Arrivo [Fuori Media]"};
    QTest::newRow("rounded to three decimals")
        << QList<int>{10, 10, 10, 11, 100}
        << QStringList{"7 ROSSI BIANCHI [10,333]", "P5: Partenza [Fuori Media], Arrivo [Fuori Media]"};
}

void tst_RicercaTempi::esito() {
    QFETCH(QList<int>, scarti);
    QFETCH(QStringList, attese);
    equipaggio(7, scarti);
    QCOMPARE(righe(cercaTempi()), attese);
}

void tst_RicercaTempi::duePreveNessunoScarto() {
    esegui("UPDATE Prove SET Svo=0 WHERE IDPro NOT IN (?,?)", {m_prove[0], m_prove[1]});
    const int idEqu = equipaggio(7, {10, 1000, 0, 0, 0});
    QCOMPARE(MediaPenalita(idEqu), 505.0F);
    QCOMPARE(righe(cercaTempi()), QStringList());  // 1000 stands below 2.5 x 505
    esegui("UPDATE Prove SET Svo=1 WHERE IDPro=?", {m_prove[2]});
    // Of three only the middle one remains: 10.
    QCOMPARE(righe(cercaTempi()),
             QStringList({"7 ROSSI BIANCHI [10]", "P2: Partenza [Fuori Media], Arrivo [Fuori Media]"}));
    esegui("UPDATE Prove SET Svo=0");
    QVERIFY(!esistonoProveSvolte());
    QCOMPARE(righe(cercaTempi()), QStringList());
}

void tst_RicercaTempi::soloProveSvolteSenzaPenAgg() {
    const int idEqu = equipaggio(7, {10, 10, 10, 10, 2000});
    esegui("UPDATE Rilevamenti SET PenAgg=5000 WHERE IDPro_FK=?", {m_prove[0]});
    esegui("UPDATE Prove SET Svo=0 WHERE IDPro=?", {m_prove[4]});
    QCOMPARE(righe(cercaTempi()), QStringList());
    // An arrival not after the start is looked at only where the penalty reaches the limit.
    tempi(idEqu, 3, "10:01:00:10", "10:00:00:00");
    QCOMPARE(righe(cercaTempi()), QStringList());
    tempi(idEqu, 3, "10:00:00:00", "10:00:00:00");
    tempi(idEqu, 2, "10:05:00:00", "10:00:00:00");
    QCOMPARE(righe(cercaTempi()), QStringList({"7 ROSSI BIANCHI [3005]",
                                               "P3: Partenza [Arrivo<Partenza], Arrivo [Arrivo<Partenza]"}));
}

void tst_RicercaTempi::nulliEBianchi() {
    const int idEqu = equipaggio(7, {10, 10, 10, 10, 10});
    tempi(idEqu, 0, QVariant(), QVariant());
    tempi(idEqu, 1, QVariant(), "10:01:00:10");
    tempi(idEqu, 2, "10:00:00:00", "");
    tempi(idEqu, 3, "   ", "  ");
    QCOMPARE(righe(cercaTempi()).mid(1),
             QStringList({"P1: Partenza [Mancante], Arrivo [Mancante]", "P2: Partenza [Mancante]",
                          "P3: Arrivo [Mancante]", "P4: Partenza [Mancante], Arrivo [Mancante]"}));
}

void tst_RicercaTempi::numeriFuoriDallElenco() {
    equipaggio(999, {10, 10, 10, 10, 100});
    equipaggio(1000, {10, 10, 10, 10, 100});
    const RisultatoRicerca risultato = cercaTempi();
    QCOMPARE(risultato.nonCercati, std::vector<int>{1000});
    QCOMPARE(righe(risultato).size(), 2);
    QVERIFY(righe(risultato).first().startsWith("999 "));
}

// Two crews with a finding on the same test: the second has a test node of its own.
void tst_RicercaTempi::nodiDaCapoPerEquipaggio() {
    equipaggio(8, {10, 10, 10, 10, 100});
    equipaggio(2, {10, 10, 10, 10, 100});
    const RisultatoRicerca risultato = cercaTempi();
    QCOMPARE(righe(risultato),
             QStringList({"2 ROSSI BIANCHI [10]", "P5: Partenza [Fuori Media], Arrivo [Fuori Media]",
                          "8 ROSSI BIANCHI [10]", "P5: Partenza [Fuori Media], Arrivo [Fuori Media]"}));
    const int idRil = leggiValore("SELECT IDRil FROM Rilevamenti WHERE IDEqu_FK=? AND IDPro_FK=?",
                                  {risultato.equipaggi[1].idEqu, m_prove[4]})
                          ->toInt();
    QCOMPARE(risultato.equipaggi[1].prove[0].tempi[1],
             TempoTrovato({idRil, CampoTempo::Arrivo, "Arrivo [Fuori Media]"}));
}

void tst_RicercaTempi::unEquipaggio() {
    equipaggio(2, {10, 10, 10, 10, 100});
    const int otto = equipaggio(8, {10, 10, 10, 10, 100});
    const RisultatoRicerca tutti = cercaTempi();
    const RisultatoRicerca uno = cercaTempi({}, otto);
    QCOMPARE(righe(uno), righe(tutti).mid(2));
    QCOMPARE(uno.equipaggi[0].prove[0].tempi, tutti.equipaggi[1].prove[0].tempi);
}

void tst_RicercaTempi::avanzamento() {
    for (int num = 1; num <= 4; ++num)
        equipaggio(num, {10, 10, 10, 10, 10});
    QStringList passi;
    cercaTempi([&](FaseRicerca fase, int percento) {
        passi << QString(fase == FaseRicerca::Medie ? "M%1" : "T%1").arg(percento);
    });
    QCOMPARE(passi.mid(0, 5), QStringList({"M25", "M50", "M75", "M100", "T5"}));
    QCOMPARE(passi.last(), QString("T100"));
    QCOMPARE(passi.size(), 4 + 20);
}

void tst_RicercaTempi::chiavi() {
    const QString chiave = chiaveTempo(3, 14, {159, CampoTempo::Arrivo, {}});
    QCOMPARE(chiave, QString("/EQ3/PR14/AR159"));
    const std::optional<NodoRicerca> nodo = leggiChiave(chiave);
    QVERIFY(nodo && nodo->idEqu == 3 && nodo->idPro == 14 && nodo->campo == CampoTempo::Arrivo);
    QVERIFY(leggiChiave("/EQ3") && !leggiChiave("/EQ3")->idPro);
    QVERIFY(leggiChiave(chiaveProva(3, 14)) && !leggiChiave(chiaveProva(3, 14))->campo);
    QVERIFY(!leggiChiave(""));
}

QTEST_GUILESS_MAIN(tst_RicercaTempi)
#include "tst_RicercaTempi.moc"

#include "readings/RicercaTempi.h"
#include "scoring/Penalita.h"
#include "supporto/ProgrammaDiProva.h"

namespace {

// The result as lines: each crew, then its tests with what was found.
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

class tst_RicercaTempi final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void esito();
    void duePreveNessunoScarto();
    void soloProveSvolteSenzaPenAgg();
    void nulliEBianchi();
    void piuEquipaggi();

private:
    void prepara() override;
    // A crew with one net deviation in hundredths per test (imposed one minute, penalty one a hundredth).
    int equipaggio(int num, const QList<int>& scarti);
    void tempi(int idEqu, int prova, const QVariant& tPar, const QVariant& tArr);

    QList<int> m_prove;
};

void tst_RicercaTempi::prepara() {
    nuovaManifestazione();
    m_prove.clear();
    for (const char* nome : {"P1", "P2", "P3", "P4", "P5"})
        m_prove << nuovaProva({{"Nom", nome}});
}

int tst_RicercaTempi::equipaggio(int num, const QList<int>& scarti) {
    const int idEqu = nuovoEquipaggio(num);
    for (int i = 0; i < scarti.size(); ++i) {
        const QTime arrivo = QTime(10, 1).addMSecs(scarti[i] * 10);
        scriviRilevamento(idEqu, m_prove[i], "10:00:00:00", arrivo.toString("hh:mm:ss:zzz").chopped(1));
    }
    return idEqu;
}

void tst_RicercaTempi::tempi(int idEqu, int prova, const QVariant& tPar, const QVariant& tArr) {
    esegui("UPDATE Rilevamenti SET TPar=?,TArr=? WHERE IDEqu_FK=? AND IDPro_FK=?",
           {tPar, tArr, idEqu, m_prove[prova]});
}

void tst_RicercaTempi::esito() {
    const QString fuori = "P5: Partenza [Fuori Media], Arrivo [Fuori Media]";
    const struct {
        const char* nome;
        QList<int> scarti;
        QStringList attese;
    } casi[] = {{"in order", {10, 12, 14, 16, 18}, {}},
                {"one above", {10, 10, 10, 10, 26}, {"7 ROSSI BIANCHI [10]", fuori}},
                {"just at the limit: a test without findings",
                 {10, 10, 10, 10, 25},
                 {"7 ROSSI BIANCHI [10]", "P5: "}},
                {"mean of 0: zeros stand without findings, all else is out",
                 {0, 0, 0, 0, 1},
                 {"7 ROSSI BIANCHI [0]", "P1: ", "P2: ", "P3: ", "P4: ", fuori}},
                {"rounded to three decimals", {10, 10, 10, 11, 100}, {"7 ROSSI BIANCHI [10,333]", fuori}}};
    for (const auto& [nome, scarti, attese] : casi) {
        ricomincia();
        equipaggio(7, scarti);
        QVERIFY2(righe(cercaTempi()) == attese, nome);
    }
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
    tempi(idEqu, 4, " ", QVariant());
    QCOMPARE(righe(cercaTempi()).mid(1),
             QStringList({"P1: Partenza [Mancante], Arrivo [Mancante]", "P2: Partenza [Mancante]",
                          "P3: Arrivo [Mancante]", "P4: Partenza [Mancante], Arrivo [Mancante]",
                          "P5: Arrivo [Mancante]"}));
}

// Each crew that the search can hold has test nodes of its own, and found alone is the same.
void tst_RicercaTempi::piuEquipaggi() {
    for (const int num : {1000, 999, 2})
        equipaggio(num, {10, 10, 10, 10, 100});
    QStringList passi;
    const RisultatoRicerca tutti = cercaTempi([&](FaseRicerca fase, int percento) {
        passi << QString(fase == FaseRicerca::Medie ? "M%1" : "T%1").arg(percento);
    });
    QCOMPARE(tutti.nonCercati, std::vector<int>{1000});
    const QString fuori = "P5: Partenza [Fuori Media], Arrivo [Fuori Media]";
    QCOMPARE(righe(tutti), QStringList({"2 ROSSI BIANCHI [10]", fuori, "999 ROSSI BIANCHI [10]", fuori}));
    QCOMPARE(passi.mid(0, 4) + passi.mid(17), QStringList({"M33", "M66", "M100", "T6", "T100"}));
    const EquipaggioTrovato& secondo = tutti.equipaggi[1];
    const int idRil = leggiValore("SELECT IDRil FROM Rilevamenti WHERE IDEqu_FK=? AND IDPro_FK=?",
                                  {secondo.idEqu, m_prove[4]})
                          ->toInt();
    QCOMPARE(secondo.prove[0].tempi[1], TempoTrovato({idRil, CampoTempo::Arrivo, "Arrivo [Fuori Media]"}));
    const RisultatoRicerca uno = cercaTempi({}, secondo.idEqu);
    QCOMPARE(righe(uno), righe(tutti).mid(2));
    QCOMPARE(uno.equipaggi[0].prove[0].tempi, secondo.prove[0].tempi);
}

QTEST_GUILESS_MAIN(tst_RicercaTempi)
#include "tst_RicercaTempi.moc"

#include "archive/Aggiornamenti.h"
#include "archive/Schema.h"
#include "supporto/ProgrammaDiProva.h"

#include <numeric>

class tst_Aggiornamenti final : public ProvaConProgramma {
    Q_OBJECT

public:
    tst_Aggiornamenti() : ProvaConProgramma(Archivio::Nessuno) {}

private Q_SLOTS:
    void daOgniEta();
    void righeVecchie();
    void schedeDiAltriTipi();
    void discoPieno();
    void passoImpedito();
    void archivioOccupato();
};

namespace {

constexpr int UltimoPasso = 14;

void apriArchivioPrimaDelPasso(int passo) {
    creaArchivio(percorsoArchivio(), passo);
    ApriDataBase();
}

QList<int> passiDa(int primo) {
    QList<int> passi(UltimoPasso - primo + 1);
    std::iota(passi.begin(), passi.end(), primo);
    return passi;
}

// What the archive is made of, whatever the order of the columns: each column with its type, each index.
QStringList struttura() {
    return leggiColonna(
        "SELECT m.name||' '||c.name||' '||c.type||' '||c.pk AS riga FROM sqlite_master m,"
        "pragma_table_info(m.name) c WHERE m.type='table' AND m.name NOT LIKE 'sqlite%' "
        "UNION ALL SELECT sql FROM sqlite_master WHERE type='index' ORDER BY riga");
}

}  // namespace

void tst_Aggiornamenti::daOgniEta() {
    apriArchivioPrimaDelPasso(UltimoPasso + 1);
    const QStringList attesa = struttura();
    for (int passo = 1; passo <= UltimoPasso; ++passo) {
        ricomincia();
        apriArchivioPrimaDelPasso(passo);
        QCOMPARE(AggiornaArchivio(), passiDa(passo));
        QCOMPARE(struttura(), attesa);
        QCOMPARE(leggiValore("PRAGMA integrity_check")->toString(), QString("ok"));
        // The reports' connection was open all the while.
        for (const Tabella& tabella : tabelle())
            Statement(QString("SELECT [%1] FROM %2").arg(tabella.colonne.back().nome, tabella.nome),
                      ConnShape())
                .esegui();
        const QByteArray prima = leggiFile(percorsoArchivio());
        QCOMPARE(AggiornaArchivio(), QList<int>());
        QCOMPARE(leggiFile(percorsoArchivio()), prima);
    }
}

void tst_Aggiornamenti::righeVecchie() {
    apriArchivioPrimaDelPasso(1);
    const int man = inserisciRiga("Manifestazioni", {{"Nom", "Coppa d'Autunno"}, {"PenMax", 300}});
    const int pro = inserisciRiga("Prove", {{"IDMan_FK", man}, {"Nom", "Passo"}});
    const int equ = inserisciRiga("Equipaggi", {{"IDMan_FK", man}, {"Num", 12}, {"Cog", "Nicolò"}});
    inserisciRiga("Rilevamenti", {{"IDEqu_FK", equ}, {"IDPro_FK", pro}, {"TPar", "10:00:00:00"}});
    inserisciRiga("TempRil", {{"IDEqu_FK", equ}, {"TArr", "10:05:12:33"}});
    for (const QVariant& penAgg : {QVariant(30), QVariant(), QVariant(0)})
        inserisciRiga("Schede", {{"Num", 12}, {"PenAgg", penAgg}, {"TSca", "+3"}});
    AggiornaArchivio();

    QCOMPARE(leggiColonna("SELECT Nom||PenMax FROM Manifestazioni UNION ALL SELECT Num||Cog FROM Equipaggi "
                          "UNION ALL SELECT TPar FROM Rilevamenti UNION ALL SELECT TArr FROM TempRil "
                          "UNION ALL SELECT TSca||typeof(PenAgg)||ifnull(PenAgg,'') FROM Schede"),
             QStringList({"Coppa d'Autunno300", "12Nicolò", "10:00:00:00", "10:05:12:33", "+3real30.0",
                          "+3null", "+3real0.0"}));
    for (const Tabella& tabella : tabelle()) {
        for (const Colonna& colonna : tabella.colonne) {
            if (colonna.passo != 0 && colonna.passo != UltimoPasso)
                QCOMPARE(contaRighe(tabella.nome, QString("[%1] IS NOT NULL").arg(colonna.nome)), 0);
        }
    }
    // What was a whole number before now holds fractions, and the cascades still stand.
    esegui("UPDATE Schede SET PenAgg=?", {0.5});
    QCOMPARE(contaRighe("Schede", "PenAgg=0.5"), 3);
    esegui("DELETE FROM Manifestazioni");
    QCOMPARE(contaRighe("Rilevamenti"), 0);
}

void tst_Aggiornamenti::schedeDiAltriTipi() {
    apriArchivioPrimaDelPasso(UltimoPasso);
    for (const char* tipo : {"INTEGER", "TEXT", "DOUBLE", ""}) {
        esegui("DROP TABLE Schede");
        esegui(QString("CREATE TABLE Schede (Num INTEGER, PenAgg %1, TSca TEXT)").arg(tipo));
        inserisciRiga("Schede", {{"Num", 1}, {"PenAgg", 7}});
        QCOMPARE(AggiornaArchivio(), QList<int>{UltimoPasso});
        QCOMPARE(contaRighe("Schede", "typeof(PenAgg)='real' AND PenAgg=7 AND Num=1"), 1);
        QCOMPARE(AggiornaArchivio(), QList<int>());
    }
}

void tst_Aggiornamenti::discoPieno() {
    // The disk fills up at every possible point: the archive is then as it was, and the next start upgrades
    // it.
    int falliti = 0;
    for (int libere = 0;; ++libere) {
        ricomincia();
        apriArchivioPrimaDelPasso(1);
        inserisciRiga("TempRil", {{"TArr", "10:05:12:33"}});
        riempiDisco(libere);
        const QStringList prima = struttura();
        const QString testo = erroreDi(&AggiornaArchivio);
        if (testo.isEmpty())
            break;
        QVERIFY2(testo.contains("disco è pieno"), qPrintable(testo));
        ++falliti;
        QCOMPARE(struttura(), prima);
        ChiudiDataBase();
        ApriDataBase();
        QCOMPARE(AggiornaArchivio(), passiDa(1));
        QCOMPARE(contaRighe("TempRil", "TArr='10:05:12:33' AND Num IS NULL"), 1);
    }
    QVERIFY(falliti > 3);
}

void tst_Aggiornamenti::passoImpedito() {
    // Each of these makes the last statement of its step fail, and undoes the steps before it too: a table in
    // the place of an index, a column, a change of type. Names are compared letter by letter, the engine's
    // are not: then the step runs, fails, and stops the start.
    const std::tuple<int, int, const char*> casi[] = {
        {1, 1, "CREATE TABLE TempRil_Numero (a)"},
        {1, 9, "ALTER TABLE Manifestazioni ADD COLUMN NumPenProNonSvo"},
        {1, 14, "CREATE TRIGGER fermo BEFORE UPDATE ON Schede BEGIN SELECT RAISE(ABORT,'fermo'); END"},
        {15, 12, "ALTER TABLE Classifica RENAME COLUMN Coeff TO coeff"}};
    for (const auto& [eta, passo, intralcio] : casi) {
        ricomincia();
        apriArchivioPrimaDelPasso(eta);
        inserisciRiga("Schede", {{"Num", 3}, {"PenAgg", 20}});
        esegui(intralcio);
        const QStringList prima = struttura();
        const QString testo = erroreDi(&AggiornaArchivio);
        QVERIFY2(testo.contains(QString("passo %1,").arg(passo)), intralcio);
        QCOMPARE(struttura(), prima);
        QCOMPARE(contaRighe("Schede", "Num=3 AND PenAgg=20"), 1);
    }
}

void tst_Aggiornamenti::archivioOccupato() {
    apriArchivioPrimaDelPasso(1);
    const QStringList prima = struttura();
    leggiValore("PRAGMA busy_timeout=1");
    {
        const Transazione altrui(ConnShape());
        QVERIFY(erroreDi(&AggiornaArchivio).contains("L'archivio è in uso"));
    }
    QCOMPARE(struttura(), prima);
    QCOMPARE(AggiornaArchivio(), passiDa(1));
}

QTEST_GUILESS_MAIN(tst_Aggiornamenti)
#include "tst_Aggiornamenti.moc"

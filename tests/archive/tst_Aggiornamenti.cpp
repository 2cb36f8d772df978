#include "archive/Aggiornamenti.h"
#include "archive/ErroreArchivio.h"
#include "archive/Schema.h"
#include "supporto/ProgrammaDiProva.h"

#include <numeric>
#include <QFile>
#include <QTest>

class tst_Aggiornamenti final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void daOgniEta_data();
    void daOgniEta();
    void righeVecchie();
    void nomeEsatto();
    void schedeDiAltriTipi();
    void discoPieno();
    void passoImpedito_data();
    void passoImpedito();
    void archivioOccupato();
    void cambioTipoInterrotto();
};

namespace {

constexpr int UltimoPasso = 14;

QByteArray contenuto() {
    QFile file(percorsoArchivio());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

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
    QStringList righe;
    Statement colonne(
        "SELECT m.name,c.name,c.type,c.pk FROM sqlite_master m,pragma_table_info(m.name) c "
        "WHERE m.type='table' AND m.name NOT LIKE 'sqlite%'");
    colonne.esegui();
    while (colonne.prossima())
        righe << QStringList{colonne.testo(0), colonne.testo(1), colonne.testo(2), colonne.testo(3)}.join(
            ' ');
    Statement indici("SELECT sql FROM sqlite_master WHERE type='index'");
    indici.esegui();
    while (indici.prossima())
        righe << indici.testo(0);
    righe.sort();
    return righe;
}

// The structure of an archive before each step (from 1), and of one that lacks none (last).
QList<QStringList> struttureDiOgniEta() {
    QList<QStringList> tutte;
    for (int passo = 1; passo <= UltimoPasso + 1; ++passo) {
        const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
        apriArchivioPrimaDelPasso(passo);
        tutte << struttura();
    }
    return tutte;
}

}  // namespace

void tst_Aggiornamenti::daOgniEta_data() {
    QTest::addColumn<int>("passo");
    for (const PassoAggiornamento& passo : passiAggiornamento())
        QTest::addRow("before step %d", passo.ordine) << passo.ordine;
}

void tst_Aggiornamenti::daOgniEta() {
    QFETCH(int, passo);
    const QStringList attesa = [] {
        const ProgrammaDiProva nuovo;
        return struttura();
    }();
    const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    apriArchivioPrimaDelPasso(passo);
    QVERIFY(struttura() != attesa);
    QCOMPARE(AggiornaArchivio(), passiDa(passo));
    QCOMPARE(struttura(), attesa);
    QCOMPARE(leggiValore("PRAGMA integrity_check")->toString(), QString("ok"));
    // The reports' connection was open all the while.
    for (const Tabella& tabella : tabelle())
        Statement(QString("SELECT [%1] FROM %2").arg(tabella.colonne.back().nome, tabella.nome), ConnShape())
            .esegui();
    const QByteArray prima = contenuto();
    QCOMPARE(AggiornaArchivio(), QList<int>());
    QCOMPARE(contenuto(), prima);
}

void tst_Aggiornamenti::righeVecchie() {
    const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    apriArchivioPrimaDelPasso(1);
    const int man = inserisciRiga("Manifestazioni", {{"Nom", "Coppa d'Autunno"}, {"PenMax", 300}});
    const int pro = inserisciRiga("Prove", {{"IDMan_FK", man}, {"Nom", "Passo"}});
    const int equ = inserisciRiga("Equipaggi", {{"IDMan_FK", man}, {"Num", 12}, {"Cog", "Nicolò"}});
    inserisciRiga("Rilevamenti", {{"IDEqu_FK", equ}, {"IDPro_FK", pro}, {"TPar", "10:00:00:00"}});
    inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}, {"Fat", 1.5}});
    inserisciRiga("TempRil", {{"IDEqu_FK", equ}, {"TArr", "10:05:12:33"}});
    inserisciRiga("ClassificaProva", {{"Num", 12}, {"Net10", "00:01:00"}});
    inserisciRiga("Classifica", {{"Num", 12}, {"Pen", 12.5}});
    for (const QVariant& penAgg : {QVariant(30), QVariant(), QVariant(0)})
        inserisciRiga("Schede", {{"Num", 12}, {"PenAgg", penAgg}, {"TSca", "+3"}});
    AggiornaArchivio();

    const char* vecchi[] = {
        "Manifestazioni WHERE Nom='Coppa d''Autunno' AND PenMax=300",
        "Equipaggi WHERE Num=12 AND Cog='Nicolò'",
        "Rilevamenti WHERE TPar='10:00:00:00'",
        "Raggruppamenti WHERE Fat=1.5",
        "TempRil WHERE TArr='10:05:12:33'",
        "ClassificaProva WHERE Net10='00:01:00'",
        "Classifica WHERE Pen=12.5",
        "Schede WHERE TSca='+3' AND typeof(PenAgg)='real' AND PenAgg=30",
        "Schede WHERE TSca='+3' AND PenAgg IS NULL",
        "Schede WHERE TSca='+3' AND typeof(PenAgg)='real' AND PenAgg=0",
    };
    for (const char* riga : vecchi)
        QCOMPARE(leggiValore(QString("SELECT count(*) FROM %1").arg(riga))->toInt(), 1);
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

void tst_Aggiornamenti::nomeEsatto() {
    // Names are compared letter by letter, the engine's are not: the step runs, fails, and stops the start.
    const ProgrammaDiProva programma;
    esegui("ALTER TABLE Classifica RENAME COLUMN Coeff TO coeff");
    const QStringList prima = struttura();
    try {
        AggiornaArchivio();
        QFAIL("two columns of one name");
    } catch (const ErroreArchivio& errore) {
        QVERIFY2(errore.testo().contains("passo 12"), qPrintable(errore.testo()));
        QVERIFY2(errore.testo().contains("duplicate column name"), qPrintable(errore.testo()));
    }
    QCOMPARE(struttura(), prima);
}

void tst_Aggiornamenti::schedeDiAltriTipi() {
    const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
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
    // The disk fills up at every possible point: the archive is then of one of the known ages, and the next
    // start brings it to the end.
    const QList<QStringList> strutture = struttureDiOgniEta();
    int falliti = 0;
    for (int libere = 0;; ++libere) {
        const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
        apriArchivioPrimaDelPasso(1);
        inserisciRiga("TempRil", {{"TArr", "10:05:12:33"}});
        const int pagine = leggiValore("PRAGMA page_count")->toInt() + libere;
        leggiValore(QString("PRAGMA max_page_count=%1").arg(pagine));
        try {
            AggiornaArchivio();
            break;
        } catch (const ErroreArchivio& errore) {
            QVERIFY2(errore.testo().contains("disco è pieno"), qPrintable(errore.testo()));
            ++falliti;
        }
        QVERIFY(strutture.contains(struttura()));
        ChiudiDataBase();
        ApriDataBase();
        AggiornaArchivio();
        QCOMPARE(struttura(), strutture.constLast());
        QCOMPARE(contaRighe("TempRil", "TArr='10:05:12:33' AND Num IS NULL"), 1);
    }
    QVERIFY(falliti > 3);
}

void tst_Aggiornamenti::passoImpedito_data() {
    QTest::addColumn<int>("passo");
    QTest::addColumn<QString>("intralcio");  // makes the last statement of the step fail
    QTest::newRow("1") << 1 << "CREATE TABLE TempRil_Numero (a)";
    QTest::newRow("2") << 2 << "ALTER TABLE ClassificaProva ADD COLUMN Nom15";
    QTest::newRow("3") << 3 << "ALTER TABLE Manifestazioni ADD COLUMN NumFatNoASI";
    QTest::newRow("4") << 4 << "CREATE TABLE ErroriSca_IDEquipaggio (a)";
    QTest::newRow("5") << 5 << "CREATE TABLE TempScar_Numero (a)";
    QTest::newRow("6") << 6 << "CREATE TABLE ProspCoeff_IDEquipaggio (a)";
    QTest::newRow("8") << 8 << "ALTER TABLE Raggruppamenti ADD COLUMN AAnn";
    QTest::newRow("9") << 9 << "ALTER TABLE Manifestazioni ADD COLUMN NumPenProNonSvo";
}

void tst_Aggiornamenti::passoImpedito() {
    QFETCH(int, passo);
    QFETCH(QString, intralcio);
    const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    apriArchivioPrimaDelPasso(passo);
    esegui(intralcio);
    const QStringList prima = struttura();
    QVERIFY_EXCEPTION_THROWN(AggiornaArchivio(), ErroreArchivio);
    QCOMPARE(struttura(), prima);
}

void tst_Aggiornamenti::archivioOccupato() {
    const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    apriArchivioPrimaDelPasso(1);
    const QStringList prima = struttura();
    leggiValore("PRAGMA busy_timeout=1");
    {
        const Transazione altrui(ConnShape());
        try {
            AggiornaArchivio();
            QFAIL("the archive is another's");
        } catch (const ErroreArchivio& errore) {
            QVERIFY2(errore.testo().contains("in uso"), qPrintable(errore.testo()));
        }
    }
    QCOMPARE(struttura(), prima);
    esegui("PRAGMA query_only=1");
    QVERIFY_EXCEPTION_THROWN(AggiornaArchivio(), ErroreArchivio);
    QCOMPARE(struttura(), prima);
    esegui("PRAGMA query_only=0");
    QCOMPARE(AggiornaArchivio(), passiDa(1));
}

void tst_Aggiornamenti::cambioTipoInterrotto() {
    const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    apriArchivioPrimaDelPasso(UltimoPasso);
    inserisciRiga("Schede", {{"Num", 3}, {"PenAgg", 20}});
    esegui("CREATE TRIGGER fermo BEFORE UPDATE ON Schede BEGIN SELECT RAISE(ABORT,'fermo'); END");
    QVERIFY_EXCEPTION_THROWN(AggiornaArchivio(), ErroreArchivio);
    QCOMPARE(contaRighe("Schede", "Num=3 AND typeof(PenAgg)='integer' AND PenAgg=20"), 1);
    esegui("DROP TRIGGER fermo");
    QCOMPARE(AggiornaArchivio(), QList<int>{UltimoPasso});
    QCOMPARE(contaRighe("Schede", "Num=3 AND typeof(PenAgg)='real' AND PenAgg=20"), 1);
}

QTEST_GUILESS_MAIN(tst_Aggiornamenti)
#include "tst_Aggiornamenti.moc"

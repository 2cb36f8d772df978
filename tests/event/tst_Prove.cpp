#include "archive/ErroreArchivio.h"
#include "event/NuovaManifestazione.h"
#include "supporto/ProgrammaDiProva.h"

#include <QTest>

namespace {

// "PA CO+ PM": kinds in order, chained ones with a plus.
QList<Prova> elenco(const QString& testo) {
    QList<Prova> prove;
    const QStringList tipi = testo.split(' ', Qt::SkipEmptyParts);
    for (const QString& tipo : tipi) {
        const bool concatenata = tipo.endsWith('+');
        prove << Prova{.tip = tipo.left(2), .tem = "00:10:00", .concatenata = concatenata};
    }
    return prove;
}

// An event with these tests; the keys of the tests.
QList<int> salva(const QString& testo) {
    ImpostaManifestazioneAttiva(
        salvaManifestazione({.dati = datiIniziali(), .gruppi = {}, .squadre = {}, .prove = elenco(testo)}));
    QList<int> chiavi;
    for (const Prova& prova : leggiProve(IDMan))
        chiavi << prova.id;
    return chiavi;
}

// What each test is chained to, by position from 1; 0 for none.
QString catena(const QList<int>& chiavi) {
    QStringList posizioni;
    Statement lettura("SELECT ConA FROM Prove WHERE IDMan_FK=? ORDER BY IDPro");
    lettura.esegui({IDMan});
    while (lettura.prossima())
        posizioni << QString::number(chiavi.indexOf(lettura.intero(0)) + 1);
    return posizioni.join(' ');
}

}  // namespace

class tst_Prove final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void verifica_data();
    void verifica();
    void catene_data();
    void catene();
    void rilevamentiDellaProvaNuova();
    void colonne();
};

void tst_Prove::verifica_data() {
    QTest::addColumn<QString>("prima");
    QTest::addColumn<int>("posizione");
    QTest::addColumn<QString>("prova");
    QTest::addColumn<QString>("tempo");
    QTest::addColumn<QString>("testo");
    const QString senzaTempo = "Inserire il Tempo Imposto della Prova";
    const QString prima = "La Prima Prova non può Essere\nConcatenata con la Precedente";
    const QString primoCO = "Il Primo CO non può Essere\nConcatenato con il Precedente";
    const auto riga = [](const char* nome, const char* elenco, int posizione, const char* prova,
                         const QString& testo = "", const char* tempo = "00:01:00") {
        QTest::newRow(nome) << QString(elenco) << posizione << QString(prova) << QString(tempo) << testo;
    };
    riga("no time comes first", "", 0, "CO+", senzaTempo, "");
    riga("first chained", "", 0, "PA+", prima);
    riga("first CO chained, empty list", "", 0, "CO+", prima);
    riga("CO after PA", "PA PM", 2, "CO+", primoCO);
    riga("CO after CO", "CO PM", 2, "CO+");
    riga("PA after CO", "CO", 1, "PA+", "", "00:00:00");
    riga("first not chained", "", 0, "CO");
    riga("change of the first", "PA CO", 0, "PA+", prima);
    riga("change looks only before", "PA PA CO", 1, "CO+", primoCO);
    riga("change with a CO before", "CO PA CO", 1, "CO+");
}

void tst_Prove::verifica() {
    QFETCH(QString, prima);
    QFETCH(int, posizione);
    QFETCH(QString, prova);
    QFETCH(QString, tempo);
    QFETCH(QString, testo);
    Prova nuova = elenco(prova).constFirst();
    nuova.tem = tempo;
    const std::optional<Rifiuto> rifiuto = verificaProva(nuova, elenco(prima), posizione);
    QCOMPARE(rifiuto ? rifiuto->testo : QString(""), testo);
    if (rifiuto) {
        QCOMPARE(rifiuto->titolo, QString("Impossibile Aggiungere"));
        QCOMPARE(rifiuto->icona, Icona::Stop);
    }
}

void tst_Prove::catene_data() {
    QTest::addColumn<QString>("prima");
    QTest::addColumn<int>("posizione");
    QTest::addColumn<QString>("nuova");
    QTest::addColumn<QString>("attesa");
    // The tests, the one worked on, what it becomes (empty: deleted), and what each is chained to in the end,
    // by its place before a deletion.
    const auto riga = [](const char* nome, const char* prima, int posizione, const char* nuova,
                         const char* attesa) {
        QTest::newRow(nome) << QString(prima) << posizione << QString(nuova) << QString(attesa);
    };
    riga("saved: to the one before", "PA PA+ PM+ PA", -1, "", "0 1 2 0");
    riga("saved: PA to a CO, CO over PAs", "CO PA+ PM+ CO+ PA CO+", -1, "", "0 1 2 1 0 4");
    riga("saved: left chained by a deletion", "PA+ CO+ PA+", -1, "", "0 0 2");
    riga("added: PA to the last", "CO PM", 2, "PA+", "0 0 2");
    riga("added: PM to a CO", "PA CO", 2, "PM+", "0 0 2");
    riga("added: CO to the nearest CO", "CO CO PA PM", 4, "CO+", "0 0 0 0 2");
    riga("added: not chained", "CO CO", 2, "CO", "0 0 0");
    riga("added: the first", "", 0, "PA", "0");
    riga("unchained", "PA PA+ PA+", 1, "PA", "0 0 2");
    riga("PA chained", "PA PM CO", 1, "PM+", "0 1 0");
    riga("CO to PA: the later CO goes to the CO before", "CO PA CO+ PM CO+", 2, "PA+", "0 0 2 0 1");
    riga("CO to PM and no CO is left before", "PA CO PA CO+", 1, "PM+", "0 1 0 0");
    riga("CO to PA: only the first later CO", "CO CO+ CO CO+", 1, "PA+", "0 1 0 3");
    riga("a PA stays PA: later chains stay", "CO PA CO+", 1, "PA+", "0 1 1");
    riga("PA to CO: the later CO goes to it", "CO PA PM CO+", 1, "CO+", "0 1 0 2");
    riga("PA to CO before an unchained CO", "CO PA CO CO+", 1, "CO+", "0 1 0 3");
    riga("a CO stays CO", "CO CO+ CO+", 1, "CO+", "0 1 2");
    riga("the last becomes CO", "CO PA", 1, "CO+", "0 1");
    riga("deleted: the first of two chained", "PA PA+", 0, "", "0");
    riga("deleted: the next loses its chain", "PA PA+ PM+ PA+", 1, "", "0 0 3");
    riga("deleted CO: next PA and first later CO", "CO PA+ PM CO+ CO+", 0, "", "0 0 0 4");
    riga("deleted CO: only the first later CO", "CO CO+ CO CO+", 1, "", "0 0 3");
    riga("deleted PA keeps the chain of COs", "CO PA CO+", 1, "", "0 1");
    riga("deleted PA: a CO next is not its concern", "CO PM+ CO+ PA+", 1, "", "0 1 3");
    riga("deleted: the last", "CO CO+", 1, "", "0");
    riga("deleted: the only one", "PA", 0, "", "");
}

void tst_Prove::catene() {
    QFETCH(QString, prima);
    QFETCH(int, posizione);
    QFETCH(QString, nuova);
    const ProgrammaDiProva programma;
    salva("CO PA");  // of another event: no chain reaches them
    QList<int> chiavi = salva(prima);
    nuovoEquipaggio(1);
    if (posizione >= 0 && nuova.isEmpty()) {
        eliminaProva(IDMan, chiavi[posizione]);
        QCOMPARE(contaRighe("Rilevamenti"), chiavi.size() - 1);
        QVERIFY_EXCEPTION_THROWN(modificaProva(IDMan, {.id = chiavi[posizione], .tip = "PA"}), Errore);
    } else if (posizione == chiavi.size()) {
        chiavi << aggiungiProva(IDMan, elenco(nuova).constFirst());
    } else if (posizione >= 0) {
        Prova prova = elenco(nuova).constFirst();
        prova.id = chiavi[posizione];
        modificaProva(IDMan, prova);
    }
    QTEST(catena(chiavi), "attesa");
}

void tst_Prove::rilevamentiDellaProvaNuova() {
    const ProgrammaDiProva programma;
    nuovaManifestazione();
    nuovoEquipaggio(9);  // of another event
    nuovaManifestazione();
    const int uno = nuovoEquipaggio(1);
    nuovoEquipaggio(2);
    const int id = aggiungiProva(IDMan, {.tip = "PA", .tem = "00:01:00"});
    QCOMPARE(contaRighe("Rilevamenti"), 2);
    QCOMPARE(contaRighe("Rilevamenti", QString("IDPro_FK=%1 AND IDEqu_FK=%2 AND TPar='' AND TArr='' AND "
                                               "PenAgg IS NULL")
                                           .arg(id)
                                           .arg(uno)),
             1);
}

void tst_Prove::colonne() {
    const ProgrammaDiProva programma;
    nuovaManifestazione();
    Prova prova{.tip = "PM", .nom = "", .loc = "Canelli d'Asti", .tem = "00:12:30", .dat = "14/06/2026"};
    prova.id = aggiungiProva(IDMan, prova);
    QCOMPARE(contaRighe("Prove",
                        "Tip='PM' AND Nom='' AND Loc='Canelli d''Asti' AND Tem='00:12:30' AND "
                        "Dat='14/06/2026' AND ConA=0 AND Svo=0"),
             1);
    esegui("UPDATE Prove SET Svo=1");
    prova.nom = "Media";
    prova.dat.clear();
    modificaProva(IDMan, prova);
    QCOMPARE(contaRighe("Prove", "Nom='Media' AND Dat IS NULL AND Svo=1"), 1);
}

QTEST_GUILESS_MAIN(tst_Prove)
#include "tst_Prove.moc"

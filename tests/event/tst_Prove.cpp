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
    void salvataggio_data();
    void salvataggio();
    void aggiunta_data();
    void aggiunta();
    void modifica_data();
    void modifica();
    void eliminazione_data();
    void eliminazione();
    void rilevamentiDellaProvaNuova();
    void colonne();
    void svolte();
};

void tst_Prove::verifica_data() {
    QTest::addColumn<QString>("prima");
    QTest::addColumn<int>("posizione");
    QTest::addColumn<QString>("prova");
    QTest::addColumn<QString>("tempo");
    QTest::addColumn<QString>("testo");
    const QString tempo = "Inserire il Tempo Imposto della Prova";
    const QString prima = "La Prima Prova non può Essere\nConcatenata con la Precedente";
    const QString primoCO = "Il Primo CO non può Essere\nConcatenato con il Precedente";
    QTest::newRow("no time comes first") << "" << 0 << "CO+"
                                         << "" << tempo;
    QTest::newRow("first chained") << "" << 0 << "PA+"
                                   << "00:01:00" << prima;
    QTest::newRow("first CO chained, empty list") << "" << 0 << "CO+"
                                                  << "00:01:00" << prima;
    QTest::newRow("CO after PA") << "PA PM" << 2 << "CO+"
                                 << "00:01:00" << primoCO;
    QTest::newRow("CO after CO") << "CO PM" << 2 << "CO+"
                                 << "00:01:00"
                                 << "";
    QTest::newRow("PA after CO") << "CO" << 1 << "PA+"
                                 << "00:00:00"
                                 << "";
    QTest::newRow("first not chained") << "" << 0 << "CO"
                                       << "00:01:00"
                                       << "";
    QTest::newRow("change of the first") << "PA CO" << 0 << "PA+"
                                         << "00:01:00" << prima;
    QTest::newRow("change looks only before") << "PA PA CO" << 1 << "CO+"
                                              << "00:01:00" << primoCO;
    QTest::newRow("change with a CO before") << "CO PA CO" << 1 << "CO+"
                                             << "00:01:00"
                                             << "";
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

void tst_Prove::salvataggio_data() {
    QTest::addColumn<QString>("prove");
    QTest::addColumn<QString>("attesa");
    QTest::newRow("to the one before") << "PA PA+ PM+ PA"
                                       << "0 1 2 0";
    QTest::newRow("PA to a CO, CO over PAs") << "CO PA+ PM+ CO+ PA CO+"
                                             << "0 1 2 1 0 4";
    QTest::newRow("left chained by a deletion") << "PA+ CO+ PA+"
                                                << "0 0 2";
}

void tst_Prove::salvataggio() {
    QFETCH(QString, prove);
    const ProgrammaDiProva programma;
    salva("CO PA");  // of another event: no chain reaches them
    const QList<int> chiavi = salva(prove);
    QTEST(catena(chiavi), "attesa");
}

void tst_Prove::aggiunta_data() {
    QTest::addColumn<QString>("prima");
    QTest::addColumn<QString>("nuova");
    QTest::addColumn<QString>("attesa");
    QTest::newRow("PA to the last") << "CO PM"
                                    << "PA+"
                                    << "0 0 2";
    QTest::newRow("PM to a CO") << "PA CO"
                                << "PM+"
                                << "0 0 2";
    QTest::newRow("CO to the nearest CO") << "CO CO PA PM"
                                          << "CO+"
                                          << "0 0 0 0 2";
    QTest::newRow("not chained") << "CO CO"
                                 << "CO"
                                 << "0 0 0";
    QTest::newRow("the first") << ""
                               << "PA"
                               << "0";
}

void tst_Prove::aggiunta() {
    QFETCH(QString, prima);
    QFETCH(QString, nuova);
    const ProgrammaDiProva programma;
    QList<int> chiavi = salva(prima);
    chiavi << aggiungiProva(IDMan, elenco(nuova).constFirst());
    QTEST(catena(chiavi), "attesa");
}

void tst_Prove::modifica_data() {
    QTest::addColumn<QString>("prima");
    QTest::addColumn<int>("posizione");
    QTest::addColumn<QString>("nuova");
    QTest::addColumn<QString>("attesa");
    QTest::newRow("unchained") << "PA PA+ PA+" << 1 << "PA"
                               << "0 0 2";
    QTest::newRow("PA chained") << "PA PM CO" << 1 << "PM+"
                                << "0 1 0";
    QTest::newRow("a CO becomes PA: the later CO goes to the CO before") << "CO PA CO+ PM CO+" << 2 << "PA+"
                                                                         << "0 0 2 0 1";
    QTest::newRow("a CO becomes PM and no CO is left before") << "PA CO PA CO+" << 1 << "PM+"
                                                              << "0 1 0 0";
    QTest::newRow("only the first later CO") << "CO CO+ CO CO+" << 1 << "PA+"
                                             << "0 1 0 3";
    QTest::newRow("a PA stays PA: later chains stay") << "CO PA CO+" << 1 << "PA+"
                                                      << "0 1 1";
    QTest::newRow("a PA becomes CO: the later CO goes to it") << "CO PA PM CO+" << 1 << "CO+"
                                                              << "0 1 0 2";
    QTest::newRow("a PA becomes CO before an unchained CO") << "CO PA CO CO+" << 1 << "CO+"
                                                            << "0 1 0 3";
    QTest::newRow("a CO stays CO") << "CO CO+ CO+" << 1 << "CO+"
                                   << "0 1 2";
    QTest::newRow("the last") << "CO PA" << 1 << "CO+"
                              << "0 1";
}

void tst_Prove::modifica() {
    QFETCH(QString, prima);
    QFETCH(int, posizione);
    QFETCH(QString, nuova);
    const ProgrammaDiProva programma;
    const QList<int> chiavi = salva(prima);
    Prova prova = elenco(nuova).constFirst();
    prova.id = chiavi[posizione];
    modificaProva(IDMan, prova);
    QTEST(catena(chiavi), "attesa");
}

void tst_Prove::eliminazione_data() {
    QTest::addColumn<QString>("prima");
    QTest::addColumn<int>("posizione");
    QTest::addColumn<QString>("attesa");  // positions as they were before
    QTest::newRow("the first of two chained") << "PA PA+" << 0 << "0";
    QTest::newRow("the next loses its chain") << "PA PA+ PM+ PA+" << 1 << "0 0 3";
    QTest::newRow("a CO: next PA and first later CO") << "CO PA+ PM CO+ CO+" << 0 << "0 0 0 4";
    QTest::newRow("a CO: only the first later CO") << "CO CO+ CO CO+" << 1 << "0 0 3";
    QTest::newRow("a PA keeps the chain of COs") << "CO PA CO+" << 1 << "0 1";
    QTest::newRow("the next is a CO: not a PA's concern") << "CO PM+ CO+ PA+" << 1 << "0 1 3";
    QTest::newRow("the last") << "CO CO+" << 1 << "0";
    QTest::newRow("the only one") << "PA" << 0 << "";
}

void tst_Prove::eliminazione() {
    QFETCH(QString, prima);
    QFETCH(int, posizione);
    const ProgrammaDiProva programma;
    const QList<int> chiavi = salva(prima);
    nuovoEquipaggio(1);
    const int rilevamenti = contaRighe("Rilevamenti");
    eliminaProva(IDMan, chiavi[posizione]);
    QTEST(catena(chiavi), "attesa");
    QCOMPARE(contaRighe("Rilevamenti"), rilevamenti - 1);
    QVERIFY_EXCEPTION_THROWN(modificaProva(IDMan, {.id = chiavi[posizione], .tip = "PA"}), Errore);
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

void tst_Prove::svolte() {
    const ProgrammaDiProva programma;
    salva("PA CO");
    QList<ProvaSvolta> prove = leggiProveSvolte(IDMan);
    QCOMPARE(prove.size(), 2);
    QVERIFY(!prove[0].svolta && !prove[1].svolta);
    prove[1].svolta = true;
    scriviProveSvolte(prove);
    prove = leggiProveSvolte(IDMan);
    QVERIFY(!prove[0].svolta && prove[1].svolta);
}

QTEST_GUILESS_MAIN(tst_Prove)
#include "tst_Prove.moc"

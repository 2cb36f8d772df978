#include "archive/ErroreArchivio.h"
#include "correction/Concatenazione.h"
#include "supporto/ProgrammaDiProva.h"

#include <QTest>

namespace {

// A test of a chain from one word: kind, then "+" when it is chained ("PA", "CO+").
std::vector<RigaRilevamento> catena(const QString& descrizione) {
    std::vector<RigaRilevamento> righe;
    for (QString parola : descrizione.split(' ')) {
        RigaRilevamento riga;
        riga.concatenata = parola.endsWith('+');
        riga.tipo = leggiTipoProva(parola.remove('+'));
        righe.push_back(riga);
    }
    return righe;
}

// What is written as one text: "0A 1P": arrival of row 0, start of row 1; values after "=" where they differ.
QString descrivi(const std::vector<TempoScritto>& tempi) {
    QStringList celle;
    for (const TempoScritto& tempo : tempi)
        celle << QString::number(tempo.riga) + (tempo.campo == CampoTempo::Partenza ? 'P' : 'A') + '=' +
                     tempo.valore;
    return celle.join(' ');
}

Impostazione precisioni(Precisione pa, Precisione pm, Precisione co) {
    Impostazione impostazione;
    impostazione.asi.tarature = {{{pa, 1}, {pm, 1}, {co, 1}}};
    impostazione.nonASI.tarature = {
        {{Precisione::Secondo, 1}, {Precisione::Decimo, 1}, {Precisione::Minuto, 1}}};
    return impostazione;
}

const auto Cen = precisioni(Precisione::Centesimo, Precisione::Centesimo, Precisione::Centesimo);

}  // namespace

class tst_Concatenazione final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void raggiunte_data();
    void raggiunte();
    void tagli_data();
    void tagli();
    void maschera_data();
    void maschera();
    void calcoloDellaRiga_data();
    void calcoloDellaRiga();
    void scritturaInteraONulla();
};

// Expected cells: the typed one first, then those that it reaches.
void tst_Concatenazione::raggiunte_data() {
    QTest::addColumn<QString>("prove");
    QTest::addColumn<int>("riga");
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QString>("manuale");
    QTest::addColumn<QString>("ricezione");
    const auto caso = [](const char* nome, const char* prove, int riga, const char* campo,
                         const char* manuale, const char* ricezione) {
        QTest::newRow(nome) << prove << riga << campo << manuale << ricezione;
    };
    caso("arrival, next chained", "PA PA+ PA+", 0, "A", "0A 1P", "0A 1P");
    caso("arrival, next not chained", "PA PA", 0, "A", "0A", "0A");
    caso("arrival of the last", "PA PA+", 1, "A", "1A", "1A");
    caso("arrival of a PM before a PA", "PM PA+", 0, "A", "0A 1P", "0A 1P");
    caso("arrival before a chained CO", "CO PA+ CO+", 1, "A", "1A", "1A");
    caso("arrival over a CO", "PA CO+ PM+", 0, "A", "0A", "0A 2P");
    caso("arrival over two COs, not chained", "PA CO+ CO+ PM", 0, "A", "0A", "0A");
    caso("arrival of a CO before a CO", "CO CO+ PA+", 0, "A", "0A 1P", "0A 2P");
    caso("arrival of a CO before an unchained CO", "CO CO PA+", 0, "A", "0A", "0A 2P");
    caso("arrival of a CO before tests", "CO PA+ PM+ CO+ PA+ CO+", 0, "A", "0A 1P 3P", "0A 1P");
    caso("arrival of a CO, test free, CO chained", "CO PA CO+", 0, "A", "0A 2P", "0A");
    caso("arrival of a CO, test chained, CO free", "CO PA+ CO", 0, "A", "0A 1P", "0A 1P");
    caso("arrival of a CO, no CO after", "CO PA+ PM+", 0, "A", "0A 1P", "0A 1P");

    caso("start not chained", "PA PA", 1, "P", "1P", "1P");
    caso("start of the first, marked chained", "PA+ PA", 0, "P", "0P", "0P");
    caso("start of a chained test", "PA PA+ PA+", 1, "P", "1P 0A", "1P 0A");
    caso("start after a CO, next CO chained", "CO PA+ PM+ CO+", 1, "P", "1P 0A 3P", "1P");
    caso("start after a CO, next CO free", "CO PA+ CO", 1, "P", "1P 0A", "1P");
    caso("start over a CO", "PA CO+ PM+", 2, "P", "2P 1A", "2P 0A");
    caso("start of a chained CO over tests", "CO PA+ PM+ CO+", 3, "P", "3P 0A 1P", "3P 2A");
    caso("start of a chained CO, test free", "CO PA CO+", 2, "P", "2P 0A", "2P 1A");
    caso("start of a CO right after a CO", "CO CO+ PA", 1, "P", "1P 0A", "1P");
    caso("start of a CO with none before", "PA PM+ CO+", 2, "P", "2P", "2P 1A");
    caso("the nearest CO counts", "CO PA+ CO+ PA+ CO+", 4, "P", "4P 2A 3P", "4P 3A");
}

void tst_Concatenazione::raggiunte() {
    QFETCH(QString, prove);
    QFETCH(int, riga);
    QFETCH(QString, campo);
    QFETCH(QString, manuale);
    QFETCH(QString, ricezione);
    const std::vector<RigaRilevamento> righe = catena(prove);
    const auto celle = [&](RegolaCatena regola, const QString& valore) {
        return descrivi(propagaTempo(righe, static_cast<std::size_t>(riga),
                                     campo == "P" ? CampoTempo::Partenza : CampoTempo::Arrivo, valore, Cen,
                                     true, regola));
    };
    const QString tempo = "10:15:20:37";
    QCOMPARE(celle(RegolaCatena::Manuale, tempo).remove('=' + tempo), manuale);
    QCOMPARE(celle(RegolaCatena::Ricezione, tempo).remove('=' + tempo), ricezione);
    // A deletion takes the same ways.
    QCOMPARE(celle(RegolaCatena::Manuale, "").remove('='), manuale);
    QCOMPARE(celle(RegolaCatena::Ricezione, "00:00:00:00").remove("=00:00:00:00"), ricezione);
}

void tst_Concatenazione::tagli_data() {
    QTest::addColumn<QString>("prove");
    QTest::addColumn<bool>("asi");
    QTest::addColumn<QString>("manuale");
    QTest::addColumn<QString>("ricezione");
    QTest::newRow("finer kind receives what the coarser left")
        << "PM PA+" << true << "0A=10:15:20:00 1P=10:15:20:00"
        << "0A=10:15:20:00 1P=10:15:20:00";
    QTest::newRow("coarser kind cuts again") << "PA PM+" << true << "0A=10:15:20:37 1P=10:15:20:00"
                                             << "0A=10:15:20:37 1P=10:15:20:37";
    QTest::newRow("the cell is cut before it is passed on")
        << "CO PA+ CO+" << true << "0A=10:15:00:00 1P=10:15:00:00 2P=10:15:00:00"
        << "0A=10:15:00:00 1P=10:15:00:00";
    QTest::newRow("the other class of crew") << "PM PA+" << false << "0A=10:15:20:30 1P=10:15:20:00"
                                             << "0A=10:15:20:30 1P=10:15:20:30";
    QTest::newRow("a kind that is none loses the time") << "PA XX+" << true << "0A=10:15:20:37 1P="
                                                        << "0A=10:15:20:37 1P=10:15:20:37";
}

void tst_Concatenazione::tagli() {
    QFETCH(QString, prove);
    QFETCH(bool, asi);
    QFETCH(QString, manuale);
    QFETCH(QString, ricezione);
    const Impostazione impostazione =
        precisioni(Precisione::Centesimo, Precisione::Secondo, Precisione::Minuto);
    const auto celle = [&](RegolaCatena regola) {
        return descrivi(
            propagaTempo(catena(prove), 0, CampoTempo::Arrivo, "10:15:20:37", impostazione, asi, regola));
    };
    QCOMPARE(celle(RegolaCatena::Manuale), manuale);
    QCOMPARE(celle(RegolaCatena::Ricezione), ricezione);
}

void tst_Concatenazione::maschera_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QString>("tempo");
    QTest::newRow("eight") << "12345678"
                           << "12:34:56:78";
    QTest::newRow("fewer, from the right") << "1234"
                                           << "00:00:12:34";
    QTest::newRow("one") << "7"
                         << "00:00:00:07";
    QTest::newRow("masked") << "09:05:00:00"
                            << "09:05:00:00";
    QTest::newRow("one digit of hours") << "9:05:00:00"
                                        << "09:05:00:00";
    QTest::newRow("more") << "112345678"
                          << "12:34:56:78";
    QTest::newRow("none") << ""
                          << "";
    QTest::newRow("letters") << "abc"
                             << "";
}

void tst_Concatenazione::maschera() {
    QFETCH(QString, testo);
    QFETCH(QString, tempo);
    QCOMPARE(mascheraTempo(testo), tempo);
}

void tst_Concatenazione::calcoloDellaRiga_data() {
    QTest::addColumn<QString>("tPar");
    QTest::addColumn<QString>("tArr");
    QTest::addColumn<bool>("fissa");
    QTest::addColumn<QString>("calcolo");  // net, deviation, penalty, style; imposed time one minute
    QTest::newRow("late") << "10:00:00:00"
                          << "10:01:00:50" << false << "00:01:00:50 00:00:00:50 53 Negativo";
    QTest::newRow("early") << "10:00:00:00"
                           << "10:00:59:00" << false << "00:00:59:00 00:00:01:00 103 Positivo";
    QTest::newRow("exact") << "10:00:00:00"
                           << "10:01:00:00" << false << "00:01:00:00 00:00:00:00 3 Netto";
    QTest::newRow("midnight") << "23:59:30:00"
                              << "00:00:30:10" << false << "00:01:00:10 00:00:00:10 13 Negativo";
    QTest::newRow("both blank") << ""
                                << " " << false << "00:00:00:00 00:01:00:00 6003 Errato";
    QTest::newRow("one blank") << "00:00:40:00"
                               << "" << false << "00:00:40:00 00:00:20:00 2003 Errato";
    QTest::newRow("blank, fixed penalty") << "10:00:00:00"
                                          << "   " << true << "10:00:00:00 9:59:00:00 503 Errato";
    QTest::newRow("zero is no blank") << "00:00:00:00"
                                      << "00:01:00:00" << true << "00:01:00:00 00:00:00:00 3 Netto";
    QTest::newRow("no time") << "10:00:00:00"
                             << "99:99:99:99" << false << "  - Errato";
    QTest::newRow("no time, fixed penalty") << ""
                                            << "25:00:00:00" << true << "  - Errato";
}

void tst_Concatenazione::calcoloDellaRiga() {
    QFETCH(QString, tPar);
    QFETCH(QString, tArr);
    QFETCH(bool, fissa);
    QFETCH(QString, calcolo);
    Impostazione impostazione = Cen;
    impostazione.fissaSeManca = fissa;
    impostazione.penalitaFissa = 500;
    RigaRilevamento riga;
    riga.tipo = TipoProva::PA;
    riga.imposto = "00:01:00";
    riga.tPar = tPar;
    riga.tArr = tArr;
    riga.penAgg = 3;
    static const QStringList stili{"Errato", "Positivo", "Negativo", "Netto"};
    const CalcoloRiga c = calcolaRiga(impostazione, true, riga);
    QCOMPARE(QStringList({c.netto, c.scarto, c.penalita ? QString::number(*c.penalita) : "-",
                          stili.at(static_cast<int>(c.stile))})
                 .join(' '),
             calcolo);
}

void tst_Concatenazione::scritturaInteraONulla() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    for (const char* tipo : {"PA", "PA"})
        nuovaProva({{"Tip", tipo}});
    const int idEqu = nuovoEquipaggio(1);
    const std::vector<RigaRilevamento> righe = leggiRilevamenti(idEqu);
    const std::vector<TempoScritto> tempi{{0, CampoTempo::Arrivo, "10:00:00:00"},
                                          {1, CampoTempo::Partenza, "10:00:00:01"}};
    const QString seconda = QString::number(righe[1].idRil);
    esegui("CREATE TRIGGER rifiuta BEFORE UPDATE ON Rilevamenti WHEN new.IDRil=" + seconda +
           " BEGIN SELECT RAISE(ABORT,'disco pieno'); END");
    QVERIFY_THROWS_EXCEPTION(ErroreArchivio, scriviTempi(righe, tempi));
    QCOMPARE(contaRighe("Rilevamenti", "TArr<>''"), 0);

    esegui("DROP TRIGGER rifiuta");
    scriviTempi(righe, tempi);
    QCOMPARE(leggiRilevamenti(idEqu)[0].tArr, QString("10:00:00:00"));
    QCOMPARE(leggiRilevamenti(idEqu)[1].tPar, QString("10:00:00:01"));
    QCOMPARE(contaRighe("Rilevamenti", "TPar='' OR TArr=''"), 2);

    // A row that is gone takes the others with it.
    esegui("DELETE FROM Rilevamenti WHERE IDRil=" + seconda);
    QVERIFY_THROWS_EXCEPTION(
        Errore, scriviTempi(righe, {{{0, CampoTempo::Arrivo, ""}, {1, CampoTempo::Arrivo, ""}}}));
    QCOMPARE(leggiRilevamenti(idEqu)[0].tArr, QString("10:00:00:00"));
}

QTEST_GUILESS_MAIN(tst_Concatenazione)
#include "tst_Concatenazione.moc"

#include "archive/ErroreArchivio.h"
#include "readings/Concatenazione.h"
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

// What is written as one text: "0A=x 1P=y": arrival of row 0, start of row 1.
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
    void maschera();
    void calcoloDellaRiga_data();
    void calcoloDellaRiga();
    void rigaSparita();
};

// Expected cells: the typed one first, then those that it reaches.
void tst_Concatenazione::raggiunte_data() {
    QTest::addColumn<QString>("prove");
    QTest::addColumn<QString>("manuale");
    QTest::addColumn<QString>("ricezione");
    const auto caso = [](const char* nome, const char* prove, const char* manuale, const char* ricezione) {
        QTest::newRow(nome) << prove << manuale << ricezione;
    };
    caso("arrival, next chained", "PA PA+ PA+", "0A 1P", "0A 1P");
    caso("arrival, next not chained", "PA PA", "0A", "0A");
    caso("arrival of the last", "PA PA+", "1A", "1A");
    caso("arrival of a PM before a PA", "PM PA+", "0A 1P", "0A 1P");
    caso("arrival before a chained CO", "CO PA+ CO+", "1A", "1A");
    caso("arrival over a CO", "PA CO+ PM+", "0A", "0A 2P");
    caso("arrival over two COs, not chained", "PA CO+ CO+ PM", "0A", "0A");
    caso("arrival of a CO before a CO", "CO CO+ PA+", "0A 1P", "0A 2P");
    caso("arrival of a CO before an unchained CO", "CO CO PA+", "0A", "0A");
    caso("arrival of a CO before tests", "CO PA+ PM+ CO+ PA+ CO+", "0A 1P 3P", "0A 1P");
    caso("arrival of a CO, test free, CO chained", "CO PA CO+", "0A 2P", "0A");
    caso("arrival of a CO, test chained, CO free", "CO PA+ CO", "0A 1P", "0A 1P");
    caso("arrival of a CO, no CO after", "CO PA+ PM+", "0A 1P", "0A 1P");
    caso("start not chained", "PA PA", "1P", "1P");
    caso("start of the first, marked chained", "PA+ PA", "0P", "0P");
    caso("start of a chained test", "PA PA+ PA+", "1P 0A", "1P 0A");
    caso("start after a CO, next CO chained", "CO PA+ PM+ CO+", "1P 0A 3P", "1P");
    caso("start after a CO, next CO free", "CO PA+ CO", "1P 0A", "1P");
    caso("start over a CO", "PA CO+ PM+", "2P 1A", "2P 0A");
    caso("start of a chained CO over tests", "CO PA+ PM+ CO+", "3P 0A 1P", "3P 2A");
    caso("start of a chained CO, test free", "CO PA CO+", "2P 0A", "2P 1A");
    caso("start of a CO right after a CO", "CO CO+ PA", "1P 0A", "1P");
    caso("start of a CO with none before", "PA PM+ CO+", "2P", "2P 1A");
    caso("the nearest CO counts", "CO PA+ CO+ PA+ CO+", "4P 2A 3P", "4P 3A");
}

void tst_Concatenazione::raggiunte() {
    QFETCH(QString, prove);
    QFETCH(QString, manuale);
    QFETCH(QString, ricezione);
    const std::vector<RigaRilevamento> righe = catena(prove);
    const CampoTempo campo = manuale.at(1) == 'P' ? CampoTempo::Partenza : CampoTempo::Arrivo;
    // A deletion takes the same ways.
    for (const auto& tempo : {QString("10:15:20:37"), QString(""), QString("00:00:00:00")}) {
        const auto celle = [&](RegolaCatena regola) {
            const auto riga = static_cast<std::size_t>(manuale.at(0).digitValue());
            return descrivi(propagaTempo(righe, riga, campo, tempo, Cen, true, regola)).remove('=' + tempo);
        };
        QCOMPARE(celle(RegolaCatena::Manuale), manuale);
        QCOMPARE(celle(RegolaCatena::Ricezione), ricezione);
    }
}

// A test passed at 10:15:20.37 in hundredths (PA), seconds (PM), minutes (CO).
void tst_Concatenazione::tagli_data() {
    QTest::addColumn<QString>("prove");
    QTest::addColumn<bool>("asi");
    QTest::addColumn<QString>("manuale");
    QTest::addColumn<QString>("ricezione");
    const auto caso = [](const char* nome, const char* prove, bool asi, const char* manuale,
                         const char* ricezione) {
        QTest::newRow(nome) << prove << asi << manuale << ricezione;
    };
    caso("finer kind receives what the coarser left", "PM PA+", true, "0A=10:15:20:00 1P=10:15:20:00",
         "0A=10:15:20:00 1P=10:15:20:00");
    caso("coarser kind cuts again", "PA PM+", true, "0A=10:15:20:37 1P=10:15:20:00",
         "0A=10:15:20:37 1P=10:15:20:37");
    caso("the cell is cut before it is passed on", "CO PA+ CO+", true,
         "0A=10:15:00:00 1P=10:15:00:00 2P=10:15:00:00", "0A=10:15:00:00 1P=10:15:00:00");
    caso("the other class of crew", "PM PA+", false, "0A=10:15:20:30 1P=10:15:20:00",
         "0A=10:15:20:30 1P=10:15:20:30");
    caso("a kind that is none loses the time", "PA XX+", true,
         "0A=10:15:20:37 1P=", "0A=10:15:20:37 1P=10:15:20:37");
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

void tst_Concatenazione::maschera() {
    for (const auto& [testo, tempo] :
         {std::pair("12345678", "12:34:56:78"), std::pair("1234", "00:00:12:34"),
          std::pair("7", "00:00:00:07"), std::pair("09:05:00:00", "09:05:00:00"),
          std::pair("9:05:00:00", "09:05:00:00"), std::pair("112345678", "12:34:56:78"), std::pair("", ""),
          std::pair("abc", "")})
        QCOMPARE(mascheraTempo(QString(testo)), QString(tempo));
}

// Imposed time one minute, added penalty 3, fixed penalty 500 where one is in force.
void tst_Concatenazione::calcoloDellaRiga_data() {
    QTest::addColumn<QString>("tPar");
    QTest::addColumn<QString>("tArr");
    QTest::addColumn<bool>("fissa");
    QTest::addColumn<QString>("calcolo");  // net, deviation, penalty, style
    const auto caso = [](const char* nome, const char* tPar, const char* tArr, bool fissa,
                         const char* calcolo) { QTest::newRow(nome) << tPar << tArr << fissa << calcolo; };
    caso("late", "10:00:00:00", "10:01:00:50", false, "00:01:00:50 00:00:00:50 53 Negativo");
    caso("early", "10:00:00:00", "10:00:59:00", false, "00:00:59:00 00:00:01:00 103 Positivo");
    caso("midnight", "23:59:30:00", "00:00:30:10", false, "00:01:00:10 00:00:00:10 13 Negativo");
    caso("both blank", "", " ", false, "00:00:00:00 00:01:00:00 6003 Errato");
    caso("one blank", "00:00:40:00", "", false, "00:00:40:00 00:00:20:00 2003 Errato");
    caso("blank, fixed penalty", "10:00:00:00", "   ", true, "10:00:00:00 9:59:00:00 503 Errato");
    caso("exact, zero is no blank", "00:00:00:00", "00:01:00:00", true, "00:01:00:00 00:00:00:00 3 Netto");
    caso("no time", "10:00:00:00", "99:99:99:99", false, "  - Errato");
    caso("no time, fixed penalty", "", "25:00:00:00", true, "  - Errato");
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

void tst_Concatenazione::rigaSparita() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    nuovaProva();
    nuovaProva();
    const int idEqu = nuovoEquipaggio(1);
    const std::vector<RigaRilevamento> righe = leggiRilevamenti(idEqu);
    // A row that is gone takes the others with it.
    esegui("DELETE FROM Rilevamenti WHERE IDRil=?", {righe[1].idRil});
    QVERIFY_THROWS_EXCEPTION(
        Errore, scriviTempi(righe, {{{0, CampoTempo::Arrivo, "10:00:00:00"}, {1, CampoTempo::Arrivo, ""}}}));
    QCOMPARE(leggiRilevamenti(idEqu)[0].tArr, QString());
}

QTEST_GUILESS_MAIN(tst_Concatenazione)
#include "tst_Concatenazione.moc"

#include "readings/Concatenazione.h"
#include "supporto/ProgrammaDiProva.h"

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

class tst_Concatenazione final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void raggiunte();
    void tagli();
    void maschera();
    void calcoloDellaRiga();
    void rigaSparita();
};

// Expected cells: the typed one first, then those that it reaches.
void tst_Concatenazione::raggiunte() {
    const struct {
        const char *nome, *prove, *manuale, *ricezione;
    } casi[] = {{"arrival, next chained", "PA PA+ PA+", "0A 1P", "0A 1P"},
                {"arrival over a CO", "PA CO+ PM+", "0A", "0A 2P"},
                {"arrival of a CO before a CO", "CO CO+ PA+", "0A 1P", "0A 2P"},
                {"arrival of a CO before an unchained CO", "CO CO PA+", "0A", "0A"},
                {"arrival of a CO before tests", "CO PA+ PM+ CO+ PA+ CO+", "0A 1P 3P", "0A 1P"},
                {"arrival of a CO, test free, CO chained", "CO PA CO+", "0A 2P", "0A"},
                {"start of the first, marked chained", "PA+ PA", "0P", "0P"},
                {"start after a CO, next CO chained", "CO PA+ PM+ CO+", "1P 0A 3P", "1P"},
                {"start over a CO", "PA CO+ PM+", "2P 1A", "2P 0A"},
                {"start of a chained CO over tests", "CO PA+ PM+ CO+", "3P 0A 1P", "3P 2A"},
                {"start of a chained CO, test free", "CO PA CO+", "2P 0A", "2P 1A"},
                {"start of a CO right after a CO", "CO CO+ PA", "1P 0A", "1P"},
                {"start of a CO with none before", "PA PM+ CO+", "2P", "2P 1A"},
                {"the nearest CO counts", "CO PA+ CO+ PA+ CO+", "4P 2A 3P", "4P 3A"}};
    for (const auto& [nome, prove, manuale, ricezione] : casi) {
        const std::vector<RigaRilevamento> righe = catena(prove);
        const CampoTempo campo = manuale[1] == 'P' ? CampoTempo::Partenza : CampoTempo::Arrivo;
        const auto riga = static_cast<std::size_t>(manuale[0] - '0');
        // A deletion takes the same ways.
        for (const QString tempo : {"10:15:20:37", "", "00:00:00:00"}) {
            const auto celle = [&](RegolaCatena regola) {
                return descrivi(propagaTempo(righe, riga, campo, tempo, Cen, true, regola))
                    .remove('=' + tempo);
            };
            QVERIFY2(celle(RegolaCatena::Manuale) == manuale, nome);
            QVERIFY2(celle(RegolaCatena::Ricezione) == ricezione, nome);
        }
    }
}

// A test passed at 10:15:20.37 in hundredths (PA), seconds (PM), minutes (CO).
void tst_Concatenazione::tagli() {
    const struct {
        const char* prove;
        bool asi;
        const char *manuale, *ricezione;
    } casi[] = {
        // A finer kind receives what the coarser left, a coarser one cuts again; the cell is cut first.
        {"PM PA+", true, "0A=10:15:20:00 1P=10:15:20:00", "0A=10:15:20:00 1P=10:15:20:00"},
        {"PA PM+", true, "0A=10:15:20:37 1P=10:15:20:00", "0A=10:15:20:37 1P=10:15:20:37"},
        {"CO PA+ CO+", true, "0A=10:15:00:00 1P=10:15:00:00 2P=10:15:00:00", "0A=10:15:00:00 1P=10:15:00:00"},
        // The other class of crew, and a kind that is none: it loses the time.
        {"PM PA+", false, "0A=10:15:20:30 1P=10:15:20:00", "0A=10:15:20:30 1P=10:15:20:30"},
        {"PA XX+", true, "0A=10:15:20:37 1P=", "0A=10:15:20:37 1P=10:15:20:37"}};
    const Impostazione impostazione =
        precisioni(Precisione::Centesimo, Precisione::Secondo, Precisione::Minuto);
    for (const auto& [prove, asi, manuale, ricezione] : casi) {
        const auto celle = [&, prove = prove, asi = asi](RegolaCatena regola) {
            return descrivi(
                propagaTempo(catena(prove), 0, CampoTempo::Arrivo, "10:15:20:37", impostazione, asi, regola));
        };
        QCOMPARE(celle(RegolaCatena::Manuale), QString(manuale));
        QCOMPARE(celle(RegolaCatena::Ricezione), QString(ricezione));
    }
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
void tst_Concatenazione::calcoloDellaRiga() {
    const struct {
        const char *nome, *tPar, *tArr;
        bool fissa;
        const char* calcolo;  // net, deviation, penalty, style
    } casi[] = {
        {"early", "10:00:00:00", "10:00:59:00", false, "00:00:59:00 00:00:01:00 103 Positivo"},
        {"midnight", "23:59:30:00", "00:00:30:10", false, "00:01:00:10 00:00:00:10 13 Negativo"},
        {"both blank", "", " ", false, "00:00:00:00 00:01:00:00 6003 Errato"},
        {"one blank", "00:00:40:00", "", false, "00:00:40:00 00:00:20:00 2003 Errato"},
        {"blank, fixed penalty", "10:00:00:00", "   ", true, "10:00:00:00 9:59:00:00 503 Errato"},
        {"exact, zero is no blank", "00:00:00:00", "00:01:00:00", true, "00:01:00:00 00:00:00:00 3 Netto"},
        {"no time, fixed penalty", "", "25:00:00:00", true, "  - Errato"}};
    static const QStringList stili{"Errato", "Positivo", "Negativo", "Netto"};
    for (const auto& [nome, tPar, tArr, fissa, calcolo] : casi) {
        Impostazione impostazione = Cen;
        impostazione.fissaSeManca = fissa;
        impostazione.penalitaFissa = 500;
        RigaRilevamento riga;
        riga.tipo = TipoProva::PA;
        riga.imposto = "00:01:00";
        riga.tPar = tPar;
        riga.tArr = tArr;
        riga.penAgg = 3;
        const CalcoloRiga c = calcolaRiga(impostazione, true, riga);
        const QStringList celle{c.netto, c.scarto, c.penalita ? QString::number(*c.penalita) : "-",
                                stili.at(static_cast<int>(c.stile))};
        QVERIFY2(celle.join(' ') == calcolo, nome);
    }
}

void tst_Concatenazione::rigaSparita() {
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

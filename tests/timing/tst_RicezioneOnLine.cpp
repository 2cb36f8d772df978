#include "archive/ErroreArchivio.h"
#include "simulatori/SimulatoreTag.h"
#include "supporto/ProgrammaDiProva.h"
#include "timing/OrologioTabellone.h"
#include "timing/RicezioneOnLine.h"

#include <QTest>
#include <random>

// On-line reception without a port or a window: characters in, readings and actions out. And what else of it
// can be said without a window: the chains, the clock of the scoreboard.
class tst_RicezioneOnLine final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_programma.reset(); }
    void corsa_data();
    void corsa();
    void precisione_data();
    void precisione();
    void datoErrato_data();
    void datoErrato();
    void catenaLunga();
    void primaInArchivio();
    void archivioRifiuta();
    void rigaMancante();
    void fuoriPasso_data();
    void fuoriPasso();
    void guardia();
    void catene_data();
    void catene();
    void orologioFormati_data();
    void orologioFormati();
    void orologioPuntuale_data();
    void orologioPuntuale();
    void orologioCambioFormato();

private:
    // A crew and a chain of so many tests of one minute; one point a hundredth.
    ParametriOnLine corsaDi(int prove, Dispositivo dispositivo = Dispositivo::CP520);
    [[nodiscard]] QStringList letture() const;

    std::unique_ptr<ProgrammaDiProva> m_programma;
    int m_idEqu = 0;
};

Q_DECLARE_METATYPE(Dispositivo)

namespace {

using Cosa = RicezioneOnLine::Cosa;

QString sfondo(RicezioneOnLine::Sfondo quale) {
    return QStringList{"normale", "verde", "arancio", "rosso", "chiaro"}[static_cast<int>(quale)];
}

// The actions as one can read them; what is shown follows `mostra`.
QStringList racconta(const RicezioneOnLine& ricezione, const RicezioneOnLine::Azioni& azioni) {
    QStringList righe;
    for (const RicezioneOnLine::Azione& azione : azioni) {
        const RicezioneOnLine::Schermo& schermo = ricezione.schermo();
        switch (azione.cosa) {
            case Cosa::Mostra:
                righe << QString("mostra %1|%2|%3%4%5")
                             .arg(sfondo(schermo.sfondo), schermo.lblImp, schermo.lblTempo,
                                  schermo.tempoRidotto ? "|28" : "",
                                  schermo.arrestoPossibile ? "" : "|fermo");
                break;
            case Cosa::AvviaCronometro:
                righe << "avvia";
                break;
            case Cosa::AzzeraCronometro:
                righe << "azzera";
                break;
            case Cosa::FermaCronometro:
                righe << "ferma";
                break;
            case Cosa::Tabellone:
                righe << "tabellone [" + azione.testo + "]";
                break;
            case Cosa::AzzeraTabellone:
                righe << "tabellone vuoto";
                break;
            case Cosa::Suona:
                righe << "suona";
                break;
            case Cosa::Attendi:
                righe << QString("attendi %1").arg(azione.millisecondi);
                break;
            case Cosa::DatoErrato:
                righe << "dato errato";
                break;
            case Cosa::PortaPerduta:
                righe << "porta perduta";
                break;
            case Cosa::Chiudi:
                righe << "chiudi";
                break;
        }
    }
    return righe;
}

RicezioneOnLine::Azioni arrivano(RicezioneOnLine& ricezione, QByteArrayView caratteri) {
    RicezioneOnLine::Azioni azioni;
    for (const FrameOnLine& frame : ricezione.ricevuti(caratteri))
        azioni += ricezione.ricevuto(frame);
    return azioni;
}

// What happens, as words: S start frame, T<hundredths> time frame, A end of a wait, X the operator stops, P
// the port is lost.
RicezioneOnLine::Azioni accade(RicezioneOnLine& ricezione, Dispositivo dispositivo, const QString& evento) {
    switch (evento[0].unicode()) {
        case 'S':
            return arrivano(ricezione, SimulatoreTag::framePartenza(dispositivo));
        case 'T':
            return arrivano(ricezione, SimulatoreTag::frameTempo(dispositivo, evento.sliced(1).toInt()));
        case 'A':
            return ricezione.attesaFinita();
        case 'X':
            return ricezione.ferma();
        default:
            return ricezione.perduta();
    }
}

QStringList racconta(RicezioneOnLine& ricezione, Dispositivo dispositivo, const QString& eventi) {
    QStringList righe;
    for (const QString& evento : eventi.split(' '))
        righe += racconta(ricezione, accade(ricezione, dispositivo, evento));
    return righe;
}

}  // namespace

void tst_RicezioneOnLine::init() {
    m_programma = std::make_unique<ProgrammaDiProva>();
    nuovaManifestazione();
}

ParametriOnLine tst_RicezioneOnLine::corsaDi(int prove, Dispositivo dispositivo) {
    int precedente = 0;
    for (int i = 1; i <= prove; ++i)
        precedente = nuovaProva({{"Nom", QString("PA%1").arg(i)}, {"ConA", precedente}});
    m_idEqu = nuovoEquipaggio(7);
    ParametriOnLine corsa;
    corsa.dispositivo = dispositivo;
    corsa.idEqu = m_idEqu;
    corsa.num = 7;
    corsa.catena = elencaCatene(leggiProveCronometrate(IDMan)).last();
    corsa.precisione = "CEN";
    corsa.taglia = [](const QString& tempo) { return tempo; };
    corsa.penalita = [](int scarto) { return std::optional<double>(scarto); };
    return corsa;
}

QStringList tst_RicezioneOnLine::letture() const {
    QStringList righe;
    Statement query("SELECT TPar,TArr FROM Rilevamenti WHERE IDEqu_FK=? ORDER BY IDPro_FK");
    query.esegui({m_idEqu});
    while (query.prossima())
        righe << query.testo(0) + '>' + query.testo(1);
    return righe;
}

void tst_RicezioneOnLine::corsa_data() {
    QTest::addColumn<int>("prove");
    QTest::addColumn<QString>("eventi");
    QTest::addColumn<QStringList>("azioni");
    QTest::addColumn<QStringList>("letture");

    const QString zero = "00:00:00:00>";
    const QStringList partito{"avvia", "mostra verde||PARTITO", "tabellone [IN   7]"};
    const QStringList reset{"ferma", "mostra rosso||RESET NON ESEGUITO|fermo", "tabellone [ERRORE]",
                            "attendi 3000"};
    const QStringList start{"ferma", "mostra rosso||START CON VEICOLO IN PROVA|fermo", "tabellone [ERRORE]",
                            "attendi 3000"};
    const QStringList start28{"ferma", "mostra rosso||START CON VEICOLO IN PROVA|28|fermo",
                              "tabellone [ERRORE]", "attendi 3000"};
    const QString tempo1 = "TEMPO N° 1 : 00:01:02:34|TEMPO IMPOSTO : 00:01:00:00\nPENALITA' : 234|28";
    const QStringList primo{"azzera", "suona", "mostra arancio|" + tempo1, "tabellone [  62.34]"};

    QTest::newRow("one test") << 1 << "S T6234 A A"
                              << partito + QStringList{"azzera",
                                                       "suona",
                                                       "mostra arancio|" + tempo1 + "|fermo",
                                                       "tabellone [  62.34]",
                                                       "ferma",
                                                       "attendi 2000",
                                                       "mostra chiaro|PROVA TERMINATA|PENALITA' TOTALI DELLA "
                                                       "PROVA : 234|28|fermo",
                                                       "tabellone [P  234]",
                                                       "attendi 4000",
                                                       "chiudi"}
                              << QStringList{"00:00:00:00>00:01:02:34"};
    QTest::newRow("time before the start")
        << 2 << "T6234 A" << reset + QStringList{"chiudi"} << QStringList{">", ">"};
    QTest::newRow("second start") << 2 << "S S A" << partito + start + QStringList{"chiudi"}
                                  << QStringList{zero, ">"};
    QTest::newRow("second start after a time")
        << 2 << "S T6234 S A" << partito + primo + start28 + QStringList{"chiudi"}
        << QStringList{"00:00:00:00>00:01:02:34", "00:01:02:34>"};
    QTest::newRow("elapsed time that goes back")
        << 2 << "S T6234 T6000 A" << QStringList{}  // compared in the readings alone
        << QStringList{"00:00:00:00>00:01:02:34", "00:01:02:34>00:01:00:00"};
    QTest::newRow("stopped before the start")
        << 2 << "X" << QStringList{"ferma", "chiudi"} << QStringList{">", ">"};
    QTest::newRow("stopped half way")
        << 2 << "S T6234 X T12000" << partito + primo + QStringList{"ferma", "chiudi"}
        << QStringList{"00:00:00:00>00:01:02:34", "00:01:02:34>"};
    QTest::newRow("port lost half way")
        << 2 << "S T6234 P T12000 A X"
        << partito + primo + QStringList{"ferma", "tabellone [ERRORE]", "porta perduta", "chiudi"}
        << QStringList{"00:00:00:00>00:01:02:34", "00:01:02:34>"};
    // A wait runs to its end whatever comes.
    QTest::newRow("nothing disturbs a refusal")
        << 2 << "T1 S T2 X P A" << reset + QStringList{"chiudi"} << QStringList{">", ">"};
    QTest::newRow("nothing disturbs the end")
        << 1 << "S T6234 S T6300 X P" << QStringList{} << QStringList{"00:00:00:00>00:01:02:34"};
}

void tst_RicezioneOnLine::corsa() {
    QFETCH(int, prove);
    QFETCH(QString, eventi);
    QFETCH(QStringList, azioni);
    // Both devices speak of the same things.
    for (const Dispositivo dispositivo : {Dispositivo::CP520, Dispositivo::CP540}) {
        m_programma.reset();
        init();
        RicezioneOnLine ricezione(corsaDi(prove, dispositivo));
        QCOMPARE(racconta(ricezione, ricezione.inizia()),
                 QStringList(
                     {"ferma", "mostra normale||IN PARTENZA...", "tabellone vuoto", "tabellone [PAR  7]"}));
        const QStringList accaduto = racconta(ricezione, dispositivo, eventi);
        if (!azioni.isEmpty())
            QCOMPARE(accaduto, azioni);
        QTEST(letture(), "letture");
    }
}

void tst_RicezioneOnLine::precisione_data() {
    QTest::addColumn<QString>("parola");
    QTest::addColumn<QString>("taglio");     // what is left of 00:01:02:34
    QTest::addColumn<QString>("tabellone");  // the partial
    QTest::newRow("CEN") << "CEN"
                         << "00:01:02:34"
                         << "  62.34";
    QTest::newRow("DEC") << "DEC"
                         << "00:01:02:30"
                         << "   62.3";
    QTest::newRow("SEC") << "SEC"
                         << "00:01:02:00"
                         << "     62";
    QTest::newRow("MIN") << "MIN"
                         << "00:01:00:00"
                         << "       ";
}

void tst_RicezioneOnLine::precisione() {
    QFETCH(QString, parola);
    QFETCH(QString, taglio);
    QFETCH(QString, tabellone);
    ParametriOnLine corsa = corsaDi(1);
    corsa.precisione = parola;
    corsa.taglia = [&](const QString& tempo) {
        return tempo == "00:01:02:34" ? taglio : QString("not what was measured");
    };
    corsa.penalita = [](int scarto) { return scarto / 3.0; };
    RicezioneOnLine ricezione(corsa);
    const QStringList accaduto = racconta(ricezione, corsa.dispositivo, "S T6234 A");
    QCOMPARE(letture(), QStringList("00:00:00:00>" + taglio));
    QVERIFY2(accaduto.contains("tabellone [" + tabellone + "]"), qPrintable(accaduto.join('\n')));
    if (parola == "CEN") {
        QVERIFY(accaduto.contains("tabellone [P   78]"));
        // Three decimals, the Italian way.
        corsa.penalita = [](int) { return 1234.56789; };
        RicezioneOnLine altra(corsa);
        racconta(altra, corsa.dispositivo, "S T6234 A");
        QCOMPARE(altra.schermo().lblTempo, "PENALITA' TOTALI DELLA PROVA : 1234,568");
        corsa.penalita = [](int) { return std::nullopt; };
        RicezioneOnLine ultima(corsa);
        racconta(ultima, corsa.dispositivo, "S T6234");
        QCOMPARE(ultima.schermo().lblTempo, "TEMPO IMPOSTO : 00:01:00:00\nPENALITA' : ?????");
    }
}

void tst_RicezioneOnLine::datoErrato_data() {
    QTest::addColumn<Dispositivo>("dispositivo");
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<bool>("buono");
    for (const Dispositivo d : {Dispositivo::CP520, Dispositivo::CP540}) {
        const QByteArray nome = nomeDispositivo(d).toLatin1();
        QTest::addRow("%s 5:27.67", nome.constData()) << d << SimulatoreTag::frameTempo(d, 32767) << true;
        QTest::addRow("%s 5:27.68", nome.constData()) << d << SimulatoreTag::frameTempo(d, 32768) << false;
        QByteArray lettere = SimulatoreTag::frameTempo(d, 6234);
        lettere[d == Dispositivo::CP520 ? 21 : 22] = 'x';
        QTest::addRow("%s letters", nome.constData()) << d << lettere << false;
    }
}

void tst_RicezioneOnLine::datoErrato() {
    QFETCH(Dispositivo, dispositivo);
    QFETCH(QByteArray, frame);
    QFETCH(bool, buono);
    RicezioneOnLine ricezione(corsaDi(3, dispositivo));
    racconta(ricezione, dispositivo, "S T6234");
    const QStringList accaduto = racconta(ricezione, arrivano(ricezione, frame));
    if (buono) {
        QCOMPARE(letture()[1], "00:01:02:34>00:05:27:67");
        return;
    }
    QCOMPARE(accaduto, QStringList({"ferma", "tabellone [ERRORE]", "dato errato", "chiudi"}));
    QCOMPARE(letture(), QStringList({"00:00:00:00>00:01:02:34", "00:01:02:34>", ">"}));
    QVERIFY(racconta(ricezione, dispositivo, "T7000 A X P").isEmpty());
}

// As many tests as one likes share one clock; all frames may come in one piece.
void tst_RicezioneOnLine::catenaLunga() {
    constexpr int Prove = 12;
    RicezioneOnLine ricezione(corsaDi(Prove));
    QByteArray caratteri = SimulatoreTag::framePartenza(Dispositivo::CP520);
    for (int i = 1; i <= Prove; ++i)
        caratteri += SimulatoreTag::frameTempo(Dispositivo::CP520, i * 2000 + i);
    const QStringList accaduto = racconta(ricezione, arrivano(ricezione, caratteri + caratteri));
    QCOMPARE(accaduto.count("suona"), Prove);
    QCOMPARE(accaduto.count("tabellone [  20.01]"), Prove);
    QCOMPARE(ricezione.stato(), RicezioneOnLine::Stato::FineProva);
    ricezione.attesaFinita();
    QCOMPARE(ricezione.schermo().lblTempo, QString("PENALITA' TOTALI DELLA PROVA : %1").arg(3999 * Prove));
    const QStringList righe = letture();
    for (int i = 1; i < Prove; ++i)
        QCOMPARE(righe[i].section('>', 0, 0), righe[i - 1].section('>', 1));
    QCOMPARE(righe.last(), "00:03:40:11>00:04:00:12");
}

// When the penalty is asked for, and so before anything is shown, another connection reads the new times.
void tst_RicezioneOnLine::primaInArchivio() {
    ParametriOnLine corsa = corsaDi(2);
    QStringList viste;
    corsa.penalita = [&](int scarto) {
        Statement query("SELECT TPar,TArr FROM Rilevamenti ORDER BY IDPro_FK", ConnShape());
        query.esegui();
        while (query.prossima())
            viste << query.testo(0) + '>' + query.testo(1);
        return std::optional<double>(scarto);
    };
    RicezioneOnLine ricezione(corsa);
    racconta(ricezione, corsa.dispositivo, "S T6234");
    QCOMPARE(viste, QStringList({"00:00:00:00>00:01:02:34", "00:01:02:34>"}));
}

// The arrival and the next start are written together or not at all, and the operator gets the time to write
// down.
void tst_RicezioneOnLine::archivioRifiuta() {
    const ParametriOnLine corsa = corsaDi(3);
    esegui(QString("CREATE TRIGGER pieno BEFORE UPDATE OF TPar ON Rilevamenti WHEN NEW.IDPro_FK=%1 BEGIN "
                   "SELECT RAISE(ABORT,'disco pieno'); END")
               .arg(corsa.catena[2].idPro));
    RicezioneOnLine ricezione(corsa);
    racconta(ricezione, corsa.dispositivo, "S T6234");
    try {
        racconta(ricezione, corsa.dispositivo, "T13000");
        QFAIL("no error");
    } catch (const Errore& errore) {
        QVERIFY2(
            errore.testo().startsWith("Il tempo 00:02:10:00 dell'equipaggio n. 7 sulla prova \"PA2\" NON è "
                                      "stato salvato."),
            qPrintable(errore.testo()));
        QVERIFY(errore.testo().contains("disco pieno"));
    }
    QCOMPARE(letture(), QStringList({"00:00:00:00>00:01:02:34", "00:01:02:34>", ">"}));
    QCOMPARE(ricezione.stato(), RicezioneOnLine::Stato::Chiusa);
    QVERIFY(racconta(ricezione, corsa.dispositivo, "T14000 A X P").isEmpty());
}

void tst_RicezioneOnLine::rigaMancante() {
    const ParametriOnLine corsa = corsaDi(2);
    esegui("DELETE FROM Rilevamenti");
    RicezioneOnLine ricezione(corsa);
    racconta(ricezione, corsa.dispositivo, "S T6234 T12000");
    QCOMPARE(letture(), QStringList({"00:00:00:00>00:01:02:34", "00:01:02:34>00:02:00:00"}));
}

void tst_RicezioneOnLine::fuoriPasso_data() {
    QTest::addColumn<QByteArray>("prima");
    QTest::newRow("stray character") << QByteArray("x");
    QTest::newRow("line end") << QByteArray("\r");
    QTest::newRow("other device") << SimulatoreTag::framePartenza(Dispositivo::CP540);
    QTest::newRow("half a frame") << SimulatoreTag::framePartenza(Dispositivo::CP520).left(20);
    QTest::newRow("a megabyte") << QByteArray(1 << 20, 'T');
}

// There is no resynchronisation: nothing is taken for a frame any more, until the operator stops.
void tst_RicezioneOnLine::fuoriPasso() {
    QFETCH(QByteArray, prima);
    RicezioneOnLine ricezione(corsaDi(1));
    QVERIFY(arrivano(ricezione, prima).isEmpty());
    QVERIFY(racconta(ricezione, Dispositivo::CP520, "S T6234 S").isEmpty());
    QCOMPARE(letture(), QStringList(">"));
    QCOMPARE(racconta(ricezione, Dispositivo::CP520, "X"), QStringList({"ferma", "chiudi"}));
}

void tst_RicezioneOnLine::guardia() {
    RicezioneOnLine ricezione(corsaDi(1));
    QCOMPARE(racconta(ricezione, ricezione.ricevuto({static_cast<TipoFrame>(9), {}})),
             QStringList({"mostra rosso||Ricevuto Dato Errato", "tabellone [ERRORE]"}));
}

void tst_RicezioneOnLine::catene_data() {
    QTest::addColumn<QString>("prove");   // kinds in order; a capital letter is chained
    QTest::addColumn<QString>("catene");  // of their places
    QTest::newRow("none") << ""
                          << "";
    QTest::newRow("single") << "a a a"
                            << "0/1/2";
    QTest::newRow("chains") << "a A A a a A"
                            << "0,1,2/3/4,5";
    QTest::newRow("other kinds between") << "c a c A m M A"
                                         << "1,3,6";
    QTest::newRow("first one chained to a control") << "c A A a"
                                                    << "1,2/3";
}

void tst_RicezioneOnLine::catene() {
    QFETCH(QString, prove);
    QList<ProvaCronometrata> elenco;
    const QStringList parole = prove.split(' ', Qt::SkipEmptyParts);
    for (int i = 0; i < parole.size(); ++i) {
        const QChar c = parole[i][0];
        const QString tipo = c.toLower() == 'a' ? "PA" : c.toLower() == 'c' ? "CO" : "PM";
        elenco << ProvaCronometrata{i, tipo, "Prova", "00:01:00", c.isUpper() ? 99 : 0};
    }
    QStringList catene;
    for (const Catena& catena : elencaCatene(elenco)) {
        QStringList posti;
        for (const ProvaCronometrata& prova : catena)
            posti << QString::number(prova.idPro);
        catene << posti.join(',');
    }
    QTEST(catene.join('/'), "catene");
}

void tst_RicezioneOnLine::orologioFormati_data() {
    QTest::addColumn<int>("formato");
    QTest::addColumn<int>("centesimi");
    QTest::addColumn<QString>("testo");  // one tick later
    QTest::newRow("1") << 1 << 4529678 << "12:34:57";
    QTest::newRow("2") << 2 << 4529678 << "2:34:56:8";
    QTest::newRow("3") << 3 << 4529678 << "34:56:79";
    QTest::newRow("1 before ten") << 1 << 3240000 << "9:00:01:";
    QTest::newRow("1 past midnight") << 1 << 8639950 << "24:00:00";
}

void tst_RicezioneOnLine::orologioFormati() {
    QFETCH(int, formato);
    QFETCH(int, centesimi);
    OrologioTabellone orologio;
    orologio.impostaFormato(formato, 5'000'000'000);
    orologio.sincronizza(centesimi, 9'123'456'789);
    const qint64 prossimo = 9'123'456'789 + orologio.alProssimo(9'123'456'789) * 1'000'000LL;
    QTEST(orologio.batti(prossimo), "testo");
}

void tst_RicezioneOnLine::orologioPuntuale_data() {
    QTest::addColumn<int>("formato");
    for (int formato = 1; formato <= 3; ++formato)
        QTest::addRow("%d", formato) << formato;
}

// An hour of ticks, each late by up to three intervals: what is shown is never more than one tick behind, and
// never ahead.
void tst_RicezioneOnLine::orologioPuntuale() {
    QFETCH(int, formato);
    const FormatoOrologio& f = FormatiOrologio[formato - 1];
    constexpr int Partenza = 3600000;
    constexpr qint64 Ora = 3'600'000'000'000;
    OrologioTabellone orologio;
    orologio.impostaFormato(formato, 0);
    orologio.sincronizza(Partenza, 0);
    std::mt19937 caso(4);
    int precedente = Partenza;
    for (qint64 adesso = 0; adesso < Ora;) {
        adesso += orologio.alProssimo(adesso) * 1'000'000LL + caso() % (3'000'000LL * f.intervallo);
        orologio.batti(adesso);
        const double vero = Partenza + static_cast<double>(adesso) / 10'000'000.0;
        if (orologio.centesimi() > vero + 0.1 || orologio.centesimi() < vero - f.passo ||
            orologio.centesimi() < precedente)
            QFAIL(qPrintable(QString("%1 instead of %2").arg(orologio.centesimi()).arg(vero)));
        precedente = orologio.centesimi();
    }
}

void tst_RicezioneOnLine::orologioCambioFormato() {
    constexpr qint64 Ms = 1'000'000;
    OrologioTabellone orologio;
    orologio.impostaFormato(1, 0);
    orologio.sincronizza(4500000, 0);
    QCOMPARE(orologio.batti(1000 * Ms), "12:30:01");
    // Between two ticks: nothing is lost and nothing counted twice.
    orologio.impostaFormato(3, 1505 * Ms);
    QCOMPARE(orologio.centesimi(), 4500100);
    QCOMPARE(orologio.alProssimo(1505 * Ms), 5);
    QCOMPARE(orologio.batti(1510 * Ms), "30:01:51");
    orologio.impostaFormato(1, 1510 * Ms);
    QCOMPARE(orologio.batti(2510 * Ms), "12:30:02");
    QCOMPARE(orologio.centesimi(), 4500251);
    // A timer that fires early by less than a millisecond has fired.
    QCOMPARE(orologio.batti(3510 * Ms - 900'000), "12:30:03");
}

QTEST_GUILESS_MAIN(tst_RicezioneOnLine)
#include "tst_RicezioneOnLine.moc"

#include "devices/OrologioTabellone.h"
#include "live/RicezioneOnLine.h"
#include "simulatori/SimulatoreTag.h"
#include "supporto/ProgrammaDiProva.h"

#include <random>

// On-line reception without a port or a window: characters in, readings and actions out. And what else of it
// can be said without a window: the chains, the clock of the scoreboard.
class tst_RicezioneOnLine final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void corsa();
    void primaInArchivio();
    void precisione();
    void penalita();
    void fuoriPasso();
    void catene();
    void orologioPuntuale();
    void orologioCambioFormato();

private:
    void prepara() override { nuovaManifestazione(); }
    // A crew and a chain of so many tests of one minute; one point a hundredth.
    ParametriOnLine corsaDi(int prove, Dispositivo dispositivo = Dispositivo::CP520);
    [[nodiscard]] QString letture() const;

    int m_idEqu = 0;
};

namespace {

using Cosa = RicezioneOnLine::Cosa;

// The actions as one can read them; what is shown follows `mostra`.
QStringList racconta(const RicezioneOnLine& ricezione, const RicezioneOnLine::Azioni& azioni) {
    static const QMap<Cosa, QString> Nomi{
        {Cosa::AvviaCronometro, "avvia"}, {Cosa::AzzeraCronometro, "azzera"},
        {Cosa::FermaCronometro, "ferma"}, {Cosa::AzzeraTabellone, "tabellone vuoto"},
        {Cosa::Suona, "suona"},           {Cosa::DatoErrato, "dato errato"},
        {Cosa::PortaPerduta, "perduta"},  {Cosa::Chiudi, "chiudi"},
    };
    QStringList righe;
    for (const RicezioneOnLine::Azione& azione : azioni) {
        const RicezioneOnLine::Schermo& s = ricezione.schermo();
        if (azione.cosa == Cosa::Mostra)
            righe << "mostra " + s.lblImp + '|' + s.lblTempo + (s.arrestoPossibile ? "" : "|fermo");
        else if (azione.cosa == Cosa::Tabellone)
            righe << "[" + azione.testo + "]";
        else if (azione.cosa == Cosa::Attendi)
            righe << QString("attendi %1").arg(azione.millisecondi);
        else
            righe << Nomi.value(azione.cosa, "?");
    }
    return righe;
}

RicezioneOnLine::Azioni arrivano(RicezioneOnLine& ricezione, QByteArrayView caratteri) {
    RicezioneOnLine::Azioni azioni;
    for (const FrameOnLine& frame : ricezione.ricevuti(caratteri))
        azioni += ricezione.ricevuto(frame);
    return azioni;
}

// What happens, as words: S start frame, T<hundredths> time frame, L a time with a letter in it, A end of a
// wait, X the operator stops, P the port is lost.
RicezioneOnLine::Azioni accade(RicezioneOnLine& ricezione, Dispositivo dispositivo, const QString& evento) {
    QByteArray lettere = SimulatoreTag::frameTempo(dispositivo, 6234);
    lettere[dispositivo == Dispositivo::CP520 ? 21 : 22] = 'x';
    switch (evento[0].unicode()) {
        case 'S':
            return arrivano(ricezione, SimulatoreTag::framePartenza(dispositivo));
        case 'T':
            return arrivano(ricezione, SimulatoreTag::frameTempo(dispositivo, evento.sliced(1).toInt()));
        case 'L':
            return arrivano(ricezione, lettere);
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

QString tst_RicezioneOnLine::letture() const {
    return leggiColonna("SELECT TPar||'>'||TArr FROM Rilevamenti WHERE IDEqu_FK=? ORDER BY IDPro_FK",
                        {m_idEqu})
        .join(' ');
}

void tst_RicezioneOnLine::corsa() {
    const QStringList partito{"avvia", "mostra |PARTITO", "[IN   7]"};
    const auto rifiuto = [](const QString& testo) {
        return QStringList{"ferma", "mostra |" + testo + "|fermo", "[ERRORE]", "attendi 3000", "chiudi"};
    };
    const QString dueStart = "START CON VEICOLO IN PROVA";
    const QString tempo1 = "TEMPO N° 1 : 00:01:02:34|TEMPO IMPOSTO : 00:01:00:00\nPENALITA' : 234";
    const QStringList primo = partito + QStringList{"azzera", "suona", "mostra " + tempo1, "[  62.34]"};
    const QStringList errato{"ferma", "[ERRORE]", "dato errato", "chiudi"};
    const char* dopoUno = "00:00:00:00>00:01:02:34 00:01:02:34>";

    const struct {
        const char* nome;
        int prove;
        const char* eventi;
        QStringList azioni;  // empty: the readings alone
        const char* attese;
    } casi[] = {{"one test", 1, "S T6234 A A",
                 partito + QStringList{"azzera", "suona", "mostra " + tempo1 + "|fermo", "[  62.34]", "ferma",
                                       "attendi 2000",
                                       "mostra PROVA TERMINATA|PENALITA' TOTALI DELLA PROVA : 234|fermo",
                                       "[P  234]", "attendi 4000", "chiudi"},
                 "00:00:00:00>00:01:02:34"},
                {"time before the start", 2, "T1 S T2 X P A", rifiuto("RESET NON ESEGUITO"), "> >"},
                {"second start", 2, "S S A", partito + rifiuto(dueStart), "00:00:00:00> >"},
                {"elapsed time that goes back",
                 2,
                 "S T6234 T6000 A",
                 {},
                 "00:00:00:00>00:01:02:34 00:01:02:34>00:01:00:00"},
                {"stopped before the start", 2, "X", {"ferma", "chiudi"}, "> >"},
                {"stopped half way", 2, "S T6234 X T12000", primo + QStringList{"ferma", "chiudi"}, dopoUno},
                {"port lost half way", 2, "S T6234 P T12000 A X",
                 primo + QStringList{"ferma", "[ERRORE]", "perduta", "chiudi"}, dopoUno},
                {"largest time that passes", 1, "S T32767", {}, "00:00:00:00>00:05:27:67"},
                {"one more", 2, "S T6234 T32768 T7000 A X P", primo + errato, dopoUno},
                {"letters", 2, "S T6234 L T7000 A X P", primo + errato, dopoUno},
                // A wait runs to its end whatever comes.
                {"nothing disturbs the end", 1, "S T6234 S T6300 X P", {}, "00:00:00:00>00:01:02:34"}};
    // Both devices speak of the same things.
    for (const auto& [nome, prove, eventi, azioni, attese] : casi) {
        for (const Dispositivo dispositivo : {Dispositivo::CP520, Dispositivo::CP540}) {
            ricomincia();
            RicezioneOnLine ricezione(corsaDi(prove, dispositivo));
            QCOMPARE(racconta(ricezione, ricezione.inizia()),
                     QStringList({"ferma", "mostra |IN PARTENZA...", "tabellone vuoto", "[PAR  7]"}));
            const QStringList accaduto = racconta(ricezione, dispositivo, eventi);
            QVERIFY2(azioni.isEmpty() || accaduto == azioni, qPrintable(nome + accaduto.join('/')));
            QVERIFY2(letture() == attese, nome);
        }
    }
}

// When the penalty is asked for, and so before anything is shown, another connection reads the new times; a
// crew's missing rows are made, nothing else is touched.
void tst_RicezioneOnLine::primaInArchivio() {
    ParametriOnLine corsa = corsaDi(2);
    nuovoEquipaggio(8);
    scriviRilevamento(m_idEqu, corsa.catena[0].idPro, "09:00:00:00", "09:01:00:00", 5);
    esegui(QString("DELETE FROM Rilevamenti WHERE IDPro_FK=%1").arg(corsa.catena[1].idPro));
    QStringList viste;
    corsa.penalita = [&](int scarto) {
        Statement query("SELECT TPar,TArr,PenAgg FROM Rilevamenti WHERE TPar<>'' ORDER BY IDPro_FK",
                        ConnShape());
        query.esegui();
        while (query.prossima())
            viste << query.testo(0) + '>' + query.testo(1) + ' ' + query.testo(2);
        return std::optional<double>(scarto);
    };
    RicezioneOnLine ricezione(corsa);
    racconta(ricezione, corsa.dispositivo, "S T6234");
    QCOMPARE(viste, QStringList({"00:00:00:00>00:01:02:34 5", "00:01:02:34> "}));
}

// The cut comes before the difference: to the second, 1:02.99 and 2:03.01 are 61 seconds apart.
void tst_RicezioneOnLine::precisione() {
    ParametriOnLine corsa = corsaDi(2);
    for (const auto& [parola, cifre, primo, secondo] :
         {std::tuple{"CEN", 11, "[  62.99]", "[  60.02]"}, std::tuple{"DEC", 10, "[   62.9]", "[   60.1]"},
          std::tuple{"SEC", 9, "[     62]", "[     61]"}, std::tuple{"MIN", 6, "[       ]", "[       ]"}}) {
        const auto taglia = [n = cifre](const QString& tempo) {
            return tempo.left(n) + QString("00:00:00:00").mid(n);
        };
        corsa.precisione = parola;
        corsa.taglia = taglia;
        RicezioneOnLine ricezione(corsa);
        const QStringList accaduto = racconta(ricezione, corsa.dispositivo, "S T6299 T12301");
        const QString t1 = taglia("00:01:02:99");
        QCOMPARE(letture(), "00:00:00:00>" + t1 + ' ' + t1 + '>' + taglia("00:02:03:01"));
        QCOMPARE(accaduto.filter("[ "), QStringList({primo, secondo}));
    }
}

// Three decimals, the Italian way; or none that can be said.
void tst_RicezioneOnLine::penalita() {
    ParametriOnLine corsa = corsaDi(1);
    for (const auto& [penalita, eventi, testo] :
         {std::tuple{std::optional(1234.56789), "S T6234 A", "PENALITA' TOTALI DELLA PROVA : 1234,568"},
          std::tuple{std::optional<double>(), "S T6234", "TEMPO IMPOSTO : 00:01:00:00\nPENALITA' : ?????"}}) {
        corsa.penalita = [p = penalita](int) { return p; };
        RicezioneOnLine ricezione(corsa);
        racconta(ricezione, corsa.dispositivo, eventi);
        QCOMPARE(ricezione.schermo().lblTempo, testo);
    }
}

// There is no resynchronisation: nothing is taken for a frame any more, until the operator stops.
void tst_RicezioneOnLine::fuoriPasso() {
    const ParametriOnLine corsa = corsaDi(1);
    for (const QByteArray& prima :
         {QByteArray("x"), QByteArray("\r"), SimulatoreTag::framePartenza(Dispositivo::CP540),
          SimulatoreTag::framePartenza(Dispositivo::CP520).left(20), QByteArray(1 << 20, 'T')}) {
        RicezioneOnLine ricezione(corsa);
        QVERIFY(arrivano(ricezione, prima).isEmpty());
        QVERIFY(racconta(ricezione, Dispositivo::CP520, "S T6234 S").isEmpty());
        QCOMPARE(letture(), ">");
        QCOMPARE(racconta(ricezione, Dispositivo::CP520, "X"), QStringList({"ferma", "chiudi"}));
    }
}

void tst_RicezioneOnLine::catene() {
    // Kinds in order, a capital letter is chained; the chains of their places. Other kinds may stand between,
    // and the first one may be chained to a control.
    for (const auto& [prove, attese] : {std::pair{"", ""},
                                        {"aaa", "0/1/2"},
                                        {"aAAaaA", "0,1,2/3/4,5"},
                                        {"cacAmMA", "1,3,6"},
                                        {"cAAa", "1,2/3"}}) {
        QList<ProvaCronometrata> elenco;
        for (const QChar c : QString(prove)) {
            const QString tipo = c.toLower() == 'a' ? "PA" : c.toLower() == 'c' ? "CO" : "PM";
            elenco << ProvaCronometrata{int(elenco.size()), tipo, "Prova", "00:01:00", c.isUpper() ? 99 : 0};
        }
        QStringList catene;
        for (const Catena& catena : elencaCatene(elenco)) {
            QStringList posti;
            for (const ProvaCronometrata& prova : catena)
                posti << QString::number(prova.idPro);
            catene << posti.join(',');
        }
        QCOMPARE(catene.join('/'), attese);
    }
}

// An hour of ticks, each late by up to three intervals: what is shown is never more than one tick behind, and
// never ahead.
void tst_RicezioneOnLine::orologioPuntuale() {
    constexpr int Partenza = 3600000;
    for (int formato = 1; formato <= 3; ++formato) {
        const FormatoOrologio& f = FormatiOrologio[formato - 1];
        OrologioTabellone orologio;
        orologio.impostaFormato(formato);
        orologio.sincronizza(Partenza, 0);
        std::mt19937 caso(4);
        int precedente = Partenza;
        for (qint64 adesso = 0; adesso < 3'600'000'000'000;) {
            adesso += orologio.alProssimo(adesso) * 1'000'000LL + caso() % (3'000'000LL * f.intervallo);
            orologio.batti(adesso);
            const double vero = Partenza + static_cast<double>(adesso) / 10'000'000.0;
            if (orologio.centesimi() > vero + 0.1 || orologio.centesimi() < vero - f.passo ||
                orologio.centesimi() < precedente)
                QFAIL(qPrintable(QString("%1 instead of %2").arg(orologio.centesimi()).arg(vero)));
            precedente = orologio.centesimi();
        }
    }
}

void tst_RicezioneOnLine::orologioCambioFormato() {
    constexpr qint64 Ms = 1'000'000;
    OrologioTabellone orologio;
    orologio.impostaFormato(1);
    orologio.sincronizza(4500000, 0);
    QCOMPARE(orologio.batti(1000 * Ms), "12:30:01");
    // Between two ticks: the one that is due comes when it was due and counts what it was to count.
    orologio.impostaFormato(3);
    QCOMPARE(orologio.alProssimo(1505 * Ms), 495);
    QCOMPARE(orologio.batti(2000 * Ms), "30:02:00");
    QCOMPARE(orologio.batti(2010 * Ms), "30:02:01");
    orologio.impostaFormato(1);
    QCOMPARE(orologio.alProssimo(2010 * Ms), 10);
    QCOMPARE(orologio.batti(2020 * Ms), "12:30:02");
    QCOMPARE(orologio.alProssimo(2020 * Ms), 1000);
    // A timer that fires early by less than a millisecond has fired; of a late one nothing is lost.
    QCOMPARE(orologio.batti(3020 * Ms - 900'000), "12:30:03");
    orologio.impostaFormato(2);
    QCOMPARE(orologio.batti(4350 * Ms), "2:30:04:3");
    QCOMPARE(orologio.centesimi(), 4500432);
}

QTEST_GUILESS_MAIN(tst_RicezioneOnLine)
#include "tst_RicezioneOnLine.moc"

#include "supporto/PorteDiProva.h"
#include "supporto/ProgrammaDiProva.h"
#include "timing/DialoghiScarico.h"
#include "timing/Scaricamento.h"
#include "timing/Scarico.h"

#include <QSignalSpy>
#include <QTest>

class tst_Conversazione final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void passi_data();
    void passi();
    void identificaECarica();
    void mancheRifiutata();
    void nessunaRisposta_data();
    void nessunaRisposta();
    void dopoAkCNessunaScadenza();
    void silenzioDelCP520();
    void portaGuasta_data();
    void portaGuasta();
    void fermaDaOvunque_data();
    void fermaDaOvunque();
    void gestoreCheFerma();
    void scatole();
};

namespace {

using Cosa = Conversazione::Cosa;
using Stato = Conversazione::Stato;

const char* nome(Cosa cosa) {
    static constexpr const char* Nomi[] = {"apri",   "chiudi", "invia",   "arma",   "disarma",
                                           "manche", "errata", "nessuna", "arrivo", "finita"};
    return Nomi[static_cast<int>(cosa)];
}

QString passo(const Conversazione::Azioni& azioni) {
    QStringList testo;
    for (const Conversazione::Azione& azione : azioni) {
        testo << nome(azione.cosa);
        if (azione.cosa == Cosa::Invia)
            testo.last() += ' ' + QString::fromLatin1(azione.dati.trimmed());
        if (azione.cosa == Cosa::ArmaTimer)
            testo.last() += QStringLiteral(" %1").arg(azione.millisecondi);
    }
    return testo.join(", ");
}

// What happens, one word: "+" begins, "!" the timer fires, "." the operator stops, "#7" the heat, else
// characters that arrive.
QString fai(Conversazione& conversazione, const QByteArray& evento) {
    if (evento == "+")
        return passo(conversazione.inizia());
    if (evento == "!")
        return passo(conversazione.scaduto());
    if (evento == ".")
        return passo(conversazione.ferma());
    if (evento.startsWith('#'))
        return passo(conversazione.manche(QString::fromLatin1(evento.mid(1))));
    return passo(conversazione.ricevuti(evento));
}

constexpr char Dati[] = "H1\r\nH2\r\nA    1          10:00:00.00000\n";
constexpr char Avvio540[] = "apri, invia #ID, arma 5000";
constexpr char Richiesta[] = "disarma, chiudi, manche";

}  // namespace

void tst_Conversazione::init() {
    AtteseLinea = {};
}

void tst_Conversazione::cleanup() {
    AtteseLinea = {};
}

void tst_Conversazione::passi_data() {
    QTest::addColumn<int>("dispositivo");
    QTest::addColumn<QList<QByteArray>>("eventi");
    QTest::addColumn<QStringList>("attesi");
    QTest::addColumn<int>("stato");
    const auto riga = [](const char* titolo, Dispositivo dispositivo, const QList<QByteArray>& eventi,
                         const QStringList& attesi, Stato stato) {
        QTest::newRow(titolo) << static_cast<int>(dispositivo) << eventi << attesi << static_cast<int>(stato);
    };
    const QByteArray si = frameAccettato();
    const QByteArray no = frameRifiutato();
    const QString avvio = Avvio540;
    const QString richiesta = Richiesta;

    riga("CP540, whole", Dispositivo::CP540, {"+", "SN 04711\r\n" + si, "#7", si, Dati, frameFine("7")},
         {avvio, richiesta, "apri, invia #DL_7, arma 5000", "disarma, arrivo", "", "chiudi, finita"},
         Stato::Terminata);
    riga("CP540, everything in one arrival", Dispositivo::CP540, {"+", si, "#7", si + Dati + frameFine("7")},
         {avvio, richiesta, "apri, invia #DL_7, arma 5000", "disarma, arrivo, chiudi, finita"},
         Stato::Terminata);
    riga("CP540, answers split within the checksum", Dispositivo::CP540,
         {"+", "SN 04711" + si.left(7), si.mid(7), "#7", si.left(10), si.mid(10)},
         {avvio, "", richiesta, "apri, invia #DL_7, arma 5000", "", "disarma, arrivo"}, Stato::Ricezione);
    riga("CP540, end frame split", Dispositivo::CP540,
         {"+", si, "#7", si + Dati, frameFine("7").left(6), frameFine("7").mid(6)},
         {avvio, richiesta, "apri, invia #DL_7, arma 5000", "disarma, arrivo", "", "chiudi, finita"},
         Stato::Terminata);
    riga("CP540, heat refused and asked again", Dispositivo::CP540, {"+", si, "#98", no, "#7", si},
         {avvio, richiesta, "apri, invia #DL_98, arma 5000", "disarma, chiudi, errata, manche",
          "apri, invia #DL_7, arma 5000", "disarma, arrivo"},
         Stato::Ricezione);
    riga("CP540, silent from the start", Dispositivo::CP540, {"+", "!"}, {avvio, "disarma, chiudi, nessuna"},
         Stato::Ferma);
    riga("CP540, silent after the heat", Dispositivo::CP540, {"+", si, "#7", "!"},
         {avvio, richiesta, "apri, invia #DL_7, arma 5000", "disarma, chiudi, nessuna"}, Stato::Ferma);
    riga("CP540, no watch once it sends", Dispositivo::CP540, {"+", si, "#7", si, "!", Dati},
         {avvio, richiesta, "apri, invia #DL_7, arma 5000", "disarma, arrivo", "", ""}, Stato::Ricezione);
    riga("CP540, no heat given", Dispositivo::CP540, {"+", si, "."}, {avvio, richiesta, "disarma, chiudi"},
         Stato::Ferma);
    riga("CP540, what comes outside of a conversation", Dispositivo::CP540, {si, "#7", "+", si, "stray", "!"},
         {"", "", avvio, richiesta, "", ""}, Stato::RichiestaManche);
    riga("CP540, stopped and begun again", Dispositivo::CP540, {"+", "SN 04711", ".", "+", si},
         {avvio, "", "disarma, chiudi", avvio, richiesta}, Stato::RichiestaManche);
    riga("CP520", Dispositivo::CP520, {"+", "T", "T", "!", "late"},
         {"apri", "arrivo, arma 3000", "arrivo, arma 3000", "chiudi, finita", ""}, Stato::Terminata);
    riga("CP520, waits without end", Dispositivo::CP520, {"+", "!", "."}, {"apri", "", "disarma, chiudi"},
         Stato::Ferma);
}

void tst_Conversazione::passi() {
    QFETCH(int, dispositivo);
    QFETCH(QList<QByteArray>, eventi);
    QFETCH(QStringList, attesi);
    Conversazione conversazione(static_cast<Dispositivo>(dispositivo));
    QStringList avuti;
    for (const QByteArray& evento : eventi)
        avuti << fai(conversazione, evento);
    QCOMPARE(avuti, attesi);
    QTEST(static_cast<int>(conversazione.stato()), "stato");
}

void tst_Conversazione::identificaECarica() {
    FabbricaDiProva fabbrica;
    Scaricamento scaricamento;
    PortaDiProva& porta = *fabbrica.ultima();
    QCOMPARE(porta.linea, Linea::Cronometro);
    QSignalSpy richiesta(&scaricamento, &Scaricamento::mancheRichiesta);
    QSignalSpy finito(&scaricamento, &Scaricamento::finito);

    QVERIFY(scaricamento.inizia(Dispositivo::CP540, 3));
    QCOMPARE(porta.numero(), 3);
    QCOMPARE(porta.scritti, "#ID\t\r\n");
    porta.arriva("SN 04711 TAG\r\n" + frameAccettato() + "lost with the port");
    QCOMPARE(richiesta.size(), 1);
    QCOMPARE(scaricamento.numeroDiSerie(), "04711");
    QVERIFY(!porta.aperta());

    scaricamento.manche("7");
    QCOMPARE(porta.aperture, 2);
    QCOMPARE(porta.scritti, "#ID\t\r\n#DL_7\t\r\n");
    porta.arriva(frameAccettato() + "H1\r\nH2\r\n");
    porta.arriva("A  12            10:00:00.12345\n" + frameFine("7"));
    QCOMPARE(finito.size(), 1);
    QVERIFY(!porta.aperta());
    QCOMPARE(finito[0][0].toByteArray(), "A  12            10:00:00.12345\n");
}

void tst_Conversazione::mancheRifiutata() {
    FabbricaDiProva fabbrica;
    Scaricamento scaricamento;
    PortaDiProva& porta = *fabbrica.ultima();
    QStringList sentiti;
    connect(&scaricamento, &Scaricamento::mancheErrata, this, [&] { sentiti << "errata"; });
    // The window asks from within the signal.
    connect(&scaricamento, &Scaricamento::mancheRichiesta, this, [&] {
        sentiti << "richiesta";
        if (sentiti.size() < 5)
            scaricamento.manche("98");
        else
            scaricamento.ferma();
    });
    QVERIFY(scaricamento.inizia(Dispositivo::CP540, 1));
    porta.arriva(frameAccettato());
    porta.arriva(frameRifiutato());
    porta.arriva(frameRifiutato());
    QCOMPARE(sentiti, QStringList({"richiesta", "errata", "richiesta", "errata", "richiesta"}));
    QCOMPARE(porta.scritti, "#ID\t\r\n#DL_98\t\r\n#DL_98\t\r\n");
    QCOMPARE(scaricamento.stato(), Stato::Ferma);
    QVERIFY(!porta.aperta());
}

void tst_Conversazione::nessunaRisposta_data() {
    QTest::addColumn<bool>("identificato");
    QTest::newRow("to the identification") << false;
    QTest::newRow("to the heat") << true;
}

void tst_Conversazione::nessunaRisposta() {
    QFETCH(bool, identificato);
    AtteseLinea.rispostaCP540 = 30;
    FabbricaDiProva fabbrica;
    Scaricamento scaricamento;
    QSignalSpy nessuna(&scaricamento, &Scaricamento::nessunaRisposta);
    QVERIFY(scaricamento.inizia(Dispositivo::CP540, 1));
    if (identificato) {
        fabbrica.ultima()->arriva(frameAccettato());
        scaricamento.manche("7");
    }
    // Anything but the answer does not put the time-out off.
    fabbrica.ultima()->arriva("noise");
    QTRY_COMPARE(nessuna.size(), 1);
    QVERIFY(!fabbrica.ultima()->aperta());
    QCOMPARE(scaricamento.stato(), Stato::Ferma);
}

void tst_Conversazione::dopoAkCNessunaScadenza() {
    AtteseLinea.rispostaCP540 = 1;
    FabbricaDiProva fabbrica;
    Scaricamento scaricamento;
    QSignalSpy nessuna(&scaricamento, &Scaricamento::nessunaRisposta);
    QVERIFY(scaricamento.inizia(Dispositivo::CP540, 1));
    fabbrica.ultima()->arriva(frameAccettato());
    scaricamento.manche("7");
    fabbrica.ultima()->arriva(frameAccettato());
    QVERIFY(!nessuna.wait(50));
    QCOMPARE(scaricamento.stato(), Stato::Ricezione);
    QVERIFY(fabbrica.ultima()->aperta());
}

void tst_Conversazione::silenzioDelCP520() {
    AtteseLinea.silenzioCP520 = 40;
    FabbricaDiProva fabbrica;
    Scaricamento scaricamento;
    QSignalSpy arrivi(&scaricamento, &Scaricamento::datiInArrivo);
    QSignalSpy finito(&scaricamento, &Scaricamento::finito);
    QVERIFY(scaricamento.inizia(Dispositivo::CP520, 1));
    fabbrica.ultima()->arriva("T 1\rT");
    fabbrica.ultima()->arriva(" 2\r");
    QTRY_COMPARE(finito.size(), 1);
    QCOMPARE(finito[0][0].toByteArray(), "T 1\rT 2\r");
    QCOMPARE(arrivi.size(), 2);
    QVERIFY(!fabbrica.ultima()->aperta());
}

void tst_Conversazione::portaGuasta_data() {
    QTest::addColumn<int>("quando");
    QTest::newRow("at the start") << 0;
    QTest::newRow("while it identifies") << 1;
    QTest::newRow("opening again for the heat") << 2;
    QTest::newRow("while it receives") << 3;
}

void tst_Conversazione::portaGuasta() {
    QFETCH(int, quando);
    const GuastoPorta guasto{9, "Porta Scollegata"};
    AtteseLinea.rispostaCP540 = 20;
    FabbricaDiProva fabbrica;
    Scaricamento scaricamento;
    PortaDiProva& porta = *fabbrica.ultima();
    QSignalSpy perduta(&scaricamento, &Scaricamento::guasta);
    QSignalSpy nessuna(&scaricamento, &Scaricamento::nessunaRisposta);
    if (quando == 0)
        porta.guastoInApertura = guasto;
    QCOMPARE(scaricamento.inizia(Dispositivo::CP540, 1), quando != 0);
    if (quando == 1)
        porta.perdi(guasto);
    if (quando >= 2) {
        porta.arriva(frameAccettato());
        porta.guastoInApertura = quando == 2 ? guasto : GuastoPorta();
        scaricamento.manche("7");
    }
    if (quando == 3) {
        porta.arriva(frameAccettato());
        porta.perdi(guasto);
    }
    QCOMPARE(perduta.size(), quando == 0 ? 0 : 1);
    QCOMPARE(scaricamento.guasto().testo(), "Errore n. : 9 - Porta Scollegata");
    QCOMPARE(scaricamento.stato(), Stato::Ferma);
    QVERIFY(!nessuna.wait(40));

    // And the window can begin again.
    porta.guastoInApertura = {};
    QVERIFY(scaricamento.inizia(Dispositivo::CP540, 1));
    QCOMPARE(scaricamento.guasto().numero, 0);
}

void tst_Conversazione::fermaDaOvunque_data() {
    QTest::addColumn<int>("dispositivo");
    QTest::addColumn<QList<QByteArray>>("arrivi");
    const QByteArray si = frameAccettato();
    QTest::newRow("CP540, identifying") << 1 << QList<QByteArray>{};
    QTest::newRow("CP540, heat asked") << 1 << QList<QByteArray>{si};
    QTest::newRow("CP540, receiving") << 1 << QList<QByteArray>{si, si + Dati};
    QTest::newRow("CP520, waiting") << 0 << QList<QByteArray>{};
    QTest::newRow("CP520, receiving") << 0 << QList<QByteArray>{"T"};
}

void tst_Conversazione::fermaDaOvunque() {
    QFETCH(int, dispositivo);
    QFETCH(QList<QByteArray>, arrivi);
    AtteseLinea.rispostaCP540 = 10;
    AtteseLinea.silenzioCP520 = 10;
    FabbricaDiProva fabbrica;
    Scaricamento scaricamento;
    QVERIFY(scaricamento.inizia(static_cast<Dispositivo>(dispositivo), 1));
    for (const QByteArray& arrivo : arrivi) {
        fabbrica.ultima()->arriva(arrivo);
        scaricamento.manche("7");
    }
    scaricamento.ferma();
    QVERIFY(!fabbrica.ultima()->aperta());
    QSignalSpy nessuna(&scaricamento, &Scaricamento::nessunaRisposta);
    QSignalSpy finito(&scaricamento, &Scaricamento::finito);
    QVERIFY(!nessuna.wait(30));
    QCOMPARE(finito.size(), 0);
    QCOMPARE(scaricamento.stato(), Stato::Ferma);
}

// A window that stops, or is deleted, from within a signal hears nothing more of the same arrival.
void tst_Conversazione::gestoreCheFerma() {
    FabbricaDiProva fabbrica;
    auto scaricamento = std::make_unique<Scaricamento>();
    int finiti = 0;
    connect(scaricamento.get(), &Scaricamento::datiInArrivo, this, [&] { scaricamento->ferma(); });
    connect(scaricamento.get(), &Scaricamento::finito, this, [&] { ++finiti; });
    QVERIFY(scaricamento->inizia(Dispositivo::CP540, 1));
    fabbrica.ultima()->arriva(frameAccettato());
    scaricamento->manche("7");
    fabbrica.ultima()->arriva(frameAccettato() + Dati + frameFine("7"));
    QCOMPARE(finiti, 0);
    QCOMPARE(scaricamento->stato(), Stato::Ferma);
}

void tst_Conversazione::scatole() {
    ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    const QString titolo = "Inserimento Numero della Manche da Scaricare";
    const QString domanda = "Numero della Manche da Scaricare";
    DialoghiDiProva& dialoghi = programma.dialoghi;
    for (const char* errata : {"100", "sette", " "}) {
        dialoghi.attendiChiedi(titolo, domanda, errata);
        dialoghi.attendiMessaggio("Attenzione", "Numero di Manche NON Corretto");
    }
    dialoghi.attendiChiedi(titolo, domanda, "07");
    QCOMPARE(chiediManche(), "07");
    dialoghi.attendiChiedi(titolo, domanda, "");
    QCOMPARE(chiediManche(), std::nullopt);
    dialoghi.attendiChiedi(titolo, domanda, std::nullopt);
    QCOMPARE(chiediManche(), std::nullopt);

    dialoghi.attendiMessaggio("Impossibile Ricevere i Tempi", "Numero di Manche Errato");
    avvisaMancheErrata();
    dialoghi.attendiMessaggio("Errore di Comunicazione",
                              "Nessuna Risposta Ricevuta dal CP540.\n"
                              "Controllare I Collegamenti e Quindi Riprovare.");
    avvisaNessunaRisposta();
    dialoghi.attendiMessaggio("Errore", "Errore n. : 1 - Porta Inesistente");
    avvisaGuastoPorta({1, "Porta Inesistente"});
    dialoghi.attendiMessaggio(
        "ATTENZIONE!",
        QStringLiteral("E' Stato Ricevuto un Dato Errato.\nLa Ricezione Sarà Interrotta.\n"
                       "Verificare i Cavi di Collegamento e le Impostazioni del TAG CP520."),
        Icona::Stop);
    avvisaDatoErrato();
    QVERIFY(dialoghi.finite());
}

QTEST_GUILESS_MAIN(tst_Conversazione)
#include "tst_Conversazione.moc"

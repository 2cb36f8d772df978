#include "simulatori/SimulatoreTag.h"
#include "supporto/ProgrammaDiProva.h"
#include "timing/Frame.h"
#include "timing/Scaricamento.h"
#include "timing/Scarico.h"
#include "timing/Tabellone.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTest>

// The simulators against the room's own port and conversation: as objects, and as the programs that a club
// starts.
class tst_Simulatori final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void scarico_data();
    void scarico();
    void onLine_data();
    void onLine();
    void silenzioAMeta();
    void cronometroStaccato();
    void programmaTag();
    void programmaTabellone();
    void comandiErrati();
    void partenzeRifiutate_data();
    void partenzeRifiutate();

private:
    QString copione(const QString& righe) const;
    std::unique_ptr<ProgrammaDiProva> m_programma;
};

namespace {

constexpr int Attesa = 60000;

QStringList righe(const QList<RecordScarico>& record) {
    QStringList testi;
    for (const RecordScarico& r : record)
        testi << QStringLiteral("%1 %2").arg(r.numero).arg(r.tempo);
    return testi;
}

// The programs under test, stopped with the test.
class Processo final {
public:
    Processo(const QString& programma, const QStringList& argomenti) {
        m_processo.start(programma, argomenti);
        m_processo.waitForStarted(Attesa);
    }
    ~Processo() {
        m_processo.kill();
        m_processo.waitForFinished(Attesa);
    }
    Q_DISABLE_COPY_MOVE(Processo)
    void premiInvio() { m_processo.write("\n"); }
    bool finito() { return m_processo.state() == QProcess::NotRunning; }
    [[nodiscard]] int codice() const { return m_processo.exitCode(); }
    QByteArray uscita() { return m_uscita += m_processo.readAllStandardOutput(); }
    QByteArray errori() { return m_errori += m_processo.readAllStandardError(); }

private:
    QProcess m_processo;
    QByteArray m_uscita;
    QByteArray m_errori;
};

}  // namespace

void tst_Simulatori::init() {
    AtteseLinea = {};
    m_programma = std::make_unique<ProgrammaDiProva>(ProgrammaDiProva::Archivio::Nessuno);
}

void tst_Simulatori::cleanup() {
    m_programma.reset();
    AtteseLinea = {};
}

QString tst_Simulatori::copione(const QString& testo) const {
    QFile file(PercorsoApp + "/copione.txt");
    if (!file.open(QIODevice::WriteOnly) || file.write(testo.toUtf8()) < 0)
        qFatal("cannot write the script");
    return file.fileName();
}

void tst_Simulatori::scarico_data() {
    QTest::addColumn<int>("dispositivo");
    QTest::addColumn<int>("pezzo");
    for (const auto dispositivo : {Dispositivo::CP520, Dispositivo::CP540}) {
        for (const int pezzo : {0, 1, 7}) {
            QTest::addRow("%s by %d", qPrintable(nomeDispositivo(dispositivo)), pezzo)
                << static_cast<int>(dispositivo) << pezzo;
        }
    }
}

void tst_Simulatori::scarico() {
    QFETCH(int, dispositivo);
    QFETCH(int, pezzo);
    const auto quale = static_cast<Dispositivo>(dispositivo);
    AtteseLinea.silenzioCP520 = 1000;
    PseudoTerminale linea(PercorsoApp, 2);
    SimulatoreTag tag(quale, linea);
    tag.spezza(pezzo, 1);
    tag.setSerie("A9");
    tag.scegliManche(7);
    tag.registra(12, QTime(10, 15, 20, 340));
    tag.registra(0, QTime(10, 15, 21, 0));
    tag.registra(9999, QTime(23, 59, 59, 990));

    Scaricamento scaricamento;
    QSignalSpy finito(&scaricamento, &Scaricamento::finito);
    QSignalSpy richiesta(&scaricamento, &Scaricamento::mancheRichiesta);
    QSignalSpy errata(&scaricamento, &Scaricamento::mancheErrata);
    QVERIFY(scaricamento.inizia(quale, 2));
    if (quale == Dispositivo::CP540) {
        QTRY_COMPARE(richiesta.size(), 1);
        QCOMPARE(scaricamento.numeroDiSerie(), "A9   ");
        scaricamento.manche("98");
        QTRY_COMPARE(richiesta.size(), 2);
        QCOMPARE(errata.size(), 1);
        scaricamento.manche("7");
    } else {
        tag.trasmetti();
    }
    QTRY_COMPARE(finito.size(), 1);
    QCOMPARE(righe(leggiRecord(quale, finito[0][0].toByteArray())),
             QStringList({"12 10:15:20:34", "0 10:15:21:00", "9999 23:59:59:99"}));
    if (quale == Dispositivo::CP540)
        QCOMPARE(tag.comandi(), QList<QByteArray>({"#ID\t", "#DL_98\t", "#DL_7\t"}));
    QTRY_VERIFY(!linea.aperto());
}

void tst_Simulatori::onLine_data() {
    scarico_data();
}

// A start and two times: split, and glued into one piece.
void tst_Simulatori::onLine() {
    QFETCH(int, dispositivo);
    QFETCH(int, pezzo);
    const auto quale = static_cast<Dispositivo>(dispositivo);
    PseudoTerminale linea(PercorsoApp, 1);
    SimulatoreTag tag(quale, linea);
    const std::unique_ptr<Porta> porta = FabbricaPorte::corrente().crea(Linea::Cronometro);
    porta->impostaNumero(1);
    RicevitoreFrame ricevitore(quale);
    QList<FrameOnLine> frame;
    connect(porta.get(), &Porta::ricevuto, this, [&] { frame << ricevitore.aggiungi(porta->leggiTutto()); });
    QVERIFY(porta->apri());

    tag.spezza(pezzo, 1);
    if (pezzo == 0)
        tag.incolla();
    tag.partenza();
    tag.tempo(6234);
    tag.tempo(32767);
    if (pezzo == 0)
        tag.fineIncolla();
    QTRY_COMPARE(frame.size(), 3);
    QCOMPARE(frame[0].tipo, TipoFrame::Partenza);
    QCOMPARE(tempoTrascorso(quale, frame[1].record), 6234);
    QCOMPARE(tempoTrascorso(quale, frame[2].record), 32767);
    QCOMPARE(ricevitore.inAttesa(), 0);

    // Noise leaves the buffer out of step for good, and nothing else happens.
    tag.spezza(0, 0);
    tag.disturbo(1000);
    tag.partenza();
    QTRY_COMPARE(ricevitore.inAttesa(), 1000 + SimulatoreTag::framePartenza(quale).size());
    QCOMPARE(frame.size(), 3);
}

void tst_Simulatori::silenzioAMeta() {
    AtteseLinea.rispostaCP540 = 500;
    PseudoTerminale linea(PercorsoApp, 1);
    SimulatoreTag tag(Dispositivo::CP540, linea);
    tag.registra(1, QTime(10, 0));
    Scaricamento scaricamento;
    QSignalSpy richiesta(&scaricamento, &Scaricamento::mancheRichiesta);
    QSignalSpy nessuna(&scaricamento, &Scaricamento::nessunaRisposta);

    tag.setMuto(true);
    QVERIFY(scaricamento.inizia(Dispositivo::CP540, 1));
    QTRY_COMPARE(nessuna.size(), 1);
    QTRY_VERIFY(!linea.aperto());
    nessuna.clear();

    // Silent after the accepted frame, or with the end frame of another heat: receiving until it is stopped.
    tag.setMuto(false);
    for (const bool interrotto : {true, false}) {
        tag.setTaglio(interrotto ? std::optional<qsizetype>(frameAccettato().size()) : std::nullopt);
        tag.setMancheInCoda(interrotto ? std::nullopt : std::optional<int>(2));
        richiesta.clear();
        QVERIFY(scaricamento.inizia(Dispositivo::CP540, 1));
        QTRY_COMPARE(richiesta.size(), 1);
        scaricamento.manche("1");
        QTRY_COMPARE(scaricamento.stato(), Conversazione::Stato::Ricezione);
        QVERIFY(!nessuna.wait(600));
        QCOMPARE(scaricamento.stato(), Conversazione::Stato::Ricezione);
        scaricamento.ferma();
        QTRY_VERIFY(!linea.aperto());
    }
}

void tst_Simulatori::cronometroStaccato() {
    PseudoTerminale linea(PercorsoApp, 1);
    SimulatoreTag tag(Dispositivo::CP520, linea);
    tag.registra(1, QTime(10, 0));
    Scaricamento scaricamento;
    QSignalSpy guasta(&scaricamento, &Scaricamento::guasta);
    QSignalSpy arrivo(&scaricamento, &Scaricamento::datiInArrivo);
    QVERIFY(scaricamento.inizia(Dispositivo::CP520, 1));
    tag.setTaglio(20);
    tag.trasmetti();
    QTRY_COMPARE(arrivo.size(), 1);
    linea.stacca();
    QTRY_COMPARE(guasta.size(), 1);
    QCOMPARE(scaricamento.guasto().descrizione, "Porta Scollegata");
    QCOMPARE(scaricamento.stato(), Conversazione::Stato::Ferma);
    QVERIFY(!scaricamento.inizia(Dispositivo::CP520, 1));
    linea.attacca();
    QVERIFY(scaricamento.inizia(Dispositivo::CP520, 1));
}

void tst_Simulatori::programmaTag() {
    const QString testo =
        "# una manche, poi una corsa\n"
        "serie 12345\nmanche 3\nrecord 5 09:00:00.50\nrecord 0 09:00:01.00\nriga A   6\\n\n"
        "attendi invio\nattendi apertura\nincolla\npartenza\ntempo 1:02.34\nfine-incolla\n"
        "spezza 5 1\ntempo 5:27.68\ninvia \\x00T\\r\\n\nattendi chiusura\nattendi 1\nfine\npartenza\n";
    Processo tag(SIMULATORE_TAG,
                 {"--dispositivo", "CP540", "--programma", PercorsoApp, "--com", "6", copione(testo)});
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(PercorsoApp + "/porte/com6"), Attesa);

    Scaricamento scaricamento;
    QSignalSpy richiesta(&scaricamento, &Scaricamento::mancheRichiesta);
    QSignalSpy finito(&scaricamento, &Scaricamento::finito);
    QVERIFY(scaricamento.inizia(Dispositivo::CP540, 6));
    QTRY_COMPARE_WITH_TIMEOUT(richiesta.size(), 1, Attesa);
    QCOMPARE(scaricamento.numeroDiSerie(), "12345");
    scaricamento.manche("3");
    QTRY_COMPARE_WITH_TIMEOUT(finito.size(), 1, Attesa);
    QCOMPARE(righe(leggiRecord(Dispositivo::CP540, finito[0][0].toByteArray())),
             QStringList({"5 09:00:00:50", "0 09:00:01:00", "6 00:00:00:00"}));

    const std::unique_ptr<Porta> porta = FabbricaPorte::corrente().crea(Linea::Cronometro);
    porta->impostaNumero(6);
    RicevitoreFrame ricevitore(Dispositivo::CP540);
    QList<FrameOnLine> frame;
    connect(porta.get(), &Porta::ricevuto, this, [&] { frame << ricevitore.aggiungi(porta->leggiTutto()); });
    QVERIFY(porta->apri());
    tag.premiInvio();
    QTRY_COMPARE_WITH_TIMEOUT(frame.size(), 3, Attesa);
    QCOMPARE(frame[0].tipo, TipoFrame::Partenza);
    QCOMPARE(tempoTrascorso(Dispositivo::CP540, frame[1].record), 6234);
    QCOMPARE(tempoTrascorso(Dispositivo::CP540, frame[2].record), std::nullopt);
    QTRY_COMPARE_WITH_TIMEOUT(ricevitore.inAttesa(), 4, Attesa);
    porta->chiudi();
    QTRY_VERIFY_WITH_TIMEOUT(tag.finito(), Attesa);
    QCOMPARE(tag.codice(), 0);
    QCOMPARE(tag.errori(), "");
    // It takes its link away with it.
    QVERIFY(!QFileInfo(PercorsoApp + "/porte/com6").isSymLink());
}

void tst_Simulatori::programmaTabellone() {
    Processo tabellone(
        SIMULATORE_TABELLONE,
        {"--programma", PercorsoApp, "--com", "2",
         copione("attendi testo \"PAR  7\"\nattendi testo \"  62.34\"\nattendi chiusura\nfine\n")});
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(PercorsoApp + "/porte/com2"), Attesa);
    const std::unique_ptr<Porta> porta = FabbricaPorte::corrente().crea(Linea::Tabellone);
    porta->impostaNumero(2);
    QVERIFY2(AzzeraTabellone(*porta), qPrintable(porta->guasto().testo()));
    QVERIFY2(InviaTabellone(*porta, tabellonePronto(7)), qPrintable(porta->guasto().testo()));
    QVERIFY2(InviaTabellone(*porta, tabelloneParziale(6234, "CEN")), qPrintable(porta->guasto().testo()));
    QTRY_VERIFY_WITH_TIMEOUT(tabellone.finito(), Attesa);
    QCOMPARE(tabellone.codice(), 0);
    QCOMPARE(tabellone.uscita(), "[      ]\n[PAr  7]\n[  62.34]\n");
}

// Wrong commands are told with their line and passed over; the exit code says that there were some.
void tst_Simulatori::comandiErrati() {
    const QStringList errati{"balla",
                             "attendi",
                             "attendi -1",
                             "attendi mai",
                             "tempo 62.34",
                             "tempo 1:2.3",
                             "record 5",
                             "record x 10:00:00.00",
                             "record 10000 10:00:00.00",
                             "record 5 25:00:00.00",
                             "spezza x",
                             "taglia -1",
                             "coda 0",
                             "manche 0",
                             "invia \\q",
                             "invia \\x",
                             "invia \\",
                             "riga \\xZZ",
                             "disturbo tanto"};
    Processo tag(SIMULATORE_TAG, {"--programma", PercorsoApp, copione(errati.join('\n') + "\nfine\n")});
    QTRY_VERIFY_WITH_TIMEOUT(tag.finito(), Attesa);
    QCOMPARE(tag.codice(), 1);
    const QList<QByteArray> detti = tag.errori().trimmed().split('\n');
    QCOMPARE(detti.size(), errati.size());
    for (qsizetype i = 0; i < detti.size(); ++i)
        QVERIFY2(detti[i].startsWith(QByteArray("riga ") + QByteArray::number(i + 1) + ':'),
                 detti[i].constData());
}

void tst_Simulatori::partenzeRifiutate_data() {
    QTest::addColumn<QStringList>("argomenti");
    QTest::newRow("no such device") << QStringList{"--dispositivo", "CP999"};
    QTest::newRow("no such folder") << QStringList{"--programma", "/no/such/folder"};
    QTest::newRow("no such script") << QStringList{"/no/such/script"};
    QTest::newRow("a file stands in the link's place") << QStringList{"--com", "8"};
}

void tst_Simulatori::partenzeRifiutate() {
    QFETCH(QStringList, argomenti);
    QVERIFY(QDir(PercorsoApp).mkpath("porte"));
    QFile file(PercorsoApp + "/porte/com8");
    QVERIFY(file.open(QIODevice::WriteOnly));
    if (!argomenti.contains("--programma"))
        argomenti = QStringList{"--programma", PercorsoApp} + argomenti;
    Processo tag(SIMULATORE_TAG, argomenti);
    QTRY_VERIFY_WITH_TIMEOUT(tag.finito(), Attesa);
    QCOMPARE(tag.codice(), 2);
    QVERIFY(!tag.errori().isEmpty());
    QVERIFY(file.exists());
}

QTEST_GUILESS_MAIN(tst_Simulatori)
#include "tst_Simulatori.moc"

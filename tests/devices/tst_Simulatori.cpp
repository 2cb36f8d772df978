#include "devices/Frame.h"
#include "devices/Scaricamento.h"
#include "devices/Scarico.h"
#include "devices/Tabellone.h"
#include "simulatori/SimulatoreTag.h"
#include "supporto/ProgrammaDiProva.h"

#include <QProcess>
#include <QSignalSpy>

// The simulators as the programs that a club starts, against the room's own port and conversation.
class tst_Simulatori final : public ProvaConProgramma {
    Q_OBJECT

public:
    tst_Simulatori() : ProvaConProgramma(Archivio::Nessuno) {}

private Q_SLOTS:
    void programmaTag();
    void programmaTabellone();
};

namespace {

constexpr int Attesa = 60000;

QString copione(const char* testo) {
    scriviFile("copione.txt", testo);
    return PercorsoApp + "/copione.txt";
}

QStringList righe(const QList<RecordScarico>& record) {
    QStringList testi;
    for (const RecordScarico& r : record)
        testi << QStringLiteral("%1 %2").arg(r.numero).arg(r.tempo);
    return testi;
}

// The programs under test, stopped with the test.
class Processo final : public QProcess {
public:
    Processo(const QString& programma, const QStringList& argomenti) {
        start(programma, argomenti);
        waitForStarted(Attesa);
    }
    ~Processo() override {
        kill();
        waitForFinished(Attesa);
    }
    Q_DISABLE_COPY_MOVE(Processo)
    [[nodiscard]] bool finito() const { return state() == NotRunning; }
};

}  // namespace

void tst_Simulatori::programmaTag() {
    const char* testo =
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
    tag.write("\n");
    QTRY_COMPARE_WITH_TIMEOUT(frame.size(), 3, Attesa);
    QCOMPARE(frame[0].tipo, TipoFrame::Partenza);
    QCOMPARE(tempoTrascorso(Dispositivo::CP540, frame[1].record), 6234);
    QCOMPARE(tempoTrascorso(Dispositivo::CP540, frame[2].record), std::nullopt);
    QTRY_COMPARE_WITH_TIMEOUT(ricevitore.inAttesa(), 4, Attesa);
    porta->chiudi();
    QTRY_VERIFY_WITH_TIMEOUT(tag.finito(), Attesa);
    QCOMPARE(tag.exitCode(), 0);
    QCOMPARE(tag.readAllStandardError(), "");
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
    QVERIFY(AzzeraTabellone(*porta));
    QVERIFY(InviaTabellone(*porta, tabellonePronto(7)));
    QVERIFY(InviaTabellone(*porta, tabelloneParziale(6234, "CEN")));
    QTRY_VERIFY_WITH_TIMEOUT(tabellone.finito(), Attesa);
    QCOMPARE(tabellone.exitCode(), 0);
    QCOMPARE(tabellone.readAllStandardOutput(), "[      ]\n[PAr  7]\n[  62.34]\n");
}

QTEST_GUILESS_MAIN(tst_Simulatori)
#include "tst_Simulatori.moc"

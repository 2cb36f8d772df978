#include "devices/Frame.h"
#include "devices/Scaricamento.h"
#include "devices/Scarico.h"
#include "devices/Tabellone.h"
#include "simulatori/SimulatoreTag.h"
#include "supporto/ProgrammaDiProva.h"

#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>

// The simulators as the programs that a club starts, against the room's own port and conversation.
class tst_Simulatori final : public ProvaConProgramma {
    Q_OBJECT

public:
    tst_Simulatori() : ProvaConProgramma(Archivio::Nessuno) {}

private Q_SLOTS:
    void programmaTag();
    void programmaTabellone();
    void scarichi();
    void rigaDiComando();
};

namespace {

constexpr int Attesa = 60000;

QString copione(const QByteArray& testo) {
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

// One of those that stand beside the simulators, without its pauses.
QString pronto(const QString& nome) {
    static const QRegularExpression pausa("attendi \\d+");
    const QByteArray testo = leggiFile(QString(COPIONI "/%1.txt").arg(nome));
    return copione(QString::fromUtf8(testo).replace(pausa, "attendi 1").toUtf8());
}

// What a download from port 6 brings; heat 1 on the TAG CP540.
QStringList scarica(Dispositivo dispositivo) {
    Scaricamento scaricamento;
    QStringList esito;
    QObject::connect(&scaricamento, &Scaricamento::mancheRichiesta, [&] { scaricamento.manche("1"); });
    QObject::connect(&scaricamento, &Scaricamento::nessunaRisposta, [&] { esito << "no answer"; });
    QObject::connect(&scaricamento, &Scaricamento::finito,
                     [&](const QByteArray& flusso) { esito = righe(leggiRecord(dispositivo, flusso)); });
    if (!scaricamento.inizia(dispositivo, 6) || !QTest::qWaitFor([&] { return !esito.isEmpty(); }, Attesa))
        return {"nothing"};
    return esito;
}

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
             QStringList({"5 09:00:00:50", "0 09:00:01:00", "6 :::"}));

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
    Processo tabellone(SIMULATORE_TABELLONE, {"--programma", PercorsoApp, "--com", "2", pronto("tabellone")});
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(PercorsoApp + "/porte/com2"), Attesa);
    const std::unique_ptr<Porta> porta = FabbricaPorte::corrente().crea(Linea::Tabellone);
    porta->impostaNumero(2);
    QVERIFY(AzzeraTabellone(*porta));
    for (const QString& testo :
         {tabellonePronto(1), tabellonePartito(1), tabelloneParziale(2995, "CEN"),
          tabelloneParziale(1493, "CEN"), tabelloneParziale(954, "CEN"), tabellonePenalita("66")})
        QVERIFY(InviaTabellone(*porta, testo));
    QTRY_VERIFY_WITH_TIMEOUT(tabellone.finito(), Attesa);
    QCOMPARE(tabellone.exitCode(), 0);
    QCOMPARE(tabellone.readAllStandardOutput(),
             "[      ]\n[PAr  1]\n[IN   1]\n[  29.95]\n[  14.93]\n[   9.54]\n[P   66]\n");
}

void tst_Simulatori::scarichi() {
    AtteseLinea.silenzioCP520 = 300;
    for (const auto& [nome, dispositivo, tanti, ultimo] :
         {std::tuple{"scarico-cp520", Dispositivo::CP520, 8, "8 15:17:00:00"},
          std::tuple{"scarico-cp540", Dispositivo::CP540, 16, "8 15:43:01:00"}}) {
        Processo tag(SIMULATORE_TAG, {"--dispositivo", QString(nome).right(5), "--programma", PercorsoApp,
                                      "--com", "6", pronto(nome)});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(PercorsoApp + "/porte/com6"), Attesa);
        const QStringList record = scarica(dispositivo);
        QCOMPARE(record.size(), tanti);
        QCOMPARE(record.last(), ultimo);
        tag.write("\n");
        QTRY_VERIFY_WITH_TIMEOUT(tag.finito(), Attesa);
        QCOMPARE(QString::number(tag.exitCode()) + tag.readAllStandardError(), "0");
    }
    AtteseLinea = {};
}

void tst_Simulatori::rigaDiComando() {
    // What each says, with the exit code before it.
    const std::tuple<const char*, const char*, const char*> casi[] = {
        {SIMULATORE_TAG, "--help", "0 Fa la parte di un cronometro"},
        {SIMULATORE_TAG, "--com 10", "2 --com: un numero da 1 a 9\n"},
        {SIMULATORE_TAG, "--com", "2 all'opzione --com manca il valore\n"},
        {SIMULATORE_TAG, "--dispositivo CP550", "2 --dispositivo: CP520 oppure CP540\n"},
        {SIMULATORE_TAG, "a.txt b.txt", "2 argomento di troppo: b.txt\n"},
        {SIMULATORE_TAG, "--programma /nessuna", "2 La cartella /nessuna non c'è"},
        {SIMULATORE_TABELLONE, "--dispositivo CP520", "2 opzione sconosciuta: --dispositivo\n"},
        {CREA_ESEMPIO, "una", "2 mancano degli argomenti\n"},
        {CREA_ESEMPIO, "--attiva=no una altra", "2 l'opzione --attiva non vuole un valore\n"},
        {PROVA, "/nessuna /tmp", "2 nella cartella /nessuna non c'è un archivio\n"}};
    for (const auto& [programma, argomenti, detto] : casi) {
        Processo processo(programma, QString(argomenti).split(' ', Qt::SkipEmptyParts));
        QVERIFY(processo.waitForFinished(Attesa));
        const QByteArray uscita = QByteArray::number(processo.exitCode()) + ' ' +
                                  processo.readAllStandardOutput() + processo.readAllStandardError();
        QVERIFY2(uscita.startsWith(detto), uscita.constData());
    }
}

QTEST_GUILESS_MAIN(tst_Simulatori)
#include "tst_Simulatori.moc"

#include "simulatori/SimulatoreTabellone.h"
#include "supporto/ProgrammaDiProva.h"
#include "timing/Dispositivo.h"
#include "timing/PortaSeriale.h"
#include "timing/Tabellone.h"

#include <unistd.h>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

// Ports of the machine on real pseudo-terminals.
class tst_Porte final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void numeroEDispositivo();
    void nonSiApre_data();
    void nonSiApre();
    void inUso();
    void ottoBit();
    void raffica();
    void daCapo();
    void adattatoreTolto();
    void ultimiCaratteri();
    void chiusaNelSegnale();
    void lineaFerma();
    void tabellone();

private:
    std::unique_ptr<ProgrammaDiProva> m_programma;
};

namespace {

QByteArray tuttiIByte() {
    QByteArray byte;
    for (int c = 0; c < 256; ++c)
        byte += static_cast<char>(c);
    return byte;
}

// What a port receives, read as a window does.
class Ascolto final {
public:
    explicit Ascolto(Porta& porta) {
        QObject::connect(&porta, &Porta::ricevuto, &porta, [&] { dati += porta.leggiTutto(); });
    }
    QByteArray dati;
};

}  // namespace

void tst_Porte::init() {
    AtteseLinea = {};
    m_programma = std::make_unique<ProgrammaDiProva>(ProgrammaDiProva::Archivio::Nessuno);
    QVERIFY(QDir(PercorsoApp).mkpath("porte"));
}

void tst_Porte::cleanup() {
    m_programma.reset();
    AtteseLinea = {};
}

void tst_Porte::numeroEDispositivo() {
    const QString collegata = PercorsoApp + "/porte/com2";
    QCOMPARE(dispositivoPorta(2), "/dev/ttyS1");
    QCOMPARE(dispositivoPorta(1), "/dev/ttyS0");
    QVERIFY(QFile::link("/dev/null", collegata));
    QCOMPARE(dispositivoPorta(2), "/dev/null");
    QCOMPARE(dispositivoPorta(1), "/dev/ttyS0");
    // The adapter is out: another device must not take its place.
    QFile::remove(collegata);
    QVERIFY(QFile::link("/dev/no-such-adapter", collegata));
    QCOMPARE(dispositivoPorta(2), collegata);
}

void tst_Porte::nonSiApre_data() {
    QTest::addColumn<QString>("bersaglio");  // of porte/com1; empty: an ordinary file
    QTest::addColumn<int>("errore");
    QTest::newRow("adapter out") << "/dev/no-such-adapter" << int(QSerialPort::DeviceNotFoundError);
    QTest::newRow("no serial line") << "/dev/null" << 0;
    QTest::newRow("ordinary file") << "" << 0;
    QTest::newRow("folder") << "/tmp" << 0;
}

void tst_Porte::nonSiApre() {
    QFETCH(QString, bersaglio);
    QFETCH(int, errore);
    const QString collegata = PercorsoApp + "/porte/com1";
    if (bersaglio.isEmpty()) {
        QFile file(collegata);
        QVERIFY(file.open(QIODevice::WriteOnly));
    } else {
        QVERIFY(QFile::link(bersaglio, collegata));
    }
    PortaSeriale porta(Linea::Cronometro);
    porta.impostaNumero(1);
    QSignalSpy guasta(&porta, &Porta::guasta);
    QVERIFY(!porta.apri());
    QVERIFY(!porta.prova());
    QVERIFY(!porta.aperta());
    QVERIFY(porta.guasto().numero != 0);
    if (errore != 0)
        QCOMPARE(porta.guasto().numero, errore);
    QVERIFY(!porta.guasto().descrizione.isEmpty());
    // A port that never opened is not lost as well.
    QVERIFY(!guasta.wait(20));
    QVERIFY(!porta.scrivi("x"));
    // The number becomes good as soon as the device is there.
    QFile::remove(collegata);
    const PseudoTerminale linea(PercorsoApp, 1);
    QVERIFY(porta.prova());
    QCOMPARE(porta.guasto().numero, 0);
    QVERIFY(!porta.aperta());
}

void tst_Porte::inUso() {
    const PseudoTerminale linea(PercorsoApp, 1);
    QVERIFY(QFile::link(dispositivoPorta(1), PercorsoApp + "/porte/com2"));
    PortaSeriale prima(Linea::Cronometro);
    PortaSeriale seconda(Linea::Tabellone);
    prima.impostaNumero(1);
    QVERIFY(prima.apri());
    for (const int numero : {1, 2}) {
        seconda.impostaNumero(numero);
        QVERIFY(!seconda.apri());
        QCOMPARE(seconda.guasto().numero, int(QSerialPort::PermissionError));
    }
    QVERIFY(prima.aperta());
    QVERIFY(prima.chiudi());
    QVERIFY(seconda.apri());
}

void tst_Porte::ottoBit() {
    PseudoTerminale linea(PercorsoApp, 1);
    QByteArray spediti;
    connect(&linea, &PseudoTerminale::arrivati, this, [&](const QByteArray& dati) { spediti += dati; });
    for (const Linea tipo : {Linea::Cronometro, Linea::Tabellone}) {
        PortaSeriale porta(tipo);
        porta.impostaNumero(1);
        Ascolto ascolto(porta);
        QVERIFY(porta.apri());
        QCOMPARE(linea.formato(), tipo == Linea::Cronometro ? "9600 8N1" : "19200 8N1");
        linea.scrivi(tuttiIByte());
        if (tipo == Linea::Cronometro)
            QTRY_COMPARE(ascolto.dati, tuttiIByte());
        spediti.clear();
        QVERIFY(porta.scrivi(tuttiIByte()));
        QTRY_COMPARE(spediti, tuttiIByte());
        // The scoreboard's line is output only.
        QCOMPARE(ascolto.dati.isEmpty(), tipo == Linea::Tabellone);
    }
}

void tst_Porte::raffica() {
    PseudoTerminale linea(PercorsoApp, 1);
    PortaSeriale porta(Linea::Cronometro);
    porta.impostaNumero(1);
    Ascolto ascolto(porta);
    QVERIFY(porta.apri());
    const QByteArray dati = tuttiIByte().repeated(4096);
    linea.scrivi(dati);
    QTRY_COMPARE_WITH_TIMEOUT(ascolto.dati.size(), dati.size(), 60000);
    QVERIFY(ascolto.dati == dati);
}

// What came before the port was opened, or after it was closed, belongs to nobody.
void tst_Porte::daCapo() {
    PseudoTerminale linea(PercorsoApp, 1);
    PortaSeriale porta(Linea::Cronometro);
    porta.impostaNumero(1);
    QSignalSpy ricevuto(&porta, &Porta::ricevuto);
    linea.scrivi("nobody listens");
    QVERIFY(porta.apri());
    linea.scrivi("first");
    QTRY_VERIFY(!ricevuto.isEmpty());
    QVERIFY(porta.chiudi());
    QCOMPARE(porta.leggiTutto(), "");
    linea.scrivi("nobody listens");
    Ascolto ascolto(porta);
    QVERIFY(porta.apri());
    linea.scrivi("second");
    QTRY_COMPARE(ascolto.dati, "second");
}

void tst_Porte::adattatoreTolto() {
    PseudoTerminale linea(PercorsoApp, 1);
    PortaSeriale porta(Linea::Cronometro);
    porta.impostaNumero(1);
    Ascolto ascolto(porta);
    QSignalSpy guasta(&porta, &Porta::guasta);
    for (int volta = 1; volta <= 3; ++volta) {
        QVERIFY(porta.apri());
        linea.stacca();
        QTRY_COMPARE(guasta.size(), volta);
        QVERIFY(!porta.aperta());
        QVERIFY(porta.guasto().numero != 0);
        QCOMPARE(porta.guasto().descrizione, "Porta Scollegata");
        QVERIFY(!porta.scrivi("x"));
        // Told once, however long the line stays gone.
        QVERIFY(!guasta.wait(20));
        QVERIFY(!porta.apri());
        QCOMPARE(porta.guasto().numero, int(QSerialPort::DeviceNotFoundError));
        linea.attacca();
    }
    QVERIFY(porta.apri());
    linea.scrivi("back");
    QTRY_COMPARE(ascolto.dati, "back");
}

void tst_Porte::ultimiCaratteri() {
    PseudoTerminale linea(PercorsoApp, 1);
    PortaSeriale porta(Linea::Cronometro);
    porta.impostaNumero(1);
    QStringList ordine;
    connect(&porta, &Porta::ricevuto, this, [&] { ordine << QString::fromLatin1(porta.leggiTutto()); });
    connect(&porta, &Porta::guasta, this, [&] { ordine << "guasta"; });
    QVERIFY(porta.apri());
    linea.scrivi("half a frame");
    QTRY_COMPARE(ordine.size(), 1);
    linea.stacca();
    QTRY_COMPARE(ordine, QStringList({"half a frame", "guasta"}));
}

void tst_Porte::chiusaNelSegnale() {
    PseudoTerminale linea(PercorsoApp, 1);
    auto porta = std::make_unique<PortaSeriale>(Linea::Cronometro);
    porta->impostaNumero(1);
    int segnali = 0;
    connect(porta.get(), &Porta::ricevuto, this, [&] {
        ++segnali;
        porta->chiudi();
    });
    QVERIFY(porta->apri());
    linea.scrivi("x");
    QTRY_COMPARE(segnali, 1);
    QVERIFY(!porta->aperta());
    // And gone altogether, in the signal of its loss.
    QVERIFY(porta->apri());
    connect(porta.get(), &Porta::guasta, this, [&] { porta.reset(); });
    linea.stacca();
    QTRY_VERIFY(!porta);
}

// A device that takes nothing must not hold the window.
void tst_Porte::lineaFerma() {
    AtteseLinea.chiusura = 50;
    const PseudoTerminale linea(PercorsoApp, 1);
    PortaSeriale porta(Linea::Tabellone);
    porta.impostaNumero(1);
    QVERIFY(porta.apri());
    QVERIFY(porta.scrivi(QByteArray(1 << 20, 'x')));
    QElapsedTimer tempo;
    tempo.start();
    QVERIFY(!porta.chiudi());
    QVERIFY(tempo.elapsed() < 10000);
    QVERIFY(!porta.aperta());
    QVERIFY(porta.guasto().numero != 0);
    QVERIFY(porta.apri());
}

void tst_Porte::tabellone() {
    PseudoTerminale linea(PercorsoApp, 4);
    const SimulatoreTabellone tabellone(linea);
    const std::unique_ptr<Porta> porta = FabbricaPorte::corrente().crea(Linea::Tabellone);
    porta->impostaNumero(4);
    QStringList attesi;
    for (int n = 0; n < 50; ++n) {
        QVERIFY(InviaTabellone(*porta, tabellonePartito(n)));
        QVERIFY(!porta->aperta());
        attesi << tabellonePartito(n);
    }
    QTRY_COMPARE(tabellone.mostrati(), attesi);
    QVERIFY(porta->apri());
    QVERIFY(InviaTabellone(*porta, tabelloneParziale(6234, "CEN")));
    QTRY_COMPARE(tabellone.mostra(), "  62.34");
    QVERIFY(AzzeraTabellone(*porta));
    QTRY_COMPARE(tabellone.mostra(), "      ");
    QCOMPARE(tabellone.frameErrati(), 0);
    linea.stacca();
    QTRY_VERIFY(!porta->aperta());
    QVERIFY(!InviaTabellone(*porta, u"1"));
}

QTEST_GUILESS_MAIN(tst_Porte)
#include "tst_Porte.moc"

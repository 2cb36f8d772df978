#include "devices/Dispositivo.h"
#include "devices/PortaSeriale.h"
#include "simulatori/PseudoTerminale.h"
#include "supporto/ProgrammaDiProva.h"

#include <QElapsedTimer>
#include <QSignalSpy>

// Ports of the machine on real pseudo-terminals.
class tst_Porte final : public ProvaConProgramma {
    Q_OBJECT

public:
    tst_Porte() : ProvaConProgramma(Archivio::Nessuno) {}

private Q_SLOTS:
    void numeroEDispositivo();
    void nonSiApre();
    void ottoBitARaffica();
    void daCapo();
    void adattatoreTolto();
    void chiusaNelSegnale();
    void lineaFerma();

private:
    void prepara() override;
    void chiudi() override;

    std::unique_ptr<PseudoTerminale> m_linea;  // com1
    std::unique_ptr<PortaSeriale> m_porta;     // chronometer's, on com1
    QByteArrayList m_ricevuti;                 // what m_porta got and, as "guasta", its losses
};

void tst_Porte::prepara() {
    AtteseLinea = {};
    m_linea = std::make_unique<PseudoTerminale>(PercorsoApp, 1);
    m_porta = std::make_unique<PortaSeriale>(Linea::Cronometro);
    m_porta->impostaNumero(1);
    m_ricevuti.clear();
    connect(m_porta.get(), &Porta::ricevuto, this, [this] { m_ricevuti << m_porta->leggiTutto(); });
    connect(m_porta.get(), &Porta::guasta, this, [this] { m_ricevuti << "guasta"; });
}

void tst_Porte::chiudi() {
    m_porta.reset();
    m_linea.reset();
    AtteseLinea = {};
}

void tst_Porte::numeroEDispositivo() {
    const QString collegata = PercorsoApp + "/porte/com2";
    QCOMPARE(dispositivoPorta(2), "/dev/ttyS1");
    QVERIFY(QFile::link("/dev/null", collegata));
    QCOMPARE(dispositivoPorta(2), "/dev/null");
    QCOMPARE(dispositivoPorta(3), "/dev/ttyS2");
    // The adapter is out: another device must not take its place.
    QFile::remove(collegata);
    QVERIFY(QFile::link("/dev/no-such-adapter", collegata));
    QCOMPARE(dispositivoPorta(2), collegata);
}

void tst_Porte::nonSiApre() {
    const QString collegata = PercorsoApp + "/porte/com1";
    for (const char* bersaglio : {"/dev/no-such-adapter", "/dev/null", "/tmp", "ordinary file"}) {
        m_linea->stacca();
        QFile::remove(collegata);
        QFile file(collegata);
        QVERIFY(*bersaglio == '/' ? QFile::link(bersaglio, collegata) : file.open(QIODevice::WriteOnly));
        QVERIFY(!m_porta->apri() && !m_porta->prova() && !m_porta->aperta() && !m_porta->scrivi("x"));
        QVERIFY(m_porta->guasto().numero != 0 && !m_porta->guasto().descrizione.isEmpty());
        // A port that never opened is not lost as well.
        QTest::qWait(20);
        QVERIFY(m_ricevuti.isEmpty());
        // The number becomes good as soon as the device is there.
        QFile::remove(collegata);
        m_linea->attacca();
        QVERIFY(m_porta->prova());
        QCOMPARE(m_porta->guasto().numero, 0);
        QVERIFY(!m_porta->aperta());
    }
}

// Every byte both ways, a megabyte of them at once towards the program.
void tst_Porte::ottoBitARaffica() {
    QByteArray byte;
    for (int c = 0; c < 256; ++c)
        byte += static_cast<char>(c);
    const QByteArray raffica = byte.repeated(4096);
    QByteArray spediti;
    connect(m_linea.get(), &PseudoTerminale::arrivati, this,
            [&](const QByteArray& dati) { spediti += dati; });
    QVERIFY(m_porta->apri());
    QCOMPARE(m_linea->formato(), "9600 8N1");
    m_linea->scrivi(raffica);
    QTRY_COMPARE_WITH_TIMEOUT(m_ricevuti.join().size(), raffica.size(), 60000);
    QVERIFY(m_ricevuti.join() == raffica);
    QVERIFY(m_porta->scrivi(byte));
    QTRY_COMPARE(spediti, byte);
    QVERIFY(m_porta->chiudi());

    // The scoreboard's line is output only.
    PortaSeriale tabellone(Linea::Tabellone);
    tabellone.impostaNumero(1);
    const QSignalSpy ricevuto(&tabellone, &Porta::ricevuto);
    QVERIFY(tabellone.apri());
    QCOMPARE(m_linea->formato(), "19200 8N1");
    m_linea->scrivi("x");
    spediti.clear();
    QVERIFY(tabellone.scrivi(byte));
    QTRY_COMPARE(spediti, byte);
    QVERIFY(ricevuto.isEmpty());
}

// What came before the port was opened, or after it was closed, belongs to nobody.
void tst_Porte::daCapo() {
    for (const char* dati : {"first", "second"}) {
        m_linea->scrivi("nobody listens");
        QVERIFY(m_porta->apri());
        m_ricevuti.clear();
        m_linea->scrivi(dati);
        QTRY_COMPARE(m_ricevuti.join(), dati);
        QVERIFY(m_porta->chiudi());
        QCOMPARE(m_porta->leggiTutto(), "");
    }
}

void tst_Porte::adattatoreTolto() {
    for (int volta = 1; volta <= 3; ++volta) {
        m_ricevuti.clear();
        QVERIFY(m_porta->apri());
        m_linea->scrivi("half a frame");
        QTRY_COMPARE(m_ricevuti.join(), "half a frame");
        m_linea->stacca();
        QTRY_COMPARE(m_ricevuti.last(), "guasta");
        QVERIFY(!m_porta->aperta());
        QCOMPARE(m_porta->guasto().descrizione, "Porta Scollegata");
        QVERIFY(!m_porta->scrivi("x") && !m_porta->apri());
        QCOMPARE(m_porta->guasto().numero, int(QSerialPort::DeviceNotFoundError));
        // Told once, however long the line stays gone.
        QTest::qWait(20);
        QCOMPARE(m_ricevuti.count("guasta"), 1);
        m_linea->attacca();
    }
}

void tst_Porte::chiusaNelSegnale() {
    const auto contesto = std::make_unique<QObject>();
    int segnali = 0;
    connect(m_porta.get(), &Porta::ricevuto, contesto.get(), [&] {
        ++segnali;
        m_porta->chiudi();
    });
    QVERIFY(m_porta->apri());
    m_linea->scrivi("x");
    QTRY_COMPARE(segnali, 1);
    QVERIFY(!m_porta->aperta());
    // And gone altogether, in the signal of its loss.
    QVERIFY(m_porta->apri());
    connect(m_porta.get(), &Porta::guasta, contesto.get(), [&] { m_porta.reset(); });
    m_linea->stacca();
    QTRY_VERIFY(!m_porta);
}

// A device that takes nothing must not hold the window.
void tst_Porte::lineaFerma() {
    AtteseLinea.chiusura = 50;
    QVERIFY(m_porta->apri());
    QVERIFY(m_porta->scrivi(QByteArray(1 << 20, 'x')));
    QElapsedTimer tempo;
    tempo.start();
    QVERIFY(!m_porta->chiudi());
    QVERIFY(tempo.elapsed() < 10000);
    QVERIFY(!m_porta->aperta());
    QVERIFY(m_porta->guasto().numero != 0);
    QVERIFY(m_porta->apri());
}

QTEST_GUILESS_MAIN(tst_Porte)
#include "tst_Porte.moc"

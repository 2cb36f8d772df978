#include "archive/PercorsoApp.h"
#include "shell/ScaricoVersione.h"
#include "supporto/ProvaFinestre.h"

#include <QDir>
#include <QMainWindow>
#include <QProgressDialog>
#include <QTcpServer>
#include <QTcpSocket>

using namespace std::chrono_literals;

class tst_AggiornamentoSoftware final : public ProvaConProgramma {
    Q_OBJECT

public:
    tst_AggiornamentoSoftware() : ProvaConProgramma(Archivio::Nessuno) {}

private Q_SLOTS:
    void lettura();
    void confronto();
    void scarico();
    void serverMuto();
    void annulla();
    void nuova();
    void nonNecessario();
    void fallito();
    void aggiornatoreAssente();

private:
    // A check whose server answers with these bytes as the file's content.
    MezziAggiornamento mezzi(const QByteArray& file);

    void prepara() override {
        m_avviati.clear();
        m_terminato = 0;
        AttesaScarico = 10s;
    }
    void chiudi() override { QCOMPARE(QApplication::overrideCursor(), nullptr); }

    QStringList m_avviati;
    int m_terminato = 0;
};

namespace {

// A server on the loopback that answers every request for `/percorso` with the bytes given for it, then
// closes; without an answer it keeps silent.
class ServerDiProva final {
public:
    explicit ServerDiProva(QHash<QByteArray, QByteArray> risposte) : m_risposte(std::move(risposte)) {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket* linea = m_server.nextPendingConnection();
            QObject::connect(linea, &QTcpSocket::readyRead, linea, [this, linea] { rispondi(linea); });
        });
    }
    explicit ServerDiProva(const QByteArray& risposta)
        : ServerDiProva(QHash<QByteArray, QByteArray>{{"/v", risposta}}) {}

    [[nodiscard]] QUrl indirizzo() const {
        return QUrl(QString("http://127.0.0.1:%1/v").arg(m_server.serverPort()));
    }
    int richieste = 0;

private:
    void rispondi(QTcpSocket* linea) {
        const QByteArray domanda = linea->readAll();
        ++richieste;
        const QByteArray risposta = m_risposte.value(domanda.split(' ').value(1));
        if (risposta.isEmpty())
            return;
        linea->write(risposta);
        linea->disconnectFromHost();
    }

    QTcpServer m_server;
    QHash<QByteArray, QByteArray> m_risposte;
};

QByteArray http(const QByteArray& stato, const QByteArray& corpo, qsizetype lunghezza = -1) {
    return "HTTP/1.1 " + stato +
           "\r\nContent-Length: " + QByteArray::number(lunghezza < 0 ? corpo.size() : lunghezza) +
           "\r\nConnection: close\r\n\r\n" + corpo;
}

QByteArray pezzi(const QByteArray& corpo) {
    return "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" + corpo;
}

QByteArray rinvio(const QByteArray& dove) {
    return "HTTP/1.1 302 Found\r\nLocation: " + dove + "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
}

QString fileVersione() {
    return percorsoNelProgramma("vlmver.txt");
}

QByteArray remota(int maggiore, int minore, int revisione) {
    const Versione locale = versioneProgramma();
    return testoVersione({locale[0] + maggiore, locale[1] + minore, locale[2] + revisione})
        .replace(".", "\r\n")
        .toUtf8();
}

}  // namespace

MezziAggiornamento tst_AggiornamentoSoftware::mezzi(const QByteArray& file) {
    MezziAggiornamento mezzi;
    mezzi.scarica = [file](const QString& percorso) {
        const ServerDiProva server(http("200 OK", file));
        return scaricaVersione(server.indirizzo(), percorso);
    };
    mezzi.avvia = [this](const QString& programma) {
        m_avviati << programma;
        return true;
    };
    mezzi.termina = [this] { ++m_terminato; };
    return mezzi;
}

void tst_AggiornamentoSoftware::lettura() {
    const std::pair<QByteArray, const char*> casi[] = {
        {"2\r\n6\r\n15", "2.6.15"},
        {" 2 \n\t6\n1 \n", "2.6.1"},
        {"due\n6\nbeta1\n", "0.6.0"},
        {"2a\n6.1\n0x10\n", "0.0.0"},
        {"99999999999\n1\n1\n", "0.1.1"},
        {"3\n1\n", "3.1.0"},
        {QByteArray("\0\xff\xfe\n\x01", 5), "0.0.0"},
        {"1\n2\n3\n4\n", "refused"},
        {"1\n2\n3\n\n", "refused"},
        {"<html>\n<body>\n<p>Accesso</p>\n</body>\n</html>\n", "refused"}};
    for (const auto& [dati, attesa] : casi) {
        scriviFile(fileVersione(), dati);
        QString letta = "refused";
        const QString errore = erroreDi([&] { letta = testoVersione(leggiVersione(fileVersione())); });
        QCOMPARE(letta, QString(attesa));
        QCOMPARE(errore.contains("più di tre righe"), letta == "refused");
    }
}

void tst_AggiornamentoSoftware::confronto() {
    // Numbers, not texts; a greater number of the two before it does not stop a smaller one from counting.
    const std::tuple<Versione, Versione, bool> casi[] = {
        {{2, 6, 1}, {2, 6, 1}, false}, {{2, 6, 2}, {2, 6, 1}, true},  {{2, 7, 0}, {2, 6, 1}, true},
        {{3, 0, 0}, {2, 6, 1}, true},  {{1, 5, 0}, {2, 6, 1}, false}, {{2, 6, 1}, {2, 7, 0}, true},
        {{1, 7, 0}, {2, 6, 0}, true},  {{2, 10, 0}, {2, 9, 0}, true}, {{0, 0, 0}, {0, 0, 0}, false}};
    for (const auto& [remota, locale, nuova] : casi)
        QVERIFY2(versioneNuova(remota, locale) == nuova, qPrintable(testoVersione(remota)));
}

void tst_AggiornamentoSoftware::scarico() {
    const QByteArray niente = "(none)";  // the download must fail
    const QByteArray buono = "2\r\n6\r\n1\r\n";
    const QByteArray lungo(MassimoScarico, '1');
    const std::tuple<const char*, QHash<QByteArray, QByteArray>, QByteArray> casi[] = {
        {"whole", {{"/v", http("200 OK", buono)}}, buono},
        {"sent elsewhere", {{"/v", rinvio("/altrove")}, {"/altrove", http("200 OK", buono)}}, buono},
        {"sent round and round", {{"/v", rinvio("/v")}}, niente},
        {"404", {{"/v", http("404 Not Found", buono)}}, niente},
        {"204", {{"/v", "HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n"}}, niente},
        {"closes in the middle", {{"/v", http("200 OK", "2\r\n6", 9)}}, niente},
        {"endless pieces", {{"/v", pezzi(QByteArray("1\r\n2\r\n").repeated(1'000'000))}}, niente},
        {"endless line", {{"/v", "HTTP/1.1 200 OK\r\nX: " + QByteArray(8'000'000, 'x')}}, niente},
        {"endless head",
         {{"/v", "HTTP/1.1 200 OK\r\n" + QByteArray("X: y\r\n").repeated(1'000'000)}},
         niente},
        {"not HTTP", {{"/v", "220 posta.example ESMTP\r\n"}}, niente},
        {"at the limit", {{"/v", http("200 OK", lungo)}}, lungo},
        {"one byte too long", {{"/v", http("200 OK", lungo + '1')}}, niente},
        {"endless", {{"/v", "HTTP/1.1 200 OK\r\n\r\n" + QByteArray(8'000'000, '1')}}, niente}};
    for (const auto& [nome, risposte, file] : casi) {
        QFile::remove(fileVersione());
        const ServerDiProva server(risposte);
        const EsitoScarico esito = scaricaVersione(server.indirizzo(), fileVersione());
        QVERIFY2(esito == (file == niente ? EsitoScarico::Fallito : EsitoScarico::Riuscito), nome);
        QVERIFY2(leggiFile(fileVersione()) == file, nome);
        QVERIFY(QDir(PercorsoApp).entryList(QDir::Files | QDir::Hidden).size() <= 1);
        QVERIFY(server.richieste >= 1 && server.richieste <= 5);
    }
}

void tst_AggiornamentoSoftware::serverMuto() {
    // The server never answers: events go on, the main window is out of reach, and the wait has an end.
    const ServerDiProva server((QByteArray()));
    QMainWindow principale;
    principale.show();
    QVERIFY(QTest::qWaitForWindowExposed(&principale));
    AttesaScarico = 1000ms;
    int battiti = 0;
    bool raggiungibile = false;
    QTimer orologio;
    connect(&orologio, &QTimer::timeout, &principale, [&] {
        if (++battiti > 4)  // a later one may come when the wait is just over
            return;
        principale.close();
        raggiungibile = raggiungibile || QApplication::activeModalWidget() == nullptr ||
                        QApplication::overrideCursor() == nullptr;
    });
    orologio.start(20ms);
    QCOMPARE(scaricaVersione(server.indirizzo(), fileVersione(), &principale), EsitoScarico::Fallito);
    QVERIFY(battiti > 3);
    QVERIFY(!raggiungibile);
    QCOMPARE(server.richieste, 1);
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
}

void tst_AggiornamentoSoftware::annulla() {
    const ServerDiProva server((QByteArray()));
    for (const bool conTasto : {false, true}) {
        QTimer attesa;
        connect(&attesa, &QTimer::timeout, &attesa, [conTasto] {
            auto* avviso = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            if (!avviso || !avviso->isActiveWindow())
                return;
            if (conTasto)
                QTest::keyClick(avviso, Qt::Key_Escape);
            else
                QTest::mouseClick(avviso->findChild<QPushButton*>(), Qt::LeftButton);
        });
        attesa.start(20ms);
        MezziAggiornamento mezzi;
        mezzi.scarica = [&](const QString& percorso) {
            return scaricaVersione(server.indirizzo(), percorso);
        };
        scriviFile(fileVersione(), "di prima");
        aggiornaSoftware(mezzi);  // no box
        QVERIFY(!QFile::exists(fileVersione()));
    }
}

void tst_AggiornamentoSoftware::nuova() {
    scriviFile(fileVersione(), "di prima");
    dialoghi().attendiDomanda("Nuova Versione Disponibile", QString(), false);
    aggiornaSoftware(mezzi(remota(0, 0, 1)));
    QVERIFY(m_avviati.isEmpty());
    QCOMPARE(m_terminato, 0);
    dialoghi().attendiDomanda("Nuova Versione Disponibile",
                              QString("E' Disponibile l'Aggiornamento alla Versione %1\n"
                                      "La Versione Attualmente Utilizzata è la %2\n"
                                      "Si Desidera Scaricare ed Installare la Nuova Versione ?")
                                  .arg(QString(remota(0, 1, 0)).replace("\r\n", "."), VELMORA_VERSIONE),
                              true);
    aggiornaSoftware(mezzi(remota(0, 1, 0)));
    QCOMPARE(m_avviati, QStringList{percorsoNelProgramma("VLMUpdater.exe")});
    QCOMPARE(m_terminato, 1);
    QCOMPARE(leggiFile(fileVersione()), remota(0, 1, 0));
}

void tst_AggiornamentoSoftware::nonNecessario() {
    for (const QByteArray& file :
         {remota(0, 0, 0), remota(-1, 0, 0), QByteArray("che\nvuoi\nda me"), QByteArray()}) {
        dialoghi().attendiMessaggio("Aggiornamento non Necessario",
                                    "Il Software è Già Aggiornato all'Ultima Versione Disponibile",
                                    Icona::Informazione);
        aggiornaSoftware(mezzi(file));
    }
    QVERIFY(m_avviati.isEmpty());
}

void tst_AggiornamentoSoftware::fallito() {
    // A server that is gone, and addresses that are none.
    for (const QUrl& indirizzo : {ServerDiProva(QByteArray()).indirizzo(), QUrl("http://"), QUrl()}) {
        scriviFile(fileVersione(), "di prima");
        MezziAggiornamento senzaRete = mezzi({});
        senzaRete.scarica = [&](const QString& percorso) { return scaricaVersione(indirizzo, percorso); };
        dialoghi().attendiMessaggio("Impossibile Effettuare l'Aggiornamento",
                                    "La Connessione ad Internet Potrebbe Essere non Disponibile\n"
                                    "Oppure il Server di Aggiornamento è Momentaneamente Irraggiungibile");
        aggiornaSoftware(senzaRete);
        QVERIFY(!QFile::exists(fileVersione()));
        QCOMPARE(m_terminato, 0);
    }
    // A place that cannot be written is an error of its own.
    const QString assente = percorsoNelProgramma("assente/vlmver.txt");
    QVERIFY_EXCEPTION_THROWN(mezzi("1\n0\n0\n").scarica(assente), Errore);
    QVERIFY(QDir(PercorsoApp).mkdir("vlmver.txt"));
    QVERIFY_EXCEPTION_THROWN(aggiornaSoftware(mezzi("1\n0\n0\n")), Errore);
}

void tst_AggiornamentoSoftware::aggiornatoreAssente() {
    MezziAggiornamento veri = mezzi(remota(1, 0, 0));
    veri.avvia = nullptr;  // the real start, of a program that is not there
    dialoghi().attendiDomanda("Nuova Versione Disponibile", QString(), true);
    dialoghi().attendiMessaggio(
        "Impossibile Effettuare l'Aggiornamento",
        "Il Programma di Aggiornamento Non Si Può Avviare:\n" + percorsoNelProgramma("VLMUpdater.exe"));
    aggiornaSoftware(veri);
    QCOMPARE(m_terminato, 0);

    const QString traccia = percorsoNelProgramma("avviato");
    scriviFile(percorsoNelProgramma("VLMUpdater.exe"),
               "#!/bin/sh\npwd > avviato.tmp && mv avviato.tmp avviato\n");
    QVERIFY(
        QFile::setPermissions(percorsoNelProgramma("VLMUpdater.exe"), QFile::ReadOwner | QFile::ExeOwner));
    dialoghi().attendiDomanda("Nuova Versione Disponibile", QString(), true);
    aggiornaSoftware(veri);
    QCOMPARE(m_terminato, 1);
    QTRY_VERIFY(QFile::exists(traccia));
    QCOMPARE(leggiFile(traccia).trimmed(), QFileInfo(PercorsoApp).canonicalFilePath().toUtf8());
}

PROVA_FINESTRE(tst_AggiornamentoSoftware)
#include "tst_AggiornamentoSoftware.moc"

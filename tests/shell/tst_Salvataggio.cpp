#include "archive/ErroreArchivio.h"
#include "shell/Salvataggio.h"
#include "supporto/ProgrammaDiProva.h"

#include <sys/resource.h>
#include <csignal>
#include <QDir>
#include <QTest>

class tst_Salvataggio final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void copiaIdentica();
    void dueUsciteUnGiorno();
    void restiDiUnaCopiaInterrotta();
    void copiaFallita_data();
    void copiaFallita();
    void discoPieno();
    void aggiornatore_data();
    void aggiornatore();
    void aggiornatoreFallito();
    void ambedueIFallimenti();
};

namespace {

constexpr char Oggi[] = "Backup/mdvlm-14-06-2026.mdb";

QByteArray contenuto(const QString& nome) {
    QFile file(percorsoNelProgramma(nome));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

void scrivi(const QString& nome, const QByteArray& dati) {
    const QString percorso = percorsoNelProgramma(nome);
    QVERIFY(QDir().mkpath(QFileInfo(percorso).path()));
    QFile file(percorso);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(dati), dati.size());
}

QStringList nomi(const QString& cartella) {
    return QDir(percorsoNelProgramma(cartella))
        .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
}

// The text of the failure; empty when there was none.
template <typename Azione>
QString errore(Azione azione) {
    try {
        azione();
        return {};
    } catch (const Errore& fallimento) {
        return fallimento.testo();
    }
}

// No file may grow beyond a size for as long as this lives, as on a disk that is full.
class LimiteDeiFile final {
public:
    explicit LimiteDeiFile(rlim_t byte) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_prima);
        const rlimit limite{byte, m_prima.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limite);
    }
    Q_DISABLE_COPY_MOVE(LimiteDeiFile)
    ~LimiteDeiFile() { setrlimit(RLIMIT_FSIZE, &m_prima); }

private:
    rlimit m_prima{};
};

}  // namespace

void tst_Salvataggio::copiaIdentica() {
    const ProgrammaDiProva programma;
    nuovaManifestazione();
    esegui(
        "WITH n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3000) "
        "INSERT INTO TempScar (Num,Tem) SELECT i,? FROM n",
        {QString(500, 'x')});  // several blocks of the copy
    ChiudiDataBase();
    QCOMPARE(percorsoCopiaDelGiorno(), percorsoNelProgramma(Oggi));
    salvaAllUscita();
    QCOMPARE(nomi("Backup"), QStringList{"mdvlm-14-06-2026.mdb"});
    const QByteArray originale = contenuto("mdvlm.mdb");
    QVERIFY(originale.size() > 1024 * 1024);
    QVERIFY(contenuto(Oggi) == originale);
    QCOMPARE(difettoArchivio(percorsoNelProgramma(Oggi)), QString());
    constexpr QFile::Permissions DegliAltri =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QCOMPARE(QFile::permissions(percorsoNelProgramma(Oggi)) & DegliAltri, QFile::Permissions());
}

void tst_Salvataggio::dueUsciteUnGiorno() {
    ProgrammaDiProva programma;
    programma.orologio.ora = QDateTime(QDate(2026, 1, 5), QTime(23, 59));
    ChiudiDataBase();
    salvaAllUscita();
    const QByteArray ieri = contenuto("Backup/mdvlm-05-01-2026.mdb");
    programma.orologio.ora = programma.orologio.ora.addSecs(120);
    for (int uscita = 0; uscita < 2; ++uscita) {
        ApriDataBase();
        nuovaManifestazione();
        ChiudiDataBase();
        salvaAllUscita();
        QVERIFY(contenuto("Backup/mdvlm-06-01-2026.mdb") == contenuto("mdvlm.mdb"));
    }
    QCOMPARE(nomi("Backup"), (QStringList{"mdvlm-05-01-2026.mdb", "mdvlm-06-01-2026.mdb"}));
    QVERIFY(contenuto("Backup/mdvlm-05-01-2026.mdb") == ieri);
}

void tst_Salvataggio::restiDiUnaCopiaInterrotta() {
    const ProgrammaDiProva programma;
    ChiudiDataBase();
    scrivi(QString(Oggi) + ".nuovo", QByteArray(5'000'000, 'x'));
    QVERIFY(QFile::setPermissions(percorsoNelProgramma(QString(Oggi) + ".nuovo"),
                                  QFile::ReadOwner | QFile::ReadOther));
    scrivi("Backup/mdvlm-31-12-2025.mdb.nuovo", "di un altro giorno");
    salvaCopiaDelGiorno();
    QCOMPARE(nomi("Backup"), QStringList{"mdvlm-14-06-2026.mdb"});
    QVERIFY(contenuto(Oggi) == contenuto("mdvlm.mdb"));
    QVERIFY(!(QFile::permissions(percorsoNelProgramma(Oggi)) & QFile::ReadOther));
}

void tst_Salvataggio::copiaFallita_data() {
    QTest::addColumn<QString>("file");  // stands where the copy wants something else
    QTest::addColumn<QString>("cartella");
    QTest::addColumn<bool>("conArchivio");
    QTest::newRow("Backup is a file") << "Backup" << QString() << true;
    QTest::newRow("the copy's name is a folder") << QString() << Oggi << true;
    QTest::newRow("the name beside it is a folder") << QString() << QString(Oggi) + ".nuovo" << true;
    QTest::newRow("no archive") << Oggi << QString() << false;
}

void tst_Salvataggio::copiaFallita() {
    QFETCH(QString, file);
    QFETCH(QString, cartella);
    QFETCH(bool, conArchivio);
    const ProgrammaDiProva programma;
    ChiudiDataBase();
    if (!file.isEmpty())
        scrivi(file, "di prima");
    if (!cartella.isEmpty())
        QVERIFY(QDir().mkpath(percorsoNelProgramma(cartella)));
    if (!conArchivio)
        QVERIFY(QFile::remove(percorsoNelProgramma("mdvlm.mdb")));
    const QByteArray archivio = contenuto("mdvlm.mdb");
    const QStringList prima = nomi("Backup");
    const QString testo = errore(&salvaCopiaDelGiorno);
    QVERIFY2(testo.startsWith("La copia di sicurezza di oggi non è stata fatta:"), qPrintable(testo));
    QCOMPARE(contenuto("mdvlm.mdb"), archivio);
    QCOMPARE(nomi("Backup"), prima);
    if (!file.isEmpty())
        QCOMPARE(contenuto(file), QByteArray("di prima"));
}

void tst_Salvataggio::discoPieno() {
    const ProgrammaDiProva programma;
    ChiudiDataBase();
    scrivi("Backup/mdvlm-13-06-2026.mdb", "ieri");
    const qint64 intera = QFileInfo(percorsoArchivio()).size();
    for (const qint64 spazio : {qint64{0}, qint64{1000}, intera - 1}) {
        scrivi(Oggi, "prima uscita di oggi");
        QString testo;
        {
            const LimiteDeiFile limite(static_cast<rlim_t>(spazio));
            testo = errore(&salvaCopiaDelGiorno);
        }
        QVERIFY(!testo.isEmpty());
        QCOMPARE(contenuto(Oggi), QByteArray("prima uscita di oggi"));
        QCOMPARE(contenuto("Backup/mdvlm-13-06-2026.mdb"), QByteArray("ieri"));
        QCOMPARE(nomi("Backup").size(), 2);
    }
    const LimiteDeiFile limite(static_cast<rlim_t>(intera));
    salvaCopiaDelGiorno();
    QVERIFY(contenuto(Oggi) == contenuto("mdvlm.mdb"));
}

void tst_Salvataggio::aggiornatore_data() {
    QTest::addColumn<QStringList>("prima");  // files; each holds its own path, a folder ends with "/"
    QTest::addColumn<QStringList>("dopo");   // name=content
    const QString nuovo = "update/VLMUpdater.exe";
    QTest::newRow("nothing there") << QStringList() << QStringList();
    QTest::newRow("empty folder") << QStringList{"update/"} << QStringList();
    QTest::newRow("no new updater") << QStringList{"VLMUpdater.exe", "VLMUpdater.ex_", "update/leggimi.txt",
                                                   "update/senzapunto", "update/.nascosto"}
                                    << QStringList{"VLMUpdater.ex_=VLMUpdater.ex_",
                                                   "VLMUpdater.exe=VLMUpdater.exe"};
    QTest::newRow("first updater") << QStringList{nuovo} << QStringList{"VLMUpdater.exe=" + nuovo};
    QTest::newRow("in place of one") << QStringList{nuovo, "VLMUpdater.exe", "update/altro.dll"}
                                     << QStringList{"VLMUpdater.ex_=VLMUpdater.exe",
                                                    "VLMUpdater.exe=" + nuovo};
    QTest::newRow("one step is kept")
        << QStringList{nuovo, "VLMUpdater.exe", "VLMUpdater.ex_"}
        << QStringList{"VLMUpdater.ex_=VLMUpdater.exe", "VLMUpdater.exe=" + nuovo};
    QTest::newRow("the present one is gone")
        << QStringList{nuovo, "VLMUpdater.ex_"} << QStringList{"VLMUpdater.exe=" + nuovo};
    QTest::newRow("interrupted before")
        << QStringList{nuovo, "VLMUpdater.exe", "VLMUpdater.exe.nuovo", "VLMUpdater.ex_.nuovo"}
        << QStringList{"VLMUpdater.ex_=VLMUpdater.exe", "VLMUpdater.exe=" + nuovo};
    QTest::newRow("a folder of that name")
        << QStringList{nuovo + "/", "VLMUpdater.exe"} << QStringList{"VLMUpdater.exe=VLMUpdater.exe"};
}

void tst_Salvataggio::aggiornatore() {
    QFETCH(QStringList, prima);
    QFETCH(QStringList, dopo);
    const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    for (const QString& nome : prima) {
        if (nome.endsWith('/'))
            QVERIFY(QDir().mkpath(percorsoNelProgramma(nome)));
        else
            scrivi(nome, nome.toUtf8());
    }
    const bool conCartella = QFileInfo::exists(percorsoNelProgramma("update"));
    sostituisciAggiornatore();
    QStringList trovati;
    for (const QString& nome : QDir(PercorsoApp).entryList(QDir::Files | QDir::Hidden, QDir::Name))
        trovati << nome + '=' + contenuto(nome);
    trovati.sort();
    dopo.sort();
    QCOMPARE(trovati, dopo);
    // The folder stays, without files; folders in it stay too.
    QCOMPARE(QFileInfo::exists(percorsoNelProgramma("update")), conCartella);
    QCOMPARE(QDir(percorsoNelProgramma("update")).entryList(QDir::Files | QDir::Hidden), QStringList());
    QCOMPARE(nomi("update").size(), prima.contains("update/VLMUpdater.exe/") ? 1 : 0);
}

void tst_Salvataggio::aggiornatoreFallito() {
    const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    scrivi("update/VLMUpdater.exe", QByteArray(10'000, 'n'));
    scrivi("update/altro.dll", "altro");
    scrivi("VLMUpdater.exe", "presente");
    QString testo;
    {
        const LimiteDeiFile limite(5000);
        testo = errore(&sostituisciAggiornatore);
    }
    QVERIFY2(testo.startsWith("Il nuovo programma di aggiornamento non è stato messo a posto:"),
             qPrintable(testo));
    QCOMPARE(contenuto("VLMUpdater.exe"), QByteArray("presente"));
    QCOMPARE(nomi("update"), (QStringList{"altro.dll", "VLMUpdater.exe"}));
    QCOMPARE(nomi(".").size(), 2);
    sostituisciAggiornatore();
    QCOMPARE(contenuto("VLMUpdater.exe"), QByteArray(10'000, 'n'));
    QCOMPARE(contenuto("VLMUpdater.ex_"), QByteArray("presente"));
    QCOMPARE(nomi("update"), QStringList());
}

void tst_Salvataggio::ambedueIFallimenti() {
    const ProgrammaDiProva programma;
    ChiudiDataBase();
    scrivi("Backup", "un file");
    scrivi("update/VLMUpdater.exe", "nuovo");
    const QString soloCopia = errore(&salvaAllUscita);
    QVERIFY2(soloCopia.contains("copia di sicurezza"), qPrintable(soloCopia));
    QCOMPARE(contenuto("VLMUpdater.exe"), QByteArray("nuovo"));
    QCOMPARE(nomi("update"), QStringList());

    scrivi("update/VLMUpdater.exe", "altro");
    QVERIFY(QDir(PercorsoApp).mkdir("VLMUpdater.ex_"));
    const QString tutto = errore(&salvaAllUscita);
    QVERIFY2(tutto.contains("copia di sicurezza") && tutto.contains("nuovo programma di aggiornamento"),
             qPrintable(tutto));
    QCOMPARE(contenuto("VLMUpdater.exe"), QByteArray("nuovo"));
}

QTEST_GUILESS_MAIN(tst_Salvataggio)
#include "tst_Salvataggio.moc"

#include "archive/ErroreArchivio.h"
#include "shell/Salvataggio.h"
#include "supporto/ProgrammaDiProva.h"

#include <sys/resource.h>
#include <csignal>
#include <QDir>
#include <QLockFile>
#include <QSettings>
#include <QTest>

class tst_Salvataggio final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void copiaIdentica();
    void dueUsciteUnGiorno();
    void copiaFallita();
    void copiaDanneggiata();
    void discoPieno();
    void aggiornatore();
    void aggiornatoreCollegato();
    void aggiornatoreFallito();
    void unFallimentoNonFermaLAltro();
    void impostazioni();
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
    // What interrupted copies left: of today, open to others, and of another day.
    const QString resto = percorsoNelProgramma(QString(Oggi) + ".nuovo");
    scrivi(QString(Oggi) + ".nuovo", QByteArray(5'000'000, 'x'));
    QVERIFY(QFile::setPermissions(resto, QFile::ReadOwner | QFile::ReadOther));
    scrivi("Backup/mdvlm-31-12-2025.mdb.nuovo", "di un altro giorno");
    salvaAllUscita();
    QCOMPARE(nomi("Backup"), QStringList{"mdvlm-14-06-2026.mdb"});
    const QByteArray originale = contenuto("mdvlm.mdb");
    QVERIFY(originale.size() > 1024 * 1024);
    QVERIFY(contenuto(Oggi) == originale);
    QCOMPARE(difettoArchivio(percorsoNelProgramma(Oggi)), QString());
    QVERIFY(!(QFile::permissions(percorsoNelProgramma(Oggi)) & QFile::ReadOther));
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

void tst_Salvataggio::copiaFallita() {
    // A file or a folder stands where the copy wants something else; or there is no archive.
    const QString oggi(Oggi);
    const std::tuple<QString, QString, bool> casi[] = {
        {"Backup", "", true}, {"", oggi, true}, {"", oggi + ".nuovo", true}, {oggi, "", false}};
    for (const auto& [file, cartella, conArchivio] : casi) {
        const ProgrammaDiProva programma;
        ChiudiDataBase();
        if (!file.isEmpty())
            scrivi(file, "di prima");
        QVERIFY(cartella.isEmpty() || QDir().mkpath(percorsoNelProgramma(cartella)));
        QVERIFY(conArchivio || QFile::remove(percorsoArchivio()));
        const QByteArray archivio = contenuto("mdvlm.mdb");
        const QStringList prima = nomi("Backup");
        const QString testo = errore(&salvaCopiaDelGiorno);
        QVERIFY2(testo.startsWith("La copia di sicurezza di oggi non è stata fatta:"), qPrintable(testo));
        QCOMPARE(contenuto("mdvlm.mdb"), archivio);
        QCOMPARE(nomi("Backup"), prima);
        QVERIFY(file.isEmpty() || contenuto(file) == "di prima");
    }
}

void tst_Salvataggio::copiaDanneggiata() {
    for (const bool guasta : {true, false}) {  // a page of it is hurt, or an action was interrupted
        const ProgrammaDiProva programma;
        ChiudiDataBase();
        salvaCopiaDelGiorno();
        const QByteArray buona = contenuto(Oggi);
        QFile archivio(percorsoArchivio());
        QVERIFY(archivio.open(QIODevice::ReadWrite));
        if (guasta)
            QVERIFY(archivio.seek(archivio.size() - 4096) && archivio.write(QByteArray(4096, 'x')) == 4096);
        else
            scrivi("mdvlm.mdb-journal", "un'azione");
        archivio.close();
        const QByteArray presente = contenuto("mdvlm.mdb");
        const QString daParte("Backup/mdvlm-14-06-2026-danneggiato.mdb");
        for (int uscita = 0; uscita < 2; ++uscita)
            QVERIFY(errore(&salvaCopiaDelGiorno).contains(percorsoNelProgramma(daParte)));
        QCOMPARE(contenuto(Oggi), buona);
        QCOMPARE(contenuto(daParte), presente);
        QVERIFY(!(QFile::permissions(percorsoNelProgramma(daParte)) & (QFile::ReadGroup | QFile::ReadOther)));
        scrivi("Backup/mdvlm-31-12-2025.mdb", "dell'anno prima");
        QCOMPARE(ultimaCopia(), QString("mdvlm-14-06-2026.mdb"));
        QVERIFY(QFile::remove(percorsoNelProgramma(Oggi)));
        QCOMPARE(ultimaCopia(), QString("mdvlm-31-12-2025.mdb"));
    }
}

void tst_Salvataggio::discoPieno() {
    const ProgrammaDiProva programma;
    ChiudiDataBase();
    scrivi("Backup/mdvlm-13-06-2026.mdb", "ieri");
    const qint64 intera = QFileInfo(percorsoArchivio()).size();
    for (const qint64 spazio : {qint64{0}, qint64{1000}, intera - 1}) {
        scrivi(Oggi, "prima uscita di oggi");
        const QString testo = errore([spazio] {
            const LimiteDeiFile limite(static_cast<rlim_t>(spazio));
            salvaCopiaDelGiorno();
        });
        QVERIFY(!testo.isEmpty());
        QCOMPARE(contenuto(Oggi), QByteArray("prima uscita di oggi"));
        QCOMPARE(contenuto("Backup/mdvlm-13-06-2026.mdb"), QByteArray("ieri"));
        QCOMPARE(nomi("Backup").size(), 2);
    }
    const LimiteDeiFile limite(static_cast<rlim_t>(intera));
    salvaCopiaDelGiorno();
    QVERIFY(contenuto(Oggi) == contenuto("mdvlm.mdb"));
}

void tst_Salvataggio::aggiornatore() {
    const QString nuovo("update/VLMUpdater.exe");
    const QString exe("VLMUpdater.exe");
    const QString ex_("VLMUpdater.ex_");
    // Files before, each holding its own path (a folder ends with "/"); files after, name=content.
    const std::tuple<const char*, QStringList, QStringList> casi[] = {
        {"nothing there", {}, {}},
        {"empty folder", {"update/"}, {}},
        {"no new updater",
         {exe, ex_, "update/leggimi.txt", "update/senzapunto", "update/.nascosto"},
         {ex_ + '=' + ex_, exe + '=' + exe}},
        {"first updater", {nuovo}, {exe + '=' + nuovo}},
        {"in place of one", {nuovo, exe, "update/altro.dll"}, {ex_ + '=' + exe, exe + '=' + nuovo}},
        {"one step is kept", {nuovo, exe, ex_}, {ex_ + '=' + exe, exe + '=' + nuovo}},
        {"the present one is gone", {nuovo, ex_}, {exe + '=' + nuovo}},
        {"interrupted before",
         {nuovo, exe, exe + ".nuovo", ex_ + ".nuovo"},
         {ex_ + '=' + exe, exe + '=' + nuovo}},
        {"a folder of that name", {nuovo + "/", exe}, {exe + '=' + exe}}};
    for (const auto& [nome, prima, dopo] : casi) {
        const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
        for (const QString& file : prima) {
            if (file.endsWith('/'))
                QVERIFY(QDir().mkpath(percorsoNelProgramma(file)));
            else
                scrivi(file, file.toUtf8());
        }
        const bool conCartella = QFileInfo::exists(percorsoNelProgramma("update"));
        sostituisciAggiornatore();
        QStringList trovati;
        for (const QString& file : QDir(PercorsoApp).entryList(QDir::Files | QDir::Hidden, QDir::Name))
            trovati << file + '=' + contenuto(file);
        trovati.sort();
        QVERIFY2(trovati == dopo, nome);
        // The folder stays, without files; folders in it stay too.
        QCOMPARE(QFileInfo::exists(percorsoNelProgramma("update")), conCartella);
        QVERIFY(nomi("update") == QStringList(prima.contains(nuovo + '/') ? 1 : 0, exe));
    }
}

void tst_Salvataggio::aggiornatoreCollegato() {
    const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    scrivi("altrove/VLMUpdater.exe", "nuovo");
    scrivi("altrove/foto.jpg", "di un altro");
    scrivi("VLMUpdater.exe", "presente");
    QVERIFY(QFile::link(percorsoNelProgramma("altrove"), percorsoNelProgramma("update")));
    for (int uscita = 0; uscita < 2; ++uscita) {
        sostituisciAggiornatore();
        QCOMPARE(contenuto("VLMUpdater.exe") + contenuto("VLMUpdater.ex_"), QByteArray("nuovopresente"));
        QCOMPARE(nomi("altrove").size(), 2);
    }
}

void tst_Salvataggio::aggiornatoreFallito() {
    const ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    scrivi("update/VLMUpdater.exe", QByteArray(10'000, 'n'));
    scrivi("update/altro.dll", "altro");
    scrivi("VLMUpdater.exe", "presente");
    const QString testo = errore([] {
        const LimiteDeiFile limite(5000);
        sostituisciAggiornatore();
    });
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

void tst_Salvataggio::unFallimentoNonFermaLAltro() {
    const ProgrammaDiProva programma;
    ChiudiDataBase();
    scrivi("Backup", "un file");
    scrivi("update/VLMUpdater.exe", "nuovo");
    QVERIFY(errore(&salvaAllUscita).contains("copia di sicurezza"));
    QCOMPARE(contenuto("VLMUpdater.exe"), QByteArray("nuovo"));
    scrivi("update/VLMUpdater.exe", "altro");
    QVERIFY(QDir(PercorsoApp).mkdir("VLMUpdater.ex_"));
    const QString tutto = errore(&salvaAllUscita);
    QVERIFY2(tutto.contains("copia di sicurezza") && tutto.contains("nuovo programma di aggiornamento"),
             qPrintable(tutto));
}

void tst_Salvataggio::impostazioni() {
    ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    Impostazioni::installa(nullptr);  // the user's own
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, PercorsoApp);
    scrivi("VLM/VLM.conf", "[IDMan]\nIDMan=7\n[com]\nonline=3\n");
    QLockFile altrui(percorsoNelProgramma("VLM/VLM.conf.lock"));
    QVERIFY(altrui.lock());
    ImpostaManifestazioneAttiva(12);
    const auto suDisco = [](const char* chiave) {
        return QSettings(percorsoNelProgramma("VLM/VLM.conf"), QSettings::IniFormat).value(chiave).toString();
    };
    QCOMPARE(suDisco("IDMan/IDMan") + ' ' + suDisco("com/online"), QString("12 3"));
    altrui.unlock();
    QCOMPARE(Impostazioni::corrente().guasto(), QString());
    QVERIFY(QDir(percorsoNelProgramma("VLM")).removeRecursively());
    scrivi("VLM", "un file");
    for (const int idMan : {13, 14}) {
        ImpostaManifestazioneAttiva(idMan);
        QCOMPARE(leggiManifestazioneAttiva(), idMan);  // until the end of the program
        QCOMPARE(Impostazioni::corrente().guasto().contains("VLM.conf"), idMan == 13);
        QCOMPARE(Impostazioni::corrente().guasto(), QString());
    }
}

QTEST_GUILESS_MAIN(tst_Salvataggio)
#include "tst_Salvataggio.moc"

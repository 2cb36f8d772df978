#include "shell/Salvataggio.h"
#include "supporto/ProgrammaDiProva.h"

#include <sys/resource.h>
#include <csignal>
#include <QDir>
#include <QLockFile>
#include <QSettings>

class tst_Salvataggio final : public ProvaConProgramma {
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

QStringList nomi(const QString& cartella) {
    return QDir(percorsoNelProgramma(cartella))
        .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
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
    nuovaManifestazione();
    esegui(
        "WITH n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3000) "
        "INSERT INTO TempScar (Num,Tem) SELECT i,? FROM n",
        {QString(500, 'x')});  // several blocks of the copy
    ChiudiDataBase();
    // What interrupted copies left: of today, open to others, and of another day.
    const QString resto = percorsoNelProgramma(QString(Oggi) + ".nuovo");
    scriviFile(QString(Oggi) + ".nuovo", QByteArray(5'000'000, 'x'));
    QVERIFY(QFile::setPermissions(resto, QFile::ReadOwner | QFile::ReadOther));
    scriviFile("Backup/mdvlm-31-12-2025.mdb.nuovo", "di un altro giorno");
    salvaAllUscita();
    QCOMPARE(nomi("Backup"), QStringList{"mdvlm-14-06-2026.mdb"});
    const QByteArray originale = leggiFile("mdvlm.mdb");
    QVERIFY(originale.size() > 1024 * 1024);
    QVERIFY(leggiFile(Oggi) == originale);
    QCOMPARE(difettoArchivio(percorsoNelProgramma(Oggi)), QString());
    QVERIFY(!(QFile::permissions(percorsoNelProgramma(Oggi)) & QFile::ReadOther));
}

void tst_Salvataggio::dueUsciteUnGiorno() {
    m_programma->orologio.ora = QDateTime(QDate(2026, 1, 5), QTime(23, 59));
    ChiudiDataBase();
    salvaAllUscita();
    const QByteArray ieri = leggiFile("Backup/mdvlm-05-01-2026.mdb");
    m_programma->orologio.ora = m_programma->orologio.ora.addSecs(120);
    for (int uscita = 0; uscita < 2; ++uscita) {
        ApriDataBase();
        nuovaManifestazione();
        ChiudiDataBase();
        salvaAllUscita();
        QVERIFY(leggiFile("Backup/mdvlm-06-01-2026.mdb") == leggiFile("mdvlm.mdb"));
    }
    QCOMPARE(nomi("Backup"), (QStringList{"mdvlm-05-01-2026.mdb", "mdvlm-06-01-2026.mdb"}));
    QVERIFY(leggiFile("Backup/mdvlm-05-01-2026.mdb") == ieri);
}

void tst_Salvataggio::copiaFallita() {
    // A file or a folder stands where the copy wants something else; or there is no archive.
    const QString oggi(Oggi);
    const std::tuple<QString, QString, bool> casi[] = {
        {"Backup", "", true}, {"", oggi, true}, {"", oggi + ".nuovo", true}, {oggi, "", false}};
    for (const auto& [file, cartella, conArchivio] : casi) {
        ricomincia();
        ChiudiDataBase();
        if (!file.isEmpty())
            scriviFile(file, "di prima");
        QVERIFY(cartella.isEmpty() || QDir().mkpath(percorsoNelProgramma(cartella)));
        QVERIFY(conArchivio || QFile::remove(percorsoArchivio()));
        const QByteArray archivio = leggiFile("mdvlm.mdb");
        const QStringList prima = nomi("Backup");
        const QString testo = erroreDi(&salvaCopiaDelGiorno);
        QVERIFY2(testo.startsWith("La copia di sicurezza di oggi non è stata fatta:"), qPrintable(testo));
        QCOMPARE(leggiFile("mdvlm.mdb"), archivio);
        QCOMPARE(nomi("Backup"), prima);
        QVERIFY(file.isEmpty() || leggiFile(file) == "di prima");
    }
}

void tst_Salvataggio::copiaDanneggiata() {
    for (const bool guasta : {true, false}) {  // a page of it is hurt, or an action was interrupted
        ricomincia();
        ChiudiDataBase();
        salvaCopiaDelGiorno();
        const QByteArray buona = leggiFile(Oggi);
        QFile archivio(percorsoArchivio());
        QVERIFY(archivio.open(QIODevice::ReadWrite));
        if (guasta)
            QVERIFY(archivio.seek(archivio.size() - 4096) && archivio.write(QByteArray(4096, 'x')) == 4096);
        else
            scriviFile("mdvlm.mdb-journal", "un'azione");
        archivio.close();
        const QByteArray presente = leggiFile("mdvlm.mdb");
        const QString daParte("Backup/mdvlm-14-06-2026-danneggiato.mdb");
        for (int uscita = 0; uscita < 2; ++uscita)
            QVERIFY(erroreDi(&salvaCopiaDelGiorno).contains(percorsoNelProgramma(daParte)));
        QCOMPARE(leggiFile(Oggi), buona);
        QCOMPARE(leggiFile(daParte), presente);
        QVERIFY(!(QFile::permissions(percorsoNelProgramma(daParte)) & (QFile::ReadGroup | QFile::ReadOther)));
        scriviFile("Backup/mdvlm-31-12-2025.mdb", "dell'anno prima");
        QCOMPARE(ultimaCopia(), QString("mdvlm-14-06-2026.mdb"));
        QVERIFY(QFile::remove(percorsoNelProgramma(Oggi)));
        QCOMPARE(ultimaCopia(), QString("mdvlm-31-12-2025.mdb"));
    }
}

void tst_Salvataggio::discoPieno() {
    ChiudiDataBase();
    scriviFile("Backup/mdvlm-13-06-2026.mdb", "ieri");
    const qint64 intera = QFileInfo(percorsoArchivio()).size();
    for (const qint64 spazio : {qint64{0}, qint64{1000}, intera - 1}) {
        scriviFile(Oggi, "prima uscita di oggi");
        const QString testo = erroreDi([spazio] {
            const LimiteDeiFile limite(static_cast<rlim_t>(spazio));
            salvaCopiaDelGiorno();
        });
        QVERIFY(!testo.isEmpty());
        QCOMPARE(leggiFile(Oggi), QByteArray("prima uscita di oggi"));
        QCOMPARE(leggiFile("Backup/mdvlm-13-06-2026.mdb"), QByteArray("ieri"));
        QCOMPARE(nomi("Backup").size(), 2);
    }
    const LimiteDeiFile limite(static_cast<rlim_t>(intera));
    salvaCopiaDelGiorno();
    QVERIFY(leggiFile(Oggi) == leggiFile("mdvlm.mdb"));
}

void tst_Salvataggio::aggiornatore() {
    const QString nuovo("update/VLMUpdater.exe");
    const QString exe("VLMUpdater.exe");
    const QString ex_("VLMUpdater.ex_");
    // Files before, each holding its own path (a folder ends with "/"); files after, name=content.
    const std::tuple<const char*, QStringList, QStringList> casi[] = {
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
        ricomincia();
        ChiudiDataBase();
        QVERIFY(QFile::remove(percorsoArchivio()));
        for (const QString& file : prima) {
            if (file.endsWith('/'))
                QVERIFY(QDir(PercorsoApp).mkpath(file));
            else
                scriviFile(file, file.toUtf8());
        }
        const bool conCartella = QFileInfo::exists(percorsoNelProgramma("update"));
        sostituisciAggiornatore();
        QStringList trovati;
        for (const QString& file : QDir(PercorsoApp).entryList(QDir::Files | QDir::Hidden, QDir::Name))
            trovati << file + '=' + leggiFile(file);
        trovati.sort();
        QVERIFY2(trovati == dopo, nome);
        // The folder stays, without files; folders in it stay too.
        QCOMPARE(QFileInfo::exists(percorsoNelProgramma("update")), conCartella);
        QVERIFY(nomi("update") == QStringList(prima.contains(nuovo + '/') ? 1 : 0, exe));
    }
}

void tst_Salvataggio::aggiornatoreCollegato() {
    scriviFile("altrove/VLMUpdater.exe", "nuovo");
    scriviFile("altrove/foto.jpg", "di un altro");
    scriviFile("VLMUpdater.exe", "presente");
    QVERIFY(QFile::link(percorsoNelProgramma("altrove"), percorsoNelProgramma("update")));
    for (int uscita = 0; uscita < 2; ++uscita) {
        sostituisciAggiornatore();
        QCOMPARE(leggiFile("VLMUpdater.exe") + leggiFile("VLMUpdater.ex_"), QByteArray("nuovopresente"));
        QCOMPARE(nomi("altrove").size(), 2);
    }
}

void tst_Salvataggio::aggiornatoreFallito() {
    ChiudiDataBase();
    QVERIFY(QFile::remove(percorsoArchivio()));
    scriviFile("update/VLMUpdater.exe", QByteArray(10'000, 'n'));
    scriviFile("update/altro.dll", "altro");
    scriviFile("VLMUpdater.exe", "presente");
    const QString testo = erroreDi([] {
        const LimiteDeiFile limite(5000);
        sostituisciAggiornatore();
    });
    QVERIFY2(testo.startsWith("Il nuovo programma di aggiornamento non è stato messo a posto:"),
             qPrintable(testo));
    QCOMPARE(leggiFile("VLMUpdater.exe"), QByteArray("presente"));
    QCOMPARE(nomi("update"), (QStringList{"altro.dll", "VLMUpdater.exe"}));
    QCOMPARE(nomi(".").size(), 2);
    sostituisciAggiornatore();
    QCOMPARE(leggiFile("VLMUpdater.exe"), QByteArray(10'000, 'n'));
    QCOMPARE(leggiFile("VLMUpdater.ex_"), QByteArray("presente"));
    QCOMPARE(nomi("update"), QStringList());
}

void tst_Salvataggio::unFallimentoNonFermaLAltro() {
    ChiudiDataBase();
    scriviFile("Backup", "un file");
    scriviFile("update/VLMUpdater.exe", "nuovo");
    QVERIFY(erroreDi(&salvaAllUscita).contains("copia di sicurezza"));
    QCOMPARE(leggiFile("VLMUpdater.exe"), QByteArray("nuovo"));
    scriviFile("update/VLMUpdater.exe", "altro");
    QVERIFY(QDir(PercorsoApp).mkdir("VLMUpdater.ex_"));
    const QString tutto = erroreDi(&salvaAllUscita);
    QVERIFY2(tutto.contains("copia di sicurezza") && tutto.contains("nuovo programma di aggiornamento"),
             qPrintable(tutto));
}

void tst_Salvataggio::impostazioni() {
    Impostazioni::installa(nullptr);  // the user's own
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, PercorsoApp);
    scriviFile("VLM/VLM.conf", "[IDMan]\nIDMan=7\n[com]\nonline=3\n");
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
    scriviFile("VLM", "un file");
    for (const int idMan : {13, 14}) {
        ImpostaManifestazioneAttiva(idMan);
        QCOMPARE(leggiManifestazioneAttiva(), idMan);  // until the end of the program
        QCOMPARE(Impostazioni::corrente().guasto().contains("VLM.conf"), idMan == 13);
        QCOMPARE(Impostazioni::corrente().guasto(), QString());
    }
}

QTEST_GUILESS_MAIN(tst_Salvataggio)
#include "tst_Salvataggio.moc"

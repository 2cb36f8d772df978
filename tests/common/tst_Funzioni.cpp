#include "archive/ErroreArchivio.h"
#include "common/API.h"
#include "common/Funzioni.h"
#include "supporto/ProgrammaDiProva.h"

#include <QProcess>
#include <QTest>

class tst_Funzioni final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filtri();
    void testoInHtml();
    void completamento();
    void getters();
    void bloccoOrfano();
};

void tst_Funzioni::filtri() {
    for (int tasto = 0; tasto < 256; ++tasto) {
        const bool cifra = (tasto >= 48 && tasto <= 57) || tasto == 8;
        int perRiferimento = tasto;
        QCOMPARE(FiltroCifre(perRiferimento), cifra ? tasto : 0);
        QCOMPARE(FiltroCifreValore(tasto), cifra ? tasto : 0);
        int conVirgola = tasto;
        QCOMPARE(FiltroCifreVirgola(conVirgola), cifra || tasto == 44 ? tasto : 0);
    }
}

void tst_Funzioni::testoInHtml() {
    const std::pair<const char*, const char*> casi[] = {
        {"A&B", "A&pound;B"},
        {"\"£", "&pound;quot;&pound;pound;"},
        {"<è>", "&lt;&egrave;&gt;"},
        {"éàìòùç°È", "&eacute;&agrave;&igrave;&ograve;&ugrave;&ccedil;&deg;È"}};
    for (const auto& [testo, atteso] : casi) {
        QString sulPosto(testo);
        TestoInHTML(sulPosto);
        QCOMPARE(sulPosto, QString(atteso));
    }
}

void tst_Funzioni::completamento() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    nuovoEquipaggio(1, {{"Cit", "L'Aquila"}, {"Mar", "Lancia"}});
    nuovoEquipaggio(2, {{"Cit", "Lecce"}, {"Mar", "lagonda"}});
    nuovoEquipaggio(3, {{"Cit", "50%"}, {"Mar", QVariant()}});
    const auto completa = [](const char* colonna, const char* inizio) {
        return primoCompletamento("Equipaggi", QString(colonna), QString(inizio)).value_or("-");
    };
    QCOMPARE(completa("Cit", "l'"), QString("L'Aquila"));
    QCOMPARE(completa("Mar", "la"), QString("lagonda"));  // first in the column's order, case aside
    QCOMPARE(completa("Mar", "lan"), QString("Lancia"));
    QCOMPARE(completa("Cit", "%"), QString("-"));  // typed signs are no wildcards
    QCOMPARE(completa("Cit", "50%"), QString("50%"));
    QVERIFY_EXCEPTION_THROWN(completa("Cit] FROM Squadre--", "x"), Errore);
}

void tst_Funzioni::getters() {
    // Each reads its own column; when the row is gone each gives nothing and forgets the active event.
    using Getter = QVariant (*)(int);
    const std::tuple<Getter, const char*, QVariant> casi[] = {
        {[](int id) { return QVariant(NomeManifestazione(id)); }, "", "Coppa delle Colline"},
        {[](int id) { return QVariant(DateManifestazione(id)); }, "", "13/06/2026 14/06/2026"},
        {[](int id) { return QVariant(DatVerManifestazione(id)); }, "", "12/06/2026"},
        {[](int id) { return QVariant(ClubManifestazione(id)); }, "", "Club Auto d'Epoca"},
        {[](int id) { return QVariant(FatAnnManifestazione(id)); }, "FatAnn", true},
        {[](int id) { return QVariant(AutoEscManifestazione(id)); }, "AutoEsc", true},
        {[](int id) { return QVariant(RagAutoManifestazione(id)); }, "RagAuto", true},
        {[](int id) { return QVariant(ASIeNONASIManifestazione(id)); }, "ASIeNONASI", true}};
    ProgrammaDiProva programma;
    for (const auto& [getter, colonna, atteso] : casi) {
        const bool interruttore = atteso == QVariant(true);
        const int id = interruttore ? nuovaManifestazione({{colonna, 1}}) : nuovaManifestazione();
        QCOMPARE(getter(id), atteso);
        esegui("DELETE FROM Manifestazioni");
        QCOMPARE(programma.impostazioni.valori.value("IDMan/IDMan"), QString::number(id));
        QCOMPARE(getter(id), interruttore ? QVariant(false) : QVariant(QString()));
        QCOMPARE(IDMan, 0);
        QCOMPARE(programma.impostazioni.valori.value("IDMan/IDMan"), QString("0"));
    }
    QVERIFY(!RagAutoManifestazione(nuovaManifestazione({{"RagAuto", QVariant()}})));  // as once upgraded
}

void tst_Funzioni::bloccoOrfano() {
    // A lock whose process is gone, as a crash leaves it, does not stop the next start.
    const QTemporaryDir altra;
    QFile orfano(altra.filePath("vlm.lock"));
    QVERIFY(orfano.open(QIODevice::WriteOnly));
    QProcess finito;
    finito.start(QString("true"), QStringList());
    const qint64 pid = finito.processId();
    QVERIFY(finito.waitForFinished());
    orfano.write(QByteArray::number(pid) + "\nvelmora\n" + QSysInfo::machineHostName().toUtf8() + '\n');
    orfano.close();
    QVERIFY(IstanzaUnica(altra.path()).acquisisci());

    QVERIFY_EXCEPTION_THROWN((void)IstanzaUnica(QString("/proc/self")).acquisisci(), Errore);
}

QTEST_GUILESS_MAIN(tst_Funzioni)
#include "tst_Funzioni.moc"

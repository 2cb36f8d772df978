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
    void gettersLeggono();
    void gettersGuariscono();
    void istanzaUnica();
};

void tst_Funzioni::filtri() {
    for (int tasto = 0; tasto < 256; ++tasto) {
        const bool cifra = (tasto >= 48 && tasto <= 57) || tasto == 8;
        int perRiferimento = tasto;
        QCOMPARE(FiltroCifre(perRiferimento), cifra ? tasto : 0);
        QCOMPARE(perRiferimento, cifra ? tasto : 0);
        QCOMPARE(FiltroCifreValore(tasto), cifra ? tasto : 0);
        int conVirgola = tasto;
        QCOMPARE(FiltroCifreVirgola(conVirgola), cifra || tasto == 44 ? tasto : 0);
    }
}

void tst_Funzioni::testoInHtml() {
    const auto html = [](QString testo) { return TestoInHTML(testo); };
    QCOMPARE(html("A&B"), QStringLiteral("A&pound;B"));
    QCOMPARE(html("\"£"), QStringLiteral("&pound;quot;&pound;pound;"));
    QCOMPARE(html("<è>"), QStringLiteral("&lt;&egrave;&gt;"));
    QCOMPARE(html("éàìòùç°È"), QStringLiteral("&eacute;&agrave;&igrave;&ograve;&ugrave;&ccedil;&deg;È"));
    QString testo = QStringLiteral("<");
    TestoInHTML(testo);
    QCOMPARE(testo, QStringLiteral("&lt;"));
}

void tst_Funzioni::completamento() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    nuovoEquipaggio(1, {{"Cit", "L'Aquila"}, {"Mar", "Lancia"}});
    nuovoEquipaggio(2, {{"Cit", "Lecce"}, {"Mar", "lagonda"}});
    nuovoEquipaggio(3, {{"Cit", "50%"}, {"Mar", QVariant()}});
    const auto completa = [](const char* colonna, const char* inizio) {
        return primoCompletamento(QStringLiteral("Equipaggi"), QString::fromLatin1(colonna),
                                  QString::fromUtf8(inizio))
            .value_or(QStringLiteral("-"));
    };
    QCOMPARE(completa("Cit", "l'"), QStringLiteral("L'Aquila"));
    QCOMPARE(completa("Mar", "la"), QStringLiteral("lagonda"));  // first in the column's order, case aside
    QCOMPARE(completa("Mar", "lan"), QStringLiteral("Lancia"));
    QCOMPARE(completa("Cit", "%"), QStringLiteral("-"));  // typed signs are no wildcards
    QCOMPARE(completa("Cit", "50%"), QStringLiteral("50%"));
    QVERIFY_EXCEPTION_THROWN(completa("Cit] FROM Squadre--", "x"), Errore);
}

void tst_Funzioni::gettersLeggono() {
    ProgrammaDiProva programma;
    const int id =
        nuovaManifestazione({{"FatAnn", 1}, {"AutoEsc", 1}, {"RagAuto", QVariant()}, {"ASIeNONASI", 1}});
    QCOMPARE(NomeManifestazione(id), QStringLiteral("Coppa delle Colline"));
    QCOMPARE(DateManifestazione(id), QStringLiteral("13/06/2026 14/06/2026"));
    QCOMPARE(DatVerManifestazione(id), QStringLiteral("12/06/2026"));
    QCOMPARE(ClubManifestazione(id), QStringLiteral("Club Auto d'Epoca"));
    QVERIFY(FatAnnManifestazione(id));
    QVERIFY(AutoEscManifestazione(id));
    QVERIFY(!RagAutoManifestazione(id));  // Null, as an upgraded archive has it
    QVERIFY(ASIeNONASIManifestazione(id));
}

void tst_Funzioni::gettersGuariscono() {
    ProgrammaDiProva programma;
    const auto getters = {+[](int id) { return NomeManifestazione(id).isEmpty(); },
                          +[](int id) { return DateManifestazione(id).isEmpty(); },
                          +[](int id) { return DatVerManifestazione(id).isEmpty(); },
                          +[](int id) { return ClubManifestazione(id).isEmpty(); },
                          +[](int id) { return !FatAnnManifestazione(id); },
                          +[](int id) { return !AutoEscManifestazione(id); },
                          +[](int id) { return !RagAutoManifestazione(id); },
                          +[](int id) { return !ASIeNONASIManifestazione(id); }};
    for (const auto getter : getters) {
        const int id = nuovaManifestazione();
        esegui(QStringLiteral("DELETE FROM Manifestazioni"));
        QCOMPARE(programma.impostazioni.valori.value("IDMan/IDMan"), QString::number(id));
        QVERIFY(getter(id));
        QCOMPARE(IDMan, 0);
        QCOMPARE(programma.impostazioni.valori.value("IDMan/IDMan"), QStringLiteral("0"));
    }
}

void tst_Funzioni::istanzaUnica() {
    const QTemporaryDir cartella;
    IstanzaUnica prima(cartella.path());
    QVERIFY(prima.acquisisci());
    IstanzaUnica seconda(cartella.path());
    QVERIFY(!seconda.acquisisci());

    // A lock whose process is gone, as a crash leaves it, does not stop the next start.
    const QTemporaryDir altra;
    QFile orfano(altra.filePath("vlm.lock"));
    QVERIFY(orfano.open(QIODevice::WriteOnly));
    QProcess finito;
    finito.start(QStringLiteral("true"), QStringList());
    const qint64 pid = finito.processId();
    QVERIFY(finito.waitForFinished());
    orfano.write(QByteArray::number(pid) + "\nvelmora\n" + QSysInfo::machineHostName().toUtf8() + '\n');
    orfano.close();
    QVERIFY(IstanzaUnica(altra.path()).acquisisci());

    QVERIFY_EXCEPTION_THROWN((void)IstanzaUnica(QStringLiteral("/proc/self")).acquisisci(), Errore);
}

QTEST_GUILESS_MAIN(tst_Funzioni)
#include "tst_Funzioni.moc"

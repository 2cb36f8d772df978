#include "common/API.h"
#include "common/Funzioni.h"
#include "supporto/ProgrammaDiProva.h"

#include <QProcess>

class tst_Funzioni final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void testoInHtml();
    void completamento();
    void getters();
    void bloccoOrfano();
};

void tst_Funzioni::testoInHtml() {
    const std::pair<const char*, const char*> casi[] = {
        {"A&B", "A&pound;B"},
        {"\"£", "&pound;quot;&pound;pound;"},
        {"<>éàìòùç°È", "&lt;&gt;&eacute;&agrave;&igrave;&ograve;&ugrave;&ccedil;&deg;È"}};
    for (const auto& [testo, atteso] : casi) {
        QString sulPosto(testo);
        TestoInHTML(sulPosto);
        QCOMPARE(sulPosto, QString(atteso));
    }
}

void tst_Funzioni::completamento() {
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
    // When the row is gone each gives nothing and forgets the active event.
    const int id = nuovaManifestazione({{"AutoEsc", 1}, {"RagAuto", QVariant()}});  // as once upgraded
    QCOMPARE(DateManifestazione(id), QString("13/06/2026 14/06/2026"));
    QVERIFY(AutoEscManifestazione(id) && !RagAutoManifestazione(id));
    for (const bool testo : {true, false}) {
        esegui("DELETE FROM Manifestazioni");
        QVERIFY(testo ? ClubManifestazione(id).isEmpty() : !AutoEscManifestazione(id));
        QCOMPARE(IDMan, 0);
        QCOMPARE(m_programma->impostazioni.valori.value("IDMan/IDMan"), QString("0"));
        nuovaManifestazione();
    }
}

void tst_Funzioni::bloccoOrfano() {
    // A lock whose process is gone, as a crash leaves it, does not stop the next start.
    QProcess finito;
    finito.start(QString("true"), QStringList());
    const qint64 pid = finito.processId();
    QVERIFY(finito.waitForFinished());
    scriviFile("vlm.lock",
               QByteArray::number(pid) + "\nvelmora\n" + QSysInfo::machineHostName().toUtf8() + '\n');
    QVERIFY(IstanzaUnica(PercorsoApp).acquisisci());
    QVERIFY_EXCEPTION_THROWN((void)IstanzaUnica(QString("/proc/self")).acquisisci(), Errore);
}

QTEST_GUILESS_MAIN(tst_Funzioni)
#include "tst_Funzioni.moc"

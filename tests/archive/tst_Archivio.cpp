#include "supporto/ProgrammaDiProva.h"

#include <unistd.h>
#include <QFile>

class tst_Archivio final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void maiusculeEValori();
    void ristretto();
    void rifiutati();
    void cartellaNonScrivibile();
    void spartito();
    void discoPieno();
};

namespace {

// Runs with the rights of an ordinary user where the test itself runs as root.
template <typename Azione>
void comeUtenteComune(Azione azione) {
    const bool root = geteuid() == 0;
    QVERIFY(!root || seteuid(65534) == 0);
    azione();
    QVERIFY(!root || seteuid(0) == 0);
}

}  // namespace

void tst_Archivio::maiusculeEValori() {
    nuovaManifestazione();
    nuovoEquipaggio(7, {{"Cog", "D'Angelò"}, {"Omo", QVariant()}, {"Not", ""}, {"Cil", 1298}});
    Statement lettura("SELECT * FROM Equipaggi WHERE cog='d''angelò'");
    QVERIFY(lettura.esegui().prossima());
    QCOMPARE(lettura.testo("COG"), QStringLiteral("D'Angelò"));
    QVERIFY(lettura.nullo(lettura.colonna("Omo")));
    QVERIFY(!lettura.nullo(lettura.colonna("Not")));
    QCOMPARE(lettura.testo("Cil"), QStringLiteral("1298"));
    QVERIFY_EXCEPTION_THROWN((void)lettura.colonna("Manca"), ErroreArchivio);
    QVERIFY_EXCEPTION_THROWN(inserisciRiga("Prove", {{"IDMan_FK", 999}}), ErroreArchivio);
}

void tst_Archivio::ristretto() {
    // Byte copies are valid archives, so nothing of a closed archive may stand beside the file.
    nuovaManifestazione();
    ChiudiDataBase();
    const QString copia = percorsoNelProgramma("copia.mdb");
    QVERIFY(QFile::copy(percorsoArchivio(), copia));
    QCOMPARE(difettoArchivio(copia), QString());
    QVERIFY(!QFile::exists(percorsoArchivio() + "-journal"));
    QVERIFY(!QFile::exists(percorsoArchivio() + "-wal"));
    QCOMPARE(QFile::permissions(copia) & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther),
             QFile::Permissions());
}

void tst_Archivio::rifiutati() {
    nuovaManifestazione();
    for (int i = 0; i < 200; ++i)
        nuovoEquipaggio(i);
    ChiudiDataBase();
    const QByteArray buono = leggiFile(percorsoArchivio());
    QByteArray guasto = buono;
    for (qsizetype i = 4096; i < guasto.size(); i += 3)
        guasto[i] = 'x';
    const std::pair<QByteArray, const char*> casi[] = {
        {"Questo non e' un archivio, ma un testo.", "non è un archivio"},
        {"", "vuoto"},
        {guasto, "danneggiato"},
        {buono.left(buono.size() / 2), "danneggiato"},
        {buono.left(40), "testata è incompleta"},
        {buono.left(100), "disk image is malformed"},
        {QByteArray(buono).replace(68, 4, "ABCD"), "altro programma"}};
    for (const auto& [dati, parola] : casi) {
        scriviFile(percorsoArchivio(), dati);
        const QString testo = erroreDi([] {
            PreparaArchivio();
            ApriDataBase();
            VerificaArchivio();
        });
        QVERIFY2(testo.contains(parola), qPrintable(parola + testo));
        ChiudiDataBase();
        QCOMPARE(leggiFile(percorsoArchivio()), dati);
    }
}

void tst_Archivio::cartellaNonScrivibile() {
    ChiudiDataBase();
    QVERIFY(QFile::remove(percorsoArchivio()));
    QVERIFY(QFile::setPermissions(PercorsoApp,
                                  QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
    comeUtenteComune([] { QVERIFY_EXCEPTION_THROWN(PreparaArchivio(), ErroreArchivio); });
    QVERIFY(!QFile::exists(percorsoArchivio()));
    QVERIFY(QFile::setPermissions(PercorsoApp, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                                   QFile::ReadOther | QFile::ExeOther));
    PreparaArchivio();
    const QByteArray prima = leggiFile(percorsoArchivio());
    QVERIFY(QFile::setPermissions(percorsoArchivio(), QFile::ReadOwner | QFile::ReadOther));
    comeUtenteComune([] { QVERIFY_EXCEPTION_THROWN(PreparaArchivio(), ErroreArchivio); });
    QCOMPARE(leggiFile(percorsoArchivio()), prima);
}

void tst_Archivio::spartito() {
    // An archive that vanishes while the program runs must not come back empty.
    ChiudiDataBase();
    QVERIFY(QFile::rename(percorsoArchivio(), percorsoNelProgramma("altrove.mdb")));
    QVERIFY_EXCEPTION_THROWN(ApriDataBase(), ErroreArchivio);
    QVERIFY(!QFile::exists(percorsoArchivio()));
    QVERIFY(QFile::rename(percorsoNelProgramma("altrove.mdb"), percorsoArchivio()));
    ApriDataBase();
    QVERIFY_EXCEPTION_THROWN(ApriDataBase(), ErroreArchivio);  // open already
}

void tst_Archivio::discoPieno() {
    nuovaManifestazione();
    riempiDisco();
    const QString testo = erroreDi([] {
        Transazione transazione;
        for (int i = 0; i < 1000; ++i)
            nuovoEquipaggio(i, {{"Not", QString(200, 'x')}});
        transazione.conferma();
    });
    QVERIFY2(testo.contains("disco è pieno"), qPrintable(testo));
    QCOMPARE(contaRighe("Equipaggi"), 0);
    ChiudiDataBase();
    ApriDataBase();
    QCOMPARE(contaRighe("Manifestazioni"), 1);
    QCOMPARE(difettoArchivio(percorsoArchivio()), QString());
}

QTEST_GUILESS_MAIN(tst_Archivio)
#include "tst_Archivio.moc"

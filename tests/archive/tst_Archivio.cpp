#include "archive/Testi.h"
#include "supporto/ProgrammaDiProva.h"

#include <unistd.h>
#include <QDir>
#include <QFile>
#include <QtEndian>

class tst_Archivio final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void maiusculeEValori();
    void ristretto();
    void rifiutati();
    void cartellaNonScrivibile();
    void spartito();
    void testi();
    void giornale();
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
    const QString orfana = erroreDi([] { inserisciRiga("Prove", {{"IDMan_FK", 999}}); });
    QVERIFY2(orfana.contains("non accetta questi dati") && orfana.contains("(FOREIGN KEY constraint failed)"),
             qPrintable(orfana));
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

void tst_Archivio::testi() {
    nuovaManifestazione();
    const QStringList ordinati{"Angelo", "D'Angelo", "D'Angelò", "Eco", "èdera", "EDOARDO", "Zeta"};
    for (int i = 0; i < ordinati.size(); ++i)
        nuovoEquipaggio(i, {{"Cog", ordinati.at((i * 5) % ordinati.size())}});
    QCOMPARE(leggiColonna("SELECT Cog FROM Equipaggi ORDER BY Cog COLLATE ITALIANO"), ordinati);
    QCOMPARE(confrontaTesti(u"ÈDERA", u"èdera"), 0);

    const struct {
        const char* testo;
        const char* modello;
        bool somiglia;
    } casi[] = {{"D'ANGELÒ", "d'angelò", true},
                {"D'ANGELÒ", "d'angelo", false},
                {"Èdera", "è%", true},
                {"Èdera", "_d%r_", true},
                {"100%", "100\\%", true},
                {"1000", "100\\%", false},
                {"abcabd", "%ab_", true},
                {"", "%", true},
                {"", "_", false}};
    for (const auto& caso : casi) {
        QCOMPARE(leggiValore("SELECT ? LIKE ? ESCAPE '\\'", {caso.testo, caso.modello})->toBool(),
                 caso.somiglia);
        if (!QByteArray(caso.modello).contains('\\'))
            QCOMPARE(leggiValore("SELECT ? LIKE ?", {caso.testo, caso.modello})->toBool(), caso.somiglia);
    }
    QVERIFY(leggiValore("SELECT NULL LIKE '%'")->isNull());
}

namespace {

// The journal that an interrupted action leaves: every page as it was before, with the sums of the format.
QByteArray scriviGiornale(const QByteArray& prima, qsizetype pagina) {
    constexpr quint32 Seme = 12345;
    const auto numero = [](quint32 valore) {
        QByteArray byte(4, '\0');
        qToBigEndian(valore, byte.data());
        return byte;
    };
    const auto pagine = static_cast<quint32>(prima.size() / pagina);
    QByteArray giornale = QByteArray("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8) + numero(pagine) + numero(Seme) +
                          numero(pagine) + numero(512) + numero(static_cast<quint32>(pagina));
    giornale = giornale.leftJustified(512, '\0');
    for (quint32 i = 0; i < pagine; ++i) {
        const QByteArray dati = prima.mid(qsizetype{i} * pagina, pagina);
        quint32 somma = Seme;
        for (qsizetype posto = pagina - 200; posto > 0; posto -= 200)
            somma += static_cast<uchar>(dati.at(posto));
        giornale += numero(i + 1) + dati + numero(somma);
    }
    return giornale;
}

}  // namespace

void tst_Archivio::giornale() {
    // What is done to the archive of two events after an action that had one event before it, and what a
    // start finds then: the events of the archive, and whether the journal was set aside.
    const std::tuple<const char*, int, bool> casi[] = {
        {"", 1, false},     {"testata", 1, true}, {"altra", 3, true},  {"identificativo", 2, true},
        {"senza", 2, true}, {"rumore", 2, true},  {"vuoto", 2, false}, {"manca", 0, true}};
    for (const auto& [caso, eventi, messoDaParte] : casi) {
        const QString fatto(caso);
        ricomincia();
        nuovaManifestazione();
        const auto pagina = static_cast<qsizetype>(leggiValore("PRAGMA page_size")->toInt());
        const QByteArray prima = leggiFile(percorsoArchivio());
        nuovaManifestazione();
        if (fatto == "altra")
            nuovaManifestazione();
        ChiudiDataBase();
        QByteArray giornale = scriviGiornale(prima, pagina);
        QByteArray dopo = leggiFile(percorsoArchivio());
        if (fatto == "testata")
            dopo.replace(0, 100, QByteArray(100, '\0'));
        if (fatto == "identificativo")
            giornale[512 + 4 + 68] = 'x';
        if (fatto == "senza")
            giornale[512 + 3] = 2;
        if (fatto == "rumore")
            giornale = QByteArray(9000, 'g');
        if (fatto == "vuoto")
            giornale.clear();
        scriviFile(percorsoArchivio(), dopo);
        scriviFile(percorsoArchivio() + "-journal", giornale);
        if (fatto == "manca")
            QVERIFY(QFile::remove(percorsoArchivio()));

        const QString avviso = PreparaArchivio();
        ApriDataBase();
        VerificaArchivio();
        QVERIFY2(contaRighe("Manifestazioni") == eventi, caso);
        QCOMPARE(!avviso.isEmpty(), messoDaParte);
        const QStringList messi = QDir(PercorsoApp).entryList({"mdvlm.mdb-journal-*"});
        QCOMPARE(messi.size(), messoDaParte ? 1 : 0);
        if (messoDaParte)
            QCOMPARE(leggiFile(percorsoNelProgramma(messi.first())), giornale);
    }
}

QTEST_GUILESS_MAIN(tst_Archivio)
#include "tst_Archivio.moc"

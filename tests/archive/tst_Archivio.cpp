#include "archive/ErroreArchivio.h"
#include "archive/Testi.h"
#include "supporto/ProgrammaDiProva.h"

#include <unistd.h>
#include <QDir>
#include <QFile>
#include <QtEndian>
#include <QTest>

class tst_Archivio final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cascate();
    void maiusculeEValori();
    void ristretto();
    void rifiutati();
    void cartellaNonScrivibile();
    void spartito();
    void discoPieno();
    void occupato();
    void testi();
    void giornale_data();
    void giornale();
};

namespace {

QByteArray contenuto(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void scrivi(const QString& percorso, const QByteArray& dati) {
    QFile file(percorso);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(dati), dati.size());
}

// The text of the failure; empty when there was none.
template <typename Azione>
QString errore(Azione azione) {
    try {
        azione();
        return {};
    } catch (const ErroreArchivio& fallimento) {
        return fallimento.testo();
    }
}

// Runs with the rights of an ordinary user where the test itself runs as root.
template <typename Azione>
void comeUtenteComune(Azione azione) {
    const bool root = geteuid() == 0;
    QVERIFY(!root || seteuid(65534) == 0);
    azione();
    QVERIFY(!root || seteuid(0) == 0);
}

}  // namespace

void tst_Archivio::cascate() {
    ProgrammaDiProva programma;
    const auto conta = [] {
        QList<int> righe;
        for (const char* tabella : {"Manifestazioni", "Prove", "Equipaggi", "Rilevamenti", "Raggruppamenti",
                                    "Squadre", "Prezzi", "Incassi"})
            righe << contaRighe(tabella);
        return righe;
    };
    const auto popola = [] {
        const int man = nuovaManifestazione();
        nuovaProva();
        nuovaProva();
        int pre = 0;
        for (const char* tabella : {"Raggruppamenti", "Squadre", "Prezzi"})
            pre = inserisciRiga(tabella, {{"IDMan_FK", man}});
        const int equ = nuovoEquipaggio(1);
        nuovoEquipaggio(2);
        inserisciRiga("Incassi", {{"IDEqu_FK", equ}, {"IDPre_FK", pre}, {"Qta", 1}});
        return man;
    };
    const int prima = popola();
    popola();
    QCOMPARE(conta(), (QList<int>{2, 4, 4, 8, 2, 2, 2, 2}));
    esegui("DELETE FROM Manifestazioni WHERE IDMan=?", {prima});
    QCOMPARE(conta(), (QList<int>{1, 2, 2, 4, 1, 1, 1, 1}));
    esegui("DELETE FROM Prove WHERE IDPro=(SELECT min(IDPro) FROM Prove)");
    QCOMPARE(conta(), (QList<int>{1, 1, 2, 2, 1, 1, 1, 1}));
    esegui("DELETE FROM Equipaggi WHERE Num=1");
    QCOMPARE(conta(), (QList<int>{1, 1, 1, 1, 1, 1, 1, 0}));
}

void tst_Archivio::maiusculeEValori() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    nuovoEquipaggio(7, {{"Cog", "D'Angelò"}, {"Omo", QVariant()}, {"Not", ""}, {"Cil", 1298}});
    Statement lettura("SELECT * FROM Equipaggi WHERE cog='d''angelò'");
    QVERIFY(lettura.esegui().prossima());
    QCOMPARE(lettura.testo("COG"), QStringLiteral("D'Angelò"));
    QVERIFY(lettura.nullo(lettura.colonna("Omo")));
    QVERIFY(!lettura.nullo(lettura.colonna("Not")));
    QCOMPARE(lettura.testo("Cil"), QStringLiteral("1298"));
    QVERIFY_EXCEPTION_THROWN((void)lettura.colonna("Manca"), ErroreArchivio);
    const QString orfana = errore([] { inserisciRiga("Prove", {{"IDMan_FK", 999}}); });
    QVERIFY2(orfana.contains("non accetta questi dati") && orfana.contains("(FOREIGN KEY constraint failed)"),
             qPrintable(orfana));
}

void tst_Archivio::ristretto() {
    // Byte copies are valid archives, so nothing of a closed archive may stand beside the file.
    ProgrammaDiProva programma;
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
    QByteArray buono;
    {
        const ProgrammaDiProva programma;
        nuovaManifestazione();
        for (int i = 0; i < 200; ++i)
            nuovoEquipaggio(i);
        ChiudiDataBase();
        buono = contenuto(percorsoArchivio());
    }
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
        ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
        scrivi(percorsoArchivio(), dati);
        const QString testo = errore([] {
            PreparaArchivio();
            ApriDataBase();
            VerificaArchivio();
        });
        QVERIFY2(testo.contains(parola), qPrintable(parola + testo));
        ChiudiDataBase();
        QCOMPARE(contenuto(percorsoArchivio()), dati);
    }
}

void tst_Archivio::cartellaNonScrivibile() {
    ProgrammaDiProva programma(ProgrammaDiProva::Archivio::Nessuno);
    QVERIFY(QFile::setPermissions(PercorsoApp,
                                  QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
    comeUtenteComune([] { QVERIFY_EXCEPTION_THROWN(PreparaArchivio(), ErroreArchivio); });
    QVERIFY(!QFile::exists(percorsoArchivio()));
    QVERIFY(QFile::setPermissions(PercorsoApp, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                                   QFile::ReadOther | QFile::ExeOther));
    PreparaArchivio();
    const QByteArray prima = contenuto(percorsoArchivio());
    QVERIFY(QFile::setPermissions(percorsoArchivio(), QFile::ReadOwner | QFile::ReadOther));
    comeUtenteComune([] { QVERIFY_EXCEPTION_THROWN(PreparaArchivio(), ErroreArchivio); });
    QCOMPARE(contenuto(percorsoArchivio()), prima);
}

void tst_Archivio::spartito() {
    // An archive that vanishes while the program runs must not come back empty.
    ProgrammaDiProva programma;
    ChiudiDataBase();
    QVERIFY(QFile::rename(percorsoArchivio(), percorsoNelProgramma("altrove.mdb")));
    QVERIFY_EXCEPTION_THROWN(ApriDataBase(), ErroreArchivio);
    QVERIFY(!QFile::exists(percorsoArchivio()));
    QVERIFY(QFile::rename(percorsoNelProgramma("altrove.mdb"), percorsoArchivio()));
    ApriDataBase();
    QVERIFY_EXCEPTION_THROWN(ApriDataBase(), ErroreArchivio);  // open already
}

void tst_Archivio::discoPieno() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const int pagine = leggiValore("PRAGMA page_count")->toInt();
    leggiValore(QStringLiteral("PRAGMA max_page_count=%1").arg(pagine));
    const QString testo = errore([] {
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

void tst_Archivio::occupato() {
    ProgrammaDiProva programma;
    leggiValore("PRAGMA busy_timeout=1");
    const Transazione altrui(ConnShape());
    const QString testo = errore([] { nuovaManifestazione(); });
    QVERIFY2(testo.startsWith("L'archivio è in uso"), qPrintable(testo));
}

void tst_Archivio::testi() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const QStringList ordinati{"Angelo", "D'Angelo", "D'Angelò", "Eco", "èdera", "EDOARDO", "Zeta"};
    for (int i = 0; i < ordinati.size(); ++i)
        nuovoEquipaggio(i, {{"Cog", ordinati.at((i * 5) % ordinati.size())}});
    QStringList letti;
    Statement lettura("SELECT Cog FROM Equipaggi ORDER BY Cog COLLATE ITALIANO");
    for (lettura.esegui(); lettura.prossima();)
        letti << lettura.testo(0);
    QCOMPARE(letti, ordinati);
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

void tst_Archivio::giornale_data() {
    // What is done to the archive of two events after an action that had one event before it, and what a
    // start finds then: the events of the archive, and whether the journal was set aside.
    QTest::addColumn<QString>("fatto");
    QTest::addColumn<int>("eventi");
    QTest::addColumn<bool>("messoDaParte");
    QTest::newRow("of the last action") << "" << 1 << false;
    QTest::newRow("header hurt") << "testata" << 1 << true;
    QTest::newRow("an action later") << "altra" << 3 << true;
    QTest::newRow("of another program's file") << "identificativo" << 2 << true;
    QTest::newRow("without page 1") << "senza" << 2 << true;
    QTest::newRow("nonsense") << "rumore" << 2 << true;
    QTest::newRow("empty") << "vuoto" << 2 << false;
    QTest::newRow("archive missing") << "manca" << 0 << true;
}

void tst_Archivio::giornale() {
    QFETCH(const QString, fatto);
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const auto pagina = static_cast<qsizetype>(leggiValore("PRAGMA page_size")->toInt());
    const QByteArray prima = contenuto(percorsoArchivio());
    nuovaManifestazione();
    if (fatto == "altra")
        nuovaManifestazione();
    ChiudiDataBase();
    QByteArray giornale = scriviGiornale(prima, pagina);
    QByteArray dopo = contenuto(percorsoArchivio());
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
    scrivi(percorsoArchivio(), dopo);
    scrivi(percorsoArchivio() + "-journal", giornale);
    if (fatto == "manca")
        QVERIFY(QFile::remove(percorsoArchivio()));

    QFETCH(const bool, messoDaParte);
    const QString avviso = PreparaArchivio();
    ApriDataBase();
    VerificaArchivio();
    QTEST(contaRighe("Manifestazioni"), "eventi");
    QCOMPARE(!avviso.isEmpty(), messoDaParte);
    const QStringList messi = QDir(PercorsoApp).entryList({"mdvlm.mdb-journal-*"});
    QCOMPARE(messi.size(), messoDaParte ? 1 : 0);
    if (messoDaParte)
        QCOMPARE(contenuto(percorsoNelProgramma(messi.first())), giornale);
}

QTEST_GUILESS_MAIN(tst_Archivio)
#include "tst_Archivio.moc"

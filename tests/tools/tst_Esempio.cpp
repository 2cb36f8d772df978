#include "archive/ErroreArchivio.h"
#include "common/Funzioni.h"
#include "common/Valori.h"
#include "supporto/ProgrammaDiProva.h"
#include "tools/CreaEsempio.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QStringList Tabelle{"manifestazione", "prove",       "raggruppamenti", "squadre",
                          "equipaggi",      "rilevamenti", "prezzi",         "incassi"};

QByteArray leggi(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void scrivi(const QString& percorso, const QByteArray& dati) {
    QFile file(percorso);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(dati), dati.size());
}

// A copy of the sample's data that a test may spoil.
class Copia final {
public:
    Copia() {
        for (const QString& tabella : Tabelle)
            QVERIFY(QFile::copy(QStringLiteral(CARTELLA_ESEMPIO "/%1.tsv").arg(tabella), file(tabella)));
    }
    [[nodiscard]] QString file(const QString& tabella) const { return m_cartella.filePath(tabella + ".tsv"); }
    [[nodiscard]] QString cartella() const { return m_cartella.path(); }
    // Replaces a cell; line 1 holds the names.
    void guasta(const QString& tabella, qsizetype linea, const QString& colonna, const QString& valore) {
        QStringList linee = QString::fromUtf8(leggi(file(tabella))).split('\n');
        const qsizetype indice = linee.constFirst().split('\t').indexOf(colonna);
        QVERIFY2(indice >= 0, qPrintable(colonna));
        QStringList celle = linee.at(linea - 1).split('\t');
        celle[indice] = valore;
        linee[linea - 1] = celle.join('\t');
        scrivi(file(tabella), linee.join('\n').toUtf8());
    }

private:
    QTemporaryDir m_cartella;
};

// The reason for which the data are refused.
QString rifiuto(const QString& cartella) {
    try {
        creaEsempio(cartella, PercorsoApp);
    } catch (const Errore& errore) {
        return errore.testo();
    }
    return {};
}

}  // namespace

class tst_Esempio final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_programma.reset(); }
    void composizione();
    void catene();
    void rilevamenti();
    void guasti();
    void fileGuasti();
    void archivioPresente();

private:
    void apri() {
        m_idMan = creaEsempio(CARTELLA_ESEMPIO, PercorsoApp);
        PreparaArchivio();
        ApriDataBase();
    }

    std::unique_ptr<ProgrammaDiProva> m_programma;
    int m_idMan = 0;
};

void tst_Esempio::init() {
    m_programma = std::make_unique<ProgrammaDiProva>(ProgrammaDiProva::Archivio::Nessuno);
}

void tst_Esempio::composizione() {
    apri();
    struct Caso {
        const char* tabella;
        QString dove;
        int almeno, alPiu;
    };
    constexpr int Tanti = 1'000'000;
    const QString diSua = QString("IDMan_FK=%1").arg(m_idMan);
    const Caso casi[] = {
        {"Manifestazioni", "Nom<>'' AND FatAnn=1 AND RagAuto=1 AND ASIeNONASI=1 AND NumFatNoASI=2.5", 1, 1},
        {"Manifestazioni", "PrePA||PrePM||PreCO='CENSECMIN'", 1, 1},
        {"Prove", "Svo=1 AND " + diSua, 24, 24},
        {"Equipaggi", diSua, 60, 60},
        {"Squadre", "(SELECT count(*) FROM Equipaggi WHERE IDSqu_FK=IDSqu) BETWEEN 2 AND 5", 8, 8},
        {"Squadre", "", 8, 8},
        {"Equipaggi", "Esc=1 AND MotEsc<>''", 3, 3},
        {"Equipaggi", "Ses='F' AND SesNav='F'", 6, 6},
        {"Equipaggi", SqlASI, 31, 49},
        {"Rilevamenti", "PenAgg<>0 AND DesPenAgg<>''", 6, Tanti},
        {"Incassi", "", 61, Tanti},
        // The check of years must let the classification through.
        {"Equipaggi", QString(SqlASI) + " AND (Ann IS NULL OR Ann<1850 OR Ann>2016)", 0, 0},
        // One reading row per crew and test, none of another's.
        {"Rilevamenti", "", 60 * 24, 60 * 24},
        {"(SELECT DISTINCT IDEqu_FK,IDPro_FK FROM Rilevamenti JOIN Equipaggi ON IDEqu=IDEqu_FK "
         "JOIN Prove ON IDPro=IDPro_FK)",
         "", 60 * 24, 60 * 24},
        {"Equipaggi", "IDSqu_FK<>0 AND IDSqu_FK NOT IN (SELECT IDSqu FROM Squadre)", 0, 0},
        // Groups as the years want them, none without crews.
        {"Equipaggi",
         "IDGru_FK<>coalesce((SELECT IDGru FROM Raggruppamenti WHERE Ann BETWEEN DAAnn AND AAnn),0)", 0, 0},
        {"Raggruppamenti", "IDGru NOT IN (SELECT IDGru_FK FROM Equipaggi)", 0, 0}};
    for (const Caso& caso : casi) {
        const int righe = contaRighe(caso.tabella, caso.dove);
        QVERIFY2(righe >= caso.almeno && righe <= caso.alPiu, qPrintable(caso.tabella + caso.dove));
    }
}

void tst_Esempio::catene() {
    apri();
    // The test that each one is chained to, and the arrival of the one as the start of the other; an imposed
    // average holds no hundredths, so the start of one that follows a skill test is cut.
    QCOMPARE(contaRighe("Prove AS p",
                        "ConA<>0 AND ConA<>(SELECT max(IDPro) FROM Prove WHERE IDPro<p.IDPro AND "
                        "(p.Tip<>'CO' OR Tip='CO'))"),
             0);
    QVERIFY(contaRighe("Prove", "ConA<>0 AND Tip='CO'") > 0);
    QVERIFY(contaRighe("Prove", "ConA<>0 AND Tip='PM'") > 0);
    const QString legate(
        "Rilevamenti AS dopo JOIN Prove ON Prove.IDPro=dopo.IDPro_FK AND Prove.ConA<>0 "
        "JOIN Rilevamenti AS prima ON prima.IDPro_FK=Prove.ConA AND prima.IDEqu_FK=dopo.IDEqu_FK");
    QCOMPARE(contaRighe(legate), 60 * contaRighe("Prove", "ConA<>0"));
    QCOMPARE(contaRighe(legate,
                        "dopo.TPar<>iif(Prove.Tip='PM' AND prima.TArr<>'',substr(prima.TArr,1,9)||'00',"
                        "prima.TArr)"),
             0);
}

void tst_Esempio::rilevamenti() {
    apri();
    static const QHash<QString, int> cifreDiPrecisione{{"MIN", 6}, {"SEC", 9}, {"DEC", 10}, {"CEN", 11}};
    static const QRegularExpression forma(R"(^([01]\d|2[0-3]):[0-5]\d:[0-5]\d:\d\d$)");
    Statement lettura(
        QString("SELECT TPar,TArr,Tem,CASE Tip WHEN 'PA' THEN iif(%1,PrePA,PrePANoASI) "
                "WHEN 'PM' THEN iif(%1,PrePM,PrePMNoASI) ELSE iif(%1,PreCO,PreCONoASI) END,Tip,Num "
                "FROM Rilevamenti JOIN Prove ON IDPro=IDPro_FK JOIN Equipaggi ON IDEqu=IDEqu_FK "
                "JOIN Manifestazioni ON IDMan=Prove.IDMan_FK")
            .arg(SqlASI));
    lettura.esegui();
    int mancanti = 0;
    int mezzanotte = 0;
    int completi = 0;
    while (lettura.prossima()) {
        const QString chi = lettura.testo(5) + ' ' + lettura.testo(4);
        const int cifre = cifreDiPrecisione.value(lettura.testo(3));
        QStringList ore;
        for (const int colonna : {0, 1}) {
            QVERIFY(!lettura.nullo(colonna));
            const QString testo = lettura.testo(colonna);
            if (testo.isEmpty())
                continue;
            ore << testo;
            QVERIFY2(forma.match(testo).hasMatch(), qPrintable(chi));
            QVERIFY2(testo.mid(cifre) == QString("00:00:00:00").mid(cifre), qPrintable(chi + testo));
        }
        mancanti += 2 - int(ore.size());
        if (ore.size() < 2)
            continue;
        ++completi;
        mezzanotte += ore[1] < ore[0] ? 1 : 0;
        const int netto = DifferenzaTempi(TempoInCentesimi(ore[1]), TempoInCentesimi(ore[0]));
        const int scarto = std::abs(netto - TempoInCentesimi(QString(lettura.testo(2) + ":00")));
        QVERIFY2(scarto <= (lettura.testo(4) == "CO" ? 6 * CentesimiAlMinuto : 40 * CentesimiAlSecondo),
                 qPrintable(chi));
    }
    QVERIFY(mancanti > 20 && mezzanotte > 10 && completi > 1300);
    // Start times one minute apart, in the order of the race numbers.
    Statement partenze(
        "SELECT TPar FROM Rilevamenti JOIN Equipaggi ON IDEqu=IDEqu_FK "
        "WHERE IDPro_FK=(SELECT min(IDPro) FROM Prove WHERE Tip='CO') ORDER BY Num");
    QVERIFY(partenze.esegui().prossima());
    int prima = TempoInCentesimi(partenze.testo(0));
    while (partenze.prossima()) {
        prima += CentesimiAlMinuto;
        QCOMPARE(TempoInCentesimi(partenze.testo(0)), prima);
    }
}

void tst_Esempio::guasti() {
    struct Caso {
        const char *tabella, *colonna, *valore;
        int linea, lineaDetta = 0;
    };
    // Columns unknown, repeated, missing, of the archive's own; numbers twice, empty, none; names of no group
    // or team, dates, sexes, switches; kinds, times, days, order and chains of tests; settings; readings.
    const Caso casi[] = {{"equipaggi", "Mar", "Marca", 1},
                         {"equipaggi", "Mar", "Mod", 1},
                         {"equipaggi", "Cog", "CogNav", 1},
                         {"prove", "Loc", "IDPro", 1},
                         {"equipaggi", "Num", "3", 9},
                         {"equipaggi", "Num", "", 9},
                         {"equipaggi", "Num", "7a", 9},
                         {"equipaggi", "Raggruppamento", "Ancetre", 5},
                         {"equipaggi", "Squadra", "SCUDERIA X", 6},
                         {"equipaggi", "ScaPat", "31/12/2027", 4},
                         {"equipaggi", "Ses", "X", 4},
                         {"equipaggi", "Esc", "si", 4},
                         {"prove", "Tip", "PS", 7},
                         {"prove", "Tem", "00:61:00", 7},
                         {"prove", "Dat", "31/09/2026", 7},
                         {"prove", "Prova", "31", 7},
                         {"prove", "ConA", "3", 3},
                         {"prove", "ConA", "7", 9},
                         {"manifestazione", "PrePA", "CENTESIMO", 2},
                         {"manifestazione", "TipoCO", "PAR", 2, 9},
                         {"raggruppamenti", "Fat", "uno", 3},
                         {"rilevamenti", "TArr", "15:10:00", 100},
                         {"rilevamenti", "Equipaggio", "999", 100},
                         {"rilevamenti", "Prova", "25", 100},
                         {"rilevamenti", "Prova", "2", 100},
                         {"incassi", "Prezzo", "Mancia", 8}};
    for (const Caso& caso : casi) {
        Copia copia;
        copia.guasta(caso.tabella, caso.linea, caso.colonna, caso.valore);
        const QString testo = rifiuto(copia.cartella());
        const QString attesa = QString("%1.tsv, riga %2: ")
                                   .arg(caso.lineaDetta ? "prove" : caso.tabella)
                                   .arg(caso.lineaDetta ? caso.lineaDetta : caso.linea);
        QVERIFY2(testo.startsWith(attesa), qPrintable(attesa + testo));
        QVERIFY(QDir(PercorsoApp).isEmpty(QDir::Files | QDir::Hidden));
    }
}

void tst_Esempio::fileGuasti() {
    const Copia copia;
    const QString rilevamenti = copia.file("rilevamenti");
    const QByteArray interi = leggi(rilevamenti);
    // A row gone, a row cut short, a file in another encoding, a file that is not there.
    scrivi(rilevamenti, interi.left(interi.lastIndexOf('\n', -2) + 1));
    QVERIFY(rifiuto(copia.cartella()).contains("manca il rilevamento dell'equipaggio 63 nella prova 24"));
    scrivi(rilevamenti, interi + "63\t24");
    QVERIFY(rifiuto(copia.cartella()).startsWith("rilevamenti.tsv, riga 1442: "));
    scrivi(rilevamenti, interi + '\xE0');
    QVERIFY(rifiuto(copia.cartella()).contains("UTF-8"));
    QVERIFY(QFile::remove(rilevamenti));
    QVERIFY(rifiuto(copia.cartella()).contains("rilevamenti.tsv"));
    QVERIFY(QDir(PercorsoApp).isEmpty(QDir::Files | QDir::Hidden));
    // The lines of another system's editor do no harm.
    scrivi(rilevamenti, QByteArray(interi).replace("\n", "\r\n"));
    QCOMPARE(rifiuto(copia.cartella()), QString());
}

void tst_Esempio::archivioPresente() {
    scrivi(percorsoNelProgramma("mdvlm.mdb"), "non sono vuoto");
    QVERIFY(rifiuto(CARTELLA_ESEMPIO).contains("già"));
    QCOMPARE(leggi(percorsoNelProgramma("mdvlm.mdb")), QByteArray("non sono vuoto"));
    QCOMPARE(QDir(PercorsoApp).entryList(QDir::Files), QStringList("mdvlm.mdb"));
}

QTEST_GUILESS_MAIN(tst_Esempio)
#include "tst_Esempio.moc"

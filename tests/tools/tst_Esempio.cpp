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

struct Rilevamento {
    QString tPar, tArr;
};

int cifreDiPrecisione(const QString& parola) {
    static const QHash<QString, int> cifre{{"MIN", 6}, {"SEC", 9}, {"DEC", 10}, {"CEN", 11}};
    return cifre.value(parola);
}

}  // namespace

class tst_Esempio final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_programma.reset(); }
    void impostazioni();
    void composizione();
    void catene();
    void rilevamenti();
    void gruppiSecondoAnno();
    void guasti_data();
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

void tst_Esempio::impostazioni() {
    apri();
    IDMan = m_idMan;
    QVERIFY(!NomeManifestazione(m_idMan).isEmpty());
    QVERIFY(FatAnnManifestazione(m_idMan));
    QVERIFY(RagAutoManifestazione(m_idMan));
    QVERIFY(ASIeNONASIManifestazione(m_idMan));
    QCOMPARE(leggiValore("SELECT NumFatNoASI FROM Manifestazioni")->toDouble(), 2.5);
    QCOMPARE(leggiValore("SELECT PrePA||PrePM||PreCO FROM Manifestazioni")->toString(),
             QStringLiteral("CENSECMIN"));
}

void tst_Esempio::composizione() {
    apri();
    QCOMPARE(contaRighe("Manifestazioni"), 1);
    QCOMPARE(contaRighe("Prove", QStringLiteral("Svo=1 AND IDMan_FK=%1").arg(m_idMan)), 24);
    QCOMPARE(contaRighe("Equipaggi", QStringLiteral("IDMan_FK=%1").arg(m_idMan)), 60);
    QCOMPARE(contaRighe("Squadre"), 8);
    QCOMPARE(contaRighe("Equipaggi", "Esc=1 AND MotEsc<>''"), 3);
    QCOMPARE(contaRighe("Equipaggi", "Ses='F' AND SesNav='F'"), 6);
    QVERIFY(contaRighe("Equipaggi", SqlASI) > 30);
    QVERIFY(contaRighe("Equipaggi", SqlNonASI) > 10);
    QVERIFY(contaRighe("Rilevamenti", "PenAgg<>0 AND DesPenAgg<>''") > 5);
    QVERIFY(contaRighe("Incassi") > 60);
    // The check of years must let the classification through.
    QCOMPARE(
        contaRighe("Equipaggi", QStringLiteral("%1 AND (Ann IS NULL OR Ann<1850 OR Ann>2016)").arg(SqlASI)),
        0);
    // One reading row per crew and test, none of another's.
    QCOMPARE(contaRighe("Rilevamenti"), 60 * 24);
    QCOMPARE(contaRighe("Rilevamenti",
                        "IDEqu_FK NOT IN (SELECT IDEqu FROM Equipaggi) OR "
                        "IDPro_FK NOT IN (SELECT IDPro FROM Prove)"),
             0);
    QCOMPARE(
        leggiValore("SELECT count(*) FROM (SELECT DISTINCT IDEqu_FK,IDPro_FK FROM Rilevamenti)")->toInt(),
        60 * 24);
    QCOMPARE(contaRighe("Equipaggi", "IDGru_FK<>0 AND IDGru_FK NOT IN (SELECT IDGru FROM Raggruppamenti)"),
             0);
    QCOMPARE(contaRighe("Equipaggi", "IDSqu_FK<>0 AND IDSqu_FK NOT IN (SELECT IDSqu FROM Squadre)"), 0);
    QCOMPARE(
        contaRighe("Squadre", "(SELECT count(*) FROM Equipaggi WHERE IDSqu_FK=IDSqu) NOT BETWEEN 2 AND 5"),
        0);
}

void tst_Esempio::catene() {
    apri();
    // The test that each one is chained to, and the arrival of the one as the start of the other.
    QCOMPARE(contaRighe("Prove AS p",
                        "ConA<>0 AND ConA<>(SELECT max(IDPro) FROM Prove WHERE IDPro<p.IDPro AND "
                        "(p.Tip<>'CO' OR Tip='CO'))"),
             0);
    QVERIFY(contaRighe("Prove", "ConA<>0 AND Tip='CO'") > 0);
    QVERIFY(contaRighe("Prove", "ConA<>0 AND Tip='PM'") > 0);
    Statement coppie(
        "SELECT prima.TArr,dopo.TPar,Prove.Tip,Equipaggi.Num FROM Rilevamenti AS dopo "
        "JOIN Prove ON Prove.IDPro=dopo.IDPro_FK AND Prove.ConA<>0 JOIN Rilevamenti AS prima "
        "ON prima.IDPro_FK=Prove.ConA AND prima.IDEqu_FK=dopo.IDEqu_FK "
        "JOIN Equipaggi ON Equipaggi.IDEqu=dopo.IDEqu_FK");
    coppie.esegui();
    int viste = 0;
    while (coppie.prossima()) {
        ++viste;
        // An imposed average holds no hundredths, so the start of one that follows a skill test is cut.
        QString attesa = coppie.testo(0);
        if (coppie.testo(2) == "PM" && !attesa.isEmpty())
            attesa = attesa.left(9) + "00";
        QVERIFY2(coppie.testo(1) == attesa, qPrintable("N. " + coppie.testo(3)));
    }
    QCOMPARE(viste, 60 * contaRighe("Prove", "ConA<>0"));
}

void tst_Esempio::rilevamenti() {
    apri();
    static const QRegularExpression forma(R"(^([01]\d|2[0-3]):[0-5]\d:[0-5]\d:\d\d$)");
    Statement lettura(
        QStringLiteral("SELECT TPar,TArr,Tem,CASE Tip WHEN 'PA' THEN iif(%1,PrePA,PrePANoASI) "
                       "WHEN 'PM' THEN iif(%1,PrePM,PrePMNoASI) ELSE iif(%1,PreCO,PreCONoASI) END,Tip,Num "
                       "FROM Rilevamenti JOIN Prove ON IDPro=IDPro_FK JOIN Equipaggi ON IDEqu=IDEqu_FK "
                       "JOIN Manifestazioni ON IDMan=Prove.IDMan_FK")
            .arg(SqlASI));
    lettura.esegui();
    int mancanti = 0;
    int mezzanotte = 0;
    int completi = 0;
    while (lettura.prossima()) {
        const QString chi = QStringLiteral("N. %1 %2").arg(lettura.testo(5), lettura.testo(4));
        const int cifre = cifreDiPrecisione(lettura.testo(3));
        for (const int colonna : {0, 1}) {
            QVERIFY(!lettura.nullo(colonna));
            const QString testo = lettura.testo(colonna);
            if (testo.isEmpty()) {
                ++mancanti;
                continue;
            }
            QVERIFY2(forma.match(testo).hasMatch(), qPrintable(chi));
            QVERIFY2(testo.mid(cifre) == QStringLiteral("00:00:00:00").mid(cifre), qPrintable(chi + testo));
        }
        if (lettura.testo(0).isEmpty() || lettura.testo(1).isEmpty())
            continue;
        ++completi;
        mezzanotte += lettura.testo(1) < lettura.testo(0) ? 1 : 0;
        const int netto =
            DifferenzaTempi(TempoInCentesimi(lettura.testo(1)), TempoInCentesimi(lettura.testo(0)));
        const int scarto = std::abs(netto - TempoInCentesimi(QString(lettura.testo(2) + ":00")));
        QVERIFY2(scarto <= (lettura.testo(4) == "CO" ? 6 * CentesimiAlMinuto : 40 * CentesimiAlSecondo),
                 qPrintable(chi));
    }
    QVERIFY(mancanti > 20);
    QVERIFY(mezzanotte > 10);
    QVERIFY(completi > 1300);
    // Start times one minute apart, in the order of the race numbers.
    Statement partenze(
        "SELECT TPar FROM Rilevamenti JOIN Equipaggi ON IDEqu=IDEqu_FK "
        "WHERE IDPro_FK=(SELECT min(IDPro) FROM Prove WHERE Tip='CO') ORDER BY Num");
    partenze.esegui();
    int prima = 0;
    for (int i = 0; partenze.prossima(); ++i) {
        const int ora = TempoInCentesimi(partenze.testo(0));
        if (i > 0)
            QCOMPARE(ora - prima, CentesimiAlMinuto);
        prima = ora;
    }
}

void tst_Esempio::gruppiSecondoAnno() {
    apri();
    QCOMPARE(contaRighe(
                 "Equipaggi",
                 "IDGru_FK<>coalesce((SELECT IDGru FROM Raggruppamenti WHERE Ann BETWEEN DAAnn AND AAnn),0)"),
             0);
    QCOMPARE(contaRighe("Raggruppamenti", "IDGru NOT IN (SELECT IDGru_FK FROM Equipaggi)"), 0);
}

void tst_Esempio::guasti_data() {
    QTest::addColumn<QString>("tabella");
    QTest::addColumn<int>("linea");
    QTest::addColumn<QString>("colonna");
    QTest::addColumn<QString>("valore");
    QTest::addColumn<int>("lineaDetta");
    const auto caso = [](const char* nome, const char* tabella, int linea, const char* colonna,
                         const char* valore, int lineaDetta = 0) {
        QTest::newRow(nome) << QString(tabella) << linea << QString(colonna) << QString::fromUtf8(valore)
                            << (lineaDetta ? lineaDetta : linea);
    };
    caso("unknown column", "equipaggi", 1, "Mar", "Marca");
    caso("repeated column", "equipaggi", 1, "Mar", "Mod");
    caso("needed column missing", "equipaggi", 1, "Cog", "CogNav");
    caso("archive key in the data", "prove", 1, "Loc", "IDPro");
    caso("race number twice", "equipaggi", 9, "Num", "3");
    caso("race number empty", "equipaggi", 9, "Num", "");
    caso("race number no number", "equipaggi", 9, "Num", "7a");
    caso("unknown group", "equipaggi", 5, "Raggruppamento", "Ancetre");
    caso("unknown team", "equipaggi", 6, "Squadra", "SCUDERIA X");
    caso("date of a person", "equipaggi", 4, "ScaPat", "31/12/2027");
    caso("sex", "equipaggi", 4, "Ses", "X");
    caso("switch", "equipaggi", 4, "Esc", "si");
    caso("kind of test", "prove", 7, "Tip", "PS");
    caso("imposed time", "prove", 7, "Tem", "00:61:00");
    caso("day that is not there", "prove", 7, "Dat", "31/09/2026");
    caso("order of the tests", "prove", 7, "Prova", "31");
    caso("chained to a later test", "prove", 3, "ConA", "3");
    caso("time control chained to a skill test", "prove", 9, "ConA", "7");
    caso("precision", "manifestazione", 2, "PrePA", "CENTESIMO");
    caso("controls that cannot be chained", "manifestazione", 2, "TipoCO", "PAR", 9);
    caso("factor", "raggruppamenti", 3, "Fat", "uno");
    caso("reading", "rilevamenti", 100, "TArr", "15:10:00");
    caso("reading of nobody", "rilevamenti", 100, "Equipaggio", "999");
    caso("reading of no test", "rilevamenti", 100, "Prova", "25");
    caso("reading twice", "rilevamenti", 100, "Prova", "2");
    caso("fee", "incassi", 8, "Prezzo", "Mancia");
}

void tst_Esempio::guasti() {
    QFETCH(QString, tabella);
    QFETCH(int, linea);
    QFETCH(QString, colonna);
    QFETCH(QString, valore);
    QFETCH(int, lineaDetta);
    Copia copia;
    copia.guasta(tabella, linea, colonna, valore);
    const QString testo = rifiuto(copia.cartella());
    const QString file = colonna == "TipoCO" ? QStringLiteral("prove") : tabella;
    QVERIFY2(testo.startsWith(QStringLiteral("%1.tsv, riga %2: ").arg(file).arg(lineaDetta)),
             qPrintable(testo));
    QVERIFY(QDir(PercorsoApp).isEmpty(QDir::Files | QDir::Hidden));
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

#include "common/Funzioni.h"
#include "supporto/ProgrammaDiProva.h"
#include "tools/CreaEsempio.h"

#include <QDir>
#include <QFile>

namespace {

const QStringList Tabelle{"manifestazione", "prove",       "raggruppamenti", "squadre",
                          "equipaggi",      "rilevamenti", "prezzi",         "incassi"};

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
        QStringList linee = QString::fromUtf8(leggiFile(file(tabella))).split('\n');
        const qsizetype indice = linee.constFirst().split('\t').indexOf(colonna);
        QVERIFY2(indice >= 0, qPrintable(colonna));
        QStringList celle = linee.at(linea - 1).split('\t');
        celle[indice] = valore;
        linee[linea - 1] = celle.join('\t');
        scriviFile(file(tabella), linee.join('\n').toUtf8());
    }

private:
    QTemporaryDir m_cartella;
};

// The reason for which the data are refused.
QString rifiuto(const QString& cartella) {
    return erroreDi([&] { creaEsempio(cartella, PercorsoApp); });
}

}  // namespace

class tst_Esempio final : public ProvaConProgramma {
    Q_OBJECT

public:
    tst_Esempio() : ProvaConProgramma(Archivio::Nessuno) {}

private Q_SLOTS:
    void contenuto();
    void guasti();
    void fileGuasti();
};

void tst_Esempio::contenuto() {
    const int man = creaEsempio(CARTELLA_ESEMPIO, PercorsoApp);
    PreparaArchivio();
    ApriDataBase();
    const QString asi(SqlASI);
    const QString diSua = QString("IDMan_FK=%1").arg(man);
    const QString tempi(
        "(SELECT TPar AS Ora,* FROM Rilevamenti UNION ALL SELECT TArr,* FROM Rilevamenti) "
        "JOIN Prove ON IDPro=IDPro_FK JOIN Equipaggi ON IDEqu=IDEqu_FK JOIN Manifestazioni "
        "ON IDMan=Prove.IDMan_FK");
    const QString precisione = QString(
                                   "CASE Tip WHEN 'PA' THEN iif(%1,PrePA,PrePANoASI) WHEN 'PM' THEN "
                                   "iif(%1,PrePM,PrePMNoASI) ELSE iif(%1,PreCO,PreCONoASI) END")
                                   .arg(asi);
    const QString cifre =
        "CASE " + precisione + " WHEN 'MIN' THEN 7 WHEN 'SEC' THEN 10 WHEN 'DEC' THEN 11 ELSE 12 END";
    const QString legate(
        "Rilevamenti AS dopo JOIN Prove ON Prove.IDPro=dopo.IDPro_FK AND Prove.ConA<>0 "
        "JOIN Rilevamenti AS prima ON prima.IDPro_FK=Prove.ConA AND prima.IDEqu_FK=dopo.IDEqu_FK");
    constexpr int Tanti = 1'000'000;
    struct Caso {
        QString tabella, dove;
        int almeno, alPiu;
    };
    const Caso casi[] = {
        {"Manifestazioni", "Nom<>'' AND FatAnn=1 AND RagAuto=1 AND ASIeNONASI=1 AND NumFatNoASI=2.5", 1, 1},
        {"Prove", "Svo=1 AND " + diSua, 24, 24},
        {"Equipaggi", diSua, 60, 60},
        {"Squadre", "(SELECT count(*) FROM Equipaggi WHERE IDSqu_FK=IDSqu) BETWEEN 2 AND 5", 8, 8},
        {"Equipaggi", "Esc=1 AND MotEsc<>''", 3, 3},
        {"Equipaggi", "Ses='F' AND SesNav='F'", 6, 6},
        {"Equipaggi", asi, 31, 49},
        {"Rilevamenti", "PenAgg<>0 AND DesPenAgg<>''", 6, Tanti},
        {"Incassi", "", 61, Tanti},
        // The check of years must let the classification through.
        {"Equipaggi", asi + " AND (Ann IS NULL OR Ann<1850 OR Ann>2016)", 0, 0},
        // One reading row per crew and test, none of another's.
        {"Rilevamenti", "TPar IS NOT NULL AND TArr IS NOT NULL", 60 * 24, 60 * 24},
        // Groups as the years want them, none without crews.
        {"Equipaggi",
         "IDGru_FK<>coalesce((SELECT IDGru FROM Raggruppamenti WHERE Ann BETWEEN DAAnn AND AAnn),0)", 0, 0},
        // The test that each one is chained to, and the arrival of the one as the start of the other; an
        // imposed average holds no hundredths, so the start of one that follows a skill test is cut.
        {"Prove", "ConA<>0 AND Tip='CO'", 1, 24},
        {"Prove", "ConA<>0 AND Tip='PM'", 1, 24},
        {legate, "dopo.TPar<>iif(Tip='PM' AND prima.TArr<>'',substr(prima.TArr,1,9)||'00',prima.TArr)", 0, 0},
        // Times of day of their class's precision, near the imposed ones; some missing, some past midnight.
        {tempi, "Ora=''", 21, Tanti},
        {tempi, "Ora<>'' AND substr(Ora," + cifre + ")<>substr('00:00:00:00'," + cifre + ')', 0, 0},
        {"Rilevamenti", "TPar<>'' AND TArr<>'' AND TArr<TPar", 11, Tanti}};
    for (const Caso& caso : casi) {
        const int righe = contaRighe(caso.tabella, caso.dove);
        QVERIFY2(righe >= caso.almeno && righe <= caso.alPiu,
                 qPrintable(QString("%1 in %2: %3").arg(righe).arg(caso.tabella, caso.dove)));
    }
}

void tst_Esempio::guasti() {
    // Columns unknown, repeated, missing, of the archive's own; numbers twice, empty, none; names of no group
    // or team, dates, sexes, switches; kinds, times, days, order and chains of tests; settings; readings.
    const QString casi(
        "manifestazione 2 TipoCO=PAR|equipaggi 1 Mar=Marca|equipaggi 1 Mar=Mod|equipaggi 1 Cog=CogNav|"
        "prove 1 Loc=IDPro|equipaggi 9 Num=3|equipaggi 9 Num=|equipaggi 9 Num=7a|"
        "equipaggi 5 Raggruppamento=Ancetre|equipaggi 6 Squadra=SCUDERIA X|"
        "equipaggi 4 ScaPat=31/12/2027|equipaggi 4 Ses=X|equipaggi 4 Esc=si|prove 7 Tip=PS|"
        "prove 7 Tem=00:61:00|prove 7 Dat=31/09/2026|prove 7 Prova=31|prove 3 ConA=3|prove 9 ConA=7|"
        "manifestazione 2 PrePA=CENTESIMO|raggruppamenti 3 Fat=uno|rilevamenti 100 TArr=15:10:00|"
        "rilevamenti 100 Equipaggio=999|rilevamenti 100 Prova=25|rilevamenti 100 Prova=2|"
        "incassi 8 Prezzo=Mancia");
    for (const QString& caso : casi.split('|')) {
        const QStringList parti = caso.section('=', 0, 0).split(' ');
        Copia copia;
        copia.guasta(parti[0], parti[1].toInt(), parti[2], caso.section('=', 1));
        const QString testo = rifiuto(copia.cartella());
        // Controls that cannot be chained are told where the tests chain them.
        const bool altrove = parti[2] == "TipoCO";
        const QString attesa = altrove ? "prove.tsv, riga 9: " : parti[0] + ".tsv, riga " + parti[1] + ": ";
        QVERIFY2(testo.startsWith(attesa), qPrintable(caso + ": " + testo));
        QVERIFY(QDir(PercorsoApp).isEmpty(QDir::Files | QDir::Hidden));
    }
}

void tst_Esempio::fileGuasti() {
    const Copia copia;
    const QString rilevamenti = copia.file("rilevamenti");
    const QByteArray interi = leggiFile(rilevamenti);
    // A row gone, a row cut short, a file in another encoding, a file that is not there.
    scriviFile(rilevamenti, interi.left(interi.lastIndexOf('\n', -2) + 1));
    QVERIFY(rifiuto(copia.cartella()).contains("manca il rilevamento dell'equipaggio 63 nella prova 24"));
    scriviFile(rilevamenti, interi + "63\t24");
    QVERIFY(rifiuto(copia.cartella()).startsWith("rilevamenti.tsv, riga 1442: "));
    scriviFile(rilevamenti, interi + '\xE0');
    QVERIFY(rifiuto(copia.cartella()).contains("UTF-8"));
    QVERIFY(QFile::remove(rilevamenti));
    QVERIFY(rifiuto(copia.cartella()).contains("rilevamenti.tsv"));
    QVERIFY(QDir(PercorsoApp).isEmpty(QDir::Files | QDir::Hidden));
    // The lines of another system's editor do no harm.
    scriviFile(rilevamenti, QByteArray(interi).replace("\n", "\r\n"));
    QCOMPARE(rifiuto(copia.cartella()), QString());
    // What is there already is not written over.
    scriviFile(percorsoNelProgramma("mdvlm.mdb"), "non sono vuoto");
    QVERIFY(rifiuto(CARTELLA_ESEMPIO).contains("già"));
    QCOMPARE(leggiFile(percorsoNelProgramma("mdvlm.mdb")), QByteArray("non sono vuoto"));
}

QTEST_GUILESS_MAIN(tst_Esempio)
#include "tst_Esempio.moc"

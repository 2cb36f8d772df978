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
    void guasti();
};

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

QTEST_GUILESS_MAIN(tst_Esempio)
#include "tst_Esempio.moc"

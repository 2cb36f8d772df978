#include "entries/Equipaggi.h"
#include "supporto/ProgrammaDiProva.h"

#include <QFileInfo>
#include <QProcess>

class tst_Equipaggi final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void soloNumero();
    void riscrittura();
    void uccisoAMeta();
};

namespace {

constexpr char CartellaFiglio[] = "VELMORA_TEST_FOLDER";
constexpr char EventoFiglio[] = "VELMORA_TEST_EVENT";

// "Column=text;..." as a sheet.
SchedaEquipaggio scheda(const char* colonne) {
    SchedaEquipaggio testi;
    const QStringList voci = QString::fromUtf8(colonne).split(u';');
    for (const QString& voce : voci)
        testi[voce.section(u'=', 0, 0)] = voce.mid(voce.indexOf(u'=') + 1);
    return testi;
}

const SchedaEquipaggio Completa = scheda(
    "IDGru_FK=3;IDSqu_FK=4;Num=12;Cog=D'Angelò;Nom=Mario;Ses=M;Clu=C;Tes=T1;DatNas=1/2/50;Tel=011;Cel=333;"
    "Fax=012;Ind=Via Roma 1;Ema=a@b.it;CAP=10100;Cit=Torino;Pro=TO;Pat=P1;RilDa=MCTC;ScaPat=31/12/2028;"
    "Mar=Lancia;Mod=Aprilia;Ann=1955;Cil=1486;Tar=TO 12345;Omo=A1;Com=SAI;Pol=99;ScaPol=30/02/2026;"
    "CogNav=Bianchi;NomNav=Anna;SesNav=F;Not=nota;Esc=1;MotEsc=ritiro");

QVariantMap riga(int idEqu) {
    Statement lettura("SELECT * FROM Equipaggi WHERE IDEqu=?");
    lettura.esegui({idEqu}).prossima();
    QVariantMap valori;
    for (const ColonnaEquipaggio& colonna : colonneEquipaggio())
        valori[colonna.nome] = lettura.valore(QString(colonna.nome));
    return valori;
}

// What a killed process was doing: storing a crew on the archive of the test that started it.
int figlio() {
    PercorsoApp = qEnvironmentVariable(CartellaFiglio);
    IDMan = qEnvironmentVariableIntValue(EventoFiglio);
    ApriDataBase();
    leggiValore("PRAGMA cache_size=1");  // half-done pages go to the file
    inserisciEquipaggio({{"Num", "1"}, {"Not", QString(2'000'000, 'x')}});
    return 0;
}

}  // namespace

void tst_Equipaggi::soloNumero() {
    nuovaManifestazione();
    nuovaProva();
    nuovaManifestazione();
    nuovaProva();
    nuovaProva({{"Tip", "CO"}, {"Svo", 0}});
    const int id = inserisciEquipaggio({{"Num", "7"}, {"Esc", "0"}, {"DatNas", "//"}, {"Cog", ""}});
    QVariantMap valori = riga(id);
    QCOMPARE(valori.take("Num").toInt(), 7);
    for (const char* zero : {"IDGru_FK", "IDSqu_FK", "Esc"}) {
        const QVariant valore = valori.take(zero);
        QVERIFY2(!valore.isNull() && valore.toInt() == 0, zero);
    }
    for (auto valore = valori.cbegin(); valore != valori.cend(); ++valore)
        QVERIFY2(valore->isNull(), qPrintable(valore.key()));
    QCOMPARE(contaRighe("Rilevamenti"), 2);
    QCOMPARE(contaRighe("Rilevamenti JOIN Prove ON IDPro=IDPro_FK",
                        QString("IDEqu_FK=%1 AND IDMan_FK=%2 AND TPar='' AND TArr=''").arg(id).arg(IDMan)),
             2);
}

void tst_Equipaggi::riscrittura() {
    nuovaManifestazione();
    const int id = inserisciEquipaggio(Completa);
    SchedaEquipaggio testi = leggiEquipaggio(id);
    SchedaEquipaggio scritti = Completa;
    scritti.insert(scheda("Tel=333;Cel=;DatNas=01/02/1950;ScaPol="));
    QCOMPARE(testi, scritti);
    QCOMPARE(contaRighe("Equipaggi",
                        "Cel IS NULL AND DatNas='1950-02-01' AND ScaPol IS NULL AND typeof(Ann)='integer'"),
             1);
    // A form with fewer controls leaves the rest of the crew as it is.
    QVariantMap attesi = riga(id);
    aggiornaEquipaggio(id, {{"Num", "14"}, {"Cel", "347"}});
    attesi["Num"] = 14;
    attesi["Cel"] = "347";
    QCOMPARE(riga(id), attesi);
    for (QString& testo : testi)
        testo.clear();
    testi["Num"] = "13";
    aggiornaEquipaggio(id, testi);
    const QVariantMap valori = riga(id);
    for (const ColonnaEquipaggio& colonna : colonneEquipaggio()) {
        const QVariant valore = valori[colonna.nome];
        if (colonna.tipo == TipoDato::Testo)
            QVERIFY2(!valore.isNull() && valore.toString().isEmpty(), colonna.nome);
        else if (colonna.tipo == TipoDato::Data || colonna.tipo == TipoDato::Cifre)
            QVERIFY2(valore.isNull(), colonna.nome);
    }
    QCOMPARE(valori["Num"].toInt(), 13);
    QCOMPARE(valori["Ses"].toString() + valori["SesNav"].toString(), QString("MF"));
    QVERIFY_EXCEPTION_THROWN(aggiornaEquipaggio(id + 1, testi), ErroreArchivio);
    QVERIFY_EXCEPTION_THROWN(leggiEquipaggio(id + 1), ErroreArchivio);
}

void tst_Equipaggi::uccisoAMeta() {
    const int man = nuovaManifestazione();
    nuovaProva();
    // Between the crew and its readings the child gets stuck in a count that never ends.
    esegui(
        "CREATE TRIGGER lento BEFORE INSERT ON Rilevamenti BEGIN SELECT count(*) FROM sqlite_master a,"
        "sqlite_master b,sqlite_master c,sqlite_master d,sqlite_master e,sqlite_master f,sqlite_master g,"
        "sqlite_master h; END");
    QProcess processo;
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(CartellaFiglio, PercorsoApp);
    ambiente.insert(EventoFiglio, QString::number(man));
    processo.setProcessEnvironment(ambiente);
    processo.start(QCoreApplication::applicationFilePath(), QStringList());
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(percorsoArchivio() + "-journal").size() > 0, 60000);
    processo.kill();
    QVERIFY(processo.waitForFinished());
    QCOMPARE(processo.exitStatus(), QProcess::CrashExit);

    ChiudiDataBase();
    PreparaArchivio();
    ApriDataBase();
    QCOMPARE(contaRighe("Equipaggi"), 0);
    QCOMPARE(contaRighe("Rilevamenti"), 0);
    esegui("DROP TRIGGER lento");
    inserisciEquipaggio(Completa);
    QCOMPARE(contaRighe("Rilevamenti"), 1);
}

int main(int argc, char** argv) {
    const QCoreApplication applicazione(argc, argv);
    if (qEnvironmentVariableIsSet(CartellaFiglio))
        return figlio();
    tst_Equipaggi prova;
    return QTest::qExec(&prova, argc, argv);
}

#include "tst_Equipaggi.moc"

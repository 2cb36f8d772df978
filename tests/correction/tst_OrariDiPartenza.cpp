#include "correction/ElencoOrari.h"
#include "correction/frmGestioneOrariDiPartenza.h"
#include "correction/frmRipartenza.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace {

const QString NonGenerati = "Impossibile Generare gli Orari";

template <typename Controllo>
Controllo* trova(QWidget& finestra, const char* nome) {
    auto* controllo = finestra.findChild<Controllo*>(nome);
    Q_ASSERT(controllo);
    return controllo;
}

void premi(QWidget& finestra, const char* nome) {
    QTest::mouseClick(trova<QPushButton>(finestra, nome), Qt::LeftButton);
}

void scrivi(QWidget& finestra, const char* nome, const QString& testo) {
    auto* campo = trova<QLineEdit>(finestra, nome);
    campo->setFocus();
    campo->clear();
    QTest::keyClicks(campo, testo);
}

void compila(QWidget& finestra, const QString& ora, const QString& intervallo, const QString& primo = {}) {
    scrivi(finestra, "txtTem", ora);
    scrivi(finestra, "txtIntervalloPartenze", intervallo);
    scrivi(finestra, "txtPrimoNumero", primo);
}

// The list as "number time".
QStringList orari(QWidget& finestra) {
    QStringList righe;
    for (const OrarioPartenza& orario : trova<ElencoOrari>(finestra, "lstOrari")->orari())
        righe << QString::number(orario.num) + ' ' + orario.ora;
    return righe;
}

bool apri(QWidget& finestra) {
    finestra.show();
    return QTest::qWaitForWindowActive(&finestra);
}

}  // namespace

class tst_OrariDiPartenza final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void generazione_data();
    void generazione();
    void rifiuti_data();
    void rifiuti();
    void oraNonValidaTieneIlFuoco();
    void salvataggioSoloCOLiberi();
    void ripartenza();
    void scritturaFallita();
    void chiusura();

private:
    QString partenza(int equipaggio, int prova) {
        return leggiValore("SELECT TPar FROM Rilevamenti WHERE IDEqu_FK=? AND IDPro_FK=?",
                           {m_equipaggi[equipaggio], m_prove[prova]})
            ->toString();
    }

    std::unique_ptr<ProgrammaDiProva> m_programma;
    QList<int> m_prove;      // CO, PA, CO chained, CO
    QList<int> m_equipaggi;  // 3, 12, 40
};

void tst_OrariDiPartenza::init() {
    m_programma = std::make_unique<ProgrammaDiProva>();
    nuovaManifestazione();
    m_prove = {nuovaProva({{"Nom", "CO 1"}, {"Tip", "CO"}}), nuovaProva({{"Nom", "PA 1"}})};
    m_prove << nuovaProva({{"Nom", "CO 2"}, {"Tip", "CO"}, {"ConA", m_prove[0]}});
    m_prove << nuovaProva({{"Nom", "CO 3"}, {"Tip", "CO"}});
    m_equipaggi = {nuovoEquipaggio(3), nuovoEquipaggio(12, {{"Esc", 1}}), nuovoEquipaggio(40)};
}

void tst_OrariDiPartenza::cleanup() {
    QVERIFY(m_programma->dialoghi.finite());
    m_programma.reset();
}

void tst_OrariDiPartenza::generazione_data() {
    QTest::addColumn<QStringList>("campi");
    QTest::addColumn<QStringList>("attesi");
    QTest::newRow("all, the excluded crew too")
        << QStringList{"100000", "60", ""}
        << QStringList{"3 10:00:00.00", "12 10:01:00.00", "40 10:02:00.00"};
    QTest::newRow("from a number on")
        << QStringList{"100000", "60", "12"} << QStringList{"12 10:00:00.00", "40 10:01:00.00"};
    QTest::newRow("past midnight") << QStringList{"235930", "45", ""}
                                   << QStringList{"3 23:59:30.00", "12 00:00:15.00", "40 00:01:00.00"};
    QTest::newRow("no interval between") << QStringList{"093000", "0", "40"} << QStringList{"40 09:30:00.00"};
}

void tst_OrariDiPartenza::generazione() {
    QFETCH(QStringList, campi);
    QFETCH(QStringList, attesi);
    frmGestioneOrariDiPartenza finestra;
    QVERIFY(apri(finestra));
    compila(finestra, campi[0], campi[1], campi[2]);
    for (int volte = 0; volte < 2; ++volte) {
        premi(finestra, "cmdGenera");
        QCOMPARE(orari(finestra), attesi);
    }
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>''"), 0);
}

void tst_OrariDiPartenza::rifiuti_data() {
    QTest::addColumn<QStringList>("campi");
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QString>("fuoco");
    QTest::newRow("time") << QStringList{"", "", ""} << "Inserire l'Orario del Primo Veicolo"
                          << "txtTem";
    QTest::newRow("interval") << QStringList{"100000", " ", ""} << "Inserire l'Intervallo tra le Partenze"
                              << "txtIntervalloPartenze";
    for (const char* intervallo : {"1,5", "abc", "-60"})
        QTest::newRow(intervallo) << QStringList{"100000", intervallo, ""} << "Intervallo NON Valido"
                                  << "txtIntervalloPartenze";
    for (const char* numero : {"13", "99999999999999999999"})
        QTest::newRow(numero) << QStringList{"100000", "60", numero}
                              << "Il Numero dell'Equipaggio da Cui Iniziare NON Esiste"
                              << "txtPrimoNumero";
}

void tst_OrariDiPartenza::rifiuti() {
    QFETCH(QStringList, campi);
    QFETCH(QString, testo);
    QFETCH(QString, fuoco);
    frmGestioneOrariDiPartenza finestra;
    QVERIFY(apri(finestra));
    compila(finestra, "080000", "30");
    premi(finestra, "cmdGenera");
    const QStringList prima = orari(finestra);

    compila(finestra, campi[0], campi[1], campi[2]);
    m_programma->dialoghi.attendiMessaggio(NonGenerati, testo);
    premi(finestra, "cmdGenera");
    QVERIFY(m_programma->dialoghi.finite());
    QCOMPARE(QApplication::focusWidget()->objectName(), fuoco);
    QCOMPARE(orari(finestra), prima);
    m_programma->dialoghi.attendiDomanda("Conferma Uscita", "Uscire Senza Salvare ?", true);
    finestra.close();
}

void tst_OrariDiPartenza::oraNonValidaTieneIlFuoco() {
    frmGestioneOrariDiPartenza finestra;
    QVERIFY(apri(finestra));
    auto* txtTem = trova<QLineEdit>(finestra, "txtTem");
    scrivi(finestra, "txtTem", "257000");
    QTest::keyClick(txtTem, Qt::Key_Return);
    QTRY_VERIFY(txtTem->hasFocus());
    scrivi(finestra, "txtIntervalloPartenze", "60");
    premi(finestra, "cmdGenera");
    QCOMPARE(orari(finestra), QStringList());
    scrivi(finestra, "txtTem", "100000");
    QTest::keyClick(txtTem, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(QApplication::focusWidget()->objectName(), QString("txtIntervalloPartenze"));
}

void tst_OrariDiPartenza::salvataggioSoloCOLiberi() {
    scriviRilevamento(m_equipaggi[0], m_prove[0], "07:00:00:00", "09:00:00:00");
    frmGestioneOrariDiPartenza finestra;
    QVERIFY(apri(finestra));
    m_programma->dialoghi.attendiMessaggio("Impossibile Salvare", "Orari di Partenza NON Ancora Generati");
    premi(finestra, "cmdSalva");

    compila(finestra, "100000", "60", "12");
    premi(finestra, "cmdGenera");
    m_programma->dialoghi.attendiAvviso("Orari di Partenza Salvati");
    premi(finestra, "cmdSalva");
    QVERIFY(m_programma->dialoghi.finite());
    QCOMPARE(orari(finestra), QStringList());

    QCOMPARE(partenza(0, 0), QString("07:00:00:00"));  // below the first number
    QCOMPARE(partenza(1, 0), QString("10:00:00:00"));
    QCOMPARE(partenza(1, 3), QString("10:00:00:00"));
    QCOMPARE(partenza(2, 0), QString("10:01:00:00"));
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>''"), 1 + 4);  // no PA, no chained CO
    QCOMPARE(contaRighe("Rilevamenti", "TArr<>''"), 1);
    QVERIFY(finestra.close());
}

void tst_OrariDiPartenza::ripartenza() {
    frmRipartenza finestra;
    QVERIFY(apri(finestra));
    auto* lstPro = trova<QTreeWidget>(finestra, "lstPro");
    QCOMPARE(lstPro->topLevelItemCount(), 3);
    compila(finestra, "100000", "60");
    m_programma->dialoghi.attendiMessaggio(NonGenerati,
                                           "Selezionare il Primo CO Influenzato dalla Ripartenza");
    premi(finestra, "cmdGenera");

    QTest::mouseClick(lstPro->viewport(), Qt::LeftButton, {},
                      lstPro->visualItemRect(lstPro->topLevelItem(1)).center());
    premi(finestra, "cmdGenera");
    m_programma->dialoghi.attendiAvviso("Ripartenza Creata");
    premi(finestra, "cmdSalva");
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>''"),
             3);  // the CO before keeps its start, the chained one has none
    QCOMPARE(partenza(2, 3), QString("10:02:00:00"));
}

void tst_OrariDiPartenza::scritturaFallita() {
    frmGestioneOrariDiPartenza finestra;
    QVERIFY(apri(finestra));
    compila(finestra, "100000", "60");
    premi(finestra, "cmdGenera");
    esegui("CREATE TRIGGER rifiuta BEFORE UPDATE ON Rilevamenti WHEN new.IDEqu_FK=" +
           QString::number(m_equipaggi[2]) + " BEGIN SELECT RAISE(ABORT,'disco pieno'); END");
    m_programma->dialoghi.attendiMessaggio({}, {}, Icona::Stop);
    premi(finestra, "cmdSalva");
    QVERIFY(m_programma->dialoghi.finite());
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>''"), 0);
    QCOMPARE(orari(finestra).size(), 3);  // still to be saved
    m_programma->dialoghi.attendiDomanda("Conferma Uscita", {}, true);
    finestra.close();
}

void tst_OrariDiPartenza::chiusura() {
    frmRipartenza finestra;
    QVERIFY(apri(finestra));
    trova<QTreeWidget>(finestra, "lstPro")->topLevelItem(0)->setSelected(true);
    compila(finestra, "100000", "60");
    premi(finestra, "cmdGenera");
    m_programma->dialoghi.attendiDomanda("Conferma Uscita", "Uscire Senza Salvare ?", false);
    premi(finestra, "cmdEsci");
    QVERIFY(finestra.isVisible());
    m_programma->dialoghi.attendiDomanda("Conferma Uscita", "Uscire Senza Salvare ?", true);
    QTest::keyClick(&finestra, Qt::Key_Escape);
    QVERIFY(!finestra.isVisible());
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>''"), 0);
}

PROVA_FINESTRE(tst_OrariDiPartenza)
#include "tst_OrariDiPartenza.moc"

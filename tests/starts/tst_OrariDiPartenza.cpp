#include "starts/ElencoOrari.h"
#include "starts/frmGestioneOrariDiPartenza.h"
#include "starts/frmRipartenza.h"
#include "supporto/BancoRilevamenti.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QLineEdit>
#include <QTreeWidget>

namespace {

void genera(QWidget& finestra, const QStringList& campi) {
    const char* nomi[] = {"txtTem", "txtIntervalloPartenze", "txtPrimoNumero"};
    for (int i = 0; i < campi.size(); ++i) {
        auto* campo = finestra.findChild<QLineEdit*>(nomi[i]);
        campo->setFocus();
        campo->clear();
        QTest::keyClicks(campo, campi[i]);
    }
    premi(finestra, "cmdGenera");
}

// The list as "number time".
QStringList orari(QWidget& finestra) {
    QStringList righe;
    for (const OrarioPartenza& orario : finestra.findChild<ElencoOrari*>("lstOrari")->orari())
        righe << QString::number(orario.num) + ' ' + orario.ora;
    return righe;
}

}  // namespace

class tst_OrariDiPartenza final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void generazione_data();
    void generazione();
    void oraNonValida();
    void salvataggioSoloCOLiberi();
    void ripartenza();
    void scritturaFallitaEChiusura();

private:
    void attendiUscita(bool si) {
        m_programma->dialoghi.attendiDomanda("Conferma Uscita", "Uscire Senza Salvare ?", si);
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
    QTest::addColumn<QString>("rifiuto");
    QTest::addColumn<QString>("fuoco");
    const auto lista = [](const char* nome, const QStringList& campi, const QStringList& attesi) {
        QTest::newRow(nome) << campi << attesi << QString() << QString();
    };
    lista("the excluded crew too", {"100000", "60", ""},
          {"3 10:00:00.00", "12 10:01:00.00", "40 10:02:00.00"});
    lista("from a number on", {"100000", "60", "12"}, {"12 10:00:00.00", "40 10:01:00.00"});
    lista("past midnight", {"235930", "45", ""}, {"3 23:59:30.00", "12 00:00:15.00", "40 00:01:00.00"});
    lista("no interval between", {"093000", "0", "40"}, {"40 09:30:00.00"});
    // Refused: the list stays as it was.
    const auto rifiuto = [](const QStringList& campi, const char* testo, const char* fuoco) {
        QTest::addRow("%s, %s", testo, qPrintable(campi.join('/')))
            << campi << QStringList{"40 08:00:00.00"} << testo << fuoco;
    };
    rifiuto({"", "", ""}, "Inserire l'Orario del Primo Veicolo", "txtTem");
    rifiuto({"100000", " ", ""}, "Inserire l'Intervallo tra le Partenze", "txtIntervalloPartenze");
    for (const char* intervallo : {"1,5", "abc", "-60"})
        rifiuto({"100000", intervallo, ""}, "Intervallo NON Valido", "txtIntervalloPartenze");
    for (const char* numero : {"13", "99999999999999999999"})
        rifiuto({"100000", "60", numero}, "Il Numero dell'Equipaggio da Cui Iniziare NON Esiste",
                "txtPrimoNumero");
}

void tst_OrariDiPartenza::generazione() {
    QFETCH(QStringList, campi);
    QFETCH(QStringList, attesi);
    QFETCH(QString, rifiuto);
    QFETCH(QString, fuoco);
    frmGestioneOrariDiPartenza finestra;
    mostra(finestra);
    genera(finestra, {"080000", "30", "40"});
    if (!rifiuto.isEmpty())
        m_programma->dialoghi.attendiMessaggio("Impossibile Generare gli Orari", rifiuto);
    genera(finestra, campi);
    QVERIFY(m_programma->dialoghi.finite());
    QCOMPARE(orari(finestra), attesi);
    if (!fuoco.isEmpty()) {
        auto* campo = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        QCOMPARE(campo->objectName(), fuoco);
        QCOMPARE(campo->selectedText(), campo->displayText());
    }
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>''"), 0);
    attendiUscita(true);
    finestra.close();
}

// Its field is not left.
void tst_OrariDiPartenza::oraNonValida() {
    frmGestioneOrariDiPartenza finestra;
    mostra(finestra);
    genera(finestra, {"257000"});
    QTRY_COMPARE(QApplication::focusWidget()->objectName(), QString("txtTem"));
    genera(finestra, {"257000", "60"});
    QCOMPARE(orari(finestra), QStringList());
}

void tst_OrariDiPartenza::salvataggioSoloCOLiberi() {
    scriviRilevamento(m_equipaggi[0], m_prove[0], "07:00:00:00", "09:00:00:00");
    frmGestioneOrariDiPartenza finestra;
    mostra(finestra);
    m_programma->dialoghi.attendiMessaggio("Impossibile Salvare", "Orari di Partenza NON Ancora Generati");
    premi(finestra, "cmdSalva");
    genera(finestra, {"100000", "60", "12"});
    m_programma->dialoghi.attendiAvviso("Orari di Partenza Salvati");
    premi(finestra, "cmdSalva");
    QCOMPARE(orari(finestra), QStringList());
    // No PA, no chained CO, nothing below the first number.
    QCOMPARE(tempiDi(m_equipaggi[0]), QStringList({"07:00:00:00>09:00:00:00", ">", ">", ">"}));
    QCOMPARE(tempiDi(m_equipaggi[1]), QStringList({"10:00:00:00>", ">", ">", "10:00:00:00>"}));
    QCOMPARE(tempiDi(m_equipaggi[2]), QStringList({"10:01:00:00>", ">", ">", "10:01:00:00>"}));
    QVERIFY(finestra.close());
}

void tst_OrariDiPartenza::ripartenza() {
    frmRipartenza finestra;
    mostra(finestra);
    m_programma->dialoghi.attendiMessaggio("Impossibile Generare gli Orari",
                                           "Selezionare il Primo CO Influenzato dalla Ripartenza");
    genera(finestra, {"100000", "60"});
    auto* lstPro = finestra.findChild<QTreeWidget*>("lstPro");
    QCOMPARE(lstPro->topLevelItemCount(), 3);
    // The first arrow chooses the first row.
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(QApplication::focusWidget(), lstPro);
        tasto(Qt::Key_Down);
        QCOMPARE(lstPro->selectedItems(), QList{lstPro->topLevelItem(i)});
    }
    premi(finestra, "cmdGenera");
    m_programma->dialoghi.attendiAvviso("Ripartenza Creata");
    premi(finestra, "cmdSalva");
    // The CO before keeps its start, the chained one has none.
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>''"), 3);
    QCOMPARE(tempiDi(m_equipaggi[2]), QStringList({">", ">", ">", "10:02:00:00>"}));
}

void tst_OrariDiPartenza::scritturaFallitaEChiusura() {
    frmGestioneOrariDiPartenza finestra;
    mostra(finestra);
    genera(finestra, {"100000", "60"});
    esegui("CREATE TRIGGER rifiuta BEFORE UPDATE ON Rilevamenti WHEN new.IDEqu_FK=" +
           QString::number(m_equipaggi[2]) + " BEGIN SELECT RAISE(ABORT,'disco pieno'); END");
    m_programma->dialoghi.attendiMessaggio({}, {}, Icona::Stop);
    premi(finestra, "cmdSalva");
    QCOMPARE(orari(finestra).size(), 3);  // still to be saved
    attendiUscita(false);
    premi(finestra, "cmdEsci");
    QVERIFY(finestra.isVisible());
    attendiUscita(true);
    QTest::keyClick(&finestra, Qt::Key_Escape);
    QVERIFY(!finestra.isVisible());
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>''"), 0);
}

PROVA_FINESTRE(tst_OrariDiPartenza)
#include "tst_OrariDiPartenza.moc"

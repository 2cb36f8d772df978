#include "starts/ElencoOrari.h"
#include "starts/frmGestioneOrariDiPartenza.h"
#include "starts/frmRipartenza.h"
#include "supporto/BancoRilevamenti.h"

namespace {

void genera(QWidget& finestra, const QStringList& campi) {
    const char* nomi[] = {"txtTem", "txtIntervalloPartenze", "txtPrimoNumero"};
    for (int i = 0; i < campi.size(); ++i) {
        controllo(finestra, nomi[i])->clear();
        scrivi(finestra, nomi[i], campi[i]);
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

class tst_OrariDiPartenza final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void generazione();
    void oraNonValida();
    void salvataggioSoloCOLiberi();
    void ripartenza();
    void scritturaFallitaEChiusura();

private:
    void attendiUscita(bool si) {
        dialoghi().attendiDomanda("Conferma Uscita", "Uscire Senza Salvare ?", si);
    }

    void prepara() override;

    QList<int> m_prove;      // CO, PA, CO chained, CO
    QList<int> m_equipaggi;  // 3, 12, 40
};

void tst_OrariDiPartenza::prepara() {
    nuovaManifestazione();
    m_prove = {nuovaProva({{"Nom", "CO 1"}, {"Tip", "CO"}}), nuovaProva({{"Nom", "PA 1"}})};
    m_prove << nuovaProva({{"Nom", "CO 2"}, {"Tip", "CO"}, {"ConA", m_prove[0]}});
    m_prove << nuovaProva({{"Nom", "CO 3"}, {"Tip", "CO"}});
    m_equipaggi = {nuovoEquipaggio(3), nuovoEquipaggio(12, {{"Esc", 1}}), nuovoEquipaggio(40)};
}

// What is typed, the list that it makes; or why it is refused, and where the operator stands then: the list
// stays as it was.
void tst_OrariDiPartenza::generazione() {
    const struct {
        QStringList campi, attesi;
        const char *rifiuto = "", *fuoco = "";
    } casi[] = {{{"100000", "60", ""},
                 {"3 10:00:00.00", "12 10:01:00.00", "40 10:02:00.00"}},  // the excluded one too
                {{"235930", "45", "12"}, {"12 23:59:30.00", "40 00:00:15.00"}},
                {{"", "", ""}, {}, "Inserire l'Orario del Primo Veicolo", "txtTem"},
                {{"100000", " ", ""}, {}, "Inserire l'Intervallo tra le Partenze", "txtIntervalloPartenze"},
                {{"100000", "1,5", ""}, {}, "Intervallo NON Valido", "txtIntervalloPartenze"},
                {{"100000", "-60", ""}, {}, "Intervallo NON Valido", "txtIntervalloPartenze"},
                {{"100000", "60", "99999999999999999999"},
                 {},
                 "Il Numero dell'Equipaggio da Cui Iniziare NON Esiste",
                 "txtPrimoNumero"}};
    frmGestioneOrariDiPartenza finestra;
    mostra(finestra);
    for (const auto& [campi, attesi, rifiuto, nome] : casi) {
        const QStringList prima = orari(finestra);
        if (*rifiuto)
            dialoghi().attendiMessaggio("Impossibile Generare gli Orari", rifiuto);
        genera(finestra, campi);
        QVERIFY2(dialoghi().finite(), rifiuto);
        QCOMPARE(orari(finestra), *rifiuto ? prima : attesi);
        if (*rifiuto) {
            const auto* campo = controllo(finestra, nome);
            QVERIFY2(campo->hasFocus() && campo->selectedText() == campo->displayText(), rifiuto);
        }
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
    QTRY_COMPARE(fuoco(), QString("txtTem"));
    genera(finestra, {"257000", "60"});
    QCOMPARE(orari(finestra), QStringList());
}

void tst_OrariDiPartenza::salvataggioSoloCOLiberi() {
    scriviRilevamento(m_equipaggi[0], m_prove[0], "07:00:00:00", "09:00:00:00");
    frmGestioneOrariDiPartenza finestra;
    mostra(finestra);
    dialoghi().attendiMessaggio("Impossibile Salvare", "Orari di Partenza NON Ancora Generati");
    premi(finestra, "cmdSalva");
    genera(finestra, {"100000", "60", "12"});
    dialoghi().attendiAvviso("Orari di Partenza Salvati");
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
    dialoghi().attendiMessaggio("Impossibile Generare gli Orari",
                                "Selezionare il Primo CO Influenzato dalla Ripartenza");
    genera(finestra, {"100000", "60"});
    auto* lstPro = finestra.findChild<QTreeWidget*>("lstPro");
    QCOMPARE(lstPro->topLevelItemCount(), 3);
    QVERIFY(lstPro->hasFocus());
    for (int i = 0; i < 2; ++i)
        tasto(Qt::Key_Down);
    premi(finestra, "cmdGenera");
    dialoghi().attendiAvviso("Ripartenza Creata");
    premi(finestra, "cmdSalva");
    // The CO before keeps its start, the chained one has none.
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>''"), 3);
    QCOMPARE(tempiDi(m_equipaggi[2]), QStringList({">", ">", ">", "10:02:00:00>"}));
}

void tst_OrariDiPartenza::scritturaFallitaEChiusura() {
    frmGestioneOrariDiPartenza finestra;
    mostra(finestra);
    genera(finestra, {"100000", "60"});
    guasta(QString("UPDATE ON Rilevamenti WHEN new.IDEqu_FK=%1").arg(m_equipaggi[2]));
    dialoghi().attendiMessaggio({}, {}, Icona::Stop);
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

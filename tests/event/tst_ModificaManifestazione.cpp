#include "event/Elenco.h"
#include "event/frmCambiaManifestazione.h"
#include "event/frmModificaGruppo.h"
#include "event/frmModificaManifestazione.h"
#include "event/frmModificaProva.h"
#include "event/frmModificaSquadra.h"
#include "event/frmProveSvolte.h"
#include "event/frmUtilityPMI.h"
#include "event/Guida.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>

namespace {

void mostra(QWidget* finestra) {
    finestra->show();
    QVERIFY(QTest::qWaitForWindowActive(finestra));
}

// Opens a child by a gesture and runs the steps on it; whatever is left open is closed.
template <typename Figlia, typename Gesto, typename Passi>
void nellaFiglia(Gesto gesto, Passi passi) {
    bool aperta = false;
    QTimer::singleShot(0, qApp, [&] {
        auto* figlia = qobject_cast<Figlia*>(QApplication::activeModalWidget());
        aperta = figlia != nullptr;
        if (!aperta)
            return;
        passi(figlia);
        if (figlia->isVisible())
            figlia->done(QDialog::Rejected);
    });
    gesto();
    QVERIFY(aperta);
}

void doppioClic(Elenco* elenco, int riga) {
    const QPoint dove = riga < 0 ? elenco->viewport()->rect().bottomRight() - QPoint(4, 4)
                                 : elenco->visualItemRect(elenco->topLevelItem(riga)).center();
    QTest::mouseClick(elenco->viewport(), Qt::LeftButton, {}, dove);
    QTest::mouseDClick(elenco->viewport(), Qt::LeftButton, {}, dove);
}

int conA(int idPro) {
    return leggiValore("SELECT ConA FROM Prove WHERE IDPro=?", {idPro})->toInt();
}

}  // namespace

class tst_ModificaManifestazione final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void caricaESalva();
    void annulla();
    void senzaNome();
    void elenchiEFiglie();
    void raggruppamentoAutomatico();
    void gruppo();
    void gruppiASI();
    void squadra();
    void prova();
    void provaAllaPartenza();
    void cambia();
    void cambiaSenzaManifestazioni();
    void proveSvolte();
    void calcolatrice();
};

void tst_ModificaManifestazione::caricaESalva() {
    ProgrammaDiProva programma;
    const int id = nuovaManifestazione({{"ASIeNONASI", 1},
                                        {"PrePANoASI", "DEC"},
                                        {"PenUniPANoASI", 9},
                                        {"PenMaxAtt", 1},
                                        {"PenMax", 300},
                                        {"PenMaxNoASI", 600},
                                        {"FatNoASI", 1},
                                        {"NumFatNoASI", 2.5},
                                        {"PenProNonSvo", 1},
                                        {"NumPenProNonSvo", 750},
                                        {"DatVer", QVariant()},
                                        {"PrePM", "ORA"},
                                        {"RagAuto", QVariant()}});
    const int primo = nuovaProva({{"Tip", "CO"}});
    const int secondo = nuovaProva({{"Tip", "CO"}, {"ConA", primo}});
    frmModificaManifestazione finestra;
    const QSignalSpy modificata(&finestra, &frmModificaManifestazione::manifestazioneModificata);
    mostra(&finestra);
    QCOMPARE(finestra.windowTitle(), QString("Modifica Manifestazione"));
    const QMap<QString, QString> testi{{"txtNom", "Coppa delle Colline"},
                                       {"DaDat", "13/06/2026"},
                                       {"DatVer", "//"},
                                       {"txtMaxPen", "300"},
                                       {"txtMaxPenNoASI", "600"},
                                       {"txtNumFatNoASI", "2,5"},
                                       {"txtPenProNonSvo", "750"},
                                       {"txtPenUniPANoASI", "9"}};
    for (auto testo = testi.cbegin(); testo != testi.cend(); ++testo)
        QCOMPARE(controllo(&finestra, testo.key())->text(), testo.value());
    QCOMPARE(controllo<QComboBox>(&finestra, "cboPrePA")->currentText(), QString("CENTESIMO"));
    QCOMPARE(controllo<QComboBox>(&finestra, "cboPrePM")->currentIndex(), -1);
    QVERIFY(controllo(&finestra, "txtMaxPenNoASI")->isVisible());
    QCOMPARE(controllo<QLabel>(&finestra, "lblPenUniCO")->text(),
             QString("Penalità per Ogni MINUTO nei C.O. : "));

    scrivi(&finestra, "txtNom", "Coppa Nuova");
    for (const char* combo : {"cboMaxPen", "cboPenProNonSvo", "cboFatNoASI"})
        controllo<QComboBox>(&finestra, combo)->setCurrentText("NO");
    controllo<QCheckBox>(&finestra, "chkOpzASI_NONASI")->click();
    controllo<QComboBox>(&finestra, "cboPrePM")->setCurrentText("DECIMO");
    controllo<QRadioButton>(&finestra, "optCOPar")->click();
    QCOMPARE(conA(secondo), primo);
    programma.dialoghi.attendiAvviso("Manifestazione Modificata");
    premi(&finestra, "cmdSalva");
    QVERIFY(programma.dialoghi.finite());
    QVERIFY(!finestra.isVisible());
    QCOMPARE(contaRighe("Manifestazioni",
                        QString("IDMan=%1 AND Nom='Coppa Nuova' AND PenMaxAtt=0 AND PenMax=0 AND "
                                "PenProNonSvo=0 AND NumPenProNonSvo=0 AND FatNoASI=0 AND NumFatNoASI=0 AND "
                                "ASIeNONASI=0 AND PrePANoASI='DEC' AND PenUniPANoASI=9 AND PenMaxNoASI=600 "
                                "AND PrePM='DEC' AND TipoCO='PAR' AND DatVer IS NULL AND RagAuto=0")
                            .arg(id)),
             1);
    QCOMPARE(conA(secondo), 0);
    QCOMPARE(modificata.size(), 1);
    QCOMPARE(modificata[0][0].toString(), QString("Coppa Nuova"));
}

void tst_ModificaManifestazione::annulla() {
    const ProgrammaDiProva programma;
    nuovaManifestazione();
    const int primo = nuovaProva({{"Tip", "CO"}});
    const int secondo = nuovaProva({{"Tip", "CO"}, {"ConA", primo}});
    frmModificaManifestazione finestra;
    mostra(&finestra);
    scrivi(&finestra, "txtNom", "Altro");
    controllo<QRadioButton>(&finestra, "optCOPar")->click();
    premi(&finestra, "cmdAnnulla");
    QVERIFY(!finestra.isVisible());
    QCOMPARE(conA(secondo), primo);
    QCOMPARE(contaRighe("Manifestazioni", "Nom='Coppa delle Colline' AND TipoCO='CON'"), 1);
}

void tst_ModificaManifestazione::senzaNome() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    frmModificaManifestazione finestra;
    mostra(&finestra);
    controllo(&finestra, "txtNom")->clear();
    scrivi(&finestra, "ADat", "40/01/2026");
    premi(&finestra, "cmdSalva");  // the date holds it
    QVERIFY(finestra.isVisible());
    scrivi(&finestra, "ADat", "20/06/2026");
    programma.dialoghi.attendiAvviso("Manifestazione Modificata");
    premi(&finestra, "cmdSalva");
    QCOMPARE(contaRighe("Manifestazioni", "Nom='' AND ADat='20/06/2026'"), 1);
    QVERIFY(programma.dialoghi.finite());
}

void tst_ModificaManifestazione::elenchiEFiglie() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const int prima = nuovaProva({{"Nom", "Uno"}});
    nuovaProva({{"Nom", "Due"}, {"ConA", prima}});
    const int gruppo = inserisciRiga("Raggruppamenti", {{"IDMan_FK", IDMan}, {"Nom", "A"}, {"Fat", 1.5}});
    frmModificaManifestazione finestra;
    mostra(&finestra);
    auto* prove = controllo<Elenco>(&finestra, "lstProve");
    QCOMPARE(prove->topLevelItem(0)->text(0), QString::number(prima));
    QCOMPARE(prove->topLevelItem(0)->text(6), QString("NO"));
    QCOMPARE(prove->topLevelItem(1)->text(6), QString("SI"));
    auto* gruppi = controllo<Elenco>(&finestra, "lstRag");
    QCOMPARE(gruppi->topLevelItem(0)->text(1), QString("1,5"));
    QCOMPARE(gruppi->topLevelItem(0)->text(2), QString());

    nellaFiglia<frmModificaGruppo>([&] { doppioClic(gruppi, 0); },
                                   [&](QDialog* figlia) {
                                       QCOMPARE(controllo<QLabel>(figlia, "lblIDRag")->text(),
                                                QString::number(gruppo));
                                       QCOMPARE(controllo(figlia, "txtFat")->text(), QString("1,5"));
                                       QVERIFY(controllo<QPushButton>(figlia, "cmdMod")->isEnabled());
                                   });
    nellaFiglia<frmModificaGruppo>([&] { doppioClic(gruppi, -1); },
                                   [&](QDialog* figlia) {
                                       QCOMPARE(controllo<QLabel>(figlia, "lblIDRag")->text(), QString("0"));
                                       QVERIFY(!controllo<QPushButton>(figlia, "cmdMod")->isEnabled());
                                       QVERIFY(!controllo<QPushButton>(figlia, "cmdEli")->isEnabled());
                                   });
    // By keyboard: Enter opens the row, Ins adds; what the child wrote is in the list when it has closed.
    prove->setFocus();
    prove->scegli(1);
    nellaFiglia<frmModificaProva>(
        [&] { QTest::keyClick(prove, Qt::Key_Return); },
        [&](QDialog* figlia) { QCOMPARE(controllo(figlia, "txtNom")->text(), QString("Due")); });
    auto* squadre = controllo<Elenco>(&finestra, "lstSqu");
    programma.dialoghi.attendiAvviso("Squadra Aggiunta");
    nellaFiglia<frmModificaSquadra>([&] { QTest::keyClick(squadre, Qt::Key_Insert); },
                                    [&](QDialog* figlia) {
                                        scrivi(figlia, "txtNom", "Scuderia");
                                        premi(figlia, "cmdAgg");
                                    });
    QCOMPARE(squadre->topLevelItemCount(), 1);
    premi(&finestra, "cmdAnnulla");
    QCOMPARE(contaRighe("Squadre"), 1);
    QVERIFY(programma.dialoghi.finite());
}

void tst_ModificaManifestazione::raggruppamentoAutomatico() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    inserisciRiga("Raggruppamenti", {{"IDMan_FK", IDMan}, {"Nom", "A"}, {"Fat", 1}});
    frmModificaManifestazione finestra;
    mostra(&finestra);
    programma.dialoghi.attendiMessaggio("Impossibile Attivare l'Opzione",
                                        "Sono Stati Già Inseriti dei Raggruppamenti Senza Anni.\n"
                                        "Inserire Tutti gli Anni Mancanti e Quindi Atrivare l'Opzione");
    auto* spunta = controllo<QCheckBox>(&finestra, "chkRagAuto");
    spunta->click();
    QVERIFY(!spunta->isChecked());
    QVERIFY(programma.dialoghi.finite());
}

void tst_ModificaManifestazione::gruppo() {
    ProgrammaDiProva programma;
    nuovaManifestazione({{"RagAuto", 1}});
    const int equipaggio = nuovoEquipaggio(1, {{"Ann", 1938}});
    const auto gruppoDelloEquipaggio = [&] {
        return leggiValore("SELECT IDGru_FK FROM Equipaggi WHERE IDEqu=?", {equipaggio})->toInt();
    };
    frmModificaGruppo finestra;
    mostra(&finestra);
    programma.dialoghi.attendiMessaggio("Impossbile Aggiungere", "Inserire il Nome del Raggruppamento",
                                        Icona::Stop);
    premi(&finestra, "cmdAgg");
    scrivi(&finestra, "txtNom", "A");
    scrivi(&finestra, "txtFat", "1");
    programma.dialoghi.attendiMessaggio("Anni Mancanti", QString());
    premi(&finestra, "cmdAgg");
    scrivi(&finestra, "txtDaAnn", "1931");
    scrivi(&finestra, "txtAAnn", "1945");
    programma.dialoghi.attendiAvviso("Raggruppamento Aggiunto");
    premi(&finestra, "cmdAgg");
    QVERIFY(programma.dialoghi.finite());
    const int id = gruppoDelloEquipaggio();
    QVERIFY(id != 0);

    finestra.carica(id);
    mostra(&finestra);
    controllo(&finestra, "txtNom")->clear();
    programma.dialoghi.attendiMessaggio("Impossibile Aggiungere", "Inserire il Nome del Raggruppamento",
                                        Icona::Stop);
    premi(&finestra, "cmdMod");
    scrivi(&finestra, "txtNom", "B");
    scrivi(&finestra, "txtDaAnn", "1940");
    programma.dialoghi.attendiAvviso("Raggruppamento Modificato");
    premi(&finestra, "cmdMod");
    QCOMPARE(gruppoDelloEquipaggio(), 0);
    esegui("UPDATE Equipaggi SET IDGru_FK=?", {id});

    finestra.carica(id);
    mostra(&finestra);
    programma.dialoghi.attendiDomanda("Eliminare ?", "Eliminare il Raggruppamento ?", false);
    premi(&finestra, "cmdEli");
    QCOMPARE(contaRighe("Raggruppamenti"), 1);
    programma.dialoghi.attendiDomanda("Eliminare ?", "Eliminare il Raggruppamento ?", true);
    programma.dialoghi.attendiAvviso("Raggruppamento Eliminato");
    premi(&finestra, "cmdEli");
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(contaRighe("Raggruppamenti"), 0);
    QCOMPARE(gruppoDelloEquipaggio(), 0);
}

void tst_ModificaManifestazione::gruppiASI() {
    ProgrammaDiProva programma;
    nuovaManifestazione({{"RagAuto", 1}});
    nuovoEquipaggio(1, {{"Ann", 1970}});
    inserisciRiga("Raggruppamenti", {{"IDMan_FK", IDMan}, {"Nom", "Vecchio"}, {"Fat", 1}});
    frmModificaGruppo finestra;
    mostra(&finestra);
    const QString titolo = "Conferma Raggruppamenti Standard ASI";
    const QString testo =
        "Inserendo I Raggruppamenti Standard ASI\ni Raggruppamenti Già Inseriti Saranno Eliminati\n"
        "Confermare ?";
    programma.dialoghi.attendiDomanda(titolo, testo, false);
    premi(&finestra, "cmdRaggruppamentiASI");
    QCOMPARE(contaRighe("Raggruppamenti"), 1);
    programma.dialoghi.attendiDomanda(titolo, testo, true);
    programma.dialoghi.attendiAvviso("Raggruppamenti Modificati");
    premi(&finestra, "cmdRaggruppamentiASI");
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(contaRighe("Raggruppamenti"), 7);
    QCOMPARE(contaRighe("Equipaggi e JOIN Raggruppamenti g ON g.IDGru=e.IDGru_FK", "g.Nom='Modern'"), 1);
}

void tst_ModificaManifestazione::squadra() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const int id = inserisciRiga("Squadre", {{"IDMan_FK", IDMan}, {"Nom", "Uno"}});
    nuovoEquipaggio(1, {{"IDSqu_FK", id}});
    frmModificaSquadra finestra;
    mostra(&finestra);
    programma.dialoghi.attendiMessaggio("Impossbile Aggiungere", "Inserire il Nome della Squadra");
    premi(&finestra, "cmdAgg");
    finestra.carica(id);
    controllo(&finestra, "txtNom")->clear();
    programma.dialoghi.attendiMessaggio("Impossibile Aggiungere", "Inserire il Nome della Squadra");
    premi(&finestra, "cmdMod");
    scrivi(&finestra, "txtNom", "Due");
    programma.dialoghi.attendiAvviso("Squadra Modificata");
    premi(&finestra, "cmdMod");
    QCOMPARE(contaRighe("Squadre", "Nom='Due'"), 1);
    finestra.carica(id);
    mostra(&finestra);
    programma.dialoghi.attendiDomanda("Eliminare ?", "Eliminare la Squadra ?", true);
    programma.dialoghi.attendiAvviso("Squadra Eliminata");
    premi(&finestra, "cmdEli");
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(contaRighe("Squadre"), 0);
    QCOMPARE(contaRighe("Equipaggi", "IDSqu_FK=0"), 1);
}

void tst_ModificaManifestazione::prova() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    nuovoEquipaggio(1);
    nuovoEquipaggio(2);
    frmModificaProva finestra;
    mostra(&finestra);
    QVERIFY(!controllo<QPushButton>(&finestra, "cmdMod")->isEnabled());
    QCOMPARE(controllo(&finestra, "Dat")->text(), QString("13/06/2026"));
    const auto scegli = [&](const QString& combo, const QString& testo) {
        controllo<QComboBox>(&finestra, combo)->setCurrentText(testo);
    };
    programma.dialoghi.attendiMessaggio("Impossibile Aggiungere", "Inserire il Tempo Imposto della Prova",
                                        Icona::Stop);
    premi(&finestra, "cmdAgg");
    scegli("cboCon", "SI");
    scrivi(&finestra, "txtTem", "00:00:10");
    programma.dialoghi.attendiMessaggio("Impossibile Aggiungere",
                                        "La Prima Prova non può Essere\nConcatenata con la Precedente",
                                        Icona::Stop);
    premi(&finestra, "cmdAgg");
    scegli("cboCon", "NO");
    programma.dialoghi.attendiAvviso("Prova Aggiunta");
    premi(&finestra, "cmdAgg");
    QCOMPARE(contaRighe("Rilevamenti"), 2);
    const int prima = leggiValore("SELECT IDPro FROM Prove")->toInt();

    finestra.carica(0);
    mostra(&finestra);
    scegli("cboPro", "CO");
    scegli("cboCon", "SI");
    scrivi(&finestra, "txtTem", "01:00:00");
    programma.dialoghi.attendiMessaggio(
        "Impossibile Aggiungere", "Il Primo CO non può Essere\nConcatenato con il Precedente", Icona::Stop);
    premi(&finestra, "cmdAgg");
    scegli("cboPro", "PM");
    programma.dialoghi.attendiAvviso("Prova Aggiunta");
    premi(&finestra, "cmdAgg");
    const int seconda = leggiValore("SELECT max(IDPro) FROM Prove")->toInt();
    QCOMPARE(conA(seconda), prima);

    finestra.carica(seconda);
    mostra(&finestra);
    QCOMPARE(controllo<QComboBox>(&finestra, "cboCon")->currentText(), QString("SI"));
    scrivi(&finestra, "txtNom", "Collina");
    scegli("cboCon", "NO");
    programma.dialoghi.attendiAvviso("Prova Modificata");
    premi(&finestra, "cmdMod");
    QCOMPARE(contaRighe("Prove", "Nom='Collina' AND ConA=0 AND Tip='PM'"), 1);
    QCOMPARE(contaRighe("Rilevamenti"), 4);

    finestra.carica(seconda);
    mostra(&finestra);
    scrivi(&finestra, "txtNom", "Altro");
    programma.dialoghi.attendiDomanda("Eliminare ?", "Eliminare la Prova Collina ?", false);
    premi(&finestra, "cmdEli");
    QCOMPARE(contaRighe("Prove"), 2);
    programma.dialoghi.attendiDomanda("Eliminare ?", "Eliminare la Prova Collina ?", true);
    programma.dialoghi.attendiAvviso("Prova Eliminata");
    premi(&finestra, "cmdEli");
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(contaRighe("Prove"), 1);
    QCOMPARE(contaRighe("Rilevamenti"), 2);
}

void tst_ModificaManifestazione::provaAllaPartenza() {
    const ProgrammaDiProva programma;
    nuovaManifestazione({{"TipoCO", "PAR"}});
    const int primo = nuovaProva({{"Tip", "CO"}});
    const int secondo = nuovaProva({{"Tip", "CO"}, {"ConA", primo}});
    frmModificaProva finestra;
    finestra.carica(secondo);
    mostra(&finestra);
    auto* concatenata = controllo<QComboBox>(&finestra, "cboCon");
    QVERIFY(!concatenata->isEnabled());
    QCOMPARE(concatenata->currentText(), QString("NO"));
    controllo<QComboBox>(&finestra, "cboPro")->setCurrentText("PA");
    QVERIFY(concatenata->isEnabled());
}

void tst_ModificaManifestazione::cambia() {
    ProgrammaDiProva programma;
    const int prima = nuovaManifestazione({{"Nom", "Prima"}});
    const int seconda = nuovaManifestazione({{"Nom", "Seconda"}, {"Loc", "Canelli"}});
    frmCambiaManifestazione finestra;
    const QSignalSpy attivata(&finestra, &frmCambiaManifestazione::manifestazioneAttivata);
    mostra(&finestra);
    auto* elenco = controllo<Elenco>(&finestra, "lstMan");
    QCOMPARE(elenco->topLevelItem(0)->text(0), QString::number(seconda));
    QCOMPARE(elenco->topLevelItem(0)->text(2), QString("Canelli"));
    QCOMPARE(elenco->topLevelItem(1)->text(3), QString("13/06/2026 - 14/06/2026"));
    premi(&finestra, "cmdSeleziona");
    QVERIFY(finestra.isVisible());
    QCOMPARE(IDMan, seconda);
    programma.dialoghi.attendiAvviso("Manifestazione Selezionata");
    doppioClic(elenco, 1);
    QVERIFY(programma.dialoghi.finite());
    QVERIFY(!finestra.isVisible());
    QCOMPARE(IDMan, prima);
    QCOMPARE(programma.impostazioni.leggi("IDMan", "IDMan", ""), QString::number(prima));
    QCOMPARE(attivata[0][0].toString(), QString("Prima"));
}

void tst_ModificaManifestazione::cambiaSenzaManifestazioni() {
    const ProgrammaDiProva programma;
    frmCambiaManifestazione finestra;
    mostra(&finestra);
    QCOMPARE(controllo<Elenco>(&finestra, "lstMan")->topLevelItemCount(), 0);
    premi(&finestra, "cmdSeleziona");
    QVERIFY(finestra.isVisible());
    premi(&finestra, "cmdAnnulla");
    QVERIFY(!finestra.isVisible());
}

void tst_ModificaManifestazione::proveSvolte() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    nuovaProva({{"Nom", "Uno"}, {"Svo", 0}});
    nuovaProva({{"Nom", "Due"}, {"Svo", 1}});
    nuovaProva({{"Nom", "Tre"}, {"Svo", 0}});
    for (const bool salva : {false, true}) {
        frmProveSvolte finestra;
        mostra(&finestra);
        auto* elenco = controllo<Elenco>(&finestra, "lstProve");
        QVERIFY(elenco->isColumnHidden(2));
        QCOMPARE(elenco->topLevelItem(1)->checkState(0), Qt::Checked);
        elenco->setFocus();
        QTest::keyClick(elenco, Qt::Key_Space);
        QTest::keyClick(elenco, Qt::Key_Down);
        QTest::keyClick(elenco, Qt::Key_Space);
        if (salva)
            programma.dialoghi.attendiAvviso("Prove Modificate");
        premi(&finestra, salva ? "cmdOK" : "cmdAnnulla");
        QVERIFY(!finestra.isVisible());
        QCOMPARE(contaRighe("Prove", "Svo=1 AND Nom='Uno'"), salva ? 1 : 0);
        QCOMPARE(contaRighe("Prove", "Svo=1"), 1);
    }
    QVERIFY(programma.dialoghi.finite());
}

void tst_ModificaManifestazione::calcolatrice() {
    ProgrammaDiProva programma;
    frmUtilityPMI finestra;
    mostra(&finestra);
    for (const char* pulsante : {"cmdS", "cmdT", "cmdV"}) {
        programma.dialoghi.attendiMessaggio("Impossibile Calcolare", "Dati Mancanti o Incorretti");
        premi(&finestra, pulsante);
    }
    scrivi(&finestra, "s", "61x");
    scrivi(&finestra, "v", "6a0");
    premi(&finestra, "cmdT");
    QCOMPARE(controllo(&finestra, "t")->text(), QString("01:01:00"));
    scrivi(&finestra, "v", "45,5");
    scrivi(&finestra, "t", "00:20:00");
    premi(&finestra, "cmdS");
    QCOMPARE(controllo(&finestra, "s")->text(), QString("15,1666666666667"));
    scrivi(&finestra, "s", "15");
    premi(&finestra, "cmdV");
    QCOMPARE(controllo(&finestra, "v")->text(), QString("45"));
    scrivi(&finestra, "t", "00:61:00");
    programma.dialoghi.attendiMessaggio("Impossibile Calcolare", "Dati Mancanti o Incorretti");
    premi(&finestra, "cmdV");
    QVERIFY(programma.dialoghi.finite());
}

PROVA_FINESTRE(tst_ModificaManifestazione)
#include "tst_ModificaManifestazione.moc"

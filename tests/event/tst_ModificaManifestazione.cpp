#include "event/frmCambiaManifestazione.h"
#include "event/frmModificaGruppo.h"
#include "event/frmModificaManifestazione.h"
#include "event/frmModificaProva.h"
#include "event/frmModificaSquadra.h"
#include "event/frmProveSvolte.h"
#include "event/Guida.h"

#include <QSignalSpy>

namespace {

// A window on a stored row, or on a new one for key 0.
template <typename Modifica>
void riapri(Modifica& finestra, int chiave) {
    finestra.carica(chiave);
    mostra(&finestra);
}

// "PenMax=300;DatVer=" as columns, Null where nothing follows.
QVariantMap colonne(const QString& testo) {
    QVariantMap valori;
    for (const auto& [nome, valore] : campi(testo))
        valori[nome] = valore.isEmpty() ? QVariant() : QVariant(valore);
    return valori;
}

int conA(int idPro) {
    return leggiValore("SELECT ConA FROM Prove WHERE IDPro=?", {idPro})->toInt();
}

}  // namespace

class tst_ModificaManifestazione final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void caricaESalva();
    void valoriEstranei();
    void elenchiEFiglie();
    void gruppo();
    void squadra();
    void prova();
    void cambia();
    void proveSvolte();

private:
    // A deletion is asked about, may be declined, and says that it is done.
    void elimina(QWidget* finestra, const QString& tabella, const QString& domanda, const QString& fatto) {
        const int prima = contaRighe(tabella);
        dialoghi().attendiDomanda("Eliminare ?", domanda, false);
        premi(finestra, "cmdEli");
        QCOMPARE(contaRighe(tabella), prima);
        dialoghi().attendiDomanda("Eliminare ?", domanda, true);
        dialoghi().attendiAvviso(fatto);
        premi(finestra, "cmdEli");
        QCOMPARE(contaRighe(tabella), prima - 1);
    }
};

void tst_ModificaManifestazione::caricaESalva() {
    nuovaManifestazione();
    nuovaProva({{"Tip", "CO"}});
    const int diAltra = nuovaProva({{"Tip", "CO"}, {"ConA", 1}});
    const int id = nuovaManifestazione(colonne(
        "ASIeNONASI=1;PrePANoASI=DEC;PenUniPANoASI=9;PenMaxAtt=1;PenMax=300;PenMaxNoASI=600;FatNoASI=1;"
        "NumFatNoASI=2.5;PenProNonSvo=1;NumPenProNonSvo=750;PrePM=ORA;PreCO=;DatVer=;RagAuto="));
    const int primo = nuovaProva({{"Tip", "CO"}});
    const int secondo = nuovaProva({{"Tip", "CO"}, {"ConA", primo}});
    const int abilita = nuovaProva({{"ConA", secondo}});
    const auto catene = [&] { return QList<int>{conA(diAltra), conA(secondo), conA(abilita)}; };
    for (const bool salva : {false, true}) {
        frmModificaManifestazione finestra;
        const QSignalSpy modificata(&finestra, &frmModificaManifestazione::manifestazioneModificata);
        mostra(&finestra);
        confronta(
            &finestra,
            "txtNom=Coppa delle Colline;DaDat=13/06/2026;DatVer=__/__/____;txtMaxPen=300;txtMaxPenNoASI=600;"
            "txtNumFatNoASI=2,5;txtPenProNonSvo=750;txtPenUniPANoASI=9;cboPrePA=CENTESIMO;cboPrePM=;"
            "cboPreCO=MINUTO;optCOPar=NO;lblPenUniPA=Penalità per Ogni CENTESIMO nelle P.A. : ;"
            "lblPenUniCO=Penalità per Ogni MINUTO nei C.O. : ");
        QVERIFY(controllo(&finestra, "txtMaxPenNoASI")->isVisible());
        compila(&finestra,
                "txtNom=Coppa Nuova;cboMaxPen=NO;cboPenProNonSvo=NO;cboFatNoASI=NO;chkOpzASI_NONASI=NO;"
                "cboPrePM=DECIMO;optCOPar=SI");
        confronta(&finestra, "lblPenUniPM=Penalità per Ogni DECIMO nelle P.M.I. : ");
        QCOMPARE(catene(), (QList<int>{1, primo, secondo}));
        if (salva) {
            compila(&finestra, "ADat=40/01/2026");
            premi(&finestra, "cmdSalva");  // the date holds it
            QVERIFY(finestra.isVisible());
            compila(&finestra, "ADat=20/06/2026");
            dialoghi().attendiAvviso("Manifestazione Modificata");
        }
        premi(&finestra, salva ? "cmdSalva" : "cmdAnnulla");
        QVERIFY(!finestra.isVisible());
        QCOMPARE(modificata.size(), salva ? 1 : 0);
        if (salva)
            QCOMPARE(modificata[0][0].toString(), QString("Coppa Nuova"));
    }
    QCOMPARE(
        contaRighe(
            "Manifestazioni",
            QString("IDMan=%1 AND Nom='Coppa Nuova' AND ADat='20/06/2026' AND PenMaxAtt=0 AND PenMax=0 AND "
                    "PenProNonSvo=0 AND NumPenProNonSvo=0 AND FatNoASI=0 AND NumFatNoASI=0 AND "
                    "ASIeNONASI=0 AND PrePANoASI='DEC' AND PenUniPANoASI=9 AND PenMaxNoASI=600 "
                    "AND PrePM='DEC' AND PreCO='MIN' AND TipoCO='PAR' AND DatVer IS NULL AND RagAuto=0")
                .arg(id)),
        1);
    // Only this event's time controls lose their chains.
    QCOMPARE(catene(), (QList<int>{1, 0, secondo}));
}

// Longer than a field, a foreign word: shown whole, and written back as they were.
void tst_ModificaManifestazione::valoriEstranei() {
    nuovaManifestazione({{"Nom", QString(300, 'x')},
                         {"PenUniPA", Q_INT64_C(12345678901)},
                         {"PrePA", "Sec"},
                         {"PrePM", "ORA"},
                         {"FatNoASI", QVariant()},
                         {"TipoCO", QVariant()}});
    frmModificaManifestazione finestra;
    mostra(&finestra);
    confronta(&finestra, "txtPenUniPA=12345678901;cboPrePA=SECONDO;cboPrePM=;cboFatNoASI=NO;optCOPar=NO");
    compila(&finestra, "txtClu=Ruote");
    dialoghi().attendiAvviso("Manifestazione Modificata");
    premi(&finestra, "cmdSalva");
    QCOMPARE(contaRighe("Manifestazioni",
                        "length(Nom)=300 AND PenUniPA=12345678901 AND PrePM='ORA' AND Clu='Ruote'"),
             1);
}

void tst_ModificaManifestazione::elenchiEFiglie() {
    nuovaManifestazione();
    const int prima = nuovaProva({{"Nom", "Uno"}});
    nuovaProva({{"Nom", "Due"}, {"ConA", prima}});
    const int gruppo = inserisciRiga("Raggruppamenti", {{"IDMan_FK", IDMan}, {"Nom", "A"}, {"Fat", 1.5}});
    frmModificaManifestazione finestra;
    mostra(&finestra);
    confronta(
        &finestra,
        QString("lstProve 0 0=%1;lstProve 0 6=NO;lstProve 1 6=SI;lstRag 0 1=1,5;lstRag 0 2=").arg(prima));
    dialoghi().attendiMessaggio("Impossibile Attivare l'Opzione",
                                "Sono Stati Già Inseriti dei Raggruppamenti Senza Anni.\n"
                                "Inserire Tutti gli Anni Mancanti e Quindi Atrivare l'Opzione");
    compila(&finestra, "chkRagAuto=SI");
    confronta(&finestra, "chkRagAuto=NO");
    // A double click on a row, and on none.
    for (const int riga : {0, -1}) {
        inModale<frmModificaGruppo>(
            [&] { doppioClic(&finestra, "lstRag", riga); },
            [&](QDialog& figlia) {
                confronta(figlia, riga == 0 ? QString("lblIDRag=%1;txtFat=1,5").arg(gruppo)
                                            : QString("lblIDRag=0;txtFat="));
                abilitati(figlia, "cmdMod cmdEli", riga == 0);
                // Where the road of Enter through the fields ends.
                QCOMPARE(controllo(figlia, "txtAAnn")->nextInFocusChain(),
                         controllo<QPushButton>(figlia, riga == 0 ? "cmdMod" : "cmdAgg"));
            });
    }
    // What the child wrote is in the list when it has closed.
    auto* squadre = controllo<Elenco>(&finestra, "lstSqu");
    dialoghi().attendiAvviso("Squadra Aggiunta");
    inModale<frmModificaSquadra>([&] { QTest::keyClick(squadre, Qt::Key_Insert); },
                                 [&](QDialog& figlia) {
                                     compila(figlia, "txtNom=Scuderia");
                                     premi(figlia, "cmdAgg");
                                 });
    QCOMPARE(squadre->topLevelItemCount(), 1);
    premi(&finestra, "cmdAnnulla");
    QCOMPARE(contaRighe("Squadre"), 1);
}

void tst_ModificaManifestazione::gruppo() {
    nuovaManifestazione({{"RagAuto", 1}});
    nuovoEquipaggio(1, {{"Ann", 1938}});
    const auto gruppoDelloEquipaggio = [] { return leggiValore("SELECT IDGru_FK FROM Equipaggi")->toInt(); };
    frmModificaGruppo finestra;
    mostra(&finestra);
    compila(&finestra, "txtNom=A;txtFat=1,25;txtDaAnn=1931;txtAAnn=1945");
    dialoghi().attendiAvviso("Raggruppamento Aggiunto");
    premi(&finestra, "cmdAgg");
    const int id = gruppoDelloEquipaggio();
    QCOMPARE(contaRighe("Raggruppamenti", "Nom='A' AND Fat=1.25 AND DAAnn=1931 AND AAnn=1945"), 1);
    riapri(finestra, id);
    compila(&finestra, "txtNom=");
    dialoghi().attendiMessaggio("Impossibile Aggiungere", "Inserire il Nome del Raggruppamento", Icona::Stop);
    premi(&finestra, "cmdMod");
    compila(&finestra, "txtNom=B;txtDaAnn=1940");
    dialoghi().attendiAvviso("Raggruppamento Modificato");
    premi(&finestra, "cmdMod");
    QCOMPARE(gruppoDelloEquipaggio(), 0);
    riapri(finestra, id);
    confronta(&finestra, "txtFat=1,25");
    esegui("UPDATE Equipaggi SET IDGru_FK=?", {id});
    elimina(&finestra, "Raggruppamenti", "Eliminare il Raggruppamento ?", "Raggruppamento Eliminato");

    const int vecchio = inserisciRiga("Raggruppamenti", {{"IDMan_FK", IDMan},
                                                         {"Nom", QString(300, 'x')},
                                                         {"Fat", 1.0 / 3},
                                                         {"DAAnn", 1900},
                                                         {"AAnn", 19999}});
    riapri(finestra, vecchio);
    dialoghi().attendiAvviso("Raggruppamento Modificato");
    premi(&finestra, "cmdMod");
    QCOMPARE(contaRighe("Raggruppamenti", "length(Nom)=300 AND Fat=1.0/3 AND AAnn=19999"), 1);
    riapri(finestra, 0);
    for (const bool si : {false, true}) {
        QCOMPARE(contaRighe("Raggruppamenti"), 1);
        dialoghi().attendiDomanda("Conferma Raggruppamenti Standard ASI",
                                  "Inserendo I Raggruppamenti Standard ASI\n"
                                  "i Raggruppamenti Già Inseriti Saranno Eliminati\n"
                                  "Confermare ?",
                                  si);
        if (si)
            dialoghi().attendiAvviso("Raggruppamenti Modificati");
        premi(&finestra, "cmdRaggruppamentiASI");
    }
    QCOMPARE(contaRighe("Equipaggi e JOIN Raggruppamenti g ON g.IDGru=e.IDGru_FK", "g.Nom='Post Vintage'"),
             1);
}

void tst_ModificaManifestazione::squadra() {
    nuovaManifestazione();
    inserisciRiga("Squadre", {{"IDMan_FK", IDMan}, {"Nom", "Uno"}});
    const int id = inserisciRiga("Squadre", {{"IDMan_FK", IDMan}, {"Nom", "Uno"}});
    nuovoEquipaggio(1, {{"IDSqu_FK", id}});
    frmModificaSquadra finestra;
    mostra(&finestra);
    finestra.carica(id);
    compila(&finestra, "txtNom=");
    dialoghi().attendiMessaggio("Impossibile Aggiungere", "Inserire il Nome della Squadra");
    premi(&finestra, "cmdMod");
    compila(&finestra, "txtNom=Dell'Est");
    dialoghi().attendiAvviso("Squadra Modificata");
    premi(&finestra, "cmdMod");
    QCOMPARE(contaRighe("Squadre", QString("IDSqu=%1 AND Nom='Dell''Est'").arg(id)), 1);
    QCOMPARE(contaRighe("Squadre", "Nom='Uno'"), 1);
    riapri(finestra, id);
    elimina(&finestra, "Squadre", "Eliminare la Squadra ?", "Squadra Eliminata");
    QCOMPARE(contaRighe("Equipaggi", "IDSqu_FK=0"), 1);
}

void tst_ModificaManifestazione::prova() {
    nuovaManifestazione();
    nuovoEquipaggio(1);
    nuovoEquipaggio(2);
    const int prima = nuovaProva();
    frmModificaProva finestra;
    mostra(&finestra);
    abilitati(&finestra, "cmdMod cmdEli", false);
    confronta(&finestra, "Dat=13/06/2026");
    compila(&finestra, "cboPro=PM;cboCon=SI;txtTem=01:00:00");
    dialoghi().attendiAvviso("Prova Aggiunta");
    premi(&finestra, "cmdAgg");
    const int seconda = leggiValore("SELECT max(IDPro) FROM Prove")->toInt();
    QCOMPARE(conA(seconda), prima);
    const int rilevamenti = contaRighe("Rilevamenti");

    riapri(finestra, seconda);
    confronta(&finestra, "cboCon=SI");
    esegui("UPDATE Prove SET Svo=1");
    compila(&finestra, "txtNom=Collina;cboCon=NO");
    dialoghi().attendiAvviso("Prova Modificata");
    premi(&finestra, "cmdMod");
    QCOMPARE(
        contaRighe("Prove",
                   "Nom='Collina' AND ConA=0 AND Tip='PM' AND Tem='01:00:00' AND Dat='13/06/2026' AND Svo=1"),
        1);
    riapri(finestra, seconda);
    compila(&finestra, "txtNom=Altro");
    elimina(&finestra, "Prove", "Eliminare la Prova Collina ?", "Prova Eliminata");
    QCOMPARE(contaRighe("Rilevamenti"), rilevamenti - 2);
    // The first cannot be chained; nor can a time control, when they are measured from the start.
    riapri(finestra, prima);
    compila(&finestra, "cboCon=SI");
    dialoghi().attendiMessaggio("Impossibile Aggiungere", QString(), Icona::Stop);
    premi(&finestra, "cmdMod");
    esegui("UPDATE Manifestazioni SET TipoCO='PAR'");
    frmModificaProva allaPartenza;
    riapri(allaPartenza, nuovaProva({{"Tip", "CO"}, {"ConA", prima}}));
    confronta(&allaPartenza, "cboCon=NO");
    abilitati(&allaPartenza, "cboCon", false);
    compila(&allaPartenza, "cboPro=PA");
    abilitati(&allaPartenza, "cboCon", true);
}

void tst_ModificaManifestazione::cambia() {
    const int prima = nuovaManifestazione({{"Nom", "Prima"}});
    const int seconda = nuovaManifestazione({{"Nom", "Seconda"}, {"Loc", "Canelli"}});
    frmCambiaManifestazione finestra;
    const QSignalSpy attivata(&finestra, &frmCambiaManifestazione::manifestazioneAttivata);
    mostra(&finestra);
    confronta(&finestra,
              QString("lstMan 0 0=%1;lstMan 0 2=Canelli;lstMan 1 3=13/06/2026 - 14/06/2026").arg(seconda));
    premi(&finestra, "cmdSeleziona");
    QVERIFY(finestra.isVisible());
    QCOMPARE(IDMan, seconda);
    dialoghi().attendiAvviso("Manifestazione Selezionata");
    doppioClic(&finestra, "lstMan", 1);
    QVERIFY(!finestra.isVisible());
    QCOMPARE(IDMan, prima);
    QCOMPARE(attivata[0][0].toString(), QString("Prima"));
}

void tst_ModificaManifestazione::proveSvolte() {
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
            dialoghi().attendiAvviso("Prove Modificate");
        premi(&finestra, salva ? "cmdOK" : "cmdAnnulla");
        QVERIFY(!finestra.isVisible());
        QCOMPARE(contaRighe("Prove", "Svo=1 AND Nom='Uno'"), salva ? 1 : 0);
        QCOMPARE(contaRighe("Prove", "Svo=1"), 1);
    }
}

PROVA_FINESTRE(tst_ModificaManifestazione)
#include "tst_ModificaManifestazione.moc"

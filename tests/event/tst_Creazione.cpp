#include "common/Subroutine.h"
#include "event/Elenco.h"
#include "event/frmNuovaManifestazione.h"
#include "event/Guida.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>

namespace {

const QString Uscita = "Uscire dall'Inserimento ?";
const QString TestoUscita = "La Manifestazione NON E' Stata Salvata Si Desidera Uscire Comunque ? ";
const QString TitoloAttiva = "Manifestazione Attiva";
const QString TestoAttiva = "Impostare la Manifestazione Creata\ncome Manifestazione Attiva ?";

void scegli(const QString& combo, const QString& testo) {
    controllo<QComboBox>(pagina(), combo)->setCurrentText(testo);
}

QString cella(const QString& elenco, int riga, int colonna) {
    return controllo<Elenco>(pagina(), elenco)->topLevelItem(riga)->text(colonna);
}

void aggiungiProvaInPagina(const QString& tipo, const QString& nome, const QString& tempo,
                           const QString& concatenata = "NO") {
    scegli("cboPro", tipo);
    scegli("cboCon", concatenata);
    scrivi(pagina(), "txtNom", nome);
    scrivi(pagina(), "txtTem", tempo);
    premi(pagina(), "cmdAgg");
}

void aggiungiGruppoInPagina(const QString& nome, const QString& fattore, const QString& da,
                            const QString& a) {
    scrivi(pagina(), "txtNom", nome);
    scrivi(pagina(), "txtFat", fattore);
    scrivi(pagina(), "txtDaAnn", da);
    scrivi(pagina(), "txtAAnn", a);
    premi(pagina(), "cmdAgg");
}

void doppioClic(const QString& elenco, int riga) {
    auto* lista = controllo<Elenco>(pagina(), elenco);
    const QPoint dove = riga < 0 ? lista->viewport()->rect().bottomRight() - QPoint(5, 5)
                                 : lista->visualItemRect(lista->topLevelItem(riga)).center();
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, dove);
    QTest::mouseDClick(lista->viewport(), Qt::LeftButton, {}, dove);
}

// From the first page to the tests.
void finoAlleProve(const QString& nome) {
    scrivi(pagina(), "txtNom", nome);
    for (int i = 0; i < 3; ++i)
        premi(pagina(), "cmdAvanti");
}

}  // namespace

class tst_Creazione final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void conIPredefiniti();
    void conTutto();
    void abilitazioni();
    void rifiutiDellaPrimaPagina();
    void raggruppamentoAutomatico();
    void gruppi();
    void squadre();
    void prove();
    void controlliOrariAllaPartenza();
    void dateEAnniTrattengono();
    void uscita();
    void salvataggioFallito();
    void soloTastiera();
};

void tst_Creazione::conIPredefiniti() {
    ProgrammaDiProva programma;
    CreazioneManifestazione creazione;
    const QSignalSpy attivata(&creazione, &CreazioneManifestazione::manifestazioneAttivata);
    const int id = guida(creazione, [&] {
        QCOMPARE(pagina()->windowTitle(), QString("Creazione Nuova Manifestazione - Dati Manifestazione"));
        scrivi(pagina(), "txtNom", "Coppa");
        premi(pagina(), "cmdAvanti");
        QCOMPARE(pagina()->windowTitle(), QString("Creazione Nuova Manifestazione - Raggruppamenti"));
        premi(pagina(), "cmdAvanti");
        QCOMPARE(pagina()->windowTitle(), QString("Creazione Nuova Manifestazione - Squadre"));
        premi(pagina(), "cmdAvanti");
        QCOMPARE(pagina()->windowTitle(), QString("Creazione Nuova Manifestazione - Prove"));
        aggiungiProvaInPagina("PA", "", "00:00:10");
        premi(pagina(), "cmdAvanti");
        QCOMPARE(pagina()->windowTitle(), QString("Creazione Nuova Manifestazione - Riepilogo Finale"));
        QVERIFY(!controllo(pagina(), "txtPrePANoASI")->isVisible());
        QCOMPARE(contaRighe("Manifestazioni"), 0);
        programma.dialoghi.attendiAvviso("Manifestazione Creata");
        programma.dialoghi.attendiDomanda(TitoloAttiva, TestoAttiva, false);
        premi(pagina(), "cmdSalva");
    });
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(contaRighe("Manifestazioni",
                        "Nom='Coppa' AND PrePA='MIN' AND PrePM='MIN' AND PreCO='MIN' AND PenUniPA=0 AND "
                        "PenUniPM=0 AND PenUniCO=0 AND PenMaxAtt=0 AND PenMax IS NULL AND PenProNonSvo=0 AND "
                        "NumPenProNonSvo IS NULL AND FatNoASI=0 AND NumFatNoASI=0 AND TipoCO='CON' AND "
                        "ASIeNONASI=0 AND PrePANoASI IS NULL AND PenMaxNoASI IS NULL AND FatAnn=0 AND "
                        "AutoEsc=0 AND RagAuto=0 AND DaDat='14/06/2026' AND DatVer='14/06/2026'"),
             1);
    QCOMPARE(contaRighe("Prove",
                        QString("IDMan_FK=%1 AND Tip='PA' AND Tem='00:00:10' AND Dat='14/06/2026'").arg(id)),
             1);
    QCOMPARE(IDMan, 0);
    QVERIFY(attivata.isEmpty());
    for (const char* nome : {"", "2", "2Bis", "3", "4"})
        QVERIFY(!FinestraCaricata(QString("frmNuovaManifestazione") + nome));
}

void tst_Creazione::conTutto() {
    ProgrammaDiProva programma;
    CreazioneManifestazione creazione;
    const QSignalSpy attivata(&creazione, &CreazioneManifestazione::manifestazioneAttivata);
    const int id = guida(creazione, [&] {
        const QMap<QString, QString> testi{{"txtNom", "Coppa d'Oro"}, {"txtLoc", "Asti"},
                                           {"txtClu", "Ruote"},       {"DaDat", "13/06/2026"},
                                           {"ADat", "5/7/26"},        {"DatVer", "12/6/2026"}};
        for (auto testo = testi.cbegin(); testo != testi.cend(); ++testo)
            scrivi(pagina(), testo.key(), testo.value());
        for (const char* combo : {"cboFatAnn", "cboMaxPen", "cboPenProvaNonSvolta", "cboFatNoASI"})
            scegli(combo, "SI");
        scegli("cboPrePA", "CENTESIMO");
        scegli("cboPrePM", "SECONDO");
        for (const char* spunta : {"chkEscAuto", "chkRagAuto", "chkOpzASI_NONASI"})
            controllo<QCheckBox>(pagina(), spunta)->click();
        controllo<QRadioButton>(pagina(), "optCOPar")->click();
        scegli("cboPreCONoASI", "DECIMO");
        const QMap<QString, QString> numeri{{"txtPenUniPA", "1"},       {"txtPenUniPM", "2"},
                                            {"txtPenUniCO", "60"},      {"txtMaxPen", "300"},
                                            {"txtPenUniPANoASI", "11"}, {"txtPenUniPMNoASI", "12"},
                                            {"txtMaxPenNoASI", "900"},  {"txtNumFatNoASI", "2,5"}};
        for (auto numero = numeri.cbegin(); numero != numeri.cend(); ++numero)
            scrivi(pagina(), numero.key(), numero.value());
        premi(pagina(), "cmdAvanti");

        premi(pagina(), "cmdRaggruppamentiASI");
        premi(pagina(), "cmdRaggruppamentiASI");
        QCOMPARE(controllo<Elenco>(pagina(), "lstRag")->topLevelItemCount(), 7);
        premi(pagina(), "cmdAvanti");
        scrivi(pagina(), "txtNom", "Scuderia A");
        premi(pagina(), "cmdAgg");
        scrivi(pagina(), "txtNom", "Scuderia B");
        premi(pagina(), "cmdAgg");
        premi(pagina(), "cmdAvanti");
        aggiungiProvaInPagina("CO", "Partenza", "01:00:00");
        aggiungiProvaInPagina("PA", "Piazza", "00:00:10", "SI");
        aggiungiProvaInPagina("PM", "Collina", "00:12:00", "SI");
        QCOMPARE(controllo<QLabel>(pagina(), "lblNumero")->text(), QString("Prove Inserite : 3"));

        // Back to the first page and forth again: all that was typed is there.
        for (int i = 0; i < 3; ++i)
            premi(pagina(), "cmdIndietro");
        QCOMPARE(controllo(pagina(), "txtMaxPenNoASI")->text(), QString("900"));
        for (int i = 0; i < 4; ++i)
            premi(pagina(), "cmdAvanti");

        const QMap<QString, QString> riepilogo{{"txtNom", "Coppa d'Oro"},
                                               {"txtADat", "05/07/2026"},
                                               {"txtDatVer", "12/06/2026"},
                                               {"txtPrePA", "CENTESIMO"},
                                               {"txtMaxPen", "300"},
                                               {"txtFatNoASI", "Attivo : 2,5"},
                                               {"txtPenProvaNonSvolta", "Attivo : 500"},
                                               {"txtRagAuto", "Attivo"},
                                               {"txtTipoCO", "Riferiti all'Orario di partenza"}};
        for (auto voce = riepilogo.cbegin(); voce != riepilogo.cend(); ++voce)
            QCOMPARE(controllo(pagina(), voce.key())->text(), voce.value());
        QCOMPARE(controllo<QLabel>(pagina(), "lblPenUniPA")->text(),
                 QString("Penalità per Ogni CENTESIMO di Rit. o Ant. nelle Prove di Abilità : "));
        QVERIFY(controllo(pagina(), "txtPrePANoASI")->isVisible());
        QCOMPARE(controllo<Elenco>(pagina(), "lstRag")->topLevelItemCount(), 7);
        QCOMPARE(cella("lstSqu", 1, 0), QString("Scuderia B"));
        QCOMPARE(cella("lstProve", 2, 1), QString("Collina"));
        programma.dialoghi.attendiAvviso("Manifestazione Creata");
        programma.dialoghi.attendiDomanda(TitoloAttiva, TestoAttiva, true);
        premi(pagina(), "cmdSalva");
    });
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(
        contaRighe("Manifestazioni",
                   "Nom='Coppa d''Oro' AND Loc='Asti' AND Clu='Ruote' AND DaDat='13/06/2026' AND "
                   "ADat='05/07/2026' AND DatVer='12/06/2026' AND FatAnn=1 AND AutoEsc=1 AND RagAuto=1 AND "
                   "PrePA='CEN' AND PrePM='SEC' AND PreCO='MIN' AND PenUniPA=1 AND PenUniPM=2 AND "
                   "PenUniCO=60 AND PenMaxAtt=1 AND PenMax=300 AND PenProNonSvo=1 AND "
                   "NumPenProNonSvo=500 AND FatNoASI=1 AND NumFatNoASI=2.5 AND TipoCO='PAR' AND "
                   "ASIeNONASI=1 AND PrePANoASI='MIN' AND PrePMNoASI='MIN' AND PreCONoASI='DEC' AND "
                   "PenUniPANoASI=11 AND PenUniPMNoASI=12 AND PenUniCONoASI=0 AND PenMaxNoASI=900"),
        1);
    QCOMPARE(contaRighe("Raggruppamenti", "Nom='Modern' AND Fat=1 AND DAAnn=1970 AND AAnn=2006"), 1);
    QCOMPARE(contaRighe("Squadre", QString("IDMan_FK=%1").arg(id)), 2);
    QCOMPARE(contaRighe("Prove p", "p.ConA=(SELECT max(IDPro) FROM Prove q WHERE q.IDPro<p.IDPro)"), 2);
    QCOMPARE(IDMan, id);
    QCOMPARE(programma.impostazioni.leggi("IDMan", "IDMan", ""), QString::number(id));
    QCOMPARE(attivata.size(), 1);
    QCOMPARE(attivata[0][0].toString(), QString("Coppa d'Oro"));
}

void tst_Creazione::abilitazioni() {
    const ProgrammaDiProva programma;
    frmNuovaManifestazione finestra;
    finestra.show();
    const auto box = [&](const QString& nome) { return controllo(&finestra, nome); };
    const auto imposta = [&](const QString& combo, const QString& testo) {
        controllo<QComboBox>(&finestra, combo)->setCurrentText(testo);
    };
    const auto proposta = [&](const QString& combo, const QString& nome, const QString& attesa) {
        QVERIFY(!box(nome)->isEnabled());
        imposta(combo, "SI");
        QVERIFY(box(nome)->isEnabled());
        QCOMPARE(box(nome)->text(), attesa);
        box(nome)->setText("77");
        imposta(combo, "NO");
        QVERIFY(!box(nome)->isEnabled());
        QCOMPARE(box(nome)->text(), QString());
    };
    proposta("cboMaxPen", "txtMaxPen", "");
    proposta("cboFatNoASI", "txtNumFatNoASI", "3");
    proposta("cboPenProvaNonSvolta", "txtPenProvaNonSvolta", "500");

    const QStringList noASI{"cboPrePANoASI",    "cboPrePMNoASI",    "cboPreCONoASI", "txtPenUniPANoASI",
                            "txtPenUniPMNoASI", "txtPenUniCONoASI", "txtMaxPenNoASI"};
    auto* opzione = controllo<QCheckBox>(&finestra, "chkOpzASI_NONASI");
    const int larghezza = finestra.width();
    opzione->click();
    QVERIFY(finestra.width() > larghezza);
    for (const QString& nome : noASI) {
        QVERIFY(controllo<QWidget>(&finestra, nome)->isVisible());
        QCOMPARE(controllo<QWidget>(&finestra, nome)->isEnabled(), nome != "txtMaxPenNoASI");
    }
    imposta("cboMaxPen", "SI");
    QVERIFY(box("txtMaxPenNoASI")->isEnabled());
    for (const QString& nome : noASI.mid(3))
        box(nome)->setText("5");
    imposta("cboMaxPen", "NO");
    QVERIFY(!box("txtMaxPenNoASI")->isEnabled());
    QCOMPARE(box("txtMaxPenNoASI")->text(), QString());
    opzione->click();
    for (const QString& nome : noASI) {
        QVERIFY(!controllo<QWidget>(&finestra, nome)->isVisible());
        QVERIFY(!controllo<QWidget>(&finestra, nome)->isEnabled());
    }
    opzione->click();
    for (const QString& nome : noASI.mid(3))
        QCOMPARE(box(nome)->text(), QString());

    auto* etichetta = controllo<QLabel>(&finestra, "lblPenUniPM");
    QCOMPARE(etichetta->text(),
             QString("Penalità per Ogni MINUTO di Ritardo o Anticipo nelle Prove di Media Imposta : "));
    imposta("cboPrePM", "DECIMO");
    QVERIFY(etichetta->text().startsWith("Penalità per Ogni DECIMO"));
    QTest::keyClicks(box("txtPenUniPA"), "1a,2");
    QCOMPARE(box("txtPenUniPA")->text(), QString("12"));
    QTest::keyClicks(box("txtPenUniCO"), "1a,2");
    QCOMPARE(box("txtPenUniCO")->text(), QString("1a,2"));
}

void tst_Creazione::rifiutiDellaPrimaPagina() {
    ProgrammaDiProva programma;
    CreazioneManifestazione creazione;
    guida(creazione, [&] {
        programma.dialoghi.attendiMessaggio("Impossibile Proseguire",
                                            "Inserire Almeno il Nome della Manifestazione", Icona::Stop);
        premi(pagina(), "cmdAvanti");
        QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtNom"));
        scrivi(pagina(), "txtNom", "Coppa");
        scegli("cboMaxPen", "SI");
        programma.dialoghi.attendiMessaggio("Attenzione",
                                            "E' Stato Attivata l'Opzione del Massimo delle Penalità,\n"
                                            "ma NON è Stato Inserito Nessun Valore per il Massimo\n"
                                            "Continuare Comunque ?");
        premi(pagina(), "cmdAvanti");
        QCOMPARE(pagina()->objectName(), QString("frmNuovaManifestazione"));
        QVERIFY(programma.dialoghi.finite());
    });
}

void tst_Creazione::raggruppamentoAutomatico() {
    ProgrammaDiProva programma;
    CreazioneManifestazione creazione;
    guida(creazione, [&] {
        scrivi(pagina(), "txtNom", "Coppa");
        premi(pagina(), "cmdAvanti");
        aggiungiGruppoInPagina("Senza anni", "1", "", "");
        premi(pagina(), "cmdIndietro");
        auto* spunta = controllo<QCheckBox>(pagina(), "chkRagAuto");
        programma.dialoghi.attendiMessaggio("Impossibile Attivare l'Opzione",
                                            "Sono Stati Già Inseriti dei Raggruppamenti Senza Anni.\n"
                                            "Inserire Tutti gli Anni Mancanti e Quindi Atrivare l'Opzione");
        spunta->click();
        QVERIFY(!spunta->isChecked());
        premi(pagina(), "cmdAvanti");
        doppioClic("lstRag", 0);
        premi(pagina(), "cmdEli");
        premi(pagina(), "cmdIndietro");
        spunta->click();
        QVERIFY(spunta->isChecked());
        premi(pagina(), "cmdAvanti");
        programma.dialoghi.attendiMessaggio("Anni Mancanti", QString());
        aggiungiGruppoInPagina("Senza anni", "1", "", "");
        QVERIFY(programma.dialoghi.finite());
    });
}

void tst_Creazione::gruppi() {
    ProgrammaDiProva programma;
    CreazioneManifestazione creazione;
    guida(creazione, [&] {
        scrivi(pagina(), "txtNom", "Coppa");
        premi(pagina(), "cmdAvanti");
        programma.dialoghi.attendiMessaggio("Impossibile Modificare",
                                            "Selezionare un Raggruppamento da Modificare");
        premi(pagina(), "cmdMod");
        programma.dialoghi.attendiMessaggio("Impossibile Eliminare",
                                            "Selezionare un Raggruppamento da Eliminare");
        premi(pagina(), "cmdEli");
        programma.dialoghi.attendiMessaggio("Attenzione", "Selezionare un Raggruppamento da Modificare");
        doppioClic("lstRag", -1);
        programma.dialoghi.attendiMessaggio("Impossbile Aggiungere", "Inserire il Nome del Raggruppamento",
                                            Icona::Stop);
        premi(pagina(), "cmdAgg");
        QVERIFY(programma.dialoghi.finite());

        aggiungiGruppoInPagina("A", "1,5", "1931", "1945");
        aggiungiGruppoInPagina("B", "1", "", "");
        QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtNom"));
        QCOMPARE(controllo(pagina(), "txtFat")->text(), QString());
        QCOMPARE(cella("lstRag", 0, 1), QString("1,5"));
        programma.dialoghi.attendiMessaggio(
            "Anno Errato", "L'Anno di Fine del Raggruppamento Fa Parte di un Raggruppamento già Inserito");
        aggiungiGruppoInPagina("C", "1", "1920", "1935");
        QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtAAnn"));

        // A change does not meet its own row.
        doppioClic("lstRag", 0);
        QCOMPARE(controllo(pagina(), "txtDaAnn")->text(), QString("1931"));
        scrivi(pagina(), "txtDaAnn", "1932");
        premi(pagina(), "cmdMod");
        QCOMPARE(cella("lstRag", 0, 2), QString("1932"));
        doppioClic("lstRag", 0);
        scrivi(pagina(), "txtNom", "");
        controllo(pagina(), "txtNom")->clear();
        programma.dialoghi.attendiMessaggio("Impossibile Modificare", "Inserire il Nome del Raggruppamento",
                                            Icona::Stop);
        premi(pagina(), "cmdMod");
        premi(pagina(), "cmdEli");
        QCOMPARE(cella("lstRag", 0, 0), QString("B"));
        QVERIFY(programma.dialoghi.finite());
    });
}

void tst_Creazione::squadre() {
    ProgrammaDiProva programma;
    CreazioneManifestazione creazione;
    guida(creazione, [&] {
        scrivi(pagina(), "txtNom", "Coppa");
        premi(pagina(), "cmdAvanti");
        premi(pagina(), "cmdAvanti");
        programma.dialoghi.attendiMessaggio("Impossbile Aggiungere", "Inserire il Nome della Squadra");
        premi(pagina(), "cmdAgg");
        programma.dialoghi.attendiMessaggio("Impossibile Modificare",
                                            "Selezionare una Squadra da Modificare");
        premi(pagina(), "cmdMod");
        programma.dialoghi.attendiMessaggio("Impossibile Eliminare", "Selezionare una Squadra da Eliminare");
        premi(pagina(), "cmdEli");
        QVERIFY(programma.dialoghi.finite());
        for (const char* nome : {"Uno", "Uno", "Due"}) {
            scrivi(pagina(), "txtNom", nome);
            premi(pagina(), "cmdAgg");
        }
        doppioClic("lstSqu", 1);
        scrivi(pagina(), "txtNom", "Tre");
        premi(pagina(), "cmdMod");
        QCOMPARE(cella("lstSqu", 1, 0), QString("Tre"));
        doppioClic("lstSqu", 0);
        premi(pagina(), "cmdEli");
        QCOMPARE(cella("lstSqu", 0, 0), QString("Tre"));
        QCOMPARE(controllo<QLabel>(pagina(), "lblNumero")->text(), QString("Squadre Inserite : 2"));
    });
}

void tst_Creazione::prove() {
    ProgrammaDiProva programma;
    CreazioneManifestazione creazione;
    guida(creazione, [&] {
        finoAlleProve("Coppa");
        programma.dialoghi.attendiMessaggio("Impossibile Proseguire", "Inserire Almeno una Prova",
                                            Icona::Stop);
        premi(pagina(), "cmdAvanti");
        programma.dialoghi.attendiMessaggio("Impossibile Modificare", "Selezionare una Prova da Modificare");
        premi(pagina(), "cmdMod");
        programma.dialoghi.attendiMessaggio("Impossibile Eliminare", "Selezionare una Prova da Eliminare");
        premi(pagina(), "cmdEli");
        programma.dialoghi.attendiMessaggio("Attenzione", "Selezionare una Prova da Modificare");
        doppioClic("lstProve", -1);
        programma.dialoghi.attendiMessaggio("Impossibile Aggiungere", "Inserire il Tempo Imposto della Prova",
                                            Icona::Stop);
        premi(pagina(), "cmdAgg");
        QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtTem"));
        programma.dialoghi.attendiMessaggio("Impossibile Aggiungere",
                                            "La Prima Prova non può Essere\nConcatenata con la Precedente",
                                            Icona::Stop);
        aggiungiProvaInPagina("PA", "Uno", "00:00:10", "SI");
        QVERIFY(programma.dialoghi.finite());

        aggiungiProvaInPagina("PA", "Uno", "00:00:10");
        QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtNom"));
        aggiungiProvaInPagina("CO", "Due", "0:10:0");
        QCOMPARE(cella("lstProve", 1, 3), QString("00:10:00"));
        aggiungiProvaInPagina("CO", "Tre", "00:20:00", "SI");
        // A change of the middle row looks only at the rows before it.
        doppioClic("lstProve", 1);
        QCOMPARE(controllo<QComboBox>(pagina(), "cboPro")->currentText(), QString("CO"));
        QCOMPARE(controllo(pagina(), "txtTem")->text(), QString("00:10:00"));
        scegli("cboCon", "SI");
        programma.dialoghi.attendiMessaggio("Impossibile Aggiungere",
                                            "Il Primo CO non può Essere\nConcatenato con il Precedente",
                                            Icona::Stop);
        premi(pagina(), "cmdMod");
        scegli("cboPro", "PM");
        premi(pagina(), "cmdMod");
        QCOMPARE(cella("lstProve", 1, 0), QString("PM"));
        QCOMPARE(cella("lstProve", 1, 5), QString("SI"));
        doppioClic("lstProve", 0);
        premi(pagina(), "cmdEli");
        QCOMPARE(cella("lstProve", 0, 1), QString("Due"));
        QCOMPARE(cella("lstProve", 0, 5), QString("SI"));  // not revised here
        QCOMPARE(controllo(pagina(), "Dat")->text(), QString("//"));
        QVERIFY(programma.dialoghi.finite());
    });
}

void tst_Creazione::controlliOrariAllaPartenza() {
    ProgrammaDiProva programma;
    CreazioneManifestazione creazione;
    guida(creazione, [&] {
        finoAlleProve("Coppa");
        aggiungiProvaInPagina("CO", "Uno", "00:10:00");
        aggiungiProvaInPagina("CO", "Due", "00:10:00", "SI");
        aggiungiProvaInPagina("PA", "Tre", "00:10:00", "SI");
        for (int i = 0; i < 3; ++i)
            premi(pagina(), "cmdIndietro");
        controllo<QRadioButton>(pagina(), "optCOPar")->click();
        for (int i = 0; i < 3; ++i)
            premi(pagina(), "cmdAvanti");
        QCOMPARE(cella("lstProve", 1, 5), QString("NO"));
        QCOMPARE(cella("lstProve", 2, 5), QString("SI"));
        auto* concatenata = controllo<QComboBox>(pagina(), "cboCon");
        QCOMPARE(concatenata->currentText(), QString("SI"));
        scegli("cboPro", "CO");
        QVERIFY(!concatenata->isEnabled());
        QCOMPARE(concatenata->currentText(), QString("NO"));
        scegli("cboPro", "PM");
        QVERIFY(concatenata->isEnabled());
    });
}

void tst_Creazione::dateEAnniTrattengono() {
    ProgrammaDiProva programma;
    CreazioneManifestazione creazione;
    guida(creazione, [&] {
        scrivi(pagina(), "txtNom", "Coppa");
        scrivi(pagina(), "ADat", "31/02/2026");
        controllo(pagina(), "txtLoc")->setFocus();
        QTRY_COMPARE(pagina()->focusWidget()->objectName(), QString("ADat"));
        premi(pagina(), "cmdAvanti");
        QCOMPARE(pagina()->objectName(), QString("frmNuovaManifestazione"));
        scrivi(pagina(), "ADat", "28/02/2026");
        premi(pagina(), "cmdAvanti");

        scrivi(pagina(), "txtDaAnn", "1849");
        programma.dialoghi.attendiMessaggio("Dato Errato", "Controllare l'Anno Inserito");
        controllo(pagina(), "txtNom")->setFocus();
        QTRY_COMPARE(pagina()->focusWidget()->objectName(), QString("txtDaAnn"));
        QVERIFY(programma.dialoghi.finite());
        // The end of "Modern" is beyond the bound; untouched it does not stand in the way.
        controllo(pagina(), "txtDaAnn")->clear();
        premi(pagina(), "cmdRaggruppamentiASI");
        doppioClic("lstRag", 6);
        scrivi(pagina(), "txtFat", "1,2");
        programma.dialoghi.attendiMessaggio("Anno Errato", QString());
        premi(pagina(), "cmdMod");
        scrivi(pagina(), "txtDaAnn", "1971");
        premi(pagina(), "cmdMod");
        QCOMPARE(cella("lstRag", 6, 1), QString("1,2"));

        premi(pagina(), "cmdAvanti");
        premi(pagina(), "cmdAvanti");
        scrivi(pagina(), "txtTem", "25:00:00");
        premi(pagina(), "cmdAgg");
        QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtTem"));
        QCOMPARE(controllo<Elenco>(pagina(), "lstProve")->topLevelItemCount(), 0);
        QVERIFY(programma.dialoghi.finite());
    });
}

void tst_Creazione::uscita() {
    ProgrammaDiProva programma;
    for (int pagineAvanti = 0; pagineAvanti < 4; ++pagineAvanti) {
        CreazioneManifestazione creazione;
        const int id = guida(creazione, [&] {
            scrivi(pagina(), "txtNom", "Coppa");
            for (int i = 0; i < pagineAvanti; ++i)
                premi(pagina(), "cmdAvanti");
            const QString nome = pagina()->objectName();
            programma.dialoghi.attendiDomanda(Uscita, TestoUscita, false);
            pagina()->close();
            QCOMPARE(pagina()->objectName(), nome);
            programma.dialoghi.attendiDomanda(Uscita, TestoUscita, true);
            if (pagineAvanti == 0) {
                premi(pagina(), "cmdAnnulla");
            } else {
                QTest::keyClick(pagina(), Qt::Key_Escape);
            }
            QVERIFY(!pagina());
        });
        QCOMPARE(id, 0);
        QVERIFY(programma.dialoghi.finite());
    }
    QCOMPARE(contaRighe("Manifestazioni"), 0);
    QVERIFY(!FinestraCaricata("frmNuovaManifestazione"));
}

void tst_Creazione::salvataggioFallito() {
    ProgrammaDiProva programma;
    esegui(
        "CREATE TRIGGER guasto BEFORE INSERT ON Raggruppamenti BEGIN SELECT RAISE(ABORT,'disco rotto'); END");
    CreazioneManifestazione creazione;
    const int id = guida(creazione, [&] {
        scrivi(pagina(), "txtNom", "Coppa");
        premi(pagina(), "cmdAvanti");
        premi(pagina(), "cmdRaggruppamentiASI");
        premi(pagina(), "cmdAvanti");
        premi(pagina(), "cmdAvanti");
        aggiungiProvaInPagina("PA", "Uno", "00:00:10");
        premi(pagina(), "cmdAvanti");
        programma.dialoghi.attendiMessaggio("Velmora", QString(), Icona::Stop);
        premi(pagina(), "cmdSalva");
        QVERIFY(programma.dialoghi.finite());
        for (const char* tabella : {"Manifestazioni", "Prove", "Squadre", "Raggruppamenti"})
            QCOMPARE(contaRighe(tabella), 0);
        // The page is as it was, and the save can be tried again.
        esegui("DROP TRIGGER guasto");
        programma.dialoghi.attendiAvviso("Manifestazione Creata");
        programma.dialoghi.attendiDomanda(TitoloAttiva, TestoAttiva, true);
        premi(pagina(), "cmdSalva");
    });
    QVERIFY(programma.dialoghi.finite());
    QVERIFY(id != 0);
    QCOMPARE(contaRighe("Manifestazioni"), 1);
    QCOMPARE(contaRighe("Raggruppamenti"), 7);
}

void tst_Creazione::soloTastiera() {
    ProgrammaDiProva programma;
    const auto tasto = [](Qt::Key quale) { QTest::keyClick(QApplication::focusWidget(), quale); };
    const auto scriviQui = [](const QString& testo) { QTest::keyClicks(QApplication::focusWidget(), testo); };
    // Enter from field to field until the button has the focus.
    const auto finoA = [&](const QString& nome) {
        for (int i = 0; i < 60 && QApplication::focusWidget()->objectName() != nome; ++i) {
            const QWidget* qui = QApplication::focusWidget();
            tasto(qui->inherits("QPushButton") || qui->inherits("Elenco") ? Qt::Key_Tab : Qt::Key_Return);
        }
        QCOMPARE(QApplication::focusWidget()->objectName(), nome);
    };
    CreazioneManifestazione creazione;
    const int id = guida(creazione, [&] {
        QVERIFY(pagina());
        scriviQui("Coppa");
        for (int i = 0; i < 3; ++i) {
            finoA("cmdAvanti");
            tasto(Qt::Key_Return);
            QVERIFY(pagina());
        }
        for (int i = 1; i <= 20; ++i) {
            finoA("txtNom");
            scriviQui(QString("Prova %1").arg(i));
            finoA("txtTem");
            scriviQui("000010");
            finoA("cmdAgg");
            tasto(Qt::Key_Return);
        }
        finoA("lstProve");
        tasto(Qt::Key_Down);
        tasto(Qt::Key_End);
        tasto(Qt::Key_Return);  // loads the row
        QCOMPARE(controllo(pagina(), "txtNom")->text(), QString("Prova 20"));
        tasto(Qt::Key_Delete);
        finoA("cmdAvanti");
        tasto(Qt::Key_Return);
        QVERIFY(pagina());
        programma.dialoghi.attendiAvviso("Manifestazione Creata");
        programma.dialoghi.attendiDomanda(TitoloAttiva, TestoAttiva, true);
        tasto(Qt::Key_Return);
    });
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(contaRighe("Prove", QString("IDMan_FK=%1").arg(id)), 19);
}

PROVA_FINESTRE(tst_Creazione)
#include "tst_Creazione.moc"

#include "event/frmNuovaManifestazione.h"
#include "event/Guida.h"
#include "event/NuovaManifestazione.h"

#include <QSignalSpy>

namespace {

const QString Uscita = "Uscire dall'Inserimento ?";
const QString TestoUscita = "La Manifestazione NON E' Stata Salvata Si Desidera Uscire Comunque ? ";

void premi(const QString& nome, int volte = 1) {
    while (volte-- > 0)
        premi(pagina(), nome);
}

void compila(const QString& campi) {
    compila(pagina(), campi);
}

void confronta(const QString& attesi) {
    confronta(pagina(), attesi);
}

void aggiungi(const QString& campi) {
    compila(campi);
    premi("cmdAgg");
}

void doppioClic(const QString& elenco, int riga) {
    doppioClic(pagina(), elenco, riga);
}

// The steps on a page of a new creation; the key of what was saved.
template <typename Passi>
int inPagina(int quale, Passi passi) {
    CreazioneManifestazione creazione;
    return guida(creazione, [&] {
        compila("txtNom=Coppa");
        premi("cmdAvanti", quale);
        passi();
    });
}

}  // namespace

class tst_Creazione final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void conIPredefiniti();
    void conTutto();
    void abilitazioni();
    void rifiuti();
    void gruppi();
    void prove();
    void dateEAnniTrattengono();
    void uscita();
    void salvataggioFallito();
    void soloTastiera();

private:
    void attendiSalvata(bool attiva) {
        dialoghi().attendiAvviso("Manifestazione Creata");
        dialoghi().attendiDomanda("Manifestazione Attiva",
                                  "Impostare la Manifestazione Creata\ncome Manifestazione Attiva ?", attiva);
    }
};

void tst_Creazione::conIPredefiniti() {
    CreazioneManifestazione creazione;
    const QSignalSpy attivata(&creazione, &CreazioneManifestazione::manifestazioneAttivata);
    const int id = guida(creazione, [&] {
        compila("txtNom=Coppa");
        premi("cmdAvanti", 3);
        aggiungi("cboPro=PA;txtTem=00:00:10");
        premi("cmdAvanti");
        confronta(
            "txtMaxPen=NON Attivo;txtFatNoASI=NON Attivo;txtPenProvaNonSvolta=NON Attivo;"
            "txtRagAuto=NON Attivo;txtTipoCO=Concatenati l'uno con l'altro;txtPrePA=MINUTO");
        QVERIFY(!controllo(pagina(), "txtPrePANoASI")->isVisible());
        QCOMPARE(contaRighe("Manifestazioni"), 0);
        attendiSalvata(false);
        premi("cmdSalva");
    });
    QCOMPARE(
        contaRighe("Manifestazioni",
                   "Nom='Coppa' AND Loc='' AND Clu='' AND PrePA='MIN' AND PrePM='MIN' AND PreCO='MIN' AND "
                   "PenUniPA=0 AND PenUniPM=0 AND PenUniCO=0 AND PenMaxAtt=0 AND PenMax IS NULL AND "
                   "PenProNonSvo=0 AND NumPenProNonSvo IS NULL AND FatNoASI=0 AND NumFatNoASI=0 AND "
                   "TipoCO='CON' AND ASIeNONASI=0 AND coalesce(PrePANoASI,PrePMNoASI,PreCONoASI,"
                   "PenUniPANoASI,PenUniPMNoASI,PenUniCONoASI,PenMaxNoASI) IS NULL AND FatAnn=0 AND "
                   "AutoEsc=0 AND RagAuto=0 AND DaDat='14/06/2026' AND ADat='14/06/2026' AND "
                   "DatVer='14/06/2026'"),
        1);
    QCOMPARE(contaRighe("Prove",
                        QString("IDMan_FK=%1 AND Tip='PA' AND Tem='00:00:10' AND Dat='14/06/2026'").arg(id)),
             1);
    QCOMPARE(IDMan, 0);
    QVERIFY(attivata.isEmpty());
}

void tst_Creazione::conTutto() {
    CreazioneManifestazione creazione;
    const QSignalSpy attivata(&creazione, &CreazioneManifestazione::manifestazioneAttivata);
    const int id = guida(creazione, [&] {
        compila(
            "chkEscAuto=SI;chkRagAuto=SI;chkOpzASI_NONASI=SI;optCOPar=SI;cboFatAnn=SI;cboMaxPen=SI;"
            "cboPenProvaNonSvolta=SI;cboFatNoASI=SI;cboPrePA=CENTESIMO;cboPrePM=SECONDO;cboPreCO=DECIMO;"
            "cboPrePANoASI=DECIMO;cboPrePMNoASI=CENTESIMO;cboPreCONoASI=SECONDO");
        compila(
            "txtNom=Coppa d'Oro;txtLoc=Asti;txtClu=Ruote;DaDat=13/06/2026;ADat=5/7/26;DatVer=12/6/2026;"
            "txtPenUniPA=1;txtPenUniPM=2;txtPenUniCO=2,4;txtMaxPen=300;txtPenUniPANoASI=11;"
            "txtPenUniPMNoASI=12;txtMaxPenNoASI=900;txtNumFatNoASI=2,5;txtPenProvaNonSvolta=510");
        premi("cmdAvanti");
        premi("cmdRaggruppamentiASI", 2);
        premi("cmdAvanti");
        for (const char* squadra : {"txtNom=Scuderia A", "txtNom=Scuderia A", "txtNom=Scuderia"})
            aggiungi(squadra);
        doppioClic("lstSqu", 2);
        compila("txtNom=Scuderia B");
        premi("cmdMod");
        doppioClic("lstSqu", 0);
        premi("cmdEli");
        premi("cmdAvanti");
        aggiungi("cboPro=CO;txtNom=Partenza;txtTem=01:00:00");
        aggiungi("cboPro=PA;txtNom=Piazza;txtTem=00:00:10;cboCon=SI");
        aggiungi("cboPro=PM;txtNom=Collina;txtTem=00:12:00;cboCon=SI");
        // Back to the first page and forth again: all that was typed is there.
        premi("cmdIndietro", 3);
        premi("cmdAvanti", 4);
        confronta(
            "txtNom=Coppa d'Oro;txtADat=05/07/2026;txtDatVer=12/06/2026;txtPrePA=CENTESIMO;"
            "txtMaxPen=300;txtMaxPenNoASI=900;txtFatNoASI=Attivo : 2,5;"
            "txtPenProvaNonSvolta=Attivo : 510;txtRagAuto=Attivo;"
            "txtTipoCO=Riferiti all'Orario di partenza;"
            "lblPenUniPA=Penalità per Ogni CENTESIMO di Rit. o Ant. nelle Prove di Abilità : ;"
            "lstSqu 1 0=Scuderia B;lstProve 2 1=Collina");
        QVERIFY(controllo(pagina(), "txtPrePANoASI")->isVisible());
        QCOMPARE(controllo<Elenco>(pagina(), "lstRag")->topLevelItemCount(), 7);
        attendiSalvata(true);
        premi("cmdSalva");
    });
    for (int volta = 0; volta < 2; ++volta) {
        QCOMPARE(contaRighe(
                     "Manifestazioni",
                     "Nom='Coppa d''Oro' AND Loc='Asti' AND Clu='Ruote' AND DaDat='13/06/2026' AND "
                     "ADat='05/07/2026' AND DatVer='12/06/2026' AND FatAnn=1 AND AutoEsc=1 AND RagAuto=1 AND "
                     "PrePA='CEN' AND PrePM='SEC' AND PreCO='DEC' AND PenUniPA=1 AND PenUniPM=2 AND "
                     "PenUniCO=2 AND PenMaxAtt=1 AND PenMax=300 AND PenProNonSvo=1 AND "
                     "NumPenProNonSvo=510 AND FatNoASI=1 AND NumFatNoASI=2.5 AND TipoCO='PAR' AND "
                     "ASIeNONASI=1 AND PrePANoASI='DEC' AND PrePMNoASI='CEN' AND PreCONoASI='SEC' AND "
                     "PenUniPANoASI=11 AND PenUniPMNoASI=12 AND PenUniCONoASI=0 AND PenMaxNoASI=900"),
                 1);
        modificaManifestazione(id, leggiManifestazione(id));  // and stored again as it is
    }
    QCOMPARE(contaRighe("Raggruppamenti", "Nom='Modern' AND Fat=1 AND DAAnn=1970 AND AAnn=2006"), 1);
    QCOMPARE(contaRighe("Squadre", QString("IDMan_FK=%1").arg(id)), 2);
    QCOMPARE(contaRighe("Prove p", "p.ConA=(SELECT max(IDPro) FROM Prove q WHERE q.IDPro<p.IDPro)"), 2);
    QCOMPARE(IDMan, id);
    QCOMPARE(m_programma->impostazioni.leggi("IDMan", "IDMan", ""), QString::number(id));
    QCOMPARE(attivata[0][0].toString(), QString("Coppa d'Oro"));
}

void tst_Creazione::abilitazioni() {
    frmNuovaManifestazione finestra;
    finestra.show();
    const std::array<QString, 3> proposte[] = {{"cboMaxPen", "txtMaxPen", ""},
                                               {"cboFatNoASI", "txtNumFatNoASI", "3"},
                                               {"cboPenProvaNonSvolta", "txtPenProvaNonSvolta", "500"}};
    for (const auto& [combo, nome, proposta] : proposte) {
        abilitati(&finestra, nome, false);
        compila(&finestra, combo + "=SI");
        abilitati(&finestra, nome, true);
        confronta(&finestra, nome + '=' + proposta);
        scrivi(&finestra, nome, "77");
        compila(&finestra, combo + "=NO");
        abilitati(&finestra, nome, false);
        confronta(&finestra, nome + '=');
    }

    const QString noASI =
        "cboPrePANoASI cboPrePMNoASI cboPreCONoASI txtPenUniPANoASI txtPenUniPMNoASI txtPenUniCONoASI";
    const QString piene = "txtPenUniPANoASI=5;txtPenUniPMNoASI=5;txtPenUniCONoASI=5;txtMaxPenNoASI=5";
    const auto visibili = [&](bool attesi) {
        for (const QString& nome : (noASI + " txtMaxPenNoASI").split(' '))
            QCOMPARE(controllo<QWidget>(&finestra, nome)->isVisible(), attesi);
        abilitati(&finestra, noASI, attesi);
        abilitati(&finestra, "txtMaxPenNoASI", false);
    };
    const int larghezza = finestra.width();
    compila(&finestra, "chkOpzASI_NONASI=SI");
    QVERIFY(finestra.width() > larghezza);
    visibili(true);
    compila(&finestra, "cboMaxPen=SI;" + piene);
    abilitati(&finestra, "txtMaxPenNoASI", true);
    compila(&finestra, "cboMaxPen=NO");
    visibili(true);
    confronta(&finestra, "txtMaxPenNoASI=");
    compila(&finestra, "chkOpzASI_NONASI=NO");
    visibili(false);
    compila(&finestra, "chkOpzASI_NONASI=SI");
    confronta(&finestra, QString(piene).remove('5'));

    compila(&finestra, "cboPrePM=DECIMO;txtPenUniPA=1a,2;txtPenUniCO=1a,2");
    confronta(&finestra,
              "txtPenUniPA=12;txtPenUniCO=1a,2;"
              "lblPenUniPM=Penalità per Ogni DECIMO di Ritardo o Anticipo nelle Prove di Media Imposta : ");
}

void tst_Creazione::rifiuti() {
    using enum Icona;
    // The page, what is pressed there (a list is double clicked on nothing), and the box that comes.
    const struct {
        int pagina;
        const char *gesto, *titolo, *testo;
        Icona icona = Esclamazione;
    } casi[] = {
        {0, "cmdAvanti", "Impossibile Proseguire", "Inserire Almeno il Nome della Manifestazione", Stop},
        {1, "cmdMod", "Impossibile Modificare", "Selezionare un Raggruppamento da Modificare"},
        {1, "cmdEli", "Impossibile Eliminare", "Selezionare un Raggruppamento da Eliminare"},
        {1, "lstRag", "Attenzione", "Selezionare un Raggruppamento da Modificare"},
        {2, "cmdMod", "Impossibile Modificare", "Selezionare una Squadra da Modificare"},
        {2, "cmdEli", "Impossibile Eliminare", "Selezionare una Squadra da Eliminare"},
        {2, "lstSqu", "Attenzione", "Selezionare una Squadra da Modificare"},
        {2, "cmdAgg", "Impossbile Aggiungere", "Inserire il Nome della Squadra"},
        {3, "cmdAvanti", "Impossibile Proseguire", "Inserire Almeno una Prova", Stop},
        {3, "cmdMod", "Impossibile Modificare", "Selezionare una Prova da Modificare"},
        {3, "cmdEli", "Impossibile Eliminare", "Selezionare una Prova da Eliminare"},
        {3, "lstProve", "Attenzione", "Selezionare una Prova da Modificare"},
        {3, "cmdAgg", "Impossibile Aggiungere", "Inserire il Tempo Imposto della Prova", Stop}};
    int davanti = 0;
    inPagina(0, [&] {
        compila("cboMaxPen=SI");
        dialoghi().attendiMessaggio("Attenzione",
                                    "E' Stato Attivata l'Opzione del Massimo delle Penalità,\n"
                                    "ma NON è Stato Inserito Nessun Valore per il Massimo\n"
                                    "Continuare Comunque ?");
        premi("cmdAvanti");
        compila("txtNom=");
        for (const auto& caso : casi) {
            premi("cmdAvanti", caso.pagina - davanti);
            davanti = caso.pagina;
            const QString nome = pagina()->objectName();
            dialoghi().attendiMessaggio(caso.titolo, caso.testo, caso.icona);
            caso.gesto[0] == 'l' ? doppioClic(caso.gesto, -1) : premi(caso.gesto);
            QVERIFY2(dialoghi().finite(), caso.testo);
            QCOMPARE(pagina()->objectName(), nome);
            if (davanti == 0) {
                QCOMPARE(fuoco(), QString("txtNom"));
                compila("txtNom=Coppa;txtMaxPen=0");
            }
        }
        QCOMPARE(fuoco(), QString("txtTem"));
    });
    QCOMPARE(davanti, 3);
}

void tst_Creazione::gruppi() {
    inPagina(1, [&] {
        aggiungi("txtNom=A;txtFat=1,5;txtDaAnn=1931;txtAAnn=1945");
        aggiungi("txtNom=B;txtFat=1");
        QCOMPARE(fuoco(), QString("txtNom"));
        confronta("txtFat=;lstRag 0 1=1,5");
        // A change does not meet its own row.
        doppioClic("lstRag", 0);
        confronta("txtDaAnn=1931");
        compila("txtDaAnn=1932");
        premi("cmdMod");
        confronta("lstRag 0 2=1932");
        // By year only when every group has its years, and then no group without is added.
        premi("cmdIndietro");
        dialoghi().attendiMessaggio("Impossibile Attivare l'Opzione",
                                    "Sono Stati Già Inseriti dei Raggruppamenti Senza Anni.\n"
                                    "Inserire Tutti gli Anni Mancanti e Quindi Atrivare l'Opzione");
        compila("chkRagAuto=SI");
        confronta("chkRagAuto=NO");
        premi("cmdAvanti");
        doppioClic("lstRag", 1);
        premi("cmdEli");
        premi("cmdIndietro");
        compila("chkRagAuto=SI");
        premi("cmdAvanti");
        dialoghi().attendiMessaggio("Anni Mancanti", QString());
        aggiungi("txtNom=B;txtFat=1");
    });
}

void tst_Creazione::prove() {
    inPagina(3, [&] {
        aggiungi("cboPro=PA;txtNom=Uno;txtTem=00:00:10");
        QCOMPARE(fuoco(), QString("txtNom"));
        aggiungi("cboPro=CO;txtNom=Due;txtTem=0:10:0");
        aggiungi("cboPro=CO;txtNom=Tre;txtTem=00:20:00;cboCon=SI");
        doppioClic("lstProve", 1);
        confronta("cboPro=CO;txtTem=00:10:00");
        compila("cboCon=SI");
        dialoghi().attendiMessaggio("Impossibile Aggiungere", QString(), Icona::Stop);
        premi("cmdMod");
        compila("cboPro=PM");
        premi("cmdMod");
        confronta("lstProve 1 0=PM");
        doppioClic("lstProve", 0);
        premi("cmdEli");
        // The chain that leads nowhere now is not revised here.
        confronta("lstProve 0 1=Due;lstProve 0 5=SI;Dat=__/__/____;lblNumero=Prove Inserite : 2");

        // Time controls measured from the start are not chained, nor can they be.
        premi("cmdIndietro", 3);
        compila("optCOPar=SI");
        premi("cmdAvanti", 3);
        confronta("lstProve 0 5=SI;lstProve 1 5=NO");
        compila("cboCon=SI;cboPro=CO");
        confronta("cboCon=NO");
        abilitati(pagina(), "cboCon", false);
        compila("cboPro=PM");
        abilitati(pagina(), "cboCon", true);
    });
}

void tst_Creazione::dateEAnniTrattengono() {
    inPagina(0, [&] {
        compila("ADat=31/02/2026");
        controllo(pagina(), "txtLoc")->setFocus();
        QTRY_COMPARE(fuoco(), QString("ADat"));
        premi("cmdAvanti");
        QCOMPARE(pagina()->objectName(), QString("frmNuovaManifestazione"));
        compila("ADat=28/02/2026");
        premi("cmdAvanti");

        compila("txtDaAnn=1849");
        dialoghi().attendiMessaggio("Dato Errato", "Controllare l'Anno Inserito");
        controllo(pagina(), "txtNom")->setFocus();
        QTRY_COMPARE(fuoco(), QString("txtDaAnn"));
        // The end of "Modern" is beyond the bound; untouched it does not stand in the way.
        compila("txtDaAnn=");
        premi("cmdRaggruppamentiASI");
        doppioClic("lstRag", 6);
        compila("txtFat=1,2;txtDaAnn=1971");
        premi("cmdMod");
        confronta("lstRag 6 1=1,2");
        premi("cmdAvanti", 2);
        aggiungi("txtTem=25:00:00");
        confronta("lblNumero=Prove Inserite : 0");
    });
}

void tst_Creazione::uscita() {
    inPagina(0, [&] {
        dialoghi().attendiDomanda(Uscita, TestoUscita, false);
        pagina()->close();
        QVERIFY(pagina());
        dialoghi().attendiDomanda(Uscita, TestoUscita, true);
        premi("cmdAnnulla");
        QVERIFY(!pagina());
    });
    QCOMPARE(contaRighe("Manifestazioni"), 0);
}

void tst_Creazione::salvataggioFallito() {
    guasta("INSERT ON Raggruppamenti");
    const int id = inPagina(1, [&] {
        premi("cmdRaggruppamentiASI");
        premi("cmdAvanti", 2);
        aggiungi("cboPro=PA;txtNom=Uno;txtTem=00:00:10");
        premi("cmdAvanti");
        dialoghi().attendiMessaggio("Velmora", QString(), Icona::Stop);
        premi("cmdSalva");
        QCOMPARE(contaRighe("Manifestazioni") + contaRighe("Prove") + contaRighe("Raggruppamenti"), 0);
        // The page is as it was, and the save can be tried again.
        esegui("DROP TRIGGER guasto");
        attendiSalvata(true);
        premi("cmdSalva");
    });
    QCOMPARE(contaRighe("Raggruppamenti", QString("IDMan_FK=%1").arg(id)), 7);
}

void tst_Creazione::soloTastiera() {
    inPagina(3, [&] {
        for (const char* nome : {"Uno", "Due", "Tre"})
            aggiungi(QString("txtNom=%1;txtTem=00:00:10").arg(nome));
        // The space bar loads the row, and the road of Enter then ends on Modifica.
        auto* prove = controllo<Elenco>(pagina(), "lstProve");
        prove->setFocus();
        tasto(Qt::Key_End);
        tasto(Qt::Key_Space);
        confronta("txtNom=Tre");
        digita("Ultima");
        controllo<QWidget>(pagina(), "cboCon")->setFocus();
        tasto(Qt::Key_Return);
        QCOMPARE(fuoco(), QString("cmdMod"));
        tasto(Qt::Key_Space);
        confronta("lstProve 2 1=Ultima");
        // The row stays current, no longer chosen: a second Canc deletes nothing more.
        prove->setFocus();
        tasto(Qt::Key_Down);
        for (int i = 0; i < 2; ++i)
            tasto(Qt::Key_Delete);
        QCOMPARE(prove->scelta(), -1);
        QCOMPARE(prove->currentIndex().row(), 1);
    });
}

PROVA_FINESTRE(tst_Creazione)
#include "tst_Creazione.moc"

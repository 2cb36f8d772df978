#include "common/Subroutine.h"
#include "event/frmNuovaManifestazione.h"
#include "event/Guida.h"
#include "event/NuovaManifestazione.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QSignalSpy>

namespace {

const QString Uscita = "Uscire dall'Inserimento ?";
const QString TestoUscita = "La Manifestazione NON E' Stata Salvata Si Desidera Uscire Comunque ? ";

void attendiSalvata(ProgrammaDiProva& programma, bool attiva) {
    programma.dialoghi.attendiAvviso("Manifestazione Creata");
    programma.dialoghi.attendiDomanda(
        "Manifestazione Attiva", "Impostare la Manifestazione Creata\ncome Manifestazione Attiva ?", attiva);
}

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

QString fuoco() {
    return pagina()->focusWidget()->objectName();
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

class tst_Creazione final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void conIPredefiniti();
    void conTutto();
    void abilitazioni();
    void rifiuti();
    void gruppi();
    void squadre();
    void prove();
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
        compila("txtNom=Coppa");
        for (const char* titolo : {"Dati Manifestazione", "Raggruppamenti", "Squadre"}) {
            QCOMPARE(pagina()->windowTitle(), QString("Creazione Nuova Manifestazione - ") + titolo);
            premi("cmdAvanti");
        }
        QCOMPARE(pagina()->windowTitle(), QString("Creazione Nuova Manifestazione - Prove"));
        aggiungi("cboPro=PA;txtTem=00:00:10");
        premi("cmdAvanti");
        QCOMPARE(pagina()->windowTitle(), QString("Creazione Nuova Manifestazione - Riepilogo Finale"));
        confronta(
            "txtMaxPen=NON Attivo;txtFatNoASI=NON Attivo;txtPenProvaNonSvolta=NON Attivo;"
            "txtRagAuto=NON Attivo;txtTipoCO=Concatenati l'uno con l'altro;txtPrePA=MINUTO");
        QVERIFY(!controllo(pagina(), "txtPrePANoASI")->isVisible());
        QCOMPARE(contaRighe("Manifestazioni"), 0);
        attendiSalvata(programma, false);
        premi("cmdSalva");
    });
    QVERIFY(programma.dialoghi.finite());
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
    for (const char* nome : {"", "2", "2Bis", "3", "4"})
        QVERIFY(!FinestraCaricata(QString("frmNuovaManifestazione") + nome));
}

void tst_Creazione::conTutto() {
    ProgrammaDiProva programma;
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
        aggiungi("txtNom=Scuderia A");
        aggiungi("txtNom=Scuderia B");
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
            "lblPenUniPM=Penalità per Ogni SECONDO di Rit. o Ant. nelle Prove di Media Imposta : ;"
            "lstSqu 1 0=Scuderia B;lstProve 2 1=Collina");
        QVERIFY(controllo(pagina(), "txtPrePANoASI")->isVisible());
        QCOMPARE(controllo<Elenco>(pagina(), "lstRag")->topLevelItemCount(), 7);
        attendiSalvata(programma, true);
        premi("cmdSalva");
    });
    QVERIFY(programma.dialoghi.finite());
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
    QCOMPARE(programma.impostazioni.leggi("IDMan", "IDMan", ""), QString::number(id));
    QCOMPARE(attivata.size(), 1);
    QCOMPARE(attivata[0][0].toString(), QString("Coppa d'Oro"));
}

void tst_Creazione::abilitazioni() {
    const ProgrammaDiProva programma;
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
              "lblPenUniPA=Penalità per Ogni MINUTO di Ritardo o Anticipo nelle Prove di Abilità : ;"
              "lblPenUniPM=Penalità per Ogni DECIMO di Ritardo o Anticipo nelle Prove di Media Imposta : ;"
              "lblPenUniCO=Penalità per Ogni MINUTO di Ritardo o Anticipo nei Controlli Orari : ");
}

void tst_Creazione::rifiuti() {
    ProgrammaDiProva programma;
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
        {1, "cmdAgg", "Impossbile Aggiungere", "Inserire il Nome del Raggruppamento", Stop},
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
        programma.dialoghi.attendiMessaggio("Attenzione",
                                            "E' Stato Attivata l'Opzione del Massimo delle Penalità,\n"
                                            "ma NON è Stato Inserito Nessun Valore per il Massimo\n"
                                            "Continuare Comunque ?");
        premi("cmdAvanti");
        compila("txtNom=");
        for (const auto& caso : casi) {
            premi("cmdAvanti", caso.pagina - davanti);
            davanti = caso.pagina;
            const QString nome = pagina()->objectName();
            programma.dialoghi.attendiMessaggio(caso.titolo, caso.testo, caso.icona);
            caso.gesto[0] == 'l' ? doppioClic(caso.gesto, -1) : premi(caso.gesto);
            QVERIFY2(programma.dialoghi.finite(), caso.testo);
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
    ProgrammaDiProva programma;
    inPagina(1, [&] {
        aggiungi("txtNom=A;txtFat=1,5;txtDaAnn=1931;txtAAnn=1945");
        aggiungi("txtNom=B;txtFat=1");
        QCOMPARE(fuoco(), QString("txtNom"));
        confronta("txtFat=;lstRag 0 1=1,5");
        programma.dialoghi.attendiMessaggio(
            "Anno Errato", "L'Anno di Fine del Raggruppamento Fa Parte di un Raggruppamento già Inserito");
        aggiungi("txtNom=C;txtFat=1;txtDaAnn=1920;txtAAnn=1935");
        QCOMPARE(fuoco(), QString("txtAAnn"));
        // A change does not meet its own row.
        doppioClic("lstRag", 0);
        confronta("txtDaAnn=1931");
        compila("txtDaAnn=1932");
        premi("cmdMod");
        confronta("lstRag 0 2=1932");

        // By year only when every group has its years, and then no group without is added.
        premi("cmdIndietro");
        programma.dialoghi.attendiMessaggio("Impossibile Attivare l'Opzione",
                                            "Sono Stati Già Inseriti dei Raggruppamenti Senza Anni.\n"
                                            "Inserire Tutti gli Anni Mancanti e Quindi Atrivare l'Opzione");
        compila("chkRagAuto=SI");
        confronta("chkRagAuto=NO");
        premi("cmdAvanti");
        doppioClic("lstRag", 1);
        premi("cmdEli");
        confronta("lblNumero=Raggruppamenti Inseriti : 1");
        premi("cmdIndietro");
        compila("chkRagAuto=SI");
        confronta("chkRagAuto=SI");
        premi("cmdAvanti");
        programma.dialoghi.attendiMessaggio("Anni Mancanti", QString());
        aggiungi("txtNom=B;txtFat=1");
        QVERIFY(programma.dialoghi.finite());
    });
}

void tst_Creazione::squadre() {
    const ProgrammaDiProva programma;
    inPagina(2, [&] {
        for (const char* squadra : {"txtNom=Uno", "txtNom=Uno", "txtNom=Due"})
            aggiungi(squadra);
        doppioClic("lstSqu", 1);
        compila("txtNom=Tre");
        premi("cmdMod");
        doppioClic("lstSqu", 0);
        premi("cmdEli");
        confronta("lstSqu 0 0=Tre;lblNumero=Squadre Inserite : 2");
    });
}

void tst_Creazione::prove() {
    ProgrammaDiProva programma;
    inPagina(3, [&] {
        aggiungi("cboPro=PA;txtNom=Uno;txtTem=00:00:10");
        QCOMPARE(fuoco(), QString("txtNom"));
        aggiungi("cboPro=CO;txtNom=Due;txtTem=0:10:0");
        aggiungi("cboPro=CO;txtNom=Tre;txtTem=00:20:00;cboCon=SI");
        // A change of the middle row looks only at the rows before it.
        doppioClic("lstProve", 1);
        confronta("cboPro=CO;txtTem=00:10:00");
        compila("cboCon=SI");
        programma.dialoghi.attendiMessaggio("Impossibile Aggiungere",
                                            "Il Primo CO non può Essere\nConcatenato con il Precedente",
                                            Icona::Stop);
        premi("cmdMod");
        compila("cboPro=PM");
        premi("cmdMod");
        QVERIFY(programma.dialoghi.finite());
        confronta("lstProve 1 0=PM");
        doppioClic("lstProve", 0);
        premi("cmdEli");
        // The chain that leads nowhere now is not revised here.
        confronta("lstProve 0 1=Due;lstProve 0 5=SI;Dat=//;lblNumero=Prove Inserite : 2");

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
    ProgrammaDiProva programma;
    inPagina(0, [&] {
        compila("ADat=31/02/2026");
        controllo(pagina(), "txtLoc")->setFocus();
        QTRY_COMPARE(fuoco(), QString("ADat"));
        premi("cmdAvanti");
        QCOMPARE(pagina()->objectName(), QString("frmNuovaManifestazione"));
        compila("ADat=28/02/2026");
        premi("cmdAvanti");

        compila("txtDaAnn=1849");
        programma.dialoghi.attendiMessaggio("Dato Errato", "Controllare l'Anno Inserito");
        controllo(pagina(), "txtNom")->setFocus();
        QTRY_COMPARE(fuoco(), QString("txtDaAnn"));
        QVERIFY(programma.dialoghi.finite());
        // The end of "Modern" is beyond the bound; untouched it does not stand in the way.
        compila("txtDaAnn=");
        premi("cmdRaggruppamentiASI");
        doppioClic("lstRag", 6);
        compila("txtFat=1,2;txtDaAnn=1971");
        premi("cmdMod");
        confronta("lstRag 6 1=1,2");
        premi("cmdAvanti", 2);
        compila("txtTem=25:00:00");
        premi("cmdAgg");
        QCOMPARE(fuoco(), QString("txtTem"));
        QCOMPARE(controllo<Elenco>(pagina(), "lstProve")->topLevelItemCount(), 0);
    });
}

void tst_Creazione::uscita() {
    ProgrammaDiProva programma;
    for (int pagineAvanti = 0; pagineAvanti < 4; ++pagineAvanti) {
        const int id = inPagina(pagineAvanti, [&] {
            const QString nome = pagina()->objectName();
            programma.dialoghi.attendiDomanda(Uscita, TestoUscita, false);
            pagina()->close();
            QCOMPARE(pagina()->objectName(), nome);
            programma.dialoghi.attendiDomanda(Uscita, TestoUscita, true);
            pagineAvanti == 0 ? premi("cmdAnnulla") : QTest::keyClick(pagina(), Qt::Key_Escape);
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
    const int id = inPagina(1, [&] {
        premi("cmdRaggruppamentiASI");
        premi("cmdAvanti");
        aggiungi("txtNom=Scuderia");
        premi("cmdAvanti");
        aggiungi("cboPro=PA;txtNom=Uno;txtTem=00:00:10");
        premi("cmdAvanti");
        programma.dialoghi.attendiMessaggio("Velmora", QString(), Icona::Stop);
        premi("cmdSalva");
        QVERIFY(programma.dialoghi.finite());
        for (const char* tabella : {"Manifestazioni", "Prove", "Squadre", "Raggruppamenti"})
            QCOMPARE(contaRighe(tabella), 0);
        // The page is as it was, and the save can be tried again.
        esegui("DROP TRIGGER guasto");
        attendiSalvata(programma, true);
        premi("cmdSalva");
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
            tasto(Qt::Key_Space);
            QVERIFY(pagina());
        }
        for (int i = 1; i <= 20; ++i) {
            finoA("txtNom");
            scriviQui(QString("Prova %1").arg(i));
            finoA("txtTem");
            scriviQui("000010");
            finoA("cmdAgg");
            tasto(Qt::Key_Space);
        }
        finoA("lstProve");
        tasto(Qt::Key_Down);
        tasto(Qt::Key_End);
        tasto(Qt::Key_Return);  // loads the row
        confronta("txtNom=Prova 20");
        tasto(Qt::Key_Delete);
        finoA("cmdAvanti");
        tasto(Qt::Key_Space);
        QVERIFY(pagina());
        attendiSalvata(programma, true);
        finoA("cmdSalva");
        tasto(Qt::Key_Space);
    });
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(contaRighe("Prove", QString("IDMan_FK=%1").arg(id)), 19);
}

PROVA_FINESTRE(tst_Creazione)
#include "tst_Creazione.moc"

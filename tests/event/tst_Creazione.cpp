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

// Adds a row with these fields; a combo box is chosen, a line edit typed.
void aggiungi(const std::initializer_list<std::pair<QString, QString>>& campi) {
    for (const auto& [nome, testo] : campi)
        nome.startsWith("cbo") ? scegli(pagina(), nome, testo) : scrivi(pagina(), nome, testo);
    premi("cmdAgg");
}

void aggiungiProvaInPagina(const QString& tipo, const QString& nome, const QString& tempo,
                           const QString& concatenata = "NO") {
    aggiungi({{"cboPro", tipo}, {"cboCon", concatenata}, {"txtNom", nome}, {"txtTem", tempo}});
}

void aggiungiGruppoInPagina(const QString& nome, const QString& fattore, const QString& da,
                            const QString& a) {
    aggiungi({{"txtNom", nome}, {"txtFat", fattore}, {"txtDaAnn", da}, {"txtAAnn", a}});
}

// The steps on a page of a new creation; the key of what was saved.
template <typename Passi>
int inPagina(int quale, Passi passi) {
    CreazioneManifestazione creazione;
    return guida(creazione, [&] {
        scrivi(pagina(), "txtNom", "Coppa");
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
        scrivi(pagina(), "txtNom", "Coppa");
        for (const char* titolo : {"Dati Manifestazione", "Raggruppamenti", "Squadre"}) {
            QCOMPARE(pagina()->windowTitle(), QString("Creazione Nuova Manifestazione - ") + titolo);
            premi("cmdAvanti");
        }
        QCOMPARE(pagina()->windowTitle(), QString("Creazione Nuova Manifestazione - Prove"));
        aggiungiProvaInPagina("PA", "", "00:00:10");
        premi("cmdAvanti");
        QCOMPARE(pagina()->windowTitle(), QString("Creazione Nuova Manifestazione - Riepilogo Finale"));
        confronta(pagina(), {{"txtMaxPen", "NON Attivo"},
                             {"txtFatNoASI", "NON Attivo"},
                             {"txtPenProvaNonSvolta", "NON Attivo"},
                             {"txtRagAuto", "NON Attivo"},
                             {"txtTipoCO", "Concatenati l'uno con l'altro"},
                             {"txtPrePA", "MINUTO"}});
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
        for (const char* nome : {"chkEscAuto", "chkRagAuto", "chkOpzASI_NONASI", "optCOPar"})
            controllo<QAbstractButton>(pagina(), nome)->click();
        for (const char* combo : {"cboFatAnn", "cboMaxPen", "cboPenProvaNonSvolta", "cboFatNoASI"})
            scegli(pagina(), combo, "SI");
        const Testi scelte{{"cboPrePA", "CENTESIMO"},    {"cboPrePM", "SECONDO"},
                           {"cboPrePANoASI", "DECIMO"},  {"cboPrePMNoASI", "CENTESIMO"},
                           {"cboPreCONoASI", "SECONDO"}, {"cboPreCO", "DECIMO"}};
        for (auto scelta = scelte.cbegin(); scelta != scelte.cend(); ++scelta)
            scegli(pagina(), scelta.key(), *scelta);
        const Testi testi{
            {"txtNom", "Coppa d'Oro"}, {"txtLoc", "Asti"},         {"txtClu", "Ruote"},
            {"DaDat", "13/06/2026"},   {"ADat", "5/7/26"},         {"DatVer", "12/6/2026"},
            {"txtPenUniPA", "1"},      {"txtPenUniPM", "2"},       {"txtPenUniCO", "2,4"},
            {"txtMaxPen", "300"},      {"txtPenUniPANoASI", "11"}, {"txtPenUniPMNoASI", "12"},
            {"txtMaxPenNoASI", "900"}, {"txtNumFatNoASI", "2,5"},  {"txtPenProvaNonSvolta", "510"}};
        for (auto testo = testi.cbegin(); testo != testi.cend(); ++testo)
            scrivi(pagina(), testo.key(), *testo);
        premi("cmdAvanti");
        premi("cmdRaggruppamentiASI", 2);
        premi("cmdAvanti");
        aggiungi({{"txtNom", "Scuderia A"}});
        aggiungi({{"txtNom", "Scuderia B"}});
        premi("cmdAvanti");
        aggiungiProvaInPagina("CO", "Partenza", "01:00:00");
        aggiungiProvaInPagina("PA", "Piazza", "00:00:10", "SI");
        aggiungiProvaInPagina("PM", "Collina", "00:12:00", "SI");
        confronta(pagina(), {{"lblNumero", "Prove Inserite : 3"}});
        // Back to the first page and forth again: all that was typed is there.
        premi("cmdIndietro", 3);
        premi("cmdAvanti", 4);
        confronta(
            pagina(),
            {{"txtNom", "Coppa d'Oro"},
             {"txtADat", "05/07/2026"},
             {"txtDatVer", "12/06/2026"},
             {"txtPrePA", "CENTESIMO"},
             {"txtMaxPen", "300"},
             {"txtMaxPenNoASI", "900"},
             {"txtFatNoASI", "Attivo : 2,5"},
             {"txtPenProvaNonSvolta", "Attivo : 510"},
             {"txtRagAuto", "Attivo"},
             {"txtTipoCO", "Riferiti all'Orario di partenza"},
             {"lblPenUniPA", "Penalità per Ogni CENTESIMO di Rit. o Ant. nelle Prove di Abilità : "},
             {"lblPenUniPM", "Penalità per Ogni SECONDO di Rit. o Ant. nelle Prove di Media Imposta : "}});
        QVERIFY(controllo(pagina(), "txtPrePANoASI")->isVisible());
        QCOMPARE(controllo<Elenco>(pagina(), "lstRag")->topLevelItemCount(), 7);
        QCOMPARE(cella(pagina(), "lstSqu", 1, 0), QString("Scuderia B"));
        QCOMPARE(cella(pagina(), "lstProve", 2, 1), QString("Collina"));
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
    const auto box = [&](const QString& nome) { return controllo(&finestra, nome); };
    for (const auto& [combo, nome, proposta] :
         {std::tuple{"cboMaxPen", "txtMaxPen", ""}, std::tuple{"cboFatNoASI", "txtNumFatNoASI", "3"},
          std::tuple{"cboPenProvaNonSvolta", "txtPenProvaNonSvolta", "500"}}) {
        QVERIFY(!box(nome)->isEnabled());
        scegli(&finestra, combo, "SI");
        QVERIFY(box(nome)->isEnabled());
        QCOMPARE(box(nome)->text(), QString(proposta));
        box(nome)->setText("77");
        scegli(&finestra, combo, "NO");
        QVERIFY(!box(nome)->isEnabled());
        QCOMPARE(box(nome)->text(), QString());
    }

    const QStringList noASI{"txtMaxPenNoASI", "txtPenUniPANoASI", "txtPenUniPMNoASI", "txtPenUniCONoASI",
                            "cboPrePANoASI",  "cboPrePMNoASI",    "cboPreCONoASI"};
    // Whether the other crews' controls show, and how many of them can be used, the maximum being the last.
    const auto altri = [&](bool visibili, int attivi) {
        for (const QString& nome : noASI) {
            QCOMPARE(controllo<QWidget>(&finestra, nome)->isVisible(), visibili);
            QCOMPARE(controllo<QWidget>(&finestra, nome)->isEnabled(),
                     attivi > (nome == "txtMaxPenNoASI" ? 6 : 0));
        }
    };
    const int larghezza = finestra.width();
    premi(&finestra, "chkOpzASI_NONASI");
    QVERIFY(finestra.width() > larghezza);
    altri(true, 6);
    scegli(&finestra, "cboMaxPen", "SI");
    altri(true, 7);
    for (const QString& nome : noASI.mid(0, 4))
        box(nome)->setText("5");
    scegli(&finestra, "cboMaxPen", "NO");
    altri(true, 6);
    QCOMPARE(box("txtMaxPenNoASI")->text(), QString());
    premi(&finestra, "chkOpzASI_NONASI");
    altri(false, 0);
    premi(&finestra, "chkOpzASI_NONASI");
    for (const QString& nome : noASI.mid(0, 4))
        QCOMPARE(box(nome)->text(), QString());

    scegli(&finestra, "cboPrePM", "DECIMO");
    scrivi(&finestra, "txtPenUniPA", "1a,2");
    scrivi(&finestra, "txtPenUniCO", "1a,2");
    confronta(
        &finestra,
        {{"txtPenUniPA", "12"},
         {"txtPenUniCO", "1a,2"},
         {"lblPenUniPA", "Penalità per Ogni MINUTO di Ritardo o Anticipo nelle Prove di Abilità : "},
         {"lblPenUniPM", "Penalità per Ogni DECIMO di Ritardo o Anticipo nelle Prove di Media Imposta : "},
         {"lblPenUniCO", "Penalità per Ogni MINUTO di Ritardo o Anticipo nei Controlli Orari : "}});
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
        scegli(pagina(), "cboMaxPen", "SI");
        programma.dialoghi.attendiMessaggio("Attenzione",
                                            "E' Stato Attivata l'Opzione del Massimo delle Penalità,\n"
                                            "ma NON è Stato Inserito Nessun Valore per il Massimo\n"
                                            "Continuare Comunque ?");
        premi("cmdAvanti");
        QVERIFY(programma.dialoghi.finite());
        scrivi(pagina(), "txtNom", "");
        for (const auto& caso : casi) {
            if (caso.pagina != davanti) {
                premi("cmdAvanti");
                ++davanti;
            }
            const QString nome = pagina()->objectName();
            programma.dialoghi.attendiMessaggio(caso.titolo, caso.testo, caso.icona);
            caso.gesto[0] == 'l' ? doppioClic(pagina(), caso.gesto, -1) : premi(caso.gesto);
            QVERIFY2(programma.dialoghi.finite(), caso.testo);
            QCOMPARE(pagina()->objectName(), nome);
            if (davanti == 0) {
                QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtNom"));
                scrivi(pagina(), "txtNom", "Coppa");
                scrivi(pagina(), "txtMaxPen", "0");
            }
        }
        QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtTem"));
    });
    QCOMPARE(davanti, 3);
}

void tst_Creazione::gruppi() {
    ProgrammaDiProva programma;
    inPagina(1, [&] {
        aggiungiGruppoInPagina("A", "1,5", "1931", "1945");
        aggiungiGruppoInPagina("B", "1", "", "");
        QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtNom"));
        QCOMPARE(controllo(pagina(), "txtFat")->text(), QString());
        QCOMPARE(cella(pagina(), "lstRag", 0, 1), QString("1,5"));
        programma.dialoghi.attendiMessaggio(
            "Anno Errato", "L'Anno di Fine del Raggruppamento Fa Parte di un Raggruppamento già Inserito");
        aggiungiGruppoInPagina("C", "1", "1920", "1935");
        QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtAAnn"));
        // A change does not meet its own row.
        doppioClic(pagina(), "lstRag", 0);
        QCOMPARE(controllo(pagina(), "txtDaAnn")->text(), QString("1931"));
        scrivi(pagina(), "txtDaAnn", "1932");
        premi("cmdMod");
        QCOMPARE(cella(pagina(), "lstRag", 0, 2), QString("1932"));

        // By year only when every group has its years, and then no group without is added.
        premi("cmdIndietro");
        programma.dialoghi.attendiMessaggio("Impossibile Attivare l'Opzione",
                                            "Sono Stati Già Inseriti dei Raggruppamenti Senza Anni.\n"
                                            "Inserire Tutti gli Anni Mancanti e Quindi Atrivare l'Opzione");
        premi("chkRagAuto");
        QVERIFY(!controllo<QAbstractButton>(pagina(), "chkRagAuto")->isChecked());
        premi("cmdAvanti");
        doppioClic(pagina(), "lstRag", 1);
        premi("cmdEli");
        confronta(pagina(), {{"lblNumero", "Raggruppamenti Inseriti : 1"}});
        premi("cmdIndietro");
        premi("chkRagAuto");
        QVERIFY(controllo<QAbstractButton>(pagina(), "chkRagAuto")->isChecked());
        premi("cmdAvanti");
        programma.dialoghi.attendiMessaggio("Anni Mancanti", QString());
        aggiungiGruppoInPagina("B", "1", "", "");
        QVERIFY(programma.dialoghi.finite());
    });
}

void tst_Creazione::squadre() {
    const ProgrammaDiProva programma;
    inPagina(2, [&] {
        for (const char* nome : {"Uno", "Uno", "Due"})
            aggiungi({{"txtNom", nome}});
        doppioClic(pagina(), "lstSqu", 1);
        scrivi(pagina(), "txtNom", "Tre");
        premi("cmdMod");
        doppioClic(pagina(), "lstSqu", 0);
        premi("cmdEli");
        QCOMPARE(cella(pagina(), "lstSqu", 0, 0), QString("Tre"));
        confronta(pagina(), {{"lblNumero", "Squadre Inserite : 2"}});
    });
}

void tst_Creazione::prove() {
    ProgrammaDiProva programma;
    inPagina(3, [&] {
        aggiungiProvaInPagina("PA", "Uno", "00:00:10");
        QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtNom"));
        aggiungiProvaInPagina("CO", "Due", "0:10:0");
        aggiungiProvaInPagina("CO", "Tre", "00:20:00", "SI");
        // A change of the middle row looks only at the rows before it.
        doppioClic(pagina(), "lstProve", 1);
        confronta(pagina(), {{"cboPro", "CO"}, {"txtTem", "00:10:00"}});
        scegli(pagina(), "cboCon", "SI");
        programma.dialoghi.attendiMessaggio("Impossibile Aggiungere",
                                            "Il Primo CO non può Essere\nConcatenato con il Precedente",
                                            Icona::Stop);
        premi("cmdMod");
        scegli(pagina(), "cboPro", "PM");
        premi("cmdMod");
        QVERIFY(programma.dialoghi.finite());
        QCOMPARE(cella(pagina(), "lstProve", 1, 0), QString("PM"));
        doppioClic(pagina(), "lstProve", 0);
        premi("cmdEli");
        QCOMPARE(cella(pagina(), "lstProve", 0, 1), QString("Due"));
        QCOMPARE(cella(pagina(), "lstProve", 0, 5), QString("SI"));  // not revised here
        confronta(pagina(), {{"Dat", "//"}});

        // Time controls measured from the start are not chained, nor can they be.
        premi("cmdIndietro", 3);
        premi("optCOPar");
        premi("cmdAvanti", 3);
        QCOMPARE(cella(pagina(), "lstProve", 0, 5), QString("SI"));
        QCOMPARE(cella(pagina(), "lstProve", 1, 5), QString("NO"));
        scegli(pagina(), "cboCon", "SI");
        scegli(pagina(), "cboPro", "CO");
        confronta(pagina(), {{"cboCon", "NO"}});
        QVERIFY(!controllo<QComboBox>(pagina(), "cboCon")->isEnabled());
        scegli(pagina(), "cboPro", "PM");
        QVERIFY(controllo<QComboBox>(pagina(), "cboCon")->isEnabled());
    });
}

void tst_Creazione::dateEAnniTrattengono() {
    ProgrammaDiProva programma;
    inPagina(0, [&] {
        scrivi(pagina(), "ADat", "31/02/2026");
        controllo(pagina(), "txtLoc")->setFocus();
        QTRY_COMPARE(pagina()->focusWidget()->objectName(), QString("ADat"));
        premi("cmdAvanti");
        QCOMPARE(pagina()->objectName(), QString("frmNuovaManifestazione"));
        scrivi(pagina(), "ADat", "28/02/2026");
        premi("cmdAvanti");

        scrivi(pagina(), "txtDaAnn", "1849");
        programma.dialoghi.attendiMessaggio("Dato Errato", "Controllare l'Anno Inserito");
        controllo(pagina(), "txtNom")->setFocus();
        QTRY_COMPARE(pagina()->focusWidget()->objectName(), QString("txtDaAnn"));
        QVERIFY(programma.dialoghi.finite());
        // The end of "Modern" is beyond the bound; untouched it does not stand in the way.
        scrivi(pagina(), "txtDaAnn", "");
        premi("cmdRaggruppamentiASI");
        doppioClic(pagina(), "lstRag", 6);
        scrivi(pagina(), "txtFat", "1,2");
        scrivi(pagina(), "txtDaAnn", "1971");
        premi("cmdMod");
        QCOMPARE(cella(pagina(), "lstRag", 6, 1), QString("1,2"));
        premi("cmdAvanti", 2);
        scrivi(pagina(), "txtTem", "25:00:00");
        premi("cmdAgg");
        QCOMPARE(pagina()->focusWidget()->objectName(), QString("txtTem"));
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
        aggiungi({{"txtNom", "Scuderia"}});
        premi("cmdAvanti");
        aggiungiProvaInPagina("PA", "Uno", "00:00:10");
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
        attendiSalvata(programma, true);
        tasto(Qt::Key_Return);
    });
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(contaRighe("Prove", QString("IDMan_FK=%1").arg(id)), 19);
}

PROVA_FINESTRE(tst_Creazione)
#include "tst_Creazione.moc"

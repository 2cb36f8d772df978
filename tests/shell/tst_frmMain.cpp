#include "archive/Aggiornamenti.h"
#include "archive/ErroreArchivio.h"
#include "common/API.h"
#include "output/Rapporto.h"
#include "shell/Avvio.h"
#include "shell/AzioniMenu.h"
#include "shell/frmInformazioni.h"
#include "shell/frmMain.h"
#include "shell/Menu.h"
#include "shell/Salvataggio.h"
#include "supporto/AnteprimaDiProva.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QAction>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

using Archivio = ProgrammaDiProva::Archivio;

namespace {

// The titles of what was shown since the last call.
QStringList titoli(AnteprimaDiProva& anteprima) {
    QStringList tutti;
    for (const Rapporto& rapporto : std::exchange(anteprima.mostrati, {}))
        tutti << rapporto.titoloFinestra;
    return tutti;
}

QString testo(const QWidget& finestra, const char* nome) {
    return finestra.findChild<QLabel*>(nome)->text();
}

void premi(const QWidget& finestra, const char* nome) {
    QTest::mouseClick(finestra.findChild<QPushButton*>(nome), Qt::LeftButton);
}

void scegli(frmMain& principale, const QString& voce) {
    auto* azione = principale.findChild<QAction*>(voce);
    QVERIFY2(azione, qPrintable(voce));
    azione->trigger();
}

// Runs on the next window of that class once it is on screen; it must close it.
template <typename Azione>
void quandoSiApre(const char* classe, Azione azione) {
    auto* orologio = new QTimer(qApp);
    QObject::connect(orologio, &QTimer::timeout, qApp, [=] {
        QWidget* finestra = QApplication::activeModalWidget();
        if (!finestra || finestra->objectName() != QLatin1String(classe))
            return;
        orologio->deleteLater();
        azione(finestra);
    });
    orologio->start(1);
}

// Caption and name of each action, keys aside; a menu's are between its caption with ":" and "/".
QStringList albero(const QList<QAction*>& azioni) {
    QStringList tutti;
    for (QAction* azione : azioni) {
        const QString testo = azione->text().remove('&');
        if (azione->menu())
            tutti << testo + ':' << albero(azione->menu()->actions()) << "/";
        else
            tutti << testo + " = " + azione->objectName();
    }
    return tutti;
}

}  // namespace

class tst_frmMain final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void primoAvvio();
    void pannello();
    void alberoDelMenu();
    void ogniVoceRisponde();
    void classificheDalMenu();
    void dataGiornaliera();
    void classificaDiGruppo();
    void uscita();
    void avvioRifiutato();
    void avvioEUscita();
    void informazioni();
};

void tst_frmMain::primoAvvio() {
    ProgrammaDiProva programma(Archivio::Nessuno);
    programma.impostazioni.valori["IDMan/IDMan"] = "41";  // a key whose event is not there
    QFile avanzo(percorsoNelProgramma("temp.mdb"));
    QVERIFY(avanzo.open(QIODevice::WriteOnly));
    frmMain principale;
    principale.show();
    QVERIFY(QTest::qWaitForWindowActive(&principale));
    QCOMPARE(IDMan, 0);
    QCOMPARE(programma.impostazioni.valori["IDMan/IDMan"], QString("0"));
    QCOMPARE(testo(principale, "lblMani"), QString("Nessuna Manifestazione Attiva"));
    QVERIFY(!principale.findChild<QGroupBox*>("frmInfo")->isVisible());
    QVERIFY(!QFile::exists(avanzo.fileName()));
    QCOMPARE(testo(principale, "stVersione"), QString("Ver. ") + VELMORA_VERSIONE);
    QCOMPARE(testo(principale, "lblHelp"), QString("Per Ottenere un Aiuto in Ogni Finestra Premere F1"));
    QCOMPARE(contaRighe("Manifestazioni"), 0);
}

void tst_frmMain::pannello() {
    ProgrammaDiProva programma;
    nuovaManifestazione({{"Nom", "Coppa d'Autunno & Colli"}});
    nuovoEquipaggio(1);
    nuovoEquipaggio(2, {{"Omo", ""}});
    nuovoEquipaggio(3, {{"Omo", QVariant()}});
    ChiudiDataBase();
    frmMain principale;
    principale.resize(1000, 600);
    principale.show();
    QVERIFY(QTest::qWaitForWindowActive(&principale));
    const auto* info = principale.findChild<QGroupBox*>("frmInfo");
    QVERIFY(info->isVisible());
    const std::pair<const char*, const char*> attesi[] = {
        {"lblMani", "Coppa d'Autunno & Colli"},
        {"lblNom", "Coppa d'Autunno & Colli"},
        {"lblLoc", "Asti"},
        {"lblDat", "13/06/2026 - 14/06/2026"},
        {"lblEquipaggi", "Equipaggi Iscritti :   3   di cui ASI :   1"}};
    for (const auto& [nome, atteso] : attesi)
        QCOMPARE(testo(principale, nome), QString(atteso));
    QVERIFY(qAbs(info->width() - 0.7 * principale.width()) < 30);
    QVERIFY(qAbs(info->geometry().center().x() - principale.width() / 2) < 5);

    QTest::keyClick(&principale, Qt::Key_F10);
    QVERIFY(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);

    // Rebuilt when a window over it closes.
    nuovoEquipaggio(4);
    QEvent riattivata(QEvent::WindowActivate);
    QApplication::sendEvent(&principale, &riattivata);
    QCOMPARE(testo(principale, "lblEquipaggi"), QString("Equipaggi Iscritti :   4   di cui ASI :   2"));
    // Also where the platform does not activate it again.
    nuovoEquipaggio(5);
    quandoSiApre("frmInformazioni", [](QWidget* finestra) { finestra->close(); });
    scegli(principale, "mnuInformazioni");
    QCOMPARE(testo(principale, "lblEquipaggi"), QString("Equipaggi Iscritti :   5   di cui ASI :   3"));

    // What fails is told once, not at every activation.
    esegui("ALTER TABLE Equipaggi RENAME TO Altrove");
    programma.dialoghi.attendiMessaggio("Velmora", QString(), Icona::Stop);
    for (int volta = 0; volta < 2; ++volta)
        QApplication::sendEvent(&principale, &riattivata);
    QVERIFY(programma.dialoghi.finite());

    // The event's row went: by the entry's end nothing of it is left.
    esegui("DELETE FROM Manifestazioni");
    esegui("ALTER TABLE Altrove RENAME TO Equipaggi");
    programma.dialoghi.attendiMessaggio("Impossibile Modificare", "Nessuna Manifestazione Attiva");
    scegli(principale, "mnuModificaManifestazione");
    QVERIFY(!info->isVisible());
    QCOMPARE(testo(principale, "lblEquipaggi"), QString());
    QCOMPARE(testo(principale, "lblMani"), QString("Nessuna Manifestazione Attiva"));
    QCOMPARE(programma.impostazioni.valori["IDMan/IDMan"], QString("0"));
}

void tst_frmMain::alberoDelMenu() {
    ProgrammaDiProva programma(Archivio::Nessuno);
    const frmMain principale;
    // The two trees of classifications are the same but for their names.
    const QString classifiche(
        ": | Assoluta = mnuClasAssoluta | Veicoli ASI = mnuClasASI | Veicoli NON ASI = mnuClasNONASI | "
        "Di Raggruppamento = mnuClasRaggruppamento | Per Squadre = mnuClasSquadre | "
        "Di Prova = mnuClasProva | Di Giornata: | Tutti i Veicoli = mnuClasGioTutti | "
        "Di Raggruppamento = mnuClasGioGru | Per Squadre = mnuClasGioSqu | Veicoli ASI = mnuClasGioASI | "
        "Veicoli NON ASI = mnuClasGioNoASI | / | Femminile = mnuClasFemminile | / | ");
    const QString attesi =
        "Manifestazioni: | Crea Nuova = mnuNuovaManifestazione | "
        "Modifica Esistente = mnuModificaManifestazione | Elimina = mnuEliminaManifestazione | "
        "Cambia = mnuCambiaManifestazione | / | "
        "Iscrizioni: | Tabella Iscrizioni = mnuTabellaIscrizioni | Modulo Iscrizioni = mnuModuloIscrizioni | "
        "Tabella Iscrizioni Rapida = mnuTabellaIscrizioniRapida | "
        "Modulo Iscrizioni Rapido = mnuModuloIscrizionirapido | / | "
        "Quote/Prezzi: | Prezzi = mnuPrezzi | Quote = mnuQuote | / | Prove Svolte = mnuProveSvolte | "
        "Immissione Rilevamenti: | Manuale = mnuImmManuale | Ricezione ON LINE da TAG = mnuRXONLINE | "
        "Ricezione OFF LINE da TAG = mnuRXOFFLINE | Gestione Penalità Aggiuntive = mnuPenalitaAggiuntive | / "
        "| "
        "Controlli Orari: | Gestione Orari di Partenza = mnuOrariDiPartenza | "
        "Crea una Ripartenza = mnuCreaRipartenza | / | Classifiche" +
        classifiche + "Classifiche Excel" +
        QString(classifiche).replace(QRegularExpression("(= \\w+)"), "\\1Excel") +
        "Verifiche: | Tutti i Veicoli = mnuVerificheTutti | Solo Veicoli ASI = mnuVerificheASI | "
        "Solo Veicoli NON ASI = mnuVerificheNONASI | / | "
        "Stampe Varie: | Lista di Partenza = mnuStampaListaDiPartenza | "
        "Lista di Partenza in Excel = mnuStampaListaDiPartenzaExcel | "
        "Lista di Partenza Con Orari = mnuStampaListaDiPartenzaConOrari | "
        "Lista di Partenza Con Orari in Excel = mnuStampaListaDiPartenzaConOrariinExcel | "
        "Schede Individuali = mnuSchede | Prospetto Tempi = mnuStampaProspettoTempi | "
        "Prospetto Tempi in Excel = mnuStampaProspettoTempiExcel | "
        "Prospetto Tempi Compresso = mnuStampaProspettoTempiCompresso | "
        "Prospetto Tempi Compresso in Excel = mnuStampaProspettoTempiCompressoExcel | "
        "Lista Penalità Aggiuntive = mnuStampaPenalitàAggiuntive | "
        "Lista Penalità Aggiuntive in Excel = mnuStampaPenalitàAggiuntiveExcel | "
        "Prospetto Penalità con Coefficienti = mnuStampaCoefficienti | "
        "Prospetto Penalità con Coefficienti in Excel = mnuStampaCoefficientiExcel | / | "
        "Esporta/Importa: | Esportazione Dati = mnuEsporta | Importazione Dati = mnuImporta | "
        "Importazione Prove = mnuImportazioneProve | "
        "Importazione Iscrizioni da Excel = mnuImportazioneIscrizionidaExcel | / | "
        "Utilità: | Invia SMS Schede Individuali agli Equipaggi = mnuInviaSMS | "
        "Riorganizzazione Archivi = mnuRiorganizzaArchivi | "
        "Pubblicazione Manifestazione = mnuPubblicazioneManifestazione | "
        "Aggiornamento sofwtare via Internet = mnuUpdateVLM | / | Info = mnuInformazioni | Esci = mnuEsci";
    QCOMPARE(albero(principale.menuBar()->actions()), attesi.split(" | "));
}

void tst_frmMain::ogniVoceRisponde() {
    // Each entry has something behind it or says that it has not, after its guard.
    ProgrammaDiProva programma(Archivio::Nessuno);
    frmMain principale;
    for (const VoceMenu& voce : vociMenu()) {
        const QString nome = voce.nome ? QString::fromUtf16(voce.nome) : QString();
        QVERIFY2(!voce.nome || bool(azioneMenu(nome)) != nonAncoraDisponibile(nome), qPrintable(nome));
    }
    programma.dialoghi.attendiMessaggio("Impossibile Accedere Alla Stampa Schede",
                                        "Nessuna Manifestazione Attiva");
    scegli(principale, "mnuSchede");
    for (const bool si : {false, true}) {
        programma.dialoghi.attendiDomanda(
            "Riorganizzazione Archivi",
            "La Riorganizzazione Può Impiegare Diverso Tempo.\nConfermare l'Operazione ?", si);
        if (si)
            programma.dialoghi.attendiMessaggio("Velmora", "Funzione non ancora disponibile",
                                                Icona::Informazione);
        scegli(principale, "mnuRiorganizzaArchivi");
        QVERIFY(programma.dialoghi.finite());
    }
}

void tst_frmMain::classificheDalMenu() {
    ProgrammaDiProva programma;
    AnteprimaDiProva anteprima;
    nuovaManifestazione();
    const int prima = nuovaProva({{"Dat", "13/06/2026"}});
    const int equ = nuovoEquipaggio(1);
    nuovoEquipaggio(2, {{"Omo", ""}, {"Ses", "F"}});
    scriviRilevamento(equ, prima, "10:00:00:00", "10:01:00:10");
    ChiudiDataBase();
    frmMain principale;
    const std::pair<const char*, const char*> casi[] = {
        {"mnuClasAssoluta", "CLASSIFICA ASSOLUTA"},
        {"mnuClasASI", "CLASSIFICA ASI"},
        {"mnuClasNONASI", "CLASSIFICA NON ASI"},
        {"mnuClasFemminile", "CLASSIFICA ASSOLUTA FEMMINILE"},
        {"mnuClasGioTutti", "CLASSIFICA ASSOLUTA DEL 13/06/2026"},
        {"mnuClasGioASI", "CLASSIFICA ASI DEL 13/06/2026"},
        {"mnuClasGioNoASI", "CLASSIFICA NON ASI DEL 13/06/2026"},
        {"mnuStampaListaDiPartenza", "LISTA DI PARTENZA"},
        {"mnuStampaListaDiPartenzaConOrari", "LISTA e ORARI DI PARTENZA"},
        {"mnuStampaPenalitàAggiuntive", "Penalità Aggiuntive"}};
    for (const auto& [voce, titolo] : casi) {
        if (QString(voce).contains("Gio"))
            programma.dialoghi.attendiChiedi("Data Classifica Giornaliera",
                                             "Inserire la Data nel Formato gg/mm/aaaa", "13/06/2026");
        scegli(principale, voce);
        QVERIFY(programma.dialoghi.finite());
        QCOMPARE(titoli(anteprima), QStringList{titolo});
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }
}

void tst_frmMain::dataGiornaliera() {
    ProgrammaDiProva programma;
    AnteprimaDiProva anteprima;
    ChiudiDataBase();
    frmMain principale;
    const QString titolo("Data Classifica Giornaliera");
    for (const char* voce : {"mnuClasGioTutti", "mnuClasGioGru", "mnuStampaPenalitàAggiuntive"}) {
        programma.dialoghi.attendiMessaggio("Impossibile Generare la Classsifica",
                                            "Nessuna Manifestazione Attiva");
        scegli(principale, voce);
    }
    nuovaManifestazione({{"DaDat", "01/05/2026"}});
    for (const char* data : {"31/02/2026", "boh"}) {
        programma.dialoghi.attendiChiedi(titolo, QString(), data);
        programma.dialoghi.attendiMessaggio("Attenzione", "Data NON Valida");
    }
    programma.dialoghi.attendiChiedi(titolo, QString(), QString());
    scegli(principale, "mnuClasGioTutti");
    programma.dialoghi.attendiChiedi(titolo, QString(), std::nullopt);
    scegli(principale, "mnuClasGioASI");
    QVERIFY(programma.dialoghi.finite());
    for (const auto& vista : programma.dialoghi.viste()) {
        if (vista.tipo == DialoghiDiProva::Tipo::Chiedi)
            QCOMPARE(vista.risposta, QString("01/05/2026"));  // what was proposed
    }
    QCOMPARE(titoli(anteprima), QStringList());
}

void tst_frmMain::classificaDiGruppo() {
    ProgrammaDiProva programma;
    AnteprimaDiProva anteprima;
    const int man = nuovaManifestazione();
    nuovaProva();
    inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}, {"Nom", "Anteguerra"}, {"Fat", 0.9}});
    const int gruppo =
        inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}, {"Nom", "Classic"}, {"Fat", 1.25}});
    nuovoEquipaggio(1, {{"IDGru_FK", gruppo}});
    ChiudiDataBase();
    frmMain principale;
    const auto usa = [&](QWidget* finestra) {
        auto* lista = finestra->findChild<QTreeWidget*>("lstRag");
        QCOMPARE(lista->topLevelItem(1)->text(0), QString("Classic"));
        QCOMPARE(lista->topLevelItem(1)->text(1), QString("1,25"));
        premi(*finestra, "cmdStampa");  // no group chosen yet
        QCOMPARE(titoli(anteprima), QStringList());
        lista->setCurrentItem(lista->topLevelItem(1));
        premi(*finestra, "cmdStampa");
        lista->setFocus();
        QTest::keyClick(lista, Qt::Key_Return);
        premi(*finestra, "cmdEsci");
    };
    quandoSiApre("frmClassificaDiGruppo", usa);
    scegli(principale, "mnuClasRaggruppamento");
    QCOMPARE(titoli(anteprima), QStringList(2, "CLASSIFICA RAGGRUPPAMENTO : CLASSIC"));
    quandoSiApre("frmClassificaDiGruppo", usa);
    programma.dialoghi.attendiChiedi("Data Classifica Giornaliera", QString(), "13/06/2026");
    scegli(principale, "mnuClasGioGru");
    QCOMPARE(titoli(anteprima), QStringList(2, "CLASSIFICA RAGGR. : CLASSIC DEL 13/06/2026"));
    QVERIFY(programma.dialoghi.finite());
}

void tst_frmMain::uscita() {
    ProgrammaDiProva programma(Archivio::Nessuno);
    creaArchivio(percorsoArchivio(), 1);
    {
        frmMain principale;
        QCOMPARE(AggiornaArchivio(), QList<int>());  // brought up to date at the start
        principale.show();
        nuovaManifestazione({{"RagAuto", 1}, {"PenProNonSvo", 1}});
        ChiudiDataBase();  // as when it could not be opened again
        programma.dialoghi.attendiMessaggio("Impossibile Accedere All'Immissione Tempi", QString());
        scegli(principale, "mnuImmManuale");
        QVERIFY(Conn().aperta());
        scegli(principale, "mnuEsci");
        QVERIFY(!principale.isVisible());
        QVERIFY(!Conn().aperta());
        QCOMPARE(difettoArchivio(percorsoCopiaDelGiorno()), QString());
    }
    // An archive lost beside its copies is not made anew over them.
    QVERIFY(QFile::remove(percorsoArchivio()));
    QVERIFY_EXCEPTION_THROWN(frmMain(), Errore);
    QVERIFY(!QFile::exists(percorsoArchivio()));
    QVERIFY(QDir(percorsoNelProgramma("Backup")).removeRecursively());
    {
        // A copy that fails is told; the window closes all the same and the archive is whole.
        QFile alSuoPosto(percorsoNelProgramma("Backup"));
        QVERIFY(alSuoPosto.open(QIODevice::WriteOnly));
        creaArchivio(percorsoArchivio());
        QVERIFY(QFile::setPermissions(
            percorsoArchivio(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther));
        frmMain principale;
        QVERIFY(!(QFile::permissions(percorsoArchivio()) & (QFile::ReadGroup | QFile::ReadOther)));
        principale.show();
        ChiudiDataBase();
        programma.dialoghi.attendiMessaggio("Velmora", QString(), Icona::Stop);
        principale.close();
        QVERIFY(programma.dialoghi.finite());
        QVERIFY(!principale.isVisible());
    }
    QCOMPARE(difettoArchivio(percorsoArchivio()), QString());
}

void tst_frmMain::avvioRifiutato() {
    ProgrammaDiProva programma(Archivio::Nessuno);
    // What the file of the lock holds says nothing: here a process that lives, and another computer.
    const auto scriviBlocco = [](const QByteArray& testo) {
        QFile file(percorsoNelProgramma("vlm.lock"));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(testo) == testo.size());
    };
    for (const QByteArray& testo :
         {QByteArray(), QByteArray("1\nvel"), QByteArray("1\nvelmora\naltro\n\n\n")}) {
        scriviBlocco(testo);
        IstanzaUnica prima(PercorsoApp);
        QVERIFY(prima.acquisisci());
        programma.dialoghi.attendiMessaggio("Impossibile Avviare VLM", "VLM è Già In Esecuzione.");
        QVERIFY(avvia() != 0);
        QVERIFY(!QFile::exists(percorsoArchivio()));
    }
    QVERIFY(QFile::remove(percorsoNelProgramma("vlm.lock")) && QDir(PercorsoApp).mkdir("vlm.lock"));
    programma.dialoghi.attendiMessaggio("Impossibile Avviare VLM", QString(), Icona::Stop);
    QVERIFY(avvia() != 0);
    QVERIFY(programma.dialoghi.viste().constLast().testo.contains(percorsoNelProgramma("vlm.lock")));
    QVERIFY(QDir(PercorsoApp).rmdir("vlm.lock"));
    QFile altro(percorsoArchivio());
    QVERIFY(altro.open(QIODevice::ReadWrite) && altro.write("Qualcosa d'altro") && altro.flush());
    programma.dialoghi.attendiMessaggio("Impossibile Avviare VLM", QString(), Icona::Stop);
    quandoSiApre("frmSplash", [](QWidget* splash) { premi(*splash, "cmdOK"); });
    QVERIFY(avvia() != 0);
    QVERIFY(programma.dialoghi.finite());
    QVERIFY(altro.seek(0));
    QCOMPARE(altro.readAll(), QByteArray("Qualcosa d'altro"));
    QVERIFY(!QFile::exists(percorsoNelProgramma("Backup")));
}

void tst_frmMain::avvioEUscita() {
    ProgrammaDiProva programma(Archivio::Nessuno);
    quandoSiApre("frmSplash", [](QWidget* splash) { premi(*splash, "cmdEsci"); });
    QCOMPARE(avvia(), 0);
    QVERIFY(!QFile::exists(percorsoArchivio()));

    quandoSiApre("frmSplash", [](QWidget* splash) {
        QTimer::singleShot(0, qApp, [] {
            for (QWidget* finestra : QApplication::topLevelWidgets())
                finestra->objectName() == "frmMain" && finestra->close();
        });
        QTest::keyClick(splash, Qt::Key_Return);
    });
    QCOMPARE(avvia(), 0);
    QVERIFY(QFile::exists(percorsoCopiaDelGiorno()));
}

void tst_frmMain::informazioni() {
    ProgrammaDiProva programma;
    frmInformazioni finestra;
    finestra.show();
    const QByteArray percorso = qgetenv("PATH");
    qputenv("PATH", PercorsoApp.toLocal8Bit());  // where no tool of the system is found
    programma.dialoghi.attendiMessaggio("Informazioni su Velmora",
                                        "Le informazioni sul sistema non sono attualmente disponibili.",
                                        Icona::Nessuna);
    premi(finestra, "cmdSysInfo");
    qputenv("PATH", percorso);
    QVERIFY(programma.dialoghi.finite());
    premi(finestra, "cmdOK");
    QVERIFY(!finestra.isVisible());
}

PROVA_FINESTRE(tst_frmMain)
#include "tst_frmMain.moc"

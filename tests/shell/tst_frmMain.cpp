#include "archive/Aggiornamenti.h"
#include "common/API.h"
#include "output/Rapporto.h"
#include "scoring/frmClassificaDiGruppo.h"
#include "shell/Avvio.h"
#include "shell/AzioniMenu.h"
#include "shell/frmInformazioni.h"
#include "shell/frmMain.h"
#include "shell/frmSplash.h"
#include "shell/Menu.h"
#include "shell/Salvataggio.h"
#include "supporto/AnteprimaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QAction>
#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>

namespace {

// The titles of what was shown since the last call.
QStringList titoli(AnteprimaDiProva& anteprima) {
    QStringList tutti;
    for (const Rapporto& rapporto : std::exchange(anteprima.mostrati, {}))
        tutti << rapporto.titoloFinestra;
    return tutti;
}

void scegli(frmMain& principale, const QString& voce) {
    controllo<QAction>(principale, voce)->trigger();
}

// Level and caption of each action.
QStringList albero(const QList<QAction*>& azioni, int livello = 0) {
    QStringList tutti;
    for (const QAction* azione : azioni) {
        tutti << QString::number(livello) + azione->text();
        if (azione->menu())
            tutti << albero(azione->menu()->actions(), livello + 1);
    }
    return tutti;
}

}  // namespace

class tst_frmMain final : public ProvaConProgramma {
    Q_OBJECT

public:
    tst_frmMain() : ProvaConProgramma(Archivio::Nessuno) {}

private Q_SLOTS:
    void primoAvvio();
    void pannello();
    void menu();
    void classificheDalMenu();
    void dataGiornaliera();
    void classificaDiGruppo();
    void uscita();
    void avvioRifiutato();
    void informazioni();
};

void tst_frmMain::primoAvvio() {
    m_programma->impostazioni.valori["IDMan/IDMan"] = "41";  // a key whose event is not there
    scriviFile("temp.mdb", "avanzo");
    frmMain principale;
    mostra(principale);
    QCOMPARE(IDMan, 0);
    QCOMPARE(m_programma->impostazioni.valori["IDMan/IDMan"], QString("0"));
    confronta(principale, "lblMani=Nessuna Manifestazione Attiva");
    QVERIFY(!principale.findChild<QGroupBox*>("frmInfo")->isVisible());
    QVERIFY(!QFile::exists(percorsoNelProgramma("temp.mdb")));
    confronta(principale, "stVersione=Ver. " VELMORA_VERSIONE);
    QCOMPARE(contaRighe("Manifestazioni"), 0);
}

void tst_frmMain::pannello() {
    PreparaArchivio();
    ApriDataBase();
    nuovaManifestazione({{"Nom", "Coppa d'Autunno & Colli"}});
    nuovoEquipaggio(1);
    nuovoEquipaggio(2, {{"Omo", ""}});
    nuovoEquipaggio(3, {{"Omo", QVariant()}});
    ChiudiDataBase();
    frmMain principale;
    principale.resize(1000, 600);
    mostra(principale);
    const auto* info = principale.findChild<QGroupBox*>("frmInfo");
    QVERIFY(info->isVisible());
    confronta(principale,
              "lblMani=Coppa d'Autunno & Colli;lblNom=Coppa d'Autunno & Colli;lblLoc=Asti;"
              "lblDat=13/06/2026 - 14/06/2026;lblEquipaggi=Equipaggi Iscritti :   3   di cui ASI :   1");
    QVERIFY(qAbs(info->width() - 0.7 * principale.width()) < 30);
    QVERIFY(qAbs(info->geometry().center().x() - principale.width() / 2) < 5);

    QTest::keyClick(&principale, Qt::Key_F10);
    QVERIFY(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);

    // Rebuilt when a window over it closes.
    nuovoEquipaggio(4);
    QEvent riattivata(QEvent::WindowActivate);
    QApplication::sendEvent(&principale, &riattivata);
    confronta(principale, "lblEquipaggi=Equipaggi Iscritti :   4   di cui ASI :   2");
    // Also where the platform does not activate it again.
    nuovoEquipaggio(5);
    inModale<frmInformazioni>([&] { scegli(principale, "mnuInformazioni"); },
                              [](frmInformazioni& finestra) { finestra.close(); });
    confronta(principale, "lblEquipaggi=Equipaggi Iscritti :   5   di cui ASI :   3");

    // What fails is told once, not at every activation.
    esegui("ALTER TABLE Equipaggi RENAME TO Altrove");
    dialoghi().attendiMessaggio("Velmora", QString(), Icona::Stop);
    for (int volta = 0; volta < 2; ++volta)
        QApplication::sendEvent(&principale, &riattivata);

    // The event's row went: by the entry's end nothing of it is left.
    esegui("DELETE FROM Manifestazioni");
    esegui("ALTER TABLE Altrove RENAME TO Equipaggi");
    dialoghi().attendiMessaggio("Impossibile Modificare", "Nessuna Manifestazione Attiva");
    scegli(principale, "mnuModificaManifestazione");
    QVERIFY(!info->isVisible());
    confronta(principale, "lblEquipaggi=;lblMani=Nessuna Manifestazione Attiva");
    QCOMPARE(m_programma->impostazioni.valori["IDMan/IDMan"], QString("0"));
}

void tst_frmMain::menu() {
    // Each entry stands in its place, and has something behind it or says that it has not, after its guard.
    frmMain principale;
    QStringList attesi;
    for (const VoceMenu& voce : vociMenu()) {
        attesi << QString::number(voce.livello) + QString::fromUtf16(voce.testo);
        const QString nome = voce.nome ? QString::fromUtf16(voce.nome) : QString();
        QVERIFY2(!voce.nome || bool(azioneMenu(nome)) != nonAncoraDisponibile(nome), qPrintable(nome));
    }
    QCOMPARE(albero(principale.menuBar()->actions()), attesi);
    dialoghi().attendiMessaggio("Impossibile Accedere Alla Stampa Schede", "Nessuna Manifestazione Attiva");
    scegli(principale, "mnuSchede");
    for (const bool si : {false, true}) {
        dialoghi().attendiDomanda(
            "Riorganizzazione Archivi",
            "La Riorganizzazione Può Impiegare Diverso Tempo.\nConfermare l'Operazione ?", si);
        if (si)
            dialoghi().attendiMessaggio("Velmora", "Funzione non ancora disponibile", Icona::Informazione);
        scegli(principale, "mnuRiorganizzaArchivi");
        QVERIFY(dialoghi().finite());
    }
}

void tst_frmMain::classificheDalMenu() {
    frmMain principale;
    AnteprimaDiProva anteprima;
    nuovaManifestazione();
    const int prima = nuovaProva({{"Dat", "13/06/2026"}});
    const int equ = nuovoEquipaggio(1);
    nuovoEquipaggio(2, {{"Omo", ""}, {"Ses", "F"}});
    scriviRilevamento(equ, prima, "10:00:00:00", "10:01:00:10");
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
            dialoghi().attendiChiedi("Data Classifica Giornaliera", "Inserire la Data nel Formato gg/mm/aaaa",
                                     "13/06/2026");
        scegli(principale, voce);
        QCOMPARE(titoli(anteprima), QStringList{titolo});
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }
}

void tst_frmMain::dataGiornaliera() {
    frmMain principale;
    AnteprimaDiProva anteprima;
    const QString titolo("Data Classifica Giornaliera");
    for (const char* voce : {"mnuClasGioTutti", "mnuClasGioGru", "mnuStampaPenalitàAggiuntive"}) {
        dialoghi().attendiMessaggio("Impossibile Generare la Classsifica", "Nessuna Manifestazione Attiva");
        scegli(principale, voce);
    }
    nuovaManifestazione({{"DaDat", "01/05/2026"}});
    for (const char* data : {"31/02/2026", "boh"}) {
        dialoghi().attendiChiedi(titolo, QString(), data);
        dialoghi().attendiMessaggio("Attenzione", "Data NON Valida");
    }
    dialoghi().attendiChiedi(titolo, QString(), QString());
    scegli(principale, "mnuClasGioTutti");
    dialoghi().attendiChiedi(titolo, QString(), std::nullopt);
    scegli(principale, "mnuClasGioASI");
    for (const auto& vista : dialoghi().viste()) {
        if (vista.tipo == DialoghiDiProva::Tipo::Chiedi)
            QCOMPARE(vista.risposta, QString("01/05/2026"));  // what was proposed
    }
    QCOMPARE(titoli(anteprima), QStringList());
}

void tst_frmMain::classificaDiGruppo() {
    frmMain principale;
    AnteprimaDiProva anteprima;
    const int man = nuovaManifestazione();
    nuovaProva();
    inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}, {"Nom", "Anteguerra"}, {"Fat", 0.9}});
    const int gruppo =
        inserisciRiga("Raggruppamenti", {{"IDMan_FK", man}, {"Nom", "Vetture è"}, {"Fat", 1.25}});
    nuovoEquipaggio(1, {{"IDGru_FK", gruppo}});
    const auto usa = [&](frmClassificaDiGruppo& finestra) {
        auto* lista = controllo<QTreeWidget>(finestra, "lstRag");
        confronta(finestra, "lstRag 1 0=Vetture è;lstRag 1 1=1,25");
        lista->setCurrentItem(nullptr);
        premi(finestra, "cmdStampa");  // no group chosen
        QCOMPARE(titoli(anteprima), QStringList());
        lista->setCurrentItem(lista->topLevelItem(1));
        premi(finestra, "cmdStampa");
        lista->setFocus();
        QTest::keyClick(lista, Qt::Key_Return);
        premi(finestra, "cmdEsci");
    };
    inModale<frmClassificaDiGruppo>([&] { scegli(principale, "mnuClasRaggruppamento"); }, usa);
    QCOMPARE(titoli(anteprima), QStringList(2, "CLASSIFICA RAGGRUPPAMENTO : VETTURE È"));
    dialoghi().attendiChiedi("Data Classifica Giornaliera", QString(), "13/06/2026");
    inModale<frmClassificaDiGruppo>([&] { scegli(principale, "mnuClasGioGru"); }, usa);
    QCOMPARE(titoli(anteprima), QStringList(2, "CLASSIFICA RAGGR. : VETTURE È DEL 13/06/2026"));
}

void tst_frmMain::uscita() {
    creaArchivio(percorsoArchivio(), 1);
    {
        frmMain principale;
        QCOMPARE(AggiornaArchivio(), QList<int>());  // brought up to date at the start
        principale.show();
        nuovaManifestazione({{"RagAuto", 1}, {"PenProNonSvo", 1}});
        ChiudiDataBase();  // as when it could not be opened again
        dialoghi().attendiMessaggio("Impossibile Accedere All'Immissione Tempi", QString());
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
        scriviFile("Backup", "");
        creaArchivio(percorsoArchivio());
        QVERIFY(QFile::setPermissions(
            percorsoArchivio(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther));
        frmMain principale;
        QVERIFY(!(QFile::permissions(percorsoArchivio()) & (QFile::ReadGroup | QFile::ReadOther)));
        principale.show();
        ChiudiDataBase();
        dialoghi().attendiMessaggio("Velmora", QString(), Icona::Stop);
        principale.close();
        QVERIFY(!principale.isVisible());
    }
    QCOMPARE(difettoArchivio(percorsoArchivio()), QString());
}

void tst_frmMain::avvioRifiutato() {
    // What the file of the lock holds says nothing: here a process that lives, and another computer.
    for (const QByteArray& testo :
         {QByteArray(), QByteArray("1\nvel"), QByteArray("1\nvelmora\naltro\n\n\n")}) {
        scriviFile("vlm.lock", testo);
        IstanzaUnica prima(PercorsoApp);
        QVERIFY(prima.acquisisci());
        dialoghi().attendiMessaggio("Impossibile Avviare VLM", "VLM è Già In Esecuzione.");
        QVERIFY(avvia() != 0);
        QVERIFY(!QFile::exists(percorsoArchivio()));
    }
    QVERIFY(QFile::remove(percorsoNelProgramma("vlm.lock")) && QDir(PercorsoApp).mkdir("vlm.lock"));
    dialoghi().attendiMessaggio("Impossibile Avviare VLM", QString(), Icona::Stop);
    QVERIFY(avvia() != 0);
    QVERIFY(dialoghi().viste().constLast().testo.contains(percorsoNelProgramma("vlm.lock")));
    QVERIFY(QDir(PercorsoApp).rmdir("vlm.lock"));
    scriviFile(percorsoArchivio(), "Qualcosa d'altro");
    dialoghi().attendiMessaggio("Impossibile Avviare VLM", QString(), Icona::Stop);
    inModale<frmSplash>([] { QVERIFY(avvia() != 0); }, [](frmSplash& splash) { premi(splash, "cmdOK"); });
    QCOMPARE(leggiFile(percorsoArchivio()), QByteArray("Qualcosa d'altro"));
    QVERIFY(!QFile::exists(percorsoNelProgramma("Backup")));
}

void tst_frmMain::informazioni() {
    frmInformazioni finestra;
    finestra.show();
    const QByteArray percorso = qgetenv("PATH");
    qputenv("PATH", PercorsoApp.toLocal8Bit());  // where no tool of the system is found
    dialoghi().attendiMessaggio("Informazioni su Velmora",
                                "Le informazioni sul sistema non sono attualmente disponibili.",
                                Icona::Nessuna);
    premi(finestra, "cmdSysInfo");
    qputenv("PATH", percorso);
    premi(finestra, "cmdOK");
    QVERIFY(!finestra.isVisible());
}

PROVA_FINESTRE(tst_frmMain)
#include "tst_frmMain.moc"

#include "BancoOnLine.h"
#include "live/frmClassificaDiProvaInTempoReale.h"
#include "live/frmRicezioneONLINE.h"
#include "live/frmRXONLINE.h"
#include "live/frmSelezionaRXONLINE.h"
#include "readings/ElencoEquipaggi.h"
#include "readings/GrigliaRilevamenti.h"
#include "supporto/BancoRilevamenti.h"

#include <QCheckBox>
#include <QLabel>

// The windows of on-line reception, by their controls, with a chronometer and a scoreboard on the line.
class tst_FinestreOnLine final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void albero();
    void catenaSulTabellone();
    void rifiuti();
    void interrotta();
    void archivioRifiuta();
    void tabelloneStaccato();
    void numero();
    void sceltaTabellone();
    void impostazioni();
    void classifica();

private:
    void prepara() override;
    void chiudi() override;
    // Opens the reception of the current crew with cmdRX and runs `durante` while its window is on show.
    void ricevi(frmRicezioneONLINE& finestra, const std::function<void(frmRXONLINE&)>& durante);
    [[nodiscard]] QString letture() const { return tempiDi(m_idEqu).join(' '); }

    std::unique_ptr<BancoOnLine> m_banco;
    QList<int> m_prove;  // a chain of three, then a test alone
    int m_idEqu = 0;
};

namespace {

Catena catenaAttiva() {
    return elencaCatene(leggiProveCronometrate(IDMan)).first();
}

}  // namespace

void tst_FinestreOnLine::prepara() {
    AtteseRicezione = {.errore = 60, .fineProva = 60, .totale = 60};
    m_banco = std::make_unique<BancoOnLine>();
    nuovaManifestazione();
    m_prove.clear();
    for (int i = 1; i <= 4; ++i) {
        const int conA = i == 2 || i == 3 ? m_prove.last() : 0;
        m_prove << nuovaProva({{"Nom", QString("Castello %1").arg(i)}, {"ConA", conA}});
        if (i == 2)
            nuovaProva({{"Tip", "CO"}});  // in the middle of the chain, and none of it
    }
    m_idEqu = nuovoEquipaggio(7);
    nuovoEquipaggio(12, {{"Cog", "VERDI"}, {"CogNav", "NERI"}, {"Omo", ""}});
}

void tst_FinestreOnLine::chiudi() {
    m_banco.reset();
    AtteseRicezione = {};
}

void tst_FinestreOnLine::ricevi(frmRicezioneONLINE& finestra,
                                const std::function<void(frmRXONLINE&)>& durante) {
    finestra.show();
    inModale<frmRXONLINE>([&] { premi(finestra, "cmdRX"); }, durante);
    QVERIFY(!m_banco->linea.attaccato() || QTest::qWaitFor([&] { return !m_banco->linea.aperto(); }));
}

// The tree shows heads and what is chained to them; a chained test stands for its head.
void tst_FinestreOnLine::albero() {
    frmSelezionaRXONLINE finestra;
    finestra.show();
    auto* albero = controllo<QTreeWidget>(finestra, "trePro");
    QCOMPARE(albero->topLevelItemCount(), 2);
    QCOMPARE(albero->topLevelItem(0)->childCount(), 2);
    QCOMPARE(albero->topLevelItem(0)->text(0), "Castello 1 00:01:00");
    QCOMPARE(albero->topLevelItem(0)->child(1)->data(0, Qt::UserRole).toString(),
             QString("PA%1").arg(m_prove[2]));

    albero->setCurrentItem(albero->topLevelItem(0)->child(0));
    inModale<frmRicezioneONLINE>(
        [&] { premi(finestra, "cmdSeleziona"); },
        [](frmRicezioneONLINE& ricezione) {
            confronta(ricezione, "lblPro=Castello 1 00:01:00 - Castello 2 00:01:00 - Castello 3 00:01:00");
        });

    albero->clear();
    dialoghi().attendiMessaggio("Impossibile Selezionare", "Selezionare una Prova");
    premi(finestra, "cmdSeleziona");
}

// A crew runs a chain of three; everything that it and the public see, and what the archive holds.
void tst_FinestreOnLine::catenaSulTabellone() {
    m_banco.reset();  // its ports first
    m_banco = std::make_unique<BancoOnLine>(Dispositivo::CP540);
    m_programma->impostazioni.valori = {{"com/online", "1"}, {"com/tabellone", "2"}, {"chrono/offline", "1"}};
    m_banco->tag.spezza(1, 1);
    AtteseRicezione.fineProva = 300;
    AtteseRicezione.totale = 300;

    frmRicezioneONLINE finestra(catenaAttiva());
    ricevi(finestra, [&](frmRXONLINE& rx) {
        confronta(rx,
                  "lblEqu=N. 7 - ROSSI-BIANCHI - LANCIA APRILIA;lblTempo=IN PARTENZA...;lblCron=00:00:00:00");
        QTRY_COMPARE(m_banco->tabellone.mostrati(), QStringList({"      ", "PAr  7"}));
        QCOMPARE(m_banco->linea.formato(), "9600 8N1");

        m_banco->tag.partenza();
        QTRY_COMPARE(contenuto(rx, "lblTempo"), "PARTITO");
        QCOMPARE(rx.palette().color(QPalette::Window), QColor(0, 192, 0));
        QCOMPARE(letture(), "00:00:00:00> > > > >");
        QTRY_VERIFY(contenuto(rx, "lblCron") > "00:00:00:00");

        m_banco->tag.tempo(6234);
        QTRY_COMPARE(contenuto(rx, "lblImp"), "TEMPO N° 1 : 00:01:02:34");
        confronta(rx, "lblTempo=TEMPO IMPOSTO : 00:01:00:00\nPENALITA' : 234");
        QCOMPARE(rx.palette().color(QPalette::Window), QColor(255, 128, 0));
        QCOMPARE(controllo<QLabel>(rx, "lblTempo")->font().pointSize(), 28);
        QCOMPARE(letture(), "00:00:00:00>00:01:02:34 00:01:02:34> > > >");

        m_banco->tag.tempo(12134);
        QTRY_COMPARE(contenuto(rx, "lblImp"), "TEMPO N° 2 : 00:00:59:00");
        m_banco->tag.tempo(18135);
        QTRY_COMPARE(contenuto(rx, "lblImp"), "TEMPO N° 3 : 00:01:00:01");
        QVERIFY(!controllo<QPushButton>(rx, "cmdArrestaRicezione")->isEnabled());
        confronta(rx, "lblCron=00:00:00:00");
        QTRY_COMPARE(contenuto(rx, "lblImp"), "PROVA TERMINATA");
        confronta(rx, "lblTempo=PENALITA' TOTALI DELLA PROVA : 335");
        QCOMPARE(rx.palette().color(QPalette::Window), QColor(192, 255, 255));
        QTRY_VERIFY(!rx.isVisible());
    });
    QCOMPARE(letture(), "00:00:00:00>00:01:02:34 00:01:02:34>00:02:01:34 > 00:02:01:34>00:03:01:35 >");
    QTRY_COMPARE(m_banco->tabellone.mostrati(),
                 QStringList({"      ", "PAr  7", "IN   7", "  62.34", "  59.00", "  60.01", "P  335"}));
    QCOMPARE(m_banco->tabellone.frameErrati(), 0);
    QVERIFY(!m_banco->lineaTabellone.aperto());
    // The readings are on show behind it.
    auto* griglia = controllo<GrigliaRilevamenti>(finestra, "griglia");
    QCOMPARE(griglia->modello().righe()[3].tArr, "00:03:01:35");
    finestra.close();
    QTRY_COMPARE(m_banco->tabellone.mostrati().last(), "      ");
}

// The window stays as long as its warning, whatever comes and whoever tries to close it.
void tst_FinestreOnLine::rifiuti() {
    m_programma->impostazioni.valori = {{"com/tabellone", "2"}};
    AtteseRicezione.errore = 300;
    frmRicezioneONLINE finestra(catenaAttiva());
    ricevi(finestra, [&](frmRXONLINE& rx) {
        m_banco->tag.partenza();
        m_banco->tag.partenza();
        QTRY_COMPARE(contenuto(rx, "lblTempo"), "START CON VEICOLO IN PROVA");
        QCOMPARE(rx.palette().color(QPalette::Window), QColor(255, 0, 0));
        confronta(rx, "lblCron=00:00:00:00");
        QVERIFY(!controllo<QPushButton>(rx, "cmdArrestaRicezione")->isEnabled());
        m_banco->tag.partenza();
        rx.close();
        QTest::keyClick(&rx, Qt::Key_Escape);
        QVERIFY(rx.isVisible());
        QTRY_VERIFY(!rx.isVisible());
    });
    QTRY_COMPARE(m_banco->tabellone.mostra(), SimulatoreTabellone::comeAppare("ERRORE"));
    QCOMPARE(letture(), "00:00:00:00> > > > >");
}

// In the middle of a frame the run ends: what was timed before is kept.
void tst_FinestreOnLine::interrotta() {
    for (const QString come : {"close", "unplug", "wrong"}) {
        ricomincia();
        frmRicezioneONLINE finestra(catenaAttiva());
        ricevi(finestra, [&](frmRXONLINE& rx) {
            m_banco->tag.partenza();
            m_banco->tag.tempo(6234);
            QTRY_COMPARE(letture(), "00:00:00:00>00:01:02:34 00:01:02:34> > > >");
            if (come == "wrong") {
                dialoghi().attendiMessaggio(
                    "ATTENZIONE!",
                    "E' Stato Ricevuto un Dato Errato.\nLa Ricezione Sarà Interrotta.\n"
                    "Verificare i Cavi di Collegamento e le Impostazioni del TAG CP520.",
                    Icona::Stop);
                m_banco->tag.tempo(32768);
            } else {
                m_banco->tag.invia(SimulatoreTag::frameTempo(Dispositivo::CP520, 12000).left(40));
            }
            if (come == "close") {
                rx.close();
            } else if (come == "unplug") {
                dialoghi().attendiMessaggio("Errore", QString());
                m_banco->linea.stacca();
            }
            QTRY_VERIFY(!rx.isVisible());
            confronta(rx, "lblCron=00:00:00:00");
        });
        QCOMPARE(letture(), "00:00:00:00>00:01:02:34 00:01:02:34> > > >");
        if (come == "unplug") {
            QVERIFY(dialoghi().viste().last().testo.endsWith(" - Porta Scollegata"));
            // Still out: the window says so and stays usable; put back, it receives.
            dialoghi().attendiMessaggio("Errore", QString());
            premi(finestra, "cmdRX");
            m_banco->linea.attacca();
        }
        // The next run starts clean: the half frame is gone. Before the start Esc ends it, afterwards not.
        for (const bool partita : {true, false}) {
            ricevi(finestra, [&](frmRXONLINE& rx) {
                if (partita) {
                    m_banco->tag.partenza();
                    QTRY_COMPARE(contenuto(rx, "lblTempo"), "PARTITO");
                }
                QTest::keyClick(&rx, Qt::Key_Escape);
                QCOMPARE(rx.isVisible(), partita);
                if (partita)
                    premi(rx, "cmdArrestaRicezione");
            });
        }
    }
}

// The arrival and the next start are written together or not at all, and the operator gets the time to write
// down.
void tst_FinestreOnLine::archivioRifiuta() {
    guasta(QString("UPDATE OF TPar ON Rilevamenti WHEN NEW.IDPro_FK=%1").arg(m_prove[2]));
    dialoghi().attendiMessaggio("Velmora", QString(), Icona::Stop);
    frmRicezioneONLINE finestra(catenaAttiva());
    ricevi(finestra, [&](frmRXONLINE& rx) {
        m_banco->tag.partenza();
        m_banco->tag.tempo(6234);
        m_banco->tag.tempo(12000);
        QTRY_VERIFY(!rx.isVisible());
    });
    const QString testo = dialoghi().viste().last().testo;
    QVERIFY2(
        testo.startsWith("Il tempo 00:02:00:00 dell'equipaggio n. 7 sulla prova \"Castello 2\" NON è stato "
                         "salvato."),
        qPrintable(testo));
    QVERIFY(testo.contains("disco guasto"));
    QCOMPARE(letture(), "00:00:00:00>00:01:02:34 00:01:02:34> > > >");
}

// The times go on without the scoreboard, and the window says what is wrong with it.
void tst_FinestreOnLine::tabelloneStaccato() {
    m_programma->impostazioni.valori = {{"com/tabellone", "2"}};
    frmRicezioneONLINE finestra(catenaAttiva());
    ricevi(finestra, [&](frmRXONLINE& rx) {
        auto* avviso = controllo<QLabel>(rx, "lblAvvisoTabellone");
        QVERIFY(!avviso->isVisible());
        m_banco->lineaTabellone.stacca();
        m_banco->tag.partenza();
        QTRY_COMPARE(contenuto(rx, "lblTempo"), "PARTITO");
        QTRY_VERIFY(avviso->isVisible());
        QVERIFY(avviso->text().startsWith("Tabellone : Errore n. : "));
        m_banco->lineaTabellone.attacca();
        m_banco->tag.tempo(6234);
        QTRY_VERIFY(!avviso->isVisible());
        QCOMPARE(letture(), "00:00:00:00>00:01:02:34 00:01:02:34> > > >");
        premi(rx, "cmdArrestaRicezione");
    });
    QTRY_COMPARE(m_banco->tabellone.mostra(), "  62.34");
    m_banco->lineaTabellone.stacca();
    dialoghi().attendiMessaggio("Errore", QString());
    finestra.close();
    QVERIFY(!finestra.isVisible());
}

void tst_FinestreOnLine::numero() {
    frmRicezioneONLINE finestra(catenaAttiva());
    mostra(finestra);
    auto* txtNum = controllo<QLineEdit>(finestra, "txtNum");
    auto* elenco = controllo<ElencoEquipaggi>(finestra, "lstEq");
    const auto stato = [&](const char* numero, bool trovato, int corrente) {
        QCOMPARE(txtNum->text(), numero);
        QCOMPARE(controllo<QPushButton>(finestra, "cmdRX")->isEnabled(), trovato);
        QCOMPARE(txtNum->palette().color(QPalette::Base), trovato ? QColor(Qt::white) : QColor(192, 0, 0));
        QCOMPARE(elenco->corrente()->num, corrente);
    };
    QCOMPARE(txtNum->text(), "7");
    QVERIFY(txtNum->hasFocus());
    QTest::keyClicks(txtNum, "12");
    stato("12", true, 12);
    txtNum->selectAll();
    QTest::keyClicks(txtNum, "99");
    stato("99", false, 12);
    // Red whatever has the focus; an empty number is no crew.
    elenco->setFocus();
    stato("99", false, 12);
    txtNum->clear();
    stato("", false, 12);
    // The list says the same as the number.
    elenco->setCurrentItem(elenco->topLevelItem(0));
    elenco->setCurrentItem(elenco->topLevelItem(1));
    stato("12", true, 12);
    confronta(finestra, "lblEqu=N. 12 - VERDI-NERI - LANCIA APRILIA");
}

void tst_FinestreOnLine::sceltaTabellone() {
    frmRicezioneONLINE finestra(catenaAttiva());
    finestra.show();
    auto* spunta = controllo<QCheckBox>(finestra, "chkTabellone");
    const auto rispondi = [&](const std::optional<QString>& numero) {
        dialoghi().attendiChiedi("Porta COM Tabellone",
                                 "Inserire il Numero della Port COM (Seriale) a cui è Collegato il Tabellone",
                                 numero);
    };
    for (const auto& rinuncia : {std::optional<QString>(), std::optional<QString>("  ")}) {
        rispondi(rinuncia);
        spunta->click();
        QVERIFY(!spunta->isChecked());
    }
    for (const char* errata : {"abc", "0", "10", "-2", "1,5"}) {
        rispondi(errata);
        dialoghi().attendiMessaggio("Attenzione", "Numero di Porta Errato");
    }
    const PseudoTerminale altra(PercorsoApp, 5);
    m_banco->lineaTabellone.stacca();
    rispondi("2");
    dialoghi().attendiMessaggio("Errore", "Errore n. : 1 - Porta Inesistente");
    rispondi("1");
    dialoghi().attendiMessaggio("Attenzione",
                                "La Porta COM (Seriale) Selezionata\nè Stata già Assegnata al Cronometro.\n"
                                "Selezionare un'altra Porta COM Disponibile");
    rispondi("5");
    spunta->click();
    QVERIFY(dialoghi().finite());
    QVERIFY(spunta->isChecked());
    confronta(finestra, "lblComTabellone=(COM 5)");
    spunta->click();
    confronta(finestra, "lblComTabellone=");
}

void tst_FinestreOnLine::impostazioni() {
    auto& valori = m_programma->impostazioni.valori;
    const std::remove_reference_t<decltype(valori)> lasciati{
        {"com/online", "4"}, {"chrono/offline", "1"}, {"com/tabellone", "2"}};
    const std::remove_reference_t<decltype(valori)> guasti{
        {"com/online", "77"}, {"chrono/offline", "?"}, {"com/tabellone", "-1"}};
    for (const auto& [prima, letti] :
         {std::pair{lasciati, "cboPortaCOM=COM 4;cboChrono=TAG CP540;lblComTabellone=(COM 2)"},
          {guasti, "cboPortaCOM=COM 1;cboChrono=TAG CP520;lblComTabellone="}}) {
        valori = prima;
        frmRicezioneONLINE finestra(catenaAttiva());
        confronta(finestra, letti);
        QCOMPARE(controllo<QCheckBox>(finestra, "chkTabellone")->isChecked(), prima == lasciati);
        finestra.show();
        finestra.close();
        QCOMPARE(valori == prima, prima == lasciati);
    }
}

void tst_FinestreOnLine::classifica() {
    esegui("UPDATE Manifestazioni SET PenProNonSvo=1,NumPenProNonSvo=3000");
    // The times of a crew along the chain, and further.
    const auto corsa = [&](int idEqu, const QStringList& tempi, double penAgg = 0) {
        for (int i = 0; i + 1 < tempi.size(); ++i)
            scriviRilevamento(idEqu, m_prove[i], "00:" + tempi[i], "00:" + tempi[i + 1], i == 0 ? penAgg : 0);
    };
    // The whole chain, half of it, not started; a crew equal to another; test 4 belongs to no chain.
    corsa(m_idEqu, {"00:00:00", "01:00:10", "02:00:00", "03:00:00", "09:00:00"}, 5);
    corsa(nuovoEquipaggio(3, {{"Cog", "GALLO"}}), {"00:00:00", "01:00:00"});
    corsa(nuovoEquipaggio(1, {{"Cog", "PARI"}}), {"00:00:00", "01:00:25", "02:00:25", "03:00:25"});
    esegui("UPDATE Rilevamenti SET TPar=NULL WHERE IDEqu_FK=(SELECT IDEqu FROM Equipaggi WHERE Num=12)");

    frmRicezioneONLINE finestra(catenaAttiva());
    finestra.show();
    inModale<frmClassificaDiProvaInTempoReale>(
        [&] { premi(finestra, "cmdClassifica"); },
        [](frmClassificaDiProvaInTempoReale& classifica) {
            QCOMPARE(righe(classifica, "lstClas"),
                     QStringList({"1/1/PARI BIANCHI/LANCIA APRILIA/25", "2/7/ROSSI BIANCHI/LANCIA APRILIA/25",
                                  "3/3/GALLO BIANCHI/LANCIA APRILIA/6.000"}));
        });
}

PROVA_FINESTRE(tst_FinestreOnLine)
#include "tst_FinestreOnLine.moc"

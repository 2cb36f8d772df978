#include "download/ElencoPressostati.h"
#include "download/frmCorrezioneOffLine.h"
#include "download/frmErroriTempiOffLine.h"
#include "download/frmRicezioneOFFLINE.h"
#include "download/IscrizioneOffLine.h"
#include "supporto/BancoRilevamenti.h"

#include <QTableWidget>

// The error search of a download and the windows behind it.
class tst_ErroriOffLine final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void ricerca();
    void elenco();
    void iscrizione();
    void numeroPreso();
    void correzione();

private:
    void prepara() override;
    void attendiChiusura(bool si) {
        dialoghi().attendiDomanda("Conferma Chiusura",
                                  "Ci Sono Ancora Probabili Errori Nei Tempi Scaricati.\n"
                                  "Chiudere Veramente la Finestra degli Errori ?",
                                  si);
    }

    int m_co = 0, m_pa1 = 0, m_pa2 = 0, m_uno = 0, m_due = 0;
};

namespace {

QByteArray riga(const QByteArray& numero, const QByteArray& tempo) {
    return "T      " + numero.rightJustified(4) + "    " + tempo + "    \r";
}

}  // namespace

void tst_ErroriOffLine::prepara() {
    nuovaManifestazione({{"PrePA", "DEC"}, {"ASIeNONASI", 1}, {"PrePANoASI", "SEC"}});
    m_pa1 = nuovaProva({{"Nom", "Salita"}});
    m_co = nuovaProva({{"Tip", "CO"}, {"Nom", "Controllo"}, {"ConA", m_pa1}});
    m_pa2 = nuovaProva({{"Nom", "Discesa"}, {"ConA", m_pa1}});
    m_uno = nuovoEquipaggio(1, {{"Cog", "VERDI"}});
    m_due = nuovoEquipaggio(2);
}

// Nothing suspect asks nothing; then too many and too few times, a crew that is not entered, times without
// a number.
void tst_ErroriOffLine::ricerca() {
    frmRicezioneOFFLINE ricezione;
    auto* pressostati = ricezione.findChild<ElencoPressostati*>("lstPre");
    pressostati->topLevelItem(0)->setCheckState(0, Qt::Checked);
    dialoghi().attendiMessaggio(
        "Ricezione OK", "Ricezione Terminata\nRicevuti 2 Rilevamenti Validi\nSu 2 Tempi Previsti da Ricevere",
        Icona::Informazione);
    ricezione.elaboraConRicercaErrori(riga("1", "10:00:00.15") + riga("2", "10:01:00.15"));
    QCOMPARE(contaRighe("TempRil"), 2);
    ricezione.show();
    pressostati->topLevelItem(1)->setCheckState(0, Qt::Checked);
    const QByteArray flusso = riga("1", "10:00:00.15") + riga("", "10:00:30.00") + riga("9", "10:01:00.25") +
                              riga("1", "10:01:02.35") + riga("1", "10:02:00.00") + riga("1", "10:02:30.00") +
                              riga("9", "10:03:02.99") + riga("9", "10:04:00.00");
    dialoghi().attendiMessaggio(
        "Ricezione OK", "Ricezione Terminata\nRicevuti 4 Rilevamenti Validi\nSu 4 Tempi Previsti da Ricevere",
        Icona::Informazione);
    dialoghi().attendiDomanda(
        "ATTENZIONE : PROBABILI ERRORI NEI RILEVAMENTI",
        "Ci Sono 3 Equipaggi con Probabili Errori Nei Tempi Rilevati.\n"
        "Si Desidera Accedere alla Finestra di Visualizzazione e Correzione degli Errori ?",
        true);
    inModale<frmErroriTempiOffLine>(
        [&] { ricezione.elaboraConRicercaErrori(flusso); },
        [&](frmErroriTempiOffLine& errori) {
            const QString uno = QString::number(m_uno), due = QString::number(m_due);
            QCOMPARE(
                righe(errori, "gridErrori"),
                QStringList({"0/9//10:04:00:00/Equipaggio NON Iscritto, Troppi Tempi/[Correggi--->]",
                             uno + "/1/VERDI BIANCHI/10:02:00:00, 10:02:30:00/Troppi Tempi/[Correggi--->]",
                             due + "/2/ROSSI BIANCHI//Pochi Tempi/[Correggi--->]"}));
            QCOMPARE(righe(errori, "lstTempiSenzaNumero"), QStringList("10:00:30:00"));
            attendiChiusura(true);
        });
    // The crew that is not entered was cut by the finer of the two classes, and has no key yet.
    QCOMPARE(contaRighe("TempRil", "Num=9 AND IDEqu_FK IS NULL AND TPar='10:01:00:20'"), 1);
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>'' OR TArr<>''"), 0);
}

void tst_ErroriOffLine::elenco() {
    QVERIFY(frmErroriTempiOffLine().close());  // nothing suspect: nothing to ask on closing
    esegui("INSERT INTO ErroriSca (IDEqu_FK,Num,Equ,ErrPocTem) VALUES (?,2,'ROSSI BIANCHI',1)", {m_due});
    frmErroriTempiOffLine errori;
    errori.show();
    attendiChiusura(false);
    premi(errori, "cmdChiudi");
    QVERIFY(errori.isVisible());

    // With the mouse only its own cell opens the correction.
    auto* griglia = errori.findChild<QTableWidget*>("gridErrori");
    const auto clic = [&](int colonna) {
        QTest::mouseClick(griglia->viewport(), Qt::LeftButton, {},
                          griglia->visualItemRect(griglia->item(0, colonna)).center());
    };
    clic(2);
    inModale<frmCorrezioneOffLine>([&] { clic(5); },
                                   [](frmCorrezioneOffLine& correzione) {
                                       confronta(correzione, "lblEqu=N. 2 - ROSSI-BIANCHI - LANCIA APRILIA");
                                   });
}

// A crew that is not entered must be entered first; its times that wait to be saved become its own.
void tst_ErroriOffLine::iscrizione() {
    esegui("INSERT INTO ErroriSca (Num,ErrIsc,ErrTroTem) VALUES (9,1,0),(8,1,0),(9,0,1)");
    esegui("INSERT INTO TempScar (Num,Tem) VALUES (9,'10:04:00:00'),(NULL,'10:00:30:00'),(1,'11:00:00:00')");
    esegui("INSERT INTO TempRil (IDPro_FK,TPar,Num) VALUES (?,'10:01:00:20',9)", {m_pa1});
    frmErroriTempiOffLine errori;
    errori.show();
    auto* griglia = errori.findChild<QTableWidget*>("gridErrori");
    const auto attendiIscrizione = [this](bool si) {
        dialoghi().attendiDomanda("Equipaggio NON Iscritto",
                                  "Prima di Poter Correggere i Tempi dell'Equipaggio n. 9\n"
                                  "E' Necessario Iscriverlo alla Manifestazione.\n"
                                  "Iscrivere l'Equipaggio n. 9 ?",
                                  si);
    };
    attendiIscrizione(false);
    QTest::keyClick(griglia, Qt::Key_Return);
    QCOMPARE(contaRighe("Equipaggi"), 2);

    attendiIscrizione(true);
    inModale<frmCorrezioneOffLine>([&] { QTest::keyClick(griglia, Qt::Key_Return); },
                                   [](frmCorrezioneOffLine& correzione) {
                                       QCOMPARE(righe(correzione, "lstTempiScartati"),
                                                QStringList({"10:04:00:00", "10:00:30:00  (senza numero)"}));
                                   });
    const QString idEqu =
        leggiValore("SELECT IDEqu FROM Equipaggi WHERE Num=9 AND IDMan_FK=?", {IDMan})->toString();
    confronta(errori, QString("gridErrori 0 0=%1;gridErrori 1 0=0;gridErrori 2 0=%1").arg(idEqu));
    QCOMPARE(tempiDi(idEqu.toInt()), QStringList({">", ">", ">"}));
    QCOMPARE(contaRighe("TempRil", "IDEqu_FK=" + idEqu), 1);
    // Entered now: no question any more.
    griglia->setCurrentCell(2, 5);
    inModale<frmCorrezioneOffLine>([&] { QTest::keyClick(griglia, Qt::Key_Return); },
                                   [](frmCorrezioneOffLine&) {});
}

void tst_ErroriOffLine::numeroPreso() {
    QVERIFY_EXCEPTION_THROWN(iscriviDaScarico(2), Errore);
    QCOMPARE(contaRighe("Equipaggi"), 2);
    guasta("INSERT ON Rilevamenti");
    QVERIFY_EXCEPTION_THROWN(iscriviDaScarico(9), ErroreArchivio);
    QCOMPARE(contaRighe("Equipaggi"), 2);
}

// Typed, cut, and taken along the chain over the time control, which keeps its own; deleted, it is no time;
// what is being typed is stored on closing.
void tst_ErroriOffLine::correzione() {
    scriviRilevamento(m_uno, m_co, "07:00:00:00", "07:30:00:00");
    frmCorrezioneOffLine finestra(m_uno);
    mostra(finestra);
    QVERIFY(finestra.findChild<QTableView*>("grT")->isColumnHidden(Colonna::PenAgg));
    const QString controllo = "07:00:00:00>07:30:00:00";
    // A row with a missing time is not computed.
    const auto* modello = finestra.findChild<QTableView*>("grS")->model();
    QCOMPARE(modello->index(2, Colonna::Penalita).data().toString(), "?????");
    QCOMPARE(finestra.findChild<QLabel*>("lblTotPen")->text(),
             modello->index(1, Colonna::Penalita).data().toString());
    scrivi(finestra, 0, Colonna::TempoStart, "10000019");
    scrivi(finestra, 0, Colonna::TempoPassaggio, "10010555");
    QCOMPARE(tempiDi(m_uno), QStringList({"10:00:00:10>10:01:05:50", controllo, "10:01:05:50>"}));
    vai(finestra, 0, Colonna::TempoPassaggio);
    dialoghi().attendiDomanda("Conferma Cancellazione", "Cancellare il Tempo Selezionato ?", true);
    tasto(Qt::Key_Delete);
    vai(finestra, 2, Colonna::TempoPassaggio);
    digita("10050099");
    premi(finestra, "cmdEsci");
    QVERIFY(!finestra.isVisible());
    QCOMPARE(tempiDi(m_uno), QStringList({"10:00:00:10>00:00:00:00", controllo, "00:00:00:00>10:05:00:90"}));
}

PROVA_FINESTRE(tst_ErroriOffLine)
#include "tst_ErroriOffLine.moc"

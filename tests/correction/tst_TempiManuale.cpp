#include "correction/ElencoEquipaggi.h"
#include "correction/frmTempiManuale.h"
#include "correction/GrigliaRilevamenti.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>

namespace {

using Colonna = ModelloRilevamenti::Colonna;

// The window on the archive and what a test does with its controls.
class Banco final {
public:
    Banco() {
        finestra.show();
        if (!QTest::qWaitForWindowActive(&finestra))
            qFatal("the window does not come up");
    }

    template <typename Controllo = QWidget>
    Controllo* trova(const char* nome) {
        auto* controllo = finestra.findChild<Controllo*>(nome);
        if (!controllo)
            qFatal("no control %s", nome);
        return controllo;
    }

    QTableView* grT() { return trova<QTableView>("grT"); }
    QTreeWidget* albero() { return trova<QTreeWidget>("treeEq"); }
    QString etichetta(const char* nome) { return trova<QLabel>(nome)->text(); }
    QString cella(int riga, int colonna) { return grT()->model()->index(riga, colonna).data().toString(); }
    // Start, arrival, net, deviation, penalty of a row.
    QString riga(int i) {
        QStringList testi;
        for (const int colonna : {Colonna::TempoStart, Colonna::TempoPassaggio, Colonna::Netto,
                                  Colonna::Scarto, Colonna::Penalita})
            testi << cella(i, colonna);
        return testi.join(' ');
    }
    // The current cell as "row column".
    QString posto() {
        const QModelIndex corrente = grT()->currentIndex();
        return QString("%1 %2").arg(corrente.row()).arg(corrente.column());
    }

    void vai(int riga, int colonna) {
        grT()->setFocus();
        grT()->setCurrentIndex(grT()->model()->index(riga, colonna));
    }
    // Into the widget that has the focus, as the keyboard does.
    void digita(const QString& testo) {
        for (const QChar c : testo)
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    }
    void tasto(Qt::Key tasto) { QTest::keyClick(QApplication::focusWidget(), tasto); }
    void premiRicerca() { QTest::mouseClick(trova<QPushButton>("cmdTempiMancanti"), Qt::LeftButton); }
    QTreeWidgetItem* nodo(std::initializer_list<int> strada) {
        QTreeWidgetItem* item = albero()->invisibleRootItem();
        for (const int passo : strada)
            item = item->child(passo);
        return item;
    }
    void clic(QTreeWidgetItem* item) {
        for (QTreeWidgetItem* padre = item->parent(); padre; padre = padre->parent())
            padre->setExpanded(true);
        QCoreApplication::processEvents();  // the tree takes its place
        albero()->scrollToItem(item);
        QTest::mouseClick(albero()->viewport(), Qt::LeftButton, {}, albero()->visualItemRect(item).center());
    }

    frmTempiManuale finestra;
};

}  // namespace

class tst_TempiManuale final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void apertura();
    void digitazione();
    void invioPassaAvanti();
    void precisionePerClasse();
    void tastiDegliEquipaggi();
    void penalitaAggiunta();
    void cancellazione();
    void editorVuotatoChiede();
    void apertoESenzaCambiare();
    void testiCheNonSonoTempi();
    void scritturaFallita();
    void nessunaProvaSvolta();
    void nessunErrore();
    void ricercaESalto();
    void correzioneConLAlbero();
    void numeroOltreLElenco();
    void ricezione();

private:
    QString letto(int equipaggio, int prova, const QString& colonna) {
        return leggiValore("SELECT " + colonna + " FROM Rilevamenti WHERE IDEqu_FK=? AND IDPro_FK=?",
                           {m_equipaggi[equipaggio], m_prove[prova]})
            ->toString();
    }
    void ordina(int equipaggio);  // right times on every test

    std::unique_ptr<ProgrammaDiProva> m_programma;
    QList<int> m_prove;      // CO, PA chained, PA chained, PM, CO chained to the first
    QList<int> m_equipaggi;  // 4 ASI, 9 not ASI
};

void tst_TempiManuale::init() {
    m_programma = std::make_unique<ProgrammaDiProva>();
    nuovaManifestazione({{"ASIeNONASI", 1},
                         {"PrePANoASI", "SEC"},
                         {"PrePMNoASI", "SEC"},
                         {"PreCONoASI", "MIN"},
                         {"PenUniPANoASI", 100},
                         {"PenUniPMNoASI", 2},
                         {"PenUniCONoASI", 60}});
    m_prove = {nuovaProva({{"Nom", "CO Asti"}, {"Tip", "CO"}, {"Tem", "00:30:00"}})};
    m_prove << nuovaProva({{"Nom", "PA 1"}, {"ConA", m_prove[0]}});
    m_prove << nuovaProva({{"Nom", "PA 2"}, {"ConA", m_prove[1]}});
    m_prove << nuovaProva({{"Nom", "PM 1"}, {"Tip", "PM"}, {"Tem", "00:10:00"}});
    m_prove << nuovaProva({{"Nom", "CO Alba"}, {"Tip", "CO"}, {"Tem", "01:00:00"}, {"ConA", m_prove[0]}});
    m_equipaggi = {nuovoEquipaggio(4, {{"Cog", "FERRI"}}), nuovoEquipaggio(9, {{"Omo", " "}})};
}

void tst_TempiManuale::cleanup() {
    QVERIFY(m_programma->dialoghi.finite());
    m_programma.reset();
}

void tst_TempiManuale::ordina(int equipaggio) {
    const char* tempi[][2] = {{"09:00:00:00", "09:30:00:00"},
                              {"09:30:00:00", "09:31:00:10"},
                              {"09:31:00:10", "09:32:00:20"},
                              {"10:00:00:00", "10:10:00:00"},
                              {"09:30:00:00", "10:30:00:00"}};
    for (int i = 0; i < m_prove.size(); ++i)
        scriviRilevamento(m_equipaggi[equipaggio], m_prove[i], tempi[i][0], tempi[i][1]);
}

void tst_TempiManuale::apertura() {
    Banco banco;
    QCOMPARE(banco.finestra.windowTitle(), QString("Immissione Manuale Rilevamenti"));
    QCOMPARE(banco.etichetta("lblEqu"), QString("N. 4 - FERRI-BIANCHI - LANCIA APRILIA"));
    const QTreeWidgetItem* secondo = banco.trova<QTreeWidget>("lstEq")->topLevelItem(1);
    QCOMPARE(secondo->text(0), QString::number(m_equipaggi[1]));
    QCOMPARE(secondo->text(4), QString("False"));
    QCOMPARE(banco.cella(3, Colonna::NomeProva), QString("PM 1"));
    QCOMPARE(banco.cella(3, Colonna::TempoImposto), QString("00:10:00"));
    // Blank times are computed as zeros: the imposed time is the deviation.
    QCOMPARE(banco.riga(1), QString("  00:00:00:00 00:01:00:00 6000"));
    QCOMPARE(banco.etichetta("lblTotPen"), QString::number(30 * 60 + 6000 + 6000 + 1200 + 3600));
    QVERIFY(banco.grT()->hasFocus());
    QCOMPARE(banco.posto(), QString("0 2"));
}

void tst_TempiManuale::digitazione() {
    Banco banco;
    banco.vai(0, Colonna::TempoPassaggio);
    banco.digita("09:3");  // what is no digit is passed over
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(editor);
    QCOMPARE(editor->text(), QString("00:00:00:93"));
    banco.tasto(Qt::Key_Backspace);
    QCOMPARE(editor->text(), QString("00:00:00:09"));
    banco.digita("301520");
    QCOMPARE(editor->text(), QString("09:30:15:20"));
    banco.tasto(Qt::Key_Return);
    // Cut to the minute of a CO; the start of the next test and of the next CO take it.
    QCOMPARE(letto(0, 0, "TArr"), QString("09:30:00:00"));
    QCOMPARE(letto(0, 1, "TPar"), QString("09:30:00:00"));
    QCOMPARE(letto(0, 4, "TPar"), QString("09:30:00:00"));
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>'' OR TArr<>''"), 3);
    QCOMPARE(banco.riga(1).left(12), QString("09:30:00:00 "));

    banco.vai(1, Colonna::TempoPassaggio);
    banco.digita("09310025");
    banco.tasto(Qt::Key_Return);
    QCOMPARE(banco.riga(1), QString("09:30:00:00 09:31:00:25 00:01:00:25 00:00:00:25 25"));
    QCOMPARE(letto(0, 2, "TPar"), QString("09:31:00:25"));
}

void tst_TempiManuale::invioPassaAvanti() {
    Banco banco;
    QStringList posti;
    for (int i = 0; i < 6; ++i) {
        banco.tasto(i % 2 == 0 ? Qt::Key_Return : Qt::Key_Tab);
        posti << banco.posto();
    }
    // Chained starts are passed over.
    QCOMPARE(posti, QStringList({"0 3", "1 3", "2 3", "3 2", "3 3", "4 3"}));
    banco.tasto(Qt::Key_Return);
    QCOMPARE(banco.posto(), QString("4 3"));
    banco.tasto(Qt::Key_Backtab);
    QCOMPARE(banco.posto(), QString("3 3"));
    // From within the editor as well; the arrows stay in the column.
    banco.digita("10100000");
    banco.tasto(Qt::Key_Up);
    QCOMPARE(banco.posto(), QString("2 3"));
    QVERIFY(banco.grT()->hasFocus());
    banco.digita("1");
    banco.tasto(Qt::Key_Escape);
    QCOMPARE(letto(0, 2, "TArr"), QString());
    QCOMPARE(letto(0, 3, "TArr"), QString("10:10:00:00"));
    // A letter does not lose the place.
    banco.vai(2, Colonna::NomeProva);
    banco.digita("C9");
    QCOMPARE(banco.posto(), QString("2 0"));
}

void tst_TempiManuale::precisionePerClasse() {
    Banco banco;
    for (int equipaggio = 0; equipaggio < 2; ++equipaggio) {
        banco.vai(1, Colonna::TempoPassaggio);
        banco.digita("09310075");
        banco.tasto(Qt::Key_Return);
        banco.tasto(Qt::Key_Plus);
    }
    QCOMPARE(letto(0, 1, "TArr"), QString("09:31:00:75"));
    QCOMPARE(letto(1, 1, "TArr"), QString("09:31:00:00"));
}

void tst_TempiManuale::tastiDegliEquipaggi() {
    Banco banco;
    banco.digita("0900");
    banco.tasto(Qt::Key_Plus);  // stores and goes on
    QCOMPARE(letto(0, 0, "TPar"), QString("00:00:00:00"));
    QCOMPARE(banco.etichetta("lblEqu"), QString("N. 9 - ROSSI-BIANCHI - LANCIA APRILIA"));
    QCOMPARE(banco.cella(0, Colonna::TempoStart), QString());
    banco.tasto(Qt::Key_Plus);
    QVERIFY(banco.etichetta("lblEqu").startsWith("N. 9 "));
    banco.trova<QTreeWidget>("lstEq")->setFocus();
    banco.tasto(Qt::Key_Minus);
    banco.tasto(Qt::Key_Minus);
    QVERIFY(banco.etichetta("lblEqu").startsWith("N. 4 "));
    banco.trova("cmdEsci")->setFocus();
    banco.tasto(Qt::Key_Plus);
    QVERIFY(banco.etichetta("lblEqu").startsWith("N. 9 "));
    QVERIFY(banco.grT()->hasFocus());
}

void tst_TempiManuale::penalitaAggiunta() {
    ordina(0);
    Banco banco;
    QCOMPARE(banco.riga(1), QString("09:30:00:00 09:31:00:10 00:01:00:10 00:00:00:10 10"));
    QCOMPARE(banco.etichetta("lblTotPen"), QString("20"));
    banco.vai(1, Colonna::PenAgg);
    banco.digita("a50");
    banco.tasto(Qt::Key_Return);
    QCOMPARE(banco.cella(1, Colonna::Penalita), QString("60"));
    QCOMPARE(banco.etichetta("lblTotPen"), QString("70"));
    banco.vai(1, Colonna::PenAgg);
    banco.tasto(Qt::Key_Delete);
    banco.tasto(Qt::Key_Return);
    QCOMPARE(leggiValore("SELECT PenAgg FROM Rilevamenti WHERE IDEqu_FK=? AND IDPro_FK=?",
                         {m_equipaggi[0], m_prove[1]}),
             QVariant(0.0));
    QCOMPARE(banco.etichetta("lblTotPen"), QString("20"));
}

void tst_TempiManuale::cancellazione() {
    ordina(0);
    Banco banco;
    banco.vai(2, Colonna::TempoStart);
    m_programma->dialoghi.attendiDomanda("Conferma Cancellazione", "Cancellare il Tempo Selezionato ?",
                                         false);
    banco.tasto(Qt::Key_Delete);
    QCOMPARE(letto(0, 2, "TPar"), QString("09:31:00:10"));
    m_programma->dialoghi.attendiDomanda("Conferma Cancellazione", "Cancellare il Tempo Selezionato ?", true);
    banco.tasto(Qt::Key_Backspace);
    QVERIFY(m_programma->dialoghi.finite());
    QCOMPARE(letto(0, 2, "TPar"), QString(""));
    QCOMPARE(letto(0, 1, "TArr"), QString(""));
    QCOMPARE(letto(0, 4, "TPar"), QString(""));  // the next CO, as after a start that is typed
    QCOMPARE(letto(0, 0, "TArr"), QString("09:30:00:00"));
    banco.vai(2, Colonna::NomeProva);
    banco.tasto(Qt::Key_Delete);
}

void tst_TempiManuale::editorVuotatoChiede() {
    ordina(0);
    Banco banco;
    banco.vai(3, Colonna::TempoPassaggio);
    banco.tasto(Qt::Key_F2);
    banco.tasto(Qt::Key_Backspace);  // the whole text is selected
    m_programma->dialoghi.attendiDomanda("Conferma Cancellazione", {}, true);
    banco.tasto(Qt::Key_Return);
    QTRY_COMPARE(letto(0, 3, "TArr"), QString(""));
}

// Looking at a cell does not write it, nor what hangs on it.
void tst_TempiManuale::apertoESenzaCambiare() {
    ordina(0);
    scriviRilevamento(m_equipaggi[0], m_prove[1], "09:30:05:00", "09:31:00:10");
    Banco banco;
    banco.vai(0, Colonna::TempoPassaggio);
    banco.tasto(Qt::Key_F2);
    banco.tasto(Qt::Key_Return);
    QCOMPARE(letto(0, 1, "TPar"), QString("09:30:05:00"));
}

void tst_TempiManuale::testiCheNonSonoTempi() {
    ordina(0);
    scriviRilevamento(m_equipaggi[0], m_prove[1], "12345678", "abc");
    Banco banco;
    QCOMPARE(banco.riga(1), QString("12:34:56:78 abc ????? ????? ?????"));
    QCOMPARE(banco.etichetta("lblTotPen"), QString("10"));
    const auto stile = [&](int riga) {
        return static_cast<StileScarto>(
            banco.grT()->model()->index(riga, Colonna::Scarto).data(ModelloRilevamenti::RuoloStile).toInt());
    };
    QCOMPARE(stile(1), StileScarto::Errato);
    QCOMPARE(stile(2), StileScarto::Negativo);
    QCOMPARE(stile(3), StileScarto::Netto);
    banco.vai(3, Colonna::TempoPassaggio);
    banco.digita("99999999");
    banco.tasto(Qt::Key_Return);
    QCOMPARE(letto(0, 3, "TArr"), QString("99:99:99:00"));
    QCOMPARE(banco.cella(3, Colonna::Penalita), QString("?????"));
}

void tst_TempiManuale::scritturaFallita() {
    ordina(0);
    Banco banco;
    const QString prima = banco.riga(0) + banco.riga(1) + banco.etichetta("lblTotPen");
    esegui("CREATE TRIGGER rifiuta BEFORE UPDATE ON Rilevamenti WHEN new.IDPro_FK=" +
           QString::number(m_prove[4]) + " BEGIN SELECT RAISE(ABORT,'disco pieno'); END");
    banco.vai(0, Colonna::TempoPassaggio);
    banco.digita("09450000");
    m_programma->dialoghi.attendiMessaggio({}, {}, Icona::Stop);
    banco.tasto(Qt::Key_Return);
    QTRY_COMPARE(m_programma->dialoghi.viste().size(), 1);
    QVERIFY(m_programma->dialoghi.viste().first().testo.contains("disco pieno"));
    QCOMPARE(banco.riga(0) + banco.riga(1) + banco.etichetta("lblTotPen"), prima);
    QCOMPARE(letto(0, 0, "TArr"), QString("09:30:00:00"));
}

void tst_TempiManuale::nessunaProvaSvolta() {
    esegui("UPDATE Prove SET Svo=0");
    Banco banco;
    m_programma->dialoghi.attendiMessaggio("Impossibile Cercare Tempi Errati/Mancanti",
                                           "Nessuna Prova Svolta");
    banco.premiRicerca();
    QVERIFY(!banco.albero()->isVisible());
}

void tst_TempiManuale::nessunErrore() {
    esegui("UPDATE Prove SET Svo=0 WHERE IDPro NOT IN (?,?)", {m_prove[1], m_prove[2]});
    ordina(0);
    ordina(1);
    Banco banco;
    m_programma->dialoghi.attendiMessaggio("Nessu Tempo Mancante Trovato",
                                           "Ogni Equipaggio ha Tutti i Rilevamenti e Corretti",
                                           Icona::Informazione);
    banco.premiRicerca();
    QVERIFY(!banco.albero()->isVisible());
    QCOMPARE(banco.trova<QPushButton>("cmdTempiMancanti")->text().remove('&'),
             QString("Cerca Tempi Errati/Mancanti"));
}

void tst_TempiManuale::ricercaESalto() {
    esegui("UPDATE Prove SET Svo=0 WHERE IDPro NOT IN (?,?)", {m_prove[1], m_prove[3]});
    Banco banco;
    banco.premiRicerca();
    QVERIFY(banco.albero()->isVisible());
    QVERIFY(!banco.trova("frmRicerca")->isVisible());
    QCOMPARE(banco.trova<QPushButton>("cmdTempiMancanti")->text().remove('&'), QString("Nascondi Lista"));
    QCOMPARE(banco.albero()->topLevelItemCount(), 2);
    QVERIFY(banco.nodo({1})->text(0).startsWith("9 ROSSI BIANCHI ["));
    QCOMPARE(banco.nodo({1, 1})->text(0), QString("PM 1"));

    banco.clic(banco.nodo({1, 1, 1}));
    QCOMPARE(banco.posto(), QString("3 3"));
    QVERIFY(banco.etichetta("lblEqu").startsWith("N. 9 "));
    QVERIFY(banco.grT()->hasFocus());
    banco.clic(banco.nodo({0, 0, 0}));
    QCOMPARE(banco.posto(), QString("1 2"));
    QVERIFY(banco.etichetta("lblEqu").startsWith("N. 4 "));
    banco.clic(banco.nodo({0, 1}));
    QCOMPARE(banco.posto().left(1), QString("3"));
    banco.clic(banco.nodo({1}));
    QVERIFY(banco.etichetta("lblEqu").startsWith("N. 9 "));

    // Hidden and shown again, with the same node selected.
    banco.clic(banco.nodo({1, 1, 1}));
    banco.premiRicerca();
    QVERIFY(!banco.albero()->isVisible());
    banco.premiRicerca();
    QCOMPARE(banco.albero()->currentItem(), banco.nodo({1, 1, 1}));
}

void tst_TempiManuale::correzioneConLAlbero() {
    esegui("UPDATE Prove SET Svo=0 WHERE Tip='CO'");
    ordina(0);
    ordina(1);
    esegui("UPDATE Rilevamenti SET TArr='' WHERE IDPro_FK=?", {m_prove[2]});
    Banco banco;
    banco.premiRicerca();
    QCOMPARE(banco.albero()->topLevelItemCount(), 2);
    banco.clic(banco.nodo({1, 0, 0}));
    QCOMPARE(banco.posto(), QString("2 3"));
    // A finding that changes its kind: the selection falls back to its test.
    banco.digita("09200000");
    banco.tasto(Qt::Key_Return);
    QTRY_COMPARE(banco.nodo({1, 0})->childCount(), 2);
    QCOMPARE(banco.albero()->currentItem(), banco.nodo({1, 0, 1}));
    banco.vai(2, Colonna::TempoPassaggio);
    banco.digita("09320020");
    banco.tasto(Qt::Key_Return);
    QTRY_COMPARE(banco.albero()->topLevelItemCount(), 1);
    banco.clic(banco.nodo({0, 0, 0}));
    m_programma->dialoghi.attendiMessaggio("Nessu Tempo Mancante Trovato", {}, Icona::Informazione);
    banco.digita("09320020");
    banco.tasto(Qt::Key_Return);
    QTRY_VERIFY(!banco.albero()->isVisible());
    QVERIFY(m_programma->dialoghi.finite());
    // With the tree hidden nothing is searched.
    banco.vai(2, Colonna::TempoPassaggio);
    banco.digita("09");
    banco.tasto(Qt::Key_Return);
    QCoreApplication::processEvents();
    QVERIFY(!banco.albero()->isVisible());
}

void tst_TempiManuale::numeroOltreLElenco() {
    nuovoEquipaggio(1204);
    Banco banco;
    m_programma->dialoghi.attendiMessaggio("Ricerca Tempi Errati/Mancanti",
                                           "La Ricerca Arriva al Numero 999.\nEquipaggi NON Cercati: 1204");
    banco.premiRicerca();
    QVERIFY(m_programma->dialoghi.finite());
    QCOMPARE(banco.albero()->topLevelItemCount(), 2);
}

// The grid as the reception windows use it.
void tst_TempiManuale::ricezione() {
    ordina(0);
    GrigliaRilevamenti griglia;
    griglia.apri(ModoGriglia::Ricezione);
    griglia.mostraEquipaggio(m_equipaggi[0], true);
    griglia.resize(900, 400);
    griglia.show();
    QVERIFY(QTest::qWaitForWindowActive(&griglia));
    auto* grT = griglia.findChild<QTableView*>("grT");
    QVERIFY(grT->isColumnHidden(Colonna::PenAgg));
    grT->setFocus();
    grT->setCurrentIndex(grT->model()->index(1, Colonna::TempoStart));
    m_programma->dialoghi.attendiDomanda("Conferma Cancellazione", {}, true);
    QTest::keyClick(grT, Qt::Key_Delete);
    QCOMPARE(letto(0, 1, "TPar"), QString("00:00:00:00"));
    QCOMPARE(letto(0, 0, "TArr"), QString("09:30:00:00"));  // a CO is not written
    grT->setCurrentIndex(grT->model()->index(1, Colonna::TempoPassaggio));
    m_programma->dialoghi.attendiDomanda("Conferma Cancellazione", {}, true);
    QTest::keyClick(grT, Qt::Key_Delete);
    QCOMPARE(letto(0, 2, "TPar"), QString("00:00:00:00"));
}

PROVA_FINESTRE(tst_TempiManuale)
#include "tst_TempiManuale.moc"

#include "readings/frmPenalitaAggiuntive.h"
#include "readings/frmTempiManuale.h"
#include "supporto/AnteprimaDiProva.h"
#include "supporto/BancoRilevamenti.h"

namespace {

const QStringList Giusti{"09:00:00:00>09:30:00:00", "09:30:00:00>09:31:00:10", "09:31:00:10>09:32:00:20",
                         "10:00:00:00>10:10:00:00", "09:30:00:00>10:30:00:00"};

// The window for readings by hand and what a test does with its controls.
class Banco final {
public:
    Banco() { mostra(finestra); }

    QTableView* grT() { return finestra.findChild<QTableView*>("grT"); }
    QTreeWidget* albero() { return controllo<QTreeWidget>(finestra, "treeEq"); }
    QString numero() { return contenuto(finestra, "lblEqu").section(' ', 1, 1); }
    // Start, arrival, net, deviation, penalty of a row.
    QString riga(int i) {
        QStringList testi;
        for (const int colonna : {Colonna::TempoStart, Colonna::TempoPassaggio, Colonna::Netto,
                                  Colonna::Scarto, Colonna::Penalita})
            testi << grT()->model()->index(i, colonna).data().toString();
        return testi.join(' ');
    }
    // The current cell as "row column".
    QString posto() {
        const QModelIndex corrente = grT()->currentIndex();
        return QString("%1 %2").arg(corrente.row()).arg(corrente.column());
    }
    void premiRicerca() { premi(finestra, "cmdTempiMancanti"); }
    QTreeWidgetItem* nodo(std::initializer_list<int> strada) {
        QTreeWidgetItem* item = albero()->invisibleRootItem();
        for (const int passo : strada)
            item = item->child(passo);
        return item;
    }
    // Clicks a node of the tree: the crew and the cell shown then.
    QString clic(std::initializer_list<int> strada) {
        QTreeWidgetItem* item = nodo(strada);
        for (QTreeWidgetItem* padre = item->parent(); padre; padre = padre->parent())
            padre->setExpanded(true);
        QCoreApplication::processEvents();  // the tree takes its place
        albero()->scrollToItem(item);
        const QPoint punto = albero()->visualItemRect(item).center();
        QTest::mousePress(albero()->viewport(), Qt::LeftButton, {}, punto);
        // What the press sets going, storing and then a search, comes before the release.
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        QTest::mouseRelease(albero()->viewport(), Qt::LeftButton, {}, punto);
        return numero() + ": " + posto();
    }

    frmTempiManuale finestra;
};

}  // namespace

class tst_FinestreRilevamenti final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void celleAMeta();
    void tastiDegliEquipaggi();
    void equipaggioIllegibile();
    void calcoli();
    void cancellazione();
    void scritturaFallita();
    void ricercaSenzaErrori();
    void ricercaESalto();
    void correzioneConLAlbero();
    void penalitaDigitate();
    void penalitaRifiutate();

private:
    void prepara() override;
    void ordina(int equipaggio);  // right times on every test

    QList<int> m_prove;      // CO, PA chained, PA chained, PM, CO chained to the first
    QList<int> m_equipaggi;  // 4 ASI, 9 not ASI
};

void tst_FinestreRilevamenti::prepara() {
    nuovaManifestazione({{"ASIeNONASI", 1},
                         {"PrePANoASI", "SEC"},
                         {"PrePMNoASI", "SEC"},
                         {"PenUniPANoASI", 100},
                         {"PenUniPMNoASI", 2}});
    m_prove = {nuovaProva({{"Nom", "CO Asti"}, {"Tip", "CO"}, {"Tem", "00:30:00"}})};
    m_prove << nuovaProva({{"Nom", "PA 1"}, {"ConA", m_prove[0]}});
    m_prove << nuovaProva({{"Nom", "PA 2"}, {"ConA", m_prove[1]}});
    m_prove << nuovaProva({{"Nom", "PM 1"}, {"Tip", "PM"}, {"Tem", "00:10:00"}});
    m_prove << nuovaProva({{"Nom", "CO Alba"}, {"Tip", "CO"}, {"Tem", "01:00:00"}, {"ConA", m_prove[0]}});
    m_equipaggi = {nuovoEquipaggio(4, {{"Cog", "FERRI"}}), nuovoEquipaggio(9, {{"Omo", " "}})};
}

void tst_FinestreRilevamenti::ordina(int equipaggio) {
    for (int i = 0; i < m_prove.size(); ++i) {
        const QStringList tempi = Giusti[i].split('>');
        scriviRilevamento(m_equipaggi[equipaggio], m_prove[i], tempi[0], tempi[1]);
    }
}

// How many digits make a time when the cell is left, and by what.
void tst_FinestreRilevamenti::celleAMeta() {
    const char* vecchio = "09:31:00:10";
    const char* nuovo = "00:01:23:45";
    const struct {
        const char *cifre, *arrivo;
        QStringList come;
    } casi[] = {{"1", "00:00:00:01", {"Return"}},
                {"123456789", "12:34:56:78", {"Tab"}},
                {"12345", vecchio, {"Up", "+", "-", "clic", "lstEq", "cmdEsci", "PgDown", "chiudi"}},
                // What is no digit is passed over.
                {"01:23a45", nuovo, {"Up", "+", "-", "clic", "lstEq", "cmdEsci", "PgDown", "chiudi"}},
                {"", vecchio, {"Up", "cmdEsci"}},
                // Emptied: asked before the crew changes, or the window closes.
                {"", "", {"Return", "+", "lstEq", "chiudi"}}};
    for (const auto& [cifre, arrivo, modi] : casi) {
        for (const QString& come : modi) {
            ricomincia();
            ordina(0);
            Banco banco;
            vai(banco.finestra, 1, Colonna::TempoPassaggio);
            tasto(Qt::Key_F2);
            tasto(Qt::Key_Backspace);
            digita(cifre);
            // Another window, as the help, comes over this one: the cell stays open.
            {
                QDialog aiuto(&banco.finestra);
                aiuto.show();
                QTRY_COMPARE(QApplication::activeWindow(), &aiuto);
            }
            QTRY_VERIFY(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
            if (!*arrivo)
                dialoghi().attendiDomanda("Conferma Cancellazione", {}, true);
            if (come == "clic") {
                QTableView& grT = *banco.grT();
                QTest::mouseClick(grT.viewport(), Qt::LeftButton, {},
                                  grT.visualRect(grT.model()->index(3, Colonna::TempoStart)).center());
                QCOMPARE(banco.posto(), "3 2");
            } else if (come == "lstEq") {
                clicRiga(controllo<QTreeWidget>(banco.finestra, come), 1);
            } else if (come == "cmdEsci") {
                controllo<QWidget>(banco.finestra, come)->setFocus();
                QCoreApplication::processEvents();
            } else if (come == "chiudi") {
                QVERIFY(banco.finestra.close());
            } else {
                tasto(QKeySequence(come)[0].key());
            }
            QCOMPARE(tempiDi(m_equipaggi[0])[1], QString("09:30:00:00>") + arrivo);
            QCOMPARE(banco.numero(), come == "+" || come == "lstEq" ? "9" : "4");
            if (come == "Up")
                QCOMPARE(banco.posto(), "0 3");
            const QString esito = *cifre ? QString("PA 1, T. Passaggio : ") + arrivo : "";
            QVERIFY2(contenuto(banco.finestra, "lblEsito").contains(esito), qPrintable(cifre + come));
            if (!*arrivo)  // not Null: here, and where the chain has taken it
                QVERIFY(!letto(m_equipaggi[0], m_prove[1], "TArr").isNull() &&
                        !letto(m_equipaggi[0], m_prove[2], "TPar").isNull());
        }
    }
}

// Plus and minus store and go on, wherever the focus is; each class has its precision.
void tst_FinestreRilevamenti::tastiDegliEquipaggi() {
    Banco banco;
    confronta(banco.finestra, "lblEqu=N. 4 - FERRI-BIANCHI - LANCIA APRILIA");
    for (int i = 0; i < 2; ++i) {
        vai(banco.finestra, 1, Colonna::TempoPassaggio);
        digita("09310075");
        tasto(Qt::Key_Plus);
        QCOMPARE(banco.numero(), QString("9"));
    }
    QCOMPARE(tempiDi(m_equipaggi[0])[1], QString(">09:31:00:75"));
    QCOMPARE(tempiDi(m_equipaggi[1])[1], QString(">09:31:00:00"));
    QCOMPARE(banco.posto(), "1 3");  // the same test
    auto* lstEq = banco.finestra.findChild<QTreeWidget*>("lstEq");
    QCOMPARE(lstEq->topLevelItem(0)->text(4) + lstEq->topLevelItem(1)->text(4), QString("TrueFalse"));
    banco.finestra.findChild<QPushButton*>("cmdEsci")->setFocus();
    tasto(Qt::Key_Minus);
    QCOMPARE(banco.numero(), QString("4"));
    QVERIFY(banco.grT()->hasFocus());
    for (const char* numero : {" 9", "44"}) {
        dialoghi().attendiChiedi("Vai all'Equipaggio", "Numero dell'Equipaggio", QString(numero));
        if (QString(numero) == "44")
            dialoghi().attendiMessaggio("Equipaggio NON Trovato", "Nessun Equipaggio ha il Numero 44");
        QTest::keyClick(banco.grT(), Qt::Key_G, Qt::ControlModifier);
        QCOMPARE(banco.numero(), QString("9"));
    }
}

// The crew on show stays, in the list, in the label and in the grid.
void tst_FinestreRilevamenti::equipaggioIllegibile() {
    ordina(0);
    Banco banco;
    ChiudiDataBase();
    dialoghi().attendiMessaggio({}, {}, Icona::Stop);
    tasto(Qt::Key_Plus);
    ApriDataBase();
    QCOMPARE(banco.numero(), "4");
    auto* lstEq = banco.finestra.findChild<QTreeWidget*>("lstEq");
    QCOMPARE(lstEq->selectedItems(), QList{lstEq->topLevelItem(0)});
    QVERIFY(banco.riga(0).startsWith("09:00:00:00 "));
}

void tst_FinestreRilevamenti::calcoli() {
    ordina(0);
    scriviRilevamento(m_equipaggi[0], m_prove[3], "12345678", "abc");
    Banco banco;
    QCOMPARE(banco.riga(3), QString("12:34:56:78 abc ????? ????? ?????"));
    confronta(banco.finestra, "lblTotPen=20");
    // A comma is refused aloud: 7,5 is no 75.
    dialoghi().attendiMessaggio("Penalità NON Valida", {});
    scrivi(banco.finestra, 1, Colonna::PenAgg, "7,a50");
    QCOMPARE(banco.riga(1), QString("09:30:00:00 09:31:00:10 00:01:00:10 00:00:00:10 60"));
    confronta(banco.finestra, "lblTotPen=70");
    QCOMPARE(banco.grT()->model()->index(1, Colonna::Scarto).data(ModelloRilevamenti::RuoloStile).toInt(),
             static_cast<int>(StileScarto::Negativo));
    scrivi(banco.finestra, 2, Colonna::TempoPassaggio, "99999999");
    QCOMPARE(banco.riga(2), QString("09:31:00:10 99:99:99:99 ????? ????? ?????"));
    confronta(banco.finestra, "lblTotPen=60");
}

void tst_FinestreRilevamenti::cancellazione() {
    ordina(0);
    scriviRilevamento(m_equipaggi[0], m_prove[1], "09:30:05:00", "09:31:00:10");
    Banco banco;
    const auto attendi = [this](bool si) {
        dialoghi().attendiDomanda("Conferma Cancellazione", "Cancellare il Tempo Selezionato ?", si);
    };
    // Looking at a cell does not write it, nor what hangs on it; a cell of no time asks nothing.
    vai(banco.finestra, 0, Colonna::TempoPassaggio);
    tasto(Qt::Key_F2);
    tasto(Qt::Key_Return);
    vai(banco.finestra, 2, Colonna::NomeProva);
    tasto(Qt::Key_Delete);
    vai(banco.finestra, 2, Colonna::TempoStart);
    attendi(false);
    tasto(Qt::Key_Delete);
    QCOMPARE(tempiDi(m_equipaggi[0])[1], QString("09:30:05:00>09:31:00:10"));
    QCOMPARE(tempiDi(m_equipaggi[0])[2], Giusti[2]);
    attendi(true);
    tasto(Qt::Key_Backspace);
    // With the start the arrival before it and the start of the next CO, as when it is typed.
    QCOMPARE(tempiDi(m_equipaggi[0]),
             QStringList({Giusti[0], "09:30:05:00>", ">09:32:00:20", Giusti[3], ">10:30:00:00"}));
}

void tst_FinestreRilevamenti::scritturaFallita() {
    ordina(0);
    Banco banco;
    const QString prima = banco.riga(0) + banco.riga(1) + contenuto(banco.finestra, "lblTotPen");
    guasta(QString("UPDATE ON Rilevamenti WHEN new.IDPro_FK=%1").arg(m_prove[4]));
    dialoghi().attendiMessaggio({}, {}, Icona::Stop);
    scrivi(banco.finestra, 0, Colonna::TempoPassaggio, "09450000");
    QTRY_COMPARE(dialoghi().viste().size(), 1);
    QCOMPARE(banco.riga(0) + banco.riga(1) + contenuto(banco.finestra, "lblTotPen"), prima);
    QCOMPARE(tempiDi(m_equipaggi[0]), Giusti);
    // The time is still there to be stored: leaving tells why it is not, and from then on asks.
    dialoghi().attendiMessaggio({}, {}, Icona::Stop);
    banco.finestra.close();
    for (const bool si : {false, true}) {
        QVERIFY(banco.finestra.isVisible());
        dialoghi().attendiDomanda("Conferma Chiusura", {}, si);
        premi(banco.finestra, "cmdEsci");
        QVERIFY(dialoghi().viste().last().testo.contains("CO Asti, T. Passaggio : 09:45:00:00"));
    }
    QVERIFY(!banco.finestra.isVisible());
    QCOMPARE(tempiDi(m_equipaggi[0]), Giusti);
}

void tst_FinestreRilevamenti::ricercaSenzaErrori() {
    esegui("UPDATE Prove SET Svo=0");
    Banco banco;
    dialoghi().attendiMessaggio("Impossibile Cercare Tempi Errati/Mancanti", "Nessuna Prova Svolta");
    banco.premiRicerca();
    esegui("UPDATE Prove SET Svo=1 WHERE IDPro IN (?,?)", {m_prove[1], m_prove[2]});
    ordina(0);
    ordina(1);
    dialoghi().attendiMessaggio("Nessu Tempo Mancante Trovato",
                                "Ogni Equipaggio ha Tutti i Rilevamenti e Corretti", Icona::Informazione);
    banco.premiRicerca();
    QVERIFY(!banco.albero()->isVisible());
    // A number that the search does not reach is named, the others are searched.
    nuovoEquipaggio(1204);
    esegui("UPDATE Rilevamenti SET TArr='' WHERE IDPro_FK=?", {m_prove[2]});
    dialoghi().attendiMessaggio("Ricerca Tempi Errati/Mancanti",
                                "La Ricerca Arriva al Numero 999.\nEquipaggi NON Cercati: 1204");
    banco.premiRicerca();
    QCOMPARE(banco.albero()->topLevelItemCount(), 2);
}

void tst_FinestreRilevamenti::ricercaESalto() {
    esegui("UPDATE Prove SET Svo=0 WHERE IDPro NOT IN (?,?)", {m_prove[1], m_prove[3]});
    Banco banco;
    banco.premiRicerca();
    QVERIFY(banco.nodo({1})->text(0).startsWith("9 ROSSI BIANCHI ["));
    // A reading, a test, a crew.
    QCOMPARE(banco.clic({1, 1, 1}), QString("9: 3 3"));
    QVERIFY(banco.grT()->hasFocus());
    QCOMPARE(banco.clic({0, 0, 0}), QString("4: 1 2"));
    QVERIFY(banco.clic({0, 1}).startsWith("4: 3 "));
    QVERIFY(banco.clic({1}).startsWith("9: "));
    // Hidden and shown again, with the same node selected.
    banco.clic({1, 1, 1});
    banco.premiRicerca();
    QVERIFY(!banco.albero()->isVisible());
    banco.premiRicerca();
    QCOMPARE(banco.albero()->currentItem(), banco.nodo({1, 1, 1}));
}

void tst_FinestreRilevamenti::correzioneConLAlbero() {
    esegui("UPDATE Prove SET Svo=0 WHERE Tip='CO'");
    ordina(0);
    ordina(1);
    esegui("UPDATE Rilevamenti SET TArr='' WHERE IDPro_FK=?", {m_prove[2]});
    Banco banco;
    banco.premiRicerca();
    QCOMPARE(banco.clic({1, 0, 0}), QString("9: 2 3"));
    // A finding that changes its kind: the selection falls back to its test.
    digita("09200000");
    tasto(Qt::Key_Return);
    QTRY_COMPARE(banco.nodo({1, 0})->childCount(), 2);
    QCOMPARE(banco.albero()->currentItem(), banco.nodo({1, 0, 1}));
    scrivi(banco.finestra, 2, Colonna::TempoPassaggio, "09320020");
    QTRY_COMPARE(banco.albero()->topLevelItemCount(), 1);
    banco.clic({0, 0, 0});
    // The click on another finding stores, and counts at once, though the tree is made anew under it.
    banco.clic({0, 0, 0});
    digita("093200");
    QCOMPARE(banco.clic({0, 0}), QString("4: 2 2"));
    QCOMPARE(tempiDi(m_equipaggi[0])[2], QString("09:31:00:10>00:09:32:00"));
    vai(banco.finestra, 2, Colonna::TempoPassaggio);
    dialoghi().attendiMessaggio("Nessu Tempo Mancante Trovato", {}, Icona::Informazione);
    digita("09320020");
    tasto(Qt::Key_Return);
    QTRY_VERIFY(!banco.albero()->isVisible());
    // With the tree hidden nothing is searched.
    scrivi(banco.finestra, 2, Colonna::TempoPassaggio, "09");
    QCoreApplication::processEvents();
    QVERIFY(!banco.albero()->isVisible());
}

void tst_FinestreRilevamenti::penalitaDigitate() {
    esegui("UPDATE Prove SET Svo=0");
    frmPenalitaAggiuntive finestra;
    mostra(finestra);
    const auto penalita = [this](int i) { return letto(m_equipaggi[0], m_prove[i], "PenAgg"); };
    // Both cells of a row, then the next row.
    for (const char* testo : {"12,5", "Ritardo al C.O. 2 + tabella smarrita - art. 12", "7"}) {
        digita(testo);
        tasto(Qt::Key_Return);
    }
    QCOMPARE(penalita(0), QVariant(12.5));
    QCOMPARE(letto(m_equipaggi[0], m_prove[0], "DesPenAgg"),
             QVariant("Ritardo al C.O. 2 + tabella smarrita - art. 12"));
    QCOMPARE(penalita(1), QVariant(7.0));
    vai(finestra, 0, Colonna::PenAgg);
    tasto(Qt::Key_Delete);
    tasto(Qt::Key_Return);
    QCOMPARE(penalita(0), QVariant(0.0));
}

// What is no number does not stay in the grid.
void tst_FinestreRilevamenti::penalitaRifiutate() {
    frmPenalitaAggiuntive finestra;
    mostra(finestra);
    tasto(Qt::Key_F2);
    digita("-");
    dialoghi().attendiMessaggio("Penalità NON Valida", "\"-\" non è un numero: la penalità resta com'era.");
    tasto(Qt::Key_Plus);
    QCOMPARE(dialoghi().viste().size(), 1);
    QVERIFY(letto(m_equipaggi[0], m_prove[0], "PenAgg").isNull());
    // Still there, to be typed over; a plus in a number goes on to the next crew.
    digita("-5+-");
    QCOMPARE(letto(m_equipaggi[0], m_prove[0], "PenAgg"), QVariant(-5.0));
    guasta("UPDATE ON Rilevamenti");
    dialoghi().attendiMessaggio({}, {}, Icona::Stop);
    scrivi(finestra, 0, Colonna::PenAgg, "50");
    QCOMPARE(dialoghi().viste().size(), 2);
    const auto* modello = finestra.findChild<QTableView*>("grT")->model();
    QCOMPARE(modello->index(0, Colonna::PenAgg).data().toString(), QString("-5"));
}

PROVA_FINESTRE(tst_FinestreRilevamenti)
#include "tst_FinestreRilevamenti.moc"

#include "correction/frmPenalitaAggiuntive.h"
#include "correction/ModelloRilevamenti.h"
#include "supporto/AnteprimaDiProva.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

using Colonna = ModelloRilevamenti::Colonna;

class tst_PenalitaAggiuntive final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void colonneModificabili();
    void digitazione();
    void piuEMeno();
    void numeroRifiutato();
    void scritturaFallita();
    void stampa();

private:
    QVariant letto(const QString& colonna, int prova = 0) {
        return *leggiValore("SELECT " + colonna + " FROM Rilevamenti WHERE IDEqu_FK=? AND IDPro_FK=?",
                            {m_idEqu, m_prove[prova]});
    }
    QTableView* grT() { return m_finestra->findChild<QTableView*>("grT"); }
    void vai(int riga, int colonna) {
        grT()->setFocus();
        grT()->setCurrentIndex(grT()->model()->index(riga, colonna));
    }
    static void digita(const QString& testo) {
        for (const QChar c : testo)
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    }
    static void tasto(Qt::Key tasto) { QTest::keyClick(QApplication::focusWidget(), tasto); }
    void apri() {
        m_finestra = std::make_unique<frmPenalitaAggiuntive>();
        m_finestra->show();
        QVERIFY(QTest::qWaitForWindowActive(m_finestra.get()));
    }

    std::unique_ptr<ProgrammaDiProva> m_programma;
    std::unique_ptr<frmPenalitaAggiuntive> m_finestra;
    QList<int> m_prove;
    int m_idEqu = 0;
};

void tst_PenalitaAggiuntive::init() {
    m_programma = std::make_unique<ProgrammaDiProva>();
    nuovaManifestazione();
    m_prove = {nuovaProva({{"Nom", "PA 1"}, {"Svo", 0}}), nuovaProva({{"Nom", "PA 2"}})};
    m_idEqu = nuovoEquipaggio(4);
    nuovoEquipaggio(9);
    apri();
}

void tst_PenalitaAggiuntive::cleanup() {
    m_finestra.reset();
    QVERIFY(m_programma->dialoghi.finite());
    m_programma.reset();
}

void tst_PenalitaAggiuntive::colonneModificabili() {
    QStringList colonne;
    for (int i = 0; i < Colonna::Colonne; ++i) {
        if (!grT()->isColumnHidden(i))
            colonne << QString::number(i) +
                           (grT()->model()->index(0, i).flags() & Qt::ItemIsEditable ? "*" : "");
    }
    QCOMPARE(colonne, QStringList({"0", "4*", "5*"}));
    QVERIFY(!m_finestra->findChild<QTableView*>("grS")->isVisible());
    QCOMPARE(m_finestra->findChild<QLabel*>("lblEqu")->text(),
             QString("N. 4 - ROSSI-BIANCHI - LANCIA APRILIA"));
}

void tst_PenalitaAggiuntive::digitazione() {
    digita("12,5");
    tasto(Qt::Key_Return);
    QCOMPARE(letto("PenAgg"), QVariant(12.5));
    digita("Ritardo al C.O. 2 + tabella smarrita - art. 12");
    tasto(Qt::Key_Return);
    QCOMPARE(letto("DesPenAgg").toString(), QString("Ritardo al C.O. 2 + tabella smarrita - art. 12"));
    QCOMPARE(grT()->currentIndex().row(), 1);  // both cells of a row, then the next row
    digita("7");
    tasto(Qt::Key_Return);
    QCOMPARE(letto("PenAgg", 1), QVariant(7.0));

    // A penalty below zero, and one that is emptied.
    vai(1, Colonna::PenAgg);
    tasto(Qt::Key_F2);
    digita("-30");
    tasto(Qt::Key_Return);
    QCOMPARE(letto("PenAgg", 1), QVariant(-30.0));
    vai(0, Colonna::PenAgg);
    tasto(Qt::Key_Delete);
    tasto(Qt::Key_Return);
    QCOMPARE(letto("PenAgg"), QVariant(0.0));
    // The reason is emptied only when that is stored.
    vai(0, Colonna::DesPenAgg);
    tasto(Qt::Key_Backspace);
    tasto(Qt::Key_Escape);
    QVERIFY(letto("DesPenAgg").toString().startsWith("Ritardo"));
    QVERIFY(m_finestra->isVisible());
}

void tst_PenalitaAggiuntive::piuEMeno() {
    const auto numero = [&] { return m_finestra->findChild<QLabel*>("lblEqu")->text().section(' ', 1, 1); };
    for (int i = 0; i < 2; ++i) {
        tasto(Qt::Key_Plus);
        QCOMPARE(numero(), QString("9"));
    }
    tasto(Qt::Key_Minus);
    tasto(Qt::Key_Minus);
    QCOMPARE(numero(), QString("4"));
}

void tst_PenalitaAggiuntive::numeroRifiutato() {
    tasto(Qt::Key_F2);
    digita("-");
    m_programma->dialoghi.attendiMessaggio("Penalità NON Valida",
                                           "\"-\" non è un numero: la penalità resta com'era.");
    tasto(Qt::Key_Return);
    QTRY_COMPARE(m_programma->dialoghi.viste().size(), 1);
    QVERIFY(letto("PenAgg").isNull());
}

void tst_PenalitaAggiuntive::scritturaFallita() {
    esegui(
        "CREATE TRIGGER rifiuta BEFORE UPDATE ON Rilevamenti BEGIN SELECT RAISE(ABORT,'disco pieno'); END");
    digita("50");
    m_programma->dialoghi.attendiMessaggio({}, {}, Icona::Stop);
    tasto(Qt::Key_Return);
    QTRY_COMPARE(m_programma->dialoghi.viste().size(), 1);
    QCOMPARE(grT()->model()->index(0, Colonna::PenAgg).data().toString(), QString());
}

void tst_PenalitaAggiuntive::stampa() {
    const AnteprimaDiProva anteprima;
    digita("50");  // stored by the print, which shows it
    QTest::mouseClick(m_finestra->findChild<QPushButton*>("cmdStampa"), Qt::LeftButton);
    QCOMPARE(letto("PenAgg"), QVariant(50.0));
    QCOMPARE(anteprima.mostrati.size(), 1);
    const Rapporto& rapporto = anteprima.mostrati.first();
    QCOMPARE(rapporto.titoloFinestra, QString("Penalità Aggiuntive"));
    QCOMPARE(rapporto.celle("Num"), QStringList({"4"}));
    QCOMPARE(rapporto.celle("PenAgg"), QStringList({"50"}));
    QCOMPARE(rapporto.celle("NomPro"), QStringList({"PA 1"}));
}

PROVA_FINESTRE(tst_PenalitaAggiuntive)
#include "tst_PenalitaAggiuntive.moc"

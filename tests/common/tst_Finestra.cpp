#include "common/Finestra.h"
#include "common/frmAiuto.h"
#include "common/frmMSG.h"
#include "common/Subroutine.h"
#include "supporto/ProvaFinestre.h"

#include <QCheckBox>
#include <QClipboard>
#include <QVBoxLayout>

namespace {

class FinestraDiProva final : public Finestra {
public:
    FinestraDiProva() {
        setObjectName("frmDiProva");
        auto* disposizione = new QVBoxLayout(this);
        for (QWidget* controllo :
             std::initializer_list<QWidget*>{&primo, &combo, &spunta, &ultimo, &pulsante})
            disposizione->addWidget(controllo);
        completaDa(&primo, "Equipaggi", "Mar");
    }
    bool puoChiudere() override {
        if (guasta)
            esegui("DELETE FROM Assente");
        return chiudibile;
    }

    QLineEdit primo, ultimo;
    QComboBox combo;
    QCheckBox spunta;
    QPushButton pulsante;
    bool chiudibile = true;
    bool guasta = false;
};

}  // namespace

class tst_Finestra final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void invioVaAvantiEColora();
    void completaMentreSiScrive();
    void filtriSuIncolla();
    void chiusuraConErrori();
    void avvisoSiChiudeDaSolo();
};

void tst_Finestra::invioVaAvantiEColora() {
    FinestraDiProva finestra;
    mostra(finestra);
    finestra.primo.setFocus();
    QCOMPARE(finestra.primo.palette().color(QPalette::Base), QColor(0x80, 0x80, 0xFF));
    QWidget* attesi[] = {&finestra.combo, &finestra.spunta, &finestra.ultimo, &finestra.pulsante};
    for (QWidget* atteso : attesi) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), atteso);
    }
    QCOMPARE(finestra.primo.palette().color(QPalette::Base), QColor(Qt::white));
    bool premuto = false;
    connect(&finestra.pulsante, &QPushButton::clicked, &finestra, [&] { premuto = true; });
    QTest::keyClick(&finestra.pulsante, Qt::Key_Enter);
    QVERIFY(premuto);
}

void tst_Finestra::completaMentreSiScrive() {
    nuovaManifestazione();
    nuovoEquipaggio(1, {{"Mar", "Lancia"}});
    FinestraDiProva finestra;
    mostra(finestra);
    QTest::keyClicks(&finestra.primo, "la");
    QCOMPARE(finestra.primo.text(), QStringLiteral("LANCIA"));
    QCOMPARE(finestra.primo.selectedText(), QStringLiteral("NCIA"));
    QTest::keyRelease(&finestra.primo, Qt::Key_Shift);  // let go after the letter
    QCOMPARE(finestra.primo.selectedText(), QStringLiteral("NCIA"));
    QTest::keyClick(&finestra.primo, Qt::Key_Delete);
    QCOMPARE(finestra.primo.text(), QStringLiteral("LA"));
    QTest::keyClicks(&finestra.primo, "x");
    QCOMPARE(finestra.primo.text(), QStringLiteral("LAx"));
}

void tst_Finestra::filtriSuIncolla() {
    QLineEdit cifre, virgola;
    applicaFiltro(&cifre, Filtro::Cifre);
    applicaFiltro(&virgola, Filtro::CifreVirgola);
    QTest::keyClicks(&cifre, "1a2,3-");
    QTest::keyClicks(&virgola, "1a2,3-");
    QCOMPARE(cifre.text(), QStringLiteral("123"));
    QCOMPARE(virgola.text(), QStringLiteral("12,3"));
    QApplication::clipboard()->setText(" 7x8 9");
    cifre.setCursorPosition(1);
    cifre.paste();
    QCOMPARE(cifre.text(), QStringLiteral("178923"));
    QCOMPARE(cifre.cursorPosition(), 4);
    // What the program shows is not touched until someone types in it.
    cifre.setText("D-80331");
    QTest::keyClicks(&cifre, "x5");
    QCOMPARE(cifre.text(), QStringLiteral("803315"));
}

void tst_Finestra::chiusuraConErrori() {
    // An archive that fails inside a click or a closing becomes a box, and the window goes on.
    FinestraDiProva finestra;
    connect(&finestra.pulsante, &QPushButton::clicked, &finestra, [] { esegui("DELETE FROM Assente"); });
    QVERIFY(FinestraCaricata("frmDiProva") && !FinestraCaricata("FRMDIPROVA"));
    finestra.show();
    dialoghi().attendiMessaggio("Velmora", QString(), Icona::Stop);
    QTest::mouseClick(&finestra.pulsante, Qt::LeftButton);
    QVERIFY(dialoghi().viste().constFirst().testo.contains("Assente"));
    finestra.guasta = true;
    dialoghi().attendiMessaggio("Velmora", QString(), Icona::Stop);
    finestra.close();
    finestra.guasta = finestra.chiudibile = false;
    QTest::keyClick(&finestra, Qt::Key_Escape);
    QVERIFY(finestra.isVisible());
    impostaFileAiuto(percorsoNelProgramma("vlm help.hlp"));
    dialoghi().attendiMessaggio("Velmora", QString(), Icona::Stop);
    QTest::keyClick(&finestra, Qt::Key_F1);
    QVERIFY(dialoghi().finite());
    finestra.chiudibile = true;
    finestra.close();
    QVERIFY(!finestra.isVisible());
}

void tst_Finestra::avvisoSiChiudeDaSolo() {
    DurataAvviso = std::chrono::milliseconds(1);
    QCOMPARE(frmMSG("Manifestazione Creata").exec(), QDialog::Accepted);
}

PROVA_FINESTRE(tst_Finestra)
#include "tst_Finestra.moc"

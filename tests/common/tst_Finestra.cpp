#include "common/Campi.h"
#include "common/DialoghiQt.h"
#include "common/Elenchi.h"
#include "common/Finestra.h"
#include "common/frmAiuto.h"
#include "common/frmMSG.h"
#include "common/Subroutine.h"
#include "common/TastiMenu.h"
#include "supporto/ProvaFinestre.h"

#include <sys/stat.h>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolTip>
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
    using Finestra::invioComeTab;
    void attivata() override {
        ++letture;
        if (guasta)
            esegui("DELETE FROM Assente");
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
    int letture = 0;
};

struct Colpo {
    int tasto;
    Qt::KeyboardModifiers con = Qt::NoModifier;
    bool tenuto = false;
};

void premi(QWidget* dove, const Colpo& colpo) {
    if (!colpo.tenuto)
        return QTest::keyClick(dove, static_cast<Qt::Key>(colpo.tasto), colpo.con);
    QKeyEvent ripetuto(QEvent::KeyPress, colpo.tasto, colpo.con, "\r", true);
    QApplication::sendEvent(dove, &ripetuto);
}

}  // namespace

class tst_Finestra final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void invioVaAvantiEColora();
    void completaMentreSiScrive();
    void filtriSuIncolla();
    void chiusuraConErrori();
    void avvisoSiChiudeDaSolo();
    void scatole();
    void lettereConAlt();
    void testoSemplice();
    void righe();
};

void tst_Finestra::invioVaAvantiEColora() {
    FinestraDiProva finestra;
    mostra(finestra);
    finestra.primo.setFocus();
    QCOMPARE(finestra.primo.palette().color(QPalette::Base), QColor(0x80, 0x80, 0xFF));
    QTest::keyClick(&finestra.primo, Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), &finestra.combo);
    QCOMPARE(finestra.primo.palette().color(QPalette::Base), QColor(Qt::white));
    bool premuto = false;
    connect(&finestra.pulsante, &QPushButton::clicked, &finestra, [&] { premuto = true; });
    finestra.pulsante.setFocus();
    QTest::keyClick(&finestra.pulsante, Qt::Key_Enter);
    QVERIFY(std::exchange(premuto, false));
    finestra.invioComeTab();
    QTest::keyClick(&finestra.pulsante, Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), &finestra.primo);
    QVERIFY(!premuto);
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
    // What is read at each activation is told once, until it has been well again.
    const auto attiva = [&] {
        QEvent attivata(QEvent::WindowActivate);
        QApplication::sendEvent(&finestra, &attivata);
    };
    dialoghi().attendiMessaggio("Velmora", QString(), Icona::Stop);
    attiva();
    attiva();
    finestra.guasta = finestra.chiudibile = false;
    attiva();
    QCOMPARE(finestra.letture, 3);
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

void tst_Finestra::scatole() {
    // What a question is answered by these keys, whose harmless answer is No; nothing where it stays open.
    const std::pair<QList<Colpo>, std::optional<bool>> casi[] = {
        {{{Qt::Key_S}, {Qt::Key_Y}, {Qt::Key_N}, {Qt::Key_5}, {Qt::Key_Delete}}, std::nullopt},
        {{{Qt::Key_Return, Qt::NoModifier, true}, {Qt::Key_Space, Qt::NoModifier, true}}, std::nullopt},
        {{{Qt::Key_Escape, Qt::NoModifier, true}}, std::nullopt},
        {{{Qt::Key_Return}}, false},
        {{{Qt::Key_Escape}}, false},
        {{{Qt::Key_Space}}, false},
        {{{Qt::Key_Tab}, {Qt::Key_Enter}}, true},
        {{{Qt::Key_Left}, {Qt::Key_Space}}, true},
        {{{Qt::Key_S, Qt::AltModifier}}, true}};
    DialoghiQt dialoghi;
    for (const auto& [tasti, attesa] : casi) {
        bool aperta = false;
        QTimer::singleShot(0, [&, tasti = tasti] {
            QWidget* scatola = QApplication::activeModalWidget();
            QVERIFY(QTest::qWaitForWindowActive(scatola));
            for (const Colpo& colpo : tasti)
                premi(scatola->focusWidget(), colpo);
            aperta = scatola->isVisible();
            scatola->close();
        });
        const bool si = dialoghi.domanda("Eliminare ?", "Testo", Icona::Domanda, Innocua::No);
        QCOMPARE(aperta, !attesa);
        QCOMPARE(si, attesa.value_or(false));
    }
    QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    QVERIFY(dialoghi.domanda("Attenzione", "Testo", Icona::Domanda, Innocua::Si));

    // A typed answer reaches the line; a long text scrolls, and the box shows the whole of its title.
    QTimer::singleShot(0, [] {
        QWidget* campo = QApplication::activeModalWidget()->focusWidget();
        QTest::keyClicks(campo, "7 s");
        QTest::keyClick(campo, Qt::Key_Return);
    });
    QCOMPARE(dialoghi.chiedi("Data", "Giorno", "13/06/2026"), QString("7 s"));
    const QString titolo("Un Titolo Assai Più Largo del Testo che Sta Nella Scatola");
    QTimer::singleShot(0, [titolo] {
        QWidget* scatola = QApplication::activeModalWidget();
        QCOMPARE(scatola->windowTitle(), titolo);
        QVERIFY(scatola->width() > scatola->fontMetrics().horizontalAdvance(titolo));
        QVERIFY(scatola->screen()->availableGeometry().contains(scatola->frameGeometry()));
        QTest::keyClick(scatola->focusWidget(), Qt::Key_PageDown);
        QVERIFY(scatola->findChild<QLabel*>("lblTesto")->visibleRegion().boundingRect().y() > 0);
        QTest::keyClick(scatola->focusWidget(), Qt::Key_Return);
    });
    dialoghi.messaggio(titolo, QString("riga\n").repeated(300), Icona::Stop);
}

void tst_Finestra::lettereConAlt() {
    FinestraDiProva finestra;
    finestra.pulsante.setText("&Salva");
    mostra(finestra);
    int premuto = 0;
    connect(&finestra.pulsante, &QPushButton::clicked, &finestra, [&] { ++premuto; });
    QTest::keyClick(&finestra.ultimo, Qt::Key_S, Qt::AltModifier);
    QCOMPARE(premuto, 1);  // at once, before the next key
    finestra.pulsante.setEnabled(false);
    QTest::keyClick(&finestra.ultimo, Qt::Key_S, Qt::AltModifier);
    QCOMPARE(finestra.ultimo.text(), QString());
    QTest::sendKeyEvent(QTest::Click, &finestra.ultimo, Qt::Key_At, "@", Qt::GroupSwitchModifier);
    QTest::sendKeyEvent(QTest::Click, &finestra.ultimo, Qt::Key_At, "#",
                        Qt::AltModifier | Qt::ControlModifier);
    QCOMPARE(finestra.ultimo.text(), QString("@#"));
}

void tst_Finestra::testoSemplice() {
    // A name that asks for a file: reading this one would never end.
    const QTemporaryDir cartella;
    const QString coda = cartella.filePath("coda");
    QCOMPARE(mkfifo(qPrintable(coda), 0600), 0);
    const QString nome = "<img src=\"" + coda + "\">";
    QLabel etichetta(nome);
    QVERIFY(qAbs(etichetta.sizeHint().width() - QFontMetrics(etichetta.font()).horizontalAdvance(nome)) < 3);
    etichetta.show();
    QToolTip::showText({1, 1}, nome, &etichetta);
    const QWidgetList finestre = QApplication::topLevelWidgets();
    const auto suggerimento = std::ranges::find_if(
        finestre, [](const QWidget* w) { return w->inherits("QTipLabel") && w->isVisible(); });
    QVERIFY(suggerimento != finestre.end());
    QCOMPARE(qobject_cast<QLabel*>(*suggerimento)->textFormat(), Qt::PlainText);
}

void tst_Finestra::righe() {
    QTreeWidget elenco;
    const auto riempi = [&](const QList<int>& chiavi, PrimaRiga prima) {
        QList<QTreeWidgetItem*> nuove;
        for (const int chiave : chiavi) {
            nuove << new QTreeWidgetItem({QString::number(chiave)});
            nuove.last()->setData(0, Qt::UserRole, chiave);
        }
        sostituisciRighe(&elenco, nuove, prima);
    };
    // Key of the current row, negative where it is not chosen.
    const auto corrente = [&] {
        const int chiave = elenco.currentItem()->data(0, Qt::UserRole).toInt();
        return elenco.currentItem()->isSelected() ? chiave : -chiave;
    };
    riempi({1, 2, 3}, PrimaRiga::Scelta);
    QCOMPARE(corrente(), 1);
    QTest::keyClick(&elenco, Qt::Key_Down);
    riempi({5, 4, 2, 1}, PrimaRiga::Scelta);
    QCOMPARE(corrente(), 2);
    riempi({5, 4, 1}, PrimaRiga::Scelta);  // the row is gone: the one in its place
    QCOMPARE(corrente(), 1);
    riempi({}, PrimaRiga::Corrente);
    riempi({7, 8}, PrimaRiga::Corrente);
    QCOMPARE(corrente(), -7);
    for (const int attesa : {7, 8}) {
        QTest::keyClick(&elenco, Qt::Key_Down);
        QCOMPARE(corrente(), attesa);
    }
    riempi({7, 9}, PrimaRiga::Corrente);
    QCOMPARE(corrente(), -9);
}

PROVA_FINESTRE(tst_Finestra)
#include "tst_Finestra.moc"

#include "entries/frmRicercaAnagrafica.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

class tst_RicercaAnagrafica final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void elenco();
    void restringe();
    void scelta();
    void conLaTastiera();

private:
    template <typename Controllo>
    Controllo* trova(const char* nome) {
        return m_finestra->findChild<Controllo*>(QString(nome));
    }
    void clic(const char* nome) { QTest::mouseClick(trova<QPushButton>(nome), Qt::LeftButton); }
    QTreeWidget* lista() { return trova<QTreeWidget>("lstEqu"); }
    QStringList riga(int indice) {
        QStringList testi;
        for (int colonna = 0; colonna < 5; ++colonna)
            testi << lista()->topLevelItem(indice)->text(colonna);
        return testi;
    }

    std::unique_ptr<ProgrammaDiProva> m_programma;
    std::unique_ptr<frmRicercaAnagrafica> m_finestra;
    int m_zeta = 0;
};

void tst_RicercaAnagrafica::init() {
    m_programma = std::make_unique<ProgrammaDiProva>();
    nuovaManifestazione({{"Nom", "Prima"}});
    m_zeta = nuovoEquipaggio(1, {{"Cog", "Zeta"}, {"Nom", "Ugo"}, {"Ann", QVariant()}});
    nuovoEquipaggio(2, {{"Cog", "rossi"}, {"Nom", "Aldo"}});
    nuovaManifestazione({{"Nom", "Seconda"}});
    nuovoEquipaggio(1, {{"Cog", "ROSSI"}, {"Nom", "Mario"}, {"CogNav", QVariant()}, {"NomNav", QVariant()}});
    nuovoEquipaggio(2, {{"Cog", "D'Àngelo"}, {"Nom", "Ada"}});
    nuovoEquipaggio(3, {{"Cog", "Zeta"}, {"Nom", "Ugo"}});
    IDEqu = 99;  // left behind by someone
    m_finestra = std::make_unique<frmRicercaAnagrafica>();
    m_finestra->show();
    QVERIFY(QTest::qWaitForWindowActive(m_finestra.get()));
}

void tst_RicercaAnagrafica::cleanup() {
    QVERIFY(m_programma->dialoghi.finite());
    m_finestra.reset();
    m_programma.reset();
}

void tst_RicercaAnagrafica::elenco() {
    QCOMPARE(lista()->headerItem()->text(0), QString("Coducente"));
    QCOMPARE(lista()->topLevelItemCount(), 5);
    QCOMPARE(riga(0), (QStringList{"D'Àngelo Ada", "BIANCHI Anna", "LANCIA APRILIA", "1955", "Seconda"}));
    QCOMPARE(riga(1).constFirst(), QString("rossi Aldo"));
    QCOMPARE(riga(2), (QStringList{"ROSSI Mario", " ", "LANCIA APRILIA", "1955", "Seconda"}));
    QCOMPARE(riga(3), (QStringList{"Zeta Ugo", "BIANCHI Anna", "LANCIA APRILIA", "", "Prima"}));
    QCOMPARE(riga(4).constLast(), QString("Seconda"));
    QVERIFY(lista()->isColumnHidden(5));
}

void tst_RicercaAnagrafica::restringe() {
    auto* txtRic = trova<QLineEdit>("txtRic");
    // By the start of the driver's name, surname first and case aside; no wildcards.
    for (const auto& [testo, trovati] : {std::pair{"ros", 2}, std::pair{"rossi m", 1}, std::pair{"d'àng", 1},
                                         std::pair{"Mario", 0}, std::pair{"%", 0}, std::pair{"  ", 5}}) {
        txtRic->insert(testo);
        QCOMPARE(lista()->topLevelItemCount(), trovati);
        txtRic->clear();
        QCOMPARE(lista()->topLevelItemCount(), 5);
    }
}

void tst_RicercaAnagrafica::scelta() {
    QCOMPARE(IDEqu, 0);
    clic("cmdSeleziona");  // nothing selected
    QVERIFY(m_finestra->isVisible());
    lista()->setCurrentItem(lista()->topLevelItem(3));
    for (const auto& [pulsante, scelto] : {std::pair{"cmdAnnulla", 0}, std::pair{"cmdSeleziona", m_zeta}}) {
        clic(pulsante);
        QVERIFY(!m_finestra->isVisible());
        QCOMPARE(IDEqu, scelto);
        m_finestra->show();
    }
    IDEqu = 0;
    const QPoint centro = lista()->visualItemRect(lista()->topLevelItem(3)).center();
    QTest::mouseClick(lista()->viewport(), Qt::LeftButton, {}, centro);
    QCOMPARE(IDEqu, 0);
    QTest::mouseDClick(lista()->viewport(), Qt::LeftButton, {}, centro);
    QCOMPARE(IDEqu, m_zeta);
    QVERIFY(!m_finestra->isVisible());
}

void tst_RicercaAnagrafica::conLaTastiera() {
    QTest::keyClicks(trova<QLineEdit>("txtRic"), "zeta");
    QTest::keyClick(trova<QLineEdit>("txtRic"), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), lista());
    QTest::keyClick(lista(), Qt::Key_Return);  // nothing is chosen yet
    QVERIFY(m_finestra->isVisible());
    QTest::keyClick(lista(), Qt::Key_Down);
    QTest::keyClick(lista(), Qt::Key_Return);
    QVERIFY(!m_finestra->isVisible());
    QCOMPARE(IDEqu, m_zeta);
}

PROVA_FINESTRE(tst_RicercaAnagrafica)
#include "tst_RicercaAnagrafica.moc"

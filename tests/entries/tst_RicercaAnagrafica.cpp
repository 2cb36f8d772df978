#include "entries/frmRicercaAnagrafica.h"
#include "supporto/ProvaFinestre.h"

class tst_RicercaAnagrafica final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void elenco();
    void restringe();
    void scelta();

private:
    void prepara() override;
    void chiudi() override { m_finestra.reset(); }
    void clic(const char* nome) { premi(*m_finestra, nome); }
    QTreeWidget* lista() { return controllo<QTreeWidget>(*m_finestra, "lstEqu"); }
    QLineEdit* txtRic() { return controllo(*m_finestra, "txtRic"); }

    std::unique_ptr<frmRicercaAnagrafica> m_finestra;
    int m_zeta = 0;
};

void tst_RicercaAnagrafica::prepara() {
    nuovaManifestazione({{"Nom", "Prima"}});
    m_zeta = nuovoEquipaggio(1, {{"Cog", "Zeta"}, {"Nom", "Ugo"}, {"Ann", QVariant()}});
    nuovoEquipaggio(2, {{"Cog", "rossi"}, {"Nom", "Aldo"}});
    nuovaManifestazione({{"Nom", "Seconda"}});
    nuovoEquipaggio(1, {{"Cog", "ROSSI"}, {"Nom", "Mario"}, {"CogNav", QVariant()}, {"NomNav", QVariant()}});
    nuovoEquipaggio(2, {{"Cog", "D'Àngelo"}, {"Nom", "Ada"}});
    nuovoEquipaggio(3, {{"Cog", "Zeta"}, {"Nom", "Ugo"}});
    IDEqu = 99;  // left behind by someone
    m_finestra = std::make_unique<frmRicercaAnagrafica>();
    mostra(*m_finestra);
}

void tst_RicercaAnagrafica::elenco() {
    QStringList attese;
    for (const QString& riga : righe(lista()))
        attese << riga.section('/', 0, 4);
    QCOMPARE(attese, QStringList({"D'Àngelo Ada/BIANCHI Anna/LANCIA APRILIA/1955/Seconda",
                                  "rossi Aldo/BIANCHI Anna/LANCIA APRILIA/1955/Prima",
                                  "ROSSI Mario/ /LANCIA APRILIA/1955/Seconda",
                                  "Zeta Ugo/BIANCHI Anna/LANCIA APRILIA//Prima",
                                  "Zeta Ugo/BIANCHI Anna/LANCIA APRILIA/1955/Seconda"}));
    QVERIFY(lista()->isColumnHidden(5));
}

void tst_RicercaAnagrafica::restringe() {
    // By the start of the driver's name, surname first and case aside; no wildcards.
    for (const auto& [testo, trovati] : {std::pair{"ros", 2}, std::pair{"rossi m", 1}, std::pair{"d'àng", 1},
                                         std::pair{"Mario", 0}, std::pair{"%", 0}, std::pair{"  ", 5}}) {
        txtRic()->insert(testo);
        QCOMPARE(lista()->topLevelItemCount(), trovati);
        txtRic()->clear();
        QCOMPARE(lista()->topLevelItemCount(), 5);
    }
}

void tst_RicercaAnagrafica::scelta() {
    QCOMPARE(IDEqu, 0);
    clic("cmdSeleziona");  // nothing selected
    QTest::keyClick(lista(), Qt::Key_Return);
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

PROVA_FINESTRE(tst_RicercaAnagrafica)
#include "tst_RicercaAnagrafica.moc"

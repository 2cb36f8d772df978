#include "entries/frmRicercaAnagrafica.h"
#include "ModuloDiProva.h"

class tst_CampiModulo final : public ModuloDiProva {
    Q_OBJECT

private Q_SLOTS:
    void anno();
    void gruppoAutomatico();
    void date();
    void copia();
    void rotella();
};

void tst_CampiModulo::anno() {
    apri();
    for (const auto& [anno, ammesso] :
         {std::pair{"1849", false}, std::pair{"1850", true}, std::pair{"2016", true},
          std::pair{"2017", false}, std::pair{"99999999999", false}, std::pair{"", true}}) {
        for (const char* poi : {"txtCil", "txtCog"}) {
            box("txtAnn")->setFocus();
            box("txtAnn")->setText(anno);
            if (!ammesso)
                attendi(AnnoErrato, "Anno NON Valido. Controllare.");
            qstrcmp(poi, "txtCil") == 0 ? QTest::keyClick(box("txtAnn"), Qt::Key_Return)
                                        : QTest::mouseClick(box(poi), Qt::LeftButton);
            QVERIFY2(m_programma->dialoghi.finite(), anno);
            QCOMPARE(QApplication::focusWidget(), ammesso ? box(poi) : box("txtAnn"));
        }
    }
}

void tst_CampiModulo::gruppoAutomatico() {
    const auto gruppo = [](const char* nome, const QVariant& da, const QVariant& a) {
        return inserisciRiga("Raggruppamenti",
                             {{"IDMan_FK", IDMan}, {"Nom", nome}, {"Fat", 1}, {"DAAnn", da}, {"AAnn", a}});
    };
    gruppo("Di un'altra", 1850, 2016);
    nuovaManifestazione({{"RagAuto", 1}});
    gruppo("Senza anni", {}, {});
    gruppo("Antiche", 1800, 1899);
    const int post = gruppo("Post Classic", 1961, 1970);
    gruppo("Modern", 1970, 2017);
    apri();
    QVERIFY(!combo("cboGruppo")->isEnabled());
    QCOMPARE(combo("cboGruppo")->currentText(), QString("Nessuno"));
    const auto lascia = [this](const char* anno) {
        scrivi("txtAnn", QString(anno));
        QTest::keyClick(box("txtAnn"), Qt::Key_Tab);
        return combo("cboGruppo")->currentText();
    };
    QCOMPARE(lascia("1970"), QString("Post Classic"));
    QCOMPARE(lascia("1960"), QString());
    QCOMPARE(combo("cboGruppo")->currentIndex(), -1);
    QCOMPARE(lascia("1961"), QString("Post Classic"));
    QCOMPARE(lascia("2016"), QString("Modern"));
    attendi(AnnoErrato, "Anno NON Valido. Controllare.");
    QCOMPARE(lascia("1849"), QString("Antiche"));
    QVERIFY(m_programma->dialoghi.finite());
    QCOMPARE(lascia(""), QString());
    // Still in the year when the crew is stored; and one whose year is in no group.
    for (const auto& [anno, atteso] : {std::pair{"1965", post}, std::pair{"1920", 0}}) {
        scrivi("txtNum", QString(anno));
        scrivi("txtAnn", QString(anno));
        clic("cmdSalva");
        QCOMPARE(leggiValore("SELECT IDGru_FK FROM Equipaggi WHERE Num=?", {QString(anno)})->toInt(), atteso);
        clic("cmdNuovo");
    }
    // Passing by a year that nobody changed chooses no other group.
    esegui("UPDATE Equipaggi SET Ann=1970,IDGru_FK=(SELECT max(IDGru) FROM Raggruppamenti) WHERE Num=1965");
    clic("cmdAnnulla");
    clicRiga(1);
    box("txtAnn")->setFocus();
    QTest::keyClick(box("txtAnn"), Qt::Key_Tab);
    confronta("txtNum=1965;txtAnn=1970;cboGruppo=Modern");
}

void tst_CampiModulo::date() {
    apriConEquipaggi();
    // Typed digits, and what the mask shows then; nothing when the date is refused.
    const std::pair<const char*, const char*> casi[] = {{"", "//"},       {"29022024", "29/02/2024"},
                                                        {"30022024", ""}, {"12", ""},
                                                        {"0102195", ""},  {"010250", "01/02/1950"}};
    for (const char* nome : {"txtDatNas", "txtScaPat", "txtScaPol"}) {
        for (const auto& [cifre, mostrata] : casi) {
            box(nome)->clear();
            box("txtNum")->setFocus();
            QTest::mouseClick(box(nome), Qt::LeftButton);
            QTRY_COMPARE(box(nome)->cursorPosition(), 0);
            QTest::keyClicks(box(nome), QString(cifre));
            if (!*mostrata)
                attendi("Data NON Valida", "Data NON Valida. Controllare.");
            QTest::keyClick(box(nome), Qt::Key_Tab);
            QVERIFY2(m_programma->dialoghi.finite(), cifre);
            QCOMPARE(box(nome)->hasFocus(), !*mostrata);
            if (*mostrata)
                QCOMPARE(testo(nome), QString(mostrata));
        }
    }
}

void tst_CampiModulo::copia() {
    nuovoEquipaggio(40,
                    {{"Cog", "zola"}, {"Ses", "F"}, {"Not", "altra"}, {"DatNas", QVariant()}, {"Esc", 1}});
    nuovaManifestazione({{"RagAuto", 1}});
    inserisciRiga("Raggruppamenti", {{"IDMan_FK", IDMan}, {"Nom", "G"}, {"DAAnn", 1900}, {"AAnn", 2000}});
    nuovoEquipaggio(5, {{"DatNas", "1950-02-01"}, {"Not", "mia"}, {"Ses", "M"}});
    apri();
    const auto scegli = [this](bool scelta) {
        inModale<frmRicercaAnagrafica>([this] { clic("cmdRic"); },
                                       [scelta](frmRicercaAnagrafica& ricerca) {
                                           ::scrivi(ricerca, "txtRic", "zol");
                                           auto* trovati = controllo<QTreeWidget>(ricerca, "lstEqu");
                                           trovati->setCurrentItem(trovati->topLevelItem(0));
                                           premi(ricerca, scelta ? "cmdSeleziona" : "cmdAnnulla");
                                       });
        QCOMPARE(IDEqu, 0);
        m_finestra->activateWindow();  // which the offscreen platform does not do by itself
        QVERIFY(QTest::qWaitForWindowActive(m_finestra.get()));
    };
    scegli(false);
    QCOMPARE(testo("txtCog"), QString("ROSSI"));
    scegli(true);
    // A Null date is not taken over, nor is what is the crew's own.
    confronta("txtCog=ZOLA;cboSes=F;txtDatNas=01/02/1950;txtNum=5;txtNot=mia;chkEsc=NO;cboGruppo=Nessuno");
    // The group follows when the year is next left.
    box("txtAnn")->setFocus();
    QTest::keyClick(box("txtAnn"), Qt::Key_Tab);
    confronta("cboGruppo=G");
}

void tst_CampiModulo::rotella() {
    apriConEquipaggi();
    combo("cboSes")->setCurrentIndex(0);
    const QPointF centro = combo("cboSes")->rect().center();
    QWheelEvent giro(centro, combo("cboSes")->mapToGlobal(centro), {}, QPoint(0, -120), Qt::NoButton, {},
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(combo("cboSes"), &giro);
    QCOMPARE(combo("cboSes")->currentIndex(), 0);
}

PROVA_FINESTRE(tst_CampiModulo)
#include "tst_CampiModulo.moc"

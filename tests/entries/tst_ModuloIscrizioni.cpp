#include "ModuloDiProva.h"

class tst_ModuloIscrizioni final : public ModuloDiProva {
    Q_OBJECT

private Q_SLOTS:
    void eventoVuoto();
    void salvataggio();
    void mostra();
    void nonSiLascia();
    void elenco();
    void ordinamento();
    void abbandono();
    void eliminazione();
    void discoPieno();

private:
    void attendiEliminazione(bool si) {
        m_programma->dialoghi.attendiDomanda(
            "Eliminare l'Equipaggio ?",
            "Eliminando l'Equipaggio Verranno Cancellati Anche\nTutti i Relativi "
            "Rilevamenti Registrati.\nConfermare l'Eliminazione ?",
            si);
    }
};

void tst_ModuloIscrizioni::eventoVuoto() {
    apri();
    QVERIFY(inserimento());
    QCOMPARE(QApplication::focusWidget(), box("txtNum"));
    confronta("cboGruppo=Nessuno;cboSes=;txtDatNas=__/__/____");
    for (int i = 0; i < 2; ++i) {
        attendi("Impossibile Uscire Adesso", "Salvare o Annullare l'Inserimento dell'Equipaggio");
        i == 0 ? clic("cmdEsci") : QTest::keyClick(m_finestra.get(), Qt::Key_Escape);
        QVERIFY(m_programma->dialoghi.finite() && m_finestra->isVisible());
    }
    clic("cmdAnnulla");
    QVERIFY(!m_finestra->isVisible());
    QCOMPARE(contaRighe("Equipaggi"), 0);
}

void tst_ModuloIscrizioni::salvataggio() {
    const int altra = inserisciRiga("Manifestazioni", {{"Nom", "Altra"}});
    inserisciRiga("Equipaggi", {{"IDMan_FK", altra}, {"Num", 7}});  // where the number is taken
    apriConEquipaggi();
    clic("cmdNuovo");
    trova<QPushButton>("cmdSalva")->setFocus();
    tasto(Qt::Key_Return);  // on a button it moves on too
    QCOMPARE(QApplication::focusWidget(), trova<QPushButton>("cmdRic"));
    QVERIFY(inserimento());
    for (const auto& [numero, motivo] : {std::pair{"", SenzaNumero}, std::pair{"12", Assegnato}}) {
        scrivi("txtNum", numero);
        attendi(Impossibile, motivo);
        clic("cmdSalva");
        QVERIFY(m_programma->dialoghi.finite() && inserimento());
    }
    scrivi("txtNum", "7");
    scrivi("txtTel", "011");
    scrivi("txtCel", "333");
    combo("cboSesNav")->setCurrentText("F");
    trova<QCheckBox>("chkEsc")->setChecked(true);
    clic("cmdSalva");
    QVERIFY(!inserimento());
    QCOMPARE(righe(), (QStringList{"3 VERDI Ada", "7  ", "12 BRUNI Leo", "20 ABATE Ugo"}));
    QCOMPARE(rigaScelta(), 1);
    QCOMPARE(QApplication::focusWidget(), box("txtNum"));
    confronta("txtTel=333;txtCel=;cboSesNav=F;chkEsc=SI");
    scrivi("txtCel", "347");
    clic("cmdSuccessivo");
    QCOMPARE(contaRighe("Equipaggi", "Num=7 AND Tel='333' AND Cel='347' AND Esc=1"), 1);
}

void tst_ModuloIscrizioni::mostra() {
    const int gruppo = inserisciRiga("Raggruppamenti", {{"IDMan_FK", IDMan}, {"Nom", "Classic"}, {"Fat", 1}});
    const int squadra = inserisciRiga("Squadre", {{"IDMan_FK", IDMan}, {"Nom", "Rossa"}});
    const QVariantMap suoi{{"IDGru_FK", gruppo},     {"IDSqu_FK", squadra}, {"Ses", "m"},    {"SesNav", "x"},
                           {"DatNas", "1950-02-01"}, {"CAP", "D-80331"},    {"Cil", 1298.5}, {"Esc", 1}};
    nuovoEquipaggio(1, suoi);
    apri();
    confronta(
        "cboGruppo=Classic;cboSquadra=Rossa;cboSes=M;cboSesNav=;txtDatNas=01/02/1950;"
        "txtScaPat=__/__/____;chkEsc=SI");
    // Looking at a crew changes nothing, neither what the archive holds in another form nor by type-ahead:
    // not with the keys that move, nor when a letter is let go over the next crew.
    nuovoEquipaggio(2, {{"Mar", "Lancia"}});
    const int scritte = leggiValore("SELECT total_changes()")->toInt();
    apri();
    box("txtMar")->setFocus();
    for (const Qt::Key tasto : {Qt::Key_End, Qt::Key_Left, Qt::Key_Home, Qt::Key_End})
        QTest::keyClick(box("txtMar"), tasto);
    QTest::keyClick(box("txtMar"), Qt::Key_PageDown, Qt::ControlModifier);
    QTest::keyRelease(box("txtMar"), Qt::Key_L);
    confronta("txtNum=2;txtMar=Lancia");
    clic("cmdEsci");
    QCOMPARE(leggiValore("SELECT total_changes()")->toInt(), scritte);
    QCOMPARE(contaRighe("Equipaggi", "CAP='D-80331' AND Cil=1298.5 AND SesNav='x' AND DatNas='1950-02-01'"),
             1);
}

void tst_ModuloIscrizioni::nonSiLascia() {
    apriConEquipaggi();
    clicRiga(1);
    scrivi("txtTes", "T5");
    const struct {
        const char *campo, *valore, *titolo, *testo;
    } casi[] = {{"txtNum", "020", Impossibile, Assegnato},
                {"txtNum", "", Impossibile, SenzaNumero},
                {"txtNum", "2147483648", Impossibile, "Numero dell'Equipaggio Troppo Grande"},
                {"txtAnn", "1700", AnnoErrato, "Anno NON Valido. Controllare."},
                {"txtTes", "T9", "Velmora", nullptr}};  // the archive refuses the write
    for (const auto& caso : casi) {
        const QString prima = testo(caso.campo);
        if (!caso.testo)
            guasta("UPDATE ON Equipaggi");
        for (const char* uscita : Uscite) {
            box(caso.campo)->setFocus();
            box(caso.campo)->setText(caso.valore);
            m_programma->dialoghi.attendiMessaggio(caso.titolo, QString::fromUtf8(caso.testo),
                                                   caso.testo ? Icona::Esclamazione : Icona::Stop);
            esci(uscita);
            QVERIFY2(m_programma->dialoghi.finite(), uscita);
            QVERIFY2(m_finestra->isVisible() && !inserimento() && rigaScelta() == 1, uscita);
            QCOMPARE(testo(caso.campo), QString(caso.valore));
            QCOMPARE(testo("txtTes"), caso.testo ? "T5" : "T9");
            QCOMPARE(QApplication::focusWidget(), box(caso.campo));
            QCOMPARE(box(caso.campo)->selectedText(), QString(caso.testo ? caso.valore : ""));
            QCOMPARE(contaRighe("Equipaggi", "Num=12 AND Ann=1935 AND Tes IS NULL"), 1);
        }
        if (caso.testo)
            box(caso.campo)->setText(prima);
    }
    esegui("DROP TRIGGER guasto");
    // A year that came from elsewhere is no matter of a click that leads away from another field.
    esegui("UPDATE Equipaggi SET Ann=1700 WHERE Num=3");
    clicRiga(0);
    QCOMPARE(testo("txtAnn"), QString("1700"));
    clic("cmdEsci");
    QVERIFY(!m_finestra->isVisible());
    QCOMPARE(contaRighe("Equipaggi", "Tes='T9' AND Cog='BRUNI'"), 1);
}

void tst_ModuloIscrizioni::elenco() {
    apriConEquipaggi();
    QCOMPARE(righe(), (QStringList{"3 VERDI Ada", "12 BRUNI Leo", "20 ABATE Ugo"}));
    QVERIFY(lista()->isColumnHidden(0));
    for (const auto& [pulsante, atteso] :
         {std::pair{"cmdPrecedente", "VERDI"}, std::pair{"cmdSuccessivo", "BRUNI"},
          std::pair{"cmdUltimo", "ABATE"}, std::pair{"cmdSuccessivo", "ABATE"},
          std::pair{"cmdPrecedente", "BRUNI"}, std::pair{"cmdPrimo", "VERDI"}}) {
        clic(pulsante);
        QCOMPARE(testo("txtCog"), QString(atteso));
        QVERIFY(lista()->currentItem()->text(2).startsWith(atteso));
    }
    lista()->setFocus();
    // A refusal takes the list back to the crew on show.
    box("txtNum")->clear();
    attendi(Impossibile, SenzaNumero);
    QTest::keyClick(lista(), Qt::Key_Down);
    QTRY_VERIFY(m_programma->dialoghi.viste().size() == 1);
    QCOMPARE(rigaScelta(), 0);
    QCOMPARE(testo("txtCog"), QString("VERDI"));
}

void tst_ModuloIscrizioni::ordinamento() {
    nuovoEquipaggio(100, {{"Cog", "carli"}, {"Nom", "Pia"}});
    apriConEquipaggi();
    clicRiga(1);
    clicTestata(2);
    QCOMPARE(righe(), (QStringList{"20 ABATE Ugo", "12 BRUNI Leo", "100 carli Pia", "3 VERDI Ada"}));
    QCOMPARE(testo("txtCog"), QString("BRUNI"));
    clic("cmdPrecedente");
    QCOMPARE(testo("txtCog"), QString("ABATE"));
    // The crew on show stays the same though its number was changed to that of another.
    scrivi("txtNum", "3");
    clicTestata(1);
    QCOMPARE(righe(), (QStringList{"3 VERDI Ada", "12 BRUNI Leo", "20 ABATE Ugo", "100 carli Pia"}));
    QCOMPARE(rigaScelta(), 2);
    attendi(Impossibile, Assegnato);
    clic("cmdPrimo");
    scrivi("txtNum", "20");
    clicTestata(2);
    clic("cmdNuovo");
    scrivi("txtNum", "50");
    scrivi("txtCog", "BALBO");
    clic("cmdSalva");
    QCOMPARE(righe().mid(0, 3), (QStringList{"20 ABATE Ugo", "50 BALBO ", "12 BRUNI Leo"}));
    QCOMPARE(rigaScelta(), 1);
}

void tst_ModuloIscrizioni::abbandono() {
    apriConEquipaggi();
    clicRiga(1);
    clic("cmdNuovo");
    scrivi("txtNum", "20");
    scrivi("txtAnn", "1700");  // abandoned, so not checked either
    clic("cmdAnnulla");
    QVERIFY(!inserimento());
    confronta("txtNum=12;txtCog=BRUNI;txtAnn=1935");
    QCOMPARE(rigaScelta(), 1);
    QCOMPARE(QApplication::focusWidget(), box("txtNum"));
    QCOMPARE(contaRighe("Equipaggi"), 3);
}

void tst_ModuloIscrizioni::eliminazione() {
    const int prezzo = inserisciRiga("Prezzi", {{"IDMan_FK", IDMan}});
    inserisciRiga("Incassi", {{"IDEqu_FK", nuovoEquipaggio(30, {{"Cog", "CARLI"}})}, {"IDPre_FK", prezzo}});
    apriConEquipaggi();
    // Row deleted, and who is on show then: VERDI, BRUNI, ABATE, CARLI at first.
    int restano = 4;
    for (const auto& [riga, poi] :
         {std::pair{1, "VERDI"}, std::pair{2, "ABATE"}, std::pair{0, "ABATE"}, std::pair{0, ""}}) {
        QCOMPARE(contaRighe("Incassi"), restano > 2 ? 1 : 0);
        clicRiga(riga);
        const QString id = testo("txtIDEqu");
        for (const bool si : {false, true}) {
            QCOMPARE(contaRighe("Rilevamenti", "IDEqu_FK=" + id), 2);
            attendiEliminazione(si);
            clic("cmdElimina");
        }
        QCOMPARE(contaRighe("Rilevamenti", "IDEqu_FK=" + id), 0);
        QCOMPARE(contaRighe("Rilevamenti"), --restano * 2);
        QCOMPARE(lista()->topLevelItemCount(), restano);
        QCOMPARE(testo("txtCog"), QString(poi));
        QVERIFY(restano == 0 || lista()->currentItem()->text(2).startsWith(poi));
    }
    QVERIFY(!inserimento());
    confronta("txtNum=;txtCog=;txtIDEqu=;txtDatNas=__/__/____");
    for (const char* fermo : {"cmdElimina", "cmdPrimo", "cmdSuccessivo", "cmdPrecedente", "cmdUltimo"})
        clic(fermo);
    clic("cmdNuovo");
    QVERIFY(inserimento());
    clic("cmdAnnulla");
    QVERIFY(!m_finestra->isVisible());
    QCOMPARE(m_programma->dialoghi.viste().constLast().icona, Icona::Domanda);
}

void tst_ModuloIscrizioni::discoPieno() {
    apri();
    riempiDisco();
    scrivi("txtNum", "8");
    scrivi("txtCog", "Neri");
    box("txtNot")->setMaxLength(30000);
    box("txtNot")->setText(QString(30000, 'x'));
    m_programma->dialoghi.attendiMessaggio("Velmora", {}, Icona::Stop);
    clic("cmdSalva");
    QVERIFY(m_programma->dialoghi.viste().constLast().testo.contains("disco è pieno"));
    QVERIFY(inserimento());
    confronta("txtNum=8;txtCog=Neri");
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(contaRighe("Equipaggi") + contaRighe("Rilevamenti"), 0);
    leggiValore("PRAGMA max_page_count=100000");
    clic("cmdSalva");
    QVERIFY(!inserimento());
    QCOMPARE(contaRighe("Equipaggi", "Num=8 AND Cog='Neri'"), 1);
    QCOMPARE(contaRighe("Rilevamenti"), 2);
}

PROVA_FINESTRE(tst_ModuloIscrizioni)
#include "tst_ModuloIscrizioni.moc"

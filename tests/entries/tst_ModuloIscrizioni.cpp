#include "ModuloDiProva.h"

#include <functional>
#include <QLabel>

class tst_ModuloIscrizioni final : public QObject, private ModuloDiProva {
    Q_OBJECT

private Q_SLOTS:
    void init() { comincia(); }
    void cleanup() { finisci(); }
    void colonneEControlli();
    void eventoVuoto();
    void salvataggio();
    void soloTastiera();
    void mostra();
    void riscrittura();
    void nonSiLascia();
    void navigazione();
    void elenco();
    void ordinamento();
    void abbandono();
    void eliminazione();
    void eliminaUnico();
    void discoPieno();
    void archivioGuastoInUscita();

private:
    void attendiEliminazione(bool si) {
        m_programma->dialoghi.attendiDomanda(
            "Eliminare l'Equipaggio ?",
            "Eliminando l'Equipaggio Verranno Cancellati Anche\nTutti i Relativi "
            "Rilevamenti Registrati.\nConfermare l'Eliminazione ?",
            si);
    }
};

void tst_ModuloIscrizioni::colonneEControlli() {
    apri();
    QCOMPARE(m_finestra->windowTitle(), QStringLiteral("Modulo Iscrizioni"));
    for (const ColonnaEquipaggio& colonna : colonneEquipaggio())
        QVERIFY2(trova<QWidget>(colonna.controllo), colonna.controllo);
    const QList<QLabel*> etichette = m_finestra->findChildren<QLabel*>();
    for (const QLabel* etichetta : etichette)
        QVERIFY2(etichetta->buddy(), qPrintable(etichetta->text()));
    for (const auto& [nome, suggerimento] :
         {std::pair{"cmdPrimo", "Primo Equipaggio"}, std::pair{"cmdPrecedente", "Equipaggio Precedente"},
          std::pair{"cmdSuccessivo", "Equipaggio Successivo"}, std::pair{"cmdUltimo", "Ultimo Equipaggio"},
          std::pair{"cmdNuovo", "Nuovo Equipaggio"}, std::pair{"cmdElimina", "Elimina Equipaggio"}})
        QCOMPARE(trova<QPushButton>(nome)->toolTip(), QString::fromLatin1(suggerimento));
}

void tst_ModuloIscrizioni::eventoVuoto() {
    apri();
    QVERIFY(inserimento());
    QCOMPARE(QApplication::focusWidget(), box("txtNum"));
    QCOMPARE(combo("cboGruppo")->currentText(), QStringLiteral("Nessuno"));
    QCOMPARE(combo("cboSes")->currentIndex(), -1);
    QCOMPARE(box("txtDatNas")->displayText(), QStringLiteral("__/__/____"));
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
    apriConEquipaggi();
    clic("cmdNuovo");
    QVERIFY(inserimento());
    attendi(Impossibile, SenzaNumero);
    clic("cmdSalva");
    scrivi("txtNum", "12");
    attendi(Impossibile, Assegnato);
    clic("cmdSalva");
    QVERIFY(m_programma->dialoghi.finite() && inserimento());
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
    QCOMPARE(testo("txtTel"), QStringLiteral("333"));
    QCOMPARE(testo("txtCel"), QString());
    QCOMPARE(combo("cboSesNav")->currentText(), QStringLiteral("F"));
    const QString suo = "IDEqu_FK=" + testo("txtIDEqu");
    QCOMPARE(contaRighe("Rilevamenti", suo), 2);
    QCOMPARE(contaRighe("Rilevamenti", suo + " AND TPar='' AND TArr=''"), 2);

    scrivi("txtCel", "347");
    clic("cmdSuccessivo");
    QCOMPARE(contaRighe("Equipaggi", "Num=7 AND Tel='333' AND Cel='347' AND Esc=1"), 1);
    QCOMPARE(contaRighe("Rilevamenti", suo), 2);
}

void tst_ModuloIscrizioni::soloTastiera() {
    // Two crews one after the other, the mouse never touched.
    apri();
    const auto batti = [](const QString& testo, int invii) {
        QTest::keyClicks(QApplication::focusWidget(), testo);
        while (invii-- > 0)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    };
    for (const int numero : {1, 2}) {
        batti(QString::number(numero), 3);
        batti("rossi", 1);
        batti("mario", 1);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        batti({}, 1);
        batti("31121950", 1);
        QCOMPARE(QApplication::focusWidget(), box("txtClu"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::AltModifier);
        QTRY_VERIFY(!inserimento());
        QCOMPARE(QApplication::focusWidget(), box("txtNum"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_N, Qt::AltModifier);
        QTRY_VERIFY(inserimento());
    }
    QCOMPARE(contaRighe("Equipaggi", "Cog='rossi' AND Nom='mario' AND Ses='M' AND DatNas='1950-12-31'"), 2);
    // On a button Enter moves on too.
    trova<QPushButton>("cmdSalva")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), trova<QPushButton>("cmdAnnulla"));
    QVERIFY(inserimento());
}

void tst_ModuloIscrizioni::mostra() {
    const int gruppo = inserisciRiga("Raggruppamenti", {{"IDMan_FK", IDMan}, {"Nom", "Classic"}, {"Fat", 1}});
    const int squadra = inserisciRiga("Squadre", {{"IDMan_FK", IDMan}, {"Nom", "Rossa"}});
    nuovoEquipaggio(1, {{"IDGru_FK", gruppo},
                        {"IDSqu_FK", squadra},
                        {"Ses", "m"},
                        {"SesNav", "x"},
                        {"DatNas", "1950-02-01"},
                        {"CAP", "D-80331"},
                        {"Cil", 1298.5},
                        {"Esc", 1}});
    apri();
    QCOMPARE(combo("cboGruppo")->currentText(), QStringLiteral("Classic"));
    QCOMPARE(combo("cboSquadra")->currentText(), QStringLiteral("Rossa"));
    QCOMPARE(combo("cboSes")->currentText(), QStringLiteral("M"));
    QCOMPARE(combo("cboSesNav")->currentIndex(), -1);
    QCOMPARE(testo("txtDatNas"), QStringLiteral("01/02/1950"));
    QCOMPARE(box("txtScaPat")->displayText(), QStringLiteral("__/__/____"));
    QVERIFY(trova<QCheckBox>("chkEsc")->isChecked());
    // Looking at a crew changes nothing of what the archive holds in another form.
    clic("cmdEsci");
    QCOMPARE(contaRighe("Equipaggi", "CAP='D-80331' AND Cil=1298.5 AND SesNav='x' AND DatNas='1950-02-01'"),
             1);
}

void tst_ModuloIscrizioni::riscrittura() {
    apriConEquipaggi();
    const std::function<void()> uscite[] = {[this] { clic("cmdSuccessivo"); }, [this] { clicRiga(2); },
                                            [this] {
                                                clic("cmdNuovo");
                                                clic("cmdAnnulla");
                                            },
                                            [this] { m_finestra->close(); }};
    int numero = 100;
    for (const auto& uscita : uscite) {
        clicRiga(0);
        scrivi("txtNum", QString::number(++numero));
        scrivi("txtTes", QString::number(numero));
        uscita();
        QCOMPARE(righe().constFirst(), QStringLiteral("%1 VERDI Ada").arg(numero));
        QCOMPARE(contaRighe("Equipaggi", QStringLiteral("Num=%1 AND Tes='%1' AND Cog='VERDI'").arg(numero)),
                 1);
    }
    QVERIFY(!m_finestra->isVisible());
}

void tst_ModuloIscrizioni::nonSiLascia() {
    apriConEquipaggi();
    clicRiga(1);
    scrivi("txtTes", "T5");
    const std::pair<const char*, const char*> casi[] = {
        {"20", Assegnato}, {"", SenzaNumero}, {"99999999999", "Numero dell'Equipaggio Troppo Grande"}};
    for (const char* uscita : Uscite) {
        for (const auto& [numero, motivo] : casi) {
            box("txtNum")->setText(numero);
            attendi(Impossibile, motivo);
            esci(uscita);
            resta(uscita);
            QCOMPARE(testo("txtNum") + testo("txtTes"), QString::fromLatin1(numero) + "T5");
            QCOMPARE(contaRighe("Equipaggi", "Num=12 AND Tes IS NULL"), 1);
        }
    }
}

void tst_ModuloIscrizioni::navigazione() {
    apriConEquipaggi();
    const std::pair<const char*, const char*> passi[] = {
        {"cmdPrecedente", "VERDI"}, {"cmdSuccessivo", "BRUNI"}, {"cmdSuccessivo", "ABATE"},
        {"cmdSuccessivo", "ABATE"}, {"cmdPrecedente", "BRUNI"}, {"cmdPrimo", "VERDI"},
        {"cmdUltimo", "ABATE"}};
    QCOMPARE(testo("txtCog"), QStringLiteral("VERDI"));
    for (const auto& [pulsante, atteso] : passi) {
        clic(pulsante);
        QCOMPARE(testo("txtCog"), QString::fromLatin1(atteso));
        QVERIFY(lista()->currentItem()->text(2).startsWith(QLatin1String(atteso)));
    }
}

void tst_ModuloIscrizioni::elenco() {
    apriConEquipaggi();
    QCOMPARE(righe(), (QStringList{"3 VERDI Ada", "12 BRUNI Leo", "20 ABATE Ugo"}));
    QVERIFY(lista()->isColumnHidden(0));
    lista()->setFocus();
    QTest::keyClick(lista(), Qt::Key_Down);
    QTRY_COMPARE(testo("txtCog"), QStringLiteral("BRUNI"));
    QTest::keyClick(lista(), Qt::Key_End);
    QTRY_COMPARE(testo("txtCog"), QStringLiteral("ABATE"));
    // A refusal takes the list back to the crew on show.
    box("txtNum")->clear();
    attendi(Impossibile, SenzaNumero);
    QTest::keyClick(lista(), Qt::Key_Up);
    QTRY_VERIFY(m_programma->dialoghi.viste().size() == 1);
    QCOMPARE(rigaScelta(), 2);
    QCOMPARE(testo("txtCog"), QStringLiteral("ABATE"));
}

void tst_ModuloIscrizioni::ordinamento() {
    nuovoEquipaggio(100, {{"Cog", "carli"}, {"Nom", "Pia"}});
    apriConEquipaggi();
    clicRiga(1);
    clicTestata(2);
    QCOMPARE(righe(), (QStringList{"20 ABATE Ugo", "12 BRUNI Leo", "100 carli Pia", "3 VERDI Ada"}));
    QCOMPARE(testo("txtCog"), QStringLiteral("BRUNI"));
    clic("cmdPrecedente");
    QCOMPARE(testo("txtCog"), QStringLiteral("ABATE"));
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
    QCOMPARE(testo("txtCog"), QStringLiteral("BRUNI"));
    QCOMPARE(testo("txtAnn"), QStringLiteral("1935"));
    QCOMPARE(rigaScelta(), 1);
    QCOMPARE(QApplication::focusWidget(), box("txtNum"));
    QCOMPARE(contaRighe("Equipaggi"), 3);
}

void tst_ModuloIscrizioni::eliminazione() {
    nuovoEquipaggio(30, {{"Cog", "CARLI"}});
    apriConEquipaggi();
    // Row deleted, and who is on show then: VERDI, BRUNI, ABATE, CARLI at first.
    int restano = 4;
    for (const auto& [riga, poi] : {std::pair{1, "VERDI"}, std::pair{2, "ABATE"}, std::pair{0, "ABATE"}}) {
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
        QCOMPARE(testo("txtCog"), QString::fromLatin1(poi));
        QVERIFY(lista()->currentItem()->text(2).startsWith(QLatin1String(poi)));
    }
    QCOMPARE(m_programma->dialoghi.viste().constLast().icona, Icona::Domanda);
}

void tst_ModuloIscrizioni::eliminaUnico() {
    nuovoEquipaggio(1, {{"DatNas", "1950-02-01"}});
    apri();
    attendiEliminazione(true);
    clic("cmdElimina");
    QVERIFY(!inserimento());
    QCOMPARE(testo("txtNum") + testo("txtCog") + testo("txtIDEqu"), QString());
    QCOMPARE(box("txtDatNas")->displayText(), QStringLiteral("__/__/____"));
    for (const char* fermo : {"cmdElimina", "cmdPrimo", "cmdSuccessivo", "cmdPrecedente", "cmdUltimo"})
        clic(fermo);
    clic("cmdNuovo");
    QVERIFY(inserimento());
    clic("cmdAnnulla");
    QVERIFY(!m_finestra->isVisible());
}

void tst_ModuloIscrizioni::discoPieno() {
    apri();
    const int pagine = leggiValore("PRAGMA page_count")->toInt();
    leggiValore(QStringLiteral("PRAGMA max_page_count=%1").arg(pagine));
    scrivi("txtNum", "8");
    scrivi("txtCog", "Neri");
    box("txtNot")->setText(QString(30000, 'x'));
    m_programma->dialoghi.attendiMessaggio("Velmora", {}, Icona::Stop);
    clic("cmdSalva");
    QVERIFY(m_programma->dialoghi.viste().constLast().testo.contains("disco è pieno"));
    QVERIFY(inserimento());
    QCOMPARE(testo("txtNum") + testo("txtCog"), QStringLiteral("8Neri"));
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(contaRighe("Equipaggi") + contaRighe("Rilevamenti"), 0);
    leggiValore("PRAGMA max_page_count=100000");
    clic("cmdSalva");
    QVERIFY(!inserimento());
    QCOMPARE(contaRighe("Equipaggi", "Num=8 AND Cog='Neri'"), 1);
    QCOMPARE(contaRighe("Rilevamenti"), 2);
}

void tst_ModuloIscrizioni::archivioGuastoInUscita() {
    // A write-back that the archive refuses keeps the crew, what was typed, and the window.
    apriConEquipaggi();
    clicRiga(1);
    esegui("CREATE TRIGGER guasto BEFORE UPDATE ON Equipaggi BEGIN SELECT RAISE(ABORT,'guasto'); END");
    scrivi("txtTes", "T9");
    for (const char* uscita : Uscite) {
        m_programma->dialoghi.attendiMessaggio("Velmora", {}, Icona::Stop);
        esci(uscita);
        resta(uscita);
        QCOMPARE(testo("txtTes"), QStringLiteral("T9"));
    }
    esegui("DROP TRIGGER guasto");
    clic("cmdEsci");
    QVERIFY(!m_finestra->isVisible());
    QCOMPARE(contaRighe("Equipaggi", "Tes='T9' AND Cog='BRUNI'"), 1);
}

PROVA_FINESTRE(tst_ModuloIscrizioni)
#include "tst_ModuloIscrizioni.moc"

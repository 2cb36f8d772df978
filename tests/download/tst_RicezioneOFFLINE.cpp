#include "download/frmRicezioneProvediMedia.h"
#include "supporto/BancoScarico.h"

// The download windows on real pseudo-terminals, when all goes well and when the operator is refused.
class tst_RicezioneOFFLINE final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void scelta();
    void scarico520();
    void scarico540();
    void impostazioni();
    void proveDiMedia();

private:
    void prepara() override { m_gara = std::make_unique<Gara>(); }
    void chiudi() override { m_gara.reset(); }
    void attendiRicevuti(int validi, int previsti) {
        dialoghi().attendiMessaggio(
            "Ricezione OK",
            QString("Ricezione Terminata\nRicevuti %1 Rilevamenti Validi\nSu %2 Tempi Previsti da Ricevere")
                .arg(validi)
                .arg(previsti),
            Icona::Informazione);
    }
    // A TAG CP520 download from the start button to its end.
    template <typename Banco>
    void scarica520(Banco& banco, SimulatoreTag& tag) {
        banco.premi("cmdIniziaRicezione");
        QCOMPARE(banco.stato(), "ATTESA DATI\nDA TAG CP 520");
        QVERIFY(m_gara->linea.aperto());
        tag.trasmetti();
        QTRY_VERIFY(banco.ferma());
        QVERIFY(dialoghi().finite());
        QVERIFY(!m_gara->linea.aperto());
    }

    std::unique_ptr<Gara> m_gara;
};

// A refused start has already emptied what was left of the download before.
void tst_RicezioneOFFLINE::scelta() {
    const QString lontani = "I Pressostati Selezionati Devono Essere\nAppartenenti a Prove Consecutive";
    for (const auto& [righe, testo] : {std::pair{QList<int>{}, QString("Selezionare Almeno un Pressostato")},
                                       {QList<int>{0, 2}, lontani},
                                       {QList<int>{0, 1, 4}, lontani}}) {
        for (const char* tabella : {"TempRil", "ErroriSca", "TempScar"})
            esegui(QString("INSERT INTO %1 (Num) VALUES (1)").arg(tabella));
        BancoOFFLINE banco;
        QCOMPARE(banco.griglia("grTempi").size(), 1);
        banco.spunta(righe);
        dialoghi().attendiMessaggio("Impossibile Ricevere", testo);
        banco.premi("cmdIniziaRicezione");
        QVERIFY(banco.ferma() && !m_gara->linea.aperto());
        QCOMPARE(banco.griglia("grTempi").size(), 0);
        QCOMPARE(contaRighe("TempRil") + contaRighe("ErroriSca") + contaRighe("TempScar"), 0);
    }
}

void tst_RicezioneOFFLINE::scarico520() {
    SimulatoreTag tag(Dispositivo::CP520, m_gara->linea);
    for (const auto& [numero, ora] : {std::pair{7, QTime(10, 0, 0, 470)},
                                      {1, QTime(10, 1, 0, 470)},
                                      {0, QTime(10, 1, 5)},
                                      {7, QTime(9, 0, 59, 980)},
                                      {9, QTime(10, 2)},
                                      {7, QTime(10, 3)},
                                      {1, QTime(10, 2, 1, 230)}})
        tag.registra(numero, ora);
    // One of the readings that a crew had before; the other kind of time must stay.
    scriviRilevamento(m_gara->equipaggi[0], m_gara->pa1, "08:00:00:00", "08:08:08:00");
    scriviRilevamento(m_gara->equipaggi[0], m_gara->pa2, "", "08:09:09:00");
    BancoOFFLINE banco;
    auto* lista = banco.trova<ElencoPressostati>("lstPre");
    QCOMPARE(lista->topLevelItem(2)->text(0), "ARRIVO -> PA - Salita - 00:01:00");
    QCOMPARE(lista->topLevelItem(2)->text(2), "START  -> PA - Discesa - 00:01:00");
    for (const int riga : {1, 2}) {
        lista->setCurrentItem(lista->topLevelItem(riga));
        QTest::keyClick(lista, Qt::Key_Space);
    }
    attendiRicevuti(4, 6);
    scarica520(banco, tag);
    QCOMPARE(banco.stato(),
             "ELABORAZIONE \nTERMINATA\nRicevuti 4 Rilevamenti Validi\n"
             "Su 6 Tempi Previsti da Ricevere");
    QCOMPARE(banco.trova<QLabel>("lblInfo")->text(), "Eq. N. : 1 --> T.: 10:02:01:23");
    // Positional, whatever the clock says; cut by class and kind.
    const QStringList ricevuti{
        "7/AGOSTI BIANCHI/Salita/10:00:00:00/", "1/ROSSI BIANCHI/Salita/10:01:00:40/",
        "7/AGOSTI BIANCHI/Salita//09:00:59:00", "7/AGOSTI BIANCHI/Discesa/09:00:59:00/",
        "1/ROSSI BIANCHI/Salita//10:02:01:20",  "1/ROSSI BIANCHI/Discesa/10:02:01:20/"};
    QCOMPARE(banco.griglia("grTempi"), ricevuti);
    QCOMPARE(banco.griglia("grScartati"),
             QStringList({"/10:01:05:00/Senza Numero", "9/10:02:00:00/Equipaggio NON Iscritto",
                          "7/10:03:00:00/Troppi Tempi"}));
    // A header sorts; rows that are equal keep the order in which they came.
    auto* titoli = banco.trova<QTableView>("grTempi")->horizontalHeader();
    for (const auto& [colonna, ordine] :
         {std::pair{0, QList<int>{1, 4, 5, 0, 2, 3}}, {4, QList<int>{0, 1, 3, 5, 2, 4}}}) {
        QStringList attesi;
        for (const int riga : ordine)
            attesi << ricevuti[riga];
        clicTestata(titoli, colonna);
        QCOMPARE(banco.griglia("grTempi"), attesi);
    }
    QCOMPARE(Gara::rilevamentiScritti(), 2);

    dialoghi().attendiMessaggio("Salvataggio OK", "Salvataggio Completato", Icona::Informazione);
    banco.premi("cmdSalva");
    QCOMPARE(Gara::rilevamento(m_gara->equipaggi[0], m_gara->pa1), "10:01:00:40|10:02:01:20");
    QCOMPARE(Gara::rilevamento(m_gara->equipaggi[0], m_gara->pa2), "10:02:01:20|08:09:09:00");
    QCOMPARE(Gara::rilevamento(m_gara->equipaggi[2], m_gara->pa1), "10:00:00:00|09:00:59:00");
    QCOMPARE(Gara::rilevamentiScritti(), 4);
    QCOMPARE(contaRighe("Prove", QString("Svo=1 AND IDPro IN (%1,%2)").arg(m_gara->pa1).arg(m_gara->pa2)), 2);
    QCOMPARE(contaRighe("Prove", "Svo=1"), 2);
    QCOMPARE(banco.griglia("grTempi").size(), 0);

    dialoghi().attendiMessaggio("Impossibile Salvare i Tempi", "Nessun Tempo Ricevuto");
    banco.premi("cmdSalva");
}

// Identity, heats that are none, a heat that the device does not know, then the right one.
void tst_RicezioneOFFLINE::scarico540() {
    SimulatoreTag tag(Dispositivo::CP540, m_gara->linea);
    tag.setSerie("98765");
    tag.scegliManche(7);
    tag.registra(2, QTime(14, 30, 15, 990));
    tag.registra(5, QTime(14, 30, 16));
    tag.spezza(5, 1);
    BancoOFFLINE banco;
    banco.dispositivo(Dispositivo::CP540);
    banco.spunta({4});
    const char* titolo = "Inserimento Numero della Manche da Scaricare";
    const char* testo = "Numero della Manche da Scaricare";
    for (const auto& rinuncia : {std::optional<QString>(), std::optional<QString>("")}) {
        dialoghi().attendiChiedi(titolo, testo, rinuncia);
        banco.premi("cmdIniziaRicezione");
        QTRY_VERIFY(banco.ferma());
        QCOMPARE(banco.stato(), "");
        QVERIFY(!m_gara->linea.aperto());
    }
    const StatiMostrati mostrati(banco.trova<QLabel>("lblStatus"));
    for (const char* sbagliata : {"0", " "}) {
        dialoghi().attendiChiedi(titolo, testo, sbagliata);
        dialoghi().attendiMessaggio("Attenzione", "Numero di Manche NON Corretto");
    }
    dialoghi().attendiChiedi(titolo, testo, "12");
    dialoghi().attendiMessaggio("Impossibile Ricevere i Tempi", "Numero di Manche Errato");
    dialoghi().attendiChiedi(titolo, testo, " 7");  // goes out as typed
    attendiRicevuti(1, 3);
    banco.premi("cmdIniziaRicezione");
    QTRY_VERIFY(banco.ferma());
    QCOMPARE(mostrati.stati, QStringList({"ATTESA RISPOSTA\nDA TAG CP540",
                                          "Collegamento Stabilito\nCon TAG CP540\nNumero di Serie : 98765",
                                          "RICEZIONE\nIN CORSO", "ELABORAZIONE\nIN CORSO",
                                          "ELABORAZIONE \nTERMINATA\nRicevuti 1 Rilevamenti Validi\n"
                                          "Su 3 Tempi Previsti da Ricevere"}));
    QVERIFY(dialoghi().finite());
    QCOMPARE(tag.comandi(), QList<QByteArray>({"#ID\t", "#ID\t", "#ID\t", "#DL_12\t", "#DL_ 7\t"}));
    QCOMPARE(banco.griglia("grTempi"), QStringList({"2/ROSSI BIANCHI/Arrivo//14:30:00:00"}));
    QCOMPARE(banco.griglia("grScartati"), QStringList({"5/14:30:16:00/Equipaggio NON Iscritto"}));
    // What was received and not saved goes with the window: Esc asks first, the button does not. Where it
    // cannot be thrown away the operator is told, and then may leave.
    const auto chiudi = [&](const QString& domanda, bool si) {
        dialoghi().attendiDomanda("Conferma Chiusura", domanda, si);
        QTest::keyClick(&banco.finestra, Qt::Key_Escape);
        QCOMPARE(banco.finestra.isVisible(), !si);
    };
    const QString nonSalvati =
        "I Tempi Ricevuti NON Sono Ancora Stati Salvati.\nChiudere Veramente la Finestra Senza Salvarli ?";
    chiudi(nonSalvati, false);
    QCOMPARE(contaRighe("TempRil"), 1);
    guasta("DELETE ON TempRil");
    dialoghi().attendiMessaggio({}, {}, Icona::Stop);
    banco.premi("cmdEsci");
    chiudi({}, false);
    chiudi({}, true);
    esegui("DROP TRIGGER guasto");
    banco.finestra.show();
    banco.premi("cmdEsci");
    QVERIFY(dialoghi().finite());
    QCOMPARE(contaRighe("TempRil"), 0);
    QCOMPARE(Gara::rilevamentiScritti(), 0);
}

// As left; values that are none are the first ones.
void tst_RicezioneOFFLINE::impostazioni() {
    auto& valori = m_programma->impostazioni.valori;
    for (const auto& [porta, dispositivo, numero, letti] :
         {std::tuple{"9", "1", "1", "cboPortaCOM=COM 9;cboChrono=TAG CP540;chkNumero=SI"},
          std::tuple{"12", "x", "", "cboPortaCOM=COM 1;cboChrono=TAG CP520;chkNumero=NO"}}) {
        valori = {{"com/offline", porta}, {"chrono/offline", dispositivo}, {"numero/offline", numero}};
        confronta(BancoOFFLINE(QString()).finestra, letti);
    }
    BancoOFFLINE banco;
    banco.dispositivo(Dispositivo::CP540);
    banco.trova<QCheckBox>("chkNumero")->setChecked(true);
    banco.premi("cmdEsci");
    QCOMPARE(valori.value("com/offline") + valori.value("chrono/offline") + valori.value("numero/offline"),
             "211");
}

// The same on the TAG CP520 alone, without the figure of expected times; what the error search left stays.
void tst_RicezioneOFFLINE::proveDiMedia() {
    m_programma->impostazioni.valori = {{"com/offline", "2"}, {"numero/offline", "1"}};
    esegui("INSERT INTO ErroriSca (Num) VALUES (1)");
    esegui("INSERT INTO TempScar (Num) VALUES (1)");
    SimulatoreTag tag(Dispositivo::CP520, m_gara->linea);
    tag.registra(1, QTime(11, 0));
    tag.registra(0, QTime(11, 1));
    BancoScarico<frmRicezioneProvediMedia> banco;
    QVERIFY(!banco.finestra.findChild<QComboBox*>("cboChrono"));
    QVERIFY(banco.trova<QCheckBox>("chkNumero")->isChecked());
    banco.spunta({2, 3});
    dialoghi().attendiMessaggio("Ricezione OK", "Ricezione Terminata\nRicevuti 2 Rilevamenti Validi",
                                Icona::Informazione);
    scarica520(banco, tag);
    QCOMPARE(banco.stato(), "ELABORAZIONE \nTERMINATA\nRicevuti 2 Rilevamenti Validi");
    QCOMPARE(banco.griglia("grTempi").size(), 3);
    dialoghi().attendiMessaggio("Salvataggio OK", "Salvataggio Completato", Icona::Informazione);
    banco.premi("cmdSalva");
    QCOMPARE(Gara::rilevamento(m_gara->equipaggi[0], m_gara->pa2), "11:00:00:00|11:01:00:00");
    QCOMPARE(contaRighe("ErroriSca") + contaRighe("TempScar"), 2);
    banco.premi("cmdEsci");
    QCOMPARE(m_programma->impostazioni.valori.size(), 2);
    QVERIFY(!m_programma->impostazioni.valori.contains("chrono/offline"));
}

PROVA_FINESTRE(tst_RicezioneOFFLINE)
#include "tst_RicezioneOFFLINE.moc"

#include "supporto/BancoScarico.h"

// What goes wrong on the line of a download: each time the operator reads why, the window can be used again
// and what the archive holds is untouched.
class tst_GuastiOFFLINE final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void interrotta_data();
    void interrotta();
    void archivioGuasto();

private:
    void prepara() override;
    void chiudi() override;
    void attendiManche(const QString& risposta) { dialoghi().attendiChiedi({}, {}, risposta); }
    void attendiFine(int validi) {
        dialoghi().attendiMessaggio(
            "Ricezione OK",
            QString("Ricezione Terminata\nRicevuti %1 Rilevamenti Validi\nSu 3 Tempi Previsti da Ricevere")
                .arg(validi),
            Icona::Informazione);
    }
    void avvia(Dispositivo dispositivo);
    void apriFinestra() {
        m_banco = std::make_unique<BancoOFFLINE>();
        m_banco->dispositivo(m_dispositivo);
        m_banco->spunta({0});
    }
    // Brings the download to a state of its panel, with half a record received where it is receiving.
    void portaA(const QString& stato);
    // All released, and a whole download goes through.
    void ricominciabile();

    std::unique_ptr<Gara> m_gara;
    std::unique_ptr<SimulatoreTag> m_tag;
    std::unique_ptr<BancoOFFLINE> m_banco;
    Dispositivo m_dispositivo = Dispositivo::CP520;
};

namespace {

const QString AttesaDati = "ATTESA DATI\nDA TAG CP 520";
const QString AttesaRisposta = "ATTESA RISPOSTA\nDA TAG CP540";
const QString Collegata = "Collegamento Stabilito\nCon TAG CP540\nNumero di Serie : 04711";
const QString Ricezione = "RICEZIONE\nIN CORSO";

}  // namespace

void tst_GuastiOFFLINE::prepara() {
    m_gara = std::make_unique<Gara>();
    scriviRilevamento(m_gara->equipaggi[0], m_gara->pa1, "08:00:00:00", "08:01:00:00");
}

void tst_GuastiOFFLINE::chiudi() {
    QCOMPARE(Gara::rilevamentiScritti(), 1);
    m_banco.reset();
    m_tag.reset();
    m_gara.reset();
}

void tst_GuastiOFFLINE::avvia(Dispositivo dispositivo) {
    m_dispositivo = dispositivo;
    m_tag = std::make_unique<SimulatoreTag>(dispositivo, m_gara->linea);
    m_tag->scegliManche(3);
    m_tag->registra(1, QTime(10, 0));
    m_tag->registra(2, QTime(10, 1));
    apriFinestra();
}

void tst_GuastiOFFLINE::portaA(const QString& stato) {
    // With a long silence the download stays in its state.
    AtteseLinea.silenzioCP520 = 60000;
    if (stato == AttesaRisposta)
        m_tag->setMuto(true);
    if (stato == Collegata || (stato == Ricezione && m_dispositivo == Dispositivo::CP540))
        attendiManche("3");
    if (stato == Collegata)
        m_tag->setTaglio(4);  // "AK C" without its end
    if (stato == Ricezione)
        m_tag->setTaglio(m_dispositivo == Dispositivo::CP540 ? 80 : 40);
    m_banco->premi("cmdIniziaRicezione");
    if (m_dispositivo == Dispositivo::CP520 && stato == Ricezione)
        m_tag->trasmetti();
    QTRY_COMPARE(m_banco->stato(), stato);
    // The device has read what it was sent.
    if (stato == AttesaRisposta || stato == Collegata)
        QTRY_COMPARE(m_tag->comandi().size(), stato == Collegata ? 2 : 1);
    QVERIFY(!m_banco->ferma());
    for (const char* bloccato : {"lstPre", "chkNumero", "cboChrono", "cboPortaCOM", "grTempi", "cmdSalva"})
        QVERIFY(!m_banco->trova(bloccato)->isEnabled());
}

void tst_GuastiOFFLINE::ricominciabile() {
    AtteseLinea = {};
    AtteseLinea.silenzioCP520 = 40;
    QVERIFY(m_banco->ferma());
    QVERIFY(!m_banco->trova("cmdArrestaRicezione")->isEnabled());
    QCOMPARE(m_banco->stato(), "");
    QVERIFY(!m_gara->linea.aperto());
    m_tag->setMuto(false);
    m_tag->setTaglio({});
    m_tag->setMancheInCoda({});
    if (m_dispositivo == Dispositivo::CP540)
        attendiManche("3");
    attendiFine(2);
    m_banco->premi("cmdIniziaRicezione");
    if (m_dispositivo == Dispositivo::CP520)
        m_tag->trasmetti();
    QTRY_VERIFY(m_banco->ferma());
    QCOMPARE(m_banco->griglia("grTempi").size(), 2);
}

void tst_GuastiOFFLINE::interrotta_data() {
    QTest::addColumn<Dispositivo>("dispositivo");
    QTest::addColumn<QString>("stato");
    QTest::addColumn<QString>("come");
    const auto cp520 = Dispositivo::CP520;
    const auto cp540 = Dispositivo::CP540;
    // Every state in which a download waits for the line.
    for (const auto& [nome, dispositivo, stato] :
         {std::tuple{"waiting for data", cp520, AttesaDati}, std::tuple{"receiving, CP520", cp520, Ricezione},
          std::tuple{"identifying", cp540, AttesaRisposta}, std::tuple{"heat asked for", cp540, Collegata},
          std::tuple{"receiving, CP540", cp540, Ricezione}}) {
        for (const char* come : {"stop", "close", "delete", "unplug"})
            QTest::addRow("%s, %s", nome, come) << dispositivo << stato << come;
    }
    for (const auto dispositivo : {cp520, cp540}) {
        for (const QString come : {"missing", "in use"})
            QTest::addRow("%s, %d", qPrintable(come), int(dispositivo)) << dispositivo << come << come;
    }
    QTest::newRow("no answer to the identity") << cp540 << AttesaRisposta << "no answer";
    QTest::newRow("no answer to the heat") << cp540 << Collegata << "no answer";
    // What never ends, for no watchdog runs any more: only the operator stops it.
    for (const char* stato : {"silent", "other heat"})
        QTest::newRow(stato) << cp540 << stato << QString("stop");
}

// The operator stops it, or closes the window, or the line goes away: nothing is left of it.
void tst_GuastiOFFLINE::interrotta() {
    QFETCH(Dispositivo, dispositivo);
    QFETCH(QString, stato);
    QFETCH(QString, come);
    avvia(dispositivo);
    AtteseLinea.rispostaCP540 = come == "no answer" ? 150 : 60000;
    if (stato == "silent" || stato == "other heat") {
        AtteseLinea.rispostaCP540 = 200;
        stato == "silent" ? m_tag->setTaglio(11) : m_tag->setMancheInCoda(4);
        attendiManche("3");
        m_banco->premi("cmdIniziaRicezione");
        QTRY_COMPARE(m_banco->stato(), Ricezione);
        QTest::qWait(3 * AtteseLinea.rispostaCP540);
        QCOMPARE(m_banco->stato(), Ricezione);
    } else if (stato == come) {
        m_gara->linea.stacca();
        const std::unique_ptr<Porta> altra = FabbricaPorte::corrente().crea(Linea::Cronometro);
        altra->impostaNumero(2);
        if (stato == "in use") {
            m_gara->linea.attacca();
            QVERIFY(altra->apri());
        }
        dialoghi().attendiMessaggio("Errore", {});
        m_banco->premi("cmdIniziaRicezione");
        QCOMPARE(dialoghi().viste().last().testo.section(" : ", 1),
                 stato == "in use" ? "2 - Porta già in Uso oppure Accesso Negato" : "1 - Porta Inesistente");
        m_gara->linea.attacca();
    } else {
        portaA(stato);
    }
    if (come == "stop") {
        m_banco->premi("cmdArrestaRicezione");
    } else if (come == "close") {
        QTest::keyClick(&m_banco->finestra, Qt::Key_Escape);
        QVERIFY(!m_banco->finestra.isVisible());
        QCOMPARE(m_programma->impostazioni.valori.value("com/offline"), "2");
        m_banco->finestra.show();
    } else if (come == "delete") {
        m_banco.reset();
        QTRY_VERIFY(!m_gara->linea.aperto());
        apriFinestra();
    } else if (come == "no answer") {
        dialoghi().attendiMessaggio(
            "Errore di Comunicazione",
            "Nessuna Risposta Ricevuta dal CP540.\nControllare I Collegamenti e Quindi Riprovare.");
        QTRY_VERIFY(m_banco->ferma());
    } else if (come == "unplug") {
        dialoghi().attendiMessaggio("Errore", {});
        m_gara->linea.stacca();
        QTRY_VERIFY(m_banco->ferma());
        QVERIFY(dialoghi().viste().last().testo.endsWith(" - Porta Scollegata"));
        m_gara->linea.attacca();
    }
    QCOMPARE(contaRighe("TempRil"), 0);
    ricominciabile();
}

// The archive refuses the times in the middle of the processing, then the readings in the middle of saving:
// all or nothing, and the window goes on.
void tst_GuastiOFFLINE::archivioGuasto() {
    avvia(Dispositivo::CP520);
    const auto rifiuta = [this](const QString& cambiamento, const std::function<void()>& azione) {
        guasta(cambiamento);
        dialoghi().attendiMessaggio({}, {}, Icona::Stop);
        azione();
        QVERIFY(dialoghi().viste().last().testo.contains("disco guasto"));
        esegui("DROP TRIGGER guasto");
    };
    rifiuta("INSERT ON TempRil WHEN NEW.Num=2", [this] {
        m_banco->premi("cmdIniziaRicezione");
        m_tag->trasmetti();
        QTRY_VERIFY(m_banco->ferma());
    });
    QCOMPARE(contaRighe("TempRil"), 0);
    ricominciabile();
    rifiuta(QString("UPDATE ON Rilevamenti WHEN NEW.IDEqu_FK=%1").arg(m_gara->equipaggi[1]),
            [this] { m_banco->premi("cmdSalva"); });
    QCOMPARE(Gara::rilevamentiScritti(), 1);
    QCOMPARE(contaRighe("Prove", "Svo=1"), 0);
    QCOMPARE(m_banco->griglia("grTempi").size(), 2);
    dialoghi().attendiMessaggio("Salvataggio OK", "Salvataggio Completato", Icona::Informazione);
    m_banco->premi("cmdSalva");
    QCOMPARE(Gara::rilevamentiScritti(), 3);
    esegui("UPDATE Rilevamenti SET TArr='' WHERE TPar=''");  // as cleanup() wants to find it
}

PROVA_FINESTRE(tst_GuastiOFFLINE)
#include "tst_GuastiOFFLINE.moc"

#include "BancoScarico.h"
#include "supporto/ProvaFinestre.h"

#include <QFile>

// What goes wrong on the line of a download: each time the operator reads why, the window can be used again
// and what the archive holds is untouched.
class tst_GuastiOFFLINE final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void portaChiusa_data();
    void portaChiusa();
    void adattatoreTolto_data();
    void adattatoreTolto();
    void nessunaRisposta_data();
    void nessunaRisposta();
    void arresto_data();
    void arresto();
    void chiusaInRicezione_data();
    void chiusaInRicezione();
    void altroDispositivo_data();
    void altroDispositivo();
    void archivioGuasto();
    void raffica_data();
    void raffica();

private:
    DialoghiDiProva& dialoghi() { return m_gara->programma.dialoghi; }
    void attendiManche(const QString& risposta) { dialoghi().attendiChiedi({}, {}, risposta); }
    void attendiFine(int validi) {
        dialoghi().attendiMessaggio(
            "Ricezione OK",
            QString("Ricezione Terminata\nRicevuti %1 Rilevamenti Validi\nSu 3 Tempi Previsti da Ricevere")
                .arg(validi),
            Icona::Informazione);
    }
    void avvia(Dispositivo dispositivo);
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

// Every state in which a download waits for the line.
void stati() {
    QTest::addColumn<Dispositivo>("dispositivo");
    QTest::addColumn<QString>("stato");
    QTest::newRow("waiting for data") << Dispositivo::CP520 << AttesaDati;
    QTest::newRow("receiving, CP520") << Dispositivo::CP520 << Ricezione;
    QTest::newRow("identifying") << Dispositivo::CP540 << AttesaRisposta;
    QTest::newRow("heat asked for") << Dispositivo::CP540 << Collegata;
    QTest::newRow("receiving, CP540") << Dispositivo::CP540 << Ricezione;
}

}  // namespace

void tst_GuastiOFFLINE::init() {
    m_gara = std::make_unique<Gara>();
    scriviRilevamento(m_gara->equipaggi[0], m_gara->pa1, "08:00:00:00", "08:01:00:00");
}

void tst_GuastiOFFLINE::cleanup() {
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
    m_banco = std::make_unique<BancoOFFLINE>();
    m_banco->dispositivo(dispositivo);
    m_banco->spunta({0});
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
    QVERIFY(dialoghi().finite());
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
    QVERIFY(dialoghi().finite());
    QCOMPARE(m_banco->griglia("grTempi").size(), 2);
}

void tst_GuastiOFFLINE::portaChiusa_data() {
    QTest::addColumn<Dispositivo>("dispositivo");
    QTest::addColumn<bool>("inUso");
    QTest::newRow("missing, CP520") << Dispositivo::CP520 << false;
    QTest::newRow("missing, CP540") << Dispositivo::CP540 << false;
    QTest::newRow("in use, CP520") << Dispositivo::CP520 << true;
    QTest::newRow("in use, CP540") << Dispositivo::CP540 << true;
}

void tst_GuastiOFFLINE::portaChiusa() {
    QFETCH(Dispositivo, dispositivo);
    QFETCH(bool, inUso);
    avvia(dispositivo);
    const std::unique_ptr<Porta> altra = FabbricaPorte::corrente().crea(Linea::Cronometro);
    altra->impostaNumero(2);
    if (inUso)
        QVERIFY(altra->apri());
    else
        m_gara->linea.stacca();
    dialoghi().attendiMessaggio("Errore", {});
    m_banco->premi("cmdIniziaRicezione");
    QVERIFY(dialoghi().viste().last().testo.startsWith("Errore n. : "));
    QVERIFY(dialoghi().finite());
    altra->chiudi();
    m_gara->linea.attacca();
    ricominciabile();
}

void tst_GuastiOFFLINE::adattatoreTolto_data() {
    stati();
}

void tst_GuastiOFFLINE::adattatoreTolto() {
    QFETCH(Dispositivo, dispositivo);
    QFETCH(QString, stato);
    avvia(dispositivo);
    portaA(stato);
    dialoghi().attendiMessaggio("Errore", {});
    m_gara->linea.stacca();
    QTRY_VERIFY(m_banco->ferma());
    QVERIFY(dialoghi().viste().last().testo.endsWith(" - Porta Scollegata"));
    QVERIFY(dialoghi().finite());
    QCOMPARE(contaRighe("TempRil"), 0);
    m_gara->linea.attacca();
    ricominciabile();
}

void tst_GuastiOFFLINE::nessunaRisposta_data() {
    QTest::addColumn<QString>("stato");
    QTest::newRow("to the identity") << AttesaRisposta;
    QTest::newRow("to the heat") << Collegata;
}

void tst_GuastiOFFLINE::nessunaRisposta() {
    QFETCH(QString, stato);
    AtteseLinea.rispostaCP540 = 150;
    avvia(Dispositivo::CP540);
    portaA(stato);
    dialoghi().attendiMessaggio(
        "Errore di Comunicazione",
        "Nessuna Risposta Ricevuta dal CP540.\nControllare I Collegamenti e Quindi Riprovare.");
    QTRY_VERIFY(m_banco->ferma());
    QVERIFY(dialoghi().finite());
    ricominciabile();
}

void tst_GuastiOFFLINE::arresto_data() {
    stati();
    QTest::newRow("silent after AK C") << Dispositivo::CP540 << "silent";
    QTest::newRow("end of another heat") << Dispositivo::CP540 << "other heat";
}

void tst_GuastiOFFLINE::arresto() {
    QFETCH(Dispositivo, dispositivo);
    QFETCH(QString, stato);
    avvia(dispositivo);
    AtteseLinea.rispostaCP540 = 200;
    if (stato == "silent" || stato == "other heat") {
        stato == "silent" ? m_tag->setTaglio(11) : m_tag->setMancheInCoda(4);
        attendiManche("3");
        m_banco->premi("cmdIniziaRicezione");
        QTRY_COMPARE(m_banco->stato(), Ricezione);
        // No watchdog runs any more.
        QTest::qWait(3 * AtteseLinea.rispostaCP540);
        QCOMPARE(m_banco->stato(), Ricezione);
    } else {
        AtteseLinea.rispostaCP540 = 60000;
        portaA(stato);
    }
    m_banco->premi("cmdArrestaRicezione");
    QVERIFY(dialoghi().finite());
    QCOMPARE(contaRighe("TempRil"), 0);
    ricominciabile();
}

void tst_GuastiOFFLINE::chiusaInRicezione_data() {
    stati();
}

void tst_GuastiOFFLINE::chiusaInRicezione() {
    QFETCH(Dispositivo, dispositivo);
    QFETCH(QString, stato);
    avvia(dispositivo);
    portaA(stato);
    QTest::keyClick(&m_banco->finestra, Qt::Key_Escape);
    QVERIFY(!m_banco->finestra.isVisible());
    QVERIFY(!m_gara->linea.aperto());
    QCOMPARE(m_gara->programma.impostazioni.valori.value("com/offline"), "2");
    // And gone altogether while the device still sends.
    m_banco->finestra.show();
    m_tag->setTaglio({});
    m_tag->setMuto(false);
    if (dispositivo == Dispositivo::CP540)
        attendiManche("3");
    m_tag->spezza(3, 1);
    m_banco->premi("cmdIniziaRicezione");
    if (dispositivo == Dispositivo::CP520)
        m_tag->trasmetti();
    QTRY_COMPARE(m_banco->stato(), Ricezione);
    m_banco.reset();
    QTRY_VERIFY(!m_gara->linea.aperto());
    QVERIFY(dialoghi().finite());
}

void tst_GuastiOFFLINE::altroDispositivo_data() {
    QTest::addColumn<Dispositivo>("atteso");
    QTest::newRow("CP540 for CP520") << Dispositivo::CP520;
    QTest::newRow("CP520 for CP540") << Dispositivo::CP540;
}

void tst_GuastiOFFLINE::altroDispositivo() {
    QFETCH(Dispositivo, atteso);
    avvia(atteso);
    const bool cp520 = atteso == Dispositivo::CP520;
    QByteArray altri;
    for (int n = 1; n <= 40; ++n)
        altri += SimulatoreTag::rigaMemoria(cp520 ? Dispositivo::CP540 : Dispositivo::CP520, 1, QTime(9, n));
    if (cp520) {
        attendiFine(0);
        m_banco->premi("cmdIniziaRicezione");
        m_tag->invia(altri);
        QTRY_VERIFY(m_banco->ferma());
        QVERIFY(dialoghi().finite());
        QCOMPARE(contaRighe("TempRil"), 0);
        m_banco->premi("cmdIniziaRicezione");
        m_banco->premi("cmdArrestaRicezione");
    } else {
        m_tag->setMuto(true);
        AtteseLinea.rispostaCP540 = 150;
        dialoghi().attendiMessaggio("Errore di Comunicazione", {});
        m_banco->premi("cmdIniziaRicezione");
        m_tag->invia(altri);
        QTRY_VERIFY(m_banco->ferma());
        QVERIFY(dialoghi().finite());
    }
    ricominciabile();
}

// The archive refuses the times in the middle of the processing.
void tst_GuastiOFFLINE::archivioGuasto() {
    avvia(Dispositivo::CP520);
    esegui(
        "CREATE TRIGGER guasto BEFORE INSERT ON TempRil WHEN NEW.Num=2 "
        "BEGIN SELECT RAISE(ABORT,'disco guasto'); END");
    dialoghi().attendiMessaggio({}, {}, Icona::Stop);
    m_banco->premi("cmdIniziaRicezione");
    m_tag->trasmetti();
    QTRY_VERIFY(m_banco->ferma());
    QVERIFY(dialoghi().viste().last().testo.contains("disco guasto"));
    QVERIFY(dialoghi().finite());
    QCOMPARE(contaRighe("TempRil"), 0);
    esegui("DROP TRIGGER guasto");
    ricominciabile();
}

void tst_GuastiOFFLINE::raffica_data() {
    QTest::addColumn<bool>("record");
    QTest::newRow("noise") << false;
    QTest::newRow("records") << true;
}

// A megabyte at once, of noise and of records: the first times of each crew are kept.
void tst_GuastiOFFLINE::raffica() {
    QFETCH(bool, record);
    AtteseLinea.silenzioCP520 = 500;
    avvia(Dispositivo::CP520);
    AtteseLinea.silenzioCP520 = 500;
    constexpr qsizetype Megabyte = 1 << 20;
    QByteArray dati;
    if (record) {
        const QByteArray righe = SimulatoreTag::rigaMemoria(Dispositivo::CP520, 1, QTime(9, 0)) +
                                 SimulatoreTag::rigaMemoria(Dispositivo::CP520, 8, QTime(9, 1));
        dati = righe.repeated(Megabyte / righe.size());
        attendiFine(1);
    } else {
        dialoghi().attendiMessaggio("Ricezione OK", {}, Icona::Informazione);
    }
    m_banco->premi("cmdIniziaRicezione");
    record ? m_tag->invia(dati) : m_tag->disturbo(Megabyte);
    QTRY_VERIFY_WITH_TIMEOUT(m_banco->ferma(), 60000);
    QVERIFY(dialoghi().finite());
    if (record) {
        QCOMPARE(m_banco->griglia("grTempi"), QStringList({"1/ROSSI BIANCHI/Partenza//09:00:00:00"}));
        QCOMPARE(m_banco->trova<QTableView>("grScartati")->model()->rowCount(), dati.size() / 31 - 1);
    }
    QVERIFY(m_banco->trova("cmdIniziaRicezione")->isEnabled());
}

PROVA_FINESTRE(tst_GuastiOFFLINE)
#include "tst_GuastiOFFLINE.moc"

#include "BancoScarico.h"
#include "supporto/ProvaFinestre.h"

#include <random>

// What goes wrong on the line of a download: each time the operator reads why, the window can be used again
// and what the archive holds is untouched.
class tst_GuastiOFFLINE final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void portaChiusa_data();
    void portaChiusa();
    void interrotta_data();
    void interrotta();
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

constexpr qsizetype Megabyte = 1 << 20;
const QString AttesaDati = "ATTESA DATI\nDA TAG CP 520";
const QString AttesaRisposta = "ATTESA RISPOSTA\nDA TAG CP540";
const QString Collegata = "Collegamento Stabilito\nCon TAG CP540\nNumero di Serie : 04711";
const QString Ricezione = "RICEZIONE\nIN CORSO";

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
    for (const Dispositivo dispositivo : {Dispositivo::CP520, Dispositivo::CP540}) {
        QTest::addRow("missing, %d", int(dispositivo)) << dispositivo << false;
        QTest::addRow("in use, %d", int(dispositivo)) << dispositivo << true;
    }
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
    QTest::newRow("no answer to the identity") << cp540 << AttesaRisposta << "no answer";
    QTest::newRow("no answer to the heat") << cp540 << Collegata << "no answer";
    // What never ends, for no watchdog runs any more: only the operator stops it.
    QTest::newRow("silent after AK C") << cp540 << "silent"
                                       << "stop";
    QTest::newRow("end of another heat") << cp540 << "other heat"
                                         << "stop";
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
    } else {
        portaA(stato);
    }
    if (come == "stop") {
        m_banco->premi("cmdArrestaRicezione");
    } else if (come == "close") {
        QTest::keyClick(&m_banco->finestra, Qt::Key_Escape);
        QVERIFY(!m_banco->finestra.isVisible());
        QCOMPARE(m_gara->programma.impostazioni.valori.value("com/offline"), "2");
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
    } else {
        dialoghi().attendiMessaggio("Errore", {});
        m_gara->linea.stacca();
        QTRY_VERIFY(m_banco->ferma());
        QVERIFY(dialoghi().viste().last().testo.endsWith(" - Porta Scollegata"));
        m_gara->linea.attacca();
    }
    QVERIFY(dialoghi().finite());
    QCOMPARE(contaRighe("TempRil"), 0);
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
    QTest::addColumn<QByteArray>("dati");
    QTest::addColumn<int>("validi");
    const QByteArray righe = SimulatoreTag::rigaMemoria(Dispositivo::CP520, 1, QTime(9, 0)) +
                             SimulatoreTag::rigaMemoria(Dispositivo::CP520, 8, QTime(9, 1));
    QByteArray rumore(Megabyte, '\0');
    std::mt19937 caso(1);
    for (char& c : rumore)
        c = static_cast<char>(caso() & 0xFF);
    QTest::newRow("noise") << rumore << 0;
    QTest::newRow("records") << righe.repeated(Megabyte / righe.size()) << 1;
    const QByteArray altri = SimulatoreTag::rigaMemoria(Dispositivo::CP540, 1, QTime(9, 0));
    QTest::newRow("another device") << altri.repeated(40) << 0;
}

// A megabyte at once: the first times of each crew are kept.
void tst_GuastiOFFLINE::raffica() {
    QFETCH(QByteArray, dati);
    QFETCH(int, validi);
    avvia(Dispositivo::CP520);
    AtteseLinea.silenzioCP520 = 500;
    attendiFine(validi);
    m_banco->premi("cmdIniziaRicezione");
    m_tag->invia(dati);
    QTRY_VERIFY_WITH_TIMEOUT(m_banco->ferma(), 60000);
    QVERIFY(dialoghi().finite());
    QCOMPARE(contaRighe("TempRil"), validi);
    if (validi > 0) {
        QCOMPARE(m_banco->griglia("grTempi"), QStringList({"1/ROSSI BIANCHI/Partenza//09:00:00:00"}));
        QCOMPARE(m_banco->trova<QTableView>("grScartati")->model()->rowCount(), dati.size() / 31 - 1);
    }
}

PROVA_FINESTRE(tst_GuastiOFFLINE)
#include "tst_GuastiOFFLINE.moc"

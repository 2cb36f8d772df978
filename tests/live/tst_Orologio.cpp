#include "BancoOnLine.h"
#include "live/frmOrologio.h"
#include "supporto/ProvaFinestre.h"

#include <QGroupBox>

// The scoreboard clock, with a chronometer on port 1 and a scoreboard on port 2.
class tst_Orologio final : public ProvaConProgramma {
    Q_OBJECT

public:
    tst_Orologio() : ProvaConProgramma(Archivio::Nessuno) {}

private Q_SLOTS:
    void inAttesaEInMoto();
    void rifiuti();
    void nuovaSincronizzazione();
    void unaLinea();
    void impostazioni();
    void staccato();

private:
    void prepara() override;
    void chiudi() override;
    [[nodiscard]] QAbstractButton* opzione(const QString& nome) const {
        return controllo<QAbstractButton>(*m_finestra, nome);
    }
    void premi(const char* nome) const { opzione(nome)->click(); }
    [[nodiscard]] QString orario() const { return contenuto(*m_finestra, "lblOrario"); }
    [[nodiscard]] bool inAttesa() const {
        return m_finestra->findChild<QGroupBox*>("frmAttesaSynchro")->isVisible();
    }
    void scegli(int formato);
    void attendi();                      // begins to wait for the chronometer
    void sincronizza(const char* riga);  // the chronometer sends a line with that time

    std::unique_ptr<BancoOnLine> m_banco;
    std::unique_ptr<frmOrologio> m_finestra;
};

void tst_Orologio::prepara() {
    m_banco = std::make_unique<BancoOnLine>();
    m_finestra = std::make_unique<frmOrologio>();
    m_finestra->show();
}

void tst_Orologio::chiudi() {
    m_finestra.reset();
    m_banco.reset();
}

void tst_Orologio::scegli(int formato) {
    for (const QString& nome : {QString("optCOMTAG_1"), QString("optCOMTAB_2")})
        opzione(nome)->click();
    opzione(QString("optFormato_%1").arg(formato))->click();
}

void tst_Orologio::attendi() {
    premi("cmdSynchro");
    QVERIFY(inAttesa());
    QTRY_VERIFY(m_banco->linea.aperto());
}

void tst_Orologio::sincronizza(const char* ora) {
    attendi();
    m_banco->tag.invia(QByteArray("A").leftJustified(15) + ora + "   \r");
    QTRY_VERIFY(!inAttesa());
}

// The wait, the line that ends it whatever its mark and however it comes, the clock, the end.
void tst_Orologio::inAttesaEInMoto() {
    scegli(3);
    QVERIFY(!inAttesa());
    attendi();
    confronta(*m_finestra, "lblAttesa=Attesa Sincronizzazione con TAG CP 520");
    QCOMPARE(m_banco->linea.formato(), "9600 8N1");
    QCOMPARE(m_banco->lineaTabellone.formato(), "19200 8N1");
    m_banco->tag.spezza(5, 1);
    m_banco->tag.invia(QByteArray("Z").leftJustified(15) + "12:34:56.78   \rT12");
    QTRY_VERIFY(!inAttesa());
    QTRY_VERIFY(!m_banco->linea.aperto());

    QTRY_VERIFY(m_banco->tabellone.mostrati().size() > 50);
    QVERIFY(orario() > "34:56:78");
    QVERIFY(m_banco->tabellone.mostrati().first().startsWith("34 "));
    QStringList ordinati = m_banco->tabellone.mostrati();
    std::sort(ordinati.begin(), ordinati.end());
    QCOMPARE(m_banco->tabellone.mostrati(), ordinati);
    // What is on the board is what is in the window.
    QTRY_COMPARE(m_banco->tabellone.mostra(), SimulatoreTabellone::comeAppare(orario()));
    opzione("optFormato_2")->click();
    QTRY_VERIFY(orario().startsWith("2:3"));

    premi("cmdEsci");
    QVERIFY(!m_finestra->isVisible());
    QTRY_COMPARE(m_banco->tabellone.mostra(), "      ");
    QTRY_VERIFY(!m_banco->lineaTabellone.aperto());
    QCOMPARE(m_banco->tabellone.frameErrati(), 0);
}

void tst_Orologio::rifiuti() {
    const QString avvio = "Impossibile Avviare la Sincronizzazione";
    const QString mancano = "Specificare le Porte di Comunicazione\ndel Tabellone e del Cronometro TAG";
    for (const char* porta : {"", "optCOMTAG_1"}) {
        if (*porta)
            opzione(porta)->click();
        dialoghi().attendiMessaggio(avvio, mancano);
        premi("cmdSynchro");
        QVERIFY(dialoghi().finite() && !inAttesa());
        QTRY_VERIFY(!m_banco->linea.aperto() && !m_banco->lineaTabellone.aperto());
    }
}

// The clock goes on while it waits for a new time; of a wait that was given up nothing is left.
void tst_Orologio::nuovaSincronizzazione() {
    scegli(3);
    attendi();
    m_banco->tag.invia("half a line");
    premi("cmdAnnulla");
    QTRY_VERIFY(!m_banco->linea.aperto() && !m_banco->lineaTabellone.aperto());
    sincronizza("12:34:56.78");
    QTRY_VERIFY(orario().startsWith("34:5"));
    attendi();
    const QString prima = orario();
    QTRY_VERIFY(orario() > prima);
    premi("cmdAnnulla");
    const QString dopo = orario();
    QTRY_VERIFY(orario() > dopo);
    sincronizza("23:00:00.00");
    QTRY_VERIFY(orario().startsWith("00:0"));
}

// One number for both: the line is the chronometer's until its record has come, then the scoreboard's.
void tst_Orologio::unaLinea() {
    const SimulatoreTabellone tabellone(m_banco->linea);
    scegli(3);
    opzione("optCOMTAB_1")->click();
    for (const char* ora : {"12:34:56.78", "23:00:00.00"}) {
        attendi();
        QCOMPARE(m_banco->linea.formato(), "9600 8N1");
        premi("cmdAnnulla");  // a clock that ran has its scoreboard back
        sincronizza(ora);
        QTRY_COMPARE(m_banco->linea.formato(), "19200 8N1");
        QTRY_VERIFY(tabellone.mostra().startsWith(QByteArray(ora).mid(3, 2) + ' '));
    }
    attendi();
    premi("cmdAnnulla");
    QTRY_COMPARE(m_banco->linea.formato(), "19200 8N1");
    const qsizetype mostrati = tabellone.mostrati().size();
    QTRY_VERIFY(tabellone.mostrati().size() > mostrati + 5);
    QCOMPARE(tabellone.frameErrati(), 0);
}

// Closed while it waits: nothing stays open, and the choices are there the next time.
void tst_Orologio::impostazioni() {
    scegli(2);
    attendi();
    m_finestra->close();
    QTRY_VERIFY(!m_banco->linea.aperto() && !m_banco->lineaTabellone.aperto());
    QTRY_COMPARE(m_banco->tabellone.mostrati(), QStringList("      "));
    auto& valori = m_programma->impostazioni.valori;
    m_finestra = std::make_unique<frmOrologio>();
    for (const char* scelta : {"optCOMTAB_2", "optCOMTAG_1", "optFormato_2"})
        QVERIFY(opzione(scelta)->isChecked());
    QCOMPARE(valori.value("com/TABOrologio") + valori.value("com/TAGOrologio"), "21");
    valori = {{"com/TABOrologio", "9"}, {"Formato/FormatoOrologio", "?"}};
    m_finestra = std::make_unique<frmOrologio>();
    QVERIFY(opzione("optFormato_1")->isChecked());
    QVERIFY(!opzione("optCOMTAG_1")->isChecked());
}

// The scoreboard, waiting and running, then the chronometer.
void tst_Orologio::staccato() {
    for (const auto& [tabellone, inMoto] : {std::pair(true, false), {true, true}, {false, false}}) {
        ricomincia();
        scegli(3);
        inMoto ? sincronizza("12:34:56.78") : attendi();
        if (inMoto)
            QTRY_VERIFY(m_banco->tabellone.mostrati().size() > 5);
        PseudoTerminale& linea = tabellone ? m_banco->lineaTabellone : m_banco->linea;
        dialoghi().attendiMessaggio("Errore", QString());
        linea.stacca();
        QTRY_COMPARE(dialoghi().viste().size(), 1);
        QVERIFY(!inAttesa());
        QVERIFY(dialoghi().viste().last().testo.endsWith(" - Porta Scollegata"));
        // Stopped, and ready to begin again.
        const QString ferma = orario();
        QVERIFY(!QTest::qWaitFor([&] { return orario() != ferma; }, 50));
        linea.attacca();
        sincronizza("12:34:56.78");
        QTRY_VERIFY(orario() != ferma);
    }
}

PROVA_FINESTRE(tst_Orologio)
#include "tst_Orologio.moc"

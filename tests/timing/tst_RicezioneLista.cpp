#include "BancoScarico.h"
#include "correction/ElencoOrari.h"
#include "correction/frmGestioneOrariDiPartenza.h"
#include "correction/frmRipartenza.h"
#include "supporto/ProvaFinestre.h"
#include "timing/frmRicezioneLista.h"

// Start times taken from the chronometer, through the windows that open the reception.
class tst_RicezioneLista final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_gara = std::make_unique<Gara>(); }
    void cleanup() { m_gara.reset(); }
    void orariDiPartenza_data();
    void orariDiPartenza();
    void ripartenza();
    void fermata();

private:
    DialoghiDiProva& dialoghi() { return m_gara->programma.dialoghi; }
    // Presses `cmdRicezione`; `dentro` works in the reception window, which is closed after it.
    void ricevi(QWidget& finestra, const std::function<void(frmRicezioneLista&)>& dentro);
    void attendiFine() {
        dialoghi().attendiMessaggio("Ricezione OK", "Ricezione Terminata", Icona::Informazione);
    }
    static QStringList elenco(const QWidget& finestra);

    std::unique_ptr<Gara> m_gara;
};

void tst_RicezioneLista::ricevi(QWidget& finestra, const std::function<void(frmRicezioneLista&)>& dentro) {
    bool aperta = false;
    QTimer::singleShot(0, &finestra, [&] {
        auto* lista = qobject_cast<frmRicezioneLista*>(QApplication::activeModalWidget());
        aperta = lista != nullptr;
        if (!lista)
            return;
        dentro(*lista);
        QTest::mouseClick(lista->findChild<QPushButton*>("cmdEsci"), Qt::LeftButton);
    });
    QTest::mouseClick(finestra.findChild<QPushButton*>("cmdRicezione"), Qt::LeftButton);
    QVERIFY(aperta);
    QVERIFY(dialoghi().finite());
    QVERIFY(!m_gara->linea.aperto());
}

QStringList tst_RicezioneLista::elenco(const QWidget& finestra) {
    QStringList righe;
    for (const OrarioPartenza& orario : finestra.findChild<ElencoOrari*>("lstOrari")->orari())
        righe << QString("%1 %2 %3").arg(orario.num).arg(orario.ora).arg(orario.idEqu);
    return righe;
}

void tst_RicezioneLista::orariDiPartenza_data() {
    QTest::addColumn<Dispositivo>("dispositivo");
    QTest::newRow("CP520") << Dispositivo::CP520;
    QTest::newRow("CP540") << Dispositivo::CP540;
}

// In the order of arrival, a crew as often as it was timed; what the list held before is gone.
void tst_RicezioneLista::orariDiPartenza() {
    QFETCH(Dispositivo, dispositivo);
    esegui("UPDATE Manifestazioni SET PreCO='SEC'");
    SimulatoreTag tag(dispositivo, m_gara->linea);
    for (const auto& [numero, ora] : {std::pair{7, QTime(10, 0, 5, 870)},
                                      {0, QTime(10, 1)},
                                      {2, QTime(10, 1, 7, 990)},
                                      {33, QTime(10, 2)},
                                      {7, QTime(10, 3, 8)}})
        tag.registra(numero, ora);
    tag.spezza(5, 1);
    frmGestioneOrariDiPartenza finestra;
    finestra.show();
    finestra.findChild<ElencoOrari*>("lstOrari")->mostra({{1, "08:00:00.00", m_gara->equipaggi[0]}});
    ricevi(finestra, [&](frmRicezioneLista& lista) {
        const StatiMostrati mostrati(lista.findChild<QLabel*>("lblStatus"));
        const bool cp520 = dispositivo == Dispositivo::CP520;
        auto* inizia = lista.findChild<QPushButton*>("cmdIniziaRicezione");
        lista.findChild<QComboBox*>("cboPortaCOM")->setCurrentText("COM 2");
        lista.findChild<QComboBox*>("cboChrono")->setCurrentText(nomeDispositivo(dispositivo));
        if (!cp520)
            dialoghi().attendiChiedi("Inserimento Numero della Manche da Scaricare",
                                     "Numero della Manche da Scaricare", "1");
        attendiFine();
        QTest::mouseClick(inizia, Qt::LeftButton);
        if (cp520)
            tag.trasmetti();
        QTRY_VERIFY(inizia->isEnabled());
        QStringList attesi{cp520 ? "ATTESA DATI\nDA TAG CP 520" : "ATTESA RISPOSTA\nDA TAG CP540"};
        if (!cp520)
            attesi << "Collegamento Stabilito\nCon TAG CP540\nNumero di Serie : 04711";
        attesi << "RICEZIONE\nIN CORSO"
               << "ELABORAZIONE\nIN CORSO"
               << "ELABORAZIONE\nTERMINATA";
        QCOMPARE(mostrati.stati, attesi);
    });
    const auto chiave = [this](int indice) { return QString::number(m_gara->equipaggi[indice]); };
    // The third crew is not ASI: minutes.
    QCOMPARE(elenco(finestra), QStringList({"7 10:00:00:00 " + chiave(2), "2 10:01:07:00 " + chiave(1),
                                            "7 10:03:00:00 " + chiave(2)}));
    const auto& valori = m_gara->programma.impostazioni.valori;
    QCOMPARE(valori.value("com/lista"), "2");
    QCOMPARE(valori.value("chrono/lista"), QString::number(static_cast<int>(dispositivo)));
    QVERIFY(!valori.contains("com/offline"));
    QVERIFY(!valori.contains("chrono/offline"));
    QCOMPARE(Gara::rilevamentiScritti(), 0);

    dialoghi().attendiAvviso("Orari di Partenza Salvati");
    QTest::mouseClick(finestra.findChild<QPushButton*>("cmdSalva"), Qt::LeftButton);
    QVERIFY(dialoghi().finite());
    QCOMPARE(Gara::rilevamento(m_gara->equipaggi[2], m_gara->co1), "10:03:00:00|");
    QCOMPARE(Gara::rilevamento(m_gara->equipaggi[1], m_gara->co1), "10:01:07:00|");
    QCOMPARE(Gara::rilevamentiScritti(), 2);
}

void tst_RicezioneLista::ripartenza() {
    SimulatoreTag tag(Dispositivo::CP520, m_gara->linea);
    tag.registra(1, QTime(15, 20, 30));
    m_gara->programma.impostazioni.valori = {{"com/lista", "2"}, {"chrono/lista", "0"}};
    frmRipartenza finestra;
    finestra.show();
    ricevi(finestra, [&](frmRicezioneLista& lista) {
        attendiFine();
        auto* inizia = lista.findChild<QPushButton*>("cmdIniziaRicezione");
        QTest::mouseClick(inizia, Qt::LeftButton);
        tag.trasmetti();
        QTRY_VERIFY(inizia->isEnabled());
    });
    QCOMPARE(elenco(finestra), QStringList("1 15:20:00:00 " + QString::number(m_gara->equipaggi[0])));
    dialoghi().attendiDomanda("Conferma Uscita", "Uscire Senza Salvare ?", true);
    finestra.close();
    QVERIFY(dialoghi().finite());
}

// A download that does not come to its end leaves the list as it was.
void tst_RicezioneLista::fermata() {
    AtteseLinea.silenzioCP520 = 60000;
    SimulatoreTag tag(Dispositivo::CP520, m_gara->linea);
    frmGestioneOrariDiPartenza finestra;
    finestra.show();
    finestra.findChild<ElencoOrari*>("lstOrari")->mostra({{1, "08:00:00.00", m_gara->equipaggi[0]}});
    ricevi(finestra, [&](frmRicezioneLista& lista) {
        const auto premi = [&](const char* nome) {
            QTest::mouseClick(lista.findChild<QPushButton*>(nome), Qt::LeftButton);
        };
        lista.findChild<QComboBox*>("cboPortaCOM")->setCurrentText("COM 2");
        premi("cmdIniziaRicezione");
        tag.invia("T  ");
        QTRY_COMPARE(lista.findChild<QLabel*>("lblStatus")->text(), "RICEZIONE\nIN CORSO");
        premi("cmdArrestaRicezione");
        m_gara->linea.stacca();
        dialoghi().attendiMessaggio("Errore", {});
        premi("cmdIniziaRicezione");
        QVERIFY(lista.findChild<QPushButton*>("cmdIniziaRicezione")->isEnabled());
        m_gara->linea.attacca();
        premi("cmdIniziaRicezione");
        QVERIFY(m_gara->linea.aperto());
    });
    QCOMPARE(elenco(finestra).size(), 1);
}

PROVA_FINESTRE(tst_RicezioneLista)
#include "tst_RicezioneLista.moc"

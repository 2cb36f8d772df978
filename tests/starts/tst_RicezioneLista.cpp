#include "download/frmRicezioneLista.h"
#include "starts/ElencoOrari.h"
#include "starts/frmGestioneOrariDiPartenza.h"
#include "starts/frmRipartenza.h"
#include "supporto/BancoScarico.h"

// Start times taken from the chronometer, through the windows that open the reception.
class tst_RicezioneLista final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void scarico();

private:
    void prepara() override { m_gara = std::make_unique<Gara>(); }
    void chiudi() override { m_gara.reset(); }
    // Presses `cmdRicezione`; `dentro` works in the reception window, which is closed after it.
    void ricevi(QWidget& finestra, const std::function<void(frmRicezioneLista&)>& dentro);

    std::unique_ptr<Gara> m_gara;
};

namespace {

QStringList elenco(const QWidget& finestra) {
    QStringList righe;
    for (const OrarioPartenza& orario : finestra.findChild<ElencoOrari*>("lstOrari")->orari())
        righe << QString("%1 %2 %3").arg(orario.num).arg(orario.ora).arg(orario.idEqu);
    return righe;
}

}  // namespace

void tst_RicezioneLista::ricevi(QWidget& finestra, const std::function<void(frmRicezioneLista&)>& dentro) {
    finestra.show();
    finestra.findChild<ElencoOrari*>("lstOrari")->mostra({{1, "08:00:00.00", m_gara->equipaggi[0]}});
    inModale<frmRicezioneLista>([&] { premi(finestra, "cmdRicezione"); },
                                [&](frmRicezioneLista& lista) {
                                    compila(lista, "cboPortaCOM=COM 2");
                                    dentro(lista);
                                    premi(lista, "cmdEsci");
                                });
    QVERIFY(!m_gara->linea.aperto());
}

// In the order of arrival, a crew as often as it was timed; what the list held before is gone.
void tst_RicezioneLista::scarico() {
    for (const auto& [dispositivo, ripartenza] :
         {std::pair(Dispositivo::CP520, false), {Dispositivo::CP540, false}, {Dispositivo::CP520, true}}) {
        ricomincia();
        const bool cp520 = dispositivo == Dispositivo::CP520;
        esegui("UPDATE Manifestazioni SET PreCO='SEC'");
        SimulatoreTag tag(dispositivo, m_gara->linea);
        for (const auto& [numero, ora] : {std::pair{7, QTime(10, 0, 5, 870)},
                                          {0, QTime(10, 1)},
                                          {2, QTime(10, 1, 7, 990)},
                                          {33, QTime(10, 2)},
                                          {7, QTime(10, 3, 8)}})
            tag.registra(numero, ora);
        tag.spezza(5, 1);
        std::unique_ptr<QDialog> finestra;
        if (ripartenza)
            finestra = std::make_unique<frmRipartenza>();
        else
            finestra = std::make_unique<frmGestioneOrariDiPartenza>();
        ricevi(*finestra, [&](frmRicezioneLista& lista) {
            auto* inizia = controllo<QPushButton>(lista, "cmdIniziaRicezione");
            compila(lista, "cboChrono=" + nomeDispositivo(dispositivo));
            if (!cp520)
                dialoghi().attendiChiedi("Inserimento Numero della Manche da Scaricare",
                                         "Numero della Manche da Scaricare", "1");
            dialoghi().attendiMessaggio("Ricezione OK", "Ricezione Terminata", Icona::Informazione);
            premi(lista, "cmdIniziaRicezione");
            if (cp520)
                tag.trasmetti();
            QTRY_VERIFY(inizia->isEnabled());
            confronta(lista, "lblStatus=ELABORAZIONE\nTERMINATA");
        });
        // The third crew is not ASI: minutes.
        QCOMPARE(elenco(*finestra), QStringList({QString("7 10:00:00:00 %1").arg(m_gara->equipaggi[2]),
                                                 QString("2 10:01:07:00 %1").arg(m_gara->equipaggi[1]),
                                                 QString("7 10:03:00:00 %1").arg(m_gara->equipaggi[2])}));
        const auto& valori = m_programma->impostazioni.valori;
        QCOMPARE(valori.value("com/lista"), "2");
        QCOMPARE(valori.value("chrono/lista"), QString::number(static_cast<int>(dispositivo)));
        QVERIFY(!valori.contains("com/offline") && !valori.contains("chrono/offline"));
        QCOMPARE(Gara::rilevamentiScritti(), 0);
        if (ripartenza) {
            dialoghi().attendiDomanda("Conferma Uscita", "Uscire Senza Salvare ?", true);
            finestra->close();
        } else {
            dialoghi().attendiAvviso("Orari di Partenza Salvati");
            premi(*finestra, "cmdSalva");
            QCOMPARE(Gara::rilevamento(m_gara->equipaggi[2], m_gara->co1), "10:03:00:00|");
            QCOMPARE(Gara::rilevamentiScritti(), 2);
        }
    }
}

PROVA_FINESTRE(tst_RicezioneLista)
#include "tst_RicezioneLista.moc"

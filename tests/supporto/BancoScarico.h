#pragma once

#include "download/ElencoPressostati.h"
#include "download/frmRicezioneOFFLINE.h"
#include "simulatori/SimulatoreTag.h"
#include "supporto/ProvaFinestre.h"

#include <QCheckBox>
#include <QLabel>
#include <QTableView>

// An event for the downloads: four tests, three crews (the last one is not ASI), and a chronometer on port 2.
//
// Rows of the switches: 0 CO1 arrival, 1 PA1 start, 2 PA1 arrival and PA2 start, 3 PA2 arrival, 4 CO2
// arrival.
struct Gara {
    Gara() {
        AtteseLinea = {};
        AtteseLinea.silenzioCP520 = 40;
        AtteseLinea.rispostaCP540 = 2000;
        nuovaManifestazione({{"PrePA", "DEC"},
                             {"ASIeNONASI", 1},
                             {"PrePANoASI", "SEC"},
                             {"PrePMNoASI", "MIN"},
                             {"PreCONoASI", "MIN"}});
        co1 = nuovaProva({{"Tip", "CO"}, {"Nom", "Partenza"}, {"Svo", 0}});
        pa1 = nuovaProva({{"Nom", "Salita"}, {"Svo", 0}});
        pa2 = nuovaProva({{"Nom", "Discesa"}, {"ConA", pa1}, {"Svo", 0}});
        co2 = nuovaProva({{"Tip", "CO"}, {"Nom", "Arrivo"}, {"ConA", co1}, {"Svo", 0}});
        for (const int num : {1, 2})
            equipaggi << nuovoEquipaggio(num);
        equipaggi << nuovoEquipaggio(7, {{"Omo", ""}, {"Cog", "AGOSTI"}});
    }
    ~Gara() { AtteseLinea = {}; }
    Q_DISABLE_COPY_MOVE(Gara)

    int co1 = 0, pa1 = 0, pa2 = 0, co2 = 0;
    QList<int> equipaggi;
    PseudoTerminale linea{PercorsoApp, 2};

    // "TPar|TArr" of a reading.
    static QString rilevamento(int idEqu, int idPro) {
        return leggiValore(
                   "SELECT coalesce(TPar,'')||'|'||coalesce(TArr,'') FROM Rilevamenti "
                   "WHERE IDEqu_FK=? AND IDPro_FK=?",
                   {idEqu, idPro})
            ->toString();
    }
    static int rilevamentiScritti() { return contaRighe("Rilevamenti", "TPar<>'' OR TArr<>''"); }
};

// What `lblStatus` has shown, in order, as it was painted.
class StatiMostrati final : public QObject {
public:
    explicit StatiMostrati(QLabel* etichetta) : m_etichetta(etichetta) {
        etichetta->installEventFilter(this);
    }
    bool eventFilter(QObject* /*oggetto*/, QEvent* evento) override {
        const QString testo = m_etichetta->text();
        if (evento->type() == QEvent::Paint && (stati.isEmpty() || stati.last() != testo))
            stati << testo;
        return false;
    }
    QStringList stati;

private:
    QLabel* m_etichetta;
};

// A download window and what a test does with its controls.
template <typename Finestra>
class BancoScarico final {
public:
    // With the chronometer's port chosen, unless it shall be the one of the settings.
    explicit BancoScarico(const QString& porta = "COM 2") {
        finestra.show();
        if (!porta.isEmpty())
            trova<QComboBox>("cboPortaCOM")->setCurrentText(porta);
    }

    template <typename Controllo = QWidget>
    Controllo* trova(const char* nome) {
        return controllo<Controllo>(finestra, nome);
    }
    void premi(const char* nome) { ::premi(finestra, nome); }
    void dispositivo(Dispositivo quale) {
        trova<QComboBox>("cboChrono")->setCurrentIndex(static_cast<int>(quale));
    }
    void spunta(const QList<int>& righe) {
        auto* lista = trova<ElencoPressostati>("lstPre");
        for (int i = 0; i < lista->topLevelItemCount(); ++i)
            lista->topLevelItem(i)->setCheckState(0, righe.contains(i) ? Qt::Checked : Qt::Unchecked);
    }
    QString stato() {
        return trova("frmStatus")->isVisible() ? trova<QLabel>("lblStatus")->text() : QString();
    }
    bool ferma() { return trova("cmdIniziaRicezione")->isEnabled(); }
    QStringList griglia(const char* nome) { return righe(finestra, nome); }

    Finestra finestra;
};

using BancoOFFLINE = BancoScarico<frmRicezioneOFFLINE>;

#pragma once

#include "download/FinestraScarico.h"
#include "download/ModelliScarico.h"

#include <optional>

class ElencoPressostati;
class QCheckBox;
class QTableView;

// A download that becomes readings: the switches, the received and the discarded times, saving. Nothing
// reaches the readings before it is saved.
class FinestraPressostati : public FinestraScarico {
    Q_OBJECT

public:
    Q_DISABLE_COPY_MOVE(FinestraPressostati)
    ~FinestraPressostati() override = default;

protected:
    struct ControlliPressostati {
        ElencoPressostati* lstPre;
        QCheckBox* chkNumero;
        QTableView* grTempi;
        QTableView* grScartati;
        QPushButton* cmdSalva;
        QPushButton* cmdEsci;
    };

    FinestraPressostati(Azzera azzera, QWidget* padre);
    void collega(const Controlli& controlli, const ControlliPressostati& pressostati);

    // Lines of the panel and of the box at the end of a download.
    [[nodiscard]] virtual QStringList riepilogo(const EsitoAssegnazione& esito) const;
    [[nodiscard]] QList<Pressostato> scelti() const;
    [[nodiscard]] bool soloPrimoPressostato() const;
    // What has been received is in the archive: shows it, and what was discarded, and tells the end.
    void mostraRicevuti(const EsitoAssegnazione& esito);

    bool prepara() override;
    void elabora(Dispositivo dispositivo, const QByteArray& flusso) override;
    [[nodiscard]] QWidget* prossimoControllo() const override;
    void scriviImpostazioni() const override;
    bool puoChiudere() override;  // times that were not saved are dropped, once the operator knows

private:
    void preparaGriglie();
    void mostraTempi(std::optional<int> ordine = {});  // by that column
    void salva();
    void esci();

    Azzera m_azzera;
    ControlliPressostati m_pressostati{};
    ModelloTempRil m_tempi;
    ModelloScartati m_scartati;
    bool m_daSalvare = false;  // times were received and not yet saved
    bool m_rinuncia = false;   // the operator leaves them
};

#pragma once

#include "download/FinestraPressostati.h"

namespace Ui {
class frmRicezioneOFFLINE;
}

// Reads the memory of the chronometer for one or more switches into readings.
class frmRicezioneOFFLINE final : public FinestraPressostati {
    Q_OBJECT

public:
    explicit frmRicezioneOFFLINE(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmRicezioneOFFLINE)
    ~frmRicezioneOFFLINE() override;

    // The second processor, for the text of a TAG CP520 download: it keeps what the first one passes over,
    // and offers the window that corrects it. No control calls it.
    void elaboraConRicercaErrori(const QByteArray& flusso);

private:
    [[nodiscard]] QStringList riepilogo(const EsitoAssegnazione& esito) const override;

    std::unique_ptr<Ui::frmRicezioneOFFLINE> m_ui;
};

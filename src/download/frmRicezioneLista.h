#pragma once

#include "download/FinestraScarico.h"

namespace Ui {
class frmRicezioneLista;
}

// Reads the memory of the chronometer into the list of the window that opened it: crews and times of day, as
// they come.
class frmRicezioneLista final : public FinestraScarico {
    Q_OBJECT

public:
    // Takes the place of what the caller's list held, after each download.
    using Consegna = std::function<void(const QList<TempoInLista>& tempi)>;

    explicit frmRicezioneLista(Consegna consegna, QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmRicezioneLista)
    ~frmRicezioneLista() override;

private:
    void elabora(Dispositivo dispositivo, const QByteArray& flusso) override;
    [[nodiscard]] QWidget* prossimoControllo() const override;

    std::unique_ptr<Ui::frmRicezioneLista> m_ui;
    Consegna m_consegna;
};

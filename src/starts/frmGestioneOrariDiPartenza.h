#pragma once

#include "starts/FinestraOrari.h"

#include <memory>

namespace Ui {
class frmGestioneOrariDiPartenza;
}

// Start times of the event: written into every time control that is not chained.
class frmGestioneOrariDiPartenza final : public FinestraOrari {
    Q_OBJECT

public:
    explicit frmGestioneOrariDiPartenza(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmGestioneOrariDiPartenza)
    ~frmGestioneOrariDiPartenza() override;

private:
    [[nodiscard]] QString avvisoSalvato() const override;

    std::unique_ptr<Ui::frmGestioneOrariDiPartenza> m_ui;
};

#pragma once

#include "starts/FinestraOrari.h"

#include <memory>

namespace Ui {
class frmRipartenza;
}

// A restart after a stop: only the time controls from a chosen one on take the new start times.
class frmRipartenza final : public FinestraOrari {
    Q_OBJECT

public:
    explicit frmRipartenza(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmRipartenza)
    ~frmRipartenza() override;

private:
    bool verifica(const QString& titolo) override;
    [[nodiscard]] std::optional<int> daIDPro() const override;
    [[nodiscard]] QString avvisoSalvato() const override;

    std::unique_ptr<Ui::frmRipartenza> m_ui;
};

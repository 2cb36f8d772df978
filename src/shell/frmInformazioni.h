#pragma once

#include "common/Finestra.h"

#include <memory>

namespace Ui {
class frmInformazioni;
}

// About the program, with the way to the system's own information tool.
class frmInformazioni final : public Finestra {
    Q_OBJECT

public:
    explicit frmInformazioni(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmInformazioni)
    ~frmInformazioni() override;

private:
    void apriInformazioniSistema();

    std::unique_ptr<Ui::frmInformazioni> m_ui;
};

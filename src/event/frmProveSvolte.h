#pragma once

#include "event/FinestraModifica.h"

#include <memory>

namespace Ui {
class frmProveSvolte;
}

// Which tests of the active event have been run.
class frmProveSvolte final : public FinestraModifica {
    Q_OBJECT

public:
    explicit frmProveSvolte(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmProveSvolte)
    ~frmProveSvolte() override;

private:
    void carica();
    void salva();

    std::unique_ptr<Ui::frmProveSvolte> m_ui;
};

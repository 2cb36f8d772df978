#pragma once

#include "readings/FinestraRilevamenti.h"

#include <memory>

namespace Ui {
class frmPenalitaAggiuntive;
}

// Penalties added to a crew test by test, each with its reason.
class frmPenalitaAggiuntive final : public FinestraRilevamenti {
    Q_OBJECT

public:
    explicit frmPenalitaAggiuntive(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmPenalitaAggiuntive)
    ~frmPenalitaAggiuntive() override;

private:
    void stampa();

    std::unique_ptr<Ui::frmPenalitaAggiuntive> m_ui;
};

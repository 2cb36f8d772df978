#pragma once

#include "common/Campi.h"
#include "common/Finestra.h"

#include <memory>
#include <optional>

namespace Ui {
class frmUtilityPMI;
}

// Calculator over average speed, distance and time; it writes nothing.
class frmUtilityPMI final : public Finestra {
    Q_OBJECT

public:
    explicit frmUtilityPMI(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmUtilityPMI)
    ~frmUtilityPMI() override;

private:
    void mostra(QLineEdit* campo, const std::optional<QString>& risultato);

    std::unique_ptr<Ui::frmUtilityPMI> m_ui;
};

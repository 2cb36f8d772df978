#pragma once

#include "common/Campi.h"
#include "common/Finestra.h"

#include <memory>
#include <optional>
#include <QList>

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
    void rifiuta(const QLineEdit* campo);
    void scritto(QLineEdit* campo);

    std::unique_ptr<Ui::frmUtilityPMI> m_ui;
    QList<QLineEdit*> m_campi;  // the one typed longest ago first
};

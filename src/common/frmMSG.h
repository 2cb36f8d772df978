#pragma once

#include <chrono>
#include <memory>
#include <QDialog>

namespace Ui {
class frmMSG;
}

inline std::chrono::milliseconds DurataAvviso{2000};

// The notice after a finished operation: no buttons, closes itself at the first tick of its timer.
class frmMSG final : public QDialog {
    Q_OBJECT

public:
    explicit frmMSG(const QString& testo, QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmMSG)
    ~frmMSG() override;

private:
    std::unique_ptr<Ui::frmMSG> m_ui;
};

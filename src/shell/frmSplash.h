#pragma once

#include <functional>
#include <memory>
#include <QDialog>

namespace Ui {
class frmSplash;
}

// The first window: version, start, leave.
class frmSplash final : public QDialog {
    Q_OBJECT

public:
    // `apri` loads and shows the main window; the splash closes after it.
    explicit frmSplash(std::function<void()> apri);
    Q_DISABLE_COPY_MOVE(frmSplash)
    ~frmSplash() override;

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    std::unique_ptr<Ui::frmSplash> m_ui;
};

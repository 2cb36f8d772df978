#pragma once

#include "common/Finestra.h"

#include <memory>

namespace Ui {
class frmCorrezioneOffLine;
}

// One crew's readings corrected by hand, with the discarded times of a download in sight: those of its number
// and those without one.
class frmCorrezioneOffLine final : public Finestra {
    Q_OBJECT

public:
    explicit frmCorrezioneOffLine(int idEqu, QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmCorrezioneOffLine)
    ~frmCorrezioneOffLine() override;

protected:
    bool puoChiudere() override;

private:
    void mostraScartati(int num);

    std::unique_ptr<Ui::frmCorrezioneOffLine> m_ui;
};

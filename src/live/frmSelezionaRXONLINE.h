#pragma once

#include "common/Finestra.h"
#include "live/Catene.h"

#include <memory>

namespace Ui {
class frmSelezionaRXONLINE;
}

// Which skill test, or which chain of them, is timed on-line.
class frmSelezionaRXONLINE final : public Finestra {
    Q_OBJECT

public:
    explicit frmSelezionaRXONLINE(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmSelezionaRXONLINE)
    ~frmSelezionaRXONLINE() override;

private:
    void riempi();
    void seleziona();

    std::unique_ptr<Ui::frmSelezionaRXONLINE> m_ui;
    QList<Catena> m_catene;  // as the roots of the tree
};

#pragma once

#include "entries/ModuloEquipaggi.h"

#include <memory>

namespace Ui {
class frmModuloIscrizioni;
}

// The entry form with every column of a crew.
class frmModuloIscrizioni final : public ModuloEquipaggi {
    Q_OBJECT

public:
    explicit frmModuloIscrizioni(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmModuloIscrizioni)
    ~frmModuloIscrizioni() override;

private:
    std::unique_ptr<Ui::frmModuloIscrizioni> m_ui;
};

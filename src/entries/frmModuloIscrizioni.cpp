#include "entries/frmModuloIscrizioni.h"

#include "ui_frmModuloIscrizioni.h"

frmModuloIscrizioni::frmModuloIscrizioni(QWidget* padre)
    : ModuloEquipaggi(padre), m_ui(std::make_unique<Ui::frmModuloIscrizioni>()) {
    m_ui->setupUi(this);
    apri();
}

frmModuloIscrizioni::~frmModuloIscrizioni() = default;

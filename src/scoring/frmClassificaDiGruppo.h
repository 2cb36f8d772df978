#pragma once

#include "common/Finestra.h"

#include <memory>

namespace Ui {
class frmClassificaDiGruppo;
}

// Chooses the group of a group classification.
class frmClassificaDiGruppo final : public Finestra {
    Q_OBJECT

public:
    explicit frmClassificaDiGruppo(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmClassificaDiGruppo)
    ~frmClassificaDiGruppo() override;

    QString Data;  // the day, as typed; empty for the whole event. Set before the window is shown.

private:
    void riempi();
    void stampa();

    std::unique_ptr<Ui::frmClassificaDiGruppo> m_ui;
};

#pragma once

#include "common/Finestra.h"
#include "live/Catene.h"

#include <memory>

namespace Ui {
class frmClassificaDiProvaInTempoReale;
}

// The running order of a test or a chain while it is being timed.
class frmClassificaDiProvaInTempoReale final : public Finestra {
    Q_OBJECT

public:
    explicit frmClassificaDiProvaInTempoReale(const Catena& catena, QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmClassificaDiProvaInTempoReale)
    ~frmClassificaDiProvaInTempoReale() override;

private:
    void riempi(const Catena& catena);

    std::unique_ptr<Ui::frmClassificaDiProvaInTempoReale> m_ui;
};

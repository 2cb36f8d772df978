#pragma once

#include "event/NuovaManifestazione.h"
#include "event/PaginaGuidata.h"

#include <memory>

namespace Ui {
class frmNuovaManifestazione4;
}

// Creation, page 5: the recap and the save.
class frmNuovaManifestazione4 final : public PaginaGuidata {
    Q_OBJECT

public:
    explicit frmNuovaManifestazione4(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmNuovaManifestazione4)
    ~frmNuovaManifestazione4() override;

    void mostra(const NuovaManifestazione& nuova);

Q_SIGNALS:
    void salvata();

protected:
    void showEvent(QShowEvent* evento) override;

private:
    std::unique_ptr<Ui::frmNuovaManifestazione4> m_ui;
};

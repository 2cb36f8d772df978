#pragma once

#include "event/ControlliManifestazione.h"
#include "event/PaginaGuidata.h"

#include <memory>

namespace Ui {
class frmNuovaManifestazione;
}

// Creation, page 1: the settings.
class frmNuovaManifestazione final : public PaginaGuidata {
    Q_OBJECT

public:
    explicit frmNuovaManifestazione(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmNuovaManifestazione)
    ~frmNuovaManifestazione() override;

    [[nodiscard]] DatiManifestazione dati() const { return m_controlli->leggi(); }
    // The groups defined so far, against which automatic assignment is tested.
    void impostaGruppi(std::function<QList<Gruppo>()> gruppi) { m_gruppi = std::move(gruppi); }

private:
    void prosegui();

    std::unique_ptr<Ui::frmNuovaManifestazione> m_ui;
    std::function<QList<Gruppo>()> m_gruppi;
    ControlliManifestazione* m_controlli = nullptr;
};

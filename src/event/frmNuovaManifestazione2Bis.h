#pragma once

#include "event/CampiEvento.h"
#include "event/PaginaGuidata.h"

#include <memory>

namespace Ui {
class frmNuovaManifestazione2Bis;
}

// Creation, page 3: the teams.
class frmNuovaManifestazione2Bis final : public PaginaGuidata {
    Q_OBJECT

public:
    explicit frmNuovaManifestazione2Bis(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmNuovaManifestazione2Bis)
    ~frmNuovaManifestazione2Bis() override;

    [[nodiscard]] const QList<Squadra>& squadre() const { return m_squadre; }

private:
    void aggiungi();
    void modifica();
    void elimina();
    void carica();
    void aggiornaElenco();
    void azzera();

    std::unique_ptr<Ui::frmNuovaManifestazione2Bis> m_ui;
    QList<Squadra> m_squadre;
};

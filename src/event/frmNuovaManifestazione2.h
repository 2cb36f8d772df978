#pragma once

#include "event/CampiEvento.h"
#include "event/PaginaGuidata.h"

#include <memory>

namespace Ui {
class frmNuovaManifestazione2;
}

// Creation, page 2: the groups.
class frmNuovaManifestazione2 final : public PaginaGuidata {
    Q_OBJECT

public:
    explicit frmNuovaManifestazione2(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmNuovaManifestazione2)
    ~frmNuovaManifestazione2() override;

    [[nodiscard]] const QList<Gruppo>& gruppi() const { return m_gruppi; }
    void impostaAssegnazioneAutomatica(bool automatica) { m_assegnazioneAutomatica = automatica; }

private:
    void aggiungi();
    void modifica();
    void elimina();
    void carica();
    void azzera();
    void aggiornaElenco();

    std::unique_ptr<Ui::frmNuovaManifestazione2> m_ui;
    CampiGruppo* m_campi = nullptr;
    QList<Gruppo> m_gruppi;
    bool m_assegnazioneAutomatica = false;
};

#pragma once

#include "common/Finestra.h"

#include <memory>

namespace Ui {
class frmCambiaManifestazione;
}

// Chooses the active event.
class frmCambiaManifestazione final : public Finestra {
    Q_OBJECT

public:
    explicit frmCambiaManifestazione(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmCambiaManifestazione)
    ~frmCambiaManifestazione() override;

Q_SIGNALS:
    void manifestazioneAttivata(const QString& nom);

private:
    void seleziona();

    std::unique_ptr<Ui::frmCambiaManifestazione> m_ui;
};

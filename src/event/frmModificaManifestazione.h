#pragma once

#include "event/ControlliManifestazione.h"
#include "event/FinestraModifica.h"

#include <memory>

namespace Ui {
class frmModificaManifestazione;
}

// The active event: settings, saved by a button, and its groups, teams and tests, which their own windows
// write at once.
class frmModificaManifestazione final : public FinestraModifica {
    Q_OBJECT

public:
    explicit frmModificaManifestazione(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmModificaManifestazione)
    ~frmModificaManifestazione() override;

Q_SIGNALS:
    // Saved: the event's name as it is now.
    void manifestazioneModificata(const QString& nom);

protected:
    void attivata() override { aggiornaElenchi(); }

private:
    void aggiornaElenchi();
    void salva();
    template <typename Figlia>
    void apri(int chiave);

    std::unique_ptr<Ui::frmModificaManifestazione> m_ui;
    ControlliManifestazione* m_controlli = nullptr;
};

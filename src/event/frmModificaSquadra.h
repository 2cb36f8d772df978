#pragma once

#include "event/FinestraModifica.h"
#include "event/Gruppi.h"

#include <memory>

namespace Ui {
class frmModificaSquadra;
}

// Adds, changes or deletes a team of the active event; each action goes to the archive at once.
class frmModificaSquadra final : public FinestraModifica {
    Q_OBJECT

public:
    explicit frmModificaSquadra(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmModificaSquadra)
    ~frmModificaSquadra() override;

    void carica(int idSqu);  // without such a team: to add one

private:
    void aggiungi();
    void modifica();
    void elimina();
    void fatto(const QString& messaggio);
    [[nodiscard]] Squadra squadra() const;

    std::unique_ptr<Ui::frmModificaSquadra> m_ui;
};

#pragma once

#include "event/CampiEvento.h"
#include "event/FinestraModifica.h"

#include <memory>

namespace Ui {
class frmModificaGruppo;
}

// Adds, changes or deletes a group of the active event; each action goes to the archive at once.
class frmModificaGruppo final : public FinestraModifica {
    Q_OBJECT

public:
    explicit frmModificaGruppo(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmModificaGruppo)
    ~frmModificaGruppo() override;

    void carica(int idGru);  // without such a group: to add one

private:
    // The fields, when they pass the tests against the event's groups but the one of that key.
    std::optional<Gruppo> accettati(int chiave, Operazione operazione);
    void aggiungi();
    void modifica();
    void elimina();
    void sostituisci();
    void fatto(const QString& messaggio);
    [[nodiscard]] int chiave() const;

    std::unique_ptr<Ui::frmModificaGruppo> m_ui;
    CampiGruppo* m_campi = nullptr;
};

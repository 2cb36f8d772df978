#pragma once

#include "event/CampiEvento.h"
#include "event/FinestraModifica.h"

#include <memory>

namespace Ui {
class frmModificaProva;
}

// Adds, changes or deletes a test of the active event; each action goes to the archive at once.
class frmModificaProva final : public FinestraModifica {
    Q_OBJECT

public:
    explicit frmModificaProva(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmModificaProva)
    ~frmModificaProva() override;

    void carica(int idPro);  // without such a test: to add one

private:
    void aggiungi();
    void modifica();
    void elimina();
    void fatto(const QString& messaggio);
    [[nodiscard]] int chiave() const;

    std::unique_ptr<Ui::frmModificaProva> m_ui;
    CampiProva* m_campi = nullptr;
    QString m_nome;
};

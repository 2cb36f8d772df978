#pragma once

#include "common/Finestra.h"
#include "entries/RicercaAnagrafica.h"

#include <memory>

namespace Ui {
class frmRicercaAnagrafica;
}

// The search over all the crews ever entered. The chosen crew is left in the global IDEqu, 0 for none.
class frmRicercaAnagrafica final : public Finestra {
    Q_OBJECT

public:
    explicit frmRicercaAnagrafica(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmRicercaAnagrafica)
    ~frmRicercaAnagrafica() override;

private:
    void riempi();
    void seleziona();

    std::unique_ptr<Ui::frmRicercaAnagrafica> m_ui;
    QList<PersonaArchivio> m_persone;
};

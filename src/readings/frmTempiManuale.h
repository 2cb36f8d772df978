#pragma once

#include "readings/FinestraRilevamenti.h"
#include "readings/RicercaTempi.h"

#include <memory>
#include <QElapsedTimer>

namespace Ui {
class frmTempiManuale;
}

// Readings typed, corrected and deleted by hand, crew by crew, and the search for wrong and missing times.
class frmTempiManuale final : public FinestraRilevamenti {
    Q_OBJECT

public:
    explicit frmTempiManuale(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmTempiManuale)
    ~frmTempiManuale() override;

private:
    void premutoTempiMancanti();
    void cerca();
    void cercaAncora(int idEqu);  // after an edit: only its crew's findings can have changed
    void concludiRicerca(bool trovati);
    void mostraAvanzamento(FaseRicerca fase, int percento);
    void mostraAlbero(bool mostra);
    void vaiAlNodo(const QString& chiave);

    std::unique_ptr<Ui::frmTempiManuale> m_ui;
    bool m_alberoMostrato = false;
    QElapsedTimer m_ultimoAvanzamento;
};

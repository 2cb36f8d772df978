#pragma once

#include "common/Finestra.h"

// A page of the creation of an event. Whatever closes it ends the whole creation, so it asks first.
class PaginaGuidata : public Finestra {
    Q_OBJECT

public:
    explicit PaginaGuidata(QWidget* padre);
    Q_DISABLE_COPY_MOVE(PaginaGuidata)
    ~PaginaGuidata() override = default;

Q_SIGNALS:
    void avanti();
    void indietro();

protected:
    bool puoChiudere() override;
};

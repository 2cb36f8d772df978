#pragma once

#include "output/Anteprima.h"

#include <QList>

// Keeps what would have been shown; stands in for the preview while it lives.
class AnteprimaDiProva final : public Anteprima {
public:
    AnteprimaDiProva() { installa(this); }
    Q_DISABLE_COPY_MOVE(AnteprimaDiProva)
    ~AnteprimaDiProva() override { installa(nullptr); }

    void mostra(const Rapporto& rapporto) override { mostrati << rapporto; }

    QList<Rapporto> mostrati;
};

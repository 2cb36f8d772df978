#pragma once

#include "starts/OrariDiPartenza.h"

#include <QTreeWidget>

// `lstOrari`: start times to be saved, a row each: "Num.", "Orario", `IDEqu` (hidden).
class ElencoOrari final : public QTreeWidget {
    Q_OBJECT

public:
    enum Colonna { Numero, Ora, Chiave };

    explicit ElencoOrari(QWidget* padre = nullptr);

    void aggiungi(const OrarioPartenza& orario);
    void mostra(const std::vector<OrarioPartenza>& orari);  // in place of what was there
    [[nodiscard]] std::vector<OrarioPartenza> orari() const;
};

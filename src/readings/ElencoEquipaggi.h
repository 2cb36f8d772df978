#pragma once

#include "readings/Rilevamenti.h"

#include <QTreeWidget>

// The crews of the active event, by number: `IDEqu` (hidden), "Num.", "Equipaggio", "Veicolo", "ASI". Typing
// a number goes to its crew; plus and minus are left to the window.
class ElencoEquipaggi final : public QTreeWidget {
    Q_OBJECT

public:
    explicit ElencoEquipaggi(QWidget* padre = nullptr);

    void carica();           // and makes the first crew current
    void sposta(int passo);  // next or previous crew; stops at the ends
    bool vaiA(int idEqu);    // false when the crew is not in the list
    // Nothing when the list is empty.
    [[nodiscard]] std::optional<EquipaggioElenco> corrente() const;
    // "N. 7 - ROSSI-BIANCHI - LANCIA APRILIA"; empty without a crew.
    [[nodiscard]] QString etichetta() const;

Q_SIGNALS:
    void scelto();  // another crew is current

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    enum Colonna { Chiave, Numero, Equipaggio, Veicolo, ASI };
};

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
    // False when the crew is not in the list.
    bool vaiA(int idEqu);
    bool vaiAlNumero(int num);
    // Nothing when the list is empty.
    [[nodiscard]] std::optional<EquipaggioElenco> corrente() const;
    // "N. 7 - ROSSI-BIANCHI - LANCIA APRILIA"; empty without a crew.
    [[nodiscard]] QString etichetta() const;

Q_SIGNALS:
    // Another crew is current. If what answers throws, the one before is current again.
    void scelto();

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    enum Colonna { Chiave, Numero, Equipaggio, Veicolo, ASI };

    void annuncia(QTreeWidgetItem* prima);
    bool vaiDove(Colonna colonna, int valore);
};

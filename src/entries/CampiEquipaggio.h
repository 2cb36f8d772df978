#pragma once

#include "entries/Equipaggi.h"

class QWidget;

// The controls of an entry form, found by the names in the table of columns: a form works on the columns
// whose control it has.
class CampiEquipaggio final {
public:
    explicit CampiEquipaggio(QWidget* finestra);

    [[nodiscard]] SchedaEquipaggio leggi() const;
    // Columns that the sheet does not hold keep what they show.
    void mostra(const SchedaEquipaggio& scheda);
    void svuota();  // groups and teams to "Nessuno", no sex

    // Calls the action with each column and its control.
    template <typename Azione>
    void perOgnuno(Azione azione) const {
        for (const Campo& campo : m_campi)
            azione(*campo.colonna, campo.controllo);
    }

private:
    struct Campo {
        const ColonnaEquipaggio* colonna;
        QWidget* controllo;
    };
    QList<Campo> m_campi;
};

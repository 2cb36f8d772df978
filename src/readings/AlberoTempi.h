#pragma once

#include "readings/RicercaTempi.h"

#include <QTreeWidget>

// The findings of the search: crew, test, reading.
class AlberoTempi final : public QTreeWidget {
    Q_OBJECT

public:
    explicit AlberoTempi(QWidget* padre = nullptr);

    // Both keep the selected node, or the nearest of its parents that is still there.
    void mostra(const RisultatoRicerca& risultato);
    void sostituisci(int idEqu, const RisultatoRicerca& risultato);  // the nodes of one crew

Q_SIGNALS:
    void scelto(const QString& chiave);

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    [[nodiscard]] QString chiaveScelta() const;
    void ripristina(const QString& chiave);
};

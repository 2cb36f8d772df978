#pragma once

#include "readings/RicercaTempi.h"

#include <QTreeWidget>

// The findings of the search: crew, test, reading. A click, or Enter, chooses one; Esc leaves the tree.
class AlberoTempi final : public QTreeWidget {
    Q_OBJECT

public:
    explicit AlberoTempi(QWidget* padre = nullptr);

    // Both keep the selected node, or the nearest of its parents that is still there.
    void mostra(const RisultatoRicerca& risultato);
    void sostituisci(int idEqu, const RisultatoRicerca& risultato);  // the nodes of one crew

Q_SIGNALS:
    void scelto(const QString& chiave);
    void lasciato();

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;

private:
    [[nodiscard]] QString chiaveScelta() const;
    void ripristina(const QString& chiave);

    QString m_premuto;  // key of the node under the pressed button
};

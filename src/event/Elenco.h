#pragma once

#include <QTreeWidget>

// A list of rows to choose from, with the number of each row before it. A click on its empty part chooses
// nothing.
class Elenco final : public QTreeWidget {
    Q_OBJECT

public:
    struct Riga {
        QStringList celle;
        int chiave = 0;
    };

    explicit Elenco(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(Elenco)
    ~Elenco() override = default;

    // Replaces the rows; the chosen key stays chosen.
    void riempi(const QList<Riga>& righe);
    void adattaColonne();
    void scegli(int riga);  // -1 for none

    [[nodiscard]] int scelta() const;        // row, -1 for none
    [[nodiscard]] int chiaveScelta() const;  // 0 for none

Q_SIGNALS:
    void aperto();      // double click anywhere, or Enter
    void aggiunta();    // Ins: nothing is chosen any more
    void cancellata();  // Del

protected:
    void drawBranches(QPainter* pittore, const QRect& area, const QModelIndex& indice) const override;
    void resizeEvent(QResizeEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
};

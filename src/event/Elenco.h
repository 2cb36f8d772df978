#pragma once

#include <QTreeWidget>

// A list of rows to choose from, with the number of each row before it. Filled, it has a current row from
// which the arrows move, but nothing chosen: the first arrow, a click or a double click chooses. A click on
// its empty part chooses nothing.
class Elenco final : public QTreeWidget {
    Q_OBJECT
    // Enter goes on to the next control, as in the windows where it is a Tab; the space bar opens the row.
    Q_PROPERTY(bool invioAvanti READ invioAvanti WRITE setInvioAvanti)

public:
    struct Riga {
        QStringList celle;
        int chiave = 0;
    };

    explicit Elenco(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(Elenco)
    ~Elenco() override = default;

    [[nodiscard]] bool invioAvanti() const { return m_invioAvanti; }
    void setInvioAvanti(bool avanti) { m_invioAvanti = avanti; }

    // Replaces the rows; the current row stays, chosen or not as it was.
    void riempi(const QList<Riga>& righe);
    void adattaColonne();
    void scegli(int riga);  // -1 for none

    [[nodiscard]] int scelta() const;        // row, -1 for none
    [[nodiscard]] int chiaveScelta() const;  // 0 for none

Q_SIGNALS:
    void aperto();      // double click anywhere, or the key that opens
    void aggiunta();    // Ins: nothing is chosen any more
    void cancellata();  // Del

protected:
    void drawBranches(QPainter* pittore, const QRect& area, const QModelIndex& indice) const override;
    void resizeEvent(QResizeEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    [[nodiscard]] bool apriConSpazio() const;

    bool m_invioAvanti = false;
};

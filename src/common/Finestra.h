#pragma once

#include <QDialog>

// What every window shares: Enter as Tab in its fields and as a press on its buttons, focus colours,
// centring, F1 on its own help page, and one closing rule for the close box, Esc and the buttons.
class Finestra : public QDialog {
    Q_OBJECT

public:
    explicit Finestra(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(Finestra)
    ~Finestra() override = default;

    void reject() override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

protected:
    // Asked on every way of closing; false keeps the window.
    virtual bool puoChiudere() { return true; }

    // Type-ahead on a box from a column of the archive.
    void completaDa(class QLineEdit* campo, const QString& tabella, const QString& colonna);
    // To be called for controls made after the window was shown.
    void preparaCampi();

    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

private:
    bool m_centrata = false;
};

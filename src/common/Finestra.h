#pragma once

#include <functional>
#include <QDialog>

class TastiFinestra;

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
    // For a puoChiudere that stores what is still open: when that throws, the operator reads why and the
    // window stays; from the second attempt on he is asked, told what is not stored (`perduto`, in words),
    // and may leave without it. `salva` gives false when it has told a refusal itself.
    bool lasciaDopo(const std::function<bool()>& salva, const std::function<QString()>& perduto);

    // What the window reads anew whenever it becomes the active one. While it fails the operator is told
    // once, not at every activation: the box that tells it activates the window again when it closes.
    virtual void attivata() {}
    // Enter is Tab on the buttons as well: they are pressed with Space and Alt+letter.
    void invioComeTab();

    // Type-ahead on a box from a column of the archive.
    void completaDa(class QLineEdit* campo, const QString& tabella, const QString& colonna);
    // To be called for controls made after the window was shown.
    void preparaCampi();

    bool event(QEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

private:
    TastiFinestra* m_tasti;
    bool m_centrata = false;
    bool m_uscitaFallita = false;
    bool m_letturaFallita = false;
};

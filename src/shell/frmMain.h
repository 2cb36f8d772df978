#pragma once

#include <memory>
#include <QMainWindow>

namespace Ui {
class frmMain;
}
class QAction;
class QLabel;
struct VoceMenu;

// The main window, the only one that is not modal: the menu with its guards, and the panel of the active
// event, rebuilt on each activation. Making it opens the archive and brings it up to date; closing it closes
// the archive and makes the day's copy.
class frmMain final : public QMainWindow {
    Q_OBJECT

public:
    // Throws Errore when the archive cannot be opened or brought up to date.
    explicit frmMain(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmMain)
    ~frmMain() override;

    // The step of each activation; also run directly where the active event changes under the window.
    void attivazione();
    // The name over the panel, set where an event is made, changed, chosen or deleted.
    void scriviNome(const QString& nome);

protected:
    bool event(QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

private:
    void carica();
    void creaMenu();
    QAction* creaVoce(const VoceMenu& voce);
    void eseguiVoce(const VoceMenu& voce);
    void apriVoce(const VoceMenu& voce);
    bool aggiornaPannello();

    std::unique_ptr<Ui::frmMain> m_ui;
    QLabel* m_versione = nullptr;
    bool m_pannelloGuasto = false;
    bool m_uscita = false;
};

#pragma once

#include <memory>
#include <QDialog>

namespace Ui {
class frmAiuto;
}

// The help: pages of "vlm help.hlp" in the program folder, one per window.
class frmAiuto final : public QDialog {
    Q_OBJECT

public:
    explicit frmAiuto(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmAiuto)
    ~frmAiuto() override;

    // The page of the window of that name, or the index when it has none. Throws Errore when the help file is
    // missing.
    void mostraPagina(const QString& finestra);

private:
    std::unique_ptr<Ui::frmAiuto> m_ui;
};

// Makes the pages of the help file readable; set at start, tests set their own. An unreadable file is told on
// F1.
void impostaFileAiuto(const QString& percorso);

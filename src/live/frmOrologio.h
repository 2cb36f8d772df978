#pragma once

#include "common/Finestra.h"
#include "devices/Frame.h"
#include "devices/OrologioTabellone.h"
#include "devices/Porta.h"

#include <memory>
#include <QElapsedTimer>
#include <QTimer>

class QButtonGroup;

namespace Ui {
class frmOrologio;
}

// A running clock on the scoreboard, set by the first line that the chronometer sends.
class frmOrologio final : public Finestra {
    Q_OBJECT

public:
    explicit frmOrologio(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmOrologio)
    ~frmOrologio() override;

    void done(int esito) override;

private:
    void ripristina();
    void sceltaPorta(QButtonGroup* gruppo, int numero);
    void sincronizza();
    bool apri(Porta& porta, int numero);
    void annulla();
    void ricevutoDalCronometro();
    void batti();
    void perduto(Porta& porta);
    void mostraAttesa(bool attesa);
    void fermaOrologio();
    void chiudiTabellone();  // and the clock stops
    void spegniTabellone();  // dark, its port closed

    std::unique_ptr<Ui::frmOrologio> m_ui;
    QButtonGroup* m_optCOMTAB;
    QButtonGroup* m_optCOMTAG;
    QButtonGroup* m_optFormato;
    std::unique_ptr<Porta> m_commTab;
    std::unique_ptr<Porta> m_commTag;
    Sincronismo m_sincronismo;
    OrologioTabellone m_orologio;
    QElapsedTimer m_tempo;
    QTimer m_tmrOrologio;
    bool m_inMoto = false;
};

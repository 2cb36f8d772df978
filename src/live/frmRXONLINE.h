#pragma once

#include "common/Finestra.h"
#include "devices/Porta.h"
#include "live/RicezioneOnLine.h"

#include <memory>
#include <QElapsedTimer>
#include <QTimer>

namespace Ui {
class frmRXONLINE;
}

// The reception of one crew's run, on show for those who stand at the test: state, stop-watch, times,
// penalties. It closes by itself when the run is over.
class frmRXONLINE final : public Finestra {
    Q_OBJECT

public:
    // `tabellone`: port of the scoreboard, 0 for none.
    frmRXONLINE(const ParametriOnLine& parametri, const QString& equipaggio, int cronometro, int tabellone,
                QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmRXONLINE)
    ~frmRXONLINE() override;

    // Opens the port; false, with its message, when it cannot be opened.
    bool inizia();
    void done(int esito) override;

protected:
    // A wait ends by itself; until then the window stays.
    bool puoChiudere() override { return !m_ricezione.attende(); }
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void ricevi();
    void esegui(const RicezioneOnLine::Azioni& azioni);
    void esegui(const RicezioneOnLine::Azione& azione);
    void mostra();
    void mostraCronometro();
    void suona();
    void inviaAlTabellone(QStringView testo);

    std::unique_ptr<Ui::frmRXONLINE> m_ui;
    RicezioneOnLine m_ricezione;
    std::unique_ptr<Porta> m_porta;
    std::unique_ptr<Porta> m_tabellone;  // none when it is off
    QTimer m_timer1;                     // repaints the stop-watch
    QElapsedTimer m_cronometro;          // valid while it runs
    QTimer m_attesa;
};

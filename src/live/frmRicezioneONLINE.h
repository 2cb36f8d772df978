#pragma once

#include "common/Finestra.h"
#include "live/Catene.h"
#include "live/RicezioneOnLine.h"

#include <memory>

namespace Ui {
class frmRicezioneONLINE;
}

// Which crew runs the chosen test or chain, with its readings on show and to be corrected; starts the
// reception of its run.
class frmRicezioneONLINE final : public Finestra {
    Q_OBJECT

public:
    explicit frmRicezioneONLINE(const Catena& catena, QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmRicezioneONLINE)
    ~frmRicezioneONLINE() override;

    void done(int esito) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

protected:
    bool puoChiudere() override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void ripristina();
    void salvaImpostazioni();
    void cercaNumero();
    void mostraEquipaggio();
    void cambiaEquipaggio(int passo);
    void coloraNumero();
    void cambiatoTabellone(bool acceso);
    [[nodiscard]] int chiediTabellone() const;
    void mostraTabellone();
    [[nodiscard]] int portaCronometro() const;
    [[nodiscard]] ParametriOnLine parametri() const;
    void ricevi();
    void classifica();

    std::unique_ptr<Ui::frmRicezioneONLINE> m_ui;
    Catena m_catena;
    int m_tabellone = 0;  // port of the scoreboard, 0 for none
    bool m_numeroTrovato = false;
};

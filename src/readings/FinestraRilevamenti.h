#pragma once

#include "common/Finestra.h"

class ElencoEquipaggi;
class GrigliaRilevamenti;
class QLabel;

// A window with the crews on one side and the readings of the current one on the other: the keys plus and
// minus go from crew to crew, Ctrl+G to that of a number. What is being typed is stored for its own crew
// before another one is shown, and before the window closes.
class FinestraRilevamenti : public Finestra {
    Q_OBJECT

public:
    Q_DISABLE_COPY_MOVE(FinestraRilevamenti)
    ~FinestraRilevamenti() override = default;

    bool eventFilter(QObject* oggetto, QEvent* evento) override;

protected:
    explicit FinestraRilevamenti(QWidget* padre);
    // To be called once the form is set up and the grid opened: fills the list and shows the first crew.
    void collega(ElencoEquipaggi* elenco, GrigliaRilevamenti* griglia, QLabel* etichetta);

    bool puoChiudere() override;
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void mostraEquipaggio();
    void cambiaEquipaggio(int passo);
    void chiediNumero();

    ElencoEquipaggi* m_elenco = nullptr;
    GrigliaRilevamenti* m_griglia = nullptr;
    QLabel* m_etichetta = nullptr;
};

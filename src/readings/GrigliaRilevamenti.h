#pragma once

#include "readings/DelegatoRilevamenti.h"
#include "readings/ModelloRilevamenti.h"

#include <QWidget>

class QLabel;
class QScrollBar;
class QTableView;

// The readings of one crew: grid `grT` with the tests and what is typed, beside it `grS` with net time,
// deviation and penalty, both moved by `vBar`, and below them the total `lblTotPen`.
//
// Digits start typing in the current cell. Enter and Tab store it and go on to the next cell to be typed: a
// chained start is passed over, since it takes the arrival before it. Backspace and Delete ask and delete a
// time. Plus and minus ask for another crew.
class GrigliaRilevamenti final : public QWidget {
    Q_OBJECT

public:
    explicit GrigliaRilevamenti(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(GrigliaRilevamenti)
    ~GrigliaRilevamenti() override = default;

    // Before the first crew: what can be done, and the scoring settings of the active event.
    void apri(ModoGriglia modo);
    void mostraEquipaggio(int idEqu, bool asi);  // goes to the first cell to be typed
    void ricarica();                             // the same crew, read again
    void concludiModifica();                     // stores the cell being typed

    // Makes the row of a test current, or one of its times, and takes the focus.
    void vaiA(int idPro, std::optional<CampoTempo> campo = {});
    void prendiFuoco();

    [[nodiscard]] const ModelloRilevamenti& modello() const { return *m_modello; }

    bool eventFilter(QObject* oggetto, QEvent* evento) override;

Q_SIGNALS:
    void modificata();                    // a cell was written; the rows are computed
    void equipaggioRichiesto(int passo);  // 1 next, -1 previous

private:
    void componi();
    void legaScorrimento();
    bool tasto(const class QKeyEvent& evento);
    bool cancella();
    void chiediCancellazione(int idRil, int colonna);
    void muovi(Mossa verso);
    void avanti(int passo);
    [[nodiscard]] bool daDigitare(int riga, int colonna) const;
    [[nodiscard]] bool digitabile(const QString& testo, int colonna) const;
    void vaiAllaCella(int riga, int colonna);
    void mostraTotale();

    ModelloRilevamenti* m_modello;
    QTableView* m_grT;
    QTableView* m_grS;
    QScrollBar* m_vBar;
    QLabel* m_etichettaTotale;
    QLabel* m_lblTotPen;
    DelegatoRilevamenti* m_delegato;
};

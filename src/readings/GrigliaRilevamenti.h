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

// How the cell being typed is left, and what becomes of what is not a whole time in it.
enum class Uscita {
    Conferma,    // Enter, Tab: any number of digits is stored; none asks for the deletion
    Equipaggio,  // another crew, or the window's end: begun, it gets its old time back; none asks
    Altrove,     // anything else: begun or emptied, it gets its old time back
};

class GrigliaRilevamenti final : public QWidget {
    Q_OBJECT

public:
    explicit GrigliaRilevamenti(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(GrigliaRilevamenti)
    ~GrigliaRilevamenti() override = default;

    // Before the first crew: what can be done, and the scoring settings of the active event.
    void apri(ModoGriglia modo);
    // Keeps the test and the column, and starts from the first cell to be typed. False as below. When the
    // crew cannot be read it throws, and the one on show stays.
    bool mostraEquipaggio(int idEqu, bool asi);
    void ricarica();  // the same crew, read again
    // Stores the cell being typed, and tells below the grid what became of it. False when it was refused:
    // told by a box, it stays open with its text. Open it stays too when the archive throws.
    bool concludiModifica(Uscita come = Uscita::Equipaggio);
    void abbandonaModifica();                       // without storing it
    [[nodiscard]] QString modificaInCorso() const;  // the cell being typed, in words; empty when none is

    // Makes the row of a test current, or one of its times, and takes the focus.
    void vaiA(int idPro, std::optional<CampoTempo> campo = {});
    void prendiFuoco();

    [[nodiscard]] const ModelloRilevamenti& modello() const { return *m_modello; }

    bool eventFilter(QObject* oggetto, QEvent* evento) override;

Q_SIGNALS:
    void modificata(int idEqu);           // a cell of that crew was written; the rows are computed
    void equipaggioRichiesto(int passo);  // 1 next, -1 previous; nothing is being typed any more

private:
    void componi();
    void legaScorrimento();
    bool tasto(const class QKeyEvent& evento);
    bool cancella(const QKeyEvent& evento);
    void chiediCancellazione(const QModelIndex& indice);
    bool registra(Uscita come);
    void rifiutaPenalita(const QString& perche);
    void rifiutaVirgola();
    void fuocoPerso();
    [[nodiscard]] QString nomeCella(const QModelIndex& indice) const;
    void racconta(const QModelIndex& indice, const QString& esito);
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
    QLabel* m_lblEsito;
    QString m_esito;  // what is told of the crew on show
    bool m_concludendo = false;
    QLabel* m_etichettaTotale;
    QLabel* m_lblTotPen;
    DelegatoRilevamenti* m_delegato;
};

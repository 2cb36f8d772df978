#pragma once

#include "common/Finestra.h"

#include <memory>

namespace Ui {
class frmErroriTempiOffLine;
}

// The crews whose downloaded times are suspect, as the error search has left them, and the times that carried
// no number.
class frmErroriTempiOffLine final : public Finestra {
    Q_OBJECT

public:
    explicit frmErroriTempiOffLine(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmErroriTempiOffLine)
    ~frmErroriTempiOffLine() override;

    // A row of the grid; `idEqu` 0: a crew that is not entered.
    void AggiungiRiga(int idEqu, int numero, const QString& equipaggio, const QString& tempo,
                      const QString& errore);

    bool eventFilter(QObject* oggetto, QEvent* evento) override;

protected:
    bool puoChiudere() override;

private:
    enum Colonna { Chiave, Numero, Equipaggio, Tempo, TestoErrore, Vedi, Colonne };

    void riempi();
    void correggi(int riga);
    bool iscrivi(int riga);
    [[nodiscard]] QString cella(int riga, Colonna colonna) const;

    std::unique_ptr<Ui::frmErroriTempiOffLine> m_ui;
};

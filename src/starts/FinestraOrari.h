#pragma once

#include "common/Campi.h"
#include "common/Finestra.h"

#include <optional>

class ElencoOrari;
class QPushButton;

// The two windows of start times: generating or receiving a list, saving it into the time controls, closing.
class FinestraOrari : public Finestra {
    Q_OBJECT

public:
    Q_DISABLE_COPY_MOVE(FinestraOrari)
    ~FinestraOrari() override = default;

protected:
    struct Controlli {
        QLineEdit* txtTem;
        QLineEdit* txtIntervalloPartenze;
        QLineEdit* txtPrimoNumero;
        ElencoOrari* lstOrari;
        QPushButton* cmdGenera;
        QPushButton* cmdRicezione;
        QPushButton* cmdSalva;
        QPushButton* cmdEsci;
    };

    explicit FinestraOrari(QWidget* padre);
    void collega(const Controlli& controlli);

    // The window's own condition, with its message under that title; false stops.
    virtual bool verifica(const QString& /*titolo*/) { return true; }
    // First test whose start is written; nothing for all.
    [[nodiscard]] virtual std::optional<int> daIDPro() const { return std::nullopt; }
    [[nodiscard]] virtual QString avvisoSalvato() const = 0;

    bool puoChiudere() override;

private:
    void genera();
    void ricevi();  // from the chronometer, in place of the list
    void salva();

    Controlli m_controlli{};
    ControlliUscita m_uscita;
};

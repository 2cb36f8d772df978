#pragma once

#include <QLineEdit>

// A time being typed: up to eight digits, always shown in the mask hh:mm:ss:cc, which fills from the right.
// What stands in it is what will be stored.
class EditorTempo final : public QLineEdit {
    Q_OBJECT

public:
    explicit EditorTempo(QWidget* padre = nullptr);

    // Digits typed or found there; the zeros that the mask puts in front do not count.
    [[nodiscard]] qsizetype cifre() const;

private:
    void ricomponi();

    QString m_accettato;          // the text before the last key
    qsizetype m_riempimento = 0;  // zeros of the mask
    bool m_cambiato = false;
};

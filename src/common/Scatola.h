#pragma once

#include "common/Dialoghi.h"

#include <QDialog>
#include <QHash>

class QHBoxLayout;
class QLineEdit;
class QPushButton;
class QScrollArea;

// A box that stops the operator. Only Alt+letter, Tab, the arrows, Space, Enter and Esc answer it, and none
// of them while it is held down: what was being typed when it came is lost, not taken for an answer. A text
// longer than the screen scrolls.
class Scatola final : public QDialog {
    Q_OBJECT

public:
    Scatola(const QString& titolo, const QString& testo, Icona icona);  // over the active window
    Q_DISABLE_COPY_MOVE(Scatola)
    ~Scatola() override = default;

    // In the order shown. One of them is the harmless one: Enter and Esc give it.
    void aggiungi(const QString& pulsante, int risposta);
    void imposta(int innocua) { m_innocua = innocua; }
    // A line to be typed, with the focus; Enter in it gives `risposta`.
    QLineEdit* aggiungiCampo(const QString& predefinito, int risposta);

    int chiedi();  // the answer

    bool eventFilter(QObject* oggetto, QEvent* evento) override;

protected:
    void showEvent(QShowEvent* evento) override;

private:
    bool tasto(const QObject* oggetto, const class QKeyEvent& tasto);
    bool scorri(int tasto);
    QPushButton* pulsanteDi(int risposta) const;

    QScrollArea* m_zona;
    QHBoxLayout* m_pulsanti;
    QLineEdit* m_campo = nullptr;
    QHash<QPushButton*, int> m_risposte;
    int m_innocua = 0;
    int m_conferma = 0;
};

#pragma once

#include <QObject>

class QKeyEvent;
class QWidget;

// What Enter does on each control of a window: in a field, a tick and an option it is Tab; on a button it
// presses, or is Tab where the whole window moves on by it. Held down it only moves on: it never presses a
// button, nor opens the row of a list.
class TastiFinestra final : public QObject {
    Q_OBJECT

public:
    explicit TastiFinestra(QWidget* finestra);

    // On buttons and lists as well.
    void invioComeTab() { m_comeTab = true; }
    void sorveglia();  // the controls that the window has by now

    // An Enter that no control has taken.
    void nonPreso();

    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    bool invio(QWidget* controllo, const QKeyEvent& tasto);

    QWidget* m_finestra;
    const QWidget* m_premutoSu = nullptr;
    bool m_comeTab = false;
};

bool tastoInvio(const QKeyEvent& tasto);
bool campoDaScrivere(const QObject* oggetto);  // a text box, a combo, a number box

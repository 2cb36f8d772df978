#pragma once

#include <functional>
#include <QEvent>
#include <QTimer>
#include <QWidget>

// Calls an action once, as soon as a window has painted itself for the first time.
class PrimoDisegno final : public QObject {
public:
    PrimoDisegno(QWidget* finestra, std::function<void()> azione)
        : QObject(finestra), m_azione(std::move(azione)) {
        finestra->installEventFilter(this);
    }

    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() == QEvent::Paint && !m_visto) {
            m_visto = true;
            QTimer::singleShot(0, this, m_azione);  // after this paint, not in it
        }
        return QObject::eventFilter(oggetto, evento);
    }

private:
    std::function<void()> m_azione;
    bool m_visto = false;
};

#include "common/TastiMenu.h"

#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>

TastiMenu::TastiMenu(QMainWindow* finestra) : QObject(finestra), m_finestra(finestra) {
    finestra->installEventFilter(this);
}

bool TastiMenu::eventFilter(QObject* oggetto, QEvent* evento) {
    switch (evento->type()) {
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress: {
            const int tasto = static_cast<QKeyEvent*>(evento)->key();
            m_alt = tasto == Qt::Key_Alt;
            if (tasto == Qt::Key_F10 && evento->type() == QEvent::KeyPress) {
                apri();
                return true;
            }
            break;
        }
        case QEvent::KeyRelease:
            if (static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Alt && std::exchange(m_alt, false))
                apri();
            break;
        case QEvent::MouseButtonPress:
        case QEvent::WindowDeactivate:
            m_alt = false;
            break;
        default:
            break;
    }
    return QObject::eventFilter(oggetto, evento);
}

void TastiMenu::apri() {
    QMenuBar* barra = m_finestra->menuBar();
    barra->setActiveAction(barra->actions().value(0));
}

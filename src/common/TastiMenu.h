#pragma once

#include <QObject>

class QMainWindow;

// F10, and Alt pressed and let go by itself, open the first menu of a window.
class TastiMenu final : public QObject {
    Q_OBJECT

public:
    explicit TastiMenu(QMainWindow* finestra);

    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void apri();

    QMainWindow* m_finestra;
    bool m_alt = false;  // down, and nothing else since
};

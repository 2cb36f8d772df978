#pragma once

#include <memory>
#include <QApplication>
#include <QPointer>
#include <QTimer>

class Dialoghi;

// The application object of the program and of its window tests: Italian texts, the Qt boxes, and the one
// place where an exception that reaches the event loop is shown to the operator.
class Applicazione final : public QApplication {
public:
    Applicazione(int& argc, char** argv);
    Q_DISABLE_COPY_MOVE(Applicazione)
    ~Applicazione() override;

    bool notify(QObject* ricevente, QEvent* evento) override;

private:
    void nascosta(const QWidget* finestra);
    void restituisciTastiera();

    std::unique_ptr<Dialoghi> m_dialoghi;
    QTimer m_restituzione;
    QPointer<QWidget> m_sotto;  // the window behind the one that closed
    int m_tentativi = 0;        // that are left to give it the keyboard
};

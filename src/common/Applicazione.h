#pragma once

#include <memory>
#include <QApplication>

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
    std::unique_ptr<Dialoghi> m_dialoghi;
};

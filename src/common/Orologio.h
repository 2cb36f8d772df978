#pragma once

#include <QDateTime>

// Today and now, as the program sees them.
class Orologio {
public:
    Orologio() = default;
    Q_DISABLE_COPY_MOVE(Orologio)
    virtual ~Orologio() = default;

    [[nodiscard]] virtual QDateTime adesso() const { return QDateTime::currentDateTime(); }
    [[nodiscard]] QDate oggi() const { return adesso().date(); }

    static const Orologio& corrente();
    static void installa(const Orologio* orologio);  // not owned; nullptr goes back to the machine's clock
};

#pragma once

#include "common/Finestra.h"

#include <QMap>
#include <QString>

// A window in which stored values are changed. While something in its controls has been changed Esc does
// nothing; its buttons and the close box leave as they say.
class FinestraModifica : public Finestra {
    Q_OBJECT

public:
    Q_DISABLE_COPY_MOVE(FinestraModifica)
    ~FinestraModifica() override = default;

protected:
    using Finestra::Finestra;

    // What the controls show now is what is stored.
    void ricorda();
    void keyPressEvent(QKeyEvent* evento) override;

private:
    [[nodiscard]] QMap<QString, QString> contenuto() const;  // by the name of the control

    QMap<QString, QString> m_ricordato;
};

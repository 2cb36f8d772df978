#pragma once

#include "entries/Equipaggi.h"

#include <QElapsedTimer>
#include <QTreeWidget>

// The crews of the event beside an entry form. Typing into it finds a crew: digits the race number, letters
// the driver.
class ElencoIscritti final : public QTreeWidget {
    Q_OBJECT

public:
    enum Colonna { IDEqu, Num, Conducente };

    using QTreeWidget::QTreeWidget;
    Q_DISABLE_COPY_MOVE(ElencoIscritti)
    ~ElencoIscritti() override = default;

    void riempi(const QList<RigaEquipaggio>& equipaggi);
    void aggiorna(int riga, int num, const QString& conducente);
    void seleziona(int riga);

    [[nodiscard]] int rigaDi(int idEqu) const;  // -1 when it is not in the list
    [[nodiscard]] int idEqu(int riga) const;
    [[nodiscard]] int numero(int riga) const;

    void keyboardSearch(const QString& battuto) override;

private:
    [[nodiscard]] int trova(const QString& testo) const;

    QString m_cercato;
    QElapsedTimer m_dallUltimo;
};

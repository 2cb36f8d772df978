#pragma once

#include "simulatori/PseudoTerminale.h"

#include <QStringList>

// The six-position scoreboard on a pseudo-terminal: what a spectator reads on it.
class SimulatoreTabellone final : public QObject {
    Q_OBJECT

public:
    explicit SimulatoreTabellone(PseudoTerminale& linea);
    Q_DISABLE_COPY_MOVE(SimulatoreTabellone)
    ~SimulatoreTabellone() override = default;

    // A text as it looks there: encoded, cut, and filled with blanks.
    static QString comeAppare(const QString& testo);
    // The six positions as characters, each followed by its point where that is lit: " 12.34 ".
    [[nodiscard]] const QString& mostra() const { return m_mostra; }
    // Everything shown so far, in order, as mostra() gave it.
    [[nodiscard]] const QStringList& mostrati() const { return m_mostrati; }
    [[nodiscard]] int frameErrati() const { return m_errati; }  // bytes that belong to no frame count as one

Q_SIGNALS:
    void cambiato(const QString& testo);  // at each frame, also when it shows the same

private:
    void ricevi(const QByteArray& dati);

    QByteArray m_ingresso;
    QString m_mostra = QStringLiteral("      ");
    QStringList m_mostrati;
    int m_errati = 0;
};

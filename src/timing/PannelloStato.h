#pragma once

#include <QElapsedTimer>
#include <QFrame>

class QLabel;

// `frmStatus`: how far a download has come (`lblStatus`) and the reading just processed (`lblInfo`). Hidden
// it keeps its place.
class PannelloStato final : public QFrame {
    Q_OBJECT

public:
    enum class Tono { Attesa, Lavoro, Terminata };

    explicit PannelloStato(QWidget* padre = nullptr);

    void mostra(const QStringList& righe, Tono tono);  // painted at once
    void informa(const QString& testo);                // a few times a second; the last one by mostra()
    void azzera();                                     // hides it

private:
    QLabel* m_lblStatus;
    QLabel* m_lblInfo;
    QString m_info;
    QElapsedTimer m_dipinto;
};

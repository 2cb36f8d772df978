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
    // Of one record among very many: `attendeInformazioni` is true a few times a second.
    [[nodiscard]] bool attendeInformazioni() const;
    void informa(const QString& testo);  // painted at once
    void azzera();                       // hides it

private:
    QLabel* m_lblStatus;
    QLabel* m_lblInfo;
    QElapsedTimer m_dipinto;
};

#pragma once

#include "shell/RispostaHttp.h"

#include <chrono>
#include <QTimer>
#include <QUrl>

class QTcpSocket;

// One small file from a web server, on a line of its own: what is received and how long it may take are
// bounded, from the look-up of the name to the last byte, and when the object goes nothing of it goes on.
class ScaricoHttp final : public QObject {
    Q_OBJECT

public:
    ScaricoHttp() = default;
    Q_DISABLE_COPY_MOVE(ScaricoHttp)
    ~ScaricoHttp() override;

    // Once only. `massimo`: bytes of the file.
    void avvia(const QUrl& indirizzo, qsizetype massimo, std::chrono::milliseconds attesa);

    [[nodiscard]] bool finito() const { return m_finito; }
    // The whole file; nothing when it did not come.
    [[nodiscard]] std::optional<QByteArray> file() const;

Q_SIGNALS:
    void concluso();

private:
    void collega(const QUrl& indirizzo);
    void chiudiLinea();
    void domanda();
    void ricevi();
    void esamina(RispostaHttp::Stato stato);
    void segui();  // to where the server sends
    void concludi(bool riuscito);

    QUrl m_indirizzo;
    qsizetype m_massimo = 0;
    int m_rinvii = 0;
    QTcpSocket* m_linea = nullptr;
    QTimer m_scadenza;
    std::optional<RispostaHttp> m_risposta;
    bool m_finito = false;
    bool m_riuscito = false;
};

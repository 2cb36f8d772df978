#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <QTimer>
#include <QUrl>

// One small file from a web server. What is received, heads of the answers and of those that send elsewhere
// included, and how long it may take, from the look-up of the name to the last byte, are bounded; when the
// object goes nothing of it goes on.
class ScaricoHttp final : public QObject {
    Q_OBJECT

public:
    ScaricoHttp();
    Q_DISABLE_COPY_MOVE(ScaricoHttp)
    ~ScaricoHttp() override;

    // Once only. `massimo`: bytes of the file.
    void avvia(const QUrl& indirizzo, qsizetype massimo, std::chrono::milliseconds attesa);

    [[nodiscard]] bool finito() const { return m_finito; }
    // The whole file; nothing when it did not come.
    [[nodiscard]] const std::optional<QByteArray>& file() const { return m_file; }

Q_SIGNALS:
    void concluso();

private:
    struct Trasferimento;
    void avanza();
    void concludi(bool riuscito);

    std::unique_ptr<Trasferimento> m_trasferimento;
    QTimer m_battito;
    std::optional<QByteArray> m_file;
    bool m_finito = false;
};

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

// The device's end of a serial line: a pseudo-terminal, linked as porte/com<n> of a program folder so that
// the program finds it as its port n. Throws Errore when it cannot be made.
class PseudoTerminale final : public QObject {
    Q_OBJECT

public:
    PseudoTerminale(const QString& cartellaProgramma, int numero);
    Q_DISABLE_COPY_MOVE(PseudoTerminale)
    ~PseudoTerminale() override;

    [[nodiscard]] bool aperto() const;  // the program holds the port open now
    // Milliseconds for which the port has been open, as far as has been noticed; -1 when it is closed.
    [[nodiscard]] qint64 apertoDa() const;
    // As the program has set the line: "9600 8N1"; empty when it is not that plain.
    [[nodiscard]] QString formato() const;
    // What nobody listens to is lost, as on a real line.
    void scrivi(const QByteArray& dati);

    // The adapter pulled out (its device vanishes, the link stays) and put back.
    void stacca();
    void attacca();
    [[nodiscard]] bool attaccato() const { return m_padrone >= 0; }

Q_SIGNALS:
    void arrivati(const QByteArray& dati);
    void cambiata(bool aperta);  // the program has opened or closed the port

private:
    void giro();
    void svuotaUscita();
    void segna(bool aperta);
    [[nodiscard]] QString dispositivoAssente() const;

    QString m_collegamento;
    QString m_dispositivo;
    int m_padrone = -1;
    QByteArray m_uscita;
    QTimer m_giro;
    QElapsedTimer m_apertura;  // valid while the port is open
};

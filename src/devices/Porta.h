#pragma once

#include <memory>
#include <QObject>

// Why a port could not be opened or was lost.
struct GuastoPorta {
    int numero = 0;       // 0: no failure
    QString descrizione;  // Italian

    // The text of the box: "Errore n. : 1 - Porta Inesistente".
    [[nodiscard]] QString testo() const;
};

// Both lines: 8 data bits, no parity, 1 stop bit, no handshake.
enum class Linea { Cronometro = 9600, Tabellone = 19200 };  // bits per second

// A serial port. Signals come only from the event loop, never from inside a call.
class Porta : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] int numero() const { return m_numero; }
    void impostaNumero(int numero) { m_numero = numero; }  // of a closed port; from 1

    [[nodiscard]] virtual bool aperta() const = 0;
    // False when the port cannot be opened; an open one stays as it is.
    virtual bool apri() = 0;
    // Sends what is still to be written, forgets what was not read. False when not all could be written.
    virtual bool chiudi() = 0;
    // Opens and closes a closed port: how a number proves to be good.
    bool prova();

    // Reads and empties what has arrived.
    virtual QByteArray leggiTutto() = 0;
    // False when the port is closed or has failed.
    virtual bool scrivi(const QByteArray& dati) = 0;

    // The last failure since the port was last opened with success.
    [[nodiscard]] const GuastoPorta& guasto() const { return m_guasto; }

Q_SIGNALS:
    void ricevuto();  // characters have arrived
    void guasta();    // an open port was lost; it is closed already, and this comes once

protected:
    void impostaGuasto(const GuastoPorta& guasto) { m_guasto = guasto; }

private:
    int m_numero = 0;
    GuastoPorta m_guasto;
};

// Where windows get their ports.
class FabbricaPorte {
public:
    FabbricaPorte() = default;
    Q_DISABLE_COPY_MOVE(FabbricaPorte)
    virtual ~FabbricaPorte() = default;

    [[nodiscard]] virtual std::unique_ptr<Porta> crea(Linea linea) const;

    static const FabbricaPorte& corrente();
    static void installa(
        const FabbricaPorte* fabbrica);  // not owned; nullptr goes back to the machine's ports
};

#include "devices/PortaSeriale.h"

#include "archive/PercorsoApp.h"
#include "devices/Dispositivo.h"

#include <cerrno>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QPointer>
#include <QThread>
#include <utility>

#ifdef Q_OS_UNIX
#include <sys/ioctl.h>
#include <termios.h>
#endif

using namespace Qt::StringLiterals;

namespace {

QString descrizione(QSerialPort::SerialPortError errore) {
    switch (errore) {
        case QSerialPort::DeviceNotFoundError:
            return u"Porta Inesistente"_s;
        case QSerialPort::PermissionError:
            return u"Porta già in Uso oppure Accesso Negato"_s;
        case QSerialPort::OpenError:
            return u"Porta già Aperta"_s;
        case QSerialPort::NotOpenError:
            return u"Porta Chiusa"_s;
        case QSerialPort::WriteError:
            return u"Scrittura sulla Porta NON Riuscita"_s;
        case QSerialPort::ReadError:  // how some systems report a device that has gone
        case QSerialPort::ResourceError:
            return u"Porta Scollegata"_s;
        case QSerialPort::UnsupportedOperationError:
            return u"Impostazioni della Porta NON Accettate"_s;
        case QSerialPort::TimeoutError:
            return u"La Porta NON Accetta Dati"_s;
        case QSerialPort::NoError:
        case QSerialPort::UnknownError:
            break;
    }
    return u"Il Dispositivo NON è una Porta Seriale Utilizzabile"_s;
}

// Waits until what the system has taken is on the line, at most as long as a closing may take: closing puts
// back the former speed, which would spoil it. False when the line does not take it.
bool attendiUscita(const QSerialPort& porta) {
#ifdef Q_OS_UNIX
    const QDeadlineTimer scadenza(AtteseLinea.chiusura);
    int rimasti = 0;
    while (ioctl(porta.handle(), TIOCOUTQ, &rimasti) == 0 && rimasti > 0) {
        if (scadenza.hasExpired())
            return false;
        QThread::msleep(1);
    }
    int esito = 0;
    do {
        esito = tcdrain(porta.handle());
    } while (esito != 0 && errno == EINTR);
    return esito == 0;
#else
    Q_UNUSED(porta);
    return true;
#endif
}

}  // namespace

QString dispositivoPorta(int numero) {
#ifdef Q_OS_WIN
    return u"COM%1"_s.arg(numero);
#else
    const QFileInfo collegata(percorsoNelProgramma(u"porte/com%1"_s.arg(numero)));
    // The device itself, so that two numbers of one device are found to be one. A link whose device has gone
    // must not fall back on another.
    if (collegata.exists())
        return collegata.canonicalFilePath();
    if (collegata.isSymLink())
        return collegata.absoluteFilePath();
    return u"/dev/ttyS%1"_s.arg(numero - 1);
#endif
}

PortaSeriale::PortaSeriale(Linea linea, QObject* padre) : Porta(padre), m_linea(linea) {
    m_porta.setBaudRate(static_cast<qint32>(linea));
    m_porta.setDataBits(QSerialPort::Data8);
    m_porta.setParity(QSerialPort::NoParity);
    m_porta.setStopBits(QSerialPort::OneStop);
    m_porta.setFlowControl(QSerialPort::NoFlowControl);
    connect(&m_porta, &QSerialPort::readyRead, this, &PortaSeriale::raccogli);
    connect(this, &PortaSeriale::novita, this, &PortaSeriale::annuncia, Qt::QueuedConnection);
    connect(&m_porta, &QSerialPort::errorOccurred, this, &PortaSeriale::errore);
}

PortaSeriale::~PortaSeriale() {
    m_porta.disconnect(this);
    m_porta.close();
}

bool PortaSeriale::apri() {
    if (aperta())
        return true;
    m_arrivati.clear();
    m_perduta = false;
    m_scritta = false;
    m_porta.setPortName(dispositivoPorta(numero()));
    m_inApertura = true;
    m_porta.clearError();
    // What had come before nobody asked for.
    const bool riuscita = m_porta.open(QIODevice::ReadWrite) && m_porta.clear();
    m_inApertura = false;
    if (!riuscita) {
        const QSerialPort::SerialPortError causa = m_porta.error();
        m_porta.close();
        const int codice = causa == QSerialPort::NoError ? QSerialPort::UnknownError : causa;
        impostaGuasto({codice, descrizione(causa)});
        return false;
    }
    impostaGuasto({});
    return true;
}

bool PortaSeriale::chiudi() {
    if (!aperta()) {
        m_arrivati.clear();
        return true;
    }
    m_inChiusura = true;
    while (aperta() && m_porta.bytesToWrite() > 0 && m_porta.waitForBytesWritten(AtteseLinea.chiusura)) {
    }
    m_inChiusura = false;
    bool scritto = aperta();  // an error on the way has closed it
    if (scritto && m_scritta && (m_porta.bytesToWrite() > 0 || !attendiUscita(m_porta))) {
        impostaGuasto({QSerialPort::TimeoutError, descrizione(QSerialPort::TimeoutError)});
        scritto = false;
    }
    m_porta.close();
    m_arrivati.clear();
    m_perduta = false;
    return scritto;
}

QByteArray PortaSeriale::leggiTutto() {
    return std::exchange(m_arrivati, {});
}

bool PortaSeriale::scrivi(const QByteArray& dati) {
    if (!aperta() || m_porta.write(dati) != dati.size())
        return false;
    m_scritta = true;
    m_porta.flush();
    return aperta();
}

void PortaSeriale::raccogli() {
    m_arrivati += m_porta.readAll();
    if (m_linea == Linea::Tabellone) {
        m_arrivati.clear();  // output only
    } else {
        prenotaAnnuncio();
    }
}

void PortaSeriale::errore(QSerialPort::SerialPortError errore) {
    if (errore == QSerialPort::NoError || m_inApertura || m_perduta || !aperta())
        return;
    if (m_inChiusura && errore == QSerialPort::TimeoutError)
        return;
    impostaGuasto({errore, descrizione(errore)});
    m_arrivati += m_porta.readAll();
    // At once: a line that is gone repeats its error without end.
    m_porta.close();
    m_perduta = true;
    prenotaAnnuncio();
}

void PortaSeriale::prenotaAnnuncio() {
    if (!std::exchange(m_annunciata, true))
        Q_EMIT novita(QPrivateSignal());
}

void PortaSeriale::annuncia() {
    m_annunciata = false;
    const QPointer<PortaSeriale> vivo(this);
    if (!m_arrivati.isEmpty())
        Q_EMIT ricevuto();
    if (vivo && std::exchange(m_perduta, false))
        Q_EMIT guasta();
}

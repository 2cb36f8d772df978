#pragma once

#include "devices/Porta.h"

#include <QSerialPort>

// A port of the machine.
class PortaSeriale final : public Porta {
    Q_OBJECT

public:
    explicit PortaSeriale(Linea linea, QObject* padre = nullptr);
    Q_DISABLE_COPY_MOVE(PortaSeriale)
    ~PortaSeriale() override;

    [[nodiscard]] bool aperta() const override { return m_porta.isOpen(); }
    bool apri() override;
    bool chiudi() override;
    QByteArray leggiTutto() override;
    bool scrivi(const QByteArray& dati) override;

Q_SIGNALS:
    void novita(QPrivateSignal);  // to itself, through the event loop

private:
    void raccogli();
    void errore(QSerialPort::SerialPortError errore);
    void prenotaAnnuncio();
    void annuncia();

    Linea m_linea;
    QSerialPort m_porta;
    QByteArray m_arrivati;
    bool m_annunciata = false;  // a call of annuncia() is under way
    bool m_perduta = false;     // lost, and not yet told
    bool m_scritta = false;     // something since it was opened
    bool m_inApertura = false;
    bool m_inChiusura = false;
};

// The device of a port number: COMn on Windows; elsewhere what porte/com<n> of the program folder stands for,
// and /dev/ttyS<n-1> where there is no such entry.
QString dispositivoPorta(int numero);

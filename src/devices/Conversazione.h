#pragma once

#include "devices/Dispositivo.h"

#include <QByteArray>
#include <QList>

// One download from a chronometer, as a state machine: it is told what happens (characters, the timer, the
// operator) and answers what is to be done, in order. It holds no port, no timer and no window.
class Conversazione final {
public:
    enum class Stato {
        Ferma,
        Identificazione,  // TAG CP540: "#ID" sent
        RichiestaManche,  // TAG CP540: the operator is asked for the heat
        AttesaRisposta,   // TAG CP540: "#DL_" sent
        AttesaDati,       // TAG CP520: nothing has come yet
        Ricezione,
        Terminata,
    };
    enum class Cosa {
        ApriPorta,
        ChiudiPorta,
        Invia,      // `dati`
        ArmaTimer,  // `millisecondi`, from now; one timer
        FermaTimer,
        ChiediManche,  // the device is identified, or has refused a heat; answer with manche() or ferma()
        MancheErrata,  // the device does not know the heat
        NessunaRisposta,
        DatiInArrivo,
        Finita,  // flusso() is whole
    };
    struct Azione {
        Cosa cosa = Cosa::FermaTimer;
        QByteArray dati = {};
        int millisecondi = 0;
    };
    using Azioni = QList<Azione>;

    explicit Conversazione(Dispositivo dispositivo) : m_dispositivo(dispositivo) {}

    Azioni inizia();
    Azioni ricevuti(QByteArrayView caratteri);
    Azioni scaduto();                     // the timer fired
    Azioni manche(const QString& testo);  // as leggiManche gives it
    Azioni ferma();                       // by the operator, or because the port is lost

    [[nodiscard]] Stato stato() const { return m_stato; }
    [[nodiscard]] const QString& numeroDiSerie() const { return m_serie; }
    // The lines to be read, once Terminata.
    [[nodiscard]] const QByteArray& flusso() const { return m_buffer; }

private:
    Azioni identifica(QByteArrayView caratteri);
    Azioni attendiRisposta(QByteArrayView caratteri);
    Azioni ricevi540(QByteArrayView caratteri);
    Azioni ricevi520(QByteArrayView caratteri);

    Dispositivo m_dispositivo;
    Stato m_stato = Stato::Ferma;
    QByteArray m_buffer;
    QByteArray m_fine;  // end frame of the heat
    QString m_serie;
};

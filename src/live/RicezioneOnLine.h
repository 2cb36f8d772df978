#pragma once

#include "live/Catene.h"
#include "live/CorsaOnLine.h"

#include <functional>
#include <optional>

// Waits of an on-line run before the window goes on, in milliseconds. A test may shorten them.
struct AtteseOnLine {
    int errore = 3000;     // a refused frame stays on show
    int fineProva = 2000;  // the last time
    int totale = 4000;     // the total of the test
};
inline AtteseOnLine AtteseRicezione;

// One run, by one crew over one chain.
struct ParametriOnLine {
    Dispositivo dispositivo = Dispositivo::CP520;
    int idEqu = 0;
    int num = 0;
    Catena catena;
    QString precisione;                                         // of the skill tests, for the crew's class
    CorsaOnLine::Taglio taglia;                                 // to that precision
    std::function<std::optional<double>(int scarto)> penalita;  // of a deviation; nothing when it overflows
};

// The reception of one run as a state machine: it is told what happens (characters, the end of a wait, the
// operator, the loss of the port), writes the readings and answers what is to be done, in order. It holds no
// port, no timer and no window. What it answers comes after the readings are committed.
class RicezioneOnLine final {
public:
    enum class Stato {
        AttesaPartenza,
        InProva,
        Errata,     // waits: a frame that may not come now
        FineProva,  // waits: the last time
        Totale,     // waits: the total
        Chiusa,
    };
    enum class Sfondo { Normale, Verde, Arancio, Rosso, Chiaro };

    // What the window shows beside the crew and the stop-watch.
    struct Schermo {
        Sfondo sfondo = Sfondo::Normale;
        QString lblImp;
        QString lblTempo;
        bool tempoRidotto = false;     // lblTempo holds two lines
        bool arrestoPossibile = true;  // cmdArrestaRicezione
    };

    enum class Cosa {
        Mostra,            // schermo()
        AvviaCronometro,   // the stop-watch runs, from 0
        AzzeraCronometro,  // and goes on running
        FermaCronometro,   // at 0
        Tabellone,         // `testo` to the scoreboard
        AzzeraTabellone,
        Suona,         // two beeps
        Attendi,       // `millisecondi`, then attesaFinita()
        DatoErrato,    // the box of a bad datum
        PortaPerduta,  // the box of a failed port
        Chiudi,
    };
    struct Azione {
        Cosa cosa = Cosa::Mostra;
        QString testo = {};
        int millisecondi = 0;
    };
    using Azioni = QList<Azione>;

    explicit RicezioneOnLine(ParametriOnLine parametri);

    Azioni inizia();
    // The frames that these characters complete; none once a wait has begun.
    QList<FrameOnLine> ricevuti(QByteArrayView caratteri);
    // One of them, in order; nothing when the run is over by then. Throws when a reading cannot be written:
    // the run is over, and the text holds the time that was lost.
    Azioni ricevuto(const FrameOnLine& frame);
    Azioni attesaFinita();
    Azioni ferma();    // cmdArrestaRicezione; nothing during a wait
    Azioni perduta();  // the port; nothing during a wait, when all has been received

    [[nodiscard]] Stato stato() const { return m_stato; }
    [[nodiscard]] const Schermo& schermo() const { return m_schermo; }
    [[nodiscard]] bool riceve() const {
        return m_stato == Stato::AttesaPartenza || m_stato == Stato::InProva;
    }
    [[nodiscard]] bool attende() const { return !riceve() && m_stato != Stato::Chiusa; }

private:
    void partenza(Azioni& azioni);
    void tempo(const CorsaOnLine::Passo& passo, Azioni& azioni);
    void mostraTempo(const CorsaOnLine::Passo& passo, Azioni& azioni);
    void rifiuta(const QString& motivo, Azioni& azioni);
    void interrompi(Cosa motivo, Azioni& azioni);
    void salva(const std::function<void()>& scrittura, const QString& perduto);

    ParametriOnLine m_parametri;
    RicevitoreFrame m_ricevitore;
    CorsaOnLine m_corsa;
    Stato m_stato = Stato::AttesaPartenza;
    Schermo m_schermo;
    double m_totale = 0;
};

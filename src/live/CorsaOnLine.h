#pragma once

#include "devices/Frame.h"

#include <functional>

// One on-line run of a crew over a chain of tests: what each frame means, window-free. A chain shares one
// clock: the arrival of a test is the start of the next.
class CorsaOnLine final {
public:
    enum class Evento {
        Partenza,
        Tempo,                   // more are to come
        UltimoTempo,             // and the run is over
        ResetNonEseguito,        // a time before any start
        StartConVeicoloInProva,  // a second start
        DatoErrato,              // a time that cannot be
        Ignorato,                // the run was over already
    };
    struct Passo {
        Evento evento = Evento::Ignorato;
        int ricevuti = 0;  // times so far; the test timed now is number `ricevuti` of the chain, from 1
        QString tempo;     // elapsed since the start, cut: the arrival of that test
        int parziale = 0;  // hundredths since the time before, for the deviation of that test
    };
    // Cuts an elapsed time (hh:mm:ss:cc) to the event's precision for "PA" and the crew's class.
    using Taglio = std::function<QString(const QString& tempo)>;

    CorsaOnLine(Dispositivo dispositivo, int lunghezzaCatena, Taglio taglio)
        : m_dispositivo(dispositivo), m_lunghezza(lunghezzaCatena), m_taglio(std::move(taglio)) {}

    Passo ricevi(const FrameOnLine& frame);
    [[nodiscard]] bool finita() const { return m_finita; }
    [[nodiscard]] bool veicoloInProva() const { return m_inProva; }

private:
    Dispositivo m_dispositivo;
    int m_lunghezza;
    Taglio m_taglio;
    bool m_inProva = false;
    bool m_finita = false;
    int m_ricevuti = 0;
    int m_precedente = 0;
};

// The readings of a run, each durable when the call returns.
void scriviPartenza(int idEqu, int idPro);
// Arrival of a test and, where there is one (0: none), start of the next in the chain.
void scriviArrivo(int idEqu, int idPro, int idProssima, const QString& tempo);

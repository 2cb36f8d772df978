#include "devices/Conversazione.h"
#include "Verifica.h"

// Whole conversations: what the device sends, with the timer that fires, the heat that is typed and the
// operator who stops in between, against the protocol taken word by word.

namespace {

using Stato = Conversazione::Stato;
using Cosa = Conversazione::Cosa;

// Bytes of the input that are not the device's.
enum Comando : char { Scaduto = 1, Manche = 2, Ferma = 3 };

constexpr QByteArrayView Accettato("AK C\t00EF\r\n");
constexpr QByteArrayView Rifiutato("AK F\t00F2\r\n");
constexpr QByteArrayView FineSette("DE 07\t0110\r\n");

struct Modello {
    Dispositivo dispositivo;
    Stato stato = Stato::Ferma;
    QByteArray buffer = {};
    QByteArray flusso = {};

    void inizia() {
        buffer.clear();
        stato = dispositivo == Dispositivo::CP520 ? Stato::AttesaDati : Stato::Identificazione;
    }
    void carattere(char c) {
        if (stato == Stato::Ferma || stato == Stato::RichiestaManche || stato == Stato::Terminata)
            return;
        buffer += c;
        if (stato == Stato::AttesaDati) {
            stato = Stato::Ricezione;
        } else if (stato == Stato::Identificazione && buffer.endsWith(Accettato)) {
            stato = Stato::RichiestaManche;
        } else if (stato == Stato::AttesaRisposta && buffer == Rifiutato) {
            stato = Stato::RichiestaManche;
        } else if (stato == Stato::AttesaRisposta && buffer == Accettato) {
            stato = Stato::Ricezione;
        } else if (stato == Stato::Ricezione && dispositivo == Dispositivo::CP540 &&
                   buffer.endsWith(FineSette)) {
            stato = Stato::Terminata;
            spoglia();
        }
    }
    void scaduto() {
        if (stato == Stato::Identificazione || stato == Stato::AttesaRisposta) {
            stato = Stato::Ferma;
        } else if (stato == Stato::Ricezione && dispositivo == Dispositivo::CP520) {
            stato = Stato::Terminata;
            flusso = buffer;
        }
    }
    void manche() {
        if (stato != Stato::RichiestaManche)
            return;
        buffer.clear();
        stato = Stato::AttesaRisposta;
    }
    void spoglia() {
        flusso = buffer;
        for (int i = 0; i < 3; ++i)
            flusso = flusso.contains('\r') ? flusso.mid(flusso.indexOf('\r') + 2) : QByteArray();
        flusso.chop(2);
        flusso.truncate(flusso.lastIndexOf('\n') + 1);
    }
};

// A conversation, and what the one who obeys it has: a port, a timer, what was sent and told.
struct Corso {
    Conversazione conversazione;
    Modello modello;
    bool aperta = false;
    bool armato = false;

    explicit Corso(Dispositivo dispositivo) : conversazione(dispositivo), modello{dispositivo} {
        esegui(conversazione.inizia());
        modello.inizia();
        confronta();
    }
    void esegui(const Conversazione::Azioni& azioni) {
        for (const Conversazione::Azione& azione : azioni) {
            if (azione.cosa == Cosa::ApriPorta || azione.cosa == Cosa::ChiudiPorta) {
                aperta = azione.cosa == Cosa::ApriPorta;
            } else if (azione.cosa == Cosa::ArmaTimer || azione.cosa == Cosa::FermaTimer) {
                armato = azione.cosa == Cosa::ArmaTimer;
                verifica(!armato ||
                             azione.millisecondi == (modello.dispositivo == Dispositivo::CP520 ? 3000 : 5000),
                         "a wait has its length");
            } else if (azione.cosa == Cosa::Invia) {
                verifica(aperta && (azione.dati == "#ID\t\r\n" || azione.dati == "#DL_7\t\r\n"),
                         "a command goes out on an open port");
            } else if (azione.cosa == Cosa::NessunaRisposta || azione.cosa == Cosa::Finita) {
                verifica(!aperta && !armato, "at its end all is released");
            } else if (azione.cosa == Cosa::MancheErrata) {
                verifica(modello.stato == Stato::AttesaRisposta, "only a heat that was asked for is refused");
            }
        }
    }
    void confronta() const {
        const Stato stato = conversazione.stato();
        verifica(stato == modello.stato, "the protocol's state");
        verifica(
            aperta == (stato != Stato::Ferma && stato != Stato::RichiestaManche && stato != Stato::Terminata),
            "the port is open while the device may speak");
        verifica(armato == (stato == Stato::Identificazione || stato == Stato::AttesaRisposta ||
                            (stato == Stato::Ricezione && modello.dispositivo == Dispositivo::CP520)),
                 "the timer runs where there is a wait");
        verifica(stato != Stato::Terminata || conversazione.flusso() == modello.flusso, "the data are whole");
    }
    void comando(char quale) {
        if (quale == Scaduto && armato) {
            armato = false;
            esegui(conversazione.scaduto());
            modello.scaduto();
        } else if (quale == Manche) {
            esegui(conversazione.manche(QStringLiteral("7")));
            modello.manche();
        } else if (quale == Ferma) {
            esegui(conversazione.ferma());
            esegui(conversazione.inizia());
            modello.inizia();
        }
    }
    void ricevi(QByteArrayView caratteri) {
        // A closed port brings nothing.
        if (!aperta || caratteri.isEmpty())
            return;
        esegui(conversazione.ricevuti(caratteri));
        for (const char c : caratteri)
            modello.carattere(c);
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
    const QByteArrayView flusso = ingresso(dati, lunghezza);
    for (const Dispositivo dispositivo : {Dispositivo::CP520, Dispositivo::CP540}) {
        Corso corso(dispositivo);
        qsizetype da = 0;
        for (qsizetype i = 0; i < flusso.size(); ++i) {
            if (flusso[i] < Scaduto || flusso[i] > Ferma)
                continue;
            corso.ricevi(flusso.sliced(da, i - da));
            corso.confronta();
            corso.comando(flusso[i]);
            corso.confronta();
            da = i + 1;
        }
        corso.ricevi(flusso.sliced(da));
        corso.confronta();
    }
    return 0;
}

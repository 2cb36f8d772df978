#pragma once

#include <optional>
#include <QByteArray>

// The answer of a web server, read as its bytes come. What is kept of it has a bound whatever the server
// sends: heads, lines, chunks and trailers included.
class RispostaHttp final {
public:
    enum class Stato { InArrivo, Intera, Rifiutata };

    // Bytes of the content, and of all that is received.
    RispostaHttp(qsizetype massimoCorpo, qsizetype massimoTutto)
        : m_massimoCorpo(massimoCorpo), m_massimoTutto(massimoTutto) {}

    // The next bytes, in pieces of any size. Once it is whole or refused nothing more counts.
    Stato aggiungi(const QByteArray& dati);
    // The server has closed the line.
    Stato chiusa();

    [[nodiscard]] Stato stato() const { return m_stato; }
    [[nodiscard]] int codice() const { return m_codice; }
    // Of an answer that is whole; only code 200 brings a content, the others are whole with their head.
    [[nodiscard]] const QByteArray& corpo() const { return m_corpo; }
    [[nodiscard]] const QByteArray& destinazione() const { return m_destinazione; }  // its Location

private:
    enum class Attesa { RigaDiStato, Testate, Corpo, RigaDelPezzo, Pezzo, FineDelPezzo, Coda };

    bool passo();  // false when it needs more bytes
    bool leggiCorpo();
    void leggiRiga(const QByteArray& riga);
    void leggiStato(const QByteArray& riga);
    void leggiTestata(const QByteArray& riga);
    void fineTestate();
    void leggiRigaDelPezzo(const QByteArray& riga);
    void rifiuta() { m_stato = Stato::Rifiutata; }

    qsizetype m_massimoCorpo;
    qsizetype m_massimoTutto;
    qsizetype m_ricevuti = 0;
    Stato m_stato = Stato::InArrivo;
    Attesa m_attesa = Attesa::RigaDiStato;
    QByteArray m_resto;  // received and not read yet: less than a line, or than a piece
    int m_codice = 0;
    QByteArray m_destinazione;
    QByteArray m_corpo;
    bool m_aPezzi = false;
    std::optional<qsizetype> m_lunghezza;  // of the content, or of the piece in hand; none: up to the closing
};

#include "shell/RispostaHttp.h"

#include <QList>

namespace {

constexpr qsizetype MassimaRiga = 8192;
constexpr int Ottimo = 200;
constexpr int PrimoDefinitivo = 200;  // below it an answer only announces the true one
constexpr int CambioProtocollo = 101;

std::optional<qsizetype> numero(const QByteArray& testo, int base) {
    const bool cifre = !testo.isEmpty() && testo.size() <= 15 && testo.front() != '-' && testo.front() != '+';
    bool valido = false;
    const qlonglong letto = testo.toLongLong(&valido, base);
    if (!cifre || !valido)
        return std::nullopt;
    return letto;
}

}  // namespace

RispostaHttp::Stato RispostaHttp::aggiungi(const QByteArray& dati) {
    if (m_stato != Stato::InArrivo)
        return m_stato;
    m_ricevuti += dati.size();
    if (m_ricevuti > m_massimoTutto) {
        rifiuta();
        return m_stato;
    }
    m_resto += dati;
    while (m_stato == Stato::InArrivo && passo()) {
    }
    return m_stato;
}

RispostaHttp::Stato RispostaHttp::chiusa() {
    if (m_stato == Stato::InArrivo)
        m_stato = m_attesa == Attesa::Corpo && !m_lunghezza ? Stato::Intera : Stato::Rifiutata;
    return m_stato;
}

bool RispostaHttp::passo() {
    if (m_attesa == Attesa::Corpo || m_attesa == Attesa::Pezzo)
        return leggiCorpo();
    const qsizetype fine = m_resto.indexOf('\n');
    if (fine > MassimaRiga || (fine < 0 && m_resto.size() > MassimaRiga)) {
        rifiuta();
        return false;
    }
    if (fine < 0)
        return false;
    QByteArray riga = m_resto.first(fine);
    m_resto.remove(0, fine + 1);
    if (riga.endsWith('\r'))
        riga.chop(1);
    leggiRiga(riga);
    return true;
}

// Of a content, or of one of its pieces.
bool RispostaHttp::leggiCorpo() {
    const qsizetype quanti = m_lunghezza ? qMin(*m_lunghezza, m_resto.size()) : m_resto.size();
    m_corpo += m_resto.first(quanti);
    m_resto.remove(0, quanti);
    if (m_corpo.size() > m_massimoCorpo) {
        rifiuta();
        return false;
    }
    if (!m_lunghezza)
        return false;
    *m_lunghezza -= quanti;
    if (*m_lunghezza > 0)
        return false;
    if (m_attesa == Attesa::Corpo) {
        m_stato = Stato::Intera;
    } else {
        m_attesa = Attesa::FineDelPezzo;
    }
    return true;
}

void RispostaHttp::leggiRiga(const QByteArray& riga) {
    switch (m_attesa) {
        case Attesa::RigaDiStato:
            leggiStato(riga);
            break;
        case Attesa::Testate:
            riga.isEmpty() ? fineTestate() : leggiTestata(riga);
            break;
        case Attesa::RigaDelPezzo:
            leggiRigaDelPezzo(riga);
            break;
        case Attesa::FineDelPezzo:
            riga.isEmpty() ? void(m_attesa = Attesa::RigaDelPezzo) : rifiuta();
            break;
        case Attesa::Coda:
            if (riga.isEmpty())
                m_stato = Stato::Intera;
            break;
        case Attesa::Corpo:
        case Attesa::Pezzo:
            break;
    }
}

// "HTTP/1.1 200 OK"
void RispostaHttp::leggiStato(const QByteArray& riga) {
    constexpr qsizetype InizioCodice = 9;
    const std::optional<qsizetype> codice = numero(riga.mid(InizioCodice, 3), 10);
    if (!riga.startsWith("HTTP/1.") || !codice || *codice == CambioProtocollo) {
        rifiuta();
        return;
    }
    m_codice = static_cast<int>(*codice);
    m_attesa = Attesa::Testate;
}

void RispostaHttp::leggiTestata(const QByteArray& riga) {
    const qsizetype duePunti = riga.indexOf(':');
    const QByteArray nome = riga.first(qMax<qsizetype>(duePunti, 0)).toLower();
    const QByteArray valore = riga.sliced(duePunti + 1).trimmed();
    if (nome == "location") {
        m_destinazione = valore;
    } else if (nome == "transfer-encoding") {
        m_aPezzi = valore.toLower() == "chunked";
        if (!m_aPezzi)
            rifiuta();
    } else if (nome == "content-encoding" && valore.toLower() != "identity") {
        rifiuta();  // compressed, which was not asked for
    } else if (nome == "content-length") {
        m_lunghezza = numero(valore, 10);
        if (m_lunghezza.value_or(m_massimoCorpo + 1) > m_massimoCorpo && m_codice == Ottimo)
            rifiuta();
    }
}

void RispostaHttp::fineTestate() {
    if (m_codice < PrimoDefinitivo) {
        m_attesa = Attesa::RigaDiStato;
        m_lunghezza.reset();
        m_aPezzi = false;
    } else if (m_codice != Ottimo) {
        m_stato = Stato::Intera;
    } else if (m_aPezzi) {
        m_attesa = Attesa::RigaDelPezzo;
    } else {
        m_attesa = Attesa::Corpo;
    }
}

// Its length in hexadecimal figures; what may follow a semicolon is of no interest.
void RispostaHttp::leggiRigaDelPezzo(const QByteArray& riga) {
    m_lunghezza = numero(riga.split(';').constFirst().trimmed(), 16);
    if (!m_lunghezza) {
        rifiuta();
    } else {
        m_attesa = *m_lunghezza == 0 ? Attesa::Coda : Attesa::Pezzo;
    }
}

#include "devices/Frame.h"

#include "archive/ErroreArchivio.h"
#include "common/Valori.h"

#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int Massimo16 = std::numeric_limits<qint16>::max();

struct Formato {
    qsizetype record;
    qsizetype secondo;
    char partenza;
    char fine;
};

constexpr char Tempo = 'T';
constexpr Formato Formati[] = {{31, 31, 'A', '\r'}, {43, 37, 'T', '\n'}};

const Formato& formato(Dispositivo dispositivo) {
    return Formati[static_cast<int>(dispositivo)];
}

constexpr QByteArrayView TempoZero("        0.00000");
constexpr qsizetype PosizioneTempoZero = 15;

// Part of a text that may be shorter than asked.
QByteArrayView parte(QByteArrayView testo, qsizetype da, qsizetype lunghezza) {
    da = std::min(da, testo.size());
    return testo.sliced(da, std::min(lunghezza, testo.size() - da));
}

// Value of a field whose blanks count as zeros; nothing when it is no number.
std::optional<int> cifre(QByteArrayView campo) {
    if (campo.isEmpty())
        return std::nullopt;
    int valore = 0;
    for (const char c : campo) {
        if (c != ' ' && (c < '0' || c > '9'))
            return std::nullopt;
        valore = valore * 10 + (c == ' ' ? 0 : c - '0');
    }
    return valore;
}

}  // namespace

QByteArray SommaControlloTAG(QByteArrayView testo) {
    int somma = 0;
    for (const char c : testo.chopped(std::min<qsizetype>(1, testo.size()))) {
        somma += static_cast<unsigned char>(c);
        if (somma > Massimo16)
            throw Errore(u"La somma di controllo supera il limite del protocollo."_s);
    }
    return QByteArray::number(somma, 16).toUpper().rightJustified(4, '0');
}

QList<FrameOnLine> RicevitoreFrame::aggiungi(QByteArrayView caratteri) {
    const Formato& f = formato(m_dispositivo);
    QList<FrameOnLine> frame;
    for (const char c : caratteri) {
        ++m_lunghezza;
        if (m_lunghezza > f.record + f.secondo)
            continue;
        m_buffer += c;
        if (const std::optional<TipoFrame> tipo = riconosci()) {
            frame << FrameOnLine{*tipo, m_buffer.first(f.record)};
            svuota();
        }
    }
    return frame;
}

void RicevitoreFrame::svuota() {
    m_buffer.clear();
    m_lunghezza = 0;
}

std::optional<TipoFrame> RicevitoreFrame::riconosci() const {
    const Formato& f = formato(m_dispositivo);
    if (m_buffer.back() != f.fine)
        return std::nullopt;
    if (m_buffer.size() == f.record && m_buffer.front() == f.partenza &&
        (m_dispositivo == Dispositivo::CP520 ||
         parte(m_buffer, PosizioneTempoZero, TempoZero.size()) == TempoZero))
        return TipoFrame::Partenza;
    if (m_buffer.size() == f.record + f.secondo && m_buffer.front() == Tempo)
        return TipoFrame::Tempo;
    return std::nullopt;
}

std::optional<int> tempoTrascorso(Dispositivo dispositivo, QByteArrayView record) {
    struct Campo {
        qsizetype da;
        qsizetype lunghezza;
        int centesimi;
    };
    // Minutes, seconds, tenths, hundredths.
    static constexpr std::array<Campo, 4> Campi520{{{18, 2, 6000}, {21, 2, 100}, {24, 1, 10}, {25, 1, 1}}};
    static constexpr std::array<Campo, 4> Campi540{{{19, 2, 6000}, {22, 2, 100}, {25, 1, 10}, {26, 1, 1}}};

    int totale = 0;
    for (const Campo& campo : dispositivo == Dispositivo::CP520 ? Campi520 : Campi540) {
        const std::optional<int> valore = cifre(parte(record, campo.da, campo.lunghezza));
        if (!valore)
            return std::nullopt;
        totale += *valore * campo.centesimi;
        if (totale > Massimo16)
            return std::nullopt;
    }
    return totale;
}

std::optional<int> Sincronismo::aggiungi(QByteArrayView caratteri) {
    constexpr qsizetype DaTempo = 15;
    constexpr qsizetype LunghezzaTempo = 11;
    for (const char c : caratteri) {
        if (c != '\r') {
            // The rest of the line is never read.
            if (m_riga.size() < DaTempo + LunghezzaTempo)
                m_riga += c;
            continue;
        }
        const QString tempo = QString::fromLatin1(parte(m_riga, DaTempo, LunghezzaTempo));
        m_riga.clear();
        return TempoInCentesimi(tempo);
    }
    return std::nullopt;
}

#include "devices/Scarico.h"

#include "devices/Frame.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Formato {
    char segno;
    char fine;
    qsizetype numero;  // where the crew number and the time begin
    qsizetype tempo;
};

constexpr Formato Formati[] = {{'T', '\r', 7, 15}, {'A', '\n', 3, 16}};
constexpr qsizetype CifreNumero = 4;

char carattere(QByteArrayView riga, qsizetype posizione) {
    return posizione < riga.size() ? riga[posizione] : ' ';
}

// Decimal value of a blank-padded field: its digits up to the first character of another kind.
int valoreDecimale(QByteArrayView riga, qsizetype da) {
    int valore = 0;
    for (qsizetype i = da; i < da + CifreNumero; ++i) {
        const char c = carattere(riga, i);
        if (c == ' ')
            continue;
        if (c < '0' || c > '9')
            break;
        valore = valore * 10 + (c - '0');
    }
    return valore;
}

QString tempoInArchivio(QByteArrayView riga, qsizetype da) {
    QString tempo = u"00:00:00:00"_s;
    for (const qsizetype i : {0, 1, 3, 4, 6, 7, 9, 10}) {
        const char c = carattere(riga, da + i);
        if (c != ' ')
            tempo[i] = c >= '0' && c <= '9' ? QChar::fromLatin1(c) : QChar(u'?');
    }
    return tempo;
}

QByteArray conSomma(const QByteArray& testo) {
    return testo + SommaControlloTAG(testo) + "\r\n";
}

}  // namespace

QList<RecordScarico> leggiRecord(Dispositivo dispositivo, QByteArrayView flusso) {
    const Formato& formato = Formati[static_cast<int>(dispositivo)];
    QList<RecordScarico> record;
    auto inizio = flusso.begin();
    for (;;) {
        const auto fine = std::find(inizio, flusso.end(), formato.fine);
        if (fine == flusso.end())
            return record;
        const QByteArrayView riga(inizio, fine);
        if (!riga.isEmpty() && riga.front() == formato.segno) {
            record << RecordScarico{valoreDecimale(riga, formato.numero),
                                    tempoInArchivio(riga, formato.tempo)};
        }
        inizio = fine + 1;
    }
}

QByteArray frameAccettato() {
    static const QByteArray frame = conSomma("AK C\t");
    return frame;
}

QByteArray frameRifiutato() {
    static const QByteArray frame = conSomma("AK F\t");
    return frame;
}

QByteArray frameFine(const QString& manche) {
    return conSomma("DE " + manche.rightJustified(2, u'0').right(2).toLatin1() + '\t');
}

QByteArray comandoIdentifica() {
    return "#ID\t\r\n";
}

QByteArray comandoScarica(const QString& manche) {
    return "#DL_" + manche.toLatin1() + "\t\r\n";
}

std::optional<QString> leggiManche(const QString& testo) {
    const QString manche = testo.trimmed();
    if (manche.isEmpty() || !std::ranges::all_of(manche, [](QChar c) { return c >= u'0' && c <= u'9'; }))
        return std::nullopt;
    bool letta = false;
    const int numero = manche.toInt(&letta);
    if (!letta || numero < 1 || numero > 99)
        return std::nullopt;
    return manche;
}

QString numeroDiSerie(QByteArrayView risposta) {
    constexpr qsizetype Da = 3;
    constexpr qsizetype Lunghezza = 5;
    const qsizetype da = std::min(Da, risposta.size());
    return QString::fromLatin1(risposta.sliced(da, std::min(Lunghezza, risposta.size() - da)));
}

QByteArray spogliaScarico(QByteArrayView flusso) {
    constexpr int RigheIniziali = 3;
    constexpr qsizetype FineRiga = 2;
    for (int i = 0; i < RigheIniziali; ++i) {
        const qsizetype cr = flusso.indexOf('\r');
        flusso = cr < 0 ? QByteArrayView() : flusso.sliced(std::min(cr + FineRiga, flusso.size()));
    }
    flusso.chop(std::min(FineRiga, flusso.size()));
    return flusso.first(flusso.lastIndexOf('\n') + 1).toByteArray();
}

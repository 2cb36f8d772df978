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
constexpr qsizetype CaratteriTempo = 11;  // that are kept

// What a line holds of a field; a line may end before or within it.
QByteArrayView campo(QByteArrayView riga, qsizetype da, qsizetype lunghezza) {
    da = std::min(da, riga.size());
    return riga.sliced(da, std::min(lunghezza, riga.size() - da));
}

// Decimal value of a blank-padded field: its digits up to the first character of another kind.
int valoreDecimale(QByteArrayView cifre) {
    int valore = 0;
    for (const char c : cifre) {
        if (c == ' ')
            continue;
        if (c < '0' || c > '9')
            break;
        valore = valore * 10 + (c - '0');
    }
    return valore;
}

// The two characters of each part as they came, a blank as a zero; parts that are not there stay empty.
QString tempoInArchivio(QByteArrayView ricevuto) {
    const QString tempo = QString::fromLatin1(ricevuto).replace(u' ', u'0');
    return u"%1:%2:%3:%4"_s.arg(tempo.mid(0, 2), tempo.mid(3, 2), tempo.mid(6, 2), tempo.mid(9, 2));
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
            record << RecordScarico{valoreDecimale(campo(riga, formato.numero, CifreNumero)),
                                    tempoInArchivio(campo(riga, formato.tempo, CaratteriTempo))};
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
    return conSomma("DE " + manche.trimmed().rightJustified(2, u'0').right(2).toLatin1() + '\t');
}

QByteArray comandoIdentifica() {
    return "#ID\t\r\n";
}

QByteArray comandoScarica(const QString& manche) {
    return "#DL_" + manche.toLatin1() + "\t\r\n";
}

std::optional<QString> leggiManche(const QString& testo) {
    // Anything but digits and blanks could break out of the command.
    if (!std::ranges::all_of(testo, [](QChar c) { return c == u' ' || (c >= u'0' && c <= u'9'); }))
        return std::nullopt;
    bool letta = false;
    const int numero = testo.trimmed().toInt(&letta);
    if (!letta || numero < 1 || numero > 99)
        return std::nullopt;
    return testo;
}

QString numeroDiSerie(QByteArrayView risposta) {
    constexpr qsizetype Da = 3;
    constexpr qsizetype Lunghezza = 5;
    return QString::fromLatin1(campo(risposta, Da, Lunghezza));
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

#include "devices/Frame.h"
#include "Verifica.h"

namespace {

// The frames by the words of the protocol: the whole buffer is looked at after each character.
QList<FrameOnLine> frameAttesi(Dispositivo dispositivo, QByteArrayView flusso, qsizetype& inAttesa) {
    const bool cp520 = dispositivo == Dispositivo::CP520;
    const qsizetype record = cp520 ? 31 : 43;
    const qsizetype secondo = cp520 ? 31 : 37;
    QList<FrameOnLine> frame;
    qsizetype da = 0;
    for (qsizetype fine = 1; fine <= flusso.size(); ++fine) {
        const QByteArrayView buffer = flusso.sliced(da, fine - da);
        if (buffer.back() != (cp520 ? '\r' : '\n'))
            continue;
        if (buffer.size() == record && buffer.front() == (cp520 ? 'A' : 'T') &&
            (cp520 || buffer.sliced(15, 15) == QByteArrayView("        0.00000"))) {
            frame << FrameOnLine{TipoFrame::Partenza, buffer.toByteArray()};
            da = fine;
        } else if (buffer.size() == record + secondo && buffer.front() == 'T') {
            frame << FrameOnLine{TipoFrame::Tempo, buffer.first(record).toByteArray()};
            da = fine;
        }
    }
    inAttesa = flusso.size() - da;
    return frame;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
    const QByteArrayView flusso = ingresso(dati, lunghezza);
    for (const Dispositivo dispositivo : {Dispositivo::CP520, Dispositivo::CP540}) {
        RicevitoreFrame intero(dispositivo);
        const QList<FrameOnLine> frame = intero.aggiungi(flusso);
        qsizetype inAttesa = 0;
        const QList<FrameOnLine> attesi = frameAttesi(dispositivo, flusso, inAttesa);
        verifica(frame.size() == attesi.size() && intero.inAttesa() == inAttesa,
                 "every frame, and no other, is one");
        for (qsizetype i = 0; i < frame.size(); ++i) {
            verifica(frame[i].tipo == attesi[i].tipo && frame[i].record == attesi[i].record,
                     "a start is a start, a zero one too, and a frame keeps its first record");
            const std::optional<int> tempo = tempoTrascorso(dispositivo, frame[i].record);
            verifica(!tempo || (*tempo >= 0 && *tempo <= 32767), "an elapsed time fits 16 bits");
        }

        RicevitoreFrame aPezzi(dispositivo);
        qsizetype contati = 0;
        for (qsizetype i = 0; i < flusso.size(); i += 5)
            contati += aPezzi.aggiungi(flusso.sliced(i, std::min<qsizetype>(5, flusso.size() - i))).size();
        verifica(contati == frame.size() && aPezzi.inAttesa() == intero.inAttesa(),
                 "grouping does not count");

        // A record of any length, too.
        const std::optional<int> tempo = tempoTrascorso(dispositivo, flusso);
        verifica(!tempo || (*tempo >= 0 && *tempo <= 32767), "an elapsed time fits 16 bits");
    }
    Sincronismo orologio;
    if (const std::optional<int> ora = orologio.aggiungi(flusso))
        verifica(*ora > -100 && *ora < 8640000, "a clock shows a time of day");
    return 0;
}

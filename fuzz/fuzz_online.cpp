#include "devices/Frame.h"
#include "Verifica.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
    const QByteArrayView flusso = ingresso(dati, lunghezza);
    for (const Dispositivo dispositivo : {Dispositivo::CP520, Dispositivo::CP540}) {
        const qsizetype record = dispositivo == Dispositivo::CP520 ? 31 : 43;
        const qsizetype coppia = dispositivo == Dispositivo::CP520 ? 62 : 80;
        RicevitoreFrame intero(dispositivo);
        const QList<FrameOnLine> frame = intero.aggiungi(flusso);
        qsizetype letti = intero.inAttesa();
        for (const FrameOnLine& f : frame) {
            letti += f.tipo == TipoFrame::Partenza ? record : coppia;
            verifica(f.record.size() == record, "a frame keeps its first record");
            const std::optional<int> tempo = tempoTrascorso(dispositivo, f.record);
            verifica(!tempo || (*tempo >= 0 && *tempo <= 32767), "an elapsed time fits 16 bits");
        }
        verifica(letti == flusso.size(), "every character is in a frame or waits");

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

#include "devices/Scarico.h"
#include "Verifica.h"

// Against the protocol taken word by word: one character at a time into a line buffer.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
    const QByteArrayView flusso = ingresso(dati, lunghezza);
    for (const Dispositivo dispositivo : {Dispositivo::CP520, Dispositivo::CP540}) {
        const char segno = dispositivo == Dispositivo::CP520 ? 'T' : 'A';
        const char fine = dispositivo == Dispositivo::CP520 ? '\r' : '\n';
        const QList<RecordScarico> record = leggiRecord(dispositivo, flusso);
        qsizetype n = 0;
        QByteArray riga;
        for (const char c : flusso) {
            riga += c;
            if (c != fine)
                continue;
            if (riga[0] == segno) {
                verifica(n < record.size(), "no record is missed");
                const RecordScarico& r = record[n++];
                verifica(r.numero >= 0 && r.numero <= 9999, "a number has four digits at most");
                verifica(r.tempo.size() == 11 && r.tempo[2] == u':' && r.tempo[8] == u':',
                         "the archive's form");
            }
            riga.clear();
        }
        verifica(n == record.size(), "no record is invented");
    }
    return 0;
}

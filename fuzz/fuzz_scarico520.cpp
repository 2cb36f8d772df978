#include "devices/Scarico.h"
#include "Verifica.h"

// Against the protocol taken word by word: one character at a time into a line buffer.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
    const QByteArrayView flusso = ingresso(dati, lunghezza);
    for (const Dispositivo dispositivo : {Dispositivo::CP520, Dispositivo::CP540}) {
        const char segno = dispositivo == Dispositivo::CP520 ? 'T' : 'A';
        const char fine = dispositivo == Dispositivo::CP520 ? '\r' : '\n';
        const qsizetype campo = dispositivo == Dispositivo::CP520 ? 15 : 16;
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
                const QByteArray t = riga.chopped(1).mid(campo, 11).replace(' ', '0');
                verifica(r.tempo.toLatin1() ==
                             t.mid(0, 2) + ':' + t.mid(3, 2) + ':' + t.mid(6, 2) + ':' + t.mid(9, 2),
                         "the time is what came");
            }
            riga.clear();
        }
        verifica(n == record.size(), "no record is invented");
    }
    return 0;
}

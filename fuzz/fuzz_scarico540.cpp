#include "devices/Conversazione.h"
#include "devices/Scarico.h"
#include "Verifica.h"

namespace {

Conversazione allaManche() {
    Conversazione conversazione(Dispositivo::CP540);
    conversazione.inizia();
    conversazione.ricevuti(frameAccettato());
    conversazione.manche(QStringLiteral("7"));
    return conversazione;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
    static const Conversazione inizio = allaManche();
    const QByteArrayView flusso = ingresso(dati, lunghezza);
    Conversazione intera = inizio;
    Conversazione aPezzi = inizio;
    intera.ricevuti(flusso);
    for (qsizetype i = 0; i < flusso.size(); ++i)
        aPezzi.ricevuti(flusso.sliced(i, 1));
    verifica(intera.stato() == aPezzi.stato(), "grouping does not count");
    verifica((intera.stato() == Conversazione::Stato::RichiestaManche) ==
                 flusso.startsWith(QByteArrayView("AK F\t00F2\r\n")),
             "the refused frame first, and it alone, refuses the heat");
    if (intera.stato() != Conversazione::Stato::Terminata)
        return 0;
    verifica(intera.flusso() == aPezzi.flusso(), "grouping does not count for the data");
    verifica(flusso.startsWith(frameAccettato()) && flusso.contains(frameFine(QStringLiteral("7"))),
             "a download begins and ends with its frames");
    for (const RecordScarico& r : leggiRecord(Dispositivo::CP540, intera.flusso()))
        verifica(r.numero >= 0 && r.numero <= 9999 && r.tempo.size() <= 11, "a record has its form");
    return 0;
}

#include "devices/Conversazione.h"
#include "devices/Scarico.h"
#include "Verifica.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
    const QByteArrayView flusso = ingresso(dati, lunghezza);
    Conversazione intera(Dispositivo::CP540);
    Conversazione aPezzi(Dispositivo::CP540);
    intera.inizia();
    aPezzi.inizia();
    intera.ricevuti(flusso);
    for (qsizetype i = 0; i < flusso.size(); ++i)
        aPezzi.ricevuti(flusso.sliced(i, 1));
    const bool identificata = flusso.contains(frameAccettato());
    verifica((intera.stato() == Conversazione::Stato::RichiestaManche) == identificata,
             "the accepted frame, and it alone, identifies");
    verifica(intera.stato() == aPezzi.stato() && intera.numeroDiSerie() == aPezzi.numeroDiSerie(),
             "grouping does not count");
    verifica(intera.numeroDiSerie().size() == (identificata ? 5 : 0), "a serial number has five characters");
    return 0;
}

#include "shell/RispostaHttp.h"
#include "Verifica.h"

namespace {

constexpr qsizetype MassimoCorpo = 256;
constexpr qsizetype MassimoTutto = 3000;

RispostaHttp letta(QByteArrayView dati, qsizetype alla) {
    RispostaHttp risposta(MassimoCorpo, MassimoTutto);
    for (; !dati.isEmpty(); dati = dati.sliced(qMin(alla, dati.size())))
        risposta.aggiungi(dati.first(qMin(alla, dati.size())).toByteArray());
    risposta.chiusa();
    return risposta;
}

}  // namespace

// The first byte says in how large pieces the rest comes: what is read does not depend on it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
    if (lunghezza == 0)
        return 0;
    const QByteArrayView testo = ingresso(dati + 1, lunghezza - 1);
    const RispostaHttp aPezzi = letta(testo, 1 + dati[0] % 64);
    const RispostaHttp unByte = letta(testo, 1);
    using enum RispostaHttp::Stato;
    verifica(aPezzi.stato() != InArrivo, "a closed answer is whole or refused");
    verifica(aPezzi.corpo().size() <= MassimoCorpo || aPezzi.stato() == Rifiutata,
             "the content has its bound");
    verifica(aPezzi.corpo().size() <= MassimoTutto, "and so has what is kept");
    if (testo.size() > MassimoTutto)
        return 0;  // where the bound cuts depends on the pieces
    verifica(aPezzi.stato() == unByte.stato(), "the pieces do not decide");
    verifica(aPezzi.stato() == Rifiutata ||
                 (aPezzi.corpo() == unByte.corpo() && aPezzi.codice() == unByte.codice() &&
                  aPezzi.destinazione() == unByte.destinazione()),
             "nor change what is read");
    return 0;
}

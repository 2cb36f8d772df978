#include "common/Orologio.h"

namespace {
const Orologio* installato = nullptr;
}

const Orologio& Orologio::corrente() {
    static const Orologio dellaMacchina;
    return installato ? *installato : dellaMacchina;
}

void Orologio::installa(const Orologio* orologio) {
    installato = orologio;
}

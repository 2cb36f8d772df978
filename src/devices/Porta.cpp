#include "devices/Porta.h"

#include "devices/PortaSeriale.h"

using namespace Qt::StringLiterals;

namespace {

const FabbricaPorte* s_fabbrica = nullptr;

}  // namespace

QString GuastoPorta::testo() const {
    return u"Errore n. : %1 - %2"_s.arg(QString::number(numero), descrizione);
}

bool Porta::prova() {
    return apri() && chiudi();
}

std::unique_ptr<Porta> FabbricaPorte::crea(Linea linea) const {
    return std::make_unique<PortaSeriale>(linea);
}

const FabbricaPorte& FabbricaPorte::corrente() {
    static const FabbricaPorte diSerie;
    return s_fabbrica ? *s_fabbrica : diSerie;
}

void FabbricaPorte::installa(const FabbricaPorte* fabbrica) {
    s_fabbrica = fabbrica;
}

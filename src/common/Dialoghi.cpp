#include "common/Dialoghi.h"

namespace {
Dialoghi* installati = nullptr;
}

Dialoghi& Dialoghi::corrente() {
    Q_ASSERT_X(installati, "Dialoghi", "none installed");
    return *installati;
}

void Dialoghi::installa(Dialoghi* dialoghi) {
    installati = dialoghi;
}

void avverti(const QString& titolo, const QString& testo) {
    Dialoghi::corrente().messaggio(titolo, testo, Icona::Esclamazione);
}

void MostraMessaggio(const QString& testo) {
    Dialoghi::corrente().avviso(testo);
}

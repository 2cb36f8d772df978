#include "event/PaginaGuidata.h"

#include "common/Dialoghi.h"

using namespace Qt::StringLiterals;

PaginaGuidata::PaginaGuidata(QWidget* padre) : Finestra(padre) {
    setWindowModality(Qt::ApplicationModal);
    invioComeTab();
}

bool PaginaGuidata::puoChiudere() {
    return Dialoghi::corrente().domanda(
        u"Uscire dall'Inserimento ?"_s,
        u"La Manifestazione NON E' Stata Salvata Si Desidera Uscire Comunque ? "_s, Icona::Domanda);
}

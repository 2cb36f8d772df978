#pragma once

#include "common/Dialoghi.h"

// Why an action is refused, in the operator's words, and the control that gets the focus (empty: none).
struct Rifiuto {
    QString titolo;
    QString testo;
    Icona icona = Icona::Esclamazione;
    QString campo = {};
};

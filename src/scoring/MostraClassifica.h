#pragma once

#include "scoring/Classifica.h"

// Makes a classification and hands it to its report.
void MostraClassifica(const RichiestaClassifica& richiesta);

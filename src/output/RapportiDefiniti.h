#pragma once

#include "output/Rapporto.h"

// Composes the report of a kind from the archive: "Classifica", "PenalitàAggiuntive", "ProspettoPenCoeff",
// "Lista", "ListaConOrari", "VerificheTutti", "VerificheASI", "VerificheNONASI", "ClassificaProva",
// "ProspettoTempi", "ProspettoTempiCompresso", "Schede", "ClassificaSquadre".
//
// `filtro`: a condition of the program's own on Classifica, for that kind alone, or empty.
// `esclusi`: text of the page foot, for the two classifications of crews and teams.
// `prove`: keys of the tests that head the test columns, the first one first; 0 or none leaves a head empty.
// Throws Errore on a kind that is not listed, ErroreArchivio when reading fails.
Rapporto componiRapporto(const QString& tipo, const QString& filtro, const QString& titolo,
                         const QString& esclusi, const QList<int>& prove);

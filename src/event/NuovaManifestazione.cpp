#include "event/NuovaManifestazione.h"

#include "archive/Statement.h"

using namespace Qt::StringLiterals;

int salvaManifestazione(const NuovaManifestazione& nuova) {
    Transazione transazione;
    const int idMan = inserisciRiga(u"Manifestazioni"_s, colonneManifestazione(nuova.dati, Scrittura::Nuova));
    inserisciProve(idMan, nuova.prove);
    for (const Squadra& squadra : nuova.squadre)
        aggiungiSquadra(idMan, squadra.nom);
    inserisciGruppi(idMan, nuova.gruppi);
    transazione.conferma();
    return idMan;
}

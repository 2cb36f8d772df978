#include "event/ManifestazioneAttiva.h"

#include "archive/Statement.h"
#include "common/Dialoghi.h"
#include "common/Public.h"

using namespace Qt::StringLiterals;

QList<VoceElencoManifestazioni> leggiManifestazioni() {
    QList<VoceElencoManifestazioni> elenco;
    Statement lettura(u"SELECT IDMan,Nom,Loc,DaDat,ADat,Clu FROM Manifestazioni ORDER BY IDMan DESC"_s);
    lettura.esegui();
    while (lettura.prossima()) {
        elenco << VoceElencoManifestazioni{lettura.intero(0), lettura.testo(1), lettura.testo(2),
                                           lettura.testo(3) + u" - "_s + lettura.testo(4), lettura.testo(5)};
    }
    return elenco;
}

bool EliminaManifestazione() {
    if (!Dialoghi::corrente().domanda(u"ELIMINARE LA MANIFESTAZIONE CORRENTE ?"_s,
                                      u"ELIMINANDO LA MANIFESTAZIONE VERRANNO ELIMINATI\n"
                                      "ANCHE TUTTI GLI EQUIPAGGI ISCRITTI E TUTTI I RELATIVI\n"
                                      "TEMPI INSERITI\n"
                                      "ELIMINARE VERAMENTE ?"_s,
                                      Icona::Domanda))
        return false;
    MostraMessaggio(u"Manifestazione Eliminata"_s);
    // One statement: the archive's relations take tests, crews, readings, groups, teams, fees and receipts.
    esegui(u"DELETE FROM Manifestazioni WHERE IDMan=?"_s, {IDMan});
    ImpostaManifestazioneAttiva(0);
    return true;
}

#include "entries/RicercaAnagrafica.h"

#include "archive/Statement.h"

using namespace Qt::StringLiterals;

QList<PersonaArchivio> leggiAnagrafica() {
    QList<PersonaArchivio> persone;
    Statement lettura(
        u"SELECT IDEqu,coalesce(Cog,'')||' '||coalesce(E.Nom,''),coalesce(CogNav,'')||' "
        u"'||coalesce(NomNav,''),"
        "coalesce(Mar,'')||' '||coalesce([Mod],''),Ann,M.Nom "
        "FROM Equipaggi E JOIN Manifestazioni M ON M.IDMan=E.IDMan_FK ORDER BY Cog COLLATE ITALIANO,E.Nom COLLATE ITALIANO,IDEqu"_s);
    lettura.esegui();
    while (lettura.prossima()) {
        persone << PersonaArchivio{lettura.intero(0), lettura.testo(1), lettura.testo(2),
                                   lettura.testo(3),  lettura.testo(4), lettura.testo(5)};
    }
    return persone;
}

bool corrisponde(const PersonaArchivio& persona, const QString& testo) {
    return testo.trimmed().isEmpty() || persona.conducente.startsWith(testo, Qt::CaseInsensitive);
}

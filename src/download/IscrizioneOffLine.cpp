#include "download/IscrizioneOffLine.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "common/Public.h"

using namespace Qt::StringLiterals;

int iscriviDaScarico(int num) {
    Transazione transazione;
    if (esisteRiga(u"SELECT 1 FROM Equipaggi WHERE IDMan_FK=? AND Num=?"_s, {IDMan, num}))
        throw Errore(u"Il numero %1 è già assegnato a un equipaggio della manifestazione."_s.arg(num));
    const int idEqu = inserisciRiga(
        u"Equipaggi"_s, {{u"IDMan_FK"_s, IDMan}, {u"Num"_s, num}, {u"IDGru_FK"_s, 0}, {u"IDSqu_FK"_s, 0}});
    esegui(
        u"INSERT INTO Rilevamenti (IDPro_FK,IDEqu_FK,TPar,TArr) "
        "SELECT IDPro,?,'','' FROM Prove WHERE IDMan_FK=? ORDER BY IDPro"_s,
        {idEqu, IDMan});
    esegui(u"UPDATE TempRil SET IDEqu_FK=? WHERE Num=? AND IDEqu_FK IS NULL"_s, {idEqu, num});
    transazione.conferma();
    return idEqu;
}

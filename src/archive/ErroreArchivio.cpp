#include "archive/ErroreArchivio.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// What the operator can do about it. The extended code comes first where it says more than its family.
QString spiegazione(int codice) {
    if (codice == SQLITE_READONLY_DBMOVED) {
        return u"Il file dell'archivio è stato spostato o sostituito mentre il programma lo usava: "
               "chiudere il programma e riaprirlo."_s;
    }
    switch (codice & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return u"L'archivio è in uso da parte di un altro programma."_s;
        case SQLITE_READONLY:
            return u"L'archivio o la sua cartella non si possono scrivere: controllare i permessi."_s;
        case SQLITE_IOERR:
            return u"Il disco dell'archivio non risponde correttamente."_s;
        case SQLITE_CORRUPT:
            return u"L'archivio è danneggiato. Spostare altrove mdvlm.mdb e, se c'è, mdvlm.mdb-journal, e "
                   u"rimettere "
                   "al loro posto l'ultima copia della cartella Backup."_s;
        case SQLITE_FULL:
            return u"Il disco è pieno: liberare spazio e ripetere l'operazione."_s;
        case SQLITE_CANTOPEN:
            return u"L'archivio non si può aprire: controllare il file e i permessi della cartella."_s;
        case SQLITE_NOTADB:
            return u"Il file dell'archivio non è un archivio di Velmora."_s;
        case SQLITE_CONSTRAINT:
            return u"L'archivio non accetta questi dati: si riferiscono a una riga che non c'è più, "
                   "o ne ripetono una."_s;
        case SQLITE_TOOBIG:
            return u"Il testo è troppo lungo per l'archivio."_s;
        case SQLITE_NOMEM:
            return u"La memoria del computer non basta per questa operazione."_s;
        case SQLITE_INTERRUPT:
            return u"L'operazione sull'archivio è stata interrotta."_s;
        default:
            return u"Operazione sull'archivio non riuscita."_s;
    }
}

}  // namespace

ErroreArchivio::ErroreArchivio(int codice, const QString& testoMotore)
    : Errore(u"%1\n(%2)"_s.arg(spiegazione(codice), testoMotore)) {}

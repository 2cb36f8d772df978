#include "archive/ErroreArchivio.h"

#include <QSqlError>

using namespace Qt::StringLiterals;

namespace {

// What the operator can do about it; the engine's English text follows in brackets.
QString spiegazione(int codice) {
    enum Sqlite {
        BUSY = 5,
        LOCKED = 6,
        READONLY = 8,
        IOERR = 10,
        CORRUPT = 11,
        FULL = 13,
        CANTOPEN = 14,
        NOTADB = 26
    };
    switch (codice & 0xFF) {
        case BUSY:
        case LOCKED:
            return u"L'archivio è in uso da parte di un altro programma."_s;
        case READONLY:
            return u"L'archivio o la sua cartella non si possono scrivere: controllare i permessi."_s;
        case IOERR:
            return u"Il disco dell'archivio non risponde correttamente."_s;
        case CORRUPT:
            return u"L'archivio è danneggiato. Ripristinare l'ultima copia dalla cartella Backup."_s;
        case FULL:
            return u"Il disco è pieno: liberare spazio e ripetere l'operazione."_s;
        case CANTOPEN:
            return u"L'archivio non si può aprire: controllare il file e i permessi della cartella."_s;
        case NOTADB:
            return u"Il file dell'archivio non è un archivio di Velmora."_s;
        default:
            return u"Operazione sull'archivio non riuscita."_s;
    }
}

}  // namespace

ErroreArchivio::ErroreArchivio(const QSqlError& errore)
    : Errore(u"%1\n(%2)"_s.arg(spiegazione(errore.nativeErrorCode().toInt()), errore.databaseText())) {}

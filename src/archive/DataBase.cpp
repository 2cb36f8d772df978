#include "archive/DataBase.h"

#include "archive/Disco.h"
#include "archive/ErroreArchivio.h"
#include "archive/Giornale.h"
#include "archive/PercorsoApp.h"
#include "archive/Schema.h"
#include "archive/Statement.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions SoloProprietario = QFile::ReadOwner | QFile::WriteOwner;
constexpr int InizioIdentificativo = 68;  // in the file's header, four bytes, the highest first

void scriviTabelle(Connessione& connessione, int primaDelPasso) {
    const auto presente = [&](int passo) { return primaDelPasso == 0 || passo < primaDelPasso; };
    Transazione transazione(connessione);
    for (const Tabella& tabella : tabelle()) {
        if (presente(tabella.passo))
            Statement(sqlCreaTabella(tabella, primaDelPasso), connessione).esegui();
    }
    for (const Indice& indice : indici()) {
        if (presente(indice.passo))
            Statement(sqlCreaIndice(indice), connessione).esegui();
    }
    Statement(u"PRAGMA application_id=%1"_s.arg(IdentificativoArchivio), connessione).esegui();
    transazione.conferma();
}

// What can be told without the engine, which must not touch a file that is not ours.
QString difettoDelFile(const QString& percorso) {
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        return u"non si può leggere (%1)"_s.arg(file.errorString());
    const QByteArray testata = file.read(InizioIdentificativo + 4);
    if (testata.isEmpty())
        return u"è vuoto"_s;
    if (!testata.startsWith(QByteArray("SQLite format 3", 16)))
        return u"non è un archivio"_s;
    if (testata.size() < InizioIdentificativo + 4)
        return u"è danneggiato (la testata è incompleta)"_s;
    if (qFromBigEndian<qint32>(testata.constData() + InizioIdentificativo) != IdentificativoArchivio)
        return u"è un archivio di un altro programma"_s;
    return {};
}

QString difettoInterno(Connessione& connessione) {
    try {
        Statement controllo(u"PRAGMA integrity_check(1)"_s, connessione);
        if (!controllo.esegui().prossima())
            return u"è danneggiato"_s;
        const QString esito = controllo.testo(0);
        return esito == u"ok" ? QString() : u"è danneggiato (%1)"_s.arg(esito);
    } catch (const ErroreArchivio& errore) {
        return u"non si può usare. %1"_s.arg(errore.testo());
    }
}

void rifiuta(const QString& difetto) {
    throw ErroreArchivio(
        u"Il file dell'archivio\n%1\n%2.\n\nIl file non è stato toccato. Spostarlo, insieme al file\n%3\n"
        "se c'è, oppure rimettere al suo posto l'ultima copia della cartella Backup."_s.arg(
            percorsoArchivio(), difetto, percorsoGiornale(percorsoArchivio())));
}

QString avvisoGiornale(const QString& messoDaParte) {
    return u"Accanto all'archivio c'era il file di un'operazione interrotta che appartiene a un altro "
           "archivio. È stato messo da parte come\n%1\ne l'archivio non è stato toccato."_s.arg(messoDaParte);
}

// A crash while the first page was written hurts the header alone; the journal holds what it was. Recovered
// on copies: the archive is replaced only by a whole one, and the hurt file is kept. False when that cannot
// be.
bool recuperaTestata(const QString& percorso) {
    const QString copia = percorso + u".recupero"_s;
    const auto togliCopie = [&] {
        QFile::remove(copia);
        QFile::remove(percorsoGiornale(copia));
    };
    const auto recuperata = [&] {
        try {
            const Connessione connessione(copia);  // rolls the journal back
            return true;
        } catch (const ErroreArchivio&) {
            return false;
        }
    };
    togliCopie();
    const QString guasto = percorso + QDateTime::currentDateTime().toString(u"'-guasto-'yyyy-MM-dd-HHmmss"_s);
    const bool intero =
        QFile::copy(percorso, copia) && QFile::copy(percorsoGiornale(percorso), percorsoGiornale(copia)) &&
        QFile::setPermissions(copia, SoloProprietario) && recuperata() && difettoArchivio(copia).isEmpty() &&
        QFile::copy(percorso, guasto) && sostituisciFile(copia, percorso);
    // Last: until here the next start can do it all again.
    if (intero)
        mettiDaParteGiornale(percorso);
    togliCopie();
    return intero;
}

}  // namespace

QString percorsoArchivio() {
    return percorsoNelProgramma(u"mdvlm.mdb"_s);
}

Connessione& Conn() {
    static Connessione connessione;
    return connessione;
}

Connessione& ConnShape() {
    static Connessione connessione;
    return connessione;
}

QString difettoArchivio(const QString& percorso) {
    QString difetto = difettoDelFile(percorso);
    if (!difetto.isEmpty())
        return difetto;
    try {
        Connessione connessione(percorso);
        return difettoInterno(connessione);
    } catch (const ErroreArchivio& errore) {
        return u"non si può usare. %1"_s.arg(errore.testo());
    }
}

void creaArchivio(const QString& percorso, int primaDelPasso) {
    // Built aside and renamed: a process killed half-way leaves no half-made archive under the real name.
    const QString aParte = percorso + u".nuovo"_s;
    const auto togli = [&] {
        QFile::remove(aParte);
        QFile::remove(percorsoGiornale(aParte));
    };
    togli();
    QFile file(aParte);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, SoloProprietario)) {
        throw ErroreArchivio(u"Impossibile creare l'archivio nella cartella %1: %2."_s.arg(
            QFileInfo(percorso).path(), file.errorString()));
    }
    file.close();
    try {
        Connessione connessione(aParte);
        scriviTabelle(connessione, primaDelPasso);
    } catch (...) {
        togli();
        throw;
    }
    if (!QFile::rename(aParte, percorso)) {
        togli();
        throw ErroreArchivio(u"Impossibile creare l'archivio %1."_s.arg(percorso));
    }
    sincronizzaCartella(QFileInfo(percorso).path());
}

QString PreparaArchivio() {
    const QString percorso = percorsoArchivio();
    const QFileInfo file(percorso);
    if (!file.exists() && !file.isSymLink()) {
        const QString messoDaParte = mettiDaParteGiornale(percorso);
        creaArchivio(percorso);
        return messoDaParte.isEmpty() ? QString() : avvisoGiornale(messoDaParte);
    }
    QString avviso;
    if (const QString difetto = difettoDelFile(percorso); !difetto.isEmpty()) {
        if (riconosciGiornale(percorso) != Giornale::Proprio || !recuperaTestata(percorso))
            rifiuta(difetto);
        avviso =
            u"L'ultima operazione era stata interrotta mentre si scriveva l'archivio: l'archivio è stato "
            "recuperato com'era prima di quella operazione."_s;
    }
    // The engine needs the folder too: its journal stands beside the file.
    if (!file.isWritable() || !QFileInfo(file.path()).isWritable()) {
        throw ErroreArchivio(
            u"L'archivio %1 o la sua cartella non si possono scrivere: controllare i permessi."_s.arg(
                percorso));
    }
    if (riconosciGiornale(percorso) == Giornale::Estraneo)
        avviso = avvisoGiornale(mettiDaParteGiornale(percorso));
    return avviso;
}

void ApriDataBase() {
    Conn().apri(percorsoArchivio());
    try {
        ConnShape().apri(percorsoArchivio());
    } catch (...) {
        Conn().chiudi();
        throw;
    }
}

void VerificaArchivio() {
    if (const QString difetto = difettoInterno(Conn()); !difetto.isEmpty())
        rifiuta(difetto);
}

void ChiudiDataBase() {
    Conn().chiudi();
    ConnShape().chiudi();
}

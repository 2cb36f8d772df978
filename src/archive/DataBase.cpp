#include "archive/DataBase.h"

#include "archive/ErroreArchivio.h"
#include "archive/PercorsoApp.h"
#include "archive/Schema.h"
#include "archive/Statement.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QtEndian>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

const QString NomeConn = u"Conn"_s;
const QString NomeConnShape = u"ConnShape"_s;
constexpr QFile::Permissions SoloProprietario = QFile::ReadOwner | QFile::WriteOwner;

// Opens a file that is there; an archive that vanished while the program runs must not come back empty.
void impostaFile(QSqlDatabase& db, const QString& percorso) {
    db.setDatabaseName(QString::fromLatin1(QUrl::fromLocalFile(percorso).toEncoded()) + u"?mode=rw"_s);
    db.setConnectOptions(u"QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=5000"_s);
    if (!db.open())
        throw ErroreArchivio(db.lastError());
}

// A connection that lives for one check or one creation.
class ConnessioneTemporanea final {
public:
    explicit ConnessioneTemporanea(const QString& percorso) {
        try {
            m_db = QSqlDatabase::addDatabase(u"QSQLITE"_s, Nome);
            impostaFile(m_db, percorso);
        } catch (...) {
            dimentica();
            throw;
        }
    }
    Q_DISABLE_COPY_MOVE(ConnessioneTemporanea)
    ~ConnessioneTemporanea() { dimentica(); }
    [[nodiscard]] const QSqlDatabase& db() const { return m_db; }

private:
    void dimentica() {
        m_db.close();
        m_db = QSqlDatabase();
        QSqlDatabase::removeDatabase(Nome);
    }

    inline static const QString Nome = u"temporanea"_s;
    QSqlDatabase m_db;
};

void chiudi(const QString& nome) {
    if (!QSqlDatabase::contains(nome))
        return;
    QSqlDatabase::database(nome, false).close();
    QSqlDatabase::removeDatabase(nome);
}

void configura(QSqlDatabase db) {
    impostaFile(db, percorsoArchivio());
    for (const char* pragma :
         {"PRAGMA foreign_keys=ON", "PRAGMA synchronous=FULL", "PRAGMA journal_mode=DELETE"})
        Statement(QString::fromLatin1(pragma), db).esegui();
}

void apri(const QString& nome) {
    if (QSqlDatabase::contains(nome))
        throw ErroreArchivio(u"La connessione %1 all'archivio è già aperta."_s.arg(nome));
    try {
        configura(QSqlDatabase::addDatabase(u"QSQLITE"_s, nome));
    } catch (...) {
        chiudi(nome);
        throw;
    }
}

void scriviTabelle(const QSqlDatabase& db, int primaDelPasso) {
    const auto presente = [&](int passo) { return primaDelPasso == 0 || passo < primaDelPasso; };
    Transazione transazione(db);
    for (const Tabella& tabella : tabelle()) {
        if (presente(tabella.passo))
            Statement(sqlCreaTabella(tabella, primaDelPasso), db).esegui();
    }
    for (const Indice& indice : indici()) {
        if (presente(indice.passo))
            Statement(sqlCreaIndice(indice), db).esegui();
    }
    Statement(u"PRAGMA application_id=%1"_s.arg(IdentificativoArchivio), db).esegui();
    transazione.conferma();
}

constexpr int InizioIdentificativo = 68;  // in the file's header, four bytes, the highest first

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

QString difettoInterno(const QSqlDatabase& connessione) {
    try {
        Statement controllo(u"PRAGMA quick_check(1)"_s, connessione);
        if (controllo.esegui().prossima() && controllo.testo(0) == u"ok")
            return {};
        return u"è danneggiato (%1)"_s.arg(controllo.testo(0));
    } catch (const ErroreArchivio& errore) {
        return u"non si può usare. %1"_s.arg(errore.testo());
    }
}

void rifiuta(const QString& difetto) {
    throw ErroreArchivio(
        u"Il file dell'archivio\n%1\n%2.\n\nIl file non è stato toccato. Spostarlo, "
        "oppure rimettere al suo posto l'ultima copia della cartella Backup."_s.arg(percorsoArchivio(),
                                                                                    difetto));
}

}  // namespace

QString percorsoArchivio() {
    return percorsoNelProgramma(u"mdvlm.mdb"_s);
}

QSqlDatabase Conn() {
    return QSqlDatabase::database(NomeConn, false);
}

QSqlDatabase ConnShape() {
    return QSqlDatabase::database(NomeConnShape, false);
}

QString difettoArchivio(const QString& percorso) {
    const QString difetto = difettoDelFile(percorso);
    return difetto.isEmpty() ? difettoInterno(ConnessioneTemporanea(percorso).db()) : difetto;
}

void creaArchivio(const QString& percorso, int primaDelPasso) {
    // Built aside and renamed: a process killed half-way leaves no half-made archive under the real name.
    const QString aParte = percorso + u".nuovo"_s;
    QFile::remove(aParte);
    QFile file(aParte);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, SoloProprietario)) {
        throw ErroreArchivio(u"Impossibile creare l'archivio nella cartella %1: %2."_s.arg(
            QFileInfo(percorso).path(), file.errorString()));
    }
    file.close();
    try {
        const ConnessioneTemporanea connessione(aParte);
        scriviTabelle(connessione.db(), primaDelPasso);
    } catch (...) {
        QFile::remove(aParte);
        throw;
    }
    if (!QFile::rename(aParte, percorso)) {
        QFile::remove(aParte);
        throw ErroreArchivio(u"Impossibile creare l'archivio %1."_s.arg(percorso));
    }
}

void PreparaArchivio() {
    const QString percorso = percorsoArchivio();
    const QFileInfo file(percorso);
    if (!file.exists() && !file.isSymLink()) {
        creaArchivio(percorso);
        return;
    }
    if (const QString difetto = difettoDelFile(percorso); !difetto.isEmpty())
        rifiuta(difetto);
    // The engine needs the folder too: its journal stands beside the file.
    if (!file.isWritable() || !QFileInfo(file.path()).isWritable()) {
        throw ErroreArchivio(
            u"L'archivio %1 o la sua cartella non si possono scrivere: controllare i permessi."_s.arg(
                percorso));
    }
}

void ApriDataBase() {
    apri(NomeConn);
    apri(NomeConnShape);
}

void VerificaArchivio() {
    if (const QString difetto = difettoInterno(Conn()); !difetto.isEmpty())
        rifiuta(difetto);
}

void ChiudiDataBase() {
    chiudi(NomeConn);
    chiudi(NomeConnShape);
}

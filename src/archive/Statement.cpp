#include "archive/Statement.h"

#include "archive/ErroreArchivio.h"

#include <sqlite3.h>
#include <QLocale>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

// Texts go to and from the engine in UTF-8, its own form: as UTF-16 a read of 24,000 rows took two thirds
// more.

Statement::Statement(const QString& sql, Connessione& connessione) : m_connessione(connessione) {
    const QByteArray testo = sql.toUtf8();
    if (sqlite3_prepare_v2(connessione.motore(), testo.constData(), static_cast<int>(testo.size()) + 1,
                           &m_istruzione, nullptr) != SQLITE_OK)
        connessione.fallisci();
}

Statement::~Statement() {
    sqlite3_finalize(m_istruzione);
}

void Statement::lega(int posto, const QVariant& valore) {
    int esito = SQLITE_OK;
    switch (valore.typeId()) {
        case QMetaType::UnknownType:
        case QMetaType::Nullptr:
            esito = sqlite3_bind_null(m_istruzione, posto);
            break;
        case QMetaType::Bool:
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            esito = sqlite3_bind_int64(m_istruzione, posto, valore.toLongLong());
            break;
        case QMetaType::Float:
        case QMetaType::Double:
            esito = sqlite3_bind_double(m_istruzione, posto, valore.toDouble());
            break;
        case QMetaType::QByteArray: {
            const QByteArray byte = valore.toByteArray();
            esito = sqlite3_bind_blob64(m_istruzione, posto, byte.constData(),
                                        static_cast<sqlite3_uint64>(byte.size()), SQLITE_TRANSIENT);
            break;
        }
        default: {
            const QString testo = valore.toString();
            const QByteArray utf8 = testo.toUtf8();
            esito = testo.isNull() ? sqlite3_bind_null(m_istruzione, posto)
                                   : sqlite3_bind_text64(m_istruzione, posto, utf8.constData(),
                                                         static_cast<sqlite3_uint64>(utf8.size()),
                                                         SQLITE_TRANSIENT, SQLITE_UTF8);
        }
    }
    if (esito != SQLITE_OK)
        m_connessione.fallisci();
}

bool Statement::passo() {
    const int esito = sqlite3_step(m_istruzione);
    if (esito == SQLITE_ROW)
        return true;
    m_stato = Stato::Ferma;
    if (esito != SQLITE_DONE) {
        try {
            m_connessione.fallisci();
        } catch (...) {
            sqlite3_reset(m_istruzione);
            throw;
        }
    }
    sqlite3_reset(m_istruzione);  // the read lock goes now, not with this object
    return false;
}

Statement& Statement::esegui(const QVariantList& valori) {
    sqlite3_reset(m_istruzione);
    m_stato = Stato::Ferma;
    if (const int attesi = sqlite3_bind_parameter_count(m_istruzione); attesi != valori.size()) {
        throw ErroreArchivio(u"L'istruzione dell'archivio vuole %1 valori e ne ha %2."_s.arg(
            QString::number(attesi), QString::number(valori.size())));
    }
    for (int i = 0; i < valori.size(); ++i)
        lega(i + 1, valori.at(i));
    if (passo())
        m_stato = Stato::PrimaRiga;
    sqlite3* motore = m_connessione.motore();
    m_toccate = sqlite3_changes(motore);
    m_chiave = static_cast<int>(sqlite3_last_insert_rowid(motore));
    return *this;
}

bool Statement::prossima() {
    switch (m_stato) {
        case Stato::PrimaRiga:
            m_stato = Stato::InCorso;
            return true;
        case Stato::InCorso:
            return passo();
        case Stato::Ferma:
            break;
    }
    return false;
}

QString Statement::testo(int colonna) const {
    // The engine would write 1965.0 for a whole real.
    if (sqlite3_column_type(m_istruzione, colonna) == SQLITE_FLOAT)
        return QString::number(reale(colonna), 'g', QLocale::FloatingPointShortest);
    const std::string_view byte = utf8(colonna);
    return byte.data() ? QString::fromUtf8(byte.data(), static_cast<qsizetype>(byte.size())) : QString();
}

int Statement::intero(int colonna) const {
    return sqlite3_column_type(m_istruzione, colonna) == SQLITE_FLOAT
               ? qRound(reale(colonna))
               : sqlite3_column_int(m_istruzione, colonna);
}

double Statement::reale(int colonna) const {
    return sqlite3_column_double(m_istruzione, colonna);
}

bool Statement::nullo(int colonna) const {
    return sqlite3_column_type(m_istruzione, colonna) == SQLITE_NULL;
}

std::string_view Statement::utf8(int colonna) const {
    const auto* byte = reinterpret_cast<const char*>(sqlite3_column_text(m_istruzione, colonna));
    if (!byte)
        return {};
    return {byte, static_cast<std::size_t>(sqlite3_column_bytes(m_istruzione, colonna))};
}

QVariant Statement::valore(int colonna) const {
    switch (sqlite3_column_type(m_istruzione, colonna)) {
        case SQLITE_INTEGER:
            return static_cast<qlonglong>(sqlite3_column_int64(m_istruzione, colonna));
        case SQLITE_FLOAT:
            return reale(colonna);
        case SQLITE_TEXT:
            return testo(colonna);
        case SQLITE_BLOB:
            return QByteArray(static_cast<const char*>(sqlite3_column_blob(m_istruzione, colonna)),
                              sqlite3_column_bytes(m_istruzione, colonna));
        default:
            return {};
    }
}

int Statement::colonna(const QString& nome) const {
    const QByteArray cercata = nome.toUtf8();
    for (int i = 0; i < sqlite3_column_count(m_istruzione); ++i) {
        if (sqlite3_stricmp(sqlite3_column_name(m_istruzione, i), cercata.constData()) == 0)
            return i;
    }
    throw ErroreArchivio(u"Nel risultato manca la colonna %1."_s.arg(nome));
}

int esegui(const QString& sql, const QVariantList& valori) {
    return Statement(sql).esegui(valori).righeToccate();
}

int inserisci(const QString& sql, const QVariantList& valori) {
    return Statement(sql).esegui(valori).ultimaChiave();
}

bool esisteRiga(const QString& sql, const QVariantList& valori) {
    return Statement(sql).esegui(valori).prossima();
}

std::optional<QVariant> leggiValore(const QString& sql, const QVariantList& valori) {
    Statement lettura(sql);
    if (!lettura.esegui(valori).prossima())
        return std::nullopt;
    return lettura.valore(0);
}

int inserisciRiga(const QString& tabella, const QVariantMap& valori) {
    const QStringList colonne = valori.keys();
    return inserisci(u"INSERT INTO [%1] ([%2]) VALUES (?%3)"_s.arg(tabella, colonne.join(u"],["),
                                                                   u",?"_s.repeated(colonne.size() - 1)),
                     valori.values());
}

int aggiornaRiga(const QString& tabella, const QString& chiave, int id, const QVariantMap& valori) {
    const QStringList colonne = valori.keys();
    return esegui(u"UPDATE [%1] SET [%2]=? WHERE [%3]=?"_s.arg(tabella, colonne.join(u"]=?,["), chiave),
                  valori.values() << id);
}

Transazione::Transazione(Connessione& connessione) : m_connessione(&connessione) {
    Statement(u"BEGIN IMMEDIATE"_s, connessione).esegui();
}

Transazione::~Transazione() {
    // The engine may have rolled back by itself (disk full): there is nothing more to do then.
    if (m_connessione && m_connessione->aperta() && sqlite3_get_autocommit(m_connessione->motore()) == 0 &&
        sqlite3_exec(m_connessione->motore(), "ROLLBACK", nullptr, nullptr, nullptr) != SQLITE_OK)
        qWarning("rollback: %s", sqlite3_errmsg(m_connessione->motore()));
}

void Transazione::conferma() {
    Statement(u"COMMIT"_s, *m_connessione).esegui();
    m_connessione = nullptr;
}

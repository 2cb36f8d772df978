#include "archive/Statement.h"

#include "archive/ErroreArchivio.h"

#include <QLoggingCategory>
#include <QSqlError>
#include <QSqlRecord>

using namespace Qt::StringLiterals;

Statement::Statement(const QString& sql, const QSqlDatabase& connessione) : m_query(connessione) {
    m_query.setForwardOnly(true);
    if (!m_query.prepare(sql))
        throw ErroreArchivio(m_query.lastError());
}

Statement& Statement::esegui(const QVariantList& valori) {
    m_query.finish();
    for (int i = 0; i < valori.size(); ++i)
        m_query.bindValue(i, valori.at(i));
    if (!m_query.exec())
        throw ErroreArchivio(m_query.lastError());
    return *this;
}

bool Statement::prossima() {
    if (m_query.next())
        return true;
    // A read that fails half-way ends like one that is over: only the error tells them apart.
    if (m_query.lastError().isValid())
        throw ErroreArchivio(m_query.lastError());
    return false;
}

int Statement::colonna(const QString& nome) const {
    const int indice = m_query.record().indexOf(nome);
    if (indice < 0)
        throw ErroreArchivio(u"Nel risultato manca la colonna %1."_s.arg(nome));
    return indice;
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

Transazione::Transazione(const QSqlDatabase& connessione) : m_connessione(connessione) {
    Statement(u"BEGIN IMMEDIATE"_s, m_connessione).esegui();
}

Transazione::~Transazione() {
    if (!m_aperta)
        return;
    // The engine may have rolled back by itself (disk full): there is nothing more to do then.
    QSqlQuery annulla(m_connessione);
    if (!annulla.exec(u"ROLLBACK"_s))
        qWarning("rollback: %s", qPrintable(annulla.lastError().text()));
}

void Transazione::conferma() {
    Statement(u"COMMIT"_s, m_connessione).esegui();
    m_aperta = false;
    m_connessione = QSqlDatabase();  // the connection may be closed while this object is still in scope
}

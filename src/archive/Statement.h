#pragma once

#include "archive/DataBase.h"

#include <optional>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <QVariantMap>

// One statement on the archive: prepared, bound, run forward-only, finished when it goes out of scope.
// Every failure throws ErroreArchivio. It may be run again with other values.
class Statement final {
public:
    explicit Statement(const QString& sql, const QSqlDatabase& connessione = Conn());
    Q_DISABLE_COPY_MOVE(Statement)
    ~Statement() = default;

    Statement& esegui(const QVariantList& valori = {});
    bool prossima();  // moves to the next row; false after the last

    // Values of the current row; Null reads as empty text, 0, false.
    [[nodiscard]] QVariant valore(int colonna) const { return m_query.value(colonna); }
    [[nodiscard]] QString testo(int colonna) const { return valore(colonna).toString(); }
    [[nodiscard]] int intero(int colonna) const { return valore(colonna).toInt(); }
    [[nodiscard]] double reale(int colonna) const { return valore(colonna).toDouble(); }
    [[nodiscard]] bool vero(int colonna) const { return valore(colonna).toInt() != 0; }
    [[nodiscard]] bool nullo(int colonna) const { return m_query.isNull(colonna); }

    // Position of a named column (case does not count); throws when the result has none of that name.
    [[nodiscard]] int colonna(const QString& nome) const;
    [[nodiscard]] QString testo(const QString& nome) const { return testo(colonna(nome)); }
    [[nodiscard]] QVariant valore(const QString& nome) const { return valore(colonna(nome)); }

    [[nodiscard]] int righeToccate() const { return m_query.numRowsAffected(); }
    [[nodiscard]] int ultimaChiave() const { return m_query.lastInsertId().toInt(); }

private:
    QSqlQuery m_query;
};

// One-line forms. `esegui` gives the rows touched, `inserisci` the new counter key.
int esegui(const QString& sql, const QVariantList& valori = {});
int inserisci(const QString& sql, const QVariantList& valori = {});
bool esisteRiga(const QString& sql, const QVariantList& valori = {});
// First column of the first row; nothing when there is no row.
std::optional<QVariant> leggiValore(const QString& sql, const QVariantList& valori = {});

// A row from named values: column names are the caller's own words, never typed text. `inserisciRiga` gives
// the new counter key; `aggiornaRiga` writes the row of that key and gives the rows touched.
int inserisciRiga(const QString& tabella, const QVariantMap& valori);
int aggiornaRiga(const QString& tabella, const QString& chiave, int id, const QVariantMap& valori);

// A write lock on the archive from construction; undone at the end of its scope unless confirmed.
class Transazione final {
public:
    explicit Transazione(const QSqlDatabase& connessione = Conn());
    Q_DISABLE_COPY_MOVE(Transazione)
    ~Transazione();
    void conferma();

private:
    QSqlDatabase m_connessione;
    bool m_aperta = true;
};

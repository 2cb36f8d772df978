#pragma once

#include "archive/DataBase.h"

#include <optional>
#include <QString>
#include <QVariant>
#include <QVariantMap>
#include <string_view>

struct sqlite3_stmt;

// One statement on the archive: prepared, bound, run forward-only, finished when it goes out of scope.
// Every failure throws ErroreArchivio. It may be run again with other values.
class Statement final {
public:
    explicit Statement(const QString& sql, Connessione& connessione = Conn());
    Q_DISABLE_COPY_MOVE(Statement)
    ~Statement();

    // Binds in order and runs. An invalid value and a Null text are stored as Null.
    Statement& esegui(const QVariantList& valori = {});
    bool prossima();  // moves to the next row; false after the last

    // Values of the current row; Null reads as empty text, 0, false. A real read as a whole number is
    // rounded.
    [[nodiscard]] QString testo(int colonna) const;
    [[nodiscard]] int intero(int colonna) const;
    [[nodiscard]] double reale(int colonna) const;
    [[nodiscard]] bool vero(int colonna) const { return intero(colonna) != 0; }
    [[nodiscard]] bool nullo(int colonna) const;
    // The text as it lies in the archive, in UTF-8, valid until the next row; for reads of many rows.
    [[nodiscard]] std::string_view utf8(int colonna) const;
    // With its own type, for values that are carried and not looked at.
    [[nodiscard]] QVariant valore(int colonna) const;

    // Position of a named column (case does not count); throws when the result has none of that name.
    [[nodiscard]] int colonna(const QString& nome) const;
    [[nodiscard]] QString testo(const QString& nome) const { return testo(colonna(nome)); }
    [[nodiscard]] QVariant valore(const QString& nome) const { return valore(colonna(nome)); }

    [[nodiscard]] int righeToccate() const { return m_toccate; }
    [[nodiscard]] int ultimaChiave() const { return m_chiave; }

private:
    enum class Stato { Ferma, PrimaRiga, InCorso };
    void lega(int posto, const QVariant& valore);
    bool passo();

    Connessione& m_connessione;
    sqlite3_stmt* m_istruzione = nullptr;
    Stato m_stato = Stato::Ferma;
    int m_toccate = 0;
    int m_chiave = 0;
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
    explicit Transazione(Connessione& connessione = Conn());
    Q_DISABLE_COPY_MOVE(Transazione)
    ~Transazione();
    void conferma();

private:
    Connessione* m_connessione;  // none once confirmed: the connection may be closed in this object's scope
};

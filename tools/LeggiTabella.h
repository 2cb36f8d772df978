#pragma once

#include "archive/Schema.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <QVariant>

// The rows of one tab-separated file, each cell checked and turned into the value of its column in the
// archive. Every failure throws Errore with the file's name and the line.
class TabellaDati final {
public:
    struct Forma {
        const char* tabella;
        QStringList obbligatorie;  // columns that must be there and hold something in every row
        QStringList altre = {};    // columns of the file alone: natural keys and references, kept as text
    };

    TabellaDati(const QString& percorso, const Forma& forma);

    [[nodiscard]] const QString& tabella() const { return m_nomeTabella; }
    [[nodiscard]] const QStringList& colonne() const { return m_colonne; }
    [[nodiscard]] qsizetype numeroRighe() const { return m_righe.size(); }
    // Null for an empty cell and for a column that the file does not have.
    [[nodiscard]] QVariant valore(qsizetype riga, const QString& colonna) const;
    [[nodiscard]] QString testo(qsizetype riga, const QString& colonna) const;

    // Row of each value of a natural key; refuses a value that comes twice.
    [[nodiscard]] QHash<QString, qsizetype> indice(const QString& chiave) const;

    // Row 0 is on the second line of the file; -1 stands for the line of the names.
    [[noreturn]] void rifiuta(qsizetype riga, const QString& motivo) const;

private:
    void leggiNomi(const Tabella& tabella, const Forma& forma, const QString& linea);
    void leggiRiga(const Tabella& tabella, const Forma& forma, const QString& linea);

    QString m_file;
    QString m_nomeTabella;
    QStringList m_colonne;
    QList<QVariantList> m_righe;
};

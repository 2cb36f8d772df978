#pragma once

#include <QString>
#include <QStringList>
#include <span>

// The tables of the archive as data. `passo` is the upgrade step that brings a table, a column or an index
// into an older archive (archive/Aggiornamenti); 0 for what every archive has.

enum class TipoColonna { Contatore, Lungo, Doppio, Bit, Numero, Testo, Data };

struct Colonna {
    const char* nome;
    TipoColonna tipo;
    int passo = 0;
    const char* padre = nullptr;  // table whose deletion of a row deletes the rows that refer to it here
};

struct Tabella {
    const char* nome;
    std::span<const Colonna> colonne;
    int passo = 0;
    bool appoggio = false;  // scratch: holds no data between uses
};

struct Indice {
    const char* nome;
    const char* tabella;
    const char* colonne;
    int passo = 0;
};

std::span<const Tabella> tabelle();
std::span<const Indice> indici();

const Tabella* trovaTabella(QStringView nome);  // nullptr when there is none; case does not count
bool haColonna(const Tabella& tabella, QStringView nome);

// Statements that make the table or the index; only what is older than the upgrade step, when one is given.
QString sqlCreaTabella(const Tabella& tabella, int primaDelPasso = 0);
QString sqlCreaIndice(const Indice& indice);
// Declaration of a column: quoted name, type, reference.
QString sqlColonna(const Colonna& colonna);

#pragma once

#include "download/Assegnazione.h"

#include <QAbstractTableModel>

// What the download windows show in their grids.

// The received readings, as `TempRil` holds them: the first ones at once, the others as they come into sight.
class ModelloTempRil final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Colonna { Numero, Equipaggio, Prova, TempoStart, TempoPassaggio, Colonne };

    using QAbstractTableModel::QAbstractTableModel;

    void ricarica();           // reads the table again, in the order last asked for
    void ordina(int colonna);  // by that column; without it, as they came

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo = Qt::DisplayRole) const override;
    QVariant headerData(int sezione, Qt::Orientation verso, int ruolo = Qt::DisplayRole) const override;
    bool canFetchMore(const QModelIndex& padre) const override;
    void fetchMore(const QModelIndex& padre) override;

private:
    struct Riga {
        int num = 0;
        int idEqu = 0;
        int idPro = 0;
        QString tPar;
        QString tArr;
    };
    [[nodiscard]] QList<Riga> leggiBlocco(qsizetype da) const;

    QList<Riga> m_righe;
    int m_quante = 0;                 // rows of the table
    QHash<int, QString> m_equipaggi;  // names, by key
    QHash<int, QString> m_prove;
    int m_ordine = -1;
};

// The records of the last download that became no reading.
class ModelloScartati final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Colonna { Numero, Tempo, Motivo, Colonne };

    using QAbstractTableModel::QAbstractTableModel;

    void mostra(const QList<RecordScartato>& scartati);

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo = Qt::DisplayRole) const override;
    QVariant headerData(int sezione, Qt::Orientation verso, int ruolo = Qt::DisplayRole) const override;

private:
    QList<RecordScartato> m_scartati;
};

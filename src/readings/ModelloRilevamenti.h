#pragma once

#include "readings/Concatenazione.h"

#include <QAbstractTableModel>

// What a readings grid lets the operator do.
enum class ModoGriglia {
    Manuale,     // times and added penalties; chains as typed by hand, a deleted time is empty
    Ricezione,   // times alone; chains as at reception, a deleted time is "00:00:00:00", a blank one looks so
    Correzione,  // the same; a row with a blank time is not computed
    PenalitaAggiuntive,  // added penalties and their reasons alone
};

// A crew's readings on the archive: a changed cell is written, with what it reaches along its chain, in one
// transaction, and its rows are computed anew. What throws leaves everything as it was.
class ModelloRilevamenti final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Colonna {
        NomeProva,
        TempoImposto,
        TempoStart,
        TempoPassaggio,
        PenAgg,
        DesPenAgg,
        Netto,
        Scarto,
        Penalita,
        Colonne
    };
    enum Ruolo { RuoloStile = Qt::UserRole };  // StileScarto, on Scarto

    explicit ModelloRilevamenti(QObject* padre = nullptr);
    Q_DISABLE_COPY_MOVE(ModelloRilevamenti)
    ~ModelloRilevamenti() override = default;

    // Reads the scoring settings of the active event, which stand until it is called again.
    void apri(ModoGriglia modo);
    void mostra(int idEqu, bool asi);
    void ricarica();
    // What was typed in a cell: digits for a time, a number for an added penalty (0 when blank), any text for
    // a reason. False, and nothing written, when an added penalty is no number. Throws ErroreArchivio, and
    // Errore when the row is gone.
    bool scrivi(const QModelIndex& indice, const QString& testo);
    // Empties a time cell, along its chain as well. Throws like the other.
    void cancellaTempo(const QModelIndex& indice);

    [[nodiscard]] int idEqu() const { return m_idEqu; }
    [[nodiscard]] ModoGriglia modo() const { return m_modo; }
    [[nodiscard]] const std::vector<RigaRilevamento>& righe() const { return m_righe; }
    [[nodiscard]] double totale() const;  // penalties of the rows that have one
    [[nodiscard]] bool modificabile(int colonna) const;
    static bool diTempo(int colonna) { return colonna == TempoStart || colonna == TempoPassaggio; }

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo = Qt::DisplayRole) const override;
    QVariant headerData(int sezione, Qt::Orientation verso, int ruolo = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& indice) const override;
    // As `scrivi`, for the view: what fails is thrown from the event loop.
    bool setData(const QModelIndex& indice, const QVariant& valore, int ruolo = Qt::EditRole) override;

Q_SIGNALS:
    void modificata(int idEqu);  // a cell was written
    void totaleCambiato();       // the rows were computed

private:
    [[nodiscard]] QString testo(const RigaRilevamento& riga, const CalcoloRiga& calcolo, int colonna) const;
    // Chains, and a deleted time, as at reception.
    [[nodiscard]] bool diRicezione() const {
        return m_modo == ModoGriglia::Ricezione || m_modo == ModoGriglia::Correzione;
    }
    [[nodiscard]] CalcoloRiga calcola(const RigaRilevamento& riga) const;
    void scriviTempo(const QModelIndex& indice, const QString& valore);
    bool scriviPenAgg(int riga, const QString& testo);
    void scriviDescrizione(int riga, const QString& testo);
    void ricalcola(int riga);

    ModoGriglia m_modo = ModoGriglia::Manuale;
    Impostazione m_impostazione;
    int m_idEqu = 0;
    bool m_asi = false;
    std::vector<RigaRilevamento> m_righe;
    std::vector<CalcoloRiga> m_calcoli;
};

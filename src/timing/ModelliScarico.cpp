#include "timing/ModelliScarico.h"

#include "archive/Statement.h"

using namespace Qt::StringLiterals;

namespace {

QVariant allineamento(bool numero) {
    return QVariant::fromValue<Qt::Alignment>((numero ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

// Tests come in their own order, not in that of their names.
constexpr const char* Ordini[ModelloTempRil::Colonne] = {"t.Num", "Equipaggio", "t.IDPro_FK", "t.TPar",
                                                         "t.TArr"};

}  // namespace

void ModelloTempRil::ricarica() {
    beginResetModel();
    m_righe.clear();
    const QString ordine = m_ordine < 0 ? QString() : QLatin1StringView(Ordini[m_ordine]) + u","_s;
    {
        Statement query(
            u"SELECT t.Num,coalesce(e.Cog,'')||' '||coalesce(e.CogNav,'') AS Equipaggio,p.Nom,t.TPar,t.TArr "
            "FROM TempRil t LEFT JOIN Equipaggi e ON e.IDEqu=t.IDEqu_FK "
            "LEFT JOIN Prove p ON p.IDPro=t.IDPro_FK ORDER BY %1t.rowid"_s.arg(ordine));
        query.esegui();
        while (query.prossima())
            m_righe.append({query.testo(0), query.testo(1), query.testo(2), query.testo(3), query.testo(4)});
    }
    endResetModel();
}

void ModelloTempRil::ordina(int colonna) {
    m_ordine = colonna;
    ricarica();
}

int ModelloTempRil::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(m_righe.size());
}

int ModelloTempRil::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : Colonne;
}

QVariant ModelloTempRil::data(const QModelIndex& indice, int ruolo) const {
    if (ruolo == Qt::TextAlignmentRole)
        return allineamento(indice.column() == Numero);
    if (ruolo != Qt::DisplayRole && ruolo != Qt::ToolTipRole)
        return {};
    return m_righe[indice.row()][static_cast<std::size_t>(indice.column())];
}

QVariant ModelloTempRil::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
    static const QStringList titoli{u"Num."_s, u"Equipaggio"_s, u"Prova"_s, u"Tempo Start"_s,
                                    u"T. Passaggio"_s};
    if (verso == Qt::Horizontal && ruolo == Qt::DisplayRole)
        return titoli.value(sezione);
    return QAbstractTableModel::headerData(sezione, verso, ruolo);
}

void ModelloScartati::mostra(const QList<RecordScartato>& scartati) {
    beginResetModel();
    m_scartati = scartati;
    endResetModel();
}

int ModelloScartati::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(m_scartati.size());
}

int ModelloScartati::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : Colonne;
}

QVariant ModelloScartati::data(const QModelIndex& indice, int ruolo) const {
    if (ruolo == Qt::TextAlignmentRole)
        return allineamento(indice.column() == Numero);
    if (ruolo != Qt::DisplayRole)
        return {};
    const RecordScartato& scartato = m_scartati[indice.row()];
    switch (indice.column()) {
        case Numero:
            return scartato.record.numero == 0 ? QString() : QString::number(scartato.record.numero);
        case Tempo:
            return scartato.record.tempo;
        default:
            return scartato.testo();
    }
}

QVariant ModelloScartati::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
    static const QStringList titoli{u"Num."_s, u"Tempo"_s, u"Motivo"_s};
    if (verso == Qt::Horizontal && ruolo == Qt::DisplayRole)
        return titoli.value(sezione);
    return QAbstractTableModel::headerData(sezione, verso, ruolo);
}

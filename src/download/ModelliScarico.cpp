#include "download/ModelliScarico.h"

#include "archive/Statement.h"

using namespace Qt::StringLiterals;

namespace {

QVariant allineamento(bool numero) {
    return QVariant::fromValue<Qt::Alignment>((numero ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

// Tests come in their own order, not in that of their names.
constexpr const char* Ordini[ModelloTempRil::Colonne] = {
    "Num,", "(SELECT coalesce(Cog,'')||' '||coalesce(CogNav,'') FROM Equipaggi WHERE IDEqu=IDEqu_FK),",
    "IDPro_FK,", "TPar,", "TArr,"};

constexpr int RigheBlocco = 1000;

QHash<int, QString> leggiNomi(const QString& sql) {
    Statement query(sql);
    query.esegui();
    QHash<int, QString> nomi;
    while (query.prossima())
        nomi.insert(query.intero(0), query.testo(1));
    return nomi;
}

}  // namespace

void ModelloTempRil::ricarica() {
    QHash<int, QString> equipaggi = leggiNomi(
        u"SELECT IDEqu,coalesce(Cog,'')||' '||coalesce(CogNav,'') FROM Equipaggi "
        "WHERE IDEqu IN (SELECT IDEqu_FK FROM TempRil)"_s);
    QHash<int, QString> prove =
        leggiNomi(u"SELECT IDPro,Nom FROM Prove WHERE IDPro IN (SELECT IDPro_FK FROM TempRil)"_s);
    const int quante = leggiValore(u"SELECT count(*) FROM TempRil"_s)->toInt();
    QList<Riga> righe = leggiBlocco(0);
    beginResetModel();
    m_equipaggi.swap(equipaggi);
    m_prove.swap(prove);
    m_righe.swap(righe);
    m_quante = quante;
    endResetModel();
}

QList<ModelloTempRil::Riga> ModelloTempRil::leggiBlocco(qsizetype da) const {
    const QString ordine = m_ordine < 0 ? QString() : QString::fromLatin1(Ordini[m_ordine]);
    Statement query(
        u"SELECT Num,IDEqu_FK,IDPro_FK,TPar,TArr FROM TempRil ORDER BY %1rowid LIMIT ? OFFSET ?"_s.arg(
            ordine));
    query.esegui({RigheBlocco, da});
    QList<Riga> righe;
    while (query.prossima())
        righe.append({query.intero(0), query.intero(1), query.intero(2), query.testo(3), query.testo(4)});
    return righe;
}

bool ModelloTempRil::canFetchMore(const QModelIndex& padre) const {
    return !padre.isValid() && m_righe.size() < m_quante;
}

void ModelloTempRil::fetchMore(const QModelIndex& /*padre*/) {
    const QList<Riga> altre = leggiBlocco(m_righe.size());
    if (altre.isEmpty()) {
        m_quante = static_cast<int>(m_righe.size());  // the table has been emptied meanwhile
        return;
    }
    const int prima = static_cast<int>(m_righe.size());
    beginInsertRows({}, prima, prima + static_cast<int>(altre.size()) - 1);
    m_righe << altre;
    endInsertRows();
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
    const Riga& riga = m_righe[indice.row()];
    switch (indice.column()) {
        case Numero:
            return riga.num;
        case Equipaggio:
            return m_equipaggi.value(riga.idEqu);
        case Prova:
            return m_prove.value(riga.idPro);
        case TempoStart:
            return riga.tPar;
        default:
            return riga.tArr;
    }
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

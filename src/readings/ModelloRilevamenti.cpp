#include "readings/ModelloRilevamenti.h"

#include "common/Public.h"
#include "common/Valori.h"

#include <algorithm>
#include <exception>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

const QString NonCalcolabile = u"?????"_s;

QString mostraTempo(const QString& tempo) {
    const bool soleCifre = std::ranges::all_of(tempo, [](QChar c) { return c >= u'0' && c <= u'9'; });
    return soleCifre ? mascheraTempo(tempo) : tempo;
}

bool manca(const QString& tempo) {
    return tempo.trimmed().isEmpty();
}

QString oNonCalcolabile(const QString& testo) {
    return testo.isEmpty() ? NonCalcolabile : testo;
}

}  // namespace

ModelloRilevamenti::ModelloRilevamenti(QObject* padre) : QAbstractTableModel(padre) {}

void ModelloRilevamenti::apri(ModoGriglia modo) {
    m_modo = modo;
    m_impostazione = leggiImpostazione(IDMan);
}

void ModelloRilevamenti::ricarica() {
    mostra(m_idEqu, m_asi);
}

// Another crew is shown once its readings could be read.
void ModelloRilevamenti::mostra(int idEqu, bool asi) {
    std::vector<RigaRilevamento> righe = leggiRilevamenti(idEqu);
    // The same tests: the grid keeps its place.
    const bool stesse =
        std::ranges::equal(righe, m_righe, {}, &RigaRilevamento::idRil, &RigaRilevamento::idRil);
    if (!stesse)
        beginResetModel();
    m_idEqu = idEqu;
    m_asi = asi;
    m_righe = std::move(righe);
    m_calcoli.clear();
    for (const RigaRilevamento& riga : m_righe)
        m_calcoli.push_back(calcola(riga));
    if (!stesse)
        endResetModel();
    if (stesse && !m_righe.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, Colonne - 1));
    Q_EMIT totaleCambiato();
}

CalcoloRiga ModelloRilevamenti::calcola(const RigaRilevamento& riga) const {
    if (m_modo == ModoGriglia::Correzione && (manca(riga.tPar) || manca(riga.tArr)))
        return {};
    return calcolaRiga(m_impostazione, m_asi, riga);
}

double ModelloRilevamenti::totale() const {
    return std::accumulate(m_calcoli.begin(), m_calcoli.end(), 0.0,
                           [](double somma, const CalcoloRiga& c) { return somma + c.penalita.value_or(0); });
}

bool ModelloRilevamenti::modificabile(int colonna) const {
    if (m_modo == ModoGriglia::PenalitaAggiuntive)
        return colonna == PenAgg || colonna == DesPenAgg;
    return diTempo(colonna) || (colonna == PenAgg && m_modo == ModoGriglia::Manuale);
}

int ModelloRilevamenti::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(m_righe.size());
}

int ModelloRilevamenti::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : Colonne;
}

QString ModelloRilevamenti::testo(const RigaRilevamento& riga, const CalcoloRiga& calcolo,
                                  int colonna) const {
    switch (colonna) {
        case NomeProva:
            return riga.nome;
        case TempoImposto:
            return riga.imposto;
        case TempoStart:
            return mostraTempo(riga.tPar);
        case TempoPassaggio:
            return mostraTempo(riga.tArr);
        case PenAgg:
            return riga.penAgg ? numeroInTesto(*riga.penAgg) : QString();
        case DesPenAgg:
            return riga.desPenAgg;
        case Netto:
            return oNonCalcolabile(calcolo.netto);
        case Scarto:
            return oNonCalcolabile(calcolo.scarto);
        case Penalita:
            return calcolo.penalita ? numeroInTesto(*calcolo.penalita) : NonCalcolabile;
        default:
            return {};
    }
}

QVariant ModelloRilevamenti::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid())
        return {};
    const auto riga = static_cast<std::size_t>(indice.row());
    const int colonna = indice.column();
    switch (ruolo) {
        case Qt::DisplayRole:
            if (const QString letto = testo(m_righe[riga], m_calcoli[riga], colonna);
                diRicezione() && diTempo(colonna) && manca(letto))
                return u"00:00:00:00"_s;
            [[fallthrough]];
        case Qt::EditRole:
        case Qt::ToolTipRole:
            return testo(m_righe[riga], m_calcoli[riga], colonna);
        case Qt::TextAlignmentRole:
            if (colonna == NomeProva || colonna == DesPenAgg)
                return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
            if (colonna == PenAgg || colonna == Penalita)
                return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
            return QVariant::fromValue(Qt::AlignCenter);
        case RuoloStile:
            return colonna == Scarto ? QVariant(static_cast<int>(m_calcoli[riga].stile)) : QVariant();
        default:
            return {};
    }
}

QVariant ModelloRilevamenti::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
    static const QStringList titoli{u"Nome Prova"_s,   u"T. Imposto"_s, u"Tempo Start"_s,
                                    u"T. Passaggio"_s, u"PenAgg"_s,     u"Motivo"_s,
                                    u"Netto"_s,        u"Scarto"_s,     u"Penalità"_s};
    if (verso != Qt::Horizontal || ruolo != Qt::DisplayRole)
        return QAbstractTableModel::headerData(sezione, verso, ruolo);
    return titoli.value(sezione);
}

Qt::ItemFlags ModelloRilevamenti::flags(const QModelIndex& indice) const {
    const Qt::ItemFlags base = QAbstractTableModel::flags(indice);
    return indice.isValid() && modificabile(indice.column()) ? base | Qt::ItemIsEditable : base;
}

bool ModelloRilevamenti::setData(const QModelIndex& indice, const QVariant& valore, int ruolo) {
    if (ruolo != Qt::EditRole || !indice.isValid() || !modificabile(indice.column()))
        return false;
    try {
        return scrivi(indice, valore.toString());
    } catch (...) {
        // Not from here: the editor that is being closed must come to its end first.
        QMetaObject::invokeMethod(
            this, [errore = std::current_exception()] { std::rethrow_exception(errore); },
            Qt::QueuedConnection);
        return false;
    }
}

bool ModelloRilevamenti::scrivi(const QModelIndex& indice, const QString& testo) {
    switch (indice.column()) {
        case TempoStart:
        case TempoPassaggio:
            scriviTempo(indice, mascheraTempo(testo));
            return true;
        case PenAgg:
            return scriviPenAgg(indice.row(), testo.trimmed());
        default:
            scriviDescrizione(indice.row(), testo);
            return true;
    }
}

void ModelloRilevamenti::cancellaTempo(const QModelIndex& indice) {
    scriviTempo(indice, diRicezione() ? u"00:00:00:00"_s : QString());
}

void ModelloRilevamenti::scriviTempo(const QModelIndex& indice, const QString& valore) {
    const CampoTempo campo = indice.column() == TempoStart ? CampoTempo::Partenza : CampoTempo::Arrivo;
    const std::vector<TempoScritto> tempi =
        propagaTempo(m_righe, static_cast<std::size_t>(indice.row()), campo, valore, m_impostazione, m_asi,
                     diRicezione() ? RegolaCatena::Ricezione : RegolaCatena::Manuale);
    scriviTempi(m_righe, tempi);
    for (const TempoScritto& tempo : tempi) {
        m_righe[tempo.riga].tempo(tempo.campo) = tempo.valore;
        ricalcola(static_cast<int>(tempo.riga));
    }
    Q_EMIT totaleCambiato();
    Q_EMIT modificata(m_idEqu);
}

bool ModelloRilevamenti::scriviPenAgg(int riga, const QString& testo) {
    const std::optional<double> numero = testo.isEmpty() ? 0.0 : leggiNumero(testo);
    if (!numero)
        return false;
    RigaRilevamento& rilevamento = m_righe[static_cast<std::size_t>(riga)];
    scriviPenalitaAggiunta(rilevamento.idRil, *numero);
    rilevamento.penAgg = numero;
    ricalcola(riga);
    Q_EMIT totaleCambiato();
    Q_EMIT modificata(m_idEqu);
    return true;
}

void ModelloRilevamenti::scriviDescrizione(int riga, const QString& testo) {
    RigaRilevamento& rilevamento = m_righe[static_cast<std::size_t>(riga)];
    scriviDescrizionePenalita(rilevamento.idRil, testo);
    rilevamento.desPenAgg = testo;
    ricalcola(riga);
    Q_EMIT modificata(m_idEqu);
}

void ModelloRilevamenti::ricalcola(int riga) {
    const auto posto = static_cast<std::size_t>(riga);
    m_calcoli[posto] = calcola(m_righe[posto]);
    // Cell by cell: a view paints itself whole for a range.
    for (int colonna = TempoStart; colonna < Colonne; ++colonna)
        Q_EMIT dataChanged(index(riga, colonna), index(riga, colonna));
}

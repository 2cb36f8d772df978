#include "readings/ModelloRilevamenti.h"

#include "archive/ErroreArchivio.h"
#include "common/Public.h"
#include "common/Valori.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

const QString NonCalcolabile = u"?????"_s;

QString mostraTempo(const QString& tempo) {
    const bool soleCifre = std::ranges::all_of(tempo, [](QChar c) { return c >= u'0' && c <= u'9'; });
    return soleCifre ? mascheraTempo(tempo) : tempo;
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

void ModelloRilevamenti::mostra(int idEqu, bool asi) {
    m_idEqu = idEqu;
    m_asi = asi;
    ricarica();
}

void ModelloRilevamenti::ricarica() {
    std::vector<RigaRilevamento> righe = leggiRilevamenti(m_idEqu);
    // The same tests: the grid keeps its place.
    const bool stesse =
        std::ranges::equal(righe, m_righe, {}, &RigaRilevamento::idRil, &RigaRilevamento::idRil);
    if (!stesse)
        beginResetModel();
    m_righe = std::move(righe);
    m_calcoli.resize(m_righe.size());
    for (std::size_t i = 0; i < m_righe.size(); ++i)
        m_calcoli[i] = calcolaRiga(m_impostazione, m_asi, m_righe[i]);
    if (!stesse) {
        endResetModel();
    } else if (!m_righe.empty()) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, Colonne - 1));
    }
    Q_EMIT totaleCambiato();
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
                m_modo == ModoGriglia::Ricezione && diTempo(colonna) && letto.trimmed().isEmpty())
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
    const QString testo = valore.toString();
    try {
        switch (indice.column()) {
            case TempoStart:
            case TempoPassaggio:
                return digitaTempo(indice, mascheraTempo(testo));
            case PenAgg:
                return scriviPenAgg(indice.row(), testo.trimmed());
            default:
                return scriviDescrizione(indice.row(), testo);
        }
    } catch (...) {
        fallita(std::current_exception());
        return false;
    }
}

bool ModelloRilevamenti::cancellaTempo(const QModelIndex& indice) {
    if (!diTempo(indice.column()) || !modificabile(indice.column()))
        return false;
    try {
        return scriviTempo(indice, m_modo == ModoGriglia::Ricezione ? u"00:00:00:00"_s : QString());
    } catch (...) {
        fallita(std::current_exception());
        return false;
    }
}

bool ModelloRilevamenti::digitaTempo(const QModelIndex& indice, const QString& valore) {
    if (!valore.isEmpty())
        return scriviTempo(indice, valore);
    if (!indice.data(Qt::EditRole).toString().isEmpty())
        Q_EMIT tempoSvuotato(m_righe[static_cast<std::size_t>(indice.row())].idRil, indice.column());
    return false;
}

bool ModelloRilevamenti::scriviTempo(const QModelIndex& indice, const QString& valore) {
    const CampoTempo campo = indice.column() == TempoStart ? CampoTempo::Partenza : CampoTempo::Arrivo;
    const std::vector<TempoScritto> tempi =
        propagaTempo(m_righe, static_cast<std::size_t>(indice.row()), campo, valore, m_impostazione, m_asi,
                     m_modo == ModoGriglia::Ricezione ? RegolaCatena::Ricezione : RegolaCatena::Manuale);
    scriviTempi(m_righe, tempi);
    for (const TempoScritto& tempo : tempi) {
        m_righe[tempo.riga].tempo(tempo.campo) = tempo.valore;
        ricalcola(static_cast<int>(tempo.riga));
    }
    Q_EMIT totaleCambiato();
    Q_EMIT modificata();
    return true;
}

bool ModelloRilevamenti::scriviPenAgg(int riga, const QString& testo) {
    const std::optional<double> numero = testo.isEmpty() ? 0.0 : leggiNumero(testo);
    if (!numero) {
        Q_EMIT numeroRifiutato(testo);
        return false;
    }
    RigaRilevamento& rilevamento = m_righe[static_cast<std::size_t>(riga)];
    scriviPenalitaAggiunta(rilevamento.idRil, *numero);
    rilevamento.penAgg = numero;
    ricalcola(riga);
    Q_EMIT totaleCambiato();
    Q_EMIT modificata();
    return true;
}

bool ModelloRilevamenti::scriviDescrizione(int riga, const QString& testo) {
    RigaRilevamento& rilevamento = m_righe[static_cast<std::size_t>(riga)];
    scriviDescrizionePenalita(rilevamento.idRil, testo);
    rilevamento.desPenAgg = testo;
    ricalcola(riga);
    Q_EMIT modificata();
    return true;
}

void ModelloRilevamenti::ricalcola(int riga) {
    const auto posto = static_cast<std::size_t>(riga);
    m_calcoli[posto] = calcolaRiga(m_impostazione, m_asi, m_righe[posto]);
    // Cell by cell: a view paints itself whole for a range.
    for (int colonna = TempoStart; colonna < Colonne; ++colonna)
        Q_EMIT dataChanged(index(riga, colonna), index(riga, colonna));
}

void ModelloRilevamenti::fallita(const std::exception_ptr& errore) {
    // Not from here: an editor that is being closed must come to its end first.
    QMetaObject::invokeMethod(
        this,
        [this, errore] {
            ricarica();
            std::rethrow_exception(errore);
        },
        Qt::QueuedConnection);
}

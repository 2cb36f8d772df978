#include "tools/LeggiTabella.h"

#include "archive/ErroreArchivio.h"
#include "common/Valori.h"

#include <algorithm>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

// Text columns that hold more than free text.
struct FormaTesto {
    QStringList colonne;
    QString espressione;
    QString descrizione;
};

const QList<FormaTesto>& formeTesto() {
    static const QString ora = uR"(([01]\d|2[0-3]):[0-5]\d:[0-5]\d)"_s;
    static const QList<FormaTesto> forme{
        {{u"Tem"_s}, ora, u"un tempo hh:mm:ss"_s},
        {{u"TPar"_s, u"TArr"_s}, ora + uR"(:\d\d)"_s, u"un rilevamento hh:mm:ss:cc"_s},
        {{u"Dat"_s, u"DaDat"_s, u"ADat"_s, u"DatVer"_s}, uR"(\d\d/\d\d/\d{4})"_s, u"una data gg/mm/aaaa"_s},
        {{u"Tip"_s}, u"PA|PM|CO"_s, u"PA, PM o CO"_s},
        {{u"TipoCO"_s}, u"CON|PAR"_s, u"CON o PAR"_s},
        {{u"Ses"_s, u"SesNav"_s}, u"[MF]"_s, u"M o F"_s},
        {{u"PrePA"_s, u"PrePM"_s, u"PreCO"_s, u"PrePANoASI"_s, u"PrePMNoASI"_s, u"PreCONoASI"_s},
         u"MIN|SEC|DEC|CEN"_s,
         u"MIN, SEC, DEC o CEN"_s},
    };
    return forme;
}

// What a text should have been, when it is not; empty when it is in order.
QString difettoTesto(const QString& colonna, const QString& testo) {
    for (const FormaTesto& forma : formeTesto()) {
        if (!forma.colonne.contains(colonna))
            continue;
        const QRegularExpression espressione(QRegularExpression::anchoredPattern(forma.espressione));
        const bool data = forma.colonne.contains(u"Dat"_s);
        if (!espressione.match(testo).hasMatch() || (data && !leggiData(testo)))
            return forma.descrizione;
    }
    return {};
}

// Value of a cell that is not empty, or nothing and what it should have been.
std::optional<QVariant> interpreta(const Colonna& colonna, const QString& testo, QString& atteso) {
    bool riuscito = false;
    switch (colonna.tipo) {
        case TipoColonna::Bit:
            atteso = u"0 o 1"_s;
            if (testo != u"0"_s && testo != u"1"_s)
                return std::nullopt;
            return testo.toInt();
        case TipoColonna::Contatore:
        case TipoColonna::Lungo:
        case TipoColonna::Numero: {
            atteso = u"un numero intero"_s;
            const int intero = testo.toInt(&riuscito);
            return riuscito ? std::optional<QVariant>(intero) : std::nullopt;
        }
        case TipoColonna::Doppio: {
            atteso = u"un numero"_s;
            const std::optional<double> numero = leggiNumero(testo);
            return numero ? std::optional<QVariant>(*numero) : std::nullopt;
        }
        case TipoColonna::Data:
            atteso = u"una data aaaa-mm-gg"_s;
            if (testo.size() != 10 || !QDate::fromString(testo, Qt::ISODate).isValid())
                return std::nullopt;
            return testo;
        case TipoColonna::Testo:
            break;
    }
    atteso = difettoTesto(QString::fromLatin1(colonna.nome), testo);
    return atteso.isEmpty() ? std::optional<QVariant>(testo) : std::nullopt;
}

// What an empty cell stands for: a switch is off, a reading not taken is the empty text, the rest is unknown.
QVariant valoreVuoto(const Colonna& colonna) {
    if (colonna.tipo == TipoColonna::Bit)
        return 0;
    const QLatin1StringView nome(colonna.nome);
    return nome == "TPar"_L1 || nome == "TArr"_L1 ? QVariant(u""_s) : QVariant();
}

const Colonna* trovaColonna(const Tabella& tabella, const QString& nome) {
    const auto trovata = std::ranges::find_if(
        tabella.colonne, [&](const Colonna& c) { return nome == QLatin1StringView(c.nome); });
    const bool daFile = trovata != tabella.colonne.end() && trovata->tipo != TipoColonna::Contatore &&
                        !nome.endsWith(u"_FK"_s);
    return daFile ? &*trovata : nullptr;
}

QString leggiFile(const QString& percorso) {
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        throw Errore(u"Il file %1 non si può leggere: %2."_s.arg(percorso, file.errorString()));
    QStringDecoder decodifica(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString testo = decodifica(file.readAll());
    if (decodifica.hasError())
        throw Errore(u"Il file %1 non è un testo UTF-8."_s.arg(percorso));
    return testo;
}

}  // namespace

TabellaDati::TabellaDati(const QString& percorso, const Forma& forma)
    : m_file(QFileInfo(percorso).fileName()), m_nomeTabella(QString::fromLatin1(forma.tabella)) {
    const Tabella* tabella = trovaTabella(m_nomeTabella);
    Q_ASSERT(tabella);
    QStringList linee = leggiFile(percorso).split(u'\n');
    if (linee.constLast().isEmpty())
        linee.removeLast();
    for (QString& linea : linee) {
        if (linea.endsWith(u'\r'))
            linea.chop(1);
    }
    leggiNomi(*tabella, forma, linee.value(0));
    m_righe.reserve(linee.size());
    for (qsizetype i = 1; i < linee.size(); ++i)
        leggiRiga(*tabella, forma, linee.at(i));
}

void TabellaDati::leggiNomi(const Tabella& tabella, const Forma& forma, const QString& linea) {
    m_colonne = linea.split(u'\t');
    for (const QString& nome : std::as_const(m_colonne)) {
        if (!forma.altre.contains(nome) && !trovaColonna(tabella, nome))
            rifiuta(-1, u"la colonna «%1» è sconosciuta"_s.arg(nome));
        if (m_colonne.count(nome) > 1)
            rifiuta(-1, u"la colonna «%1» è ripetuta"_s.arg(nome));
    }
    for (const QString& nome : forma.obbligatorie) {
        if (!m_colonne.contains(nome))
            rifiuta(-1, u"manca la colonna «%1»"_s.arg(nome));
    }
}

void TabellaDati::leggiRiga(const Tabella& tabella, const Forma& forma, const QString& linea) {
    const qsizetype riga = m_righe.size();
    const QStringList celle = linea.split(u'\t');
    if (celle.size() != m_colonne.size())
        rifiuta(riga, u"le colonne sono %1 invece di %2"_s.arg(celle.size()).arg(m_colonne.size()));
    QVariantList valori;
    valori.reserve(celle.size());
    for (qsizetype i = 0; i < celle.size(); ++i) {
        const QString& nome = m_colonne.at(i);
        const QString& cella = celle.at(i);
        if (cella.isEmpty() && forma.obbligatorie.contains(nome))
            rifiuta(riga, u"«%1» è vuoto"_s.arg(nome));
        const Colonna* colonna = forma.altre.contains(nome) ? nullptr : trovaColonna(tabella, nome);
        if (!colonna) {
            valori << (cella.isEmpty() ? QVariant() : QVariant(cella));
        } else if (cella.isEmpty()) {
            valori << valoreVuoto(*colonna);
        } else {
            QString atteso;
            const std::optional<QVariant> valore = interpreta(*colonna, cella, atteso);
            if (!valore)
                rifiuta(riga, u"«%1» in «%2» non è %3"_s.arg(cella, nome, atteso));
            valori << *valore;
        }
    }
    m_righe << valori;
}

QVariant TabellaDati::valore(qsizetype riga, const QString& colonna) const {
    const qsizetype indice = m_colonne.indexOf(colonna);
    return indice < 0 ? QVariant() : m_righe.at(riga).at(indice);
}

QString TabellaDati::testo(qsizetype riga, const QString& colonna) const {
    return valore(riga, colonna).toString();
}

QHash<QString, qsizetype> TabellaDati::indice(const QString& chiave) const {
    QHash<QString, qsizetype> righe;
    for (qsizetype riga = 0; riga < m_righe.size(); ++riga) {
        const QString valore = testo(riga, chiave);
        if (const auto prima = righe.constFind(valore); prima != righe.constEnd())
            rifiuta(riga, u"«%1» %2 è già alla riga %3"_s.arg(chiave, valore).arg(*prima + 2));
        righe.insert(valore, riga);
    }
    return righe;
}

void TabellaDati::rifiuta(qsizetype riga, const QString& motivo) const {
    throw Errore(u"%1, riga %2: %3."_s.arg(m_file).arg(riga + 2).arg(motivo));
}

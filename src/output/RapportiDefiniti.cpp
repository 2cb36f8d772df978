#include "output/RapportiDefiniti.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "common/Funzioni.h"
#include "common/Public.h"
#include "common/Valori.h"
#include "output/DefinizioniRapporti.h"

#include <algorithm>
#include <QHash>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

const DefinizioneRapporto& trova(const QString& tipo) {
    const auto tutte = definizioniRapporti();
    const auto trovata =
        std::ranges::find_if(tutte, [&](const DefinizioneRapporto& d) { return d.tipo == tipo; });
    if (trovata == tutte.end())
        throw Errore(u"Il rapporto \"%1\" non esiste."_s.arg(tipo));
    return *trovata;
}

constexpr double LarghezzaProva = 9;

QString campoProva(int numero) {
    return u"Net%1"_s.arg(numero);
}

// Fields of the query in its order: what makes the groups, then the columns, then a card's share of the
// total.
QStringList campi(const DefinizioneRapporto& definizione) {
    QStringList elenco;
    const auto aggiungi = [&](const CampoRapporto& campo) {
        elenco << u"%1 AS %2"_s.arg(QString::fromUtf8(campo.espressione ? campo.espressione : campo.campo),
                                    QLatin1String(campo.campo));
    };
    std::ranges::for_each(definizione.chiavi, aggiungi);
    std::ranges::for_each(definizione.colonne, aggiungi);
    for (int i = 1; i <= definizione.prove; ++i)
        elenco.insert(elenco.size() - 2, campoProva(i));
    if (definizione.forma == FormaRapporto::Schede)
        elenco << QString::fromLatin1(PenCorrScheda);
    return elenco;
}

QString interrogazione(const DefinizioneRapporto& definizione, const QString& filtro) {
    QString sql =
        u"SELECT %1 FROM %2"_s.arg(campi(definizione).join(u','), QString::fromLatin1(definizione.da));
    if (!filtro.isEmpty() && definizione.tipo == u"Classifica")
        sql += u" WHERE "_s + filtro;
    return sql + u" ORDER BY "_s + QString::fromLatin1(definizione.ordine);
}

ColonnaRapporto colonna(const CampoRapporto& campo) {
    return {.testata = QString::fromUtf16(campo.testata),
            .campo = QString::fromLatin1(campo.campo),
            .larghezza = campo.larghezza,
            .allineamento = campo.allineamento,
            .sopra = QString::fromUtf16(campo.sopra),
            .evidente = (campo.opzioni & Evidente) != 0};
}

struct ProvaIntestata {
    QString nome;
    QString tempo;
};

QHash<int, ProvaIntestata> leggiProve() {
    QHash<int, ProvaIntestata> prove;
    Statement lettura(u"SELECT IDPro,Nom,Tem FROM Prove WHERE IDMan_FK=?"_s);
    lettura.esegui({IDMan});
    while (lettura.prossima())
        prove.insert(lettura.intero(0), {lettura.testo(1), lettura.testo(2)});
    return prove;
}

void mettiProve(const DefinizioneRapporto& definizione, const QList<int>& prove, Rapporto& rapporto) {
    const QHash<int, ProvaIntestata> nomi = leggiProve();
    for (int i = 0; i < definizione.prove; ++i) {
        const ProvaIntestata prova = nomi.value(prove.value(i));
        rapporto.colonne.insert(rapporto.colonne.size() - 2, {.testata = prova.nome,
                                                              .campo = campoProva(i + 1),
                                                              .larghezza = LarghezzaProva,
                                                              .allineamento = Allineamento::Centro,
                                                              .sotto = prova.tempo});
    }
}

// Test columns in use, by their head or by a cell.
int proveUsate(const DefinizioneRapporto& definizione, const Rapporto& rapporto) {
    int usate = 0;
    for (qsizetype i = rapporto.colonne.size() - 2 - definizione.prove; i < rapporto.colonne.size() - 2;
         ++i) {
        const auto piena = [i](const QStringList& riga) { return !riga.at(i).isEmpty(); };
        const bool usata = !rapporto.colonne.at(i).testata.isEmpty() ||
                           std::ranges::any_of(rapporto.gruppi, [&](const GruppoRapporto& gruppo) {
                               return std::ranges::any_of(gruppo.righe, piena);
                           });
        usate += usata ? 1 : 0;
    }
    return usate;
}

void mettiEtichette(const DefinizioneRapporto& definizione, const QString& titolo, const QString& esclusi,
                    Rapporto& rapporto) {
    const QString tipoClas = definizione.tipoClas.isEmpty() ? titolo : definizione.tipoClas.toString();
    if (definizione.verifiche) {
        rapporto.etichette = {{u"lblNomeManifestazione"_s, u"Manifestazione :"_s, NomeManifestazione(IDMan)},
                              {u"lblClub"_s, u"Club Organizzatore :"_s, ClubManifestazione(IDMan)},
                              {u"lblData"_s, u"Data :"_s, DatVerManifestazione(IDMan)}};
    } else {
        rapporto.etichette = {{u"lblTitolo"_s, {}, NomeManifestazione(IDMan)},
                              {u"lblData"_s, {}, DateManifestazione(IDMan)}};
    }
    rapporto.etichette << Etichetta{u"lblTipoClas"_s, {}, tipoClas}
                       << Etichetta{u"lblEsc"_s, {}, definizione.esclusi ? esclusi : QString()};
    rapporto.titoloFinestra = titolo.isEmpty() ? tipoClas : titolo;
    if (!definizione.finestra.isEmpty())
        rapporto.titoloFinestra = definizione.finestra.toString();
}

QString cella(const Statement& lettura, qsizetype indice, bool data = false) {
    const QVariant valore = lettura.valore(static_cast<int>(indice));
    if (valore.typeId() == QMetaType::Double)
        return numeroInTesto(valore.toDouble());
    const QString testo = valore.toString();
    if (data) {
        if (const QDate giorno = QDate::fromString(testo, Qt::ISODate); giorno.isValid())
            return scriviData(giorno);
    }
    // A typed text may hold line ends.
    return std::ranges::any_of(testo, [](QChar c) { return c < u' '; }) ? testo.simplified() : testo;
}

// What the rows of a card add up to.
struct Somme {
    double pen = 0;
    double penAgg = 0;
    double penCorr = 0;
};

struct GruppoLetto {
    QStringList chiave;
    QList<QStringList> righe;
    Somme somme;
};

// The cells of the current row from a column of the result on; `date` says which are dates.
QStringList celle(const Statement& lettura, qsizetype da, qsizetype quante, const QList<bool>& date) {
    QStringList testi;
    testi.reserve(quante);
    for (qsizetype i = 0; i < quante; ++i)
        testi << cella(lettura, da + i, date.value(i));
    return testi;
}

// Rows of one group need not follow one another: two crews may have got the same number.
QList<GruppoLetto> leggiGruppi(const DefinizioneRapporto& definizione, const QString& filtro) {
    const auto chiavi = static_cast<qsizetype>(definizione.chiavi.size());
    const auto colonne = static_cast<qsizetype>(definizione.colonne.size()) + definizione.prove;
    QList<bool> date;  // no report has both dates and test columns
    for (const CampoRapporto& campo : definizione.colonne)
        date << ((campo.opzioni & Data) != 0);
    Statement lettura(interrogazione(definizione, filtro), definizione.shape ? ConnShape() : Conn());
    lettura.esegui(definizione.evento ? QVariantList{IDMan} : QVariantList{});
    QList<GruppoLetto> gruppi;
    QHash<QStringList, qsizetype> posti;
    while (lettura.prossima()) {
        const QStringList chiave = celle(lettura, 0, chiavi, {});
        const qsizetype posto = posti.value(chiave, gruppi.size());
        if (posto == gruppi.size()) {
            posti.insert(chiave, posto);
            gruppi.append({chiave, {}, {}});
        }
        GruppoLetto& gruppo = gruppi[posto];
        gruppo.righe << celle(lettura, chiavi, colonne, date);
        if (definizione.forma == FormaRapporto::Schede) {
            const int fine = static_cast<int>(chiavi + colonne);
            gruppo.somme.penAgg += lettura.reale(fine - 2);
            gruppo.somme.pen += lettura.reale(fine - 1);
            gruppo.somme.penCorr += lettura.reale(fine);
        }
    }
    return gruppi;
}

void togliDoppie(QList<QStringList>& righe) {
    QSet<QStringList> viste;
    righe.removeIf([&](const QStringList& riga) {
        const bool doppia = viste.contains(riga);
        viste.insert(riga);
        return doppia;
    });
}

QString unisci(const QString& primo, const QString& secondo, const QString& segno) {
    return primo.isEmpty() || secondo.isEmpty() ? primo + secondo : primo + segno + secondo;
}

QList<QList<Voce>> testaScheda(const QStringList& c) {
    QList<QList<Voce>> testa{
        {{u"NUMERO : "_s, c.at(Num), 1, true},
         {u"EQUIPAGGIO : "_s, unisci(c.at(Con).trimmed(), c.at(Nav).trimmed(), u" - "_s), 4, true}},
        {{u"VEICOLO : "_s, c.at(Vei), 3}, {u"ANNO : "_s, c.at(Ann)}, {u"CILINDRATA :"_s, c.at(Cil)}},
        {{u"Posizioni : "_s, {}, 0.6},
         {u"Assoluta :"_s, c.at(PosAss), 0.9},
         {c.at(ClassASIeNONASI), c.at(PosASIoNoASI), 1.1}}};
    if (!c.at(EticClassRaggr).isEmpty()) {
        testa.last() << Voce{.etichetta = c.at(EticClassRaggr),
                             .valore = c.at(StampaNomGru),
                             .larghezza = 2.4,
                             .coda = c.at(ClassRaggr)};
    }
    return testa;
}

QList<RigaPiede> piedeScheda(const QStringList& c, const Somme& somme, qsizetype colonne) {
    const QStringList vuote(colonne - 2);
    const auto sottoPenalita = [&](const QString& valore) { return vuote + QStringList{QString(), valore}; };
    QList<RigaPiede> piede{
        {u"Penalità Totali :"_s, vuote + QStringList{numeroInTesto(somme.penAgg), numeroInTesto(somme.pen)}}};
    if (!c.at(EticFatAnn).isEmpty())
        piede << RigaPiede{c.at(EticFatAnn), sottoPenalita(c.at(StampaFatAnn))};
    if (!c.at(EticFatGru).isEmpty())
        piede << RigaPiede{c.at(EticFatGru), sottoPenalita(c.at(StampaFatGru))};
    piede << RigaPiede{u"PENALITA' TOTALI MANIFESTAZIONE :"_s, sottoPenalita(numeroInTesto(somme.penCorr)),
                       true};
    return piede;
}

GruppoRapporto componi(const DefinizioneRapporto& definizione, const GruppoLetto& letto) {
    GruppoRapporto gruppo;
    gruppo.righe = letto.righe;
    if (definizione.forma == FormaRapporto::Distinte)
        togliDoppie(gruppo.righe);
    if (definizione.forma == FormaRapporto::Squadre)
        gruppo.celle = letto.chiave;
    if (definizione.forma == FormaRapporto::Schede) {
        gruppo.testa = testaScheda(letto.chiave);
        gruppo.piede =
            piedeScheda(letto.chiave, letto.somme, static_cast<qsizetype>(definizione.colonne.size()));
    }
    return gruppo;
}

}  // namespace

Rapporto componiRapporto(const QString& tipo, const QString& filtro, const QString& titolo,
                         const QString& esclusi, const QList<int>& prove) {
    const DefinizioneRapporto& definizione = trova(tipo);
    Rapporto rapporto;
    rapporto.orizzontale = definizione.orizzontale;
    rapporto.paginaPerGruppo = definizione.forma == FormaRapporto::Schede;
    mettiEtichette(definizione, titolo, esclusi, rapporto);
    std::ranges::transform(definizione.colonne, std::back_inserter(rapporto.colonne), colonna);
    if (definizione.prove > 0)
        mettiProve(definizione, prove, rapporto);
    if (definizione.forma == FormaRapporto::Squadre)
        std::ranges::transform(definizione.chiavi, std::back_inserter(rapporto.colonneGruppo), colonna);
    for (const GruppoLetto& letto : leggiGruppi(definizione, filtro))
        rapporto.gruppi << componi(definizione, letto);
    if (definizione.prove > 0)
        rapporto.orizzontale = proveUsate(definizione, rapporto) > definizione.proveVerticali;
    return rapporto;
}

#include "tools/CreaEsempio.h"

#include "archive/DataBase.h"
#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "tools/LeggiTabella.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Indice = QHash<QString, qsizetype>;
using Chiavi = QList<int>;  // archive key of each row of a file

// The files, read, with the rows that their natural keys name.
struct Esempio {
    explicit Esempio(const QString& cartella);

    TabellaDati manifestazione, prove, raggruppamenti, squadre, equipaggi, rilevamenti, prezzi, incassi;
    Indice proveDi, raggruppamentiDi, squadreDi, equipaggiDi, prezziDi;
};

Esempio::Esempio(const QString& cartella)
    : manifestazione(cartella + u"/manifestazione.tsv"_s, {"Manifestazioni", {u"Nom"_s}}),
      prove(cartella + u"/prove.tsv"_s, {"Prove", {u"Prova"_s, u"Tip"_s, u"Tem"_s}, {u"Prova"_s}}),
      raggruppamenti(cartella + u"/raggruppamenti.tsv"_s, {"Raggruppamenti", {u"Nom"_s, u"Fat"_s}}),
      squadre(cartella + u"/squadre.tsv"_s, {"Squadre", {u"Nom"_s}}),
      equipaggi(cartella + u"/equipaggi.tsv"_s,
                {"Equipaggi", {u"Num"_s, u"Cog"_s}, {u"Raggruppamento"_s, u"Squadra"_s}}),
      rilevamenti(cartella + u"/rilevamenti.tsv"_s,
                  {"Rilevamenti", {u"Equipaggio"_s, u"Prova"_s}, {u"Equipaggio"_s, u"Prova"_s}}),
      prezzi(cartella + u"/prezzi.tsv"_s, {"Prezzi", {u"Des"_s, u"Pre"_s}}),
      incassi(cartella + u"/incassi.tsv"_s,
              {"Incassi", {u"Equipaggio"_s, u"Prezzo"_s, u"Qta"_s}, {u"Equipaggio"_s, u"Prezzo"_s}}),
      proveDi(prove.indice(u"Prova"_s)),
      raggruppamentiDi(raggruppamenti.indice(u"Nom"_s)),
      squadreDi(squadre.indice(u"Nom"_s)),
      equipaggiDi(equipaggi.indice(u"Num"_s)),
      prezziDi(prezzi.indice(u"Des"_s)) {}

// Row that a reference names; nothing for an empty one.
std::optional<qsizetype> riferimento(const TabellaDati& dati, qsizetype riga, const QString& colonna,
                                     const Indice& indice) {
    const QString nome = dati.testo(riga, colonna);
    if (nome.isEmpty())
        return std::nullopt;
    const auto trovata = indice.constFind(nome);
    if (trovata == indice.constEnd())
        dati.rifiuta(riga, u"«%1» %2 non esiste"_s.arg(colonna, nome));
    return *trovata;
}

// Row of the test that a chained test follows: the one before it, for a time control the time control before
// it.
qsizetype precedente(const TabellaDati& prove, qsizetype riga) {
    const QString co = u"CO"_s;
    qsizetype prima = riga - 1;
    while (prima >= 0 && prove.testo(riga, u"Tip"_s) == co && prove.testo(prima, u"Tip"_s) != co)
        --prima;
    return prima;
}

void controllaProve(const Esempio& esempio) {
    const TabellaDati& prove = esempio.prove;
    const bool concatenati = esempio.manifestazione.testo(0, u"TipoCO"_s) != u"PAR"_s;
    for (qsizetype riga = 0; riga < prove.numeroRighe(); ++riga) {
        if (prove.testo(riga, u"Prova"_s) != QString::number(riga + 1))
            prove.rifiuta(riga, u"la prova numero %1 doveva stare qui"_s.arg(riga + 1));
        const std::optional<qsizetype> conA = riferimento(prove, riga, u"ConA"_s, esempio.proveDi);
        const bool permessa = concatenati || prove.testo(riga, u"Tip"_s) != u"CO"_s;
        if (conA && (!permessa || *conA != precedente(prove, riga)))
            prove.rifiuta(riga, u"la prova non può essere concatenata alla %1"_s.arg(*conA + 1));
    }
}

// Every crew has exactly one row per test.
void controllaRilevamenti(const Esempio& esempio) {
    const TabellaDati& dati = esempio.rilevamenti;
    QSet<std::pair<qsizetype, qsizetype>> presenti;
    for (qsizetype riga = 0; riga < dati.numeroRighe(); ++riga) {
        const std::pair coppia{*riferimento(dati, riga, u"Equipaggio"_s, esempio.equipaggiDi),
                               *riferimento(dati, riga, u"Prova"_s, esempio.proveDi)};
        if (presenti.contains(coppia))
            dati.rifiuta(riga, u"equipaggio e prova sono ripetuti"_s);
        presenti << coppia;
    }
    for (qsizetype equipaggio = 0; equipaggio < esempio.equipaggi.numeroRighe(); ++equipaggio) {
        for (qsizetype prova = 0; prova < esempio.prove.numeroRighe(); ++prova) {
            if (!presenti.contains({equipaggio, prova})) {
                dati.rifiuta(dati.numeroRighe(),
                             u"manca il rilevamento dell'equipaggio %1 nella prova %2"_s.arg(
                                 esempio.equipaggi.testo(equipaggio, u"Num"_s),
                                 esempio.prove.testo(prova, u"Prova"_s)));
            }
        }
    }
}

void controlla(const Esempio& esempio) {
    const qsizetype manifestazioni = esempio.manifestazione.numeroRighe();
    if (manifestazioni != 1)
        esempio.manifestazione.rifiuta(std::min<qsizetype>(manifestazioni, 1), u"serve una sola riga"_s);
    controllaProve(esempio);
    controllaRilevamenti(esempio);
    for (qsizetype riga = 0; riga < esempio.equipaggi.numeroRighe(); ++riga) {
        riferimento(esempio.equipaggi, riga, u"Raggruppamento"_s, esempio.raggruppamentiDi);
        riferimento(esempio.equipaggi, riga, u"Squadra"_s, esempio.squadreDi);
    }
    for (qsizetype riga = 0; riga < esempio.incassi.numeroRighe(); ++riga) {
        riferimento(esempio.incassi, riga, u"Equipaggio"_s, esempio.equipaggiDi);
        riferimento(esempio.incassi, riga, u"Prezzo"_s, esempio.prezziDi);
    }
}

// Writes the rows of a file: its own columns that the archive has, and the columns worked out from
// references. The keys grow as the rows are written, so that a row may refer to one before it.
using Calcolo = std::function<QVariant(qsizetype riga)>;
void scrivi(Connessione& db, const TabellaDati& dati, const QList<std::pair<QString, Calcolo>>& calcolate,
            Chiavi& chiavi) {
    const Tabella& tabella = *trovaTabella(dati.tabella());
    QStringList proprie;
    for (const QString& colonna : dati.colonne()) {
        const bool calcolata =
            std::ranges::any_of(calcolate, [&](const auto& c) { return c.first == colonna; });
        if (haColonna(tabella, colonna) && !calcolata)
            proprie << colonna;
    }
    QStringList tutte = proprie;
    for (const auto& [nome, calcolo] : calcolate)
        tutte << nome;
    Statement inserimento(u"INSERT INTO [%1] ([%2]) VALUES (?%3)"_s.arg(dati.tabella(), tutte.join(u"],["),
                                                                        u",?"_s.repeated(tutte.size() - 1)),
                          db);
    for (qsizetype riga = 0; riga < dati.numeroRighe(); ++riga) {
        QVariantList valori;
        for (const QString& colonna : std::as_const(proprie))
            valori << dati.valore(riga, colonna);
        for (const auto& [nome, calcolo] : calcolate)
            valori << calcolo(riga);
        chiavi << inserimento.esegui(valori).ultimaChiave();
    }
}

// The archive key that a reference stands for; 0 for none.
Calcolo chiaveDi(const TabellaDati& dati, const QString& colonna, const Indice& indice,
                 const Chiavi& chiavi) {
    return [&dati, colonna, &indice, &chiavi](qsizetype riga) -> QVariant {
        const std::optional<qsizetype> trovata = riferimento(dati, riga, colonna, indice);
        return trovata ? chiavi.at(*trovata) : 0;
    };
}

int scriviTutto(Connessione& db, const Esempio& es) {
    Chiavi manifestazioni, prove, gruppi, squadre, equipaggi, prezzi, rilevamenti, incassi;
    scrivi(db, es.manifestazione, {}, manifestazioni);
    const int idMan = manifestazioni.constFirst();
    const std::pair<QString, Calcolo> diMan{u"IDMan_FK"_s, [idMan](qsizetype) { return idMan; }};
    const auto chiave = [](const TabellaDati& dati, const QString& colonna, const QString& da,
                           const Indice& indice, const Chiavi& chiavi) {
        return std::pair{colonna, chiaveDi(dati, da, indice, chiavi)};
    };
    scrivi(db, es.prove, {diMan, chiave(es.prove, u"ConA"_s, u"ConA"_s, es.proveDi, prove)}, prove);
    scrivi(db, es.raggruppamenti, {diMan}, gruppi);
    scrivi(db, es.squadre, {diMan}, squadre);
    scrivi(db, es.prezzi, {diMan}, prezzi);
    scrivi(db, es.equipaggi,
           {diMan, chiave(es.equipaggi, u"IDGru_FK"_s, u"Raggruppamento"_s, es.raggruppamentiDi, gruppi),
            chiave(es.equipaggi, u"IDSqu_FK"_s, u"Squadra"_s, es.squadreDi, squadre)},
           equipaggi);
    scrivi(db, es.rilevamenti,
           {chiave(es.rilevamenti, u"IDEqu_FK"_s, u"Equipaggio"_s, es.equipaggiDi, equipaggi),
            chiave(es.rilevamenti, u"IDPro_FK"_s, u"Prova"_s, es.proveDi, prove)},
           rilevamenti);
    scrivi(db, es.incassi,
           {chiave(es.incassi, u"IDEqu_FK"_s, u"Equipaggio"_s, es.equipaggiDi, equipaggi),
            chiave(es.incassi, u"IDPre_FK"_s, u"Prezzo"_s, es.prezziDi, prezzi)},
           incassi);
    return idMan;
}

int scriviArchivio(const QString& percorso, const Esempio& esempio) {
    creaArchivio(percorso);
    Connessione connessione(percorso);
    Transazione transazione(connessione);
    const int idMan = scriviTutto(connessione, esempio);
    transazione.conferma();
    return idMan;
}

}  // namespace

int creaEsempio(const QString& cartellaDati, const QString& cartellaArchivio) {
    const QString percorso = cartellaArchivio + u"/mdvlm.mdb"_s;
    const QFileInfo archivio(percorso);
    if (archivio.exists() || archivio.isSymLink())
        throw Errore(u"L'archivio %1 esiste già: non è stato toccato."_s.arg(percorso));
    const Esempio esempio(cartellaDati);
    controlla(esempio);
    // Filled aside: under the archive's own name it appears whole.
    const QString aParte = percorso + u".esempio"_s;
    QFile::remove(aParte);
    try {
        const int idMan = scriviArchivio(aParte, esempio);
        if (!QFile::rename(aParte, percorso))
            throw Errore(u"Impossibile creare l'archivio %1."_s.arg(percorso));
        return idMan;
    } catch (...) {
        QFile::remove(aParte);
        throw;
    }
}

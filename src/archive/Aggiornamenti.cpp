#include "archive/Aggiornamenti.h"

#include "archive/ErroreArchivio.h"
#include "archive/Schema.h"
#include "archive/Statement.h"

#include <optional>
#include <QHash>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr PassoAggiornamento Passi[] = {
    {1, "TempRil", "Num"},
    {2, "ClassificaProva", "Net11"},
    {3, "Manifestazioni", "FatNoASI"},
    {4, "ErroriSca", nullptr},
    {5, "TempScar", nullptr},
    {6, "ProspCoeff", nullptr},
    {7, "Manifestazioni", "RagAuto"},
    {8, "Raggruppamenti", "DAAnn"},
    {9, "Manifestazioni", "PenProNonSvo"},
    {10, "Rilevamenti", "DesPenAgg"},
    {11, "Classifica", "PenNet"},
    {12, "Classifica", "Coeff"},
    {13, "Classifica", "PenAgg"},
    {14, "Schede", "PenAgg"},
};
constexpr int PassoCambioTipo = 14;  // alters a column that every archive has

using Colonne = QHash<QString, QString>;  // name and declared type

// Every table of the file, by its name in lower case: one walk serves all the tests.
QHash<QString, Colonne> leggiTabelle() {
    QHash<QString, Colonne> trovate;
    Statement lettura(
        u"SELECT lower(m.name),c.name,c.type FROM sqlite_master m,pragma_table_info(m.name) c "
        "WHERE m.type='table'"_s);
    lettura.esegui();
    while (lettura.prossima())
        trovate[lettura.testo(0)].insert(lettura.testo(1), lettura.testo(2));
    return trovate;
}

bool manca(const PassoAggiornamento& passo, const QHash<QString, Colonne>& presenti) {
    const Colonne colonne = presenti.value(QString::fromLatin1(passo.tabella).toLower());
    if (!passo.colonna)
        return colonne.isEmpty();
    const QString nome = QString::fromLatin1(passo.colonna);
    if (passo.ordine == PassoCambioTipo)
        return colonne.value(nome).compare(u"REAL", Qt::CaseInsensitive) != 0;
    return !colonne.contains(nome);
}

// The engine cannot change a column's type: a new one takes the values and the old one goes.
QStringList cambiaTipo(const QString& tabella, const Colonna& colonna) {
    const QString nome = QString::fromLatin1(colonna.nome);
    const QString vecchia = nome + u"_precedente"_s;
    return {u"ALTER TABLE %1 RENAME COLUMN [%2] TO [%3]"_s.arg(tabella, nome, vecchia),
            u"ALTER TABLE %1 ADD COLUMN %2"_s.arg(tabella, sqlColonna(colonna)),
            u"UPDATE %1 SET [%2]=[%3]"_s.arg(tabella, nome, vecchia),
            u"ALTER TABLE %1 DROP COLUMN [%2]"_s.arg(tabella, vecchia)};
}

QStringList istruzioni(const PassoAggiornamento& passo) {
    const Tabella& tabella = *trovaTabella(QString::fromLatin1(passo.tabella));
    const QString nome = QString::fromLatin1(tabella.nome);
    QStringList testi;
    if (tabella.passo == passo.ordine)
        testi << sqlCreaTabella(tabella);
    for (const Colonna& colonna : tabella.colonne) {
        if (colonna.passo != passo.ordine)
            continue;
        if (passo.ordine == PassoCambioTipo) {
            testi << cambiaTipo(nome, colonna);
        } else {
            testi << u"ALTER TABLE %1 ADD COLUMN %2"_s.arg(nome, sqlColonna(colonna));
        }
    }
    for (const Indice& indice : indici()) {
        if (indice.passo == passo.ordine)
            testi << sqlCreaIndice(indice);
    }
    return testi;
}

void applica(const PassoAggiornamento& passo) {
    try {
        const QStringList testi = istruzioni(passo);
        for (const QString& testo : testi)
            esegui(testo);
    } catch (const ErroreArchivio& errore) {
        throw ErroreArchivio(u"L'archivio non si può aggiornare (passo %1, tabella %2).\n%3"_s.arg(
            QString::number(passo.ordine), QLatin1String(passo.tabella), errore.testo()));
    }
}

}  // namespace

std::span<const PassoAggiornamento> passiAggiornamento() {
    return Passi;
}

QList<int> AggiornaArchivio() {
    const QHash<QString, Colonne> presenti = leggiTabelle();
    QList<int> applicati;
    std::optional<Transazione> transazione;  // none on an archive that lacks nothing
    for (const PassoAggiornamento& passo : Passi) {
        if (!manca(passo, presenti))
            continue;
        if (!transazione)
            transazione.emplace();
        applica(passo);
        applicati << passo.ordine;
    }
    if (transazione)
        transazione->conferma();
    return applicati;
}

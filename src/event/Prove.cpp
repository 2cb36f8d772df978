#include "event/Prove.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "common/Valori.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString CO = u"CO"_s;

bool controlloOrario(const Prova& prova) {
    return prova.tip == CO;
}

// Key of the nearest time control before a position; 0 when there is none.
int controlloOrarioPrima(const QList<Prova>& elenco, qsizetype posizione) {
    for (qsizetype i = posizione - 1; i >= 0; --i) {
        if (controlloOrario(elenco[i]))
            return elenco[i].id;
    }
    return 0;
}

// The first time control after a position, when it is chained.
const Prova* controlloOrarioConcatenatoDopo(const QList<Prova>& elenco, qsizetype posizione) {
    const auto trovato = std::find_if(elenco.cbegin() + posizione + 1, elenco.cend(), controlloOrario);
    return trovato != elenco.cend() && trovato->concatenata ? &*trovato : nullptr;
}

// The test to which one at that position is to be chained.
int riferimento(const Prova& prova, const QList<Prova>& elenco, qsizetype posizione) {
    if (!prova.concatenata || posizione == 0)
        return 0;
    return controlloOrario(prova) ? controlloOrarioPrima(elenco, posizione) : elenco[posizione - 1].id;
}

QVariantMap colonne(int idMan, const Prova& prova, int conA) {
    return {{u"IDMan_FK"_s, idMan}, {u"Nom"_s, prova.nom},
            {u"Loc"_s, prova.loc},  {u"Tem"_s, prova.tem},
            {u"Tip"_s, prova.tip},  {u"Dat"_s, leggiData(prova.dat) ? QVariant(prova.dat) : QVariant()},
            {u"ConA"_s, conA}};
}

int inserisciProva(int idMan, const Prova& prova, int conA) {
    QVariantMap valori = colonne(idMan, prova, conA);
    valori[u"Svo"_s] = 0;
    return inserisciRiga(u"Prove"_s, valori);
}

void concatena(int idPro, int conA) {
    esegui(u"UPDATE Prove SET ConA=? WHERE IDPro=?"_s, {conA, idPro});
}

qsizetype posizioneDi(const QList<Prova>& elenco, int idPro) {
    const auto trovata = std::ranges::find(elenco, idPro, &Prova::id);
    if (trovata == elenco.cend())
        throw Errore(u"La prova non è più nell'archivio."_s);
    return trovata - elenco.cbegin();
}

}  // namespace

QStringList tipiDiProva() {
    return {u"PA"_s, u"PM"_s, CO};
}

QList<Prova> leggiProve(int idMan) {
    QList<Prova> elenco;
    Statement lettura(
        u"SELECT IDPro,Tip,Nom,Loc,Tem,Dat,ConA FROM Prove WHERE IDMan_FK=? ORDER BY IDPro ASC"_s);
    lettura.esegui({idMan});
    while (lettura.prossima()) {
        elenco << Prova{lettura.intero(0), lettura.testo(1), lettura.testo(2),      lettura.testo(3),
                        lettura.testo(4),  lettura.testo(5), lettura.intero(6) != 0};
    }
    return elenco;
}

bool controlliOrariAllaPartenza(int idMan) {
    return esisteRiga(u"SELECT 1 FROM Manifestazioni WHERE IDMan=? AND TipoCO='PAR'"_s, {idMan});
}

std::optional<Rifiuto> verificaProva(const Prova& prova, const QList<Prova>& elenco, qsizetype posizione) {
    const QString titolo = u"Impossibile Aggiungere"_s;
    if (prova.tem.isEmpty())
        return Rifiuto{titolo, u"Inserire il Tempo Imposto della Prova"_s, Icona::Stop, u"txtTem"_s};
    if (prova.concatenata && posizione == 0) {
        return Rifiuto{titolo, u"La Prima Prova non può Essere\nConcatenata con la Precedente"_s,
                       Icona::Stop};
    }
    if (prova.concatenata && controlloOrario(prova) &&
        std::none_of(elenco.cbegin(), elenco.cbegin() + posizione, controlloOrario)) {
        return Rifiuto{titolo, u"Il Primo CO non può Essere\nConcatenato con il Precedente"_s, Icona::Stop};
    }
    return std::nullopt;
}

void sciogliControlliOrari(QList<Prova>& elenco) {
    for (Prova& prova : elenco)
        prova.concatenata = prova.concatenata && !controlloOrario(prova);
}

void inserisciProve(int idMan, const QList<Prova>& elenco) {
    int ultima = 0;
    int ultimoCO = 0;
    for (const Prova& prova : elenco) {
        const int conA = !prova.concatenata ? 0 : controlloOrario(prova) ? ultimoCO : ultima;
        ultima = inserisciProva(idMan, prova, conA);
        if (controlloOrario(prova))
            ultimoCO = ultima;
    }
}

int aggiungiProva(int idMan, const Prova& prova) {
    Transazione transazione;
    const QList<Prova> elenco = leggiProve(idMan);
    const int id = inserisciProva(idMan, prova, riferimento(prova, elenco, elenco.size()));
    esegui(
        u"INSERT INTO Rilevamenti (IDPro_FK,IDEqu_FK,TPar,TArr) "
        "SELECT ?,IDEqu,'','' FROM Equipaggi WHERE IDMan_FK=? ORDER BY IDEqu"_s,
        {id, idMan});
    transazione.conferma();
    return id;
}

void modificaProva(int idMan, const Prova& prova) {
    Transazione transazione;
    const QList<Prova> elenco = leggiProve(idMan);
    const qsizetype posizione = posizioneDi(elenco, prova.id);
    aggiornaRiga(u"Prove"_s, u"IDPro"_s, prova.id,
                 colonne(idMan, prova, riferimento(prova, elenco, posizione)));
    if (const Prova* dopo = controlloOrarioConcatenatoDopo(elenco, posizione); dopo && prova.concatenata) {
        // The later time control refers to the nearest one before it: this test, or the one that it was
        // hiding.
        if (controlloOrario(prova)) {
            concatena(dopo->id, prova.id);
        } else if (controlloOrario(elenco[posizione])) {
            concatena(dopo->id, controlloOrarioPrima(elenco, posizione));
        }
    }
    transazione.conferma();
}

void eliminaProva(int idMan, int idPro) {
    Transazione transazione;
    const QList<Prova> elenco = leggiProve(idMan);
    const qsizetype posizione = posizioneDi(elenco, idPro);
    esegui(u"DELETE FROM Prove WHERE IDPro=?"_s, {idPro});
    // What referred to the lost test is left unchained: joined to the test before it, it would be timed from
    // a place where nobody started it.
    if (posizione + 1 < elenco.size()) {
        const Prova& seguente = elenco[posizione + 1];
        if (seguente.concatenata && !controlloOrario(seguente))
            concatena(seguente.id, 0);
        const Prova* dopo = controlloOrarioConcatenatoDopo(elenco, posizione);
        if (dopo && controlloOrario(elenco[posizione]))
            concatena(dopo->id, 0);
    }
    transazione.conferma();
}

QList<ProvaSvolta> leggiProveSvolte(int idMan) {
    QList<ProvaSvolta> prove;
    Statement lettura(u"SELECT IDPro,Nom,Dat,Svo FROM Prove WHERE IDMan_FK=? ORDER BY IDPro"_s);
    lettura.esegui({idMan});
    while (lettura.prossima())
        prove << ProvaSvolta{lettura.intero(0), lettura.testo(1), lettura.testo(2), lettura.vero(3)};
    return prove;
}

void scriviProveSvolte(const QList<ProvaSvolta>& prove) {
    Transazione transazione;
    Statement scrittura(u"UPDATE Prove SET Svo=? WHERE IDPro=?"_s);
    for (const ProvaSvolta& prova : prove)
        scrittura.esegui({prova.svolta ? 1 : 0, prova.id});
    transazione.conferma();
}

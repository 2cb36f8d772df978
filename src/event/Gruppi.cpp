#include "event/Gruppi.h"

#include "archive/Statement.h"
#include "common/Orologio.h"
#include "common/Valori.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int PrimoAnno = 1850;
constexpr int UltimoAnno = 2000;
constexpr int EtaModerne = 20;

bool vuoto(const QString& testo) {
    return testo.trimmed().isEmpty();
}

QVariant anno(const QString& testo) {
    return vuoto(testo) ? QVariant() : QVariant(testo.toInt());
}

QString annoInTesto(const Statement& riga, int colonna) {
    return riga.nullo(colonna) ? QString() : QString::number(riga.intero(colonna));
}

QString titoloRifiuto(Operazione operazione) {
    switch (operazione) {
        case Operazione::Aggiunta:
            return u"Impossbile Aggiungere"_s;
        case Operazione::ModificaInCreazione:
            return u"Impossibile Modificare"_s;
        case Operazione::ModificaInArchivio:
            break;
    }
    return u"Impossibile Aggiungere"_s;
}

std::optional<Rifiuto> verificaCampi(const Gruppo& gruppo, Operazione operazione) {
    const QString titolo = titoloRifiuto(operazione);
    if (gruppo.nom.isEmpty())
        return Rifiuto{titolo, u"Inserire il Nome del Raggruppamento"_s, Icona::Stop, u"txtNom"_s};
    // A comma alone, or two of them, is no factor either.
    if (!leggiNumero(gruppo.fat))
        return Rifiuto{titolo, u"Inserire il Fattore Moltiplicativo"_s, Icona::Stop, u"txtFat"_s};
    return std::nullopt;
}

std::optional<Rifiuto> verificaAnniPresenti(const Gruppo& gruppo, bool assegnazioneAutomatica) {
    if (assegnazioneAutomatica && (vuoto(gruppo.daAnn) || vuoto(gruppo.aAnn))) {
        return Rifiuto{u"Anni Mancanti"_s,
                       u"La Manifestazione Prevede l'Inserimento Automatico\n"
                       "degli Equipaggi nei Raggruppamenti in Base all'Anno del Veicolo.\n"
                       "E' Obbligatorio Inserire Entrambi gli Anni del Ragruppamento"_s,
                       Icona::Esclamazione, u"txtDaAnn"_s};
    }
    if (vuoto(gruppo.daAnn) != vuoto(gruppo.aAnn)) {
        return Rifiuto{u"Anni Mancanti"_s,
                       u"Inserendo Almeno un Anno E' Obbligatorio Inserire Anche l'Altro"_s,
                       Icona::Esclamazione, u"txtDaAnn"_s};
    }
    return std::nullopt;
}

// Only the two ends are tested: a range that encloses another one passes.
std::optional<Rifiuto> verificaAnni(const Gruppo& gruppo, const QList<Gruppo>& altri) {
    const int da = gruppo.daAnn.toInt();
    const int a = gruppo.aAnn.toInt();
    if (da > a) {
        return Rifiuto{u"Anni Errati"_s,
                       u"L'Anno di Inizio del Raggruppamento è Maggiore dell'Anno di Fine"_s,
                       Icona::Esclamazione, u"txtDaAnn"_s};
    }
    for (const Gruppo& altro : altri) {
        const auto dentro = [&](int valore) {
            return valore >= altro.daAnn.toInt() && valore <= altro.aAnn.toInt();
        };
        if (dentro(da)) {
            return Rifiuto{
                u"Anno Errato"_s,
                u"L'Anno di Inizio del Raggruppamento Fa Parte di un Raggruppamento già Inserito"_s,
                Icona::Esclamazione, u"txtDaAnn"_s};
        }
        if (dentro(a)) {
            return Rifiuto{u"Anno Errato"_s,
                           u"L'Anno di Fine del Raggruppamento Fa Parte di un Raggruppamento già Inserito"_s,
                           Icona::Esclamazione, u"txtAAnn"_s};
        }
    }
    return std::nullopt;
}

QVariantMap colonne(int idMan, const Gruppo& gruppo) {
    return {{u"IDMan_FK"_s, idMan},
            {u"Nom"_s, gruppo.nom},
            {u"Fat"_s, valoreNumerico(gruppo.fat)},
            {u"DAAnn"_s, anno(gruppo.daAnn)},
            {u"AAnn"_s, anno(gruppo.aAnn)}};
}

// Of the groups that hold a crew's year the last one takes it; without one it has no group.
void riassegnaEquipaggi(int idMan) {
    esegui(
        u"UPDATE Equipaggi SET IDGru_FK=coalesce((SELECT max(g.IDGru) FROM Raggruppamenti g "
        "WHERE g.IDMan_FK=Equipaggi.IDMan_FK AND Equipaggi.Ann BETWEEN g.DAAnn AND g.AAnn),0) "
        "WHERE IDMan_FK=?"_s,
        {idMan});
}

}  // namespace

std::optional<Rifiuto> verificaGruppo(const Gruppo& gruppo, const QList<Gruppo>& altri,
                                      bool assegnazioneAutomatica, Operazione operazione) {
    std::optional<Rifiuto> rifiuto = verificaCampi(gruppo, operazione);
    if (!rifiuto)
        rifiuto = verificaAnniPresenti(gruppo, assegnazioneAutomatica);
    if (!rifiuto && !vuoto(gruppo.daAnn))
        rifiuto = verificaAnni(gruppo, altri);
    return rifiuto;
}

std::optional<Rifiuto> verificaAnno(const QString& testo) {
    if (vuoto(testo) || (testo.toInt() >= PrimoAnno && testo.toInt() <= UltimoAnno))
        return std::nullopt;
    return Rifiuto{u"Dato Errato"_s, u"Controllare l'Anno Inserito"_s};
}

std::optional<Rifiuto> verificaAssegnazione(const QList<Gruppo>& gruppi) {
    if (std::ranges::none_of(gruppi, [](const Gruppo& g) { return vuoto(g.daAnn) || vuoto(g.aAnn); }))
        return std::nullopt;
    return Rifiuto{u"Impossibile Attivare l'Opzione"_s,
                   u"Sono Stati Già Inseriti dei Raggruppamenti Senza Anni.\n"
                   "Inserire Tutti gli Anni Mancanti e Quindi Atrivare l'Opzione"_s};
}

QList<Gruppo> gruppiASI() {
    const QString uno = u"1"_s;
    return {
        {0, u"Ancêtre"_s, uno, u"1850"_s, u"1904"_s},
        {0, u"Veteran"_s, uno, u"1905"_s, u"1918"_s},
        {0, u"Vintage"_s, uno, u"1919"_s, u"1930"_s},
        {0, u"Post Vintage"_s, uno, u"1931"_s, u"1945"_s},
        {0, u"Classic"_s, uno, u"1946"_s, u"1960"_s},
        {0, u"Post Classic"_s, uno, u"1961"_s, u"1970"_s},
        {0, u"Modern"_s, uno, u"1970"_s, QString::number(Orologio::corrente().oggi().year() - EtaModerne)}};
}

QList<Gruppo> leggiGruppi(int idMan) {
    QList<Gruppo> gruppi;
    Statement lettura(
        u"SELECT IDGru,Nom,Fat,DAAnn,AAnn FROM Raggruppamenti WHERE IDMan_FK=? ORDER BY IDGru"_s);
    lettura.esegui({idMan});
    while (lettura.prossima()) {
        gruppi << Gruppo{lettura.intero(0), lettura.testo(1),
                         lettura.nullo(2) ? QString() : numeroInTesto(lettura.reale(2)),
                         annoInTesto(lettura, 3), annoInTesto(lettura, 4)};
    }
    return gruppi;
}

void inserisciGruppi(int idMan, const QList<Gruppo>& gruppi) {
    for (const Gruppo& gruppo : gruppi)
        inserisciRiga(u"Raggruppamenti"_s, colonne(idMan, gruppo));
}

int aggiungiGruppo(int idMan, const Gruppo& gruppo, bool assegnazioneAutomatica) {
    Transazione transazione;
    const int id = inserisciRiga(u"Raggruppamenti"_s, colonne(idMan, gruppo));
    if (assegnazioneAutomatica) {
        esegui(u"UPDATE Equipaggi SET IDGru_FK=? WHERE IDMan_FK=? AND Ann<=? AND Ann>=?"_s,
               {id, idMan, anno(gruppo.aAnn), anno(gruppo.daAnn)});
    }
    transazione.conferma();
    return id;
}

void modificaGruppo(int idMan, const Gruppo& gruppo, bool assegnazioneAutomatica) {
    Transazione transazione;
    QVariantMap valori = colonne(idMan, gruppo);
    const QList<Gruppo> gruppi = leggiGruppi(idMan);
    // A factor with more digits than are shown stays as it is until someone changes it.
    const auto stesso = [&](const Gruppo& g) { return g.id == gruppo.id && g.fat == gruppo.fat; };
    if (std::ranges::any_of(gruppi, stesso))
        valori.remove(u"Fat"_s);
    aggiornaRiga(u"Raggruppamenti"_s, u"IDGru"_s, gruppo.id, valori);
    if (assegnazioneAutomatica)
        riassegnaEquipaggi(idMan);
    transazione.conferma();
}

void eliminaGruppo(int idMan, int idGru) {
    Transazione transazione;
    esegui(u"DELETE FROM Raggruppamenti WHERE IDGru=?"_s, {idGru});
    esegui(u"UPDATE Equipaggi SET IDGru_FK=0 WHERE IDMan_FK=? AND IDGru_FK=?"_s, {idMan, idGru});
    transazione.conferma();
}

void sostituisciConGruppiASI(int idMan, bool assegnazioneAutomatica) {
    Transazione transazione;
    esegui(u"DELETE FROM Raggruppamenti WHERE IDMan_FK=?"_s, {idMan});
    inserisciGruppi(idMan, gruppiASI());
    // No crew may keep the key of a group that is gone.
    if (assegnazioneAutomatica) {
        riassegnaEquipaggi(idMan);
    } else {
        esegui(u"UPDATE Equipaggi SET IDGru_FK=0 WHERE IDMan_FK=?"_s, {idMan});
    }
    transazione.conferma();
}

std::optional<Rifiuto> verificaSquadra(const Squadra& squadra, Operazione operazione) {
    if (!squadra.nom.isEmpty())
        return std::nullopt;
    return Rifiuto{titoloRifiuto(operazione), u"Inserire il Nome della Squadra"_s, Icona::Esclamazione,
                   u"txtNom"_s};
}

QList<Squadra> leggiSquadre(int idMan) {
    QList<Squadra> squadre;
    Statement lettura(u"SELECT IDSqu,Nom FROM Squadre WHERE IDMan_FK=? ORDER BY IDSqu"_s);
    lettura.esegui({idMan});
    while (lettura.prossima())
        squadre << Squadra{lettura.intero(0), lettura.testo(1)};
    return squadre;
}

int aggiungiSquadra(int idMan, const QString& nom) {
    return inserisciRiga(u"Squadre"_s, {{u"IDMan_FK"_s, idMan}, {u"Nom"_s, nom}});
}

void modificaSquadra(const Squadra& squadra) {
    aggiornaRiga(u"Squadre"_s, u"IDSqu"_s, squadra.id, {{u"Nom"_s, squadra.nom}});
}

void eliminaSquadra(int idMan, int idSqu) {
    Transazione transazione;
    esegui(u"DELETE FROM Squadre WHERE IDSqu=?"_s, {idSqu});
    esegui(u"UPDATE Equipaggi SET IDSqu_FK=0 WHERE IDMan_FK=? AND IDSqu_FK=?"_s, {idMan, idSqu});
    transazione.conferma();
}

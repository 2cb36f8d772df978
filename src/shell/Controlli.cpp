#include "shell/Controlli.h"

#include "archive/Statement.h"
#include "common/Dialoghi.h"
#include "common/Public.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Prezzi = 1;
constexpr int Prove = 2;
constexpr int Svolte = 4;
constexpr int Equipaggi = 8;

struct Definizione {
    Controllo controllo;
    const char16_t* titolo;
    int dati = 0;                             // what the event must have
    const char16_t* titoloDati = nullptr;     // of the tests on data, where it differs
    const char16_t* titoloSparita = nullptr;  // when a key is set but its row is gone, where it differs
};

constexpr Definizione Definizioni[] = {
    {Controllo::Modifica, u"Impossibile Modificare"},
    {Controllo::Eliminazione, u"Impossibile Eliminare"},
    {Controllo::Iscrizioni, u"Impossibile Accedere Alle Iscrizioni"},
    {Controllo::Prezzi, u"Impossibile Accedere ai Prezzi di Iscrizione"},
    {Controllo::Quote, u"Impossibile Accedere alle Quote di Iscrizione", Prezzi | Equipaggi, nullptr,
     u"Impossibile Accedere agli Incassi"},
    {Controllo::ProveSvolte, u"Impossibile Gestire le Prove"},
    {Controllo::ImmissioneTempi, u"Impossibile Accedere All'Immissione Tempi", Prove | Equipaggi},
    {Controllo::RicezioneOnLine, u"Impossibile Accedere Alla Ricezione ONLINE", Prove | Equipaggi},
    {Controllo::RicezioneOffLine, u"Impossibile Accedere Alla Ricezione Tempi", Prove | Equipaggi,
     u"Impossibile Accedere Alla Ricezione OFFLINE"},
    {Controllo::OrariDiPartenza, u"Impossibile Accedere Alla Gestione Degli Orari di Partenza",
     Prove | Equipaggi},
    {Controllo::Ripartenza, u"Impossibile Creare Una Ripartenza", Prove | Equipaggi},
    {Controllo::ClassificaProva, u"Impossibile Accedere Alla Classfica di Prova", Prove | Equipaggi},
    {Controllo::ProspettoTempi, u"Impossibile Accedere Al Prospetto Tempi", Prove | Equipaggi},
    {Controllo::Verifiche, u"Impossibile Accedere Alle Verifiche"},
    {Controllo::Schede, u"Impossibile Accedere Alla Stampa Schede"},
    {Controllo::ImportazioneIscrizioni, u"Impossibile Accedere All'Iportazione"},
    {Controllo::Classifica, u"Impossibile Generare la Classsifica"},
    {Controllo::Pubblicazione, u"Impossibile Pubblicare la Manifestazione"},
    {Controllo::InvioSMS, u"Impossibile Accedere All'Invio degli SMS", Svolte | Equipaggi},
};

struct TestDati {
    int dato;
    const char* sql;
    const char16_t* testo;
};

// In the order in which they are made.
constexpr TestDati TestSuiDati[] = {
    {Prezzi, "SELECT 1 FROM Prezzi WHERE IDMan_FK=?", u"Nessun Prezzo di Iscrizione Inserito"},
    {Prove, "SELECT 1 FROM Prove WHERE IDMan_FK=?", u"Nessuna Prova Inserita per la Manifestazione Corrente"},
    {Svolte, "SELECT 1 FROM Prove WHERE Svo<>0 AND IDMan_FK=?",
     u"Nessuna Prova Svolta per la Manifestazione Corrente"},
    {Equipaggi, "SELECT 1 FROM Equipaggi WHERE IDMan_FK=?",
     u"Nessun Equipaggio Iscritto alla Manifestazione Corrente"},
};

bool rifiuta(const char16_t* titolo, const char16_t* testo) {
    avverti(QString::fromUtf16(titolo), QString::fromUtf16(testo));
    return false;
}

}  // namespace

bool controlla(Controllo controllo) {
    const auto* definizione = std::ranges::find(Definizioni, controllo, &Definizione::controllo);
    if (definizione == std::end(Definizioni))
        return true;
    constexpr const char16_t* NessunaAttiva = u"Nessuna Manifestazione Attiva";
    if (IDMan == 0)
        return rifiuta(definizione->titolo, NessunaAttiva);
    if (!esisteRiga(u"SELECT 1 FROM Manifestazioni WHERE IDMan=?"_s, {IDMan})) {
        return rifiuta(definizione->titoloSparita ? definizione->titoloSparita : definizione->titolo,
                       NessunaAttiva);
    }
    for (const TestDati& test : TestSuiDati) {
        if ((definizione->dati & test.dato) != 0 && !esisteRiga(QString::fromLatin1(test.sql), {IDMan})) {
            return rifiuta(definizione->titoloDati ? definizione->titoloDati : definizione->titolo,
                           test.testo);
        }
    }
    return true;
}

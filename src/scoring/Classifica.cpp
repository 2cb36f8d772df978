#include "scoring/Classifica.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "common/Dialoghi.h"
#include "common/Funzioni.h"
#include "common/Orologio.h"
#include "common/Public.h"
#include "scoring/Calcolo.h"
#include "scoring/Penalita.h"

#include <algorithm>
#include <compare>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

const QString MotivoAutomatico = u"Rilevamenti Mancanti"_s;

struct Riga {
    int idEqu = 0;
    bool esclusa = false;
    std::optional<int> anno;
    const EquipaggioCalcolo* equipaggio = nullptr;
    PenalitaEquipaggio penalita;

    [[nodiscard]] double pen() const { return esclusa ? PenEscluso : penalita.totale(); }
};

enum Crew { ChiaveCrew, Gru, Num, Ann, Esc, MotEsc, Ses, SesNav, Omo };
const QString SqlCrew =
    u"SELECT IDEqu,IDGru_FK,Num,Ann,Esc,MotEsc,Ses,SesNav,Omo FROM Equipaggi WHERE IDMan_FK=? ORDER BY IDEqu"_s;
// What a row shows of its crew goes from table to table as it is.
const QString SqlRiga =
    u"INSERT INTO Classifica (Gru,Squ,Num,Con,Vei,Ann,Pen,PenNet,PenAgg,Coeff,Pos) "
    "SELECT IDGru_FK,IDSqu_FK,Num,coalesce(Cog,'')||' '||coalesce(CogNav,''),"
    "coalesce(Mar,'')||' '||coalesce([Mod],''),Ann,?,?,?,?,? FROM Equipaggi WHERE IDEqu=?"_s;

bool appartiene(const Statement& crew, const RichiestaClassifica& richiesta) {
    if (richiesta.femminile)
        return crew.testo(Ses).toUpper() == u"F" && crew.testo(SesNav).toUpper() == u"F";
    if (richiesta.idGru != 0)
        return crew.intero(Gru) == richiesta.idGru;
    switch (richiesta.tipo) {
        case 0:
            return true;
        case 1:
            return equipaggioASI(crew.testo(Omo));
        case 2:
            return !equipaggioASI(crew.testo(Omo));
        default:
            return false;
    }
}

QSet<int> senzaRilevamenti(const Calcolo& calcolo) {
    QSet<int> incompleti;
    for (const EquipaggioCalcolo& equipaggio : calcolo.equipaggi()) {
        if (!calcolo.tempiCompleti(equipaggio))
            incompleti.insert(equipaggio.idEqu);
    }
    return incompleti;
}

void scriviEsclusioni(const QSet<int>& equipaggi) {
    QJsonArray chiavi;
    for (const int idEqu : equipaggi)
        chiavi.append(idEqu);
    esegui(u"UPDATE Equipaggi SET Esc=1,MotEsc=? WHERE IDEqu IN (SELECT value FROM json_each(?))"_s,
           {MotivoAutomatico, QString::fromUtf8(QJsonDocument(chiavi).toJson(QJsonDocument::Compact))});
}

void aggiungiEscluso(QString& esclusi, const QString& num, const QString& motivo) {
    esclusi += (esclusi.isEmpty() ? u"Esclusi : N. "_s : u" - N. "_s) + num + u' ' + motivo;
}

std::vector<Riga> raccogli(const RichiestaClassifica& richiesta, const QSet<int>& incompleti,
                           const Calcolo& calcolo, QString& esclusi) {
    std::vector<Riga> righe;
    Statement crew(SqlCrew);
    crew.esegui({IDMan});
    while (crew.prossima()) {
        if (!appartiene(crew, richiesta))
            continue;
        Riga riga;
        riga.idEqu = crew.intero(ChiaveCrew);
        if (!crew.nullo(Ann))
            riga.anno = crew.intero(Ann);
        const bool incompleto = incompleti.contains(riga.idEqu);
        riga.esclusa = incompleto || crew.vero(Esc);
        if (riga.esclusa)
            aggiungiEscluso(esclusi, crew.testo(Num), incompleto ? MotivoAutomatico : crew.testo(MotEsc));
        riga.equipaggio = calcolo.trova(riga.idEqu);
        righe.push_back(riga);
    }
    return righe;
}

// A crew whose sums fail is told to the operator, once, and ranked on what they held.
void calcola(std::vector<Riga>& righe, const Calcolo& calcolo) {
    for (Riga& riga : righe) {
        if (riga.esclusa || !riga.equipaggio)
            continue;
        riga.penalita = calcolo.calcola(*riga.equipaggio);
        if (riga.penalita.errore)
            avvisaErrorePenalita(riga.equipaggio->num, riga.equipaggio->cog, riga.equipaggio->cogNav);
    }
}

void ordina(std::vector<Riga>& righe) {
    // A missing year is less than any year, as an empty optional is.
    std::ranges::stable_sort(righe, [](const Riga& a, const Riga& b) {
        const std::partial_ordering pen = a.pen() <=> b.pen();
        return std::is_eq(pen) ? a.anno < b.anno : std::is_lt(pen);
    });
}

void scrivi(const std::vector<Riga>& righe) {
    esegui(u"DELETE FROM Classifica"_s);
    Statement scrittura(SqlRiga);
    int posizione = 0;
    for (const Riga& riga : righe) {
        const auto diValida = [&](double valore) { return riga.esclusa ? QVariant() : QVariant(valore); };
        scrittura.esegui({riga.pen(), diValida(riga.penalita.tempi), diValida(riga.penalita.aggiunte),
                          diValida(riga.penalita.coefficiente), ++posizione, riga.idEqu});
    }
}

void avvisaProveNonSvolte(const QString& dat) {
    QString sql = u"SELECT 1 FROM Prove WHERE IDMan_FK=? AND coalesce(Svo,0)=0"_s;
    QVariantList valori{IDMan};
    if (!dat.isEmpty()) {
        // As typed: a day without its zeros matches no test here, though the sums read it as a date.
        sql += u" AND Dat=?"_s;
        valori << dat;
    }
    if (esisteRiga(sql, valori)) {
        Dialoghi::corrente().messaggio(u"Classifica Assoluta Parziale"_s,
                                       u"ATTENZIONE : Alcune Prove NON Sono Ancora State SVOLTE"_s,
                                       Icona::Informazione);
    }
}

QString titoloGruppo(const RichiestaClassifica& richiesta) {
    const auto nome = leggiValore(u"SELECT Nom FROM Raggruppamenti WHERE IDGru=?"_s, {richiesta.idGru});
    return (richiesta.dat.isEmpty() ? u"CLASSIFICA RAGGRUPPAMENTO : "_s : u"CLASSIFICA RAGGR. : "_s) +
           nome.value_or(QVariant()).toString().toUpper();
}

QString titolo(const RichiestaClassifica& richiesta) {
    const QString giorno = richiesta.dat.isEmpty() ? QString() : u" DEL "_s + richiesta.dat;
    switch (richiesta.tipo) {
        case 0:
            if (richiesta.femminile)
                return u"CLASSIFICA ASSOLUTA FEMMINILE"_s;
            return (richiesta.idGru == 0 ? u"CLASSIFICA ASSOLUTA"_s : titoloGruppo(richiesta)) + giorno;
        case 1:
            return u"CLASSIFICA ASI"_s + giorno;
        case 2:
            return u"CLASSIFICA NON ASI"_s + giorno;
        default:
            return {};
    }
}

}  // namespace

bool controllaManifestazione() {
    if (IDMan != 0 && esisteRiga(u"SELECT 1 FROM Manifestazioni WHERE IDMan=?"_s, {IDMan}))
        return true;
    avverti(u"Impossibile Generare la Classsifica"_s, u"Nessuna Manifestazione Attiva"_s);
    return false;
}

QString AnniIncorretti(bool fatNoAsi) {
    QString sql =
        u"SELECT Num,Cog,Mar,[Mod],CogNav,Ann,Omo FROM Equipaggi "
        "WHERE IDMan_FK=? AND (Ann IS NULL OR Ann<1850 OR Ann>?)"_s;
    if (fatNoAsi)
        sql += u" AND "_s + QLatin1String(SqlASI);
    Statement riga(sql + u" ORDER BY Num"_s);
    riga.esegui({IDMan, Orologio::corrente().oggi().year() - 10});
    QString elenco;
    while (riga.prossima()) {
        elenco += riga.testo(0) + u" - "_s + riga.testo(1) + u' ' + riga.testo(4) + u' ' + riga.testo(2) +
                  u' ' + riga.testo(3) + u'\n';
    }
    return elenco;
}

bool controllaAnni() {
    if (!FatAnnManifestazione(IDMan))
        return true;
    const bool fatNoAsi =
        leggiValore(u"SELECT FatNoASI FROM Manifestazioni WHERE IDMan=?"_s, {IDMan})->toBool();
    const QString elenco = AnniIncorretti(fatNoAsi);
    if (elenco.isEmpty())
        return true;
    avverti(u"Impossibile Generare la Classifica"_s,
            u"La Manifestazione Prevede il Calcolo delle\nPenalità con il Coeffciente per Anno, ma gli Anni\n"
            "dei seguenti Equipaggi sono Mancanti o Incorretti\n\n"_s +
                elenco);
    return false;
}

void EscludiSenzaRilevamenti() {
    scriviEsclusioni(senzaRilevamenti(Calcolo({})));
}

std::optional<EsitoClassifica> GeneraClassifica(const RichiestaClassifica& richiesta) {
    if (!controllaManifestazione())
        return std::nullopt;
    if (!richiesta.silenziosa)
        avvisaProveNonSvolte(richiesta.dat);
    if (!richiesta.senzaControlloAnni && !controllaAnni())
        return std::nullopt;

    const Calcolo calcolo(
        {.dat = richiesta.dat, .soloSvolte = richiesta.dat.isEmpty() && richiesta.soloSvolte});
    const QSet<int> incompleti = AutoEscManifestazione(IDMan) ? senzaRilevamenti(calcolo) : QSet<int>();
    EsitoClassifica esito;
    esito.titolo = titolo(richiesta);
    std::vector<Riga> righe = raccogli(richiesta, incompleti, calcolo, esito.esclusi);
    calcola(righe, calcolo);
    ordina(righe);

    {
        // The exclusions and the table are one action: a failure leaves both as they were.
        Transazione transazione;
        if (!incompleti.isEmpty())
            scriviEsclusioni(incompleti);
        scrivi(righe);
        transazione.conferma();
    }
    // With nothing left that holds them.
    ChiudiDataBase();
    ApriDataBase();
    return esito;
}

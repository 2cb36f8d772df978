#include "readings/RicercaTempi.h"

#include "archive/Statement.h"
#include "common/Public.h"
#include "common/Valori.h"
#include "scoring/Calcolo.h"

#include <algorithm>
#include <cmath>
#include <QHash>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr float FattoreMedia = 2.5F;

// Calls on only when the whole percentage changes.
class Percentuale final {
public:
    Percentuale(const AvanzamentoRicerca& avanzamento, FaseRicerca fase, std::size_t totale)
        : m_avanzamento(avanzamento), m_fase(fase), m_totale(totale) {}

    void passo() {
        const int percento = static_cast<int>(++m_fatti * 100 / m_totale);
        if (m_avanzamento && percento != m_ultima)
            m_avanzamento(m_fase, m_ultima = percento);
    }

private:
    const AvanzamentoRicerca& m_avanzamento;
    FaseRicerca m_fase;
    std::size_t m_totale;
    std::size_t m_fatti = 0;
    int m_ultima = -1;
};

enum class Presenza { Null, Bianco, Scritto };

struct TempoLetto {
    Presenza presenza = Presenza::Null;
    int centesimi = 0;
};

struct Lettura {
    int idRil = 0;
    TempoLetto partenza;
    TempoLetto arrivo;

    // One of the two is Null, or one is blank.
    [[nodiscard]] bool manca(Presenza come) const {
        return partenza.presenza == come || arrivo.presenza == come;
    }
};

TempoLetto leggiTempo(const Statement& riga, int colonna) {
    const std::string_view testo = riga.utf8(colonna);
    if (!testo.data())
        return {};
    const bool bianco = testo.find_first_not_of(" \t\r\n") == std::string_view::npos;
    return {bianco ? Presenza::Bianco : Presenza::Scritto, TempoInCentesimi(testo)};
}

std::vector<TempoTrovato> coppia(int idRil, const QString& motivo) {
    return {{idRil, CampoTempo::Partenza, u"Partenza [%1]"_s.arg(motivo)},
            {idRil, CampoTempo::Arrivo, u"Arrivo [%1]"_s.arg(motivo)}};
}

// Beside a Null time a blank one counts as there.
std::vector<TempoTrovato> mancanti(const Lettura& lettura) {
    const Presenza come = lettura.manca(Presenza::Null) ? Presenza::Null : Presenza::Bianco;
    std::vector<TempoTrovato> trovati = coppia(lettura.idRil, u"Mancante"_s);
    if (lettura.partenza.presenza != come) {
        trovati.erase(trovati.begin());
    } else if (lettura.arrivo.presenza != come) {
        trovati.pop_back();
    }
    return trovati;
}

class Ricerca final {
public:
    Ricerca(const AvanzamentoRicerca& avanzamento, std::optional<int> idEqu)
        : m_avanzamento(avanzamento), m_idEqu(idEqu), m_calcolo({.idEqu = idEqu}) {}

    RisultatoRicerca esegui() {
        calcolaMedie();
        leggiNomi();
        scorriLetture();
        return std::move(m_risultato);
    }

private:
    void calcolaMedie() {
        const std::vector<EquipaggioCalcolo>& equipaggi = m_calcolo.equipaggi();
        Percentuale percentuale(m_avanzamento, FaseRicerca::Medie, equipaggi.size());
        for (const EquipaggioCalcolo& equipaggio : equipaggi) {
            if (equipaggio.num < 0 || equipaggio.num > NumeroMassimoRicerca) {
                m_risultato.nonCercati.push_back(equipaggio.num);
            } else {
                m_medie.insert(equipaggio.idEqu, m_calcolo.media(equipaggio));
            }
            percentuale.passo();
        }
    }

    void leggiNomi() {
        Statement riga(u"SELECT IDPro,Nom FROM Prove WHERE IDMan_FK=?"_s);
        riga.esegui({IDMan});
        while (riga.prossima())
            m_nomi.insert(riga.intero(0), riga.testo(1));
    }

    void scorriLetture() {
        Percentuale percentuale(m_avanzamento, FaseRicerca::Tempi, lettureAttese());
        // In the order of the index, which costs no sorting; the few crews found are put in theirs at the
        // end.
        Statement riga(
            u"SELECT IDEqu_FK,IDPro_FK,IDRil,TPar,TArr FROM Rilevamenti WHERE IDEqu_FK IN "
            "(SELECT IDEqu FROM Equipaggi WHERE %1=?) ORDER BY IDEqu_FK,IDPro_FK,IDRil"_s.arg(
                m_idEqu ? u"IDEqu"_s : u"IDMan_FK"_s));
        riga.esegui({m_idEqu.value_or(IDMan)});
        while (riga.prossima()) {
            const std::optional<std::size_t> prova = postoSvolta(riga.intero(1));
            if (!prova)
                continue;
            const auto media = m_medie.constFind(riga.intero(0));
            if (media != m_medie.cend()) {
                esamina(riga.intero(0), *prova, {riga.intero(2), leggiTempo(riga, 3), leggiTempo(riga, 4)},
                        *media);
            }
            percentuale.passo();
        }
        std::ranges::stable_sort(m_risultato.equipaggi, {}, &EquipaggioTrovato::num);
    }

    // Of a test run, among those of the event, which are in the order of their keys.
    [[nodiscard]] std::optional<std::size_t> postoSvolta(int idPro) const {
        const std::vector<ProvaCalcolo>& prove = m_calcolo.prove();
        const auto trovata = std::ranges::lower_bound(prove, idPro, {}, &ProvaCalcolo::idPro);
        if (trovata == prove.end() || trovata->idPro != idPro || !trovata->svolta)
            return std::nullopt;
        return static_cast<std::size_t>(trovata - prove.begin());
    }

    [[nodiscard]] std::size_t lettureAttese() const {
        QVariantList valori{IDMan};
        if (m_idEqu)
            valori << *m_idEqu;
        return static_cast<std::size_t>(
            leggiValore(u"SELECT count(*) FROM Prove INNER JOIN Rilevamenti ON IDPro=IDPro_FK "
                        "WHERE Svo=1 AND IDMan_FK=?%1"_s.arg(m_idEqu ? u" AND IDEqu_FK=?"_s : QString()),
                        valori)
                ->toLongLong());
    }

    void esamina(int idEqu, std::size_t posto, const Lettura& lettura, float media) {
        const int idPro = m_calcolo.prove()[posto].idPro;
        if (lettura.manca(Presenza::Null) || lettura.manca(Presenza::Bianco)) {
            prova(idEqu, idPro, media).tempi = mancanti(lettura);
            return;
        }
        const auto penalita = static_cast<float>(m_calcolo.penalita(*m_calcolo.trova(idEqu), posto));
        const float limite = FattoreMedia * media;
        if (limite > penalita)
            return;
        ProvaTrovata& trovata = prova(idEqu, idPro, media);
        if (lettura.partenza.centesimi >= lettura.arrivo.centesimi) {
            trovata.tempi = coppia(lettura.idRil, u"Arrivo<Partenza"_s);
        } else if (limite < penalita) {
            trovata.tempi = coppia(lettura.idRil, u"Fuori Media"_s);
        }
    }

    // The crew's node is made with its first test.
    ProvaTrovata& prova(int idEqu, int idPro, float media) {
        std::vector<EquipaggioTrovato>& equipaggi = m_risultato.equipaggi;
        if (equipaggi.empty() || equipaggi.back().idEqu != idEqu) {
            const EquipaggioCalcolo& e = *m_calcolo.trova(idEqu);
            const double arrotondata = std::nearbyint(static_cast<double>(media) * 1000) / 1000;
            equipaggi.push_back(
                {idEqu,
                 e.num,
                 u"%1 %2 %3 [%4]"_s.arg(QString::number(e.num), e.cog, e.cogNav, numeroInTesto(arrotondata)),
                 {}});
        }
        std::vector<ProvaTrovata>& prove = equipaggi.back().prove;
        if (prove.empty() || prove.back().idPro != idPro)
            prove.push_back({idPro, m_nomi.value(idPro), {}});
        return prove.back();
    }

    const AvanzamentoRicerca& m_avanzamento;
    std::optional<int> m_idEqu;
    Calcolo m_calcolo;
    QHash<int, float> m_medie;  // by crew
    QHash<int, QString> m_nomi;
    RisultatoRicerca m_risultato;
};

}  // namespace

bool esistonoProveSvolte() {
    return esisteRiga(u"SELECT IDPro FROM Prove WHERE IDMan_FK=? AND Svo=1"_s, {IDMan});
}

RisultatoRicerca cercaTempi(const AvanzamentoRicerca& avanzamento, std::optional<int> idEqu) {
    return Ricerca(avanzamento, idEqu).esegui();
}

QString chiaveEquipaggio(int idEqu) {
    return u"/EQ%1"_s.arg(idEqu);
}

QString chiaveProva(int idEqu, int idPro) {
    return chiaveEquipaggio(idEqu) + u"/PR%1"_s.arg(idPro);
}

QString chiaveTempo(int idEqu, int idPro, const TempoTrovato& tempo) {
    return chiaveProva(idEqu, idPro) +
           (tempo.campo == CampoTempo::Partenza ? u"/PA%1"_s : u"/AR%1"_s).arg(tempo.idRil);
}

std::optional<NodoRicerca> leggiChiave(const QString& chiave) {
    const QStringList parti = chiave.split(u'/');
    if (parti.size() < 2 || parti.size() > 4 || !parti.at(1).startsWith(u"EQ"_s))
        return std::nullopt;
    NodoRicerca nodo{parti.at(1).mid(2).toInt(), std::nullopt, std::nullopt};
    if (parti.size() > 2)
        nodo.idPro = parti.at(2).mid(2).toInt();
    if (parti.size() > 3)
        nodo.campo = parti.at(3).startsWith(u"PA"_s) ? CampoTempo::Partenza : CampoTempo::Arrivo;
    return nodo;
}

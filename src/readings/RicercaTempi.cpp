#include "readings/RicercaTempi.h"

#include "archive/Statement.h"
#include "common/Public.h"
#include "common/Valori.h"
#include "scoring/Calcolo.h"

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

struct LetturaTesto {
    int idRil = 0;
    QVariant tPar;
    QVariant tArr;
};

bool mancante(const QVariant& tempo) {
    return tempo.isNull() || tempo.toString().trimmed().isEmpty();
}

std::vector<TempoTrovato> coppia(int idRil, const QString& motivo) {
    return {{idRil, CampoTempo::Partenza, u"Partenza [%1]"_s.arg(motivo)},
            {idRil, CampoTempo::Arrivo, u"Arrivo [%1]"_s.arg(motivo)}};
}

std::vector<TempoTrovato> mancanti(const LetturaTesto& lettura) {
    std::vector<TempoTrovato> trovati = coppia(lettura.idRil, u"Mancante"_s);
    if (!mancante(lettura.tPar)) {
        trovati.erase(trovati.begin());
    } else if (!mancante(lettura.tArr)) {
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
        for (std::size_t i = 0; i < m_calcolo.prove().size(); ++i)
            m_postoProva.insert(m_calcolo.prove()[i].idPro, i);
        Statement riga(u"SELECT IDPro,Nom FROM Prove WHERE IDMan_FK=?"_s);
        riga.esegui({IDMan});
        while (riga.prossima())
            m_nomi.insert(riga.intero(0), riga.testo(1));
    }

    void scorriLetture() {
        QVariantList valori{IDMan};
        QString filtro;
        if (m_idEqu) {
            filtro = u" AND IDEqu_FK=?"_s;
            valori << *m_idEqu;
        }
        Percentuale percentuale(m_avanzamento, FaseRicerca::Tempi, lettureAttese());
        Statement riga(
            u"SELECT IDEqu,IDPro,IDRil,TPar,TArr FROM Equipaggi INNER JOIN (Prove INNER JOIN Rilevamenti ON "
            "Prove.IDPro=Rilevamenti.IDPro_FK) ON Equipaggi.IDEqu=Rilevamenti.IDEqu_FK "
            "WHERE Prove.Svo=1 AND Prove.IDMan_FK=?%1 ORDER BY Equipaggi.Num,IDEqu,Prove.IDPro,IDRil"_s.arg(
                filtro));
        riga.esegui(valori);
        while (riga.prossima()) {
            const auto media = m_medie.constFind(riga.intero(0));
            if (media != m_medie.cend()) {
                esamina(riga.intero(0), riga.intero(1), {riga.intero(2), riga.valore(3), riga.valore(4)},
                        *media);
            }
            percentuale.passo();
        }
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

    void esamina(int idEqu, int idPro, const LetturaTesto& lettura, float media) {
        if (mancante(lettura.tPar) || mancante(lettura.tArr)) {
            prova(idEqu, idPro, media).tempi = mancanti(lettura);
            return;
        }
        const EquipaggioCalcolo& equipaggio = *m_calcolo.trova(idEqu);
        const auto penalita = static_cast<float>(m_calcolo.penalita(equipaggio, m_postoProva.value(idPro)));
        const float limite = FattoreMedia * media;
        if (limite > penalita)
            return;
        ProvaTrovata& trovata = prova(idEqu, idPro, media);
        if (TempoInCentesimi(lettura.tPar.toString()) >= TempoInCentesimi(lettura.tArr.toString())) {
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
    QHash<int, std::size_t> m_postoProva;
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

#include "scoring/Calcolo.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "common/Funzioni.h"
#include "common/Public.h"
#include "common/Valori.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <numeric>

using namespace Qt::StringLiterals;

LetturaCalcolo componiLettura(const QString& tPar, const QString& tArr, double penAgg) {
    return {true, tPar.isEmpty() || tArr.isEmpty(), TempoInCentesimi(tPar), TempoInCentesimi(tArr), penAgg};
}

int nettoProva(const LetturaCalcolo& lettura) {
    return DifferenzaTempi(lettura.arrivo, lettura.partenza);
}

int scartoProva(const ProvaCalcolo& prova, const LetturaCalcolo& lettura) {
    return prova.imposto - nettoProva(lettura);
}

namespace {

constexpr int MassimoAnno = std::numeric_limits<std::int16_t>::max();

std::optional<double> penalitaScarto(int scarto, const Taratura& taratura) {
    const int unita = taratura.penalitaUnita;
    switch (taratura.precisione) {
        case Precisione::Centesimo: {
            // The one product in whole numbers: it fails past 32 bits, before the cap is looked at.
            const std::int64_t prodotto = std::int64_t{scarto} * unita;
            if (prodotto > std::numeric_limits<std::int32_t>::max() ||
                prodotto < std::numeric_limits<std::int32_t>::min())
                return std::nullopt;
            return static_cast<double>(prodotto);
        }
        case Precisione::Decimo:
            return (scarto / 10.0) * unita;
        case Precisione::Secondo:
            return (scarto / 100.0) * unita;
        case Precisione::Minuto:
            return (scarto / 6000.0) * unita;
        case Precisione::Nessuna:
            break;
    }
    return 0.0;
}

QString filtroEquipaggi(const SelezioneCalcolo& selezione, QVariantList& valori) {
    QString filtro = u" WHERE IDMan_FK=?"_s;
    valori << IDMan;
    if (selezione.num) {
        filtro += u" AND Num=?"_s;
        valori << *selezione.num;
    }
    if (selezione.idEqu) {
        filtro += u" AND IDEqu=?"_s;
        valori << *selezione.idEqu;
    }
    return filtro;
}

}  // namespace

std::optional<double> penalitaProva(const Impostazione& impostazione, bool asi, const ProvaCalcolo& prova,
                                    const LetturaCalcolo& lettura) {
    if (impostazione.fissaSeManca && lettura.manca)
        return impostazione.penalitaFissa;
    const std::optional<double> penalita =
        penalitaScarto(std::abs(scartoProva(prova, lettura)), impostazione.taratura(asi, prova.tipo));
    if (!penalita || !impostazione.massimoAttivo)
        return penalita;
    return std::min<double>(*penalita, impostazione.classe(asi).penalitaMassima);
}

float mediaTagliata(std::span<const float> penalita) {
    if (penalita.empty())
        return 0;
    const float somma = std::accumulate(penalita.begin(), penalita.end(), 0.0F);
    const auto quante = static_cast<float>(penalita.size());
    if (penalita.size() <= 2)
        return somma / quante;
    const auto [minima, massima] = std::ranges::minmax(penalita);
    return (somma - minima - massima) / (quante - 2);
}

Calcolo::Calcolo(const SelezioneCalcolo& selezione) : m_impostazione(leggiImpostazione(IDMan)) {
    leggiProve(selezione);
    leggiEquipaggi(selezione);
    leggiRilevamenti(selezione);
}

void Calcolo::leggiProve(const SelezioneCalcolo& selezione) {
    QString giorno;
    if (!selezione.dat.isEmpty()) {
        giorno = scriviData(leggiData(selezione.dat).value_or(QDate()));
        if (giorno.isEmpty())
            throw Errore(u"La data \"%1\" non è valida."_s.arg(selezione.dat));
    }
    Statement riga(u"SELECT IDPro,Tip,Tem,Svo,Dat FROM Prove WHERE %1=? ORDER BY IDPro"_s.arg(
        selezione.idPro ? u"IDPro"_s : u"IDMan_FK"_s));
    riga.esegui({selezione.idPro.value_or(IDMan)});
    while (riga.prossima()) {
        const bool conta =
            (giorno.isEmpty() || riga.testo(4) == giorno) && (riga.vero(3) || !selezione.soloSvolte);
        m_prove.push_back({riga.intero(0), leggiTipoProva(riga.testo(1)),
                           TempoInCentesimi(riga.testo(2) + u":00"_s), riga.vero(3), conta});
    }
}

void Calcolo::leggiEquipaggi(const SelezioneCalcolo& selezione) {
    QVariantList valori;
    const QString filtro = filtroEquipaggi(selezione, valori);
    Statement riga(u"SELECT IDEqu,Num,Ann,IDGru_FK,Omo,Cog,CogNav FROM Equipaggi"_s + filtro +
                   u" ORDER BY IDEqu"_s);
    riga.esegui(valori);
    while (riga.prossima()) {
        m_postoEquipaggio.insert(riga.intero(0), m_equipaggi.size());
        m_equipaggi.push_back({riga.intero(0), riga.intero(1), riga.intero(2), riga.intero(3),
                               equipaggioASI(riga.testo(4)), riga.testo(5), riga.testo(6)});
    }
    Statement gruppo(
        u"SELECT IDGru,Fat FROM Raggruppamenti WHERE IDGru IN (SELECT IDGru_FK FROM Equipaggi"_s + filtro +
        u')');
    gruppo.esegui(valori);
    while (gruppo.prossima())
        m_fattori.insert(gruppo.intero(0), gruppo.nullo(1) ? std::nullopt : std::optional(gruppo.reale(1)));
}

void Calcolo::leggiRilevamenti(const SelezioneCalcolo& selezione) {
    m_letture.resize(m_equipaggi.size() * m_prove.size());
    QVariantList valori;
    QString filtro = filtroEquipaggi(selezione, valori);
    filtro = u" WHERE IDEqu_FK IN (SELECT IDEqu FROM Equipaggi"_s + filtro + u')';
    if (selezione.idPro) {
        filtro += u" AND IDPro_FK=?"_s;
        valori << *selezione.idPro;
    }
    Statement riga(u"SELECT IDEqu_FK,IDPro_FK,TPar,TArr,PenAgg FROM Rilevamenti"_s + filtro +
                   u" ORDER BY IDEqu_FK,IDPro_FK,IDRil"_s);
    riga.esegui(valori);
    // The rows come in the order of both lists, each crew's anew from the first test.
    std::size_t equipaggio = 0;
    std::size_t prova = 0;
    while (riga.prossima()) {
        const int idEqu = riga.intero(0);
        const int idPro = riga.intero(1);
        while (equipaggio < m_equipaggi.size() && m_equipaggi[equipaggio].idEqu < idEqu) {
            ++equipaggio;
            prova = 0;
        }
        while (prova < m_prove.size() && m_prove[prova].idPro < idPro)
            ++prova;
        if (equipaggio == m_equipaggi.size() || m_equipaggi[equipaggio].idEqu != idEqu ||
            prova == m_prove.size() || m_prove[prova].idPro != idPro)
            continue;
        LetturaCalcolo& lettura = m_letture[equipaggio * m_prove.size() + prova];
        if (lettura.esiste)  // of rows written twice the first counts
            continue;
        const std::string_view tPar = riga.utf8(2);
        const std::string_view tArr = riga.utf8(3);
        lettura = {true, tPar.empty() || tArr.empty(), TempoInCentesimi(tPar), TempoInCentesimi(tArr),
                   riga.reale(4)};
    }
}

std::span<const LetturaCalcolo> Calcolo::letture(const EquipaggioCalcolo& equipaggio) const {
    return std::span(m_letture).subspan(m_postoEquipaggio.value(equipaggio.idEqu) * m_prove.size(),
                                        m_prove.size());
}

const EquipaggioCalcolo* Calcolo::trova(int idEqu) const {
    const auto trovato = m_postoEquipaggio.constFind(idEqu);
    return trovato == m_postoEquipaggio.cend() ? nullptr : &m_equipaggi[*trovato];
}

const LetturaCalcolo& Calcolo::lettura(std::size_t equipaggio, std::size_t prova) const {
    return m_letture[equipaggio * m_prove.size() + prova];
}

double Calcolo::sommaTempi(const EquipaggioCalcolo& equipaggio, bool& errore) const {
    const std::span<const LetturaCalcolo> lette = letture(equipaggio);
    double somma = 0;
    for (std::size_t i = 0; i < m_prove.size(); ++i) {
        if (!m_prove[i].conta)
            continue;
        const std::optional<double> penalita =
            penalitaProva(m_impostazione, equipaggio.asi, m_prove[i], lette[i]);
        if (!penalita) {
            errore = true;
            break;
        }
        somma += *penalita;
    }
    return somma;
}

double Calcolo::sommaAggiunte(const EquipaggioCalcolo& equipaggio, bool& errore) const {
    const std::span<const LetturaCalcolo> lette = letture(equipaggio);
    double somma = 0;
    for (std::size_t i = 0; i < m_prove.size(); ++i) {
        if (!m_prove[i].conta)
            continue;
        const LetturaCalcolo& letta = lette[i];
        if (!letta.esiste) {
            errore = true;
            break;
        }
        somma += letta.penAgg;
    }
    return somma;
}

double Calcolo::coefficiente(const EquipaggioCalcolo& equipaggio, bool& errore) const {
    // The year is kept in 16 bits.
    if (equipaggio.anno > MassimoAnno || equipaggio.anno - 1900 < -MassimoAnno) {
        errore = true;
        return 0;
    }
    double termine = 1.0;
    if (m_impostazione.fattoreNonASI && !equipaggio.asi) {
        termine = m_impostazione.coefficienteNonASI;
    } else if (m_impostazione.fattoreAnno) {
        termine = (equipaggio.anno - 1900) / 100.0 + 1.0;
    }
    if (equipaggio.idGru == 0)
        return termine;
    const std::optional<double> fattore = m_fattori.value(equipaggio.idGru);
    if (!fattore) {
        errore = true;
        return termine;
    }
    return termine * (*fattore == 0 ? 1.0 : *fattore);
}

double Calcolo::penalita(const EquipaggioCalcolo& equipaggio, std::size_t prova) const {
    const std::optional<double> valore =
        penalitaProva(m_impostazione, equipaggio.asi, m_prove[prova], letture(equipaggio)[prova]);
    if (!valore) {
        throw Errore(
            u"La penalità dell'equipaggio n. %1 è troppo grande: controllare i tempi e la penalità per unità."_s
                .arg(equipaggio.num));
    }
    return *valore;
}

float Calcolo::media(const EquipaggioCalcolo& equipaggio) const {
    const std::span<const LetturaCalcolo> lette = letture(equipaggio);
    std::vector<float> svolte;
    for (std::size_t i = 0; i < m_prove.size(); ++i) {
        if (m_prove[i].svolta && lette[i].esiste)
            svolte.push_back(static_cast<float>(penalita(equipaggio, i)));
    }
    return mediaTagliata(svolte);
}

bool Calcolo::tempiCompleti(const EquipaggioCalcolo& equipaggio) const {
    const std::span<const LetturaCalcolo> lette = letture(equipaggio);
    for (std::size_t i = 0; i < m_prove.size(); ++i) {
        if (!m_prove[i].svolta)
            continue;
        const LetturaCalcolo& letta = lette[i];
        if (!letta.esiste) {
            throw Errore(
                u"All'equipaggio n. %1 manca la riga dei rilevamenti di una prova."_s.arg(equipaggio.num));
        }
        if (letta.manca)
            return false;
    }
    return true;
}

PenalitaEquipaggio Calcolo::calcola(const EquipaggioCalcolo& equipaggio) const {
    PenalitaEquipaggio penalita;
    penalita.coefficiente = coefficiente(equipaggio, penalita.errore);
    penalita.aggiunte = sommaAggiunte(equipaggio, penalita.errore);
    penalita.tempi = sommaTempi(equipaggio, penalita.errore);
    return penalita;
}

#include "scoring/ClassificaTempoReale.h"

#include "archive/Statement.h"
#include "common/Public.h"
#include "scoring/Calcolo.h"
#include "scoring/Penalita.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

double penalitaCatena(const Calcolo& calcolo, const EquipaggioCalcolo& equipaggio,
                      std::span<const int> prove) {
    const auto postoEquipaggio = static_cast<std::size_t>(&equipaggio - calcolo.equipaggi().data());
    double somma = 0;
    for (std::size_t p = 0; p < calcolo.prove().size(); ++p) {
        const ProvaCalcolo& prova = calcolo.prove()[p];
        if (std::ranges::find(prove, prova.idPro) == prove.end())
            continue;
        const LetturaCalcolo& lettura = calcolo.lettura(postoEquipaggio, p);
        const std::optional<double> penalita =
            penalitaProva(calcolo.impostazione(), equipaggio.asi, prova, lettura);
        if (!penalita) {
            avvisaErrorePenalita(equipaggio.num, equipaggio.cog, equipaggio.cogNav);
            break;
        }
        somma += *penalita + lettura.penAgg;
    }
    return somma;
}

struct Partito {
    int idEqu = 0;
    RigaTempoReale riga;
};

std::vector<Partito> leggiPartiti(int idPro) {
    std::vector<Partito> partiti;
    Statement query(
        u"SELECT IDEqu,Num,coalesce(Cog,'')||' '||coalesce(CogNav,''),coalesce(Mar,'')||' "
        u"'||coalesce([Mod],'') "
        "FROM Equipaggi INNER JOIN Rilevamenti ON Equipaggi.IDEqu=Rilevamenti.IDEqu_FK "
        "WHERE IDMan_FK=? AND IDPro_FK=? AND TPar<>'' GROUP BY IDEqu ORDER BY Num,IDEqu"_s);
    query.esegui({IDMan, idPro});
    while (query.prossima())
        partiti.push_back({query.intero(0), {query.intero(1), query.testo(2), query.testo(3)}});
    return partiti;
}

}  // namespace

std::vector<RigaTempoReale> classificaTempoReale(std::span<const int> prove) {
    std::vector<RigaTempoReale> righe;
    if (prove.empty())
        return righe;
    const Calcolo calcolo{SelezioneCalcolo{}};
    for (Partito& partito : leggiPartiti(prove.front())) {
        const EquipaggioCalcolo* equipaggio = calcolo.trova(partito.idEqu);
        if (!equipaggio)
            continue;
        partito.riga.penalita = penalitaCatena(calcolo, *equipaggio, prove);
        // Rounded to three decimals, and that to a whole number, as the column is formatted.
        partito.riga.ordine = std::llround(std::round(partito.riga.penalita * 1000) / 1000);
        righe.push_back(std::move(partito.riga));
    }
    std::ranges::stable_sort(righe, {}, &RigaTempoReale::ordine);
    return righe;
}

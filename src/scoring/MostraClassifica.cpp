#include "scoring/MostraClassifica.h"

#include "output/ApriReport.h"

using namespace Qt::StringLiterals;

void MostraClassifica(const RichiestaClassifica& richiesta) {
    const std::optional<EsitoClassifica> esito = GeneraClassifica(richiesta);
    if (esito && !richiesta.silenziosa && !esito->titolo.isEmpty())
        ApriReport(u"Classifica"_s, {}, esito->titolo, esito->esclusi, {});
}

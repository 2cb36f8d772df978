#include "output/ApriReport.h"

#include "archive/DataBase.h"
#include "common/Dialoghi.h"
#include "common/Funzioni.h"
#include "common/Public.h"
#include "common/Subroutine.h"
#include "output/Anteprima.h"
#include "output/RapportiDefiniti.h"

using namespace Qt::StringLiterals;

void ApriReport(const QString& tipo, const QString& filtro, const QString& titolo, const QString& esclusi,
                const QList<int>& prove) {
    ChiudiDataBase();
    ApriDataBase();
    NomeManifestazione(IDMan);  // clears an active event whose row is gone
    if (IDMan == 0) {
        avverti(u"Impossibile Generare la Classsifica"_s, u"Nessuna Manifestazione Attiva"_s);
        return;
    }
    const Rapporto rapporto = componiRapporto(tipo, filtro, titolo, esclusi, prove);
    const CursoreNormale cursore;
    Anteprima::corrente().mostra(rapporto);
}

#include "shell/DataGiornaliera.h"

#include "archive/Statement.h"
#include "common/Dialoghi.h"
#include "common/Public.h"
#include "common/Valori.h"
#include "shell/Controlli.h"

using namespace Qt::StringLiterals;

std::optional<QString> chiediGiorno(const QString& titolo) {
    if (!controlla(Controllo::Classifica))
        return std::nullopt;
    const QString primoGiorno =
        leggiValore(u"SELECT DaDat FROM Manifestazioni WHERE IDMan=?"_s, {IDMan})->toString();
    for (;;) {
        std::optional<QString> risposta =
            Dialoghi::corrente().chiedi(titolo, u"Inserire la Data nel Formato gg/mm/aaaa"_s, primoGiorno);
        if (!risposta || risposta->isEmpty())
            return std::nullopt;
        if (leggiData(*risposta))
            return risposta;
        avverti(u"Attenzione"_s, u"Data NON Valida"_s);
    }
}

#include "starts/OrariDiPartenza.h"

#include "archive/Statement.h"
#include "common/Public.h"
#include "common/Valori.h"

#include <limits>
#include <QTime>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 SecondiAlGiorno = qint64{24} * 60 * 60;

}  // namespace

std::vector<ControlloOrario> leggiControlliOrari() {
    std::vector<ControlloOrario> controlli;
    Statement riga(u"SELECT IDPro,Nom,Tem FROM Prove WHERE Tip='CO' AND IDMan_FK=? ORDER BY IDPro"_s);
    riga.esegui({IDMan});
    while (riga.prossima())
        controlli.push_back({riga.intero(0), riga.testo(1), riga.testo(2)});
    return controlli;
}

std::optional<int> leggiIntervallo(const QString& testo) {
    const std::optional<double> numero = leggiNumero(testo);
    if (!numero || *numero < 0 || *numero > std::numeric_limits<int>::max())
        return std::nullopt;
    const int secondi = static_cast<int>(*numero);
    return secondi == *numero ? std::optional(secondi) : std::nullopt;
}

std::optional<std::vector<OrarioPartenza>> generaOrari(int primoOrario, int intervallo,
                                                       const QString& primoNumero) {
    const QString numero = primoNumero.trimmed();
    bool intero = false;
    const qint64 primo = numero.toLongLong(&intero);
    bool raggiunto = numero.isEmpty();
    std::vector<OrarioPartenza> orari;
    Statement riga(u"SELECT IDEqu,Num FROM Equipaggi WHERE IDMan_FK=? ORDER BY Num,IDEqu"_s);
    riga.esegui({IDMan});
    qint64 secondi = primoOrario;
    while (riga.prossima()) {
        raggiunto = raggiunto || (intero && riga.intero(1) == primo);
        if (!raggiunto)
            continue;
        const QTime ora = QTime(0, 0).addSecs(static_cast<int>(secondi % SecondiAlGiorno));
        orari.push_back({riga.intero(1), ora.toString(u"HH:mm:ss"_s) + u".00"_s, riga.intero(0)});
        secondi += intervallo;
    }
    return raggiunto ? std::optional(std::move(orari)) : std::nullopt;
}

void salvaOrari(std::span<const OrarioPartenza> orari, std::optional<int> daIDPro) {
    Transazione transazione;
    Statement scrittura(
        u"UPDATE Rilevamenti SET TPar=? WHERE IDEqu_FK=? AND IDPro_FK IN "
        "(SELECT IDPro FROM Prove WHERE IDMan_FK=? AND Tip='CO' AND coalesce(ConA,0)=0 AND IDPro>=?)"_s);
    for (const OrarioPartenza& orario : orari) {
        QString tempo = orario.ora;
        scrittura.esegui({tempo.replace(u'.', u':'), orario.idEqu, IDMan, daIDPro.value_or(0)});
    }
    transazione.conferma();
}

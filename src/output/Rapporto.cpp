#include "output/Rapporto.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString Rapporto::etichetta(const QString& nome) const {
    const auto trovata = std::ranges::find(etichette, nome, &Etichetta::nome);
    return trovata == etichette.cend() ? QString() : trovata->testo;
}

QList<QStringList> Rapporto::righe() const {
    QList<QStringList> tutte;
    for (const GruppoRapporto& gruppo : gruppi)
        tutte += gruppo.righe;
    return tutte;
}

QStringList Rapporto::celle(const QString& campo) const {
    const auto colonna = std::ranges::find(colonne, campo, &ColonnaRapporto::campo);
    if (colonna == colonne.cend())
        return {};
    QStringList risultato;
    for (const GruppoRapporto& gruppo : gruppi) {
        for (const QStringList& riga : gruppo.righe)
            risultato << riga.at(colonna - colonne.cbegin());
    }
    return risultato;
}

QString numeroDiPagina(int pagina, int pagine) {
    return u"Pagina %1 di %2"_s.arg(pagina).arg(pagine);
}

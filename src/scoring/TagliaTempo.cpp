#include "scoring/TagliaTempo.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "common/Public.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString TagliaTempo(const QString& tempo, bool asi, const QString& tipo) {
    return tagliaTempo(leggiImpostazione(IDMan), tempo, asi, leggiTipoProva(tipo));
}

QString tagliaTempo(const Impostazione& impostazione, const QString& tempo, bool asi, TipoProva tipo) {
    if (tempo.trimmed().isEmpty())
        return {};
    switch (impostazione.taratura(asi, tipo).precisione) {
        case Precisione::Minuto:
            return tempo.left(6) + u"00:00"_s;
        case Precisione::Secondo:
            return tempo.left(9) + u"00"_s;
        case Precisione::Decimo:
            return tempo.left(10) + u'0';
        case Precisione::Centesimo:
            return tempo;
        case Precisione::Nessuna:
            break;
    }
    return {};
}

bool PrecisioneASINonInferiore(const QString& tipo) {
    if (leggiTipoProva(tipo) == TipoProva::Altro)
        throw Errore(u"Il tipo di prova \"%1\" non è previsto."_s.arg(tipo));
    Statement riga(u"SELECT [Pre%1],[Pre%1NoASI] FROM Manifestazioni WHERE IDMan=?"_s.arg(tipo));
    if (!riga.esegui({IDMan}).prossima())
        throw Errore(u"La manifestazione attiva non è più nell'archivio."_s);
    const auto finezza = [&](int colonna) {
        return std::max(leggiPrecisione(riga.testo(colonna)), Precisione::Minuto);
    };
    return finezza(0) >= finezza(1);
}

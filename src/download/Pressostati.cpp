#include "download/Pressostati.h"

#include "archive/Statement.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Bersaglio bersaglio(Ruolo ruolo, const ProvaCronometrata& prova) {
    const QString prefisso = ruolo == Ruolo::Start ? u"START  -> "_s : u"ARRIVO -> "_s;
    return {prova.idPro, prefisso + prova.tip + u" - "_s + prova.nom + u" - "_s + prova.tem};
}

bool controllo(const ProvaCronometrata& prova) {
    return prova.tip == "CO"_L1;
}

// The arrival of a test, and the starts that the same switch gives.
Pressostato arrivo(const QList<ProvaCronometrata>& prove, qsizetype indice) {
    Pressostato pressostato{bersaglio(Ruolo::Arrivo, prove[indice])};
    const qsizetype prossima = indice + 1;
    if (prossima == prove.size())
        return pressostato;
    const bool dopoControllo = controllo(prove[indice]);
    if (prove[prossima].conA != 0 && (dopoControllo || !controllo(prove[prossima])))
        pressostato << bersaglio(Ruolo::Start, prove[prossima]);
    if (dopoControllo && controllo(prove[prossima])) {
        const auto altra = std::find_if_not(prove.begin() + prossima, prove.end(), controllo);
        if (altra != prove.end() && altra->conA != 0)
            pressostato << bersaglio(Ruolo::Start, *altra);
    }
    return pressostato;
}

}  // namespace

Ruolo Bersaglio::ruolo() const {
    return testo.toUpper().contains("START"_L1) ? Ruolo::Start : Ruolo::Arrivo;
}

QString Bersaglio::tipo() const {
    constexpr qsizetype LunghezzaPrefisso = 10;
    return testo.mid(LunghezzaPrefisso, 2);
}

QList<ProvaCronometrata> leggiProveCronometrate(int idMan) {
    Statement query(u"SELECT IDPro,Tip,Nom,Tem,ConA FROM Prove WHERE IDMan_FK=? ORDER BY IDPro"_s);
    query.esegui({idMan});
    QList<ProvaCronometrata> prove;
    while (query.prossima()) {
        prove << ProvaCronometrata{query.intero(0), query.testo(1), query.testo(2), query.testo(3),
                                   query.intero(4)};
    }
    return prove;
}

QList<Pressostato> elencaPressostati(const QList<ProvaCronometrata>& prove) {
    QList<Pressostato> pressostati;
    for (qsizetype i = 0; i < prove.size(); ++i) {
        if (prove[i].conA == 0 && !controllo(prove[i]))
            pressostati << Pressostato{bersaglio(Ruolo::Start, prove[i])};
        pressostati << arrivo(prove, i);
    }
    return pressostati;
}

QList<QList<Destinazione>> leggiDestinazioni(const QList<Pressostato>& pressostati) {
    QList<QList<Destinazione>> tutte;
    for (const Pressostato& pressostato : pressostati) {
        QList<Destinazione> destinazioni;
        for (const Bersaglio& bersaglio : pressostato)
            destinazioni << Destinazione{bersaglio.idPro, bersaglio.ruolo(), bersaglio.tipo()};
        tutte << destinazioni;
    }
    return tutte;
}

QString difettoScelta(const QList<int>& righe) {
    if (righe.isEmpty())
        return u"Selezionare Almeno un Pressostato"_s;
    for (qsizetype n = 1; n < righe.size(); ++n) {
        if (righe[n] != righe.first() + n)
            return u"I Pressostati Selezionati Devono Essere\nAppartenenti a Prove Consecutive"_s;
    }
    return {};
}

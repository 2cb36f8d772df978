#include "download/RicercaErrori.h"

#include "archive/Statement.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Conteggio {
    const EquipaggioCronometrato* equipaggio = nullptr;  // nullptr: not entered
    qsizetype tempi = 0;
    qsizetype errore = -1;  // its row among the errors
};

// The crews as they are counted, in the order in which they came up.
class Conteggi final {
public:
    explicit Conteggi(const QList<EquipaggioCronometrato>& equipaggi) {
        for (const EquipaggioCronometrato& equipaggio : equipaggi) {
            if (const auto doppio = m_indice.find(equipaggio.num); doppio != m_indice.end()) {
                m_righe[*doppio].equipaggio = nullptr;  // a number of two crews is nobody's
            } else {
                aggiungi(equipaggio.num, &equipaggio);
            }
        }
    }
    Conteggio& di(int num) {
        const auto trovato = m_indice.constFind(num);
        return m_righe[trovato == m_indice.cend() ? aggiungi(num, nullptr) : *trovato];
    }
    [[nodiscard]] bool iscritto(int num) const {
        const auto trovato = m_indice.constFind(num);
        return trovato != m_indice.cend() && m_righe[*trovato].equipaggio;
    }
    [[nodiscard]] const QList<int>& numeri() const { return m_numeri; }

private:
    qsizetype aggiungi(int num, const EquipaggioCronometrato* equipaggio) {
        m_indice.insert(num, m_righe.size());
        m_numeri << num;
        m_righe << Conteggio{equipaggio};
        return m_righe.size() - 1;
    }

    QHash<int, qsizetype> m_indice;
    QList<int> m_numeri;
    QList<Conteggio> m_righe;
};

ErroreScarico& rigaErrore(QList<ErroreScarico>& errori, Conteggio& conteggio, int num) {
    if (conteggio.errore < 0) {
        ErroreScarico riga;
        riga.num = num;
        if (conteggio.equipaggio) {
            riga.idEqu = conteggio.equipaggio->idEqu;
            riga.equipaggio = conteggio.equipaggio->nomi;
            riga.veicolo = conteggio.equipaggio->veicolo;
        }
        conteggio.errore = errori.size();
        errori << riga;
    }
    return errori[conteggio.errore];
}

QVariant oNullo(int numero) {
    return numero == 0 ? QVariant() : QVariant(numero);
}

QVariant oNullo(const QString& testo) {
    return testo.isEmpty() ? QVariant() : QVariant(testo);
}

}  // namespace

QString ErroreScarico::testo() const {
    QStringList parole;
    if (nonIscritto)
        parole << u"Equipaggio NON Iscritto"_s;
    if (troppiTempi)
        parole << u"Troppi Tempi"_s;
    if (pochiTempi)
        parole << u"Pochi Tempi"_s;
    return parole.join(u", "_s);
}

EsitoRicerca ricercaErrori(const QList<RecordScarico>& record, const QList<EquipaggioCronometrato>& equipaggi,
                           const QList<Pressostato>& scelti, bool soloPrimoPressostato, const Taglio& taglia,
                           const ClasseNonIscritto& classe) {
    Conteggi conteggi(equipaggi);
    const QList<QList<Destinazione>> destinazioni = leggiDestinazioni(scelti);
    NumeroCorrente numero(soloPrimoPressostato);
    EsitoRicerca esito;
    for (RecordScarico r : record) {
        r.numero = numero.prossimo(r);
        if (r.numero == 0 && !conteggi.iscritto(0)) {
            esito.scartati << TempoScartato{0, r.tempo};
            continue;
        }
        Conteggio& conteggio = conteggi.di(r.numero);
        const EquipaggioCronometrato* equipaggio = conteggio.equipaggio;
        if (!equipaggio)
            rigaErrore(esito.errori, conteggio, r.numero).nonIscritto = true;
        const qsizetype k = conteggio.tempi++;
        if (k >= scelti.size()) {
            rigaErrore(esito.errori, conteggio, r.numero).troppiTempi = true;
            esito.scartati << TempoScartato{r.numero, r.tempo};
            continue;
        }
        aggiungiTempi(esito.tempi, destinazioni[k], r, equipaggio ? equipaggio->idEqu : 0, taglia,
                      [&](const QString& tipo) { return equipaggio ? equipaggio->asi : classe(tipo); });
        ++esito.validi;
    }
    for (const int num : conteggi.numeri()) {
        Conteggio& conteggio = conteggi.di(num);
        if (conteggio.tempi < scelti.size())
            rigaErrore(esito.errori, conteggio, num).pochiTempi = true;
    }
    return esito;
}

void scriviRicerca(const EsitoRicerca& esito) {
    Transazione transazione;
    esegui(u"DELETE FROM TempRil"_s);
    inserisciTempRil(esito.tempi);
    esegui(u"DELETE FROM ErroriSca"_s);
    Statement errore(
        u"INSERT INTO ErroriSca (IDEqu_FK,Num,Equ,Vei,ErrTroTem,ErrPocTem,ErrIsc) VALUES (?,?,?,?,?,?,?)"_s);
    for (const ErroreScarico& e : esito.errori) {
        errore.esegui({oNullo(e.idEqu), e.num, oNullo(e.equipaggio), oNullo(e.veicolo),
                       static_cast<int>(e.troppiTempi), static_cast<int>(e.pochiTempi),
                       static_cast<int>(e.nonIscritto)});
    }
    esegui(u"DELETE FROM TempScar"_s);
    Statement scartato(u"INSERT INTO TempScar (Num,Tem) VALUES (?,?)"_s);
    for (const TempoScartato& t : esito.scartati)
        scartato.esegui({oNullo(t.num), t.tempo});
    transazione.conferma();
}

QList<ErroreScarico> leggiErrori() {
    Statement query(
        u"SELECT IDEqu_FK,Num,Equ,Vei,ErrIsc,ErrTroTem,ErrPocTem FROM ErroriSca ORDER BY rowid"_s);
    query.esegui();
    QList<ErroreScarico> errori;
    while (query.prossima()) {
        errori << ErroreScarico{query.intero(0), query.intero(1), query.testo(2), query.testo(3),
                                query.vero(4),   query.vero(5),   query.vero(6)};
    }
    return errori;
}

QList<TempoScartato> leggiTempiScartati() {
    Statement query(u"SELECT Num,Tem FROM TempScar ORDER BY rowid"_s);
    query.esegui();
    QList<TempoScartato> scartati;
    while (query.prossima())
        scartati << TempoScartato{query.intero(0), query.testo(1)};
    return scartati;
}

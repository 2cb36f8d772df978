#include "download/Assegnazione.h"

#include "archive/Statement.h"
#include "common/Funzioni.h"

#include <algorithm>
#include <QSet>
#include <span>

using namespace Qt::StringLiterals;

namespace {

// The first crew of each number.
QHash<int, const EquipaggioCronometrato*> perNumero(const QList<EquipaggioCronometrato>& equipaggi) {
    QHash<int, const EquipaggioCronometrato*> indice;
    indice.reserve(equipaggi.size());
    for (const EquipaggioCronometrato& equipaggio : equipaggi) {
        if (!indice.contains(equipaggio.num))
            indice.insert(equipaggio.num, &equipaggio);
    }
    return indice;
}

QVariantList valoriTempRil(std::span<const TempoRicevuto> tempi) {
    QVariantList valori;
    valori.reserve(static_cast<qsizetype>(tempi.size()) * 5);
    for (const TempoRicevuto& t : tempi) {
        const bool start = t.ruolo == Ruolo::Start;
        valori << t.idPro << (t.idEqu == 0 ? QVariant() : QVariant(t.idEqu))
               << (start ? QVariant(t.tempo) : QVariant()) << (start ? QVariant() : QVariant(t.tempo))
               << t.num;
    }
    return valori;
}

// Writes one column of the readings from TempRil; the last time received counts.
void riversa(const QString& colonna) {
    esegui(
        u"UPDATE Rilevamenti SET %1=t.%1 FROM (SELECT IDPro_FK,IDEqu_FK,%1,max(rowid) FROM TempRil "
        "WHERE %1<>'' GROUP BY IDPro_FK,IDEqu_FK) t "
        "WHERE Rilevamenti.IDPro_FK=t.IDPro_FK AND Rilevamenti.IDEqu_FK=t.IDEqu_FK"_s.arg(colonna));
}

}  // namespace

QString RecordScartato::testo() const {
    if (motivo == Motivo::TroppiTempi)
        return u"Troppi Tempi"_s;
    return record.numero == 0 ? u"Senza Numero"_s : u"Equipaggio NON Iscritto"_s;
}

QList<EquipaggioCronometrato> leggiEquipaggi(int idMan) {
    Statement query(
        u"SELECT IDEqu,Num,coalesce(Cog,'')||' '||coalesce(CogNav,''),coalesce(Mar,'')||' '||"
        "coalesce([Mod],''),Omo FROM Equipaggi WHERE IDMan_FK=? ORDER BY Num"_s);
    query.esegui({idMan});
    QList<EquipaggioCronometrato> equipaggi;
    while (query.prossima()) {
        equipaggi << EquipaggioCronometrato{query.intero(0), query.intero(1), query.testo(2), query.testo(3),
                                            equipaggioASI(query.testo(4))};
    }
    return equipaggi;
}

void aggiungiTempi(QList<TempoRicevuto>& tempi, const QList<Destinazione>& destinazioni,
                   const RecordScarico& record, int idEqu, const Taglio& taglia,
                   const std::function<bool(const QString& tipo)>& asi) {
    for (const Destinazione& d : destinazioni) {
        tempi << TempoRicevuto{d.idPro, idEqu, record.numero, d.ruolo,
                               taglia(record.tempo, asi(d.tipo), d.tipo)};
    }
}

EsitoAssegnazione assegnaTempi(const QList<RecordScarico>& record,
                               const QList<EquipaggioCronometrato>& equipaggi,
                               const QList<Pressostato>& scelti, bool soloPrimoPressostato,
                               const Taglio& taglia,
                               const std::function<void(const RecordScarico&)>& valido) {
    const QHash<int, const EquipaggioCronometrato*> iscritti = perNumero(equipaggi);
    const QList<QList<Destinazione>> destinazioni = leggiDestinazioni(scelti);
    QHash<int, qsizetype> ricevuti;
    NumeroCorrente numero(soloPrimoPressostato);
    EsitoAssegnazione esito;
    esito.previsti = static_cast<int>(equipaggi.size() * scelti.size());
    for (RecordScarico r : record) {
        r.numero = numero.prossimo(r);
        const EquipaggioCronometrato* equipaggio = iscritti.value(r.numero);
        if (!equipaggio) {
            esito.scartati << RecordScartato{r, RecordScartato::Motivo::SenzaEquipaggio};
            continue;
        }
        const qsizetype k = ricevuti[r.numero]++;
        if (k >= scelti.size()) {
            esito.scartati << RecordScartato{r, RecordScartato::Motivo::TroppiTempi};
            continue;
        }
        aggiungiTempi(esito.tempi, destinazioni[k], r, equipaggio->idEqu, taglia,
                      [equipaggio](const QString&) { return equipaggio->asi; });
        ++esito.validi;
        if (valido)
            valido(r);
    }
    return esito;
}

QList<TempoInLista> assegnaALista(const QList<RecordScarico>& record,
                                  const QList<EquipaggioCronometrato>& equipaggi, const Taglio& taglia) {
    const QHash<int, const EquipaggioCronometrato*> iscritti = perNumero(equipaggi);
    QList<TempoInLista> lista;
    for (const RecordScarico& r : record) {
        if (const EquipaggioCronometrato* equipaggio = iscritti.value(r.numero)) {
            lista << TempoInLista{equipaggio->idEqu, equipaggio->num,
                                  taglia(r.tempo, equipaggio->asi, u"CO"_s)};
        }
    }
    return lista;
}

void azzeraScarico(Azzera azzera) {
    Transazione transazione;
    if (azzera == Azzera::AncheErrori) {
        esegui(u"DELETE FROM ErroriSca"_s);
        esegui(u"DELETE FROM TempScar"_s);
    }
    esegui(u"DELETE FROM TempRil"_s);
    transazione.conferma();
}

void inserisciTempRil(const QList<TempoRicevuto>& tempi) {
    // Many rows a statement: most of the cost is the running of one.
    constexpr qsizetype RighePerIstruzione = 100;
    for (qsizetype da = 0; da < tempi.size();) {
        const qsizetype quante = std::min(RighePerIstruzione, tempi.size() - da);
        QStringList righe(quante, u"(?,?,?,?,?)"_s);
        Statement inserimento(u"INSERT INTO TempRil (IDPro_FK,IDEqu_FK,TPar,TArr,Num) VALUES "_s +
                              righe.join(u','));
        for (; tempi.size() - da >= quante; da += quante)
            inserimento.esegui(valoriTempRil(std::span(tempi).subspan(da, quante)));
    }
}

void scriviTempRil(const QList<TempoRicevuto>& tempi) {
    Transazione transazione;
    inserisciTempRil(tempi);
    transazione.conferma();
}

bool ciSonoTempiRicevuti() {
    return esisteRiga(u"SELECT 1 FROM TempRil LIMIT 1"_s);
}

void salvaTempi(const QList<Pressostato>& scelti) {
    Transazione transazione;
    riversa(u"TPar"_s);
    riversa(u"TArr"_s);
    esegui(u"DELETE FROM TempRil"_s);
    QSet<int> prove;
    for (const Pressostato& pressostato : scelti) {
        for (const Bersaglio& bersaglio : pressostato)
            prove << bersaglio.idPro;
    }
    Statement svolta(u"UPDATE Prove SET Svo=1 WHERE IDPro=?"_s);
    for (const int idPro : std::as_const(prove))
        svolta.esegui({idPro});
    transazione.conferma();
}

#include "readings/Rilevamenti.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "common/Funzioni.h"
#include "common/Public.h"
#include "common/Valori.h"
#include "scoring/Calcolo.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

const QString TempoZero = u"00:00:00:00"_s;

bool bianco(const QString& tempo) {
    return tempo.trimmed().isEmpty();
}

bool tempoValido(const QString& tempo) {
    return leggiOra(QStringView(tempo).left(8)).has_value();
}

void scriviColonna(const QString& sql, const QVariant& valore, int idRil) {
    if (esegui(sql, {valore, idRil}) == 0)
        throw Errore(u"Il rilevamento non è più nell'archivio."_s);
}

}  // namespace

std::vector<RigaRilevamento> leggiRilevamenti(int idEqu) {
    std::vector<RigaRilevamento> righe;
    Statement riga(
        u"SELECT IDRil,IDPro,Nom,Tem,Tip,ConA,TPar,TArr,PenAgg,DesPenAgg FROM Prove INNER JOIN Rilevamenti "
        "ON Prove.IDPro=Rilevamenti.IDPro_FK WHERE IDEqu_FK=? AND IDMan_FK=? ORDER BY IDPro,IDRil"_s);
    riga.esegui({idEqu, IDMan});
    while (riga.prossima()) {
        righe.push_back({riga.intero(0), riga.intero(1), riga.testo(2), riga.testo(3),
                         leggiTipoProva(riga.testo(4)), riga.intero(5) != 0, riga.testo(6), riga.testo(7),
                         riga.nullo(8) ? std::nullopt : std::optional(riga.reale(8)), riga.testo(9)});
    }
    return righe;
}

CalcoloRiga calcolaRiga(const Impostazione& impostazione, bool asi, const RigaRilevamento& riga) {
    const bool manca = bianco(riga.tPar) || bianco(riga.tArr);
    const QString& tPar = bianco(riga.tPar) ? TempoZero : riga.tPar;
    const QString& tArr = bianco(riga.tArr) ? TempoZero : riga.tArr;
    if (!tempoValido(tPar) || !tempoValido(tArr))
        return {};
    ProvaCalcolo prova;
    prova.tipo = riga.tipo;
    prova.imposto = TempoInCentesimi(riga.imposto + u":00"_s);
    LetturaCalcolo lettura = componiLettura(tPar, tArr, riga.penAgg.value_or(0));
    lettura.manca = manca;

    const int scarto = scartoProva(prova, lettura);
    CalcoloRiga calcolo{CentesimiInTempo(nettoProva(lettura)), CentesimiInTempo(std::abs(scarto)),
                        penalitaProva(impostazione, asi, prova, lettura), StileScarto::Netto};
    if (calcolo.penalita)
        *calcolo.penalita += lettura.penAgg;
    if (manca) {
        calcolo.stile = StileScarto::Errato;
    } else if (scarto != 0) {
        calcolo.stile = scarto > 0 ? StileScarto::Positivo : StileScarto::Negativo;
    }
    return calcolo;
}

QString mascheraTempo(QStringView testo) {
    QString cifre;
    for (const QChar c : testo) {
        if (FiltroCifreValore(c.unicode()) != 0)
            cifre += c;
    }
    if (cifre.isEmpty())
        return {};
    cifre = cifre.rightJustified(8, u'0').right(8);
    for (const int posto : {6, 4, 2})
        cifre.insert(posto, u':');
    return cifre;
}

void scriviPenalitaAggiunta(int idRil, double penAgg) {
    scriviColonna(u"UPDATE Rilevamenti SET PenAgg=? WHERE IDRil=?"_s, penAgg, idRil);
}

void scriviDescrizionePenalita(int idRil, const QString& descrizione) {
    scriviColonna(u"UPDATE Rilevamenti SET DesPenAgg=? WHERE IDRil=?"_s, descrizione, idRil);
}

std::vector<EquipaggioElenco> leggiEquipaggi() {
    std::vector<EquipaggioElenco> equipaggi;
    Statement riga(
        u"SELECT IDEqu,Num,coalesce(Cog,'')||'-'||coalesce(CogNav,''),coalesce(Mar,'')||' "
        u"'||coalesce([Mod],''),"
        "Omo FROM Equipaggi WHERE IDMan_FK=? ORDER BY Num,IDEqu"_s);
    riga.esegui({IDMan});
    while (riga.prossima()) {
        equipaggi.push_back(
            {riga.intero(0), riga.intero(1), riga.testo(2), riga.testo(3), equipaggioASI(riga.testo(4))});
    }
    return equipaggi;
}

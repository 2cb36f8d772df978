#include "scoring/Penalita.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "common/Dialoghi.h"
#include "common/Public.h"
#include "scoring/Calcolo.h"

using namespace Qt::StringLiterals;

namespace {

// One crew on one test.
class LetturaSingola final {
public:
    LetturaSingola(int num, int idPro) : m_calcolo({.idPro = idPro, .num = num}) {
        if (m_calcolo.equipaggi().empty())
            throw Errore(u"L'equipaggio n. %1 non è iscritto alla manifestazione."_s.arg(num));
        if (m_calcolo.prove().empty())
            throw Errore(u"La prova richiesta per l'equipaggio n. %1 non è più nell'archivio."_s.arg(num));
    }
    [[nodiscard]] const EquipaggioCalcolo& equipaggio() const { return m_calcolo.equipaggi().front(); }
    [[nodiscard]] const ProvaCalcolo& prova() const { return m_calcolo.prove().front(); }
    [[nodiscard]] const LetturaCalcolo& lettura() const { return m_calcolo.lettura(0, 0); }
    [[nodiscard]] double penalita() const { return m_calcolo.penalita(equipaggio(), 0); }

private:
    Calcolo m_calcolo;
};

// For a failure that came before the crew was read; a crew that is not there has no names.
void leggiNomi(int num, QString& cog, QString& cogNav) {
    Statement riga(u"SELECT Cog,CogNav FROM Equipaggi WHERE Num=? AND IDMan_FK=?"_s);
    if (riga.esegui({num, IDMan}).prossima()) {
        cog = riga.testo(0);
        cogNav = riga.testo(1);
    }
}

using Somma = double (Calcolo::*)(const EquipaggioCalcolo&, bool&) const;

// A sum over one crew; whatever stops it is told to the operator with the crew's names.
double sommaConAvviso(int num, const SelezioneCalcolo& selezione, Somma somma) {
    double valore = 0;
    bool errore = false;
    QString cog;
    QString cogNav;
    try {
        const Calcolo calcolo(selezione);
        if (calcolo.equipaggi().empty())
            throw Errore(u"L'equipaggio n. %1 non è iscritto."_s.arg(num));
        const EquipaggioCalcolo& equipaggio = calcolo.equipaggi().front();
        cog = equipaggio.cog;
        cogNav = equipaggio.cogNav;
        valore = (calcolo.*somma)(equipaggio, errore);
    } catch (const Errore&) {
        errore = true;
        leggiNomi(num, cog, cogNav);
    }
    if (errore)
        avvisaErrorePenalita(num, cog, cogNav);
    return valore;
}

}  // namespace

void avvisaErrorePenalita(int num, const QString& cog, const QString& cogNav) {
    Dialoghi::corrente().messaggio(
        u"Attenzione: Errore nelle Penalità"_s,
        u"Errore Nel Calcolo delle Penalità.\nControllare i Tempi Inseriti dell'Equipaggio n. "_s +
            QString::number(num) + u" - "_s + cog + u' ' + cogNav,
        Icona::Stop);
}

double PenalitaProva(int num, int idPro, bool senzaPenAgg) {
    const LetturaSingola singola(num, idPro);
    const double penalita = singola.penalita();
    if (senzaPenAgg)
        return penalita;
    if (!singola.lettura().esiste)
        throw Errore(u"All'equipaggio n. %1 manca la riga dei rilevamenti di una prova."_s.arg(num));
    return penalita + singola.lettura().penAgg;
}

double PenalitaTempi(int num, const QString& dat, bool soloSvolte) {
    return sommaConAvviso(num, {.dat = dat, .soloSvolte = soloSvolte, .num = num}, &Calcolo::sommaTempi);
}

double PenalitaAggiunte(int num, const QString& dat, bool soloSvolte) {
    return sommaConAvviso(num, {.dat = dat, .soloSvolte = soloSvolte, .num = num}, &Calcolo::sommaAggiunte);
}

double CoefficienteEquipaggio(int num) {
    return sommaConAvviso(num, {.num = num}, &Calcolo::coefficiente);
}

double PenalitaTotale(int num, const QString& dat, bool soloSvolte) {
    const double coefficiente = CoefficienteEquipaggio(num);
    const double aggiunte = PenalitaAggiunte(num, dat, soloSvolte);
    return PenalitaTempi(num, dat, soloSvolte) * coefficiente + aggiunte;
}

int ScartoProva(int num, int idPro) {
    const LetturaSingola singola(num, idPro);
    return scartoProva(singola.prova(), singola.lettura());
}

float MediaPenalita(int idEqu) {
    const Calcolo calcolo({.idEqu = idEqu});
    return calcolo.equipaggi().empty() ? 0 : calcolo.media(calcolo.equipaggi().front());
}

bool TempiCompleti(int num) {
    const Calcolo calcolo({.num = num});
    return calcolo.equipaggi().empty() || calcolo.tempiCompleti(calcolo.equipaggi().front());
}

int NumeroEquipaggi() {
    return leggiValore(u"SELECT count(*) FROM Equipaggi WHERE IDMan_FK=?"_s, {IDMan})->toInt();
}

#include "shell/AzioniMenu.h"

#include "archive/DataBase.h"
#include "common/Subroutine.h"
#include "entries/frmModuloIscrizioni.h"
#include "output/ApriReport.h"
#include "scoring/frmClassificaDiGruppo.h"
#include "scoring/MostraClassifica.h"
#include "shell/DataGiornaliera.h"
#include "shell/frmInformazioni.h"
#include "shell/frmMain.h"
#include "shell/ScaricoVersione.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

AzioneMenu classifica(const RichiestaClassifica& richiesta) {
    return [richiesta](frmMain&) {
        const CursoreAttesa cursore;
        MostraClassifica(richiesta);
    };
}

// Every test of the day counts, run or not.
AzioneMenu classificaGiornaliera(int tipo) {
    return [tipo](frmMain&) {
        const std::optional<QString> giorno = chiediGiorno(u"Data Classifica Giornaliera"_s);
        if (!giorno)
            return;
        const CursoreAttesa cursore;
        MostraClassifica({.tipo = tipo, .dat = *giorno});
    };
}

void classificaDiGruppo(frmMain& principale, const QString& giorno) {
    frmClassificaDiGruppo finestra(&principale);
    finestra.Data = giorno;
    finestra.exec();
}

void classificaGiornalieraDiGruppo(frmMain& principale) {
    if (const std::optional<QString> giorno = chiediGiorno(u"Data Classifica Giornaliera"_s))
        classificaDiGruppo(principale, *giorno);
}

// What was written must be on disk for the reader of the list.
AzioneMenu lista(const QString& tipo) {
    return [tipo](frmMain&) {
        ChiudiDataBase();
        ApriDataBase();
        ApriReport(tipo, {}, {}, {}, {});
    };
}

template <typename Finestra>
AzioneMenu finestra() {
    return [](frmMain& principale) { Finestra(&principale).exec(); };
}

const QHash<QString, AzioneMenu>& azioni() {
    static const QHash<QString, AzioneMenu> tutte{
        {u"mnuModuloIscrizioni"_s, finestra<frmModuloIscrizioni>()},
        {u"mnuClasAssoluta"_s, classifica({.soloSvolte = true})},
        {u"mnuClasASI"_s, classifica({.tipo = 1, .soloSvolte = true})},
        {u"mnuClasNONASI"_s, classifica({.tipo = 2, .soloSvolte = true})},
        {u"mnuClasFemminile"_s, classifica({.femminile = true, .soloSvolte = true})},
        {u"mnuClasRaggruppamento"_s, [](frmMain& principale) { classificaDiGruppo(principale, {}); }},
        {u"mnuClasGioTutti"_s, classificaGiornaliera(0)},
        {u"mnuClasGioASI"_s, classificaGiornaliera(1)},
        {u"mnuClasGioNoASI"_s, classificaGiornaliera(2)},
        {u"mnuClasGioGru"_s, classificaGiornalieraDiGruppo},
        {u"mnuStampaListaDiPartenza"_s, lista(u"Lista"_s)},
        {u"mnuStampaListaDiPartenzaConOrari"_s, lista(u"ListaConOrari"_s)},
        {u"mnuStampaPenalitàAggiuntive"_s,
         [](frmMain&) { ApriReport(u"PenalitàAggiuntive"_s, {}, u"Penalità Aggiuntive"_s, {}, {}); }},
        {u"mnuUpdateVLM"_s, [](frmMain& principale) { aggiornaViaInternet(&principale); }},
        {u"mnuInformazioni"_s, finestra<frmInformazioni>()},
        {u"mnuEsci"_s, [](frmMain& principale) { principale.close(); }},
    };
    return tutte;
}

}  // namespace

AzioneMenu azioneMenu(const QString& nome) {
    return azioni().value(nome);
}

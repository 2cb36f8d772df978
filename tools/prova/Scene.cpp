#include "prova/Scene.h"

#include "common/frmAiuto.h"
#include "common/Subroutine.h"
#include "prova/Regia.h"
#include "shell/frmMain.h"

#include <QAbstractButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

void scenaIntroduzione(Regia& regia, frmMain& principale) {
    regia.fotografa(principale, u"frmMain"_s);
    mostraAiuto(&principale);
    if (auto* aiuto = principale.findChild<frmAiuto*>()) {
        regia.fotografa(*aiuto, u"frmAiuto"_s);
        aiuto->close();
    }
    regia.quandoSiApre(u"frmInformazioni"_s, [&](QWidget& finestra) {
        regia.fotografa(finestra, u"frmInformazioni"_s);
        finestra.close();
    });
    regia.scegli(principale, u"mnuInformazioni"_s);
}

void scenaClassifiche(Regia& regia, frmMain& principale) {
    for (const QString& voce :
         {u"mnuClasAssoluta"_s, u"mnuClasASI"_s, u"mnuClasNONASI"_s, u"mnuClasFemminile"_s,
          u"mnuClasGioTutti"_s, u"mnuClasGioASI"_s, u"mnuClasGioNoASI"_s})
        regia.scegli(principale, voce);
    const auto primoGruppo = [&](QWidget& finestra) {
        auto& lista = regia.controllo<QTreeWidget>(finestra, u"lstRag"_s);
        lista.setCurrentItem(lista.topLevelItem(0));
        regia.fotografa(finestra, u"frmClassificaDiGruppo"_s);
        regia.controllo<QAbstractButton>(finestra, u"cmdStampa"_s).click();
        finestra.close();
    };
    for (const QString& voce : {u"mnuClasRaggruppamento"_s, u"mnuClasGioGru"_s}) {
        regia.quandoSiApre(u"frmClassificaDiGruppo"_s, primoGruppo);
        regia.scegli(principale, voce);
    }
}

void scenaStampe(Regia& regia, frmMain& principale) {
    for (const QString& voce : {u"mnuStampaListaDiPartenza"_s, u"mnuStampaListaDiPartenzaConOrari"_s,
                                u"mnuStampaPenalitàAggiuntive"_s})
        regia.scegli(principale, voce);
}

// The times that no chronometer gives, typed by hand, and the classification that comes of it all.

#include "prova/Regia.h"
#include "prova/Scene.h"
#include "readings/GrigliaRilevamenti.h"
#include "shell/frmMain.h"

#include <QTableView>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int Partenza = 0;  // rows of the grid, as the tests were defined
constexpr int Rientro = 5;

void scriviTempo(Regia& regia, QTableView& griglia, int riga, int colonna, const QString& cifre) {
    griglia.setFocus();
    griglia.setCurrentIndex(griglia.model()->index(riga, colonna));
    regia.digita(cifre);
    regia.tasto(Qt::Key_Return, u"\r"_s);
}

void scriviControlliOrari(Regia& regia, QWidget& finestra) {
    auto& griglia = regia.controllo<QTableView>(finestra, u"grT"_s);
    for (int equipaggio = 0; equipaggio < 3; ++equipaggio) {
        const int minuto = equipaggio;
        // The arrival at the first time control is the start of the chained one.
        scriviTempo(regia, griglia, Partenza, ModelloRilevamenti::TempoPassaggio,
                    u"090%1"_s.arg(minuto) + u"0000"_s);
        scriviTempo(regia, griglia, Rientro, ModelloRilevamenti::TempoPassaggio,
                    u"094%1"_s.arg(5 + minuto + (equipaggio == 1 ? 1 : 0)) + u"0000"_s);
        if (equipaggio == 0)
            regia.fotografa(finestra, u"frmTempiManuale"_s);
        griglia.setFocus();
        regia.digita(u"+"_s);
    }
}

void segnaSvolte(Regia& regia, QWidget& finestra) {
    auto& prove = regia.controllo<QTreeWidget>(finestra, u"lstProve"_s);
    for (int i = 0; i < prove.topLevelItemCount(); ++i)
        prove.topLevelItem(i)->setCheckState(0, Qt::Checked);
    regia.premi(finestra, u"cmdOK"_s);
}

}  // namespace

void scenaTempi(Regia& regia, frmMain& principale) {
    regia.quandoSiApre(u"frmProveSvolte"_s, [&](QWidget& finestra) { segnaSvolte(regia, finestra); });
    regia.scegli(principale, u"mnuProveSvolte"_s);
    regia.quandoSiApre(u"frmTempiManuale"_s, [&](QWidget& finestra) {
        scriviControlliOrari(regia, finestra);
        regia.premi(finestra, u"cmdTempiMancanti"_s);
        regia.fotografa(finestra, u"frmTempiManuale-ricerca"_s);
        regia.premi(finestra, u"cmdEsci"_s);
    });
    regia.scegli(principale, u"mnuImmManuale"_s);
    regia.quandoSiApre(u"frmPenalitaAggiuntive"_s, [&](QWidget& finestra) {
        regia.fotografa(finestra, u"frmPenalitaAggiuntive"_s);
        regia.premi(finestra, u"cmdEsci"_s);
    });
    regia.scegli(principale, u"mnuPenalitaAggiuntive"_s);
    regia.scegli(principale, u"mnuClasAssoluta"_s);
}

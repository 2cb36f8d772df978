// A chain of three skill tests timed live, with the scoreboard on, and the times of an imposed-average test
// downloaded: a TAG CP540 and a scoreboard on pseudo-terminals.

#include "archive/PercorsoApp.h"
#include "prova/Regia.h"
#include "prova/Scene.h"
#include "shell/frmMain.h"
#include "simulatori/SimulatoreTabellone.h"
#include "simulatori/SimulatoreTag.h"

#include <QCheckBox>
#include <QLabel>
#include <QTextStream>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int Cronometro = 1;
constexpr int Tabellone = 2;

// Passages of the three crews, in hundredths from the start; each test is a little off its imposed time.
constexpr int Passaggi[][3] = {{1203, 2105, 3601}, {1190, 2088, 3612}, {1248, 2151, 3650}};

void corri(Regia& regia, QWidget& ricezione, SimulatoreTag& tag, const int (&passaggi)[3], bool fotografa) {
    auto& tempo = regia.controllo<QLabel>(ricezione, u"lblTempo"_s);
    auto& imposto = regia.controllo<QLabel>(ricezione, u"lblImp"_s);
    tag.partenza();
    regia.attendi(u"partito"_s, [&] { return tempo.text() == u"PARTITO"; });
    for (int i = 0; i < 3; ++i) {
        tag.tempo(passaggi[i]);
        regia.attendi(u"tempo %1"_s.arg(i + 1),
                      [&] { return imposto.text().startsWith(u"TEMPO N° %1"_s.arg(i + 1)); });
        if (fotografa && i == 0)
            regia.fotografa(ricezione, u"frmRXONLINE"_s);
    }
    regia.attendi(u"prova terminata"_s, [&] { return !ricezione.isVisible(); });
}

void riceviEquipaggi(Regia& regia, QWidget& finestra, SimulatoreTag& tag) {
    regia.scegliVoce(finestra, u"cboChrono"_s, u"TAG CP540"_s);
    regia.scegliVoce(finestra, u"cboPortaCOM"_s, u"COM 1"_s);
    auto& elenco = regia.controllo<QTreeWidget>(finestra, u"lstEq"_s);
    for (int i = 0; i < elenco.topLevelItemCount(); ++i) {
        elenco.setCurrentItem(elenco.topLevelItem(i));
        regia.quandoSiApre(u"frmRXONLINE"_s,
                           [&, i](QWidget& ricezione) { corri(regia, ricezione, tag, Passaggi[i], i == 0); });
        regia.premi(finestra, u"cmdRX"_s);
    }
    regia.fotografa(finestra, u"frmRicezioneONLINE"_s);
    regia.quandoSiApre(u"frmClassificaDiProvaInTempoReale"_s, [&](QWidget& classifica) {
        regia.fotografa(classifica, u"frmClassificaDiProvaInTempoReale"_s);
        classifica.close();
    });
    regia.premi(finestra, u"cmdClassifica"_s);
    regia.premi(finestra, u"cmdEsci"_s);
}

void riempiMemoria(SimulatoreTag& tag) {
    tag.scegliManche(1);
    for (int numero = 1; numero <= 3; ++numero)
        tag.registra(numero, QTime(9, 19 + numero, 0));
    for (int numero = 1; numero <= 3; ++numero)
        tag.registra(numero, QTime(9, 29 + numero, numero - 1, 0));
}

void scarica(Regia& regia, QWidget& finestra) {
    regia.scegliVoce(finestra, u"cboChrono"_s, u"TAG CP540"_s);
    regia.scegliVoce(finestra, u"cboPortaCOM"_s, u"COM 1"_s);
    auto& pressostati = regia.controllo<QTreeWidget>(finestra, u"lstPre"_s);
    for (int i = 0; i < pressostati.topLevelItemCount(); ++i) {
        QTreeWidgetItem* riga = pressostati.topLevelItem(i);
        if (riga->text(0).contains(u"PM 1"_s))
            riga->setCheckState(0, Qt::Checked);
    }
    auto& inizia = regia.controllo<QAbstractButton>(finestra, u"cmdIniziaRicezione"_s);
    regia.rispondi(u"1"_s);  // the heat
    inizia.click();
    regia.attendi(u"scarico finito"_s, [&] { return inizia.isEnabled(); });
    regia.fotografa(finestra, u"frmRicezioneOFFLINE"_s);
    regia.premi(finestra, u"cmdSalva"_s);
    regia.premi(finestra, u"cmdEsci"_s);
}

}  // namespace

void scenaCronometri(Regia& regia, frmMain& principale) {
    PseudoTerminale linea(PercorsoApp, Cronometro);
    PseudoTerminale lineaTabellone(PercorsoApp, Tabellone);
    SimulatoreTag tag(Dispositivo::CP540, linea);
    const SimulatoreTabellone tabellone(lineaTabellone);
    static_cast<Impostazioni&>(regia).scrivi(u"com"_s, u"tabellone"_s, QString::number(Tabellone));

    regia.quandoSiApre(u"frmSelezionaRXONLINE"_s, [&](QWidget& finestra) {
        auto& prove = regia.controllo<QTreeWidget>(finestra, u"trePro"_s);
        prove.setCurrentItem(prove.topLevelItem(0));
        regia.fotografa(finestra, u"frmSelezionaRXONLINE"_s);
        regia.quandoSiApre(u"frmRicezioneONLINE"_s,
                           [&](QWidget& ricezione) { riceviEquipaggi(regia, ricezione, tag); });
        regia.premi(finestra, u"cmdSeleziona"_s);
        regia.premi(finestra, u"cmdEsci"_s);
    });
    regia.scegli(principale, u"mnuRXONLINE"_s);
    QTextStream(stdout) << u"  tabellone: "_s << tabellone.mostrati().join(u" | "_s) << Qt::endl;

    riempiMemoria(tag);
    regia.quandoSiApre(u"frmRicezioneOFFLINE"_s, [&](QWidget& finestra) { scarica(regia, finestra); });
    regia.scegli(principale, u"mnuRXOFFLINE"_s);
}

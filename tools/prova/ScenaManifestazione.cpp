// An event made from nothing, through the five pages of its creation.

#include "prova/Regia.h"
#include "prova/Scene.h"
#include "shell/frmMain.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

struct ProvaNuova {
    QString tipo;
    QString nome;
    QString tempo;
    QString data;
    bool concatenata = false;
};

const ProvaNuova Prove[] = {
    {u"CO"_s, u"Partenza Piazza Garibaldi"_s, u"00:00:00"_s, u"10/10/2026"_s},
    {u"PA"_s, u"PA 1 Argine"_s, u"00:00:12"_s, u"10/10/2026"_s},
    {u"PA"_s, u"PA 2 Argine"_s, u"00:00:09"_s, u"10/10/2026"_s, true},
    {u"PA"_s, u"PA 3 Argine"_s, u"00:00:15"_s, u"10/10/2026"_s, true},
    {u"PM"_s, u"PM 1 Strada Bassa"_s, u"00:10:00"_s, u"10/10/2026"_s},
    {u"CO"_s, u"C.O. 1 Rientro"_s, u"00:45:00"_s, u"10/10/2026"_s, true},
};

void scriviImpostazioni(Regia& regia, QWidget& pagina) {
    regia.scrivi(pagina, u"txtNom"_s, u"Trofeo dell'Argine"_s);
    regia.scrivi(pagina, u"txtLoc"_s, u"Colorno (PR)"_s);
    regia.scrivi(pagina, u"txtClu"_s, u"Scuderia Tre Torri"_s);
    for (const QString& data : {u"DaDat"_s, u"ADat"_s, u"DatVer"_s})
        regia.scrivi(pagina, data, u"10/10/2026"_s);
    regia.scegliVoce(pagina, u"cboPrePA"_s, u"CENTESIMO"_s);
    regia.scegliVoce(pagina, u"cboPrePM"_s, u"SECONDO"_s);
    regia.scrivi(pagina, u"txtPenUniPA"_s, u"1"_s);
    regia.scrivi(pagina, u"txtPenUniPM"_s, u"10"_s);
    regia.scrivi(pagina, u"txtPenUniCO"_s, u"100"_s);
    regia.scegliVoce(pagina, u"cboMaxPen"_s, u"SI"_s);
    regia.scrivi(pagina, u"txtMaxPen"_s, u"300"_s);
    regia.scegliVoce(pagina, u"cboPenProvaNonSvolta"_s, u"SI"_s);
    regia.scegliVoce(pagina, u"cboFatAnn"_s, u"SI"_s);
    regia.premi(pagina, u"chkRagAuto"_s);
}

void scriviProve(Regia& regia, QWidget& pagina) {
    for (const ProvaNuova& prova : Prove) {
        regia.scegliVoce(pagina, u"cboPro"_s, prova.tipo);
        regia.scrivi(pagina, u"txtNom"_s, prova.nome);
        regia.scrivi(pagina, u"txtLoc"_s, u"Colorno"_s);
        regia.scrivi(pagina, u"txtTem"_s, prova.tempo);
        regia.scrivi(pagina, u"Dat"_s, prova.data);
        regia.scegliVoce(pagina, u"cboCon"_s, prova.concatenata ? u"SI"_s : u"NO"_s);
        regia.premi(pagina, u"cmdAgg"_s);
    }
}

}  // namespace

void scenaManifestazione(Regia& regia, frmMain& principale) {
    const auto pagina = [&](const QString& nome, auto azione, const QString& pulsante = u"cmdAvanti"_s) {
        regia.quandoSiApre(nome, [&regia, nome, azione, pulsante](QWidget& finestra) {
            azione(finestra);
            regia.fotografa(finestra, nome);
            regia.premi(finestra, pulsante);
        });
    };
    pagina(u"frmNuovaManifestazione"_s, [&](QWidget& f) { scriviImpostazioni(regia, f); });
    pagina(u"frmNuovaManifestazione2"_s, [&](QWidget& f) { regia.premi(f, u"cmdRaggruppamentiASI"_s); });
    pagina(u"frmNuovaManifestazione2Bis"_s, [&](QWidget& f) {
        for (const QString& squadra : {u"Scuderia Tre Torri"_s, u"Club Ducato Storico"_s}) {
            regia.scrivi(f, u"txtNom"_s, squadra);
            regia.premi(f, u"cmdAgg"_s);
        }
    });
    pagina(u"frmNuovaManifestazione3"_s, [&](QWidget& f) { scriviProve(regia, f); });
    pagina(
        u"frmNuovaManifestazione4"_s, [](QWidget&) {}, u"cmdSalva"_s);
    regia.scegli(principale, u"mnuNuovaManifestazione"_s);
    regia.fotografa(principale, u"frmMain-nuova"_s);

    pagina(
        u"frmModificaManifestazione"_s, [](QWidget&) {}, u"cmdSalva"_s);
    regia.scegli(principale, u"mnuModificaManifestazione"_s);
    pagina(
        u"frmProveSvolte"_s, [](QWidget&) {}, u"cmdAnnulla"_s);
    regia.scegli(principale, u"mnuProveSvolte"_s);
    pagina(
        u"frmCambiaManifestazione"_s, [](QWidget&) {}, u"cmdAnnulla"_s);
    regia.scegli(principale, u"mnuCambiaManifestazione"_s);
}

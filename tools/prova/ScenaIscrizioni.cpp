// The crews of the new event, entered in the entry form, and their start times.

#include "prova/Regia.h"
#include "prova/Scene.h"
#include "shell/frmMain.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

struct Equipaggio {
    QString numero, cognome, nome, sesso, cognomeNav, nomeNav, sessoNav, marca, modello, anno, omologazione;
};

const Equipaggio Equipaggi[] = {
    {u"1"_s, u"D'ANGELÒ"_s, u"CARLO"_s, u"M"_s, u"BIANCHI"_s, u"LUCÌA"_s, u"F"_s, u"LANCIA"_s, u"APRILIA"_s,
     u"1937"_s, u"A1021"_s},
    {u"2"_s, u"FERRÉ"_s, u"ANNA"_s, u"F"_s, u"MORI"_s, u"CHIARA"_s, u"F"_s, u"FIAT"_s, u"1100/103"_s,
     u"1955"_s, u"A2210"_s},
    {u"3"_s, u"ZANI"_s, u"UGO"_s, u"M"_s, u"NERI"_s, u"PAOLO"_s, u"M"_s, u"ALFA ROMEO"_s, u"GIULIA TI"_s,
     u"1964"_s, QString()},
};

void scriviEquipaggio(Regia& regia, QWidget& modulo, const Equipaggio& equipaggio) {
    regia.scrivi(modulo, u"txtNum"_s, equipaggio.numero);
    regia.scrivi(modulo, u"txtCog"_s, equipaggio.cognome);
    regia.scrivi(modulo, u"txtNom"_s, equipaggio.nome);
    regia.scegliVoce(modulo, u"cboSes"_s, equipaggio.sesso);
    regia.scrivi(modulo, u"txtDatNas"_s, u"14/03/1961"_s);
    regia.scrivi(modulo, u"txtCit"_s, u"COLORNO"_s);
    regia.scrivi(modulo, u"txtPro"_s, u"PR"_s);
    regia.scrivi(modulo, u"txtCogNav"_s, equipaggio.cognomeNav);
    regia.scrivi(modulo, u"txtNomNav"_s, equipaggio.nomeNav);
    regia.scegliVoce(modulo, u"cboSesNav"_s, equipaggio.sessoNav);
    regia.scrivi(modulo, u"txtMar"_s, equipaggio.marca);
    regia.scrivi(modulo, u"txtMod"_s, equipaggio.modello);
    regia.scrivi(modulo, u"txtAnn"_s, equipaggio.anno);
    regia.scrivi(modulo, u"txtOmo"_s, equipaggio.omologazione);
}

}  // namespace

void scenaIscrizioni(Regia& regia, frmMain& principale) {
    regia.quandoSiApre(u"frmModuloIscrizioni"_s, [&](QWidget& modulo) {
        for (const Equipaggio& equipaggio : Equipaggi) {
            if (&equipaggio != Equipaggi)  // the first one finds the form ready for it
                regia.premi(modulo, u"cmdNuovo"_s);
            scriviEquipaggio(regia, modulo, equipaggio);
            regia.premi(modulo, u"cmdSalva"_s);
        }
        regia.fotografa(modulo, u"frmModuloIscrizioni"_s);
        regia.premi(modulo, u"cmdNuovo"_s);
        regia.quandoSiApre(u"frmRicercaAnagrafica"_s, [&](QWidget& ricerca) {
            regia.scrivi(ricerca, u"txtRic"_s, u"S"_s);
            regia.fotografa(ricerca, u"frmRicercaAnagrafica"_s);
            regia.premi(ricerca, u"cmdAnnulla"_s);
        });
        regia.premi(modulo, u"cmdRic"_s);
        regia.premi(modulo, u"cmdAnnulla"_s);
        regia.premi(modulo, u"cmdEsci"_s);
    });
    regia.scegli(principale, u"mnuModuloIscrizioni"_s);

    regia.quandoSiApre(u"frmGestioneOrariDiPartenza"_s, [&](QWidget& orari) {
        regia.scrivi(orari, u"txtTem"_s, u"09:00:00"_s);
        regia.scrivi(orari, u"txtIntervalloPartenze"_s, u"60"_s);
        regia.premi(orari, u"cmdGenera"_s);
        regia.fotografa(orari, u"frmGestioneOrariDiPartenza"_s);
        regia.premi(orari, u"cmdSalva"_s);
        regia.premi(orari, u"cmdEsci"_s);
    });
    regia.scegli(principale, u"mnuOrariDiPartenza"_s);
    regia.quandoSiApre(u"frmRipartenza"_s, [&](QWidget& ripartenza) {
        regia.fotografa(ripartenza, u"frmRipartenza"_s);
        regia.premi(ripartenza, u"cmdEsci"_s);
    });
    regia.scegli(principale, u"mnuCreaRipartenza"_s);
}

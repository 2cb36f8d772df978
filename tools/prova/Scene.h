#pragma once

class Regia;
class frmMain;

// The scenes of the rehearsal, in the order of an event's day.
void scenaIntroduzione(Regia& regia, frmMain& principale);
void scenaClassifiche(Regia& regia, frmMain& principale);
void scenaStampe(Regia& regia, frmMain& principale);
// A new event of its own from here on.
void scenaManifestazione(Regia& regia, frmMain& principale);
void scenaIscrizioni(Regia& regia, frmMain& principale);
void scenaCronometri(Regia& regia, frmMain& principale);
void scenaTempi(Regia& regia, frmMain& principale);

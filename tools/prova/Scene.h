#pragma once

class Regia;
class frmMain;

// The scenes of the rehearsal, in the order of an event's day.
void scenaManifestazione(Regia& regia, frmMain& principale);
void scenaIntroduzione(Regia& regia, frmMain& principale);
void scenaClassifiche(Regia& regia, frmMain& principale);
void scenaStampe(Regia& regia, frmMain& principale);

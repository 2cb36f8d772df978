// The rehearsal: the real windows, worked from the menu on an archive of the sample rally: see the help
// below.

#include "archive/PercorsoApp.h"
#include "archive/Statement.h"
#include "common/Applicazione.h"
#include "prova/Regia.h"
#include "prova/Scene.h"
#include "RigaDiComando.h"
#include "shell/Avvio.h"
#include "shell/frmMain.h"

#include <QAbstractButton>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr char Aiuto[] =
    R"(Prova il programma da cima a fondo: le finestre vere, dal menu, sul rally d'esempio.

Uso: prova PROGRAMMA USCITA

  PROGRAMMA  la cartella con l'archivio del rally d'esempio (crea_esempio) e il file di aiuto, "vlm help.hlp";
             l'archivio viene modificato
  USCITA     la cartella delle stampe (PDF) e delle immagini delle finestre

Finisce con 0 quando tutto è andato come deve. scripts/rehearse.sh prepara le cartelle da sé.
)";

frmMain* finestraPrincipale() {
    const QWidgetList finestre = QApplication::topLevelWidgets();
    for (QWidget* finestra : finestre) {
        if (auto* principale = qobject_cast<frmMain*>(finestra))
            return principale;
    }
    return nullptr;
}

// The event that the rehearsal opens on is the last one of the archive.
void scegliManifestazione(Regia& regia) {
    ApriDataBase();
    const QString chiave = leggiValore(u"SELECT max(IDMan) FROM Manifestazioni"_s)->toString();
    ChiudiDataBase();
    regia.scrivi(u"IDMan"_s, u"IDMan"_s, chiave);
}

void recita(Regia& regia) {
    frmMain* principale = finestraPrincipale();
    if (!principale)
        return;  // why, has been told in a box
    scenaIntroduzione(regia, *principale);
    scenaClassifiche(regia, *principale);
    scenaStampe(regia, *principale);
    scenaManifestazione(regia, *principale);
    scenaIscrizioni(regia, *principale);
    scenaCronometri(regia, *principale);
    scenaTempi(regia, *principale);
    regia.scegli(*principale, u"mnuEsci"_s);
}

}  // namespace

int main(int argc, char** argv) {
    // First of all: without a display, too, the help can be read.
    const RigaDiComando righe(argomentiDi(argc, argv), QString::fromUtf8(Aiuto), {}, {2, 2});
    if (!QFileInfo::exists(righe.argomenti().at(0) + u"/mdvlm.mdb"_s))
        RigaDiComando::rifiuta(u"nella cartella %1 non c'è un archivio"_s.arg(righe.argomenti().at(0)));
    const Applicazione applicazione(argc, argv);
    QTextStream uscita(stdout);
    PercorsoApp = QDir(righe.argomenti().at(0)).absolutePath();
    Regia regia(QDir(righe.argomenti().at(1)).absolutePath());
    scegliManifestazione(regia);
    regia.quandoSiApre(u"frmSplash"_s, [&](QWidget& splash) {
        regia.fotografa(splash, u"frmSplash"_s);
        QTimer::singleShot(0, qApp, [&] { recita(regia); });
        regia.controllo<QAbstractButton>(splash, u"cmdOK"_s).click();
    });
    const int codice = avvia();
    uscita << u"Prova finita: %1 stampe, %2 guasti."_s.arg(regia.rapporti()).arg(regia.guasti().size())
           << Qt::endl;
    return codice == 0 && regia.guasti().isEmpty() && regia.rapporti() > 0 ? 0 : 1;
}

// The rehearsal: the real windows, worked from the menu on an archive of the sample rally. Usage:
//   prova <program folder> <output folder>
// The program folder holds the archive and the help file. Ends with 0 when everything went as it should.

#include "archive/PercorsoApp.h"
#include "archive/Statement.h"
#include "common/Applicazione.h"
#include "prova/Regia.h"
#include "prova/Scene.h"
#include "shell/Avvio.h"
#include "shell/frmMain.h"

#include <QAbstractButton>
#include <QDir>
#include <QTextStream>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

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
    const Applicazione applicazione(argc, argv);
    QTextStream uscita(stdout);
    if (argc != 3) {
        uscita << "prova <program folder> <output folder>" << Qt::endl;
        return 2;
    }
    PercorsoApp = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    Regia regia(QDir(QString::fromLocal8Bit(argv[2])).absolutePath());
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

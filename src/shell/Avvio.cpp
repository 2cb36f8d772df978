#include "shell/Avvio.h"

#include "archive/ErroreArchivio.h"
#include "archive/PercorsoApp.h"
#include "common/API.h"
#include "common/Dialoghi.h"
#include "common/frmAiuto.h"
#include "shell/frmMain.h"
#include "shell/frmSplash.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr int NonAvviato = 1;

// The main window, or nothing after the operator has read why it cannot be.
std::unique_ptr<frmMain> apriPrincipale() {
    try {
        auto principale = std::make_unique<frmMain>();
        principale->show();
        return principale;
    } catch (const Errore& errore) {
        Dialoghi::corrente().messaggio(u"Impossibile Avviare VLM"_s, errore.testo(), Icona::Stop);
        return nullptr;
    }
}

}  // namespace

int avvia() {
    IstanzaUnica istanza(PercorsoApp);
    try {
        if (!istanza.acquisisci()) {
            avverti(u"Impossibile Avviare VLM"_s, u"VLM è Già In Esecuzione."_s);
            return NonAvviato;
        }
    } catch (const Errore& errore) {
        Dialoghi::corrente().messaggio(u"Impossibile Avviare VLM"_s, errore.testo(), Icona::Stop);
        return NonAvviato;
    }
    impostaFileAiuto(percorsoNelProgramma(u"vlm help.hlp"_s));
    // The splash is gone before the last window is: only the main window ends the program.
    QApplication::setQuitOnLastWindowClosed(false);
    std::unique_ptr<frmMain> principale;
    frmSplash splash([&] { principale = apriPrincipale(); });
    if (splash.exec() != QDialog::Accepted)
        return 0;
    if (!principale)
        return NonAvviato;
    QApplication::setQuitOnLastWindowClosed(true);
    return QApplication::exec();
}

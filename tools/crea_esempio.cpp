#include "archive/ErroreArchivio.h"
#include "common/Public.h"
#include "tools/CreaEsempio.h"

#include <cstdio>
#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

// crea_esempio <folder of the data> <folder of the archive> [--attiva]
// --attiva also makes the sample the active event of the user who runs it.
int main(int argc, char** argv) {
    const QCoreApplication applicazione(argc, argv);
    QStringList argomenti = QCoreApplication::arguments().mid(1);
    const bool attiva = argomenti.removeAll(u"--attiva"_s) > 0;
    if (argomenti.size() != 2) {
        QTextStream(stderr) << "Uso: crea_esempio <cartella dei dati> <cartella dell'archivio> [--attiva]\n";
        return 2;
    }
    try {
        const int idMan = creaEsempio(argomenti.at(0), argomenti.at(1));
        if (attiva)
            ImpostaManifestazioneAttiva(idMan);
        QTextStream(stdout) << "IDMan=" << idMan << '\n';
        return 0;
    } catch (const Errore& errore) {
        QTextStream(stderr) << errore.testo() << '\n';
        return 1;
    }
}

#include "archive/ErroreArchivio.h"
#include "common/Impostazioni.h"
#include "common/Public.h"
#include "tools/CreaEsempio.h"
#include "tools/RigaDiComando.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

constexpr char Aiuto[] = R"(Crea un archivio che contiene il rally d'esempio.

Uso: crea_esempio [--attiva] DATI ARCHIVIO

  DATI       la cartella dei dati del rally (assets/esempio)
  ARCHIVIO   la cartella in cui nasce l'archivio, mdvlm.mdb; uno che c'è già non viene toccato
  --attiva   il rally diventa anche la manifestazione attiva di chi esegue il comando
)";

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication applicazione(argc, argv);
    const RigaDiComando righe(QCoreApplication::arguments().sliced(1), QString::fromUtf8(Aiuto),
                              {{.nome = u"attiva"_s}}, {2, 2});
    try {
        const int idMan = creaEsempio(righe.argomenti().at(0), righe.argomenti().at(1));
        if (righe.data(u"attiva"_s))
            ImpostaManifestazioneAttiva(idMan);
        if (const QString guasto = Impostazioni::corrente().guasto(); !guasto.isEmpty())
            throw Errore(guasto);
        QTextStream(stdout) << "IDMan=" << idMan << '\n';
        return 0;
    } catch (const Errore& errore) {
        QTextStream(stderr) << errore.testo() << '\n';
        return 1;
    }
}

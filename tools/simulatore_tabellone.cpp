// Shows on the terminal what the six-position scoreboard would show: see the help text below.

#include "simulatori/Programma.h"
#include "simulatori/SimulatoreTabellone.h"

#include "archive/ErroreArchivio.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr char Aiuto[] = R"(Mostra sul terminale quel che mostrerebbe il tabellone a sei posizioni.

Uso: simulatore_tabellone [--programma CARTELLA] [--com N] [COPIONE]

Collega uno pseudo-terminale come porta N (porte/comN nella cartella del programma) e scrive una riga, [######],
a ogni cambiamento. Esegue il copione, un comando per riga; senza copione legge i comandi dalla tastiera.
Se non si dicono, la cartella è quella in cui ci si trova e N è 1.

  attendi testo "TESTO"     fino a che il tabellone mostra TESTO; dopo dieci minuti è un errore
)";

constexpr int AttesaTesto = 600000;  // milliseconds

QString esegui(const SimulatoreTabellone& tabellone, int& gia, Copione::Comando& comando) {
    constexpr QLatin1String Testo("testo \"");
    if (comando.nome != "attendi"_L1 || !comando.resto.startsWith(Testo) || !comando.resto.endsWith(u'"'))
        return u"comando sconosciuto: %1 %2"_s.arg(comando.nome, comando.resto);
    const QString atteso = SimulatoreTabellone::comeAppare(comando.resto.sliced(Testo.size()).chopped(1));
    // What was shown before an earlier text was found does not count again.
    comando.finche = [&tabellone, &gia, atteso, scadenza = QDeadlineTimer(AttesaTesto)] {
        const qsizetype trovato = tabellone.mostrati().indexOf(atteso, gia);
        if (trovato >= 0) {
            gia = static_cast<int>(trovato) + 1;
        } else if (scadenza.hasExpired()) {
            QCoreApplication::exit(fallisci(u"il tabellone non ha mostrato [%1]"_s.arg(atteso)));
        }
        return trovato >= 0;
    };
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication applicazione(argc, argv);
    const OpzioniSimulatore opzioni(QString::fromUtf8(Aiuto));
    try {
        PseudoTerminale linea(opzioni.cartella(), opzioni.porta());
        const SimulatoreTabellone tabellone(linea);
        QString ultimo;
        QObject::connect(&tabellone, &SimulatoreTabellone::cambiato, &tabellone, [&](const QString& testo) {
            if (testo != ultimo)
                scriviRiga(u"[%1]"_s.arg(testo));
            ultimo = testo;
        });
        int gia = 0;
        Copione copione(linea, [&](Copione::Comando& comando) { return esegui(tabellone, gia, comando); });
        return recita(copione, opzioni);
    } catch (const Errore& errore) {
        return fallisci(errore.testo());
    }
}

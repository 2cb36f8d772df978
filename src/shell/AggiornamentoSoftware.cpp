#include "shell/AggiornamentoSoftware.h"

#include "archive/ErroreArchivio.h"
#include "archive/PercorsoApp.h"
#include "common/Dialoghi.h"

#include <cstdlib>
#include <QFile>
#include <QProcess>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QString TitoloImpossibile = u"Impossibile Effettuare l'Aggiornamento"_s;

bool avviaProgramma(const QString& programma) {
    return QProcess::startDetached(programma, {}, PercorsoApp);
}

// The updater replaces this program's files: nothing of it may go on running, not even its exit steps.
void terminaProcesso() {
    std::_Exit(EXIT_SUCCESS);
}

void togliFilePrecedente(const QString& percorso) {
    if (QFile::exists(percorso) && !QFile::remove(percorso))
        throw Errore(u"Il file %1 non si può cancellare."_s.arg(percorso));
}

bool chiediSeInstallare(const Versione& remota) {
    return Dialoghi::corrente().domanda(u"Nuova Versione Disponibile"_s,
                                        u"E' Disponibile l'Aggiornamento alla Versione %1\n"
                                        "La Versione Attualmente Utilizzata è la %2\n"
                                        "Si Desidera Scaricare ed Installare la Nuova Versione ?"_s.arg(
                                            testoVersione(remota), testoVersione(versioneProgramma())),
                                        Icona::Domanda);
}

void passaAllAggiornatore(const MezziAggiornamento& mezzi) {
    const QString programma = percorsoAggiornatore();
    const bool avviato = mezzi.avvia ? mezzi.avvia(programma) : avviaProgramma(programma);
    if (!avviato) {
        avverti(TitoloImpossibile, u"Il Programma di Aggiornamento Non Si Può Avviare:\n%1"_s.arg(programma));
        return;
    }
    if (mezzi.termina) {
        mezzi.termina();
    } else {
        terminaProcesso();
    }
}

}  // namespace

Versione versioneProgramma() {
    const QStringList numeri = QStringLiteral(VELMORA_VERSIONE).split(u'.');
    Versione versione{};
    for (qsizetype i = 0; i < qMin<qsizetype>(numeri.size(), 3); ++i)
        versione.at(i) = numeri.at(i).toInt();
    return versione;
}

QString testoVersione(const Versione& versione) {
    return u"%1.%2.%3"_s.arg(versione[0]).arg(versione[1]).arg(versione[2]);
}

Versione leggiVersione(const QString& percorso) {
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw Errore(u"Il file %1 non si può leggere (%2)."_s.arg(percorso, file.errorString()));
    Versione versione{};
    for (std::size_t riga = 0; !file.atEnd(); ++riga) {
        if (riga == versione.size()) {
            throw Errore(
                u"Il server di aggiornamento ha risposto con un file di versione non valido:\n"
                "il file ha più di tre righe."_s);
        }
        versione.at(riga) = file.readLine().trimmed().toInt();
    }
    return versione;
}

bool versioneNuova(const Versione& remota, const Versione& locale) {
    return locale[0] < remota[0] || locale[1] < remota[1] || locale[2] < remota[2];
}

QString percorsoAggiornatore() {
    return percorsoNelProgramma(NomeAggiornatore.toString());
}

void aggiornaSoftware(const MezziAggiornamento& mezzi) {
    const QString percorso = percorsoNelProgramma(u"vlmver.txt"_s);
    togliFilePrecedente(percorso);
    switch (mezzi.scarica(percorso)) {
        case EsitoScarico::Annullato:
            return;
        case EsitoScarico::Fallito:
            avverti(TitoloImpossibile,
                    u"La Connessione ad Internet Potrebbe Essere non Disponibile\n"
                    "Oppure il Server di Aggiornamento è Momentaneamente Irraggiungibile"_s);
            return;
        case EsitoScarico::Riuscito:
            break;
    }
    const Versione remota = leggiVersione(percorso);
    if (!versioneNuova(remota, versioneProgramma())) {
        Dialoghi::corrente().messaggio(u"Aggiornamento non Necessario"_s,
                                       u"Il Software è Già Aggiornato all'Ultima Versione Disponibile"_s,
                                       Icona::Informazione);
        return;
    }
    if (chiediSeInstallare(remota))
        passaAllAggiornatore(mezzi);
}

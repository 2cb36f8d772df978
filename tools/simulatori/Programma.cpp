#include "simulatori/Programma.h"

#include <unistd.h>
#include <array>
#include <cstdio>
#include <QCoreApplication>
#include <QFile>
#include <QSocketNotifier>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimaPorta = 9;

}  // namespace

OpzioniSimulatore::OpzioniSimulatore(const QString& aiuto, const QList<RigaDiComando::Opzione>& proprie)
    : m_righe(
          QCoreApplication::arguments().sliced(1), aiuto + QString::fromUtf8(AiutoCopione),
          QList<RigaDiComando::Opzione>{{u"programma"_s, true, u"."_s}, {u"com"_s, true, u"1"_s}} + proprie,
          {0, 1}) {
    if (porta() < 1 || porta() > MassimaPorta)
        RigaDiComando::rifiuta(u"--com: un numero da 1 a %1"_s.arg(MassimaPorta));
}

int fallisci(const QString& testo) {
    std::fprintf(stderr, "%s\n", qUtf8Printable(testo));
    return 2;
}

void scriviRiga(const QString& testo) {
    std::printf("%s\n", qUtf8Printable(testo));
    std::fflush(stdout);
}

int recita(Copione& copione, const OpzioniSimulatore& opzioni) {
    const bool daTastiera = opzioni.copione().isEmpty();
    if (!daTastiera) {
        QFile file(opzioni.copione());
        if (!file.open(QIODevice::ReadOnly))
            return fallisci(u"Il copione %1 non si può leggere."_s.arg(opzioni.copione()));
        copione.aggiungi(QString::fromUtf8(file.readAll()));
    }

    int codice = 0;
    QObject::connect(&copione, &Copione::errore, &copione, [&](int riga, const QString& testo) {
        fallisci(u"riga %1: %2"_s.arg(riga).arg(testo));
        codice = 1;
    });
    QObject::connect(&copione, &Copione::fine, &copione, [&] { QCoreApplication::exit(codice); });

    // The keyboard gives the commands, or, beside a script, the Enter that it waits for.
    QSocketNotifier tastiera(STDIN_FILENO, QSocketNotifier::Read);
    QByteArray scritto;
    QObject::connect(&tastiera, &QSocketNotifier::activated, &copione, [&] {
        std::array<char, 1024> blocco;
        const ssize_t letti = read(STDIN_FILENO, blocco.data(), blocco.size());
        if (letti <= 0) {
            tastiera.setEnabled(false);
            return;
        }
        scritto.append(blocco.data(), letti);
        for (qsizetype fine = scritto.indexOf('\n'); fine >= 0; fine = scritto.indexOf('\n')) {
            if (daTastiera)
                copione.aggiungi(QString::fromUtf8(scritto.left(fine)));
            copione.invioPremuto();
            scritto.remove(0, fine + 1);
        }
    });
    return QCoreApplication::exec();
}

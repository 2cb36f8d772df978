#include "archive/ErroreArchivio.h"
#include "shell/AggiornamentoSoftware.h"
#include "Verifica.h"

#include <sys/mman.h>
#include <unistd.h>
#include <algorithm>
#include <limits>
#include <optional>
#include <QList>

namespace {

// A file that lives in memory alone.
int fileInMemoria() {
    const int file = memfd_create("vlmver", 0);
    verifica(file >= 0, "the system gives a file");
    return file;
}

int valore(QByteArrayView riga) {
    const bool negativo = riga.startsWith('-');
    if (negativo || riga.startsWith('+'))
        riga = riga.sliced(1);
    qint64 numero = 0;
    for (const char c : riga) {
        if (c < '0' || c > '9')
            return 0;
        numero = std::min<qint64>(numero * 10 + (c - '0'), qint64{1} << 32);
    }
    numero = negativo ? -numero : numero;
    return numero < std::numeric_limits<int>::min() || numero > std::numeric_limits<int>::max()
               ? 0
               : static_cast<int>(numero);
}

}  // namespace

// A number a line, three at most; what is no number counts 0.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t lunghezza) {
    static const int file = fileInMemoria();
    verifica(ftruncate(file, 0) == 0 && pwrite(file, dati, lunghezza, 0) == static_cast<ssize_t>(lunghezza),
             "the file can be written");
    std::optional<Versione> letta;
    try {
        letta = leggiVersione(QStringLiteral("/proc/self/fd/%1").arg(file));
    } catch (const Errore& errore) {
        verifica(!errore.testo().isEmpty(), "a refusal says why");
    }
    QByteArray testo = ingresso(dati, lunghezza).toByteArray();
    testo.replace("\r\n", "\n");
    if (testo.endsWith('\n'))
        testo.chop(1);
    const QList<QByteArray> righe = lunghezza == 0 ? QList<QByteArray>() : testo.split('\n');
    verifica(letta.has_value() == (righe.size() <= 3), "a fourth line, and it alone, is refused");
    if (!letta)
        return 0;
    verifica(!testoVersione(*letta).isEmpty(), "a version has its text");
    for (qsizetype i = 0; i < 3; ++i) {
        // How a lone return, or a character without a face, is read is the library's own affair.
        const QByteArray riga = righe.value(i).trimmed();
        const bool semplice =
            std::all_of(riga.begin(), riga.end(), [](char c) { return c > ' ' && c < 127; });
        verifica(!semplice || righe.value(i).contains('\r') || letta->at(i) == valore(riga),
                 "a line is its number");
    }
    return 0;
}

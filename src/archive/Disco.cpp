#include "archive/Disco.h"

#include <filesystem>
#include <QFileInfo>
#include <system_error>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#include <QFile>
#endif

void sincronizzaCartella([[maybe_unused]] const QString& cartella) {
#ifdef Q_OS_UNIX
    const int descrittore = ::open(QFile::encodeName(cartella).constData(), O_RDONLY | O_DIRECTORY);
    if (descrittore < 0)
        return;
    ::fsync(descrittore);
    ::close(descrittore);
#endif
}

bool sostituisciFile(const QString& nuovo, const QString& percorso) {
    std::error_code errore;
    std::filesystem::rename(nuovo.toStdU16String(), percorso.toStdU16String(), errore);
    if (errore)
        return false;
    sincronizzaCartella(QFileInfo(percorso).path());
    return true;
}

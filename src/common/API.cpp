#include "common/API.h"

#include "archive/ErroreArchivio.h"

#include <cerrno>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <system_error>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr qintptr NessunFile = -1;

[[noreturn]] void nonSiSa(const QString& percorso, int errore) {
    throw Errore(
        u"Non si può sapere se VLM è già in esecuzione: il file\n%1\nnon si può bloccare (%2).\n\n"
        "Se nessun altro usa il programma, controllare i permessi del file e della sua cartella."_s.arg(
            percorso, QString::fromStdString(std::system_category().message(errore))));
}

#ifdef Q_OS_WIN

// A handle that shares the file with no one is the lock itself.
qintptr apriDaSolo(const QString& percorso, bool& occupato) {
    const HANDLE file = ::CreateFileW(reinterpret_cast<LPCWSTR>(percorso.utf16()), GENERIC_READ, 0, nullptr,
                                      OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE)
        return reinterpret_cast<qintptr>(file);
    const DWORD errore = ::GetLastError();
    occupato = errore == ERROR_SHARING_VIOLATION;
    if (!occupato)
        nonSiSa(percorso, static_cast<int>(errore));
    return NessunFile;
}

void chiudi(qintptr file) {
    ::CloseHandle(reinterpret_cast<HANDLE>(file));
}

#else

qintptr apriDaSolo(const QString& percorso, bool& occupato) {
    const QByteArray nome = QFile::encodeName(percorso);
    constexpr int Modo = O_CREAT | O_CLOEXEC | O_NONBLOCK;
    constexpr mode_t Permessi = 0644;
    int file = ::open(nome.constData(), O_RDWR | Modo, Permessi);
    if (file < 0 && (errno == EACCES || errno == EROFS))
        file = ::open(nome.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);  // another user's is lock enough
    if (file < 0)
        nonSiSa(percorso, errno);
    if (::flock(file, LOCK_EX | LOCK_NB) == 0)
        return file;
    const int errore = errno;
    ::close(file);
    occupato = errore == EWOULDBLOCK;
    if (!occupato)
        nonSiSa(percorso, errore);
    return NessunFile;
}

void chiudi(qintptr file) {
    ::close(static_cast<int>(file));
}

#endif

}  // namespace

IstanzaUnica::IstanzaUnica(const QString& cartella) : m_percorso(cartella + u"/vlm.lock"_s) {}

IstanzaUnica::~IstanzaUnica() {
    // The file stays: one that was taken away under a starting instance would let two of them in.
    if (m_file != NessunFile)
        chiudi(m_file);
}

bool IstanzaUnica::acquisisci() {
    bool occupato = false;
    if (m_file == NessunFile)
        m_file = apriDaSolo(m_percorso, occupato);
    return !occupato;
}

QStringList strumentoInformazioniSistema() {
#ifdef Q_OS_WIN
    const QSettings info(u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"_s,
                         QSettings::NativeFormat);
    if (const QString percorso = info.value(u"PATH"_s).toString(); !percorso.isEmpty())
        return {percorso};
    const QSettings posizione(u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools Location"_s,
                              QSettings::NativeFormat);
    if (const QString cartella = posizione.value(u"MSINFO"_s).toString(); !cartella.isEmpty())
        return {cartella + u"\\MSINFO32.EXE"_s};
    return {};
#else
    const QList<QStringList> strumenti{
        {u"kinfocenter"_s},
        {u"gnome-control-center"_s, u"info-overview"_s},
        {u"hardinfo"_s},
        {u"mate-system-monitor"_s, u"--show-system-tab"_s},
    };
    for (QStringList strumento : strumenti) {
        const QString percorso = QStandardPaths::findExecutable(strumento.constFirst());
        if (percorso.isEmpty())
            continue;
        strumento.first() = percorso;
        return strumento;
    }
    return {};
#endif
}

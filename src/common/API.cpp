#include "common/API.h"

#include "archive/ErroreArchivio.h"

#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

IstanzaUnica::IstanzaUnica(const QString& cartella) : m_blocco(cartella + u"/vlm.lock"_s) {
    // Stale only when its process is gone: never by age, an event lasts for days.
    m_blocco.setStaleLockTime(0);
}

bool IstanzaUnica::acquisisci() {
    if (m_blocco.tryLock(0))
        return true;
    if (m_blocco.error() == QLockFile::LockFailedError)
        return false;
    throw Errore(u"La cartella del programma non si può scrivere:\n%1"_s.arg(m_blocco.fileName()));
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

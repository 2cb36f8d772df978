#include "simulatori/PseudoTerminale.h"

#include "archive/ErroreArchivio.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

// Short, since everything that comes and goes is found by asking: a hung-up line would wake a notifier
// without end.
constexpr int OgniQuanto = 2;  // milliseconds

}  // namespace

PseudoTerminale::PseudoTerminale(const QString& cartellaProgramma, int numero) {
    const QDir cartella(cartellaProgramma);
    if (!cartella.exists() || !cartella.mkpath(u"porte"_s))
        throw Errore(u"La cartella %1 non c'è o non si può scrivere."_s.arg(cartellaProgramma));
    m_collegamento = cartella.absoluteFilePath(u"porte/com%1"_s.arg(numero));
    if (QFileInfo::exists(m_collegamento) && !QFileInfo(m_collegamento).isSymLink())
        throw Errore(u"%1 esiste e non è un collegamento: non viene toccato."_s.arg(m_collegamento));
    attacca();
    connect(&m_giro, &QTimer::timeout, this, &PseudoTerminale::giro);
    m_giro.start(OgniQuanto);
}

PseudoTerminale::~PseudoTerminale() {
    stacca();
    if (QFile::symLinkTarget(m_collegamento) == dispositivoAssente())
        QFile::remove(m_collegamento);
}

void PseudoTerminale::attacca() {
    if (attaccato())
        return;
    const int padrone = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    std::array<char, 64> nome{};
    if (padrone < 0 || grantpt(padrone) != 0 || unlockpt(padrone) != 0 ||
        ptsname_r(padrone, nome.data(), nome.size()) != 0) {
        if (padrone >= 0)
            close(padrone);
        throw Errore(u"Il sistema non concede uno pseudo-terminale."_s);
    }
    // Until the other end has been opened once, the system does not tell an open line from a closed one.
    if (const int altro = open(nome.data(), O_RDWR | O_NOCTTY | O_CLOEXEC); altro >= 0)
        close(altro);
    m_dispositivo = QString::fromLocal8Bit(nome.data());
    if (QFileInfo(m_collegamento).isSymLink())
        QFile::remove(m_collegamento);
    if (!QFile::link(m_dispositivo, m_collegamento)) {
        close(padrone);
        throw Errore(u"Il collegamento %1 non si può creare."_s.arg(m_collegamento));
    }
    m_padrone = padrone;
}

void PseudoTerminale::stacca() {
    if (!attaccato())
        return;
    close(m_padrone);
    m_padrone = -1;
    m_uscita.clear();
    segna(false);
    // The system soon gives the device's name to somebody else's terminal: the link must not lead there.
    if (QFile::symLinkTarget(m_collegamento) == m_dispositivo) {
        QFile::remove(m_collegamento);
        QFile::link(dispositivoAssente(), m_collegamento);
    }
}

QString PseudoTerminale::dispositivoAssente() const {
    return m_dispositivo + u"-staccato"_s;
}

bool PseudoTerminale::aperto() const {
    if (!attaccato())
        return false;
    pollfd stato{m_padrone, POLLIN, 0};
    return poll(&stato, 1, 0) >= 0 && (stato.revents & POLLHUP) == 0;
}

qint64 PseudoTerminale::apertoDa() const {
    return m_apertura.isValid() ? m_apertura.elapsed() : -1;
}

void PseudoTerminale::segna(bool aperta) {
    if (m_apertura.isValid() == aperta)
        return;
    if (aperta) {
        m_apertura.start();
    } else {
        m_apertura.invalidate();
    }
    Q_EMIT cambiata(aperta);
}

QString PseudoTerminale::formato() const {
    termios linea{};
    if (!attaccato() || tcgetattr(m_padrone, &linea) != 0)
        return {};
    const bool piana = (linea.c_cflag & CSIZE) == CS8 && (linea.c_cflag & (PARENB | CSTOPB | CRTSCTS)) == 0 &&
                       (linea.c_iflag & (IXON | IXOFF)) == 0 && (linea.c_lflag & (ICANON | ECHO)) == 0;
    const speed_t velocita = cfgetospeed(&linea);
    if (!piana || (velocita != B9600 && velocita != B19200))
        return {};
    return velocita == B9600 ? u"9600 8N1"_s : u"19200 8N1"_s;
}

void PseudoTerminale::scrivi(const QByteArray& dati) {
    if (!aperto())
        return;
    m_uscita += dati;
    svuotaUscita();
}

void PseudoTerminale::svuotaUscita() {
    while (!m_uscita.isEmpty()) {
        const ssize_t scritti = write(m_padrone, m_uscita.constData(), static_cast<size_t>(m_uscita.size()));
        if (scritti <= 0)
            return;  // the line is full: the rest goes in the next rounds
        m_uscita.remove(0, scritti);
    }
}

void PseudoTerminale::giro() {
    if (!attaccato())
        return;
    std::array<char, 4096> blocco;
    QByteArray dati;
    for (;;) {
        const ssize_t letti = read(m_padrone, blocco.data(), blocco.size());
        if (letti <= 0)
            break;
        dati.append(blocco.data(), letti);
    }
    if (!aperto()) {
        m_uscita.clear();
        segna(false);
    } else {
        segna(true);
        svuotaUscita();
    }
    if (!dati.isEmpty())
        Q_EMIT arrivati(dati);
}

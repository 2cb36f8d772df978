#include "simulatori/Copione.h"

#include <QDeadlineTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int OgniQuanto = 2;  // milliseconds
// A program that has just opened its port still throws away what had come before.
constexpr qint64 AperturaStabile = 100;  // milliseconds

}  // namespace

Copione::Copione(PseudoTerminale& linea, Esecutore esecutore)
    : m_linea(linea), m_esecutore(std::move(esecutore)) {
    connect(&m_giro, &QTimer::timeout, this, &Copione::giro);
    connect(this, &Copione::aggiunte, this, &Copione::giro, Qt::QueuedConnection);
    m_giro.start(OgniQuanto);
}

void Copione::aggiungi(const QString& righe) {
    m_righe << righe.split(u'\n');
    // Before anything that has come on the line is looked at.
    Q_EMIT aggiunte(QPrivateSignal());
}

void Copione::giro() {
    while (true) {
        if (m_attesa) {
            if (!m_attesa())
                return;
            m_attesa = nullptr;
        }
        if (m_righe.isEmpty())
            return;
        ++m_numeroRiga;
        esegui(m_righe.takeFirst());
    }
}

void Copione::esegui(const QString& riga) {
    const QString pulita = riga.trimmed();
    if (pulita.isEmpty() || pulita.startsWith(u'#'))
        return;
    Comando comando{pulita.section(u' ', 0, 0).toLower(), pulita.section(u' ', 1).trimmed()};
    const QString difetto = esegui(comando);
    m_attesa = comando.finche;
    if (!difetto.isEmpty())
        Q_EMIT errore(m_numeroRiga, difetto);
}

QString Copione::esegui(Comando& comando) {
    if (comando.nome == "stacca"_L1) {
        m_linea.stacca();
    } else if (comando.nome == "attacca"_L1) {
        m_linea.attacca();
    } else if (comando.nome == "fine"_L1) {
        m_righe.clear();
        Q_EMIT fine();
    } else if (comando.nome == "attendi"_L1) {
        return attendi(comando);
    } else {
        return m_esecutore(comando);
    }
    return {};
}

QString Copione::attendi(Comando& comando) {
    if (comando.resto == "apertura"_L1) {
        comando.finche = [this] { return m_linea.apertoDa() >= AperturaStabile; };
    } else if (comando.resto == "chiusura"_L1) {
        comando.finche = [this] { return !m_linea.aperto(); };
    } else if (comando.resto == "invio"_L1) {
        comando.finche = [this, prima = m_invii] { return m_invii > prima; };
    } else {
        bool letto = false;
        const int millisecondi = comando.resto.toInt(&letto);
        if (!letto || millisecondi < 0)
            return m_esecutore(comando);
        comando.finche = [scadenza = QDeadlineTimer(millisecondi)] { return scadenza.hasExpired(); };
    }
    return {};
}

std::optional<QByteArray> leggiByte(const QString& testo) {
    QByteArray byte;
    for (qsizetype i = 0; i < testo.size(); ++i) {
        if (testo[i] != u'\\') {
            byte += testo[i].toLatin1();
            continue;
        }
        if (++i == testo.size())
            return std::nullopt;
        bool letto = true;
        switch (testo[i].unicode()) {
            case u'r':
                byte += '\r';
                break;
            case u'n':
                byte += '\n';
                break;
            case u't':
                byte += '\t';
                break;
            case u'\\':
                byte += '\\';
                break;
            case u'x':
                byte += static_cast<char>(testo.mid(i + 1, 2).toInt(&letto, 16));
                i += 2;
                break;
            default:
                letto = false;
        }
        if (!letto)
            return std::nullopt;
    }
    return byte;
}

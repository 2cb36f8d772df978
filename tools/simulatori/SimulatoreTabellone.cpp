#include "simulatori/SimulatoreTabellone.h"

namespace {

constexpr char Inizio = 2;
constexpr char Indirizzo = 17;
constexpr char Fine = 3;
constexpr qsizetype LunghezzaFrame = 9;
constexpr qsizetype PrimaPosizione = 2;
constexpr qsizetype Posizioni = 6;

QString leggibile(QByteArrayView posizioni) {
    QString testo;
    for (const char c : posizioni) {
        testo += QChar::fromLatin1(static_cast<char>(c & 0x7F));
        if ((c & 0x80) != 0)
            testo += u'.';
    }
    return testo;
}

bool punto(QChar c) {
    return c == u'.' || c == u',';
}

// What a seven-segment position can show of a character.
QChar segmenti(QChar c) {
    static constexpr QStringView Propri = u"'-.0123456789ACEFHILNPU";
    static constexpr QStringView Simili = u",BOSZDR";
    static constexpr QStringView Come = u".8052dr";
    const QChar maiuscola = c.toUpper();
    if (const qsizetype simile = Simili.indexOf(maiuscola); simile >= 0)
        return Come[simile];
    return Propri.contains(maiuscola) ? maiuscola : QChar(u' ');
}

}  // namespace

SimulatoreTabellone::SimulatoreTabellone(PseudoTerminale& linea) {
    connect(&linea, &PseudoTerminale::arrivati, this, &SimulatoreTabellone::ricevi);
}

QString SimulatoreTabellone::comeAppare(const QString& testo) {
    QString appare;
    qsizetype posizioni = 0;
    for (qsizetype i = 0; i < testo.size() && posizioni < Posizioni; ++i, ++posizioni) {
        appare += segmenti(testo[i]);
        if (!punto(testo[i]) && i + 1 < testo.size() && punto(testo[i + 1])) {
            appare += u'.';
            ++i;
        }
    }
    return appare + QString(Posizioni - posizioni, u' ');
}

void SimulatoreTabellone::ricevi(const QByteArray& dati) {
    m_ingresso += dati;
    while (m_ingresso.size() >= LunghezzaFrame) {
        if (m_ingresso[0] != Inizio || m_ingresso[1] != Indirizzo || m_ingresso[LunghezzaFrame - 1] != Fine) {
            ++m_errati;
            const qsizetype inizio = m_ingresso.indexOf(Inizio, 1);
            m_ingresso.remove(0, inizio < 0 ? m_ingresso.size() : inizio);
            continue;
        }
        m_mostra = leggibile(QByteArrayView(m_ingresso).sliced(PrimaPosizione, Posizioni));
        m_ingresso.remove(0, LunghezzaFrame);
        m_mostrati << m_mostra;
        Q_EMIT cambiato(m_mostra);
    }
}

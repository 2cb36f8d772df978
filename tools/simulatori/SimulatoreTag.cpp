#include "simulatori/SimulatoreTag.h"

#include <numeric>
#include <random>

using namespace Qt::StringLiterals;

// Everything here is made from the protocol's description, and nothing by the program's own functions: what
// one of them does wrong is not done wrong here as well.

namespace {

// What stands where a record may hold anything: whatever a reader that looks a place too far would trip over,
// but for the end of the line.
QByteArray riempitivo(Dispositivo dispositivo, qsizetype lunghezza) {
    const QByteArray qualsiasi = dispositivo == Dispositivo::CP520 ? "9#T\nA:7.\xE8" : "9#A\rT:7.\xE8";
    return qualsiasi.repeated(lunghezza / qualsiasi.size() + 1).first(lunghezza);
}

// A line with a text at each 1-based position.
QByteArray riga(Dispositivo dispositivo, qsizetype lunghezza,
                std::initializer_list<std::pair<qsizetype, QByteArray>> campi) {
    QByteArray testo = riempitivo(dispositivo, lunghezza);
    for (const auto& [posizione, campo] : campi)
        testo.replace(posizione - 1, campo.size(), campo);
    return testo;
}

QByteArray dueCifre(int valore) {
    return QByteArray::number(valore).rightJustified(2, '0');
}

// A frame of the TAG CP540: its text, TAB, the sum of the text in four hexadecimal digits, CR, LF.
QByteArray frame(const QByteArray& testo) {
    const int somma = std::accumulate(testo.begin(), testo.end(), 0);
    return testo + u"\t%1\r\n"_s.arg(somma, 4, 16, QChar(u'0')).toUpper().toLatin1();
}

}  // namespace

SimulatoreTag::SimulatoreTag(Dispositivo dispositivo, PseudoTerminale& linea)
    : m_dispositivo(dispositivo), m_linea(linea) {
    connect(&linea, &PseudoTerminale::arrivati, this, &SimulatoreTag::ricevi);
    connect(&m_cadenza, &QTimer::timeout, this, &SimulatoreTag::prossimoPezzo);
}

QByteArray SimulatoreTag::framePartenza(Dispositivo dispositivo) {
    if (dispositivo == Dispositivo::CP520)
        return riga(dispositivo, 31, {{1, "A"}, {16, "00:00:00.00"}, {31, "\r"}});
    return riga(dispositivo, 43, {{1, "T"}, {16, "        0.00000"}, {43, "\n"}});
}

QByteArray SimulatoreTag::frameTempo(Dispositivo dispositivo, int centesimi) {
    const QByteArray minuti = dueCifre(centesimi / 6000);
    const QByteArray secondi = dueCifre(centesimi / 100 % 60) + '.' + dueCifre(centesimi % 100);
    if (dispositivo == Dispositivo::CP520) {
        return riga(dispositivo, 31, {{1, "T"}, {16, "00:" + minuti + ':' + secondi}, {31, "\r"}}) +
               riga(dispositivo, 31, {{31, "\r"}});
    }
    return riga(dispositivo, 43, {{1, "T"}, {20, minuti + ':' + secondi + "000"}, {43, "\n"}}) +
           riga(dispositivo, 37, {{37, "\n"}});
}

QByteArray SimulatoreTag::rigaMemoria(Dispositivo dispositivo, int numero, QTime ora) {
    const QByteArray num =
        numero == 0 ? QByteArray(4, ' ') : QByteArray::number(numero).rightJustified(4, ' ');
    const QByteArray centesimi = ora.toString(u"hh:mm:ss."_s).toLatin1() + dueCifre(ora.msec() / 10);
    if (dispositivo == Dispositivo::CP520)
        return riga(dispositivo, 31, {{1, "T"}, {8, num}, {16, centesimi}, {31, "\r"}});
    return riga(dispositivo, 34, {{1, "A"}, {4, num}, {17, centesimi + "000"}, {34, "\n"}});
}

void SimulatoreTag::partenza() {
    invia(framePartenza(m_dispositivo));
}

void SimulatoreTag::tempo(int centesimi) {
    invia(frameTempo(m_dispositivo, centesimi));
}

void SimulatoreTag::registra(int numero, QTime ora) {
    registraRiga(rigaMemoria(m_dispositivo, numero, ora));
}

void SimulatoreTag::registraRiga(const QByteArray& testo) {
    m_memoria[m_manche] << testo;
}

void SimulatoreTag::trasmetti() {
    QByteArray dati;
    for (const QList<QByteArray>& manche : std::as_const(m_memoria))
        dati += manche.join();
    invia(dati.left(m_taglio.value_or(dati.size())));
}

void SimulatoreTag::spezza(qsizetype byte, int millisecondi) {
    m_pezzo = byte;
    m_cadenza.setInterval(millisecondi);
    if (byte == 0) {
        m_cadenza.stop();
        m_linea.scrivi(std::exchange(m_uscita, {}));
    }
}

void SimulatoreTag::fineIncolla() {
    m_incolla = false;
    invia(std::exchange(m_incollati, {}));
}

void SimulatoreTag::invia(const QByteArray& dati) {
    if (m_incolla) {
        m_incollati += dati;
    } else if (m_pezzo == 0) {
        m_linea.scrivi(dati);
    } else {
        m_uscita += dati;
        if (!m_cadenza.isActive())
            m_cadenza.start();
    }
}

void SimulatoreTag::prossimoPezzo() {
    m_linea.scrivi(m_uscita.left(m_pezzo));
    m_uscita.remove(0, m_pezzo);
    if (m_uscita.isEmpty())
        m_cadenza.stop();
}

void SimulatoreTag::disturbo(int byte) {
    std::mt19937 caso(m_seme++);
    QByteArray dati(byte, '\0');
    for (char& c : dati)
        c = static_cast<char>(caso() & 0xFF);
    invia(dati);
}

void SimulatoreTag::ricevi(const QByteArray& dati) {
    m_ingresso += dati;
    for (qsizetype fine = m_ingresso.indexOf("\r\n"); fine >= 0; fine = m_ingresso.indexOf("\r\n")) {
        const QByteArray comando = m_ingresso.left(fine);
        m_ingresso.remove(0, fine + 2);
        m_comandi << comando;
        if (m_dispositivo == Dispositivo::CP540 && !m_muto)
            rispondi(comando);
    }
}

void SimulatoreTag::rispondi(const QByteArray& comando) {
    constexpr QByteArrayView Scarica("#DL_");
    if (comando == "#ID\t") {
        invia(riempitivo(m_dispositivo, 3) + m_serie.leftJustified(5, u' ', true).toLatin1() +
              riempitivo(m_dispositivo, 20) + frame("AK C"));
    } else if (comando.startsWith(Scarica) && comando.endsWith('\t')) {
        inviaManche(comando.sliced(Scarica.size()).chopped(1));
    }
}

void SimulatoreTag::inviaManche(const QByteArray& manche) {
    const int numero = manche.toInt();
    if (!m_memoria.contains(numero)) {
        invia(frame("AK F"));
        return;
    }
    // Two lines of head, such as would pass for passages.
    const QByteArray testata = "A#T   1#TAG:.T#A12:34:56.78901\r\n";
    const QByteArray dati = frame("AK C") + testata + testata + m_memoria.value(numero).join() +
                            frame("DE " + dueCifre(m_coda.value_or(numero)));
    invia(dati.left(m_taglio.value_or(dati.size())));
}

#include "devices/Tabellone.h"

#include "devices/Porta.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr char Inizio = 2;
constexpr char Indirizzo = 17;
constexpr char Fine = 3;
constexpr char Spento = ' ';
constexpr int Punto = 128;

bool punto(QChar c) {
    return c == u'.' || c == u',';
}

char codice(QChar c) {
    static constexpr QStringView Caratteri = u"'-.,0123456789ABCDEFHILNOPRSUZ";
    static constexpr char Codici[] = "'-..0123456789A8CdEFHILN0Pr5U2";
    static_assert(Caratteri.size() + 1 == sizeof(Codici));
    const qsizetype posizione = Caratteri.indexOf(c.toUpper());
    return posizione < 0 ? Spento : Codici[posizione];
}

}  // namespace

QByteArray frameTabellone(QStringView testo) {
    QByteArray frame;
    frame += Inizio;
    frame += Indirizzo;
    int scritte = 0;
    for (qsizetype i = 0; i < testo.size() && scritte < PosizioniTabellone; ++i, ++scritte) {
        int byte = static_cast<unsigned char>(codice(testo[i]));
        if (!punto(testo[i]) && i + 1 < testo.size() && punto(testo[i + 1])) {
            byte += Punto;
            ++i;
        }
        frame += static_cast<char>(byte);
    }
    return frame.append(PosizioniTabellone - scritte, Spento) + Fine;
}

bool InviaTabellone(Porta& porta, QStringView testo) {
    const bool perMessaggio = !porta.aperta();
    if (perMessaggio && !porta.apri())
        return false;
    const bool scritto = porta.scrivi(frameTabellone(testo));
    return (!perMessaggio || porta.chiudi()) && scritto;
}

bool AzzeraTabellone(Porta& porta) {
    return InviaTabellone(porta, QStringView());
}

QString tabellonePronto(int numero) {
    return u"PAR"_s + QString::number(numero).rightJustified(3);
}

QString tabellonePartito(int numero) {
    return u"IN"_s + QString::number(numero).rightJustified(4);
}

QString tabelloneParziale(int centesimi, const QString& precisione) {
    const int valore = std::abs(centesimi);  // an elapsed time may be less than the one before it
    QString testo;
    if (precisione == "SEC"_L1) {
        testo = QString::number(valore / 100);
    } else if (precisione == "DEC"_L1) {
        testo = u"%1.%2"_s.arg(valore / 100).arg(valore % 100 / 10);
    } else if (precisione == "CEN"_L1) {
        testo = u"%1.%2"_s.arg(valore / 100).arg(valore % 100, 2, 10, QChar(u'0'));
    }
    if (centesimi < 0 && !testo.isEmpty())
        testo.prepend(u'-');
    return testo.rightJustified(7);
}

QString tabellonePenalita(const QString& penalita) {
    return u"P"_s + penalita.rightJustified(5);
}

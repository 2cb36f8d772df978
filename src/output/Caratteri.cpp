#include "output/Caratteri.h"

#include <algorithm>
#include <cmath>
#include <QPainter>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// Layout units per point: fonts are sized in whole units, and so to a tenth of a point.
constexpr double UnitaPerPunto = 10;
constexpr double PuntiAlPollice = 72;
constexpr double Tolleranza = 1e-6;     // of a size that was worked out
constexpr qsizetype RigheMassime = 24;  // far above what the longest text of a field needs

int decimiDi(double corpo) {
    return static_cast<int>(std::floor(corpo * UnitaPerPunto + Tolleranza));
}

QFont componiFont(int decimi, bool grassetto) {
    QFont font;
    font.setFamilies({u"DejaVu Sans Condensed"_s, u"Arial"_s, u"DejaVu Sans"_s});
    font.setPixelSize(decimi);
    font.setBold(grassetto);
    // So that a text is as wide as its signs together, on every device.
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::ForceOutline);
    return font;
}

// The pieces between which a line may break, each with what follows it.
QStringList parole(const QString& testo) {
    static const QRegularExpression pezzo(uR"([^ \-/]*[\-/]+ *|[^ \-/]+ *| +)"_s);
    QStringList pezzi;
    for (auto trovato = pezzo.globalMatch(testo); trovato.hasNext();)
        pezzi << trovato.next().captured();
    return pezzi;
}

}  // namespace

Carattere::Carattere(int decimi, bool grassetto)
    : m_corpo(decimi / UnitaPerPunto),
      m_font(componiFont(decimi, grassetto)),
      m_misure(m_font),
      m_ascesa(m_misure.ascent() / UnitaPerPunto) {
    m_avanzi.fill(-1);
}

double Carattere::larghezzaSegno(QChar segno) const {
    float& avanzo = m_avanzi[segno.unicode()];
    if (avanzo < 0)
        avanzo = static_cast<float>(m_misure.horizontalAdvance(segno) / UnitaPerPunto);
    return static_cast<double>(avanzo);
}

double Carattere::larghezza(QStringView testo) const {
    double totale = 0;
    for (const QChar segno : testo) {
        if (segno.unicode() >= m_avanzi.size())
            return m_misure.horizontalAdvance(testo.toString()) / UnitaPerPunto;
        totale += larghezzaSegno(segno);
    }
    return totale;
}

QString Carattere::accorcia(const QString& testo, double spazio) const {
    return m_misure.elidedText(testo, Qt::ElideRight, spazio * UnitaPerPunto);
}

double Carattere::parolaPiuLunga(const QString& testo) const {
    double massima = 0;
    for (const QString& parola : parole(testo))
        massima = std::max(massima, larghezza(QStringView(parola).trimmed()));
    return massima;
}

QStringList Carattere::spezza(const QString& testo, double spazio) const {
    QStringList righe;
    QString riga;
    const auto chiudi = [&] {
        if (const QString finita = std::exchange(riga, {}).trimmed(); !finita.isEmpty())
            righe << finita;
    };
    for (QString parola : parole(testo)) {
        if (larghezza(QString(riga + parola).trimmed()) <= spazio) {
            riga += parola;
            continue;
        }
        chiudi();
        while (larghezza(QStringView(parola).trimmed()) > spazio && parola.size() > 1) {
            qsizetype quanti = 1;
            while (larghezza(QStringView(parola).left(quanti + 1)) <= spazio)
                ++quanti;
            quanti += parola.at(quanti).isLowSurrogate() ? 1 : 0;
            righe << parola.left(quanti);
            parola.remove(0, quanti);
        }
        riga = parola;
    }
    chiudi();
    return righe;
}

const Carattere& Caratteri::carattere(double corpo, bool grassetto) {
    const int decimi = std::max(decimiDi(corpo), 1);
    auto& posto = m_caratteri[{decimi, grassetto}];
    if (!posto)
        posto = std::make_shared<const Carattere>(decimi, grassetto);
    return *posto;
}

// The largest size, from `minimo` of the font's own up, at which a text is one line; none when there is none.
const Carattere* Caratteri::misuraUnaRiga(const QString& testo, double spazio, const Carattere& intero,
                                          double minimo) {
    const double larghezza = intero.larghezza(testo);
    if (larghezza <= spazio)
        return &intero;
    const int minimi = decimiDi(intero.corpo() * minimo);
    for (int decimi = decimiDi(intero.corpo() * spazio / larghezza); decimi >= minimi; --decimi) {
        const Carattere& ridotto = carattere(decimi / UnitaPerPunto, intero.font().bold());
        if (ridotto.larghezza(testo) <= spazio)
            return &ridotto;
    }
    return nullptr;
}

TestoAdatto Caratteri::suUnaRiga(const QString& testo, double spazio, const Carattere& intero,
                                 double minimo) {
    if (const Carattere* adatto = misuraUnaRiga(testo, spazio, intero, minimo))
        return {adatto, {testo}};
    const Carattere& ridotto = carattere(intero.corpo() * minimo, intero.font().bold());
    return {&ridotto, {ridotto.accorcia(testo, spazio)}};
}

TestoAdatto Caratteri::adatta(const QString& testo, double spazio, const Carattere& intero, double minimo,
                              qsizetype righe) {
    if (const Carattere* adatto = testo.isEmpty() ? &intero : misuraUnaRiga(testo, spazio, intero, minimo))
        return {adatto, {testo}};
    const Carattere* ultimo = &intero;
    for (const double scala : {1.0, 0.92, 0.84, 0.76, 0.7}) {
        ultimo = &carattere(intero.corpo() * scala, intero.font().bold());
        if (ultimo->parolaPiuLunga(testo) > spazio)
            continue;
        const QStringList spezzato = ultimo->spezza(testo, spazio);
        if (spezzato.size() <= righe)
            return {ultimo, spezzato};
    }
    QStringList spezzato = ultimo->spezza(testo, spazio);
    if (spezzato.size() > RigheMassime) {
        const QString resto = spezzato.mid(RigheMassime - 1).join(u' ');
        spezzato = spezzato.first(RigheMassime - 1) << ultimo->accorcia(resto, spazio);
    }
    return {ultimo, spezzato};
}

Penna::Penna(QPainter& pittore, double puntiPerPollice) : m_pittore(pittore) {
    m_pittore.save();
    const double scala = puntiPerPollice / (PuntiAlPollice * UnitaPerPunto);
    m_pittore.scale(scala, scala);
    m_pittore.setRenderHint(QPainter::TextAntialiasing);
}

Penna::~Penna() {
    m_pittore.restore();
}

void Penna::scrivi(const Carattere& carattere, double x, double base, const QString& testo,
                   const QColor& colore) {
    if (m_carattere != &carattere) {
        m_carattere = &carattere;
        m_pittore.setFont(carattere.font());
    }
    if (m_colore != colore) {
        m_colore = colore;
        m_pittore.setPen(colore);
    }
    m_pittore.drawText(QPointF(x, base) * UnitaPerPunto, testo);
}

void Penna::riempi(const QRectF& zona, const QColor& colore) {
    m_pittore.fillRect(QRectF(zona.topLeft() * UnitaPerPunto, zona.size() * UnitaPerPunto), colore);
}

void Penna::linea(double x1, double x2, double y, double spessore, const QColor& colore) {
    riempi(QRectF(x1, y - spessore / 2, x2 - x1, spessore), colore);
}

void Penna::lineaVerticale(double x, double y1, double y2, double spessore, const QColor& colore) {
    riempi(QRectF(x - spessore / 2, y1, spessore, y2 - y1), colore);
}

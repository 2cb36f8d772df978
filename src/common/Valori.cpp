#include "common/Valori.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <QLocale>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr bool cifra(QChar c) {
    return c >= u'0' && c <= u'9';
}

QString dueCifre(int valore) {
    return (u"00"_s + QString::number(valore)).right(2);
}

// Leading groups of `resto`, each by its divisor, then the remainder; a group of zero or less prints "00:".
template <std::size_t N>
QString aGruppi(int resto, const std::array<int, N>& divisori) {
    QString testo;
    for (std::size_t i = 0; i < N; ++i) {
        const int gruppo = resto / divisori[i];
        if (gruppo <= 0) {
            testo += u"00:"_s;
            continue;
        }
        testo += (i == 0 ? QString::number(gruppo) : dueCifre(gruppo)) + u':';
        resto -= gruppo * divisori[i];
    }
    return testo + dueCifre(resto);
}

// Numeric value of at most two characters, blanks aside; 0 when they are no number.
int valoreUltimiDue(QStringView testo) noexcept {
    int valore = 0;
    bool negativo = false;
    bool iniziato = false;
    for (const QChar c : testo.right(2)) {
        if (c == u' ')
            continue;
        if (cifra(c)) {
            valore = valore * 10 + (c.unicode() - u'0');
            iniziato = true;
        } else if (c == u'-' && !iniziato) {
            negativo = true;
            iniziato = true;
        } else {
            break;
        }
    }
    return negativo ? -valore : valore;
}

}  // namespace

QString SecondiInTempo(int secondi) {
    return aGruppi<2>(secondi, {3600, 60});
}

QString CentesimiInTempo(int centesimi) {
    return aGruppi<3>(centesimi, {CentesimiAllOra, CentesimiAlMinuto, CentesimiAlSecondo});
}

std::optional<int> leggiOra(QStringView testo) noexcept {
    constexpr std::array<int, 3> massimi{23, 59, 59};
    std::array<int, 3> gruppi{};
    std::size_t gruppo = 0;
    int cifre = 0;
    for (const QChar c : testo) {
        if (cifra(c)) {
            if (++cifre > 2)
                return std::nullopt;
            gruppi[gruppo] = gruppi[gruppo] * 10 + (c.unicode() - u'0');
        } else if (c == u':' && cifre > 0 && gruppo < 2) {
            ++gruppo;
            cifre = 0;
        } else {
            return std::nullopt;
        }
    }
    if (gruppo == 0 || cifre == 0)
        return std::nullopt;
    for (std::size_t i = 0; i < gruppi.size(); ++i) {
        if (gruppi[i] > massimi[i])
            return std::nullopt;
    }
    return gruppi[0] * 3600 + gruppi[1] * 60 + gruppi[2];
}

int TempoInCentesimi(QStringView testo) noexcept {
    std::array<QChar, 8> inizio;
    const qsizetype lunghezza = std::min<qsizetype>(testo.size(), 8);
    for (qsizetype i = 0; i < lunghezza; ++i)
        inizio[static_cast<std::size_t>(i)] = testo.at(i) == u' ' ? QChar(u'0') : testo.at(i);
    const std::optional<int> secondi = leggiOra(QStringView(inizio.data(), lunghezza));
    return valoreUltimiDue(testo) + secondi.value_or(0) * CentesimiAlSecondo;
}

int TempoInCentesimi(std::string_view utf8) {
    // The usual form, hh:mm:ss:cc, read where it lies: this runs twice per reading of a classification.
    const auto gruppo = [&](std::size_t posto) {
        const int decine = utf8[posto] - '0';
        const int unita = utf8[posto + 1] - '0';
        return decine >= 0 && decine <= 9 && unita >= 0 && unita <= 9 ? decine * 10 + unita : -1;
    };
    if (utf8.size() == 11 && utf8[2] == ':' && utf8[5] == ':' && utf8[8] == ':') {
        const int ore = gruppo(0), minuti = gruppo(3), secondi = gruppo(6), centesimi = gruppo(9);
        if (ore >= 0 && ore <= 23 && minuti >= 0 && minuti <= 59 && secondi >= 0 && secondi <= 59 &&
            centesimi >= 0) {
            return ore * CentesimiAllOra + minuti * CentesimiAlMinuto + secondi * CentesimiAlSecondo +
                   centesimi;
        }
    }
    return TempoInCentesimi(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

int DifferenzaTempi(int a, int b) noexcept {
    const int d = std::abs(a - b);
    return CentesimiAlGiorno - d > d ? d : CentesimiAlGiorno - d;
}

std::optional<QDate> leggiData(const QString& testo) {
    static const QRegularExpression forma(uR"(^\s*(\d{1,2})[/.-](\d{1,2})[/.-](\d{4}|\d{2})\s*$)"_s);
    const QRegularExpressionMatch parti = forma.match(testo);
    if (!parti.hasMatch())
        return std::nullopt;
    int anno = parti.captured(3).toInt();
    if (parti.captured(3).size() == 2)
        anno += anno < 30 ? 2000 : 1900;
    const QDate data(anno, parti.captured(2).toInt(), parti.captured(1).toInt());
    if (!data.isValid())
        return std::nullopt;
    return data;
}

QString scriviData(QDate data) {
    return data.isValid() ? data.toString(u"dd/MM/yyyy"_s) : QString();
}

std::optional<double> leggiNumero(const QString& testo) {
    static const QRegularExpression forma(uR"(^[+-]?(\d+([.,]\d*)?|[.,]\d+)$)"_s);
    QString pulito = testo.trimmed();
    if (!forma.match(pulito).hasMatch())
        return std::nullopt;
    return pulito.replace(u',', u'.').toDouble();
}

double valoreNumerico(QStringView testo) {
    static const QRegularExpression inizio(uR"(^\s*[+-]?(\d+([.,]\d*)?|[.,]\d+))"_s);
    const QRegularExpressionMatch trovato = inizio.match(testo);
    return trovato.hasMatch() ? leggiNumero(trovato.captured(0)).value_or(0) : 0;
}

QString numeroInTesto(double valore) {
    const double grandezza = std::abs(valore);
    if (grandezza != 0 && (grandezza >= 1e15 || grandezza < 1e-7))
        return QLocale(QLocale::Italian).toString(valore, 'g', 15);
    // 15 significant digits, then what is left of the decimals once the zeros at the end are gone.
    const int interi = grandezza < 1 ? 0 : static_cast<int>(std::floor(std::log10(grandezza))) + 1;
    QString testo = QString::number(valore, 'f', std::max(0, 15 - interi));
    if (testo.contains(u'.')) {
        while (testo.endsWith(u'0'))
            testo.chop(1);
        if (testo.endsWith(u'.'))
            testo.chop(1);
    }
    if (testo == QLatin1String("-0"))
        return u"0"_s;
    return testo.replace(u'.', u',');
}

QString importoInTesto(double valore) {
    return QLocale(QLocale::Italian, QLocale::Italy).toString(valore, 'f', 2);
}

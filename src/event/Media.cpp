#include "event/Media.h"

#include "common/Valori.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double KmhInMetriAlSecondo = 3.6;
constexpr double MetriAlChilometro = 1000;
constexpr double SecondiScrivibili = 100 * 3600;  // two digits of hours

std::optional<double> secondi(const QString& tempo) {
    if (!leggiOra(tempo))
        return std::nullopt;
    return static_cast<double>(TempoInCentesimi(tempo + u":00"_s)) / CentesimiAlSecondo;
}

}  // namespace

std::optional<QString> calcolaDistanza(const QString& tempo, const QString& velocita) {
    const std::optional<double> t = secondi(tempo);
    const std::optional<double> v = leggiNumero(velocita);
    if (!t || !v)
        return std::nullopt;
    return numeroInTesto(*v / KmhInMetriAlSecondo * *t / MetriAlChilometro);
}

std::optional<QString> calcolaTempo(const QString& distanza, const QString& velocita) {
    const std::optional<double> s = leggiNumero(distanza);
    const std::optional<double> v = leggiNumero(velocita);
    if (!s || !v || *v == 0)
        return std::nullopt;
    const double t = std::round(*s * MetriAlChilometro / (*v / KmhInMetriAlSecondo));
    if (!(t < SecondiScrivibili))
        return std::nullopt;
    return SecondiInTempo(static_cast<int>(t));
}

std::optional<QString> calcolaVelocita(const QString& tempo, const QString& distanza) {
    const std::optional<double> t = secondi(tempo);
    const std::optional<double> s = leggiNumero(distanza);
    if (!t || !s || *t == 0)
        return std::nullopt;
    return numeroInTesto(*s * MetriAlChilometro / *t * KmhInMetriAlSecondo);
}

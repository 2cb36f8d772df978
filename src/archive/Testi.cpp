#include "archive/Testi.h"

#include <sqlite3.h>
#include <QCollator>
#include <QList>
#include <QLocale>
#include <QString>

namespace {

QString daMotore(int byte, const void* testo) {
    return QString::fromUtf8(static_cast<const char*>(testo), byte);
}

QString daMotore(sqlite3_value* valore) {
    const auto* testo = sqlite3_value_text(valore);
    return daMotore(sqlite3_value_bytes(valore), testo);
}

// Composed and folded, so that a letter is one code point however it was typed.
QList<uint> piegati(QStringView testo) {
    QList<uint> lettere = testo.toString().normalized(QString::NormalizationForm_C).toUcs4();
    for (uint& lettera : lettere)
        lettera = QChar::toCaseFolded(lettera);
    return lettere;
}

struct PassoModello {
    enum Tipo { Lettera, Una, Molte } tipo = Lettera;
    uint lettera = 0;
};

QList<PassoModello> leggiModello(QStringView modello, char32_t fuga) {
    const QList<uint> piegato = piegati(modello);
    const uint segnoFuga = QChar::toCaseFolded(fuga);
    QList<PassoModello> passi;
    for (qsizetype i = 0; i < piegato.size(); ++i) {
        if (fuga != 0 && piegato.at(i) == segnoFuga && i + 1 < piegato.size()) {
            passi << PassoModello{PassoModello::Lettera, piegato.at(++i)};
        } else if (piegato.at(i) == U'%') {
            passi << PassoModello{PassoModello::Molte};
        } else if (piegato.at(i) == U'_') {
            passi << PassoModello{PassoModello::Una};
        } else {
            passi << PassoModello{PassoModello::Lettera, piegato.at(i)};
        }
    }
    return passi;
}

// On a mismatch only the last "%" takes one more letter: earlier ones can gain nothing.
bool combacia(const QList<uint>& testo, const QList<PassoModello>& passi) {
    qsizetype t = 0, p = 0, ultimaMolte = -1, ripresa = 0;
    while (t < testo.size()) {
        if (p < passi.size() && passi.at(p).tipo == PassoModello::Molte) {
            ultimaMolte = p++;
            ripresa = t;
        } else if (p < passi.size() &&
                   (passi.at(p).tipo == PassoModello::Una || passi.at(p).lettera == testo.at(t))) {
            ++p;
            ++t;
        } else if (ultimaMolte >= 0) {
            p = ultimaMolte + 1;
            t = ++ripresa;
        } else {
            return false;
        }
    }
    while (p < passi.size() && passi.at(p).tipo == PassoModello::Molte)
        ++p;
    return p == passi.size();
}

int confrontaDaMotore(void* /*contesto*/, int byteA, const void* a, int byteB, const void* b) {
    return confrontaTesti(daMotore(byteA, a), daMotore(byteB, b));
}

// like(pattern, text [, escape]); Null when either is Null, as the engine's own.
void somigliaDaMotore(sqlite3_context* contesto, int quanti, sqlite3_value** valori) {
    for (int i = 0; i < quanti; ++i) {
        if (sqlite3_value_type(valori[i]) == SQLITE_NULL)
            return;
    }
    char32_t fuga = 0;
    if (quanti == 3) {
        const QList<uint> segni = daMotore(valori[2]).toUcs4();
        if (segni.size() != 1) {
            sqlite3_result_error(contesto, "ESCAPE expression must be a single character", -1);
            return;
        }
        fuga = segni.first();
    }
    sqlite3_result_int(contesto, somiglia(daMotore(valori[1]), daMotore(valori[0]), fuga) ? 1 : 0);
}

}  // namespace

int confrontaTesti(QStringView a, QStringView b) {
    static const QCollator ordine = [] {
        QCollator italiano(QLocale(QLocale::Italian, QLocale::Italy));
        italiano.setCaseSensitivity(Qt::CaseInsensitive);
        return italiano;
    }();
    return ordine.compare(a, b);
}

bool somiglia(QStringView testo, QStringView modello, char32_t fuga) {
    return combacia(piegati(testo), leggiModello(modello, fuga));
}

void registraTesti(sqlite3* motore) {
    sqlite3_create_collation_v2(motore, Ordinamento, SQLITE_UTF8, nullptr, &confrontaDaMotore, nullptr);
    for (const int quanti : {2, 3}) {
        sqlite3_create_function_v2(motore, "like", quanti, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                   &somigliaDaMotore, nullptr, nullptr, nullptr);
    }
}

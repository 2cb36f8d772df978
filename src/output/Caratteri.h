#pragma once

#include <array>
#include <memory>
#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QRectF>
#include <QString>
#include <QStringList>

class QPainter;

// Fonts of the reports, measured once. All lengths are points (1/72 inch), whatever the device.

// A font of a whole number of tenths of a point: what is measured with it is drawn with it.
class Carattere final {
public:
    Carattere(int decimi, bool grassetto);

    [[nodiscard]] double corpo() const { return m_corpo; }
    [[nodiscard]] double ascesa() const { return m_ascesa; }
    [[nodiscard]] const QFont& font() const { return m_font; }
    [[nodiscard]] double larghezza(QStringView testo) const;
    [[nodiscard]] QString accorcia(const QString& testo, double spazio) const;
    // Lines no wider than the room, broken at blanks and after "-" and "/"; a longer word is cut in two.
    [[nodiscard]] QStringList spezza(const QString& testo, double spazio) const;
    // The widest piece of a text that stays on one line.
    [[nodiscard]] double parolaPiuLunga(const QString& testo) const;

private:
    [[nodiscard]] double larghezzaSegno(QChar segno) const;

    double m_corpo;
    QFont m_font;
    QFontMetricsF m_misure;
    double m_ascesa;
    mutable std::array<float, 0x250> m_avanzi;  // Latin signs, as they come up; negative when not known yet
};

// A text as it can be written in its room.
struct TestoAdatto {
    const Carattere* carattere = nullptr;
    QStringList righe;
};

class Caratteri final {
public:
    // The largest font not above a size.
    const Carattere& carattere(double corpo, bool grassetto = false);
    // One line: smaller where the room is short, down to `minimo` of the size; beyond that with "…" at the
    // end.
    TestoAdatto suUnaRiga(const QString& testo, double spazio, const Carattere& carattere, double minimo);
    // One line as above, else several: the largest size that cuts no word and needs no more than `righe`,
    // else the smallest size and as many lines as it takes.
    TestoAdatto adatta(const QString& testo, double spazio, const Carattere& carattere, double minimo,
                       qsizetype righe);

private:
    const Carattere* misuraUnaRiga(const QString& testo, double spazio, const Carattere& carattere,
                                   double minimo);

    QHash<std::pair<int, bool>, std::shared_ptr<const Carattere>> m_caratteri;
};

// A painter that counts in points and changes font and colour only when they change.
class Penna final {
public:
    Penna(QPainter& pittore, double puntiPerPollice);
    Q_DISABLE_COPY_MOVE(Penna)
    ~Penna();

    void scrivi(const Carattere& carattere, double x, double base, const QString& testo,
                const QColor& colore);
    void riempi(const QRectF& zona, const QColor& colore);
    void linea(double x1, double x2, double y, double spessore, const QColor& colore);
    void lineaVerticale(double x, double y1, double y2, double spessore, const QColor& colore);

private:
    QPainter& m_pittore;
    const Carattere* m_carattere = nullptr;
    QColor m_colore;
};

#pragma once

#include <QColor>

class QPalette;
class QWidget;

// One look on every desktop, light and legible: each text stands at least 4.5:1 on its ground, disabled ones
// too.
QPalette coloriDelProgramma();

// White on blue: what has the keyboard. The first is the operator's own, given; the second is for a ground
// that is drawn in more than one shade, as that of a combo.
inline constexpr QColor SfondoEvidenziato{0x80, 0x80, 0xFF};
inline constexpr QColor SfondoEvidenziatoScuro{0x20, 0x20, 0x78};

struct Tinta {
    QColor sfondo;
    QColor testo;
};

// Of the current cell of a grid: as what has the keyboard, and paler while the grid has not.
Tinta tintaCellaCorrente(const QWidget* griglia);

#include "common/Aspetto.h"

#include <QPalette>
#include <QWidget>

QPalette coloriDelProgramma() {
    const QColor fondo(0xEF, 0xEF, 0xEF);
    const QColor spento(0x64, 0x64, 0x64);
    QPalette colori(fondo, fondo);
    colori.setColor(QPalette::Base, Qt::white);
    colori.setColor(QPalette::AlternateBase, QColor(0xF5, 0xF5, 0xF5));
    colori.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xDC));
    colori.setColor(QPalette::ToolTipText, Qt::black);
    colori.setColor(QPalette::Highlight, QColor(0x1F, 0x6A, 0xA5));
    colori.setColor(QPalette::HighlightedText, Qt::white);
    colori.setColor(QPalette::PlaceholderText, spento);
    colori.setColor(QPalette::Link, QColor(0x00, 0x00, 0xC0));
    for (const QPalette::ColorRole ruolo : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colori.setColor(QPalette::Disabled, ruolo, spento);
    colori.setColor(QPalette::Disabled, QPalette::Base, fondo);
    // The chosen row of a list that has not the keyboard.
    for (const QPalette::ColorGroup gruppo : {QPalette::Inactive, QPalette::Disabled})
        colori.setColor(gruppo, QPalette::Highlight, QColor(0x5B, 0x6B, 0x7B));
    return colori;
}

Tinta tintaCellaCorrente(const QWidget* griglia) {
    if (griglia->hasFocus() || griglia->isAncestorOf(griglia->window()->focusWidget()))
        return {QColor(0x40, 0x40, 0xB8), Qt::white};
    return {QColor(0xC6, 0xCB, 0xF0), Qt::black};
}

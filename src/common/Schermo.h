#pragma once

#include <QSize>

class QWidget;

// What a window may measure on its screen: the available area less the frame and the title bar.
QSize spazioSulloSchermo(const QWidget* finestra);

// Keeps a window within its screen: lists give up the size they were promised, and where a form is larger
// still it scrolls. To be called whenever a window is shown or laid out anew.
void adattaAlloSchermo(QWidget* finestra);

// Scrolls to a control that has taken the focus, where its window scrolls.
void portaInVista(QWidget* controllo);

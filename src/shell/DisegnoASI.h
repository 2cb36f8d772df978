#pragma once

#include <QPixmap>

// The picture of the main window and of the splash: an open tourer in profile, drawn here.
QPixmap disegnoASI(double scala);

// A bare Qt window of the main window's size, with one line of text, up to its first painting.

#include "PrimoDisegno.h"

#include <cstdlib>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>

int main(int argc, char** argv) {
    const QApplication applicazione(argc, argv);
    QMainWindow finestra;
    finestra.setCentralWidget(new QLabel(QStringLiteral("Velmora")));
    finestra.resize(1320, 690);
    new PrimoDisegno(&finestra, [] { std::_Exit(0); });
    finestra.show();
    return QApplication::exec();
}

// A bare Qt window with one line of text, as any window has, up to its first idle moment.

#include <cstdlib>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QTimer>

int main(int argc, char** argv) {
    const QApplication applicazione(argc, argv);
    QMainWindow finestra;
    finestra.setCentralWidget(new QLabel(QStringLiteral("Velmora")));
    finestra.resize(1100, 640);
    finestra.show();
    QTimer::singleShot(0, qApp, [] { std::_Exit(0); });
    return QApplication::exec();
}

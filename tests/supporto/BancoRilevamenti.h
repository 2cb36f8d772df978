#pragma once

#include "archive/Statement.h"
#include "readings/ModelloRilevamenti.h"

#include <QApplication>
#include <QPushButton>
#include <QTableView>
#include <QTest>

using Colonna = ModelloRilevamenti::Colonna;

inline void mostra(QWidget& finestra) {
    finestra.show();
    if (!QTest::qWaitForWindowActive(&finestra))
        qFatal("the window does not come up");
}

// What an operator does: a button, and the keyboard into the widget that has the focus.
inline void premi(const QWidget& finestra, const char* nome) {
    QTest::mouseClick(finestra.findChild<QPushButton*>(nome), Qt::LeftButton);
}
inline void tasto(Qt::Key tasto) {
    QTest::keyClick(QApplication::focusWidget(), tasto);
}
inline void digita(const QString& testo) {
    for (const QChar c : testo)
        QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
}

// In the grid of readings of a window.
inline void vai(const QWidget& finestra, int riga, int colonna) {
    auto* grT = finestra.findChild<QTableView*>("grT");
    grT->setFocus();
    grT->setCurrentIndex(grT->model()->index(riga, colonna));
}
inline void scrivi(const QWidget& finestra, int riga, int colonna, const QString& testo) {
    vai(finestra, riga, colonna);
    digita(testo);
    tasto(Qt::Key_Return);
}

// A crew's times in the archive, "start>arrival" of each test.
inline QStringList tempiDi(int idEqu) {
    QStringList tempi;
    for (const RigaRilevamento& riga : leggiRilevamenti(idEqu))
        tempi << riga.tPar + '>' + riga.tArr;
    return tempi;
}
inline QVariant letto(int idEqu, int idPro, const QString& colonna) {
    return *leggiValore("SELECT " + colonna + " FROM Rilevamenti WHERE IDEqu_FK=? AND IDPro_FK=?",
                        {idEqu, idPro});
}

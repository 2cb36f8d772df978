#pragma once

#include "archive/Statement.h"
#include "readings/ModelloRilevamenti.h"
#include "supporto/ProvaFinestre.h"

#include <QTableView>

using Colonna = ModelloRilevamenti::Colonna;

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

#pragma once

#include "event/CreazioneManifestazione.h"
#include "event/Elenco.h"
#include "event/PaginaGuidata.h"
#include "supporto/ProvaFinestre.h"

// Runs a creation and, inside it, the operator's steps; whatever the steps leave open is closed.
template <typename Passi>
int guida(CreazioneManifestazione& creazione, Passi passi) {
    QTimer::singleShot(0, &creazione, [&] {
        passi();
        const QWidgetList finestre = QApplication::topLevelWidgets();
        for (QWidget* finestra : finestre) {
            if (auto* pagina = qobject_cast<PaginaGuidata*>(finestra); pagina && pagina->isVisible())
                pagina->done(QDialog::Rejected);
        }
    });
    return creazione.esegui();
}

// The page in front.
inline PaginaGuidata* pagina() {
    PaginaGuidata* davanti = nullptr;
    const QWidgetList finestre = QApplication::topLevelWidgets();
    for (QWidget* finestra : finestre) {
        auto* candidata = qobject_cast<PaginaGuidata*>(finestra);
        if (candidata && candidata->isVisible()) {
            if (davanti)
                QTest::qFail("two pages at once", __FILE__, __LINE__);
            davanti = candidata;
        }
    }
    if (davanti && !QTest::qWaitForWindowActive(davanti))
        QTest::qFail("no active page", __FILE__, __LINE__);
    return davanti;
}

// Row -1: the empty part of the list.
inline void doppioClic(Su finestra, const QString& nome, int riga) {
    auto* elenco = controllo<Elenco>(finestra, nome);
    const QPoint dove = riga < 0 ? elenco->viewport()->rect().bottomRight() - QPoint(5, 5)
                                 : elenco->visualItemRect(elenco->topLevelItem(riga)).center();
    QTest::mouseClick(elenco->viewport(), Qt::LeftButton, {}, dove);
    QTest::mouseDClick(elenco->viewport(), Qt::LeftButton, {}, dove);
}

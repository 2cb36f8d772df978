#pragma once

#include "event/CreazioneManifestazione.h"
#include "event/PaginaGuidata.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

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

template <typename T = QLineEdit>
T* controllo(QWidget* finestra, const QString& nome) {
    T* trovato = finestra ? finestra->findChild<T*>(nome) : nullptr;
    if (!trovato)
        qFatal("no control %s", qPrintable(nome));
    return trovato;
}

inline void scrivi(QWidget* finestra, const QString& nome, const QString& testo) {
    auto* campo = controllo(finestra, nome);
    campo->setFocus();
    campo->selectAll();
    QTest::keyClicks(campo, testo);
}

inline void premi(QWidget* finestra, const QString& nome) {
    QTest::mouseClick(controllo<QPushButton>(finestra, nome), Qt::LeftButton);
}

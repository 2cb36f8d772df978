#pragma once

#include "event/CreazioneManifestazione.h"
#include "event/Elenco.h"
#include "event/PaginaGuidata.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
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
    QTest::keyClick(campo, Qt::Key_Delete);
    QTest::keyClicks(campo, testo);
}

inline void premi(QWidget* finestra, const QString& nome) {
    QTest::mouseClick(controllo<QAbstractButton>(finestra, nome), Qt::LeftButton);
}

inline void scegli(QWidget* finestra, const QString& combo, const QString& testo) {
    controllo<QComboBox>(finestra, combo)->setCurrentText(testo);
}

// Row -1: the empty part of the list.
inline void doppioClic(QWidget* finestra, const QString& nome, int riga) {
    auto* elenco = controllo<Elenco>(finestra, nome);
    const QPoint dove = riga < 0 ? elenco->viewport()->rect().bottomRight() - QPoint(5, 5)
                                 : elenco->visualItemRect(elenco->topLevelItem(riga)).center();
    QTest::mouseClick(elenco->viewport(), Qt::LeftButton, {}, dove);
    QTest::mouseDClick(elenco->viewport(), Qt::LeftButton, {}, dove);
}

inline QString cella(QWidget* finestra, const QString& elenco, int riga, int colonna) {
    return controllo<Elenco>(finestra, elenco)->topLevelItem(riga)->text(colonna);
}

// Text of each control: line edit, label or combo box.
using Testi = QMap<QString, QString>;
inline void confronta(QWidget* finestra, const Testi& attesi) {
    Testi trovati;
    for (auto atteso = attesi.cbegin(); atteso != attesi.cend(); ++atteso) {
        const auto* quale = controllo<QWidget>(finestra, atteso.key());
        trovati[atteso.key()] =
            quale->property(quale->inherits("QComboBox") ? "currentText" : "text").toString();
    }
    QCOMPARE(trovati, attesi);
}

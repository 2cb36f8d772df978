#pragma once

#include "event/CreazioneManifestazione.h"
#include "event/Elenco.h"
#include "event/PaginaGuidata.h"

#include <QApplication>
#include <QComboBox>
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

// Row -1: the empty part of the list.
inline void doppioClic(QWidget* finestra, const QString& nome, int riga) {
    auto* elenco = controllo<Elenco>(finestra, nome);
    const QPoint dove = riga < 0 ? elenco->viewport()->rect().bottomRight() - QPoint(5, 5)
                                 : elenco->visualItemRect(elenco->topLevelItem(riga)).center();
    QTest::mouseClick(elenco->viewport(), Qt::LeftButton, {}, dove);
    QTest::mouseDClick(elenco->viewport(), Qt::LeftButton, {}, dove);
}

// "txtNom=Coppa;cboPro=PA;chkRagAuto=SI" as pairs.
inline QList<std::pair<QString, QString>> campi(const QString& testo) {
    QList<std::pair<QString, QString>> coppie;
    for (const QString& voce : testo.split(';'))
        coppie.emplace_back(voce.section('=', 0, 0), voce.section('=', 1));
    return coppie;
}

// What a control holds; "lstProve 1 0" is the cell of row 1, column 0.
inline QString contenuto(QWidget* finestra, const QString& nome) {
    if (const QStringList cella = nome.split(' '); cella.size() == 3)
        return controllo<Elenco>(finestra, cella[0])->topLevelItem(cella[1].toInt())->text(cella[2].toInt());
    const auto* quale = controllo<QWidget>(finestra, nome);
    if (const auto* pulsante = qobject_cast<const QAbstractButton*>(quale))
        return pulsante->isChecked() ? "SI" : "NO";
    const QString testo = quale->property(quale->inherits("QComboBox") ? "currentText" : "text").toString();
    return quale->inherits("QLabel") ? QString(testo).remove('&') : testo;
}

// Fills controls by name: chosen, ticked or typed.
inline void compila(QWidget* finestra, const QString& testo) {
    for (const auto& [nome, valore] : campi(testo)) {
        auto* quale = controllo<QWidget>(finestra, nome);
        if (auto* combo = qobject_cast<QComboBox*>(quale)) {
            combo->setCurrentText(valore);
        } else if (auto* pulsante = qobject_cast<QAbstractButton*>(quale)) {
            if (contenuto(finestra, nome) != valore)
                pulsante->click();
        } else {
            scrivi(finestra, nome, valore);
        }
    }
}

inline void confronta(QWidget* finestra, const QString& attesi) {
    QStringList trovati;
    for (const auto& [nome, valore] : campi(attesi))
        trovati << nome + '=' + contenuto(finestra, nome);
    QCOMPARE(trovati.join(';'), attesi);
}

inline void abilitati(QWidget* finestra, const QString& nomi, bool attesi) {
    for (const QString& nome : nomi.split(' '))
        QVERIFY2(controllo<QWidget>(finestra, nome)->isEnabled() == attesi, qPrintable(nome));
}

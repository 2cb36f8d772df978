#pragma once

#include <functional>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

// What a test does with the controls of a window, by their names.

// The window, however the test holds it.
struct Su final {
    Su(const QWidget& w) : finestra(&w) {}
    Su(const QWidget* w) : finestra(w) {}
    const QWidget* finestra;
};

template <typename T = QLineEdit>
T* controllo(Su finestra, const QString& nome) {
    T* trovato = finestra.finestra ? finestra.finestra->findChild<T*>(nome) : nullptr;
    if (!trovato)
        qFatal("no control %s", qPrintable(nome));
    return trovato;
}

inline void mostra(QWidget* finestra) {
    finestra->show();
    if (!QTest::qWaitForWindowActive(finestra))
        qFatal("the window does not come up");
}
inline void mostra(QWidget& finestra) {
    mostra(&finestra);
}

inline void premi(Su finestra, const QString& nome) {
    QTest::mouseClick(controllo<QAbstractButton>(finestra, nome), Qt::LeftButton);
}

// By keyboard, into the widget that has the focus.
inline void tasto(Qt::Key tasto, Qt::KeyboardModifiers modificatori = {}) {
    QTest::keyClick(QApplication::focusWidget(), tasto, modificatori);
}
inline void digita(const QString& testo) {
    for (const QChar c : testo)  // the first one may open an editor that takes the focus
        QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
}
inline QString fuoco() {
    return QApplication::focusWidget()->objectName();
}

// Replaces what a field holds, as an operator types it.
inline void scrivi(Su finestra, const QString& nome, const QString& testo) {
    auto* campo = controllo(finestra, nome);
    campo->setFocus();
    campo->selectAll();
    QTest::keyClick(campo, Qt::Key_Delete);
    QTest::keyClicks(campo, testo);
}

inline void clicRiga(QTreeWidget* elenco, int riga) {
    QTest::mouseClick(elenco->viewport(), Qt::LeftButton, {},
                      elenco->visualItemRect(elenco->topLevelItem(riga)).center());
}
inline void clicTestata(QHeaderView* testata, int colonna) {
    QTest::mouseClick(testata->viewport(), Qt::LeftButton, {},
                      QPoint(testata->sectionViewportPosition(colonna) + 10, testata->height() / 2));
}

// The rows of a list or a grid, their cells joined by "/".
inline QStringList righe(const QAbstractItemView* elenco) {
    const QAbstractItemModel* modello = elenco->model();
    QStringList righe;
    for (int i = 0; i < modello->rowCount(); ++i) {
        QStringList celle;
        for (int j = 0; j < modello->columnCount(); ++j)
            celle << modello->index(i, j).data().toString();
        righe << celle.join('/');
    }
    return righe;
}
inline QStringList righe(Su finestra, const QString& nome) {
    return righe(controllo<QAbstractItemView>(finestra, nome));
}

// What a control holds: "SI" or "NO", the choice, the text.
inline QString contenuto(Su finestra, const QString& nome) {
    const auto* quale = controllo<QWidget>(finestra, nome);
    if (const auto* pulsante = qobject_cast<const QAbstractButton*>(quale))
        return pulsante->isChecked() ? "SI" : "NO";
    const char* proprieta = quale->inherits("QComboBox")   ? "currentText"
                            : quale->inherits("QLineEdit") ? "displayText"
                                                           : "text";
    const QString testo = quale->property(proprieta).toString();
    const auto* etichetta = qobject_cast<const QLabel*>(quale);
    return etichetta && etichetta->buddy() ? QString(testo).remove('&') : testo;
}

// "txtNom=Coppa;cboPro=PA;chkRagAuto=SI" as pairs.
inline QList<std::pair<QString, QString>> campi(const QString& testo) {
    QList<std::pair<QString, QString>> coppie;
    for (const QString& voce : testo.split(';'))
        coppie.emplace_back(voce.section('=', 0, 0), voce.section('=', 1));
    return coppie;
}

// Fills controls: chosen, ticked or typed.
inline void compila(Su finestra, const QString& testo) {
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

// "lstProve 1 0=PA" is the cell of row 1, column 0.
inline void confronta(Su finestra, const QString& attesi) {
    QStringList trovati;
    for (const auto& [nome, valore] : campi(attesi)) {
        const QStringList cella = nome.split(' ');
        trovati << nome + '=' +
                       (cella.size() == 3 ? controllo<QAbstractItemView>(finestra, cella[0])
                                                ->model()
                                                ->index(cella[1].toInt(), cella[2].toInt())
                                                .data()
                                                .toString()
                                          : contenuto(finestra, nome));
    }
    QCOMPARE(trovati.join(';'), attesi);
}

inline void abilitati(Su finestra, const QString& nomi, bool attesi) {
    for (const QString& nome : nomi.split(' '))
        QVERIFY2(controllo<QWidget>(finestra, nome)->isEnabled() == attesi, qPrintable(nome));
}

// Opens a window of that class by `apri` and works in it; what is left open is closed.
template <typename Finestra>
void inModale(const std::function<void()>& apri, const std::function<void(Finestra&)>& dentro) {
    bool aperta = false;
    QTimer attesa;
    QObject::connect(&attesa, &QTimer::timeout, &attesa, [&] {
        auto* finestra = qobject_cast<Finestra*>(QApplication::activeModalWidget());
        if (!finestra || std::exchange(aperta, true))
            return;
        dentro(*finestra);
        if (finestra->isVisible())
            finestra->close();
        if (finestra->isVisible())
            finestra->done(QDialog::Rejected);  // whatever holds it
    });
    attesa.start(1);
    apri();
    QVERIFY(aperta);
}

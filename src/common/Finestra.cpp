#include "common/Finestra.h"

#include "common/Subroutine.h"

#include <algorithm>
#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace {

bool campo(const QObject* oggetto) {
    return qobject_cast<const QLineEdit*>(oggetto) || qobject_cast<const QComboBox*>(oggetto) ||
           qobject_cast<const QAbstractSpinBox*>(oggetto);
}

bool spunta(const QObject* oggetto) {
    return qobject_cast<const QCheckBox*>(oggetto) || qobject_cast<const QRadioButton*>(oggetto);
}

bool invio(const QKeyEvent& tasto) {
    return tasto.key() == Qt::Key_Return || tasto.key() == Qt::Key_Enter;
}

bool invioComeTab(QObject* oggetto, const QKeyEvent& tasto) {
    if (!invio(tasto))
        return false;
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QApplication::sendEvent(oggetto, &tab);
    return true;
}

// A click in the middle of a blank mask would leave its first places out.
void vaiAlPrimoPosto(QLineEdit* box) {
    if (box->inputMask().isEmpty())
        return;
    QTimer::singleShot(0, box, [box] {
        const QString testo = box->text();
        if (std::ranges::none_of(testo, [](QChar c) { return c.isDigit(); }))
            box->setCursorPosition(0);
    });
}

}  // namespace

Finestra::Finestra(QWidget* padre) : QDialog(padre) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);
}

void Finestra::reject() {
    if (puoChiudere())
        QDialog::reject();
}

void Finestra::preparaCampi() {
    const QList<QWidget*> controlli = findChildren<QWidget*>();
    for (QWidget* controllo : controlli) {
        if (campo(controllo) || spunta(controllo))
            controllo->installEventFilter(this);
        if (auto* pulsante = qobject_cast<QPushButton*>(controllo))
            pulsante->setAutoDefault(false);
        if (auto* combo = qobject_cast<QComboBox*>(controllo))
            combo->setFocusPolicy(Qt::StrongFocus);
    }
}

void Finestra::showEvent(QShowEvent* evento) {
    preparaCampi();
    if (!m_centrata) {
        m_centrata = true;
        CentraFinestra(this);
    }
    QDialog::showEvent(evento);
}

void Finestra::completaDa(QLineEdit* box, const QString& tabella, const QString& colonna) {
    attivaCompletamento(box, tabella, colonna);
}

bool Finestra::eventFilter(QObject* oggetto, QEvent* evento) {
    auto* controllo = qobject_cast<QWidget*>(oggetto);
    switch (evento->type()) {
        case QEvent::FocusIn:
            if (campo(oggetto))
                EvidenziaCampo(controllo);
            if (auto* box = qobject_cast<QLineEdit*>(oggetto))
                vaiAlPrimoPosto(box);
            break;
        case QEvent::FocusOut:
            if (campo(oggetto))
                RipristinaCampo(controllo);
            break;
        case QEvent::KeyPress:
            if (invioComeTab(oggetto, static_cast<QKeyEvent&>(*evento)))
                return true;
            break;
        case QEvent::Wheel:
            // Turned to look further down, it must not change a choice on the way.
            if (qobject_cast<QComboBox*>(oggetto) && !controllo->hasFocus()) {
                evento->ignore();
                return true;
            }
            break;
        default:
            break;
    }
    return QDialog::eventFilter(oggetto, evento);
}

void Finestra::keyPressEvent(QKeyEvent* evento) {
    auto* pulsante = qobject_cast<QPushButton*>(focusWidget());
    if (evento->key() == Qt::Key_F1) {
        mostraAiuto(this);
    } else if (invio(*evento) && pulsante) {
        pulsante->click();
    } else {
        QDialog::keyPressEvent(evento);
    }
}

void Finestra::closeEvent(QCloseEvent* evento) {
    // Refused until done: when what a window does on closing throws, it stays with all that was typed.
    evento->ignore();
    QDialog::closeEvent(evento);
    if (!isVisible())
        evento->accept();
}

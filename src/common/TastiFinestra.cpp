#include "common/TastiFinestra.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

bool spunta(const QObject* oggetto) {
    return qobject_cast<const QCheckBox*>(oggetto) || qobject_cast<const QRadioButton*>(oggetto);
}

void mandaTab(QObject* oggetto) {
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QApplication::sendEvent(oggetto, &tab);
}

}  // namespace

bool tastoInvio(const QKeyEvent& tasto) {
    return tasto.key() == Qt::Key_Return || tasto.key() == Qt::Key_Enter;
}

bool campoDaScrivere(const QObject* oggetto) {
    return qobject_cast<const QLineEdit*>(oggetto) || qobject_cast<const QComboBox*>(oggetto) ||
           qobject_cast<const QAbstractSpinBox*>(oggetto);
}

TastiFinestra::TastiFinestra(QWidget* finestra) : QObject(finestra), m_finestra(finestra) {}

void TastiFinestra::sorveglia() {
    const QList<QWidget*> controlli = m_finestra->findChildren<QWidget*>();
    for (QWidget* controllo : controlli) {
        if (campoDaScrivere(controllo) || qobject_cast<QAbstractButton*>(controllo) ||
            qobject_cast<QAbstractItemView*>(controllo))
            controllo->installEventFilter(this);
    }
}

bool TastiFinestra::eventFilter(QObject* oggetto, QEvent* evento) {
    auto* controllo = qobject_cast<QWidget*>(oggetto);
    // The open list of a combo is a window of its own.
    if (evento->type() == QEvent::KeyPress && controllo->window() == m_finestra) {
        const auto& tasto = static_cast<QKeyEvent&>(*evento);
        if (tastoInvio(tasto) && invio(controllo, tasto))
            return true;
    }
    return QObject::eventFilter(oggetto, evento);
}

bool TastiFinestra::invio(QWidget* controllo, const QKeyEvent& tasto) {
    m_premutoSu = controllo;
    if (const auto* vista = qobject_cast<QAbstractItemView*>(controllo)) {
        // A held key goes on where cells are typed; a list takes a fresh one alone.
        if (!tasto.isAutoRepeat() || vista->currentIndex().flags().testFlag(Qt::ItemIsEditable))
            return false;
        if (m_comeTab)
            mandaTab(controllo);
        return true;
    }
    auto* pulsante = qobject_cast<QAbstractButton*>(controllo);
    if (!pulsante || spunta(controllo) || m_comeTab) {
        mandaTab(controllo);
    } else if (!tasto.isAutoRepeat()) {
        pulsante->click();
    }
    return true;
}

void TastiFinestra::nonPreso() {
    // Not when the control has sent the focus elsewhere in answer to it.
    if (m_comeTab && m_finestra->focusWidget() && m_finestra->focusWidget() == m_premutoSu)
        mandaTab(m_finestra->focusWidget());
}

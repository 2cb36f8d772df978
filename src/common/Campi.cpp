#include "common/Campi.h"

#include "common/Valori.h"

#include <QApplication>
#include <QFocusEvent>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

bool vuoto(const QLineEdit* campo) {
    const QString testo = campo->text();
    return testo.isEmpty() || testo == u"//"_s || testo == u"::"_s;
}

}  // namespace

void applicaMaschera(QLineEdit* campo, Maschera maschera) {
    campo->setInputMask(maschera == Maschera::Data ? u"99/99/9999;_"_s : u"99:99:99;_"_s);
}

QString valoreMascherato(const QLineEdit* campo, Maschera maschera) {
    if (maschera == Maschera::Data)
        return scriviData(leggiData(campo->text()).value_or(QDate()));
    const std::optional<int> secondi = leggiOra(campo->text());
    return secondi ? QTime(0, 0).addSecs(*secondi).toString(u"HH:mm:ss"_s) : QString();
}

void tornaSu(QWidget* controllo) {
    controllo->setFocus(Qt::OtherFocusReason);
    if (auto* campo = qobject_cast<QLineEdit*>(controllo))
        campo->selectAll();
}

ControlliUscita::ControlliUscita(QWidget* finestra) : QObject(finestra), m_finestra(finestra) {}

void ControlliUscita::aggiungi(QLineEdit* campo, const Verifica& verifica) {
    m_verifiche.insert(campo, verifica);
    campo->installEventFilter(this);
}

void ControlliUscita::aggiungiMascherato(QLineEdit* campo, Maschera maschera) {
    applicaMaschera(campo, maschera);
    aggiungi(campo, [campo, maschera] {
        if (vuoto(campo))
            return true;
        const QString intero = valoreMascherato(campo, maschera);
        if (intero.isEmpty()) {
            QApplication::beep();
            return false;
        }
        campo->setText(intero);
        return true;
    });
}

bool ControlliUscita::risolvi() {
    auto* attuale = qobject_cast<QLineEdit*>(m_finestra->focusWidget());
    if (attuale && m_verifiche.contains(attuale) && !m_lasciati.contains(attuale))
        m_lasciati << attuale;
    return controllaLasciati();
}

bool ControlliUscita::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::FocusOut && !m_inCorso) {
        const Qt::FocusReason motivo = static_cast<QFocusEvent*>(evento)->reason();
        if (motivo != Qt::ActiveWindowFocusReason && motivo != Qt::PopupFocusReason) {
            m_lasciati << qobject_cast<QLineEdit*>(oggetto);
            // Not from within the event: a check may show a box.
            QMetaObject::invokeMethod(
                this, [this] { controllaLasciati(); }, Qt::QueuedConnection);
        }
    }
    return QObject::eventFilter(oggetto, evento);
}

bool ControlliUscita::controllaLasciati() {
    if (m_inCorso)
        return false;
    // While the focus goes back, the field that loses it is not being left by the operator.
    const QScopedValueRollback inCorso(m_inCorso, true);
    const QList<QLineEdit*> lasciati = std::exchange(m_lasciati, {});
    for (QLineEdit* campo : lasciati) {
        if (m_finestra->isVisible() && !m_verifiche.value(campo)()) {
            tornaSu(campo);
            return false;
        }
    }
    return true;
}

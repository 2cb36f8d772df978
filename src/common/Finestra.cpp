#include "common/Finestra.h"

#include "archive/ErroreArchivio.h"
#include "common/Dialoghi.h"
#include "common/Schermo.h"
#include "common/Subroutine.h"
#include "common/TastiFinestra.h"

#include <algorithm>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

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

Finestra::Finestra(QWidget* padre) : QDialog(padre), m_tasti(new TastiFinestra(this)) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);
}

void Finestra::reject() {
    if (puoChiudere())
        QDialog::reject();
}

bool Finestra::lasciaDopo(const std::function<bool()>& salva, const std::function<QString()>& perduto) {
    try {
        const bool via = salva();
        m_uscitaFallita = false;
        return via;
    } catch (const Errore& errore) {
        if (!std::exchange(m_uscitaFallita, true))
            throw;
        return Dialoghi::corrente().domanda(
            u"Conferma Chiusura"_s,
            u"%1\n\nNON Salvato : %2\nChiudere Ugualmente la Finestra ?"_s.arg(errore.testo(), perduto()),
            Icona::Domanda);
    }
}

void Finestra::preparaCampi() {
    const QList<QWidget*> controlli = findChildren<QWidget*>();
    for (QWidget* controllo : controlli) {
        if (campoDaScrivere(controllo))
            controllo->installEventFilter(this);
        if (auto* pulsante = qobject_cast<QPushButton*>(controllo))
            pulsante->setAutoDefault(false);
        if (auto* combo = qobject_cast<QComboBox*>(controllo))
            combo->setFocusPolicy(Qt::StrongFocus);
    }
    m_tasti->sorveglia();
}

void Finestra::invioComeTab() {
    m_tasti->invioComeTab();
}

bool Finestra::event(QEvent* evento) {
    const bool preso = QDialog::event(evento);
    if (evento->type() == QEvent::WindowActivate) {
        try {
            attivata();
            m_letturaFallita = false;
        } catch (...) {
            if (!std::exchange(m_letturaFallita, true))
                throw;
        }
    }
    return preso;
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
            portaInVista(controllo);
            if (campoDaScrivere(oggetto))
                EvidenziaCampo(controllo);
            if (auto* box = qobject_cast<QLineEdit*>(oggetto))
                vaiAlPrimoPosto(box);
            break;
        case QEvent::FocusOut:
            if (campoDaScrivere(oggetto))
                RipristinaCampo(controllo);
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
    if (evento->key() == Qt::Key_F1) {
        mostraAiuto(this);
    } else if (tastoInvio(*evento)) {
        m_tasti->nonPreso();
    } else if (evento->key() != Qt::Key_Escape || !evento->isAutoRepeat()) {
        // A held Esc closes one window, not those behind it.
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

#include "common/Subroutine.h"

#include "common/Aspetto.h"
#include "common/frmAiuto.h"
#include "common/Funzioni.h"
#include "common/Schermo.h"

#include <algorithm>
#include <QApplication>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QUrl>
#include <QValidator>
#include <utility>

namespace {

const QColor SfondoSelezione(0x00, 0x00, 0x80);  // stands out on the field's blue too

// A disabled field keeps the look of one.
void coloraCampo(QWidget* campo, const QColor& sfondo, const QColor& testo) {
    QPalette colori = campo->palette();
    for (const QPalette::ColorGroup gruppo : {QPalette::Active, QPalette::Inactive}) {
        colori.setColor(gruppo, QPalette::Base, sfondo);
        // A combo draws itself as a button, in lighter shades of it.
        colori.setColor(gruppo, QPalette::Button,
                        sfondo == SfondoEvidenziato ? SfondoEvidenziatoScuro : sfondo);
        for (const QPalette::ColorRole ruolo : {QPalette::Text, QPalette::ButtonText})
            colori.setColor(gruppo, ruolo, testo);
    }
    colori.setColor(QPalette::Highlight, SfondoSelezione);
    colori.setColor(QPalette::HighlightedText, Qt::white);
    campo->setPalette(colori);
}

class ValidatoreTasti final : public QValidator {
public:
    ValidatoreTasti(Filtro filtro, QLineEdit* campo) : QValidator(campo), m_campo(campo), m_filtro(filtro) {}

    State validate(QString& testo, int& cursore) const override {
        // What the archive holds is shown as it is: shown without its other signs it would be written back
        // so.
        if (!m_campo->isModified())
            return Acceptable;
        const auto rifiutato = [this](QChar c) {
            int tasto = c.unicode();
            return (m_filtro == Filtro::Cifre ? FiltroCifre(tasto) : FiltroCifreVirgola(tasto)) == 0;
        };
        const auto primaDelCursore = std::count_if(testo.cbegin(), testo.cbegin() + cursore, rifiutato);
        testo.removeIf(rifiutato);
        cursore -= static_cast<int>(primaDelCursore);
        return Acceptable;
    }

private:
    const QLineEdit* m_campo;
    Filtro m_filtro;
};

constexpr char Limite[] = "lunghezzaMassima";  // property of a box

class Completamento final : public QObject {
public:
    Completamento(QLineEdit* campo, const QString& tabella, const QString& colonna)
        : QObject(campo), m_campo(campo), m_tabella(tabella), m_colonna(colonna) {
        campo->installEventFilter(this);
        connect(campo, &QLineEdit::textEdited, this, [this] { m_scritto = m_carattere; });
    }

    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() == QEvent::KeyPress) {
            m_carattere = carattere(static_cast<QKeyEvent&>(*evento));
        } else if (evento->type() == QEvent::InputMethod) {
            m_carattere = !static_cast<QInputMethodEvent*>(evento)->commitString().isEmpty();
        } else if (evento->type() == QEvent::FocusOut) {
            m_scritto = false;
        } else if (evento->type() == QEvent::KeyRelease) {
            const int tasto = static_cast<QKeyEvent*>(evento)->key();
            // A Shift let go before the letter is not the letter's release. A text that came from the program
            // meanwhile, as another crew does, was not typed.
            if ((tasto < Qt::Key_Escape || tasto == Qt::Key_unknown) && std::exchange(m_scritto, false) &&
                m_campo->isModified())
                CompletaTesto(m_campo, m_tabella, m_colonna, tasto);
        }
        return QObject::eventFilter(oggetto, evento);
    }

private:
    static bool carattere(const QKeyEvent& tasto) {
        const bool comando = tasto.modifiers().testFlag(Qt::AltModifier) &&
                             !tasto.modifiers().testFlag(Qt::ControlModifier);  // the two are AltGr
        return !comando && !tasto.text().isEmpty() && tasto.text().at(0).isPrint();
    }

    QLineEdit* m_campo;
    QString m_tabella;
    QString m_colonna;
    bool m_carattere = false;  // the key that is down types one
    bool m_scritto = false;    // and it came into the text
};

}  // namespace

void EvidenziaCampo(QWidget* campo) {
    coloraCampo(campo, SfondoEvidenziato, Qt::white);
}

void RipristinaCampo(QWidget* campo) {
    coloraCampo(campo, Qt::white, QApplication::palette().color(QPalette::WindowText));
}

void CentraFinestra(QWidget* finestra) {
    const QScreen* schermo = finestra->screen();
    const QPoint centrata = schermo->geometry().center() - QRect(QPoint(), finestra->size()).center();
    // Title bar and frame stay on the screen.
    const QRect ammessa(schermo->availableGeometry().topLeft(),
                        spazioSulloSchermo(finestra) - finestra->size() + QSize(1, 1));
    finestra->move(std::clamp(centrata.x(), ammessa.left(), std::max(ammessa.left(), ammessa.right())),
                   std::clamp(centrata.y(), ammessa.top(), std::max(ammessa.top(), ammessa.bottom())));
}

QWidget* finestraAttiva() {
    // None is active while the platform has not yet given the focus back.
    QWidget* attiva = QApplication::activeWindow();
    return attiva ? attiva : QApplication::activeModalWidget();
}

int larghezzaTitolo(const QString& titolo) {
    constexpr int Pulsanti = 5;  // the bar's own picture and its buttons, in heights of the text
    QFont carattere = QApplication::font("QMdiSubWindowTitleBar");
    carattere.setBold(true);
    const QFontMetrics misure(carattere);
    return misure.horizontalAdvance(titolo) + Pulsanti * misure.height() * 3 / 2;
}

bool FinestraCaricata(const QString& nome) {
    const QWidgetList finestre = QApplication::topLevelWidgets();
    return std::ranges::any_of(finestre, [&](const QWidget* f) { return f->objectName() == nome; });
}

void ApriDocumento(const QString& documento) {
    if (!documento.isEmpty())
        QDesktopServices::openUrl(QUrl::fromUserInput(documento));
}

void CompletaTesto(QLineEdit* campo, const QString& tabella, const QString& colonna, int tasto) {
    const QString testo = campo->text();
    if (tasto == Qt::Key_Backspace || tasto == Qt::Key_Delete || testo.isEmpty())
        return;
    // A proposal that still stands: the key let go was Shift, Tab or the one before the last, as when typing
    // fast.
    if (campo->hasSelectedText() && campo->selectionEnd() == testo.size())
        return;
    if (campo->cursorPosition() != testo.size())
        return;
    const std::optional<QString> completo = primoCompletamento(tabella, colonna, testo);
    if (!completo)
        return;
    campo->setText(completo->toUpper());
    campo->setSelection(static_cast<int>(testo.size()), static_cast<int>(completo->size() - testo.size()));
    campo->setModified(true);
}

void attivaCompletamento(QLineEdit* campo, const QString& tabella, const QString& colonna) {
    new Completamento(campo, tabella, colonna);
}

void applicaFiltro(QLineEdit* campo, Filtro filtro) {
    campo->setValidator(new ValidatoreTasti(filtro, campo));
}

void limitaTesto(QLineEdit* campo, int lunghezza) {
    campo->setProperty(Limite, lunghezza);
    campo->setMaxLength(lunghezza);
}

void mostraTesto(QLineEdit* campo, const QString& testo) {
    if (const QVariant limite = campo->property(Limite); limite.isValid())
        campo->setMaxLength(std::max(limite.toInt(), static_cast<int>(testo.size())));
    campo->setText(testo);
    campo->setCursorPosition(0);
}

void mostraAiuto(QWidget* finestra) {
    auto* aiuto = finestra->findChild<frmAiuto*>();
    if (!aiuto)
        aiuto = new frmAiuto(finestra);
    aiuto->mostraPagina(finestra->objectName());
}

CursoreAttesa::CursoreAttesa() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

CursoreAttesa::~CursoreAttesa() {
    QApplication::restoreOverrideCursor();
}

CursoreNormale::CursoreNormale() {
    QApplication::setOverrideCursor(Qt::ArrowCursor);
}

CursoreNormale::~CursoreNormale() {
    QApplication::restoreOverrideCursor();
}

#include "common/Scatola.h"

#include "common/Subroutine.h"

#include <algorithm>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr double ParteDelloSchermo = 0.7;
constexpr int LarghezzaCampo = 260;

QStyle::StandardPixmap figura(Icona icona) {
    switch (icona) {
        case Icona::Esclamazione:
            return QStyle::SP_MessageBoxWarning;
        case Icona::Stop:
            return QStyle::SP_MessageBoxCritical;
        case Icona::Domanda:
            return QStyle::SP_MessageBoxQuestion;
        default:
            return QStyle::SP_MessageBoxInformation;
    }
}

// As wide as its longest line, wrapped where that is too wide; as high as its lines, scrolled from there on.
QScrollArea* zonaDelTesto(const QString& testo, const QSize& spazio) {
    auto* etichetta = new QLabel(testo);
    etichetta->setObjectName(u"lblTesto"_s);
    etichetta->setTextFormat(Qt::PlainText);
    etichetta->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    etichetta->setWordWrap(true);
    const QSize misura =
        etichetta->fontMetrics()
            .boundingRect({0, 0, spazio.width(), 0}, Qt::TextWordWrap | Qt::TextExpandTabs, testo)
            .size();
    etichetta->setMinimumSize(misura);
    auto* zona = new QScrollArea;
    zona->setWidget(etichetta);
    zona->setWidgetResizable(true);
    zona->setFrameShape(QFrame::NoFrame);
    zona->setFocusPolicy(Qt::NoFocus);
    const bool lunga = misura.height() > spazio.height();
    const int barra = lunga ? zona->verticalScrollBar()->sizeHint().width() : 0;
    zona->setMinimumSize(std::min(misura.width(), spazio.width()) + barra + 2,
                         std::min(misura.height(), spazio.height()) + 2);
    return zona;
}

}  // namespace

Scatola::Scatola(const QString& titolo, const QString& testo, Icona icona) : QDialog(finestraAttiva()) {
    setWindowTitle(titolo);
    setObjectName(u"Scatola"_s);
    setMinimumWidth(larghezzaTitolo(titolo));
    m_zona = zonaDelTesto(testo, screen()->availableSize() * ParteDelloSchermo);
    m_pulsanti = new QHBoxLayout;
    m_pulsanti->addStretch();
    m_pulsanti->addStretch();

    auto* sopra = new QHBoxLayout;
    sopra->setSpacing(fontMetrics().height());
    if (icona != Icona::Nessuna) {
        auto* immagine = new QLabel(this);
        const int lato = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
        immagine->setPixmap(style()->standardIcon(figura(icona), nullptr, this).pixmap(lato));
        immagine->setAlignment(Qt::AlignTop);
        sopra->addWidget(immagine);
    }
    sopra->addWidget(m_zona, 1);
    auto* colonna = new QVBoxLayout(this);
    colonna->setSpacing(fontMetrics().height());
    colonna->addLayout(sopra, 1);
    colonna->addLayout(m_pulsanti);
}

void Scatola::aggiungi(const QString& testo, int risposta) {
    auto* pulsante = new QPushButton(testo, this);
    pulsante->setAutoDefault(false);
    pulsante->installEventFilter(this);
    connect(pulsante, &QPushButton::clicked, this, [this, risposta] { done(risposta); });
    m_risposte.insert(pulsante, risposta);
    m_pulsanti->insertWidget(m_pulsanti->count() - 1, pulsante);
}

QLineEdit* Scatola::aggiungiCampo(const QString& predefinito, int risposta) {
    m_campo = new QLineEdit(predefinito, this);
    m_campo->setObjectName(u"txtRisposta"_s);
    m_campo->setMinimumWidth(LarghezzaCampo);
    m_campo->selectAll();
    m_campo->installEventFilter(this);
    m_conferma = risposta;
    auto* colonna = static_cast<QVBoxLayout*>(layout());
    colonna->insertWidget(1, m_campo);
    return m_campo;
}

int Scatola::chiedi() {
    QPushButton* predefinito = pulsanteDi(m_campo ? m_conferma : m_innocua);
    predefinito->setDefault(true);
    if (m_campo) {
        m_campo->setFocus();
    } else {
        predefinito->setFocus();
    }
    installEventFilter(this);
    const int risposta = exec();
    // Esc and the close box.
    return std::ranges::find(m_risposte, risposta) == m_risposte.end() ? m_innocua : risposta;
}

QPushButton* Scatola::pulsanteDi(int risposta) const {
    return m_risposte.key(risposta);
}

void Scatola::showEvent(QShowEvent* evento) {
    QDialog::showEvent(evento);
    CentraFinestra(this);
}

bool Scatola::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress && tasto(oggetto, static_cast<QKeyEvent&>(*evento)))
        return true;
    return QDialog::eventFilter(oggetto, evento);
}

// True for a key that goes no further.
bool Scatola::tasto(const QObject* oggetto, const QKeyEvent& tasto) {
    switch (tasto.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (!tasto.isAutoRepeat()) {
                auto* scelto = qobject_cast<QPushButton*>(focusWidget());
                (scelto ? scelto : pulsanteDi(m_campo ? m_conferma : m_innocua))->click();
            }
            return true;
        case Qt::Key_Escape:
            if (!tasto.isAutoRepeat())
                done(m_innocua);
            return true;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
            return false;
        case Qt::Key_Space:
            return tasto.isAutoRepeat() && oggetto != m_campo;
        default:
            return oggetto != m_campo && (scorri(tasto.key()) || !(tasto.modifiers() & Qt::AltModifier));
    }
}

bool Scatola::scorri(int tasto) {
    QScrollBar* barra = m_zona->verticalScrollBar();
    switch (tasto) {
        case Qt::Key_PageUp:
            barra->triggerAction(QAbstractSlider::SliderPageStepSub);
            return true;
        case Qt::Key_PageDown:
            barra->triggerAction(QAbstractSlider::SliderPageStepAdd);
            return true;
        case Qt::Key_Home:
            barra->triggerAction(QAbstractSlider::SliderToMinimum);
            return true;
        case Qt::Key_End:
            barra->triggerAction(QAbstractSlider::SliderToMaximum);
            return true;
        default:
            return false;
    }
}

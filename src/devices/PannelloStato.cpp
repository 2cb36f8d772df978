#include "devices/PannelloStato.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int Righe = 4;
constexpr qint64 PausaInformazioni = 50;  // ms between two paintings

QColor sfondo(PannelloStato::Tono tono) {
    switch (tono) {
        case PannelloStato::Tono::Lavoro:
            return {255, 255, 192};
        case PannelloStato::Tono::Terminata:
            return {255, 128, 0};
        default:
            return Qt::white;
    }
}

}  // namespace

PannelloStato::PannelloStato(QWidget* padre)
    : QFrame(padre), m_lblStatus(new QLabel(this)), m_lblInfo(new QLabel(this)) {
    setFrameShape(QFrame::Panel);
    setFrameShadow(QFrame::Sunken);
    setAutoFillBackground(true);
    m_lblStatus->setObjectName(u"lblStatus"_s);
    m_lblInfo->setObjectName(u"lblInfo"_s);
    QFont grande = font();
    grande.setBold(true);
    grande.setPointSizeF(grande.pointSizeF() * 1.3);
    m_lblStatus->setFont(grande);
    m_lblStatus->setMinimumHeight(Righe * QFontMetrics(grande).lineSpacing());
    for (QLabel* etichetta : {m_lblStatus, m_lblInfo})
        etichetta->setAlignment(Qt::AlignCenter);
    auto* disposizione = new QVBoxLayout(this);
    disposizione->addWidget(m_lblStatus);
    disposizione->addWidget(m_lblInfo);

    QSizePolicy politica(QSizePolicy::Preferred, QSizePolicy::MinimumExpanding);
    politica.setRetainSizeWhenHidden(true);
    setSizePolicy(politica);
    hide();
}

void PannelloStato::mostra(const QStringList& righe, Tono tono) {
    const QString testo = righe.join(u'\n');
    const QColor colore = sfondo(tono);
    // A download at full speed tells the same over and over.
    if (!isHidden() && testo == m_lblStatus->text() && colore == palette().color(QPalette::Window))
        return;
    QPalette colori = palette();
    colori.setColor(QPalette::Window, colore);
    colori.setColor(QPalette::WindowText, Qt::black);
    setPalette(colori);
    m_lblStatus->setText(testo);
    show();
    repaint();
}

bool PannelloStato::attendeInformazioni() const {
    return !m_dipinto.isValid() || m_dipinto.elapsed() >= PausaInformazioni;
}

void PannelloStato::informa(const QString& testo) {
    m_dipinto.start();
    m_lblInfo->setText(testo);
    repaint();
}

void PannelloStato::azzera() {
    hide();
    m_lblStatus->clear();
    m_lblInfo->clear();
}

#include "common/Schermo.h"

#include <QAbstractScrollArea>
#include <QDialog>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// Of most desktops; the platform tells the true ones only once the window is on the screen.
constexpr QSize Cornice{8, 36};
constexpr QSize ListaMinima{200, 90};
constexpr int MargineInVista = 24;
const QString NomeZona = u"zonaScorrevole"_s;

bool eccede(const QSize& misura, const QSize& spazio) {
    return misura.width() > spazio.width() || misura.height() > spazio.height();
}

QSize minimo(const QWidget* finestra) {
    finestra->layout()->activate();
    return finestra->layout()->totalMinimumSize();
}

// Lists scroll by themselves: what was promised to them for an ordinary screen gives way.
void cediMinimi(QWidget* finestra) {
    const QList<QAbstractScrollArea*> liste = finestra->findChildren<QAbstractScrollArea*>();
    for (QAbstractScrollArea* lista : liste) {
        if (lista->minimumWidth() > ListaMinima.width())
            lista->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        lista->setMinimumSize(lista->minimumSize().boundedTo(ListaMinima));
    }
    finestra->setMinimumSize(0, 0);
    finestra->layout()->invalidate();
}

// The contents move into an area that scrolls. A child of the window before it takes them: the order of Tab
// stays. Gives the size that shows them all.
QSize rendiScorrevole(QWidget* finestra) {
    QWidget* fuoco = finestra->focusWidget();  // a change of parent takes it away
    auto* zona = new QScrollArea(finestra);
    zona->setObjectName(NomeZona);
    zona->setFrameShape(QFrame::NoFrame);
    zona->setFocusPolicy(Qt::NoFocus);
    zona->setWidgetResizable(true);
    auto* contenuto = new QWidget;
    zona->setWidget(contenuto);
    contenuto->setLayout(finestra->layout());
    auto* colonna = new QVBoxLayout(finestra);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->addWidget(zona);
    zona->show();
    contenuto->show();
    if (fuoco)
        fuoco->setFocus(Qt::OtherFocusReason);
    const int barra = zona->verticalScrollBar()->sizeHint().width();
    return minimo(contenuto) + QSize(barra, barra);
}

}  // namespace

QSize spazioSulloSchermo(const QWidget* finestra) {
    return finestra->screen()->availableSize() - Cornice;
}

void adattaAlloSchermo(QWidget* finestra) {
    const QSize spazio = spazioSulloSchermo(finestra);
    QSize misura = finestra->size();
    if (finestra->layout() && qobject_cast<QDialog*>(finestra)) {
        if (eccede(minimo(finestra).expandedTo(finestra->minimumSize()), spazio))
            cediMinimi(finestra);
        if (eccede(minimo(finestra), spazio))
            misura = misura.expandedTo(rendiScorrevole(finestra));
    }
    const bool intera = finestra->isMaximized() || finestra->isFullScreen();
    if (!intera && (eccede(misura, spazio) || misura != finestra->size()))
        finestra->resize(misura.boundedTo(spazio));
}

void portaInVista(QWidget* controllo) {
    if (auto* zona = controllo->window()->findChild<QScrollArea*>(NomeZona, Qt::FindDirectChildrenOnly))
        zona->ensureWidgetVisible(controllo, MargineInVista, MargineInVista);
}

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
// stays.
void rendiScorrevole(QWidget* finestra) {
    QWidget* fuoco = finestra->focusWidget();
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
    // A control that changes its parent gives the focus up.
    if (fuoco)
        fuoco->setFocus();
}

// As large as before, with room for the bars and for all its contents where the screen has it.
QSize misuraVoluta(const QWidget* finestra) {
    const auto* zona = finestra->findChild<QScrollArea*>(NomeZona, Qt::FindDirectChildrenOnly);
    if (!zona)
        return finestra->size();
    const int barra = zona->verticalScrollBar()->sizeHint().width();
    return finestra->size().expandedTo(minimo(zona->widget()) + QSize(barra, barra));
}

}  // namespace

QSize spazioSulloSchermo(const QWidget* finestra) {
    return finestra->screen()->availableSize() - Cornice;
}

void adattaAlloSchermo(QWidget* finestra) {
    const QSize spazio = spazioSulloSchermo(finestra);
    if (finestra->layout() && qobject_cast<QDialog*>(finestra)) {
        if (eccede(minimo(finestra).expandedTo(finestra->minimumSize()), spazio))
            cediMinimi(finestra);
        if (eccede(minimo(finestra), spazio))
            rendiScorrevole(finestra);
    }
    if (const QSize misura = misuraVoluta(finestra).boundedTo(spazio); misura != finestra->size())
        finestra->resize(misura);
}

void portaInVista(QWidget* controllo) {
    if (auto* zona = controllo->window()->findChild<QScrollArea*>(NomeZona, Qt::FindDirectChildrenOnly))
        zona->ensureWidgetVisible(controllo, MargineInVista, MargineInVista);
}

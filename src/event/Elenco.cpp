#include "event/Elenco.h"

#include "common/Elenchi.h"

#include <algorithm>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

constexpr int SpazioFraRighe = 6;

class RigheArieggiate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& opzioni,
                                 const QModelIndex& indice) const override {
        return QStyledItemDelegate::sizeHint(opzioni, indice) + QSize(SpazioFraRighe, SpazioFraRighe);
    }
};

}  // namespace

Elenco::Elenco(QWidget* padre) : QTreeWidget(padre) {
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new RigheArieggiate(this));
    // The place where a tree draws its branches holds the row's number.
    setIndentation(fontMetrics().horizontalAdvance(QStringLiteral("000")) + fontMetrics().height() / 2);
    header()->setStretchLastSection(true);
}

void Elenco::riempi(const QList<Riga>& righe) {
    QList<QTreeWidgetItem*> elementi;
    for (int i = 0; i < righe.size(); ++i) {
        auto* elemento = new QTreeWidgetItem(righe[i].celle);
        // A row that is not in the archive is known by its place.
        elemento->setData(0, Qt::UserRole, righe[i].chiave != 0 ? righe[i].chiave : -i - 1);
        elementi << elemento;
    }
    sostituisciRighe(this, elementi, PrimaRiga::Corrente);
    // In a column that is seen: typing searches there.
    if (currentItem()) {
        selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(std::max(0, treePosition())),
                                          QItemSelectionModel::NoUpdate);
    }
    adattaColonne();
}

void Elenco::adattaColonne() {
    ::adattaColonne(this);
}

void Elenco::scegli(int riga) {
    if (riga < 0) {
        nonScegliere(this);
    } else {
        setCurrentItem(topLevelItem(riga), std::max(0, treePosition()));
    }
}

int Elenco::scelta() const {
    const QList<QTreeWidgetItem*> scelti = selectedItems();
    return scelti.isEmpty() ? -1 : indexOfTopLevelItem(scelti.constFirst());
}

int Elenco::chiaveScelta() const {
    const int riga = scelta();
    return riga < 0 ? 0 : std::max(0, topLevelItem(riga)->data(0, Qt::UserRole).toInt());
}

void Elenco::drawBranches(QPainter* pittore, const QRect& area, const QModelIndex& indice) const {
    pittore->save();
    pittore->setPen(palette().color(selectionModel()->isSelected(indice.siblingAtColumn(0))
                                        ? QPalette::HighlightedText
                                        : QPalette::PlaceholderText));
    if (selectionModel()->isSelected(indice.siblingAtColumn(0)))
        pittore->fillRect(area, palette().brush(QPalette::Highlight));
    pittore->drawText(area.adjusted(0, 0, -4, 0), Qt::AlignRight | Qt::AlignVCenter,
                      QString::number(indice.row() + 1));
    pittore->restore();
}

void Elenco::resizeEvent(QResizeEvent* evento) {
    QTreeWidget::resizeEvent(evento);
    adattaColonne();
}

void Elenco::mousePressEvent(QMouseEvent* evento) {
    if (!itemAt(evento->pos()))
        scegli(-1);
    QTreeWidget::mousePressEvent(evento);
}

void Elenco::mouseDoubleClickEvent(QMouseEvent* evento) {
    if (!itemAt(evento->pos()))
        scegli(-1);
    QTreeWidget::mouseDoubleClickEvent(evento);
    if (evento->button() == Qt::LeftButton)
        Q_EMIT aperto();
}

// In a list with boxes to tick the space bar ticks.
bool Elenco::apriConSpazio() const {
    return m_invioAvanti && scelta() >= 0 && !topLevelItem(scelta())->data(0, Qt::CheckStateRole).isValid();
}

// A key held down opens and deletes nothing more.
void Elenco::keyPressEvent(QKeyEvent* evento) {
    const bool nuovo = !evento->isAutoRepeat();
    switch (evento->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (m_invioAvanti) {
                focusNextPrevChild(true);
            } else if (nuovo) {
                Q_EMIT aperto();
            }
            return;
        case Qt::Key_Space:
            if (!apriConSpazio())
                break;
            if (nuovo)
                Q_EMIT aperto();
            return;
        case Qt::Key_Insert:
            scegli(-1);
            if (nuovo)
                Q_EMIT aggiunta();
            return;
        case Qt::Key_Delete:
            if (nuovo)
                Q_EMIT cancellata();
            return;
        default:
            break;
    }
    QTreeWidget::keyPressEvent(evento);
}

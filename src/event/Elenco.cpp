#include "event/Elenco.h"

#include "common/Elenchi.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
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
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new RigheArieggiate(this));
    // The place where a tree draws its branches holds the row's number.
    setIndentation(fontMetrics().horizontalAdvance(QStringLiteral("000")) + fontMetrics().height() / 2);
    header()->setStretchLastSection(true);
}

void Elenco::riempi(const QList<Riga>& righe) {
    const int chiave = chiaveScelta();
    const int scorrimento = verticalScrollBar()->value();
    setUpdatesEnabled(false);
    clear();
    QList<QTreeWidgetItem*> elementi;
    for (const Riga& riga : righe) {
        auto* elemento = new QTreeWidgetItem(riga.celle);
        elemento->setData(0, Qt::UserRole, riga.chiave);
        elementi << elemento;
    }
    addTopLevelItems(elementi);
    scegli(-1);
    for (int i = 0; chiave != 0 && i < righe.size(); ++i) {
        if (righe[i].chiave == chiave)
            scegli(i);
    }
    adattaColonne();
    doItemsLayout();
    verticalScrollBar()->setValue(scorrimento);
    setUpdatesEnabled(true);
}

void Elenco::adattaColonne() {
    ::adattaColonne(this);
}

void Elenco::scegli(int riga) {
    setCurrentItem(topLevelItem(riga));
    if (riga < 0)
        clearSelection();
}

int Elenco::scelta() const {
    const QList<QTreeWidgetItem*> scelti = selectedItems();
    return scelti.isEmpty() ? -1 : indexOfTopLevelItem(scelti.constFirst());
}

int Elenco::chiaveScelta() const {
    const int riga = scelta();
    return riga < 0 ? 0 : topLevelItem(riga)->data(0, Qt::UserRole).toInt();
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

void Elenco::keyPressEvent(QKeyEvent* evento) {
    switch (evento->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Q_EMIT aperto();
            return;
        case Qt::Key_Insert:
            scegli(-1);
            Q_EMIT aggiunta();
            return;
        case Qt::Key_Delete:
            Q_EMIT cancellata();
            return;
        default:
            QTreeWidget::keyPressEvent(evento);
    }
}

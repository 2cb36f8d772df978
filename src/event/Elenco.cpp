#include "event/Elenco.h"

#include "common/Elenchi.h"

#include <algorithm>
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

int chiaveDi(const QTreeWidgetItem* riga) {
    return riga ? riga->data(0, Qt::UserRole).toInt() : 0;
}

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

void Elenco::riempi(const QList<Riga>& righe, Larghezze larghezze) {
    const int chiave = chiaveScelta();
    const int corrente = rigaCorrente();
    const int chiaveCorrente = chiaveDi(topLevelItem(corrente));
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
    const int stessa = rigaDi(chiaveCorrente);
    const int riga = stessa >= 0 ? stessa : std::clamp(corrente, 0, std::max(0, topLevelItemCount() - 1));
    selectionModel()->setCurrentIndex(model()->index(riga, std::max(0, treePosition())),
                                      QItemSelectionModel::NoUpdate);
    if (const int scelta = rigaDi(chiave); scelta >= 0)
        scegli(scelta);
    if (larghezze == Larghezze::Adatte)
        adattaColonne();
    doItemsLayout();
    verticalScrollBar()->setValue(scorrimento);
    setUpdatesEnabled(true);
}

void Elenco::adattaColonne() {
    ::adattaColonne(this);
}

void Elenco::scegli(int riga) {
    if (riga < 0) {
        clearSelection();
    } else {
        setCurrentItem(topLevelItem(riga), std::max(0, treePosition()));
    }
}

int Elenco::rigaCorrente() const {
    return indexOfTopLevelItem(currentItem());
}

int Elenco::rigaDi(int chiave) const {
    for (int riga = 0; chiave != 0 && riga < topLevelItemCount(); ++riga) {
        if (chiaveDi(topLevelItem(riga)) == chiave)
            return riga;
    }
    return -1;
}

int Elenco::scelta() const {
    const QList<QTreeWidgetItem*> scelti = selectedItems();
    return scelti.isEmpty() ? -1 : indexOfTopLevelItem(scelti.constFirst());
}

int Elenco::chiaveScelta() const {
    return chiaveDi(topLevelItem(scelta()));
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

// With nothing chosen yet, an arrow chooses the current row and Home or End the row it names.
bool Elenco::scegliConFreccia(int tasto) {
    const int corrente = rigaCorrente();
    if (scelta() >= 0 || corrente < 0)
        return false;
    switch (tasto) {
        case Qt::Key_Up:
        case Qt::Key_Down:
            scegli(corrente);
            return true;
        case Qt::Key_Home:
            scegli(0);
            return true;
        case Qt::Key_End:
            scegli(topLevelItemCount() - 1);
            return true;
        default:
            return false;
    }
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
            if (scegliConFreccia(evento->key()))
                return;
    }
    QTreeWidget::keyPressEvent(evento);
}

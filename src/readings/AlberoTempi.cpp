#include "readings/AlberoTempi.h"

#include <QKeyEvent>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int RuoloChiave = Qt::UserRole;
constexpr int RuoloNumero = Qt::UserRole + 1;

QTreeWidgetItem* nodo(const QString& testo, const QString& chiave) {
    auto* item = new QTreeWidgetItem({testo});
    item->setData(0, RuoloChiave, chiave);
    item->setToolTip(0, testo);
    return item;
}

QTreeWidgetItem* nodoEquipaggio(const EquipaggioTrovato& equipaggio) {
    QTreeWidgetItem* padre = nodo(equipaggio.testo, chiaveEquipaggio(equipaggio.idEqu));
    padre->setData(0, RuoloNumero, equipaggio.num);
    for (const ProvaTrovata& prova : equipaggio.prove) {
        QTreeWidgetItem* figlio = nodo(prova.nome, chiaveProva(equipaggio.idEqu, prova.idPro));
        for (const TempoTrovato& tempo : prova.tempi)
            figlio->addChild(nodo(tempo.testo, chiaveTempo(equipaggio.idEqu, prova.idPro, tempo)));
        padre->addChild(figlio);
    }
    return padre;
}

// The node of that key among the children, or nothing.
QTreeWidgetItem* cerca(const QTreeWidgetItem* padre, const QString& chiave) {
    for (int i = 0; i < padre->childCount(); ++i) {
        if (padre->child(i)->data(0, RuoloChiave).toString() == chiave)
            return padre->child(i);
    }
    return nullptr;
}

}  // namespace

AlberoTempi::AlberoTempi(QWidget* padre) : QTreeWidget(padre) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    connect(this, &QTreeWidget::itemActivated, this,
            [this](const QTreeWidgetItem* item) { Q_EMIT scelto(item->data(0, RuoloChiave).toString()); });
}

void AlberoTempi::mostra(const RisultatoRicerca& risultato) {
    const QString scelta = chiaveScelta();
    setUpdatesEnabled(false);
    clear();
    QList<QTreeWidgetItem*> nodi;
    for (const EquipaggioTrovato& equipaggio : risultato.equipaggi)
        nodi << nodoEquipaggio(equipaggio);
    addTopLevelItems(nodi);
    setUpdatesEnabled(true);
    ripristina(scelta);
}

void AlberoTempi::sostituisci(int idEqu, const RisultatoRicerca& risultato) {
    const QString scelta = chiaveScelta();
    QTreeWidgetItem* vecchio = cerca(invisibleRootItem(), chiaveEquipaggio(idEqu));
    const bool aperto = vecchio && vecchio->isExpanded();
    delete vecchio;
    if (!risultato.equipaggi.empty()) {
        const EquipaggioTrovato& equipaggio = risultato.equipaggi.front();
        int posto = 0;
        while (posto < topLevelItemCount() &&
               topLevelItem(posto)->data(0, RuoloNumero).toInt() < equipaggio.num)
            ++posto;
        insertTopLevelItem(posto, nodoEquipaggio(equipaggio));
        topLevelItem(posto)->setExpanded(aperto);
    }
    ripristina(scelta);
}

QString AlberoTempi::chiaveScelta() const {
    const QList<QTreeWidgetItem*> scelti = selectedItems();
    return scelti.isEmpty() ? QString() : scelti.first()->data(0, RuoloChiave).toString();
}

void AlberoTempi::ripristina(const QString& chiave) {
    QTreeWidgetItem* trovato = invisibleRootItem();
    for (qsizetype fine = chiave.indexOf(u'/', 1); !chiave.isEmpty(); fine = chiave.indexOf(u'/', fine + 1)) {
        QTreeWidgetItem* figlio = cerca(trovato, chiave.left(fine));
        if (!figlio)
            break;
        trovato = figlio;
        if (fine < 0)
            break;
    }
    if (trovato == invisibleRootItem()) {
        // Gone: the row that has taken its place, the first one in a new tree.
        setCurrentItem(currentItem() ? currentItem() : topLevelItem(0));
        return;
    }
    setCurrentItem(trovato);
    trovato->setExpanded(true);
    scrollToItem(trovato);
}

void AlberoTempi::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape) {
        Q_EMIT lasciato();
    } else if (evento->key() == Qt::Key_Plus || evento->key() == Qt::Key_Minus) {
        evento->ignore();
    } else {
        QTreeWidget::keyPressEvent(evento);
    }
}

// A press may end what is being typed, and the tree be made anew before the button is let go: the click is
// that of the node that was pressed, by its key.
void AlberoTempi::mousePressEvent(QMouseEvent* evento) {
    const QTreeWidgetItem* item = itemAt(evento->pos());
    const bool suIlTesto = item && visualItemRect(item).contains(evento->pos());
    m_premuto =
        suIlTesto && evento->button() == Qt::LeftButton ? item->data(0, RuoloChiave).toString() : QString();
    QTreeWidget::mousePressEvent(evento);
}

void AlberoTempi::mouseReleaseEvent(QMouseEvent* evento) {
    QTreeWidget::mouseReleaseEvent(evento);
    const QString premuto = std::exchange(m_premuto, {});
    if (!premuto.isEmpty() && viewport()->rect().contains(evento->pos()))
        Q_EMIT scelto(premuto);
}

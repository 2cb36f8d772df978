#include "download/ElencoPressostati.h"

#include "common/Elenchi.h"

#include <algorithm>
#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {

constexpr int Bersagli = 3;

constexpr int colonnaTesto(int bersaglio) {
    return 2 * bersaglio;
}
constexpr int colonnaChiave(int bersaglio) {
    return 2 * bersaglio + 1;
}

}  // namespace

ElencoPressostati::ElencoPressostati(QWidget* padre) : QTreeWidget(padre) {
    setHeaderLabels(
        {u"Pressostato"_s, u"IDPro"_s, u"2° Rilevamento"_s, u"IDPro"_s, u"3° Rilevamento"_s, u"IDPro"_s});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    header()->setStretchLastSection(false);
    for (int bersaglio = 0; bersaglio < Bersagli; ++bersaglio) {
        hideColumn(colonnaChiave(bersaglio));
        header()->setSectionResizeMode(colonnaTesto(bersaglio), QHeaderView::ResizeToContents);
    }
}

void ElencoPressostati::mostra(const QList<Pressostato>& pressostati) {
    QList<QTreeWidgetItem*> righe;
    qsizetype massimo = 1;
    for (const Pressostato& pressostato : pressostati) {
        massimo = std::max(massimo, pressostato.size());
        auto* riga = new QTreeWidgetItem;
        riga->setCheckState(0, Qt::Unchecked);
        for (int i = 0; i < pressostato.size(); ++i) {
            riga->setText(colonnaTesto(i), pressostato[i].testo);
            riga->setText(colonnaChiave(i), QString::number(pressostato[i].idPro));
        }
        righe << riga;
    }
    sostituisciRighe(this, righe, PrimaRiga::Scelta, {colonnaChiave(0), Qt::DisplayRole});
    for (int bersaglio = 1; bersaglio < Bersagli; ++bersaglio)
        setColumnHidden(colonnaTesto(bersaglio), bersaglio >= massimo);
}

QList<int> ElencoPressostati::righeScelte() const {
    QList<int> righe;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (topLevelItem(i)->checkState(0) == Qt::Checked)
            righe << i;
    }
    return righe;
}

QList<Pressostato> ElencoPressostati::scelti() const {
    QList<Pressostato> pressostati;
    for (const int riga : righeScelte()) {
        Pressostato pressostato;
        const QTreeWidgetItem* item = topLevelItem(riga);
        for (int i = 0; i < Bersagli && !item->text(colonnaTesto(i)).isEmpty(); ++i)
            pressostato << Bersaglio{item->text(colonnaChiave(i)).toInt(), item->text(colonnaTesto(i))};
        pressostati << pressostato;
    }
    return pressostati;
}

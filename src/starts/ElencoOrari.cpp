#include "starts/ElencoOrari.h"

#include "common/Elenchi.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {

QTreeWidgetItem* rigaOrario(const OrarioPartenza& orario) {
    auto* item =
        new QTreeWidgetItem({QString::number(orario.num), orario.ora, QString::number(orario.idEqu)});
    item->setTextAlignment(ElencoOrari::Numero, Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

}  // namespace

ElencoOrari::ElencoOrari(QWidget* padre) : QTreeWidget(padre) {
    setHeaderLabels({u"Num."_s, u"Orario"_s, u"IDEqu"_s});
    headerItem()->setTextAlignment(Numero, Qt::AlignRight | Qt::AlignVCenter);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    hideColumn(Chiave);
    header()->resizeSection(Numero, fontMetrics().horizontalAdvance(u"00000000"_s));
}

void ElencoOrari::aggiungi(const OrarioPartenza& orario) {
    addTopLevelItem(rigaOrario(orario));
}

void ElencoOrari::mostra(const std::vector<OrarioPartenza>& orari) {
    QList<QTreeWidgetItem*> righe;
    for (const OrarioPartenza& orario : orari)
        righe << rigaOrario(orario);
    sostituisciRighe(this, righe, PrimaRiga::Scelta, {Chiave, Qt::DisplayRole});
}

std::vector<OrarioPartenza> ElencoOrari::orari() const {
    std::vector<OrarioPartenza> orari;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = topLevelItem(i);
        orari.push_back({item->text(Numero).toInt(), item->text(Ora), item->text(Chiave).toInt()});
    }
    return orari;
}

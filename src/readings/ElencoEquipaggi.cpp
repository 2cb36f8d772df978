#include "readings/ElencoEquipaggi.h"

#include <QHeaderView>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

ElencoEquipaggi::ElencoEquipaggi(QWidget* padre) : QTreeWidget(padre) {
    setHeaderLabels({u"IDEqu"_s, u"Num."_s, u"Equipaggio"_s, u"Veicolo"_s, u"ASI"_s});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    hideColumn(Chiave);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(Numero, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(Equipaggio, QHeaderView::Stretch);
    header()->setSectionResizeMode(Veicolo, QHeaderView::Stretch);
    header()->setSectionResizeMode(ASI, QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::currentItemChanged, this,
            [this](const QTreeWidgetItem* item, QTreeWidgetItem* prima) {
                if (item)
                    annuncia(prima);
            });
}

void ElencoEquipaggi::annuncia(QTreeWidgetItem* prima) {
    try {
        Q_EMIT scelto();
    } catch (...) {
        const QSignalBlocker zitto(this);
        setCurrentItem(prima, Numero);
        throw;
    }
}

void ElencoEquipaggi::carica() {
    blockSignals(true);
    clear();
    QList<QTreeWidgetItem*> righe;
    for (const EquipaggioElenco& e : leggiEquipaggi()) {
        righe << new QTreeWidgetItem({QString::number(e.idEqu), QString::number(e.num), e.nome, e.veicolo,
                                      e.asi ? u"True"_s : u"False"_s});
        righe.last()->setTextAlignment(Numero, Qt::AlignRight | Qt::AlignVCenter);
        righe.last()->setToolTip(Equipaggio, e.nome);
        righe.last()->setToolTip(Veicolo, e.veicolo);
    }
    addTopLevelItems(righe);
    blockSignals(false);
    if (topLevelItemCount() > 0)
        setCurrentItem(topLevelItem(0), Numero);
}

void ElencoEquipaggi::sposta(int passo) {
    const int posto = indexOfTopLevelItem(currentItem()) + passo;
    if (posto >= 0 && posto < topLevelItemCount())
        setCurrentItem(topLevelItem(posto), Numero);
}

bool ElencoEquipaggi::vaiA(int idEqu) {
    return vaiDove(Chiave, idEqu);
}

bool ElencoEquipaggi::vaiAlNumero(int num) {
    return vaiDove(Numero, num);
}

bool ElencoEquipaggi::vaiDove(Colonna colonna, int valore) {
    const QList<QTreeWidgetItem*> trovati =
        findItems(QString::number(valore), Qt::MatchExactly | Qt::MatchCaseSensitive, colonna);
    if (trovati.isEmpty())
        return false;
    setCurrentItem(trovati.first(), Numero);
    return true;
}

std::optional<EquipaggioElenco> ElencoEquipaggi::corrente() const {
    const QTreeWidgetItem* item = currentItem();
    if (!item)
        return std::nullopt;
    return EquipaggioElenco{item->text(Chiave).toInt(), item->text(Numero).toInt(), item->text(Equipaggio),
                            item->text(Veicolo), item->text(ASI) == u"True"};
}

QString ElencoEquipaggi::etichetta() const {
    const std::optional<EquipaggioElenco> e = corrente();
    return e ? u"N. %1 - %2 - %3"_s.arg(QString::number(e->num), e->nome, e->veicolo) : QString();
}

void ElencoEquipaggi::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Plus || evento->key() == Qt::Key_Minus) {
        evento->ignore();
    } else {
        QTreeWidget::keyPressEvent(evento);
    }
}

#include "common/Elenchi.h"

#include <algorithm>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int ColonnaMinima = 48;

// In a list where nothing is chosen yet the first key chooses the current row instead of leaving it.
class PrimoTasto final : public QObject {
public:
    explicit PrimoTasto(QTreeWidget* elenco) : QObject(elenco), m_elenco(elenco) {
        setObjectName(u"primoTasto"_s);
        elenco->installEventFilter(this);
    }

    bool eventFilter(QObject* /*oggetto*/, QEvent* evento) override {
        if (evento->type() != QEvent::KeyPress || !m_elenco->selectedItems().isEmpty())
            return false;
        const int tasto = static_cast<QKeyEvent*>(evento)->key();
        const bool freccia = tasto == Qt::Key_Down || tasto == Qt::Key_Up;
        if ((!freccia && tasto != Qt::Key_Home && tasto != Qt::Key_End) || m_elenco->topLevelItemCount() == 0)
            return false;
        QTreeWidgetItem* corrente = m_elenco->currentItem();
        const int estrema = tasto == Qt::Key_End ? m_elenco->topLevelItemCount() - 1 : 0;
        m_elenco->setCurrentItem(freccia && corrente ? corrente : m_elenco->topLevelItem(estrema));
        m_elenco->currentItem()->setSelected(true);
        return true;
    }

private:
    QTreeWidget* m_elenco;
};

int larghezza(const QHeaderView* testata) {
    int somma = 0;
    for (int i = 0; i < testata->count(); ++i)
        somma += testata->sectionSize(i);
    return somma;
}

}  // namespace

void sostituisciRighe(QTreeWidget* elenco, const QList<QTreeWidgetItem*>& righe, PrimaRiga prima,
                      ChiaveRiga chiave) {
    if (prima == PrimaRiga::Corrente &&
        !elenco->findChild<QObject*>(u"primoTasto"_s, Qt::FindDirectChildrenOnly))
        new PrimoTasto(elenco);
    const auto chiaveDi = [chiave](const QTreeWidgetItem* riga) {
        return riga->data(chiave.colonna, chiave.ruolo);
    };
    QTreeWidgetItem* corrente = elenco->currentItem();
    const bool vuoto = !corrente;
    const bool scelta = corrente ? corrente->isSelected() : prima == PrimaRiga::Scelta;
    const QVariant tenuta = corrente ? chiaveDi(corrente) : QVariant();
    const qsizetype posto = corrente ? elenco->indexOfTopLevelItem(corrente) : 0;
    const int colonna = std::max(0, elenco->currentColumn());
    {
        const QSignalBlocker zitto(elenco);
        elenco->setUpdatesEnabled(false);
        elenco->clear();
        elenco->addTopLevelItems(righe);
        elenco->setUpdatesEnabled(true);
    }
    if (righe.isEmpty())
        return;
    const auto trovata = vuoto ? righe.cend() : std::ranges::find(righe, tenuta, chiaveDi);
    QTreeWidgetItem* nuova = trovata != righe.cend() ? *trovata : righe[std::min(posto, righe.size() - 1)];
    elenco->setCurrentItem(nuova, colonna);
    // The row that takes the place of one that is gone was never chosen.
    if (!scelta || (!vuoto && trovata == righe.cend() && prima == PrimaRiga::Corrente))
        nonScegliere(elenco);
    elenco->scrollToItem(nuova);
}

void nonScegliere(QTreeWidget* elenco) {
    elenco->clearSelection();
}

void adattaColonne(QTreeWidget* elenco) {
    QHeaderView* testata = elenco->header();
    for (int i = 0; i < testata->count(); ++i)
        elenco->resizeColumnToContents(i);
    // The widest column gives to the next widest, until all have the room.
    for (int troppo = larghezza(testata) - elenco->viewport()->width(); troppo > 0;) {
        QList<int> misure;
        for (int i = 0; i < testata->count(); ++i)
            misure << testata->sectionSize(i);
        const int massima = *std::ranges::max_element(misure);
        if (massima <= ColonnaMinima)
            break;
        const int pari = static_cast<int>(misure.count(massima));
        int seconda = ColonnaMinima;
        for (const int misura : std::as_const(misure))
            seconda = misura < massima ? std::max(seconda, misura) : seconda;
        const int nuova = std::max(seconda, massima - (troppo + pari - 1) / pari);
        for (int i = 0; i < testata->count(); ++i) {
            if (misure[i] == massima)
                testata->resizeSection(i, nuova);
        }
        const int prima = troppo;
        troppo = larghezza(testata) - elenco->viewport()->width();
        if (troppo >= prima)
            break;  // a column that will not give
    }
}

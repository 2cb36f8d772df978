#include "entries/ElencoIscritti.h"

#include "archive/Testi.h"

#include <algorithm>
#include <QSignalBlocker>

namespace {

constexpr qint64 PausaRicerca = 1000;  // ms: what comes later begins another search

class RigaElenco final : public QTreeWidgetItem {
public:
    explicit RigaElenco(const RigaEquipaggio& equipaggio) {
        setText(ElencoIscritti::IDEqu, QString::number(equipaggio.idEqu));
        setData(ElencoIscritti::Num, Qt::DisplayRole, equipaggio.num);
        setTextAlignment(ElencoIscritti::Num, Qt::AlignRight | Qt::AlignVCenter);
        setText(ElencoIscritti::Conducente, equipaggio.conducente);
    }

    bool operator<(const QTreeWidgetItem& altra) const override {
        const int colonna = treeWidget()->sortColumn();
        if (colonna != ElencoIscritti::Conducente)
            return data(colonna, Qt::DisplayRole).toInt() < altra.data(colonna, Qt::DisplayRole).toInt();
        return confrontaTesti(text(colonna), altra.text(colonna)) < 0;
    }
};

}  // namespace

void ElencoIscritti::riempi(const QList<RigaEquipaggio>& equipaggi) {
    QList<QTreeWidgetItem*> nuove;
    for (const RigaEquipaggio& equipaggio : equipaggi)
        nuove << new RigaElenco(equipaggio);
    const QSignalBlocker fermo(this);
    clear();
    addTopLevelItems(nuove);
}

void ElencoIscritti::aggiorna(int riga, int num, const QString& conducente) {
    topLevelItem(riga)->setData(Num, Qt::DisplayRole, num);
    topLevelItem(riga)->setText(Conducente, conducente);
}

void ElencoIscritti::seleziona(int riga) {
    QTreeWidgetItem* voce = topLevelItem(riga);
    setCurrentItem(voce, Num);
    scrollToItem(voce);
}

int ElencoIscritti::rigaDi(int idEqu) const {
    for (int riga = 0; riga < topLevelItemCount(); ++riga) {
        if (this->idEqu(riga) == idEqu)
            return riga;
    }
    return -1;
}

int ElencoIscritti::idEqu(int riga) const {
    return topLevelItem(riga)->text(IDEqu).toInt();
}

int ElencoIscritti::numero(int riga) const {
    return topLevelItem(riga)->data(Num, Qt::DisplayRole).toInt();
}

void ElencoIscritti::keyboardSearch(const QString& battuto) {
    if (!m_dallUltimo.isValid() || m_dallUltimo.hasExpired(PausaRicerca))
        m_cercato.clear();
    m_dallUltimo.start();
    m_cercato += battuto;
    if (const int riga = trova(m_cercato); riga >= 0)
        seleziona(riga);
}

// The number itself before one that only begins so: 1 before 10.
int ElencoIscritti::trova(const QString& testo) const {
    const bool cifre = std::ranges::all_of(testo, [](QChar c) { return c.isDigit(); });
    int inizia = -1;
    for (int riga = 0; riga < topLevelItemCount(); ++riga) {
        const QString cella = topLevelItem(riga)->text(cifre ? Num : Conducente);
        if (cifre && cella == testo)
            return riga;
        if (inizia < 0 && cella.startsWith(testo, Qt::CaseInsensitive))
            inizia = riga;
    }
    return inizia;
}

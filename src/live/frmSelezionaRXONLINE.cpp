#include "live/frmSelezionaRXONLINE.h"

#include "common/Dialoghi.h"
#include "common/Public.h"
#include "live/frmRicezioneONLINE.h"
#include "ui_frmSelezionaRXONLINE.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int Chiave = Qt::UserRole;

QTreeWidgetItem* nodo(const ProvaCronometrata& prova) {
    auto* item = new QTreeWidgetItem({prova.nom + u' ' + prova.tem});
    item->setData(0, Chiave, u"PA"_s + QString::number(prova.idPro));
    return item;
}

}  // namespace

frmSelezionaRXONLINE::frmSelezionaRXONLINE(QWidget* padre)
    : Finestra(padre), m_ui(std::make_unique<Ui::frmSelezionaRXONLINE>()) {
    m_ui->setupUi(this);
    connect(m_ui->cmdSeleziona, &QPushButton::clicked, this, &frmSelezionaRXONLINE::seleziona);
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QDialog::close);
    connect(m_ui->trePro, &QTreeWidget::itemActivated, this, &frmSelezionaRXONLINE::seleziona);
    riempi();
}

frmSelezionaRXONLINE::~frmSelezionaRXONLINE() = default;

void frmSelezionaRXONLINE::riempi() {
    m_catene = elencaCatene(leggiProveCronometrate(IDMan));
    QList<QTreeWidgetItem*> radici;
    for (const Catena& catena : std::as_const(m_catene)) {
        radici << nodo(catena.first());
        for (qsizetype i = 1; i < catena.size(); ++i)
            radici.last()->addChild(nodo(catena[i]));
    }
    m_ui->trePro->addTopLevelItems(radici);
    m_ui->trePro->expandAll();
    m_ui->trePro->setCurrentItem(m_ui->trePro->topLevelItem(0));
}

void frmSelezionaRXONLINE::seleziona() {
    QTreeWidgetItem* scelto = m_ui->trePro->currentItem();
    if (!scelto) {
        avverti(u"Impossibile Selezionare"_s, u"Selezionare una Prova"_s);
        return;
    }
    QTreeWidgetItem* testa = scelto->parent() ? scelto->parent() : scelto;
    frmRicezioneONLINE ricezione(m_catene[m_ui->trePro->indexOfTopLevelItem(testa)], this);
    ricezione.exec();
}

#include "live/frmClassificaDiProvaInTempoReale.h"

#include "scoring/ClassificaTempoReale.h"
#include "ui_frmClassificaDiProvaInTempoReale.h"

#include <QHeaderView>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

enum Colonna { Posizione, Numero, Equipaggio, Veicolo, Penalita };

}  // namespace

frmClassificaDiProvaInTempoReale::frmClassificaDiProvaInTempoReale(const Catena& catena, QWidget* padre)
    : Finestra(padre), m_ui(std::make_unique<Ui::frmClassificaDiProvaInTempoReale>()) {
    m_ui->setupUi(this);
    QHeaderView* testata = m_ui->lstClas->header();
    testata->setStretchLastSection(false);
    for (const Colonna colonna : {Posizione, Numero, Penalita}) {
        testata->setSectionResizeMode(colonna, QHeaderView::ResizeToContents);
        m_ui->lstClas->headerItem()->setTextAlignment(colonna, Qt::AlignRight | Qt::AlignVCenter);
    }
    for (const Colonna colonna : {Equipaggio, Veicolo})
        testata->setSectionResizeMode(colonna, QHeaderView::Stretch);
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QDialog::close);
    riempi(catena);
}

frmClassificaDiProvaInTempoReale::~frmClassificaDiProvaInTempoReale() = default;

void frmClassificaDiProvaInTempoReale::riempi(const Catena& catena) {
    QStringList nomi;
    std::vector<int> prove;
    for (const ProvaCronometrata& prova : catena) {
        nomi << prova.nom;
        prove.push_back(prova.idPro);
    }
    m_ui->lblPro->setText(nomi.join(u" - "_s));

    const QLocale italiano(QLocale::Italian, QLocale::Italy);
    QList<QTreeWidgetItem*> righe;
    for (const RigaTempoReale& riga : classificaTempoReale(prove)) {
        righe << new QTreeWidgetItem({QString::number(righe.size() + 1), QString::number(riga.num),
                                      riga.equipaggio, riga.veicolo, italiano.toString(riga.ordine)});
        for (const Colonna colonna : {Posizione, Numero, Penalita})
            righe.last()->setTextAlignment(colonna, Qt::AlignRight | Qt::AlignVCenter);
        righe.last()->setToolTip(Equipaggio, riga.equipaggio);
        righe.last()->setToolTip(Veicolo, riga.veicolo);
    }
    m_ui->lstClas->addTopLevelItems(righe);
    m_ui->lstClas->setCurrentItem(m_ui->lstClas->topLevelItem(0));
}

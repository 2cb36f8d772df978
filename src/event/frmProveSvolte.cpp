#include "event/frmProveSvolte.h"

#include "common/Dialoghi.h"
#include "common/Public.h"
#include "event/Prove.h"
#include "ui_frmProveSvolte.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int ColonnaIDPro = 2;
}

frmProveSvolte::frmProveSvolte(QWidget* padre)
    : FinestraModifica(padre), m_ui(std::make_unique<Ui::frmProveSvolte>()) {
    m_ui->setupUi(this);
    m_ui->lstProve->hideColumn(ColonnaIDPro);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmProveSvolte::salva);
    connect(m_ui->cmdAnnulla, &QPushButton::clicked, this, &QWidget::close);
    carica();
    ricorda();
}

frmProveSvolte::~frmProveSvolte() = default;

void frmProveSvolte::carica() {
    const QList<ProvaSvolta> prove = leggiProveSvolte(IDMan);
    QList<Elenco::Riga> righe;
    for (const ProvaSvolta& prova : prove)
        righe << Elenco::Riga{{prova.nom, prova.dat, QString::number(prova.id)}, prova.id};
    m_ui->lstProve->riempi(righe);
    for (int i = 0; i < prove.size(); ++i)
        m_ui->lstProve->topLevelItem(i)->setCheckState(0, prove[i].svolta ? Qt::Checked : Qt::Unchecked);
    m_ui->lstProve->adattaColonne();
    m_ui->lstProve->scegli(prove.isEmpty() ? -1 : 0);
}

void frmProveSvolte::salva() {
    QList<ProvaSvolta> prove;
    for (int i = 0; i < m_ui->lstProve->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* riga = m_ui->lstProve->topLevelItem(i);
        prove << ProvaSvolta{.id = riga->text(ColonnaIDPro).toInt(),
                             .svolta = riga->checkState(0) == Qt::Checked};
    }
    scriviProveSvolte(prove);
    MostraMessaggio(u"Prove Modificate"_s);
    accept();
}

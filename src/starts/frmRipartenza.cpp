#include "starts/frmRipartenza.h"

#include "common/Dialoghi.h"
#include "common/Elenchi.h"
#include "starts/OrariDiPartenza.h"
#include "ui_frmRipartenza.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {

enum Colonna { Nome, TempoImposto, Chiave };

}  // namespace

frmRipartenza::frmRipartenza(QWidget* padre)
    : FinestraOrari(padre), m_ui(std::make_unique<Ui::frmRipartenza>()) {
    m_ui->setupUi(this);
    m_ui->lstPro->hideColumn(Chiave);
    m_ui->lstPro->header()->setStretchLastSection(false);
    m_ui->lstPro->header()->setSectionResizeMode(Nome, QHeaderView::Stretch);
    QList<QTreeWidgetItem*> righe;
    for (const ControlloOrario& controllo : leggiControlliOrari())
        righe << new QTreeWidgetItem({controllo.nome, controllo.tempo, QString::number(controllo.idPro)});
    // The first one is not the chosen one until the operator says so.
    sostituisciRighe(m_ui->lstPro, righe, PrimaRiga::Corrente);
    collega({m_ui->txtTem, m_ui->txtIntervalloPartenze, m_ui->txtPrimoNumero, m_ui->lstOrari, m_ui->cmdGenera,
             m_ui->cmdRicezione, m_ui->cmdSalva, m_ui->cmdEsci});
}

frmRipartenza::~frmRipartenza() = default;

bool frmRipartenza::verifica(const QString& titolo) {
    if (daIDPro())
        return true;
    avverti(titolo, u"Selezionare il Primo CO Influenzato dalla Ripartenza"_s);
    m_ui->lstPro->setFocus();
    return false;
}

std::optional<int> frmRipartenza::daIDPro() const {
    const QList<QTreeWidgetItem*> scelti = m_ui->lstPro->selectedItems();
    return scelti.isEmpty() ? std::nullopt : std::optional(scelti.first()->text(Chiave).toInt());
}

QString frmRipartenza::avvisoSalvato() const {
    return u"Ripartenza Creata"_s;
}

#include "starts/frmGestioneOrariDiPartenza.h"

#include "ui_frmGestioneOrariDiPartenza.h"

using namespace Qt::StringLiterals;

frmGestioneOrariDiPartenza::frmGestioneOrariDiPartenza(QWidget* padre)
    : FinestraOrari(padre), m_ui(std::make_unique<Ui::frmGestioneOrariDiPartenza>()) {
    m_ui->setupUi(this);
    collega({m_ui->txtTem, m_ui->txtIntervalloPartenze, m_ui->txtPrimoNumero, m_ui->lstOrari, m_ui->cmdGenera,
             m_ui->cmdRicezione, m_ui->cmdSalva, m_ui->cmdEsci});
}

frmGestioneOrariDiPartenza::~frmGestioneOrariDiPartenza() = default;

QString frmGestioneOrariDiPartenza::avvisoSalvato() const {
    return u"Orari di Partenza Salvati"_s;
}

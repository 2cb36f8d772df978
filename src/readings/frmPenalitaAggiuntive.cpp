#include "readings/frmPenalitaAggiuntive.h"

#include "output/ApriReport.h"
#include "ui_frmPenalitaAggiuntive.h"

using namespace Qt::StringLiterals;

frmPenalitaAggiuntive::frmPenalitaAggiuntive(QWidget* padre)
    : FinestraRilevamenti(padre), m_ui(std::make_unique<Ui::frmPenalitaAggiuntive>()) {
    m_ui->setupUi(this);
    m_ui->divisore->setSizes({440, 700});
    m_ui->etichettaPenalita->setBuddy(m_ui->griglia->focusProxy());
    // Comes alive with the Excel sheets.
    m_ui->cmdStampaExcel->setEnabled(false);
    connect(m_ui->cmdStampa, &QPushButton::clicked, this, &frmPenalitaAggiuntive::stampa);
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QDialog::close);

    m_ui->griglia->apri(ModoGriglia::PenalitaAggiuntive);
    collega(m_ui->lstEq, m_ui->griglia, m_ui->lblEqu);
}

frmPenalitaAggiuntive::~frmPenalitaAggiuntive() = default;

void frmPenalitaAggiuntive::stampa() {
    if (m_ui->griglia->concludiModifica(Uscita::Altrove))
        ApriReport(u"PenalitàAggiuntive"_s, {}, u"Penalità Aggiuntive"_s, {}, {});
}

#include "scoring/frmClassificaDiGruppo.h"

#include "archive/Statement.h"
#include "common/Public.h"
#include "common/Subroutine.h"
#include "common/Valori.h"
#include "scoring/MostraClassifica.h"
#include "ui_frmClassificaDiGruppo.h"

using namespace Qt::StringLiterals;

frmClassificaDiGruppo::frmClassificaDiGruppo(QWidget* padre)
    : Finestra(padre), m_ui(std::make_unique<Ui::frmClassificaDiGruppo>()) {
    m_ui->setupUi(this);
    // Double click and Enter on a group act like the button.
    connect(m_ui->lstRag, &Elenco::aperto, this, &frmClassificaDiGruppo::stampa);
    connect(m_ui->cmdStampa, &QPushButton::clicked, this, &frmClassificaDiGruppo::stampa);
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QDialog::reject);
    riempi();
}

frmClassificaDiGruppo::~frmClassificaDiGruppo() = default;

void frmClassificaDiGruppo::riempi() {
    QList<Elenco::Riga> righe;
    Statement riga(u"SELECT IDGru,Nom,Fat FROM Raggruppamenti WHERE IDMan_FK=? ORDER BY IDGru"_s);
    riga.esegui({IDMan});
    while (riga.prossima()) {
        righe << Elenco::Riga{{riga.testo(1), riga.nullo(2) ? QString() : numeroInTesto(riga.reale(2))},
                              riga.intero(0)};
    }
    m_ui->lstRag->riempi(righe);
    for (int i = 0; i < righe.size(); ++i)
        m_ui->lstRag->topLevelItem(i)->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    m_ui->lstRag->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_ui->lstRag->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_ui->lstRag->header()->setStretchLastSection(false);
}

void frmClassificaDiGruppo::stampa() {
    const int idGru = m_ui->lstRag->chiaveScelta();
    if (idGru == 0)
        return;
    const CursoreAttesa cursore;
    MostraClassifica({.idGru = idGru, .dat = Data, .soloSvolte = Data.isEmpty()});
}

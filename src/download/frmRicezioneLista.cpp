#include "download/frmRicezioneLista.h"

#include "common/Dialoghi.h"
#include "common/Public.h"
#include "common/Subroutine.h"
#include "ui_frmRicezioneLista.h"

using namespace Qt::StringLiterals;

frmRicezioneLista::frmRicezioneLista(Consegna consegna, QWidget* padre)
    : FinestraScarico(padre),
      m_ui(std::make_unique<Ui::frmRicezioneLista>()),
      m_consegna(std::move(consegna)) {
    m_ui->setupUi(this);
    collega({m_ui->cboChrono, m_ui->cboPortaCOM, m_ui->cmdIniziaRicezione, m_ui->cmdArrestaRicezione,
             m_ui->frmStatus},
            u"lista"_s);
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QWidget::close);
    m_ui->cboChrono->setFocus();
}

frmRicezioneLista::~frmRicezioneLista() = default;

void frmRicezioneLista::elabora(Dispositivo dispositivo, const QByteArray& flusso) {
    {
        const CursoreAttesa attesa;
        m_consegna(assegnaALista(leggiRecord(dispositivo, flusso), leggiEquipaggi(IDMan), taglio()));
    }
    stato().mostra({u"ELABORAZIONE"_s, u"TERMINATA"_s}, PannelloStato::Tono::Terminata);
    Dialoghi::corrente().messaggio(u"Ricezione OK"_s, u"Ricezione Terminata"_s, Icona::Informazione);
}

QWidget* frmRicezioneLista::prossimoControllo() const {
    return m_ui->cmdEsci;
}

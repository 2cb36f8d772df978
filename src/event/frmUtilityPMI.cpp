#include "event/frmUtilityPMI.h"

#include "common/Dialoghi.h"
#include "common/Subroutine.h"
#include "event/Media.h"
#include "ui_frmUtilityPMI.h"

using namespace Qt::StringLiterals;

frmUtilityPMI::frmUtilityPMI(QWidget* padre) : Finestra(padre), m_ui(std::make_unique<Ui::frmUtilityPMI>()) {
    m_ui->setupUi(this);
    // No check on leaving: each button says what it lacks.
    applicaMaschera(m_ui->t, Maschera::Ora);
    applicaFiltro(m_ui->s, Filtro::CifreVirgola);
    applicaFiltro(m_ui->v, Filtro::CifreVirgola);
    connect(m_ui->cmdS, &QPushButton::clicked, this, [this] {
        mostra(m_ui->s, calcolaDistanza(valoreMascherato(m_ui->t, Maschera::Ora), m_ui->v->text()));
    });
    connect(m_ui->cmdT, &QPushButton::clicked, this,
            [this] { mostra(m_ui->t, calcolaTempo(m_ui->s->text(), m_ui->v->text())); });
    connect(m_ui->cmdV, &QPushButton::clicked, this, [this] {
        mostra(m_ui->v, calcolaVelocita(valoreMascherato(m_ui->t, Maschera::Ora), m_ui->s->text()));
    });
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QWidget::close);
}

frmUtilityPMI::~frmUtilityPMI() = default;

void frmUtilityPMI::mostra(QLineEdit* campo, const std::optional<QString>& risultato) {
    if (!risultato) {
        avverti(u"Impossibile Calcolare"_s, u"Dati Mancanti o Incorretti"_s);
        return;
    }
    // A time of one digit of hours goes to the second place of its mask.
    campo->setText(campo == m_ui->t ? risultato->rightJustified(8, u'0') : *risultato);
    campo->setCursorPosition(0);
}

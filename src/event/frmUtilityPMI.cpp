#include "event/frmUtilityPMI.h"

#include "common/Dialoghi.h"
#include "common/Subroutine.h"
#include "common/Valori.h"
#include "event/Media.h"
#include "ui_frmUtilityPMI.h"

#include <algorithm>

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
    m_campi = {m_ui->v, m_ui->s, m_ui->t};
    for (QLineEdit* campo : {m_ui->t, m_ui->s, m_ui->v})
        connect(campo, &QLineEdit::textEdited, this, [=, this] { scritto(campo); });
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QWidget::close);
}

frmUtilityPMI::~frmUtilityPMI() = default;

void frmUtilityPMI::mostra(QLineEdit* campo, const std::optional<QString>& risultato) {
    if (!risultato) {
        avverti(u"Impossibile Calcolare"_s, u"Dati Mancanti o Incorretti"_s);
        rifiuta(campo);
        return;
    }
    // A time of one digit of hours goes to the second place of its mask.
    campo->setText(campo == m_ui->t ? risultato->rightJustified(8, u'0') : *risultato);
    campo->setCursorPosition(0);
}

// Back to the field that cannot be used for the result of that one.
void frmUtilityPMI::rifiuta(const QLineEdit* campo) {
    QList<QLineEdit*> dati{m_ui->t, m_ui->s, m_ui->v};
    dati.removeIf([campo](const QLineEdit* dato) { return dato == campo; });
    const auto valido = [this](const QLineEdit* dato) {
        return dato == m_ui->t ? !valoreMascherato(dato, Maschera::Ora).isEmpty()
                               : leggiNumero(dato->text()).value_or(0) > 0;
    };
    QLineEdit* errato = valido(dati[0]) ? dati[1] : dati[0];
    errato->setFocus();
    errato->selectAll();
}

// The road of Enter ends on the button of the field that is missing, or else was typed longest ago.
void frmUtilityPMI::scritto(QLineEdit* campo) {
    m_campi.removeOne(campo);
    m_campi << campo;
    const auto vuoto = std::ranges::find_if(m_campi, [](const QLineEdit* c) {
        return std::ranges::none_of(c->text(), [](QChar cifra) { return cifra.isDigit(); });
    });
    const QLineEdit* manca = vuoto == m_campi.cend() ? m_campi.constFirst() : *vuoto;
    setTabOrder(m_ui->v, manca == m_ui->t ? m_ui->cmdT : manca == m_ui->s ? m_ui->cmdS : m_ui->cmdV);
}

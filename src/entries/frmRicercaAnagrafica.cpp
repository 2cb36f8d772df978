#include "entries/frmRicercaAnagrafica.h"

#include "common/Public.h"
#include "ui_frmRicercaAnagrafica.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int ColonnaIDEqu = 5;
}

frmRicercaAnagrafica::frmRicercaAnagrafica(QWidget* padre)
    : Finestra(padre), m_ui(std::make_unique<Ui::frmRicercaAnagrafica>()) {
    m_ui->setupUi(this);
    IDEqu = 0;
    m_persone = leggiAnagrafica();
    m_ui->lstEqu->setColumnHidden(ColonnaIDEqu, true);
    connect(m_ui->txtRic, &QLineEdit::textChanged, this, &frmRicercaAnagrafica::riempi);
    connect(m_ui->lstEqu, &Elenco::aperto, this, &frmRicercaAnagrafica::seleziona);
    connect(m_ui->cmdSeleziona, &QPushButton::clicked, this, &frmRicercaAnagrafica::seleziona);
    connect(m_ui->cmdAnnulla, &QPushButton::clicked, this, &QWidget::close);
    riempi();
}

frmRicercaAnagrafica::~frmRicercaAnagrafica() = default;

void frmRicercaAnagrafica::riempi() {
    const QString testo = m_ui->txtRic->text();
    QList<Elenco::Riga> righe;
    for (const PersonaArchivio& persona : std::as_const(m_persone)) {
        if (!corrisponde(persona, testo))
            continue;
        righe << Elenco::Riga{{persona.conducente, persona.navigatore, persona.veicolo, persona.anno,
                               persona.manifestazione, QString::number(persona.idEqu)},
                              persona.idEqu};
    }
    m_ui->lstEqu->riempi(righe);
}

void frmRicercaAnagrafica::seleziona() {
    const int scelta = m_ui->lstEqu->chiaveScelta();
    if (scelta == 0)
        return;
    IDEqu = scelta;
    accept();
}

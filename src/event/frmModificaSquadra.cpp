#include "event/frmModificaSquadra.h"

#include "common/Public.h"
#include "common/Subroutine.h"
#include "event/CampiEvento.h"
#include "ui_frmModificaSquadra.h"

#include <algorithm>

using namespace Qt::StringLiterals;

frmModificaSquadra::frmModificaSquadra(QWidget* padre)
    : FinestraModifica(padre), m_ui(std::make_unique<Ui::frmModificaSquadra>()) {
    m_ui->setupUi(this);
    m_ui->lblIDSqu->hide();
    limitaTesto(m_ui->txtNom);
    connect(m_ui->cmdAgg, &QPushButton::clicked, this, &frmModificaSquadra::aggiungi);
    connect(m_ui->cmdMod, &QPushButton::clicked, this, &frmModificaSquadra::modifica);
    connect(m_ui->cmdEli, &QPushButton::clicked, this, &frmModificaSquadra::elimina);
    connect(m_ui->cmdAnnulla, &QPushButton::clicked, this, &QWidget::close);
    carica(0);
}

frmModificaSquadra::~frmModificaSquadra() = default;

void frmModificaSquadra::carica(int idSqu) {
    m_ui->lblIDSqu->setText(QString::number(idSqu));
    const QList<Squadra> squadre = leggiSquadre(IDMan);
    const auto trovata = std::ranges::find(squadre, idSqu, &Squadra::id);
    const bool presente = trovata != squadre.cend();
    mostraTesto(m_ui->txtNom, presente ? trovata->nom : QString());
    m_ui->cmdMod->setEnabled(presente);
    m_ui->cmdEli->setEnabled(presente);
    chiudiPercorso(this, u"txtNom"_s, presente);
    ricorda();
}

Squadra frmModificaSquadra::squadra() const {
    return {.id = m_ui->lblIDSqu->text().toInt(), .nom = m_ui->txtNom->text()};
}

void frmModificaSquadra::aggiungi() {
    if (!accettato(this, verificaSquadra(squadra(), Operazione::Aggiunta)))
        return;
    aggiungiSquadra(IDMan, squadra().nom);
    fatto(u"Squadra Aggiunta"_s);
}

void frmModificaSquadra::modifica() {
    if (!accettato(this, verificaSquadra(squadra(), Operazione::ModificaInArchivio)))
        return;
    modificaSquadra(squadra());
    fatto(u"Squadra Modificata"_s);
}

void frmModificaSquadra::elimina() {
    if (!Dialoghi::corrente().domanda(u"Eliminare ?"_s, u"Eliminare la Squadra ?"_s, Icona::Domanda))
        return;
    eliminaSquadra(IDMan, squadra().id);
    fatto(u"Squadra Eliminata"_s);
}

void frmModificaSquadra::fatto(const QString& messaggio) {
    MostraMessaggio(messaggio);
    accept();
}

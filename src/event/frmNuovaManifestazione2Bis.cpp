#include "event/frmNuovaManifestazione2Bis.h"

#include "common/Subroutine.h"
#include "ui_frmNuovaManifestazione2Bis.h"

using namespace Qt::StringLiterals;

frmNuovaManifestazione2Bis::frmNuovaManifestazione2Bis(QWidget* padre)
    : PaginaGuidata(padre), m_ui(std::make_unique<Ui::frmNuovaManifestazione2Bis>()) {
    m_ui->setupUi(this);
    limitaTesto(m_ui->txtNom);
    connect(m_ui->cmdAgg, &QPushButton::clicked, this, &frmNuovaManifestazione2Bis::aggiungi);
    connect(m_ui->cmdMod, &QPushButton::clicked, this, &frmNuovaManifestazione2Bis::modifica);
    connect(m_ui->cmdEli, &QPushButton::clicked, this, &frmNuovaManifestazione2Bis::elimina);
    connect(m_ui->lstSqu, &Elenco::aperto, this, &frmNuovaManifestazione2Bis::carica);
    connect(m_ui->lstSqu, &Elenco::cancellata, this, &frmNuovaManifestazione2Bis::elimina);
    connect(m_ui->lstSqu, &Elenco::aggiunta, this, &frmNuovaManifestazione2Bis::azzera);
    connect(m_ui->cmdIndietro, &QPushButton::clicked, this, &PaginaGuidata::indietro);
    connect(m_ui->cmdAvanti, &QPushButton::clicked, this, &PaginaGuidata::avanti);
    aggiornaElenco();
}

frmNuovaManifestazione2Bis::~frmNuovaManifestazione2Bis() = default;

void frmNuovaManifestazione2Bis::aggiungi() {
    const Squadra squadra{.nom = m_ui->txtNom->text()};
    if (!accettato(this, verificaSquadra(squadra, Operazione::Aggiunta)))
        return;
    m_squadre << squadra;
    aggiornaElenco();
    azzera();
}

void frmNuovaManifestazione2Bis::modifica() {
    const int riga = m_ui->lstSqu->scelta();
    if (riga < 0) {
        avverti(u"Impossibile Modificare"_s, u"Selezionare una Squadra da Modificare"_s);
        return;
    }
    const Squadra squadra{.nom = m_ui->txtNom->text()};
    if (!accettato(this, verificaSquadra(squadra, Operazione::ModificaInCreazione)))
        return;
    m_squadre[riga] = squadra;
    aggiornaElenco();
    azzera();
}

void frmNuovaManifestazione2Bis::elimina() {
    const int riga = m_ui->lstSqu->scelta();
    if (riga < 0) {
        avverti(u"Impossibile Eliminare"_s, u"Selezionare una Squadra da Eliminare"_s);
        return;
    }
    m_squadre.removeAt(riga);
    aggiornaElenco();
    azzera();
}

void frmNuovaManifestazione2Bis::carica() {
    const int riga = m_ui->lstSqu->scelta();
    if (riga < 0) {
        avverti(u"Attenzione"_s, u"Selezionare una Squadra da Modificare"_s);
        return;
    }
    mostraTesto(m_ui->txtNom, m_squadre[riga].nom);
    m_ui->txtNom->setFocus(Qt::TabFocusReason);
    chiudiPercorso(this, u"txtNom"_s, true);
}

void frmNuovaManifestazione2Bis::aggiornaElenco() {
    riempiElenco(m_ui->lstSqu, m_squadre);
    m_ui->lblNumero->setText(u"Squadre Inseri&te : %1"_s.arg(m_squadre.size()));
}

void frmNuovaManifestazione2Bis::azzera() {
    m_ui->lstSqu->scegli(-1);
    mostraTesto(m_ui->txtNom, {});
    m_ui->txtNom->setFocus();
    chiudiPercorso(this, u"txtNom"_s, false);
}

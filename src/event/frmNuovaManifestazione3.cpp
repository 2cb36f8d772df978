#include "event/frmNuovaManifestazione3.h"

#include "event/frmUtilityPMI.h"
#include "ui_frmNuovaManifestazione3.h"

using namespace Qt::StringLiterals;

frmNuovaManifestazione3::frmNuovaManifestazione3(QWidget* padre)
    : PaginaGuidata(padre), m_ui(std::make_unique<Ui::frmNuovaManifestazione3>()) {
    m_ui->setupUi(this);
    m_campi = new CampiProva(this);
    connect(m_ui->cmdAgg, &QPushButton::clicked, this, &frmNuovaManifestazione3::aggiungi);
    connect(m_ui->cmdMod, &QPushButton::clicked, this, &frmNuovaManifestazione3::modifica);
    connect(m_ui->cmdEli, &QPushButton::clicked, this, &frmNuovaManifestazione3::elimina);
    connect(m_ui->cmdUtility, &QPushButton::clicked, this, [this] { frmUtilityPMI(this).exec(); });
    connect(m_ui->lstProve, &Elenco::aperto, this, &frmNuovaManifestazione3::carica);
    connect(m_ui->lstProve, &Elenco::cancellata, this, &frmNuovaManifestazione3::elimina);
    connect(m_ui->lstProve, &Elenco::aggiunta, this, [this] { azzera(false); });
    connect(m_ui->cmdIndietro, &QPushButton::clicked, this, [this] {
        if (m_campi->risolvi())
            Q_EMIT indietro();
    });
    connect(m_ui->cmdAvanti, &QPushButton::clicked, this, &frmNuovaManifestazione3::prosegui);
    aggiornaElenco();
}

frmNuovaManifestazione3::~frmNuovaManifestazione3() = default;

void frmNuovaManifestazione3::attiva(bool controlliOrariAllaPartenza, const QString& primoGiorno) {
    m_campi->impostaAllaPartenza(controlliOrariAllaPartenza);
    if (m_campi->leggi().dat == m_giornoProposto)
        m_campi->proponiData(primoGiorno);
    m_giornoProposto = primoGiorno;
    if (controlliOrariAllaPartenza) {
        sciogliControlliOrari(m_prove);
        aggiornaElenco();
    }
}

void frmNuovaManifestazione3::aggiungi() {
    if (!m_campi->risolvi())
        return;
    const Prova prova = m_campi->leggi();
    if (!accettato(this, verificaProva(prova, m_prove, m_prove.size())))
        return;
    m_prove << prova;
    aggiornaElenco();
    m_ui->lstProve->scrollToBottom();
    azzera(false);
}

void frmNuovaManifestazione3::modifica() {
    const int riga = m_ui->lstProve->scelta();
    if (riga < 0) {
        avverti(u"Impossibile Modificare"_s, u"Selezionare una Prova da Modificare"_s);
        return;
    }
    if (!m_campi->risolvi())
        return;
    const Prova prova = m_campi->leggi();
    if (!accettato(this, verificaProva(prova, m_prove, riga)))
        return;
    m_prove[riga] = prova;
    aggiornaElenco();
    azzera(false);
}

void frmNuovaManifestazione3::elimina() {
    const int riga = m_ui->lstProve->scelta();
    if (riga < 0) {
        avverti(u"Impossibile Eliminare"_s, u"Selezionare una Prova da Eliminare"_s);
        return;
    }
    m_prove.removeAt(riga);
    aggiornaElenco();
    azzera(true);
}

void frmNuovaManifestazione3::carica() {
    const int riga = m_ui->lstProve->scelta();
    if (riga < 0) {
        avverti(u"Attenzione"_s, u"Selezionare una Prova da Modificare"_s);
        return;
    }
    m_campi->scrivi(m_prove[riga]);
    m_ui->txtNom->setFocus(Qt::TabFocusReason);
    chiudiPercorso(this, u"cboCon"_s, true);
}

void frmNuovaManifestazione3::azzera(bool ancheData) {
    m_ui->lstProve->scegli(-1);
    m_campi->azzera(ancheData);
    chiudiPercorso(this, u"cboCon"_s, false);
}

void frmNuovaManifestazione3::prosegui() {
    if (!m_campi->risolvi())
        return;
    if (m_prove.isEmpty()) {
        Dialoghi::corrente().messaggio(u"Impossibile Proseguire"_s, u"Inserire Almeno una Prova"_s,
                                       Icona::Stop);
        return;
    }
    Q_EMIT avanti();
}

void frmNuovaManifestazione3::aggiornaElenco() {
    riempiElenco(m_ui->lstProve, m_prove);
    m_ui->lblNumero->setText(u"Prove Inseri&te : %1"_s.arg(m_prove.size()));
}

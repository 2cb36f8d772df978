#include "event/frmNuovaManifestazione2.h"

#include "ui_frmNuovaManifestazione2.h"

using namespace Qt::StringLiterals;

frmNuovaManifestazione2::frmNuovaManifestazione2(QWidget* padre)
    : PaginaGuidata(padre), m_ui(std::make_unique<Ui::frmNuovaManifestazione2>()) {
    m_ui->setupUi(this);
    m_campi = new CampiGruppo(this);
    connect(m_ui->cmdAgg, &QPushButton::clicked, this, &frmNuovaManifestazione2::aggiungi);
    connect(m_ui->cmdMod, &QPushButton::clicked, this, &frmNuovaManifestazione2::modifica);
    connect(m_ui->cmdEli, &QPushButton::clicked, this, &frmNuovaManifestazione2::elimina);
    connect(m_ui->cmdRaggruppamentiASI, &QPushButton::clicked, this, [this] {
        m_gruppi = gruppiASI();
        aggiornaElenco();
    });
    connect(m_ui->lstRag, &Elenco::aperto, this, &frmNuovaManifestazione2::carica);
    connect(m_ui->lstRag, &Elenco::cancellata, this, &frmNuovaManifestazione2::elimina);
    connect(m_ui->lstRag, &Elenco::aggiunta, this, &frmNuovaManifestazione2::azzera);
    connect(m_ui->cmdIndietro, &QPushButton::clicked, this, [this] {
        if (m_campi->risolvi())
            Q_EMIT indietro();
    });
    connect(m_ui->cmdAvanti, &QPushButton::clicked, this, [this] {
        if (m_campi->risolvi())
            Q_EMIT avanti();
    });
    aggiornaElenco();
}

frmNuovaManifestazione2::~frmNuovaManifestazione2() = default;

void frmNuovaManifestazione2::aggiungi() {
    const Gruppo gruppo = m_campi->leggi();
    if (!m_campi->risolvi() ||
        !accettato(this, verificaGruppo(gruppo, m_gruppi, m_assegnazioneAutomatica, Operazione::Aggiunta)))
        return;
    m_gruppi << gruppo;
    aggiornaElenco();
    azzera();
}

void frmNuovaManifestazione2::modifica() {
    const int riga = m_ui->lstRag->scelta();
    if (riga < 0) {
        avverti(u"Impossibile Modificare"_s, u"Selezionare un Raggruppamento da Modificare"_s);
        return;
    }
    const Gruppo gruppo = m_campi->leggi();
    QList<Gruppo> altri = m_gruppi;
    altri.removeAt(riga);
    if (!m_campi->risolvi() || !accettato(this, verificaGruppo(gruppo, altri, m_assegnazioneAutomatica,
                                                               Operazione::ModificaInCreazione)))
        return;
    m_gruppi[riga] = gruppo;
    aggiornaElenco();
    azzera();
}

void frmNuovaManifestazione2::elimina() {
    const int riga = m_ui->lstRag->scelta();
    if (riga < 0) {
        avverti(u"Impossibile Eliminare"_s, u"Selezionare un Raggruppamento da Eliminare"_s);
        return;
    }
    m_gruppi.removeAt(riga);
    aggiornaElenco();
    azzera();
}

void frmNuovaManifestazione2::carica() {
    const int riga = m_ui->lstRag->scelta();
    if (riga < 0) {
        avverti(u"Attenzione"_s, u"Selezionare un Raggruppamento da Modificare"_s);
        return;
    }
    m_campi->scrivi(m_gruppi[riga]);
    m_ui->txtNom->setFocus(Qt::TabFocusReason);
    chiudiPercorso(this, u"txtAAnn"_s, true);
}

void frmNuovaManifestazione2::azzera() {
    m_ui->lstRag->scegli(-1);
    m_campi->azzera();
    chiudiPercorso(this, u"txtAAnn"_s, false);
}

void frmNuovaManifestazione2::aggiornaElenco() {
    riempiElenco(m_ui->lstRag, m_gruppi);
    m_ui->lblNumero->setText(u"Raggruppamenti Inseri&ti : %1"_s.arg(m_gruppi.size()));
}

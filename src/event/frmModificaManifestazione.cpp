#include "event/frmModificaManifestazione.h"

#include "common/Dialoghi.h"
#include "common/Public.h"
#include "event/CampiEvento.h"
#include "event/frmModificaGruppo.h"
#include "event/frmModificaProva.h"
#include "event/frmModificaSquadra.h"
#include "ui_frmModificaManifestazione.h"

using namespace Qt::StringLiterals;

frmModificaManifestazione::frmModificaManifestazione(QWidget* padre)
    : FinestraModifica(padre), m_ui(std::make_unique<Ui::frmModificaManifestazione>()) {
    m_ui->setupUi(this);
    m_ui->lstProve->hideColumn(0);
    m_ui->lstProve->setTreePosition(1);
    m_controlli = new ControlliManifestazione(this, ControlliManifestazione::Dove::Modifica,
                                              [] { return leggiGruppi(IDMan); });
    m_controlli->scrivi(leggiManifestazione(IDMan));
    const auto collega = [this](Elenco* elenco, auto apriFiglia) {
        connect(elenco, &Elenco::aperto, this, [=] { apriFiglia(elenco->chiaveScelta()); });
        connect(elenco, &Elenco::aggiunta, this, [=] { apriFiglia(0); });
    };
    collega(m_ui->lstRag, [this](int chiave) { apri<frmModificaGruppo>(chiave); });
    collega(m_ui->lstSqu, [this](int chiave) { apri<frmModificaSquadra>(chiave); });
    collega(m_ui->lstProve, [this](int chiave) { apri<frmModificaProva>(chiave); });
    connect(m_ui->cmdSalva, &QPushButton::clicked, this, &frmModificaManifestazione::salva);
    connect(m_ui->cmdAnnulla, &QPushButton::clicked, this, &QWidget::close);
    aggiornaElenchi();
    ricorda();
}

frmModificaManifestazione::~frmModificaManifestazione() = default;

template <typename Figlia>
void frmModificaManifestazione::apri(int chiave) {
    Figlia figlia(this);
    figlia.carica(chiave);
    figlia.exec();
    aggiornaElenchi();
}

void frmModificaManifestazione::aggiornaElenchi() {
    const QList<Gruppo> gruppi = leggiGruppi(IDMan);
    const QList<Squadra> squadre = leggiSquadre(IDMan);
    const QList<Prova> prove = leggiProve(IDMan);
    riempiElenco(m_ui->lstRag, gruppi);
    riempiElenco(m_ui->lstSqu, squadre);
    QList<Elenco::Riga> righe;
    for (const Prova& prova : prove) {
        righe << rigaElenco(prova);
        righe.last().celle.prepend(QString::number(prova.id));
    }
    m_ui->lstProve->riempi(righe);
    m_ui->grpRag->setTitle(u"&Raggruppamenti : %1"_s.arg(gruppi.size()));
    m_ui->grpSqu->setTitle(u"S&quadre : %1"_s.arg(squadre.size()));
    m_ui->grpProve->setTitle(u"Pro&ve : %1"_s.arg(prove.size()));
}

void frmModificaManifestazione::salva() {
    if (!m_controlli->risolvi())
        return;
    const DatiManifestazione dati = m_controlli->leggi();
    modificaManifestazione(IDMan, dati);
    MostraMessaggio(u"Manifestazione Modificata"_s);
    Q_EMIT manifestazioneModificata(dati.value(u"Nom"_s));
    accept();
}

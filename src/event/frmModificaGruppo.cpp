#include "event/frmModificaGruppo.h"

#include "common/Funzioni.h"
#include "common/Public.h"
#include "ui_frmModificaGruppo.h"

#include <algorithm>

using namespace Qt::StringLiterals;

frmModificaGruppo::frmModificaGruppo(QWidget* padre)
    : FinestraModifica(padre), m_ui(std::make_unique<Ui::frmModificaGruppo>()) {
    m_ui->setupUi(this);
    m_ui->lblIDRag->hide();
    m_campi = new CampiGruppo(this);
    connect(m_ui->cmdAgg, &QPushButton::clicked, this, &frmModificaGruppo::aggiungi);
    connect(m_ui->cmdMod, &QPushButton::clicked, this, &frmModificaGruppo::modifica);
    connect(m_ui->cmdEli, &QPushButton::clicked, this, &frmModificaGruppo::elimina);
    connect(m_ui->cmdRaggruppamentiASI, &QPushButton::clicked, this, &frmModificaGruppo::sostituisci);
    connect(m_ui->cmdAnnulla, &QPushButton::clicked, this, &QWidget::close);
    carica(0);
}

frmModificaGruppo::~frmModificaGruppo() = default;

int frmModificaGruppo::chiave() const {
    return m_ui->lblIDRag->text().toInt();
}

void frmModificaGruppo::carica(int idGru) {
    m_ui->lblIDRag->setText(QString::number(idGru));
    const QList<Gruppo> gruppi = leggiGruppi(IDMan);
    const auto trovato = std::ranges::find(gruppi, idGru, &Gruppo::id);
    const bool presente = trovato != gruppi.cend();
    m_campi->scrivi(presente ? *trovato : Gruppo());
    m_ui->cmdMod->setEnabled(presente);
    m_ui->cmdEli->setEnabled(presente);
    chiudiPercorso(this, u"txtAAnn"_s, presente);
    ricorda();
}

std::optional<Gruppo> frmModificaGruppo::accettati(int esclusa, Operazione operazione) {
    if (!m_campi->risolvi())
        return std::nullopt;
    Gruppo gruppo = m_campi->leggi();
    gruppo.id = esclusa;
    QList<Gruppo> altri = leggiGruppi(IDMan);
    altri.removeIf([&](const Gruppo& altro) { return altro.id == esclusa; });
    if (!accettato(this, verificaGruppo(gruppo, altri, RagAutoManifestazione(IDMan), operazione)))
        return std::nullopt;
    return gruppo;
}

void frmModificaGruppo::aggiungi() {
    if (const std::optional<Gruppo> gruppo = accettati(0, Operazione::Aggiunta)) {
        aggiungiGruppo(IDMan, *gruppo, RagAutoManifestazione(IDMan));
        fatto(u"Raggruppamento Aggiunto"_s);
    }
}

void frmModificaGruppo::modifica() {
    if (const std::optional<Gruppo> gruppo = accettati(chiave(), Operazione::ModificaInArchivio)) {
        modificaGruppo(IDMan, *gruppo, RagAutoManifestazione(IDMan));
        fatto(u"Raggruppamento Modificato"_s);
    }
}

void frmModificaGruppo::elimina() {
    if (!Dialoghi::corrente().domanda(u"Eliminare ?"_s, u"Eliminare il Raggruppamento ?"_s, Icona::Domanda))
        return;
    eliminaGruppo(IDMan, chiave());
    fatto(u"Raggruppamento Eliminato"_s);
}

void frmModificaGruppo::sostituisci() {
    if (!Dialoghi::corrente().domanda(u"Conferma Raggruppamenti Standard ASI"_s,
                                      u"Inserendo I Raggruppamenti Standard ASI\n"
                                      "i Raggruppamenti Già Inseriti Saranno Eliminati\n"
                                      "Confermare ?"_s,
                                      Icona::Domanda))
        return;
    sostituisciConGruppiASI(IDMan, RagAutoManifestazione(IDMan));
    fatto(u"Raggruppamenti Modificati"_s);
}

void frmModificaGruppo::fatto(const QString& messaggio) {
    MostraMessaggio(messaggio);
    accept();
}

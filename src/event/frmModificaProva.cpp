#include "event/frmModificaProva.h"

#include "common/Public.h"
#include "event/frmUtilityPMI.h"
#include "event/Manifestazione.h"
#include "ui_frmModificaProva.h"

#include <algorithm>

using namespace Qt::StringLiterals;

frmModificaProva::frmModificaProva(QWidget* padre)
    : FinestraModifica(padre), m_ui(std::make_unique<Ui::frmModificaProva>()) {
    m_ui->setupUi(this);
    m_ui->lblIDProva->hide();
    m_campi = new CampiProva(this);
    m_campi->impostaAllaPartenza(controlliOrariAllaPartenza(IDMan));
    connect(m_ui->cmdAgg, &QPushButton::clicked, this, &frmModificaProva::aggiungi);
    connect(m_ui->cmdMod, &QPushButton::clicked, this, &frmModificaProva::modifica);
    connect(m_ui->cmdEli, &QPushButton::clicked, this, &frmModificaProva::elimina);
    connect(m_ui->cmdUtility, &QPushButton::clicked, this, [this] { frmUtilityPMI(this).exec(); });
    connect(m_ui->cmdAnnulla, &QPushButton::clicked, this, &QWidget::close);
    carica(0);
}

frmModificaProva::~frmModificaProva() = default;

int frmModificaProva::chiave() const {
    return m_ui->lblIDProva->text().toInt();
}

void frmModificaProva::carica(int idPro) {
    m_ui->lblIDProva->setText(QString::number(idPro));
    const QList<Prova> prove = leggiProve(IDMan);
    const auto trovata = std::ranges::find(prove, idPro, &Prova::id);
    const bool presente = trovata != prove.cend();
    const Prova nuova{.tip = tipiDiProva().constFirst(), .dat = leggiManifestazione(IDMan).value(u"DaDat"_s)};
    m_campi->scrivi(presente ? *trovata : nuova);
    m_nome = presente ? trovata->nom : QString();
    m_ui->cmdMod->setEnabled(presente);
    m_ui->cmdEli->setEnabled(presente);
    chiudiPercorso(this, u"cboCon"_s, presente);
    ricorda();
}

void frmModificaProva::aggiungi() {
    const QList<Prova> prove = leggiProve(IDMan);
    if (!m_campi->risolvi())
        return;
    const Prova prova = m_campi->leggi();
    if (!accettato(this, verificaProva(prova, prove, prove.size())))
        return;
    aggiungiProva(IDMan, prova);
    fatto(u"Prova Aggiunta"_s);
}

void frmModificaProva::modifica() {
    if (!m_campi->risolvi())
        return;
    const QList<Prova> prove = leggiProve(IDMan);
    Prova prova = m_campi->leggi();
    prova.id = chiave();
    const auto riga = std::ranges::find(prove, prova.id, &Prova::id) - prove.cbegin();
    if (!accettato(this, verificaProva(prova, prove, riga)))
        return;
    modificaProva(IDMan, prova);
    fatto(u"Prova Modificata"_s);
}

void frmModificaProva::elimina() {
    // The name in the archive: the field may have been typed over.
    if (!Dialoghi::corrente().domanda(u"Eliminare ?"_s, u"Eliminare la Prova "_s + m_nome + u" ?"_s,
                                      Icona::Domanda))
        return;
    eliminaProva(IDMan, chiave());
    fatto(u"Prova Eliminata"_s);
}

void frmModificaProva::fatto(const QString& messaggio) {
    MostraMessaggio(messaggio);
    accept();
}

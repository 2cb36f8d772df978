#include "event/frmNuovaManifestazione.h"

#include "event/CampiEvento.h"
#include "ui_frmNuovaManifestazione.h"

frmNuovaManifestazione::frmNuovaManifestazione(QWidget* padre)
    : PaginaGuidata(padre), m_ui(std::make_unique<Ui::frmNuovaManifestazione>()) {
    m_ui->setupUi(this);
    m_controlli = new ControlliManifestazione(this, ControlliManifestazione::Dove::Creazione,
                                              [this] { return m_gruppi ? m_gruppi() : QList<Gruppo>(); });
    connect(m_ui->cmdAvanti, &QPushButton::clicked, this, &frmNuovaManifestazione::prosegui);
    connect(m_ui->cmdAnnulla, &QPushButton::clicked, this, &QWidget::close);
}

frmNuovaManifestazione::~frmNuovaManifestazione() = default;

void frmNuovaManifestazione::prosegui() {
    if (m_controlli->risolvi() && accettato(this, verificaDati(dati())))
        Q_EMIT avanti();
}

#include "event/frmCambiaManifestazione.h"

#include "common/Dialoghi.h"
#include "common/Public.h"
#include "event/ManifestazioneAttiva.h"
#include "ui_frmCambiaManifestazione.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int ColonnaNome = 1;
}

frmCambiaManifestazione::frmCambiaManifestazione(QWidget* padre)
    : Finestra(padre), m_ui(std::make_unique<Ui::frmCambiaManifestazione>()) {
    m_ui->setupUi(this);
    m_ui->lstMan->hideColumn(0);
    m_ui->lstMan->setTreePosition(ColonnaNome);
    connect(m_ui->lstMan, &Elenco::aperto, this, &frmCambiaManifestazione::seleziona);
    connect(m_ui->cmdSeleziona, &QPushButton::clicked, this, &frmCambiaManifestazione::seleziona);
    connect(m_ui->cmdAnnulla, &QPushButton::clicked, this, &QWidget::close);

    const QList<VoceElencoManifestazioni> elenco = leggiManifestazioni();
    QList<Elenco::Riga> righe;
    for (const VoceElencoManifestazioni& voce : elenco) {
        righe << Elenco::Riga{{QString::number(voce.id), voce.nom, voce.loc, voce.date, voce.clu}, voce.id};
    }
    m_ui->lstMan->riempi(righe);
}

frmCambiaManifestazione::~frmCambiaManifestazione() = default;

void frmCambiaManifestazione::seleziona() {
    const int id = m_ui->lstMan->chiaveScelta();
    if (id == 0)
        return;
    const QString nom = m_ui->lstMan->topLevelItem(m_ui->lstMan->scelta())->text(ColonnaNome);
    ImpostaManifestazioneAttiva(id);
    Q_EMIT manifestazioneAttivata(nom);
    hide();
    MostraMessaggio(u"Manifestazione Selezionata"_s);
    accept();
}

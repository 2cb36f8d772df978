#include "event/frmNuovaManifestazione4.h"

#include "common/Subroutine.h"
#include "event/CampiEvento.h"
#include "ui_frmNuovaManifestazione4.h"

using namespace Qt::StringLiterals;

frmNuovaManifestazione4::frmNuovaManifestazione4(QWidget* padre)
    : PaginaGuidata(padre), m_ui(std::make_unique<Ui::frmNuovaManifestazione4>()) {
    m_ui->setupUi(this);
    connect(m_ui->cmdIndietro, &QPushButton::clicked, this, &PaginaGuidata::indietro);
    connect(m_ui->cmdSalva, &QPushButton::clicked, this, &frmNuovaManifestazione4::salvata);
}

frmNuovaManifestazione4::~frmNuovaManifestazione4() = default;

void frmNuovaManifestazione4::showEvent(QShowEvent* evento) {
    PaginaGuidata::showEvent(evento);
    CentraFinestra(this);
    m_ui->cmdSalva->setFocus();
}

void frmNuovaManifestazione4::mostra(const NuovaManifestazione& nuova) {
    const QMap<QString, QString> testi = riepilogo(nuova.dati);
    for (auto testo = testi.cbegin(); testo != testi.cend(); ++testo)
        findChild<QLineEdit*>(testo.key())->setText(testo.value());
    for (const QString& tipo : {u"PA"_s, u"PM"_s, u"CO"_s}) {
        findChild<QLabel*>(u"lblPenUni"_s + tipo)
            ->setText(etichettaPenalita(tipo, nuova.dati.value(u"Pre"_s + tipo), FormaEtichetta::Riepilogo));
    }
    const bool noASI = acceso(nuova.dati, QLatin1String(InterruttoreNoASI));
    for (const QString& nome :
         {u"lblASI"_s, u"lblNoASI"_s, u"txtPrePANoASI"_s, u"txtPrePMNoASI"_s, u"txtPreCONoASI"_s,
          u"txtPenUniPANoASI"_s, u"txtPenUniPMNoASI"_s, u"txtPenUniCONoASI"_s, u"txtMaxPenNoASI"_s})
        findChild<QWidget*>(nome)->setVisible(noASI);
    riempiElenco(m_ui->lstRag, nuova.gruppi);
    riempiElenco(m_ui->lstSqu, nuova.squadre);
    riempiElenco(m_ui->lstProve, nuova.prove);
    m_ui->grpRag->setTitle(u"&Raggruppamenti : %1"_s.arg(nuova.gruppi.size()));
    m_ui->grpSqu->setTitle(u"&Squadre : %1"_s.arg(nuova.squadre.size()));
    m_ui->grpProve->setTitle(u"&Prove : %1"_s.arg(nuova.prove.size()));
}

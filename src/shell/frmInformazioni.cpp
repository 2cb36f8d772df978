#include "shell/frmInformazioni.h"

#include "common/API.h"
#include "common/Dialoghi.h"
#include "shell/AggiornamentoSoftware.h"
#include "shell/DisegnoASI.h"
#include "ui_frmInformazioni.h"

#include <QProcess>

using namespace Qt::StringLiterals;

frmInformazioni::frmInformazioni(QWidget* padre)
    : Finestra(padre), m_ui(std::make_unique<Ui::frmInformazioni>()) {
    m_ui->setupUi(this);
    m_ui->imgInformazioni->setPixmap(disegnoASI(devicePixelRatioF()));
    m_ui->lblVersione->setText(u"Versione "_s + testoVersione(versioneProgramma()));
    connect(m_ui->cmdSysInfo, &QPushButton::clicked, this, &frmInformazioni::apriInformazioniSistema);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmInformazioni::~frmInformazioni() = default;

void frmInformazioni::apriInformazioniSistema() {
    QStringList comando = strumentoInformazioniSistema();
    const QString programma = comando.isEmpty() ? QString() : comando.takeFirst();
    if (programma.isEmpty() || !QProcess::startDetached(programma, comando)) {
        Dialoghi::corrente().messaggio(windowTitle(),
                                       u"Le informazioni sul sistema non sono attualmente disponibili."_s,
                                       Icona::Nessuna);
    }
}

#include "shell/frmSplash.h"

#include "common/Subroutine.h"
#include "shell/AggiornamentoSoftware.h"
#include "shell/DisegnoASI.h"
#include "ui_frmSplash.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

frmSplash::frmSplash(std::function<void()> apri)
    : QDialog(nullptr, Qt::Window | Qt::FramelessWindowHint), m_ui(std::make_unique<Ui::frmSplash>()) {
    m_ui->setupUi(this);
    m_ui->imgSplash->setPixmap(disegnoASI(devicePixelRatioF()));
    m_ui->lblVersione->setText(u"Versione "_s + testoVersione(versioneProgramma()));
    connect(m_ui->cmdOK, &QPushButton::clicked, this, [this, apri = std::move(apri)] {
        apri();
        accept();
    });
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QDialog::reject);
    CentraFinestra(this);
}

frmSplash::~frmSplash() = default;

void frmSplash::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_F1) {
        mostraAiuto(this);
    } else {
        QDialog::keyPressEvent(evento);
    }
}

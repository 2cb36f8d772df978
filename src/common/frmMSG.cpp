#include "common/frmMSG.h"

#include "common/Subroutine.h"
#include "ui_frmMSG.h"

#include <QTimer>

frmMSG::frmMSG(const QString& testo, QWidget* padre)
    : QDialog(padre, Qt::Dialog | Qt::FramelessWindowHint), m_ui(std::make_unique<Ui::frmMSG>()) {
    m_ui->setupUi(this);
    m_ui->lblMsg->setText(testo);
    adjustSize();
    CentraFinestra(this);
    QTimer::singleShot(DurataAvviso, this, &QDialog::accept);
}

frmMSG::~frmMSG() = default;

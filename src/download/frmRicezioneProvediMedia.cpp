#include "download/frmRicezioneProvediMedia.h"

#include "ui_frmRicezioneProvediMedia.h"

frmRicezioneProvediMedia::frmRicezioneProvediMedia(QWidget* padre)
    : FinestraPressostati(Azzera::SoloTempi, padre), m_ui(std::make_unique<Ui::frmRicezioneProvediMedia>()) {
    m_ui->setupUi(this);
    m_ui->divisore->setSizes({690, 610});
    collega(
        {nullptr, m_ui->cboPortaCOM, m_ui->cmdIniziaRicezione, m_ui->cmdArrestaRicezione, m_ui->frmStatus},
        {m_ui->lstPre, m_ui->chkNumero, m_ui->grTempi, m_ui->grScartati, m_ui->cmdSalva, m_ui->cmdEsci});
}

frmRicezioneProvediMedia::~frmRicezioneProvediMedia() = default;

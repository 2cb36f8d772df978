#pragma once

#include "download/FinestraPressostati.h"

namespace Ui {
class frmRicezioneProvediMedia;
}

// The download of imposed-average tests, from the TAG CP520 alone.
class frmRicezioneProvediMedia final : public FinestraPressostati {
    Q_OBJECT

public:
    explicit frmRicezioneProvediMedia(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmRicezioneProvediMedia)
    ~frmRicezioneProvediMedia() override;

private:
    std::unique_ptr<Ui::frmRicezioneProvediMedia> m_ui;
};

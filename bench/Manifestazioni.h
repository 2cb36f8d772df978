#pragma once

#include <QTemporaryDir>

// An event of its own in a temporary archive, open and active: `equipaggi` crews, `prove` tests, a reading
// for each.
class ManifestazioneDiMisura final {
public:
    ManifestazioneDiMisura(int equipaggi, int prove);
    Q_DISABLE_COPY_MOVE(ManifestazioneDiMisura)
    ~ManifestazioneDiMisura();

private:
    QTemporaryDir m_cartella;
};

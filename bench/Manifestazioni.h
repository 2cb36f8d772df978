#pragma once

#include <QTemporaryDir>

// Events in an archive of their own, open, the last one active: each of `equipaggi` crews and `prove` tests,
// with a reading for each pair.
class ManifestazioneDiMisura final {
public:
    ManifestazioneDiMisura(int equipaggi, int prove, int manifestazioni = 1);
    Q_DISABLE_COPY_MOVE(ManifestazioneDiMisura)
    ~ManifestazioneDiMisura();

private:
    QTemporaryDir m_cartella;
};

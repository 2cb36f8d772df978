#pragma once

#include <QLockFile>
#include <QString>
#include <QStringList>

// What the program asks of the platform.

// The one running instance on a program folder. A lock left by a crash does not count.
class IstanzaUnica final {
public:
    explicit IstanzaUnica(const QString& cartella);
    // False when another instance runs; throws Errore when the folder takes no lock at all.
    [[nodiscard]] bool acquisisci();

private:
    QLockFile m_blocco;
};

// Command line of the system-information tool, program first; empty when there is none.
// On Windows the registry tells it; elsewhere it is the first of the desktop's own programs that is
// installed.
QStringList strumentoInformazioniSistema();

#pragma once

#include <QString>
#include <QStringList>

// What the program asks of the platform.

// The one running instance on a program folder, by the kernel's lock on the open file `vlm.lock`: what the
// file holds, and whose it was, does not count, and a lock ends with its process.
class IstanzaUnica final {
public:
    explicit IstanzaUnica(const QString& cartella);
    Q_DISABLE_COPY_MOVE(IstanzaUnica)
    ~IstanzaUnica();
    // False when another instance runs; throws Errore, which names the file, when that cannot be told.
    [[nodiscard]] bool acquisisci();

private:
    QString m_percorso;
    qintptr m_file = -1;  // the platform's own handle
};

// Command line of the system-information tool, program first; empty when there is none.
// On Windows the registry tells it; elsewhere it is the first of the desktop's own programs that is
// installed.
QStringList strumentoInformazioniSistema();

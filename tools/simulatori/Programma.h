#pragma once

#include "simulatori/Copione.h"

#include "RigaDiComando.h"

// What the simulators' programs share: options, the script or the keyboard, the exit code.

class OpzioniSimulatore final {
public:
    // `proprie`: the options of this simulator alone.
    explicit OpzioniSimulatore(const QString& aiuto, const QList<RigaDiComando::Opzione>& proprie = {});

    [[nodiscard]] QString valore(const QString& opzione) const { return m_righe.valore(opzione); }
    [[nodiscard]] QString cartella() const { return valore(QStringLiteral("programma")); }
    [[nodiscard]] int porta() const { return valore(QStringLiteral("com")).toInt(); }  // 1 to 9
    [[nodiscard]] QString copione() const { return m_righe.argomenti().value(0); }

private:
    RigaDiComando m_righe;
};

int fallisci(const QString& testo);
void scriviRiga(const QString& testo);

// Follows the script of the options, or the keyboard, to its end; 0, or 1 when a command was wrong.
int recita(Copione& copione, const OpzioniSimulatore& opzioni);

#pragma once

#include "simulatori/Copione.h"

#include <QCommandLineParser>

// What the simulators' programs share: options, the script or the keyboard, the exit code.

class OpzioniSimulatore final {
public:
    // `propria`: an option of this simulator alone and its default.
    explicit OpzioniSimulatore(const QString& aiuto, const std::pair<QString, QString>& propria = {});

    [[nodiscard]] QString valore(const QString& opzione) const { return m_righe.value(opzione); }
    [[nodiscard]] QString cartella() const { return valore(QStringLiteral("programma")); }
    [[nodiscard]] int porta() const { return valore(QStringLiteral("com")).toInt(); }
    [[nodiscard]] QString copione() const { return m_righe.positionalArguments().value(0); }

private:
    QCommandLineParser m_righe;
};

int fallisci(const QString& testo);
void scriviRiga(const QString& testo);

// Follows the script of the options, or the keyboard, to its end; 0, or 1 when a command was wrong.
int recita(Copione& copione, const OpzioniSimulatore& opzioni);

#pragma once

#include <QMap>
#include <QStringList>
#include <utility>

// The command line of a tool. Asked for --help it prints the help and ends the program with 0; given nonsense
// it says what is wrong and ends it with 2.
class RigaDiComando final {
public:
    struct Opzione {
        QString nome;            // without its dashes
        bool conValore = false;  // "--nome VALORE" or "--nome=VALORE"
        QString predefinito = {};
    };

    // `argomenti`: what follows the program's name; from `quanti.first` to `quanti.second` of them may stand
    // beside the options.
    RigaDiComando(const QStringList& argomenti, const QString& aiuto, const QList<Opzione>& opzioni,
                  std::pair<int, int> quanti);

    [[nodiscard]] bool data(const QString& opzione) const { return m_valori.contains(opzione); }
    [[nodiscard]] QString valore(const QString& opzione) const { return m_valori.value(opzione); }
    [[nodiscard]] const QStringList& argomenti() const { return m_argomenti; }

    // Ends the program with 2 and that sentence.
    [[noreturn]] static void rifiuta(const QString& motivo);

private:
    QMap<QString, QString> m_valori;  // of the options that are given or have a default
    QStringList m_argomenti;
};

// A program's arguments, before there is an application object to ask.
QStringList argomentiDi(int argc, char** argv);

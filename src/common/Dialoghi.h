#pragma once

#include <optional>
#include <QString>

enum class Icona { Nessuna, Informazione, Esclamazione, Stop, Domanda };
// The answer of a question that loses and changes nothing: what Enter and Esc give.
enum class Innocua { No, Si };

// Every box that stops the operator: messages, questions, input, file choice, the two-second notice.
class Dialoghi {
public:
    Dialoghi() = default;
    Q_DISABLE_COPY_MOVE(Dialoghi)
    virtual ~Dialoghi() = default;

    virtual void messaggio(const QString& titolo, const QString& testo, Icona icona) = 0;  // OK alone
    // Yes and No; true on Yes.
    virtual bool domanda(const QString& titolo, const QString& testo, Icona icona, Innocua innocua) = 0;
    bool domanda(const QString& titolo, const QString& testo, Icona icona) {
        return domanda(titolo, testo, icona, Innocua::No);
    }
    // Input box; nothing on cancel.
    virtual std::optional<QString> chiedi(const QString& titolo, const QString& testo,
                                          const QString& predefinito) = 0;
    // File dialogs; empty on cancel. `filtro` as Qt writes it: "Testo (*.txt)".
    virtual QString apriFile(const QString& titolo, const QString& cartella, const QString& filtro) = 0;
    virtual QString salvaFile(const QString& titolo, const QString& proposto, const QString& filtro) = 0;
    // Closes itself after two seconds; returns when it has closed.
    virtual void avviso(const QString& testo) = 0;

    static Dialoghi& corrente();               // the program must have installed one
    static void installa(Dialoghi* dialoghi);  // not owned
};

// Message with the exclamation icon, the usual answer to an expected condition.
void avverti(const QString& titolo, const QString& testo);
// The program's way of saying that a thing is done.
void MostraMessaggio(const QString& testo);

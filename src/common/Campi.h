#pragma once

#include <functional>
#include <QHash>
#include <QLineEdit>
#include <QList>
#include <QObject>

// Fields with a mask, and fields that are checked when the operator leaves them.

enum class Maschera { Data, Ora };  // __/__/____ and __:__:__

void applicaMaschera(QLineEdit* campo, Maschera maschera);
// What a masked field holds, in full (dd/mm/yyyy, hh:mm:ss); empty when it is empty or no date or time.
QString valoreMascherato(const QLineEdit* campo, Maschera maschera);

// Back to a control that was refused: it takes the focus with its text chosen, so that typing replaces it.
void tornaSu(QWidget* controllo);

// Holds the focus on a field whose check fails. Whoever acts on the fields calls risolvi() first: a button
// may be pressed in the same instant in which a field is left.
class ControlliUscita final : public QObject {
    Q_OBJECT

public:
    using Verifica = std::function<bool()>;  // may show a box; false keeps the focus

    explicit ControlliUscita(QWidget* finestra);

    void aggiungi(QLineEdit* campo, const Verifica& verifica);
    // Masks the field; leaving it with what is no date or time beeps, anything else is written in full.
    void aggiungiMascherato(QLineEdit* campo, Maschera maschera);

    // Checks the field that is being left or has the focus; true when the action may go on.
    bool risolvi();

    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    bool controllaLasciati();

    QWidget* m_finestra;
    QHash<QObject*, Verifica> m_verifiche;
    QList<QLineEdit*> m_lasciati;
    bool m_inCorso = false;
};

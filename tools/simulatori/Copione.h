#pragma once

#include "simulatori/PseudoTerminale.h"

#include <functional>
#include <optional>
#include <QStringList>

// Commands of every simulator, as its help tells them.
inline constexpr char AiutoCopione[] = R"(
  attendi MS                prosegue dopo tanti millisecondi
  attendi apertura          fino a che il programma ha aperto la porta
  attendi chiusura          fino a che l'ha chiusa
  attendi invio             fino al tasto Invio sul terminale del simulatore
  stacca | attacca          l'adattatore viene tolto | rimesso
  fine                      chiude il simulatore
)";

// A text script that a simulator follows, one command a line; "#" begins a comment.
class Copione final : public QObject {
    Q_OBJECT

public:
    // A simulator's own command; gives what is wrong with it, empty when it has been done. A command that
    // waits sets `finche`, asked again and again until it answers true.
    struct Comando {
        QString nome;
        QString resto;
        std::function<bool()> finche = {};
    };
    using Esecutore = std::function<QString(Comando&)>;

    Copione(PseudoTerminale& linea, Esecutore esecutore);
    Q_DISABLE_COPY_MOVE(Copione)
    ~Copione() override = default;

    void aggiungi(const QString& righe);
    void invioPremuto() { ++m_invii; }
    // Whether every line so far has been done.
    [[nodiscard]] bool esaurito() const { return m_righe.isEmpty() && !m_attesa; }

Q_SIGNALS:
    void errore(int riga, const QString& testo);  // the line is passed over
    void fine();
    void aggiunte(QPrivateSignal);  // to itself, through the event loop

private:
    void giro();
    void esegui(const QString& riga);
    QString esegui(Comando& comando);
    QString attendi(Comando& comando);

    PseudoTerminale& m_linea;
    Esecutore m_esecutore;
    QStringList m_righe;
    int m_numeroRiga = 0;
    int m_invii = 0;
    std::function<bool()> m_attesa;
    QTimer m_giro;
};

// Bytes as a script writes them: text with \r \n \t \\ and \xHH. Nothing when it is malformed.
std::optional<QByteArray> leggiByte(const QString& testo);

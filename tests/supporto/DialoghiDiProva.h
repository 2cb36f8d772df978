#pragma once

#include "common/Dialoghi.h"

#include <functional>
#include <QList>

// Scripted boxes: a test says which boxes it expects, in order, and what the operator answers. A box nobody
// expected, or one that differs, fails the test.
class DialoghiDiProva final : public Dialoghi {
public:
    enum class Tipo { Messaggio, Domanda, Chiedi, ApriFile, SalvaFile, Avviso };

    struct Scatola {
        Tipo tipo = Tipo::Messaggio;
        QString titolo;
        QString testo;  // not compared when it is Null (QString())
        Icona icona = Icona::Nessuna;
        std::optional<QString> risposta;  // typed text or path; for a question: set is Yes
    };

    void attendiMessaggio(const QString& titolo, const QString& testo, Icona icona = Icona::Esclamazione);
    void attendiDomanda(const QString& titolo, const QString& testo, bool si);
    void attendiChiedi(const QString& titolo, const QString& testo, const std::optional<QString>& risposta);
    void attendiSalvaFile(const QString& percorso);
    void attendiAvviso(const QString& testo);

    // Whether every expected box has come; boxes that have not are forgotten.
    bool finite();
    // Every box shown so far, as it came.
    [[nodiscard]] const QList<Scatola>& viste() const { return m_viste; }
    // Accepts any box, answering Yes and the proposed text, and only records it.
    void accettaTutto() { m_accettaTutto = true; }

    void messaggio(const QString& titolo, const QString& testo, Icona icona) override;
    bool domanda(const QString& titolo, const QString& testo, Icona icona, Innocua innocua) override;
    std::optional<QString> chiedi(const QString& titolo, const QString& testo,
                                  const QString& predefinito) override;
    QString apriFile(const QString& titolo, const QString& cartella, const QString& filtro) override;
    QString salvaFile(const QString& titolo, const QString& proposto, const QString& filtro) override;
    void avviso(const QString& testo) override;

private:
    std::optional<QString> mostra(const Scatola& scatola);

    QList<Scatola> m_attese;
    QList<Scatola> m_viste;
    bool m_accettaTutto = false;
};

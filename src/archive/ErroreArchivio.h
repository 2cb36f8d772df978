#pragma once

#include <QString>
#include <stdexcept>

// A failure that the operator must read: its text is Italian and complete.
class Errore : public std::runtime_error {
public:
    explicit Errore(const QString& testo) : std::runtime_error(testo.toStdString()), m_testo(testo) {}
    [[nodiscard]] const QString& testo() const noexcept { return m_testo; }

private:
    QString m_testo;
};

// A failure of the archive: opening, reading, writing.
class ErroreArchivio final : public Errore {
public:
    using Errore::Errore;
    // From the engine's extended result code and its own text, which follows our sentence in brackets.
    ErroreArchivio(int codice, const QString& testoMotore);
};

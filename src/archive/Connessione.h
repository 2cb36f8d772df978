#pragma once

#include <QString>

struct sqlite3;

// One connection to an archive file. Durable to the last acknowledged action: also the folder is synced when
// an action's journal goes. Failures throw ErroreArchivio.
class Connessione final {
public:
    Connessione() = default;
    explicit Connessione(const QString& percorso) { apri(percorso); }
    Q_DISABLE_COPY_MOVE(Connessione)
    ~Connessione() { chiudi(); }

    // Opens a file that is there; it is never made, so that an archive that vanished does not come back
    // empty.
    void apri(const QString& percorso);
    void chiudi();
    [[nodiscard]] bool aperta() const { return m_motore != nullptr; }

    // The engine's own handle, for Statement and Transazione; throws when the connection is closed.
    [[nodiscard]] sqlite3* motore() const;
    // The engine's last failure on this connection.
    [[noreturn]] void fallisci() const;

private:
    void esegui(const char* sql);

    sqlite3* m_motore = nullptr;
};

#include "archive/Connessione.h"

#include "archive/ErroreArchivio.h"
#include "archive/Testi.h"

#include <sqlite3.h>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

constexpr int AttesaOccupato = 5000;  // ms, while another program holds the file

}  // namespace

void Connessione::apri(const QString& percorso) {
    if (aperta())
        throw ErroreArchivio(u"La connessione all'archivio è già aperta."_s);
    // One thread uses a connection: the engine needs no mutex of its own.
    const int esito = sqlite3_open_v2(percorso.toUtf8().constData(), &m_motore,
                                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    try {
        if (esito != SQLITE_OK)
            fallisci();
        sqlite3_extended_result_codes(m_motore, 1);
        sqlite3_busy_timeout(m_motore, AttesaOccupato);
        registraTesti(m_motore);
        // No page goes to the file before the commit: the file's first page is then in every journal, which
        // tells whose journal it is.
        esegui(
            "PRAGMA foreign_keys=ON; PRAGMA cache_spill=OFF; PRAGMA synchronous=EXTRA; "
            "PRAGMA journal_mode=DELETE");
    } catch (...) {
        chiudi();
        throw;
    }
}

void Connessione::chiudi() {
    // A statement left open somewhere is a fault of ours; the file is let go when that one ends.
    if (m_motore && sqlite3_close(m_motore) != SQLITE_OK) {
        qWarning("archive: closed with a statement still open");
        sqlite3_close_v2(m_motore);
    }
    m_motore = nullptr;
}

sqlite3* Connessione::motore() const {
    if (!m_motore)
        throw ErroreArchivio(u"L'archivio non è aperto."_s);
    return m_motore;
}

void Connessione::fallisci() const {
    throw ErroreArchivio(sqlite3_extended_errcode(m_motore), QString::fromUtf8(sqlite3_errmsg(m_motore)));
}

void Connessione::esegui(const char* sql) {
    if (sqlite3_exec(m_motore, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        fallisci();
}

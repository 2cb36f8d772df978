#pragma once

#include <QString>

// Per-user settings: section, key, default; all text. The program keeps them under the title "VLM".
class Impostazioni {
public:
    Impostazioni() = default;
    Q_DISABLE_COPY_MOVE(Impostazioni)
    virtual ~Impostazioni() = default;

    [[nodiscard]] virtual QString leggi(const QString& sezione, const QString& chiave,
                                        const QString& predefinito) const = 0;
    virtual void scrivi(const QString& sezione, const QString& chiave, const QString& valore) = 0;

    static Impostazioni& corrente();
    static void installa(Impostazioni* impostazioni);  // not owned; nullptr goes back to the user's own
};

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
    // What cannot be stored holds until the program ends.
    virtual void scrivi(const QString& sezione, const QString& chiave, const QString& valore) = 0;
    // Why a setting could not be stored, in the operator's words; said once, empty from then on.
    virtual QString guasto() { return {}; }

    static Impostazioni& corrente();
    static void installa(Impostazioni* impostazioni);  // not owned; nullptr goes back to the user's own
};

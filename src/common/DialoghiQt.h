#pragma once

#include "common/Dialoghi.h"

// The boxes of the program itself, over the active window.
class DialoghiQt final : public Dialoghi {
public:
    void messaggio(const QString& titolo, const QString& testo, Icona icona) override;
    bool domanda(const QString& titolo, const QString& testo, Icona icona, Innocua innocua) override;
    std::optional<QString> chiedi(const QString& titolo, const QString& testo,
                                  const QString& predefinito) override;
    QString apriFile(const QString& titolo, const QString& cartella, const QString& filtro) override;
    QString salvaFile(const QString& titolo, const QString& proposto, const QString& filtro) override;
    void avviso(const QString& testo) override;
};

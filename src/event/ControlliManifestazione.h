#pragma once

#include "common/Campi.h"
#include "event/Gruppi.h"
#include "event/Manifestazione.h"

class QAbstractButton;

// The settings' controls of the creation's first page and of the edit window, by the one table of settings:
// reading, writing, enabling, labels, filters.
class ControlliManifestazione final : public QObject {
    Q_OBJECT

public:
    enum class Dove { Creazione, Modifica };

    // `gruppi`: those of the event so far, asked when automatic assignment is turned on.
    ControlliManifestazione(QWidget* finestra, Dove dove, std::function<QList<Gruppo>()> gruppi);

    [[nodiscard]] DatiManifestazione leggi() const;
    void scrivi(const DatiManifestazione& dati);
    bool risolvi() { return m_uscita.risolvi(); }

private:
    [[nodiscard]] QString nomeControllo(const VoceManifestazione& voce) const;
    [[nodiscard]] QWidget* controllo(const VoceManifestazione& voce) const;
    [[nodiscard]] QString testo(const VoceManifestazione& voce) const;
    void imposta(const VoceManifestazione& voce, const QString& testo);
    void preparaControllo(const VoceManifestazione& voce);
    void preparaBox(const VoceManifestazione& voce, QLineEdit* box);
    void preparaEtichetta(const QString& tipo);
    void aggiornaAttivi();
    void mostraNoASI(bool mostra);
    void verificaRagAuto();

    QWidget* m_finestra;
    Dove m_dove;
    std::function<QList<Gruppo>()> m_gruppi;
    ControlliUscita m_uscita;
};

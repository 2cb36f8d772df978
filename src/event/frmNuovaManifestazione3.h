#pragma once

#include "event/CampiEvento.h"
#include "event/PaginaGuidata.h"

#include <memory>

namespace Ui {
class frmNuovaManifestazione3;
}

// Creation, page 4: the tests, in the order in which they will be run.
class frmNuovaManifestazione3 final : public PaginaGuidata {
    Q_OBJECT

public:
    explicit frmNuovaManifestazione3(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmNuovaManifestazione3)
    ~frmNuovaManifestazione3() override;

    [[nodiscard]] const QList<Prova>& prove() const { return m_prove; }
    // Each time the page comes up: time controls measured from the start lose their chains, and the event's
    // first day is proposed where none has been typed.
    void attiva(bool controlliOrariAllaPartenza, const QString& primoGiorno);

private:
    void aggiungi();
    void modifica();
    void elimina();
    void carica();
    void azzera(bool ancheData);
    void prosegui();
    void aggiornaElenco();

    std::unique_ptr<Ui::frmNuovaManifestazione3> m_ui;
    CampiProva* m_campi = nullptr;
    QList<Prova> m_prove;
    QString m_giornoProposto;
};

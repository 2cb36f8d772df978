#pragma once

#include "event/NuovaManifestazione.h"

#include <memory>
#include <QEventLoop>
#include <QObject>

class frmNuovaManifestazione;
class frmNuovaManifestazione2;
class frmNuovaManifestazione2Bis;
class frmNuovaManifestazione3;
class frmNuovaManifestazione4;
class PaginaGuidata;

// The creation of an event: five pages, of which one is visible and the others keep what was typed. Nothing
// reaches the archive before the last page's save.
class CreazioneManifestazione final : public QObject {
    Q_OBJECT

public:
    explicit CreazioneManifestazione(QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(CreazioneManifestazione)
    ~CreazioneManifestazione() override;

    // Shows the first page and returns when the event is saved or the operator has left: the new key, or 0.
    int esegui();

Q_SIGNALS:
    // The new event has become the active one.
    void manifestazioneAttivata(const QString& nom);

private:
    template <typename Pagina>
    Pagina* crea(std::unique_ptr<Pagina>& pagina);
    void passa(PaginaGuidata* da, PaginaGuidata* a);
    void mostraPagina2();
    void mostraPagina2Bis();
    void mostraPagina3(PaginaGuidata* da);
    void mostraRiepilogo();
    [[nodiscard]] NuovaManifestazione raccolta() const;
    void salva();

    QWidget* m_padre;
    std::unique_ptr<frmNuovaManifestazione> m_pagina1;
    std::unique_ptr<frmNuovaManifestazione2> m_pagina2;
    std::unique_ptr<frmNuovaManifestazione2Bis> m_pagina2Bis;
    std::unique_ptr<frmNuovaManifestazione3> m_pagina3;
    std::unique_ptr<frmNuovaManifestazione4> m_pagina4;
    QEventLoop m_ciclo;
    int m_salvata = 0;
};

#include "event/CreazioneManifestazione.h"

#include "common/Public.h"
#include "event/frmNuovaManifestazione.h"
#include "event/frmNuovaManifestazione2.h"
#include "event/frmNuovaManifestazione2Bis.h"
#include "event/frmNuovaManifestazione3.h"
#include "event/frmNuovaManifestazione4.h"

using namespace Qt::StringLiterals;

CreazioneManifestazione::CreazioneManifestazione(QWidget* padre) : m_padre(padre) {}

CreazioneManifestazione::~CreazioneManifestazione() = default;

template <typename Pagina>
Pagina* CreazioneManifestazione::crea(std::unique_ptr<Pagina>& pagina) {
    if (!pagina) {
        pagina = std::make_unique<Pagina>(m_padre);
        connect(pagina.get(), &QDialog::finished, &m_ciclo, &QEventLoop::quit);
    }
    return pagina.get();
}

int CreazioneManifestazione::esegui() {
    crea(m_pagina1);
    // Groups count from the moment their page exists.
    m_pagina1->impostaGruppi([this] { return m_pagina2 ? m_pagina2->gruppi() : QList<Gruppo>(); });
    connect(m_pagina1.get(), &PaginaGuidata::avanti, this, &CreazioneManifestazione::mostraPagina2);
    m_pagina1->show();
    m_ciclo.exec();
    m_pagina4.reset();
    m_pagina3.reset();
    m_pagina2Bis.reset();
    m_pagina2.reset();
    m_pagina1.reset();
    return m_salvata;
}

// The new page first: the main window must not come to life between the two.
void CreazioneManifestazione::passa(PaginaGuidata* da, PaginaGuidata* a) {
    a->show();
    da->hide();
    a->activateWindow();
}

void CreazioneManifestazione::mostraPagina2() {
    if (!m_pagina2) {
        crea(m_pagina2);
        connect(m_pagina2.get(), &PaginaGuidata::indietro, this,
                [this] { passa(m_pagina2.get(), m_pagina1.get()); });
        connect(m_pagina2.get(), &PaginaGuidata::avanti, this, &CreazioneManifestazione::mostraPagina2Bis);
    }
    m_pagina2->impostaAssegnazioneAutomatica(acceso(m_pagina1->dati(), u"RagAuto"_s));
    passa(m_pagina1.get(), m_pagina2.get());
}

void CreazioneManifestazione::mostraPagina2Bis() {
    if (!m_pagina2Bis) {
        crea(m_pagina2Bis);
        connect(m_pagina2Bis.get(), &PaginaGuidata::indietro, this,
                [this] { passa(m_pagina2Bis.get(), m_pagina2.get()); });
        connect(m_pagina2Bis.get(), &PaginaGuidata::avanti, this,
                [this] { mostraPagina3(m_pagina2Bis.get()); });
    }
    passa(m_pagina2.get(), m_pagina2Bis.get());
}

void CreazioneManifestazione::mostraPagina3(PaginaGuidata* da) {
    if (!m_pagina3) {
        crea(m_pagina3);
        connect(m_pagina3.get(), &PaginaGuidata::indietro, this,
                [this] { passa(m_pagina3.get(), m_pagina2Bis.get()); });
        connect(m_pagina3.get(), &PaginaGuidata::avanti, this, &CreazioneManifestazione::mostraRiepilogo);
    }
    const DatiManifestazione dati = m_pagina1->dati();
    m_pagina3->attiva(dati.value(u"TipoCO"_s) == u"PAR"_s, dati.value(u"DaDat"_s));
    passa(da, m_pagina3.get());
}

void CreazioneManifestazione::mostraRiepilogo() {
    if (!m_pagina4) {
        crea(m_pagina4);
        connect(m_pagina4.get(), &PaginaGuidata::indietro, this, [this] { mostraPagina3(m_pagina4.get()); });
        connect(m_pagina4.get(), &frmNuovaManifestazione4::salvata, this, &CreazioneManifestazione::salva);
    }
    m_pagina4->mostra(raccolta());
    passa(m_pagina3.get(), m_pagina4.get());
}

NuovaManifestazione CreazioneManifestazione::raccolta() const {
    return {.dati = m_pagina1->dati(),
            .gruppi = m_pagina2->gruppi(),
            .squadre = m_pagina2Bis->squadre(),
            .prove = m_pagina3->prove()};
}

void CreazioneManifestazione::salva() {
    const NuovaManifestazione nuova = raccolta();
    m_salvata = salvaManifestazione(nuova);
    MostraMessaggio(u"Manifestazione Creata"_s);
    if (Dialoghi::corrente().domanda(u"Manifestazione Attiva"_s,
                                     u"Impostare la Manifestazione Creata\ncome Manifestazione Attiva ?"_s,
                                     Icona::Domanda)) {
        ImpostaManifestazioneAttiva(m_salvata);
        Q_EMIT manifestazioneAttivata(nuova.dati.value(u"Nom"_s));
    }
    m_pagina4->accept();
}

#include "readings/FinestraRilevamenti.h"

#include "readings/ElencoEquipaggi.h"
#include "readings/GrigliaRilevamenti.h"

#include <QKeyEvent>
#include <QLabel>

FinestraRilevamenti::FinestraRilevamenti(QWidget* padre) : Finestra(padre) {
    invioComeTab();
}

void FinestraRilevamenti::collega(ElencoEquipaggi* elenco, GrigliaRilevamenti* griglia, QLabel* etichetta) {
    m_elenco = elenco;
    m_griglia = griglia;
    m_etichetta = etichetta;
    connect(elenco, &ElencoEquipaggi::scelto, this, &FinestraRilevamenti::mostraEquipaggio);
    connect(griglia, &GrigliaRilevamenti::equipaggioRichiesto, this, &FinestraRilevamenti::cambiaEquipaggio);
    elenco->carica();
    griglia->prendiFuoco();
}

void FinestraRilevamenti::mostraEquipaggio() {
    const std::optional<EquipaggioElenco> equipaggio = m_elenco->corrente();
    m_etichetta->setText(m_elenco->etichetta());
    m_griglia->mostraEquipaggio(equipaggio->idEqu, equipaggio->asi);
}

void FinestraRilevamenti::cambiaEquipaggio(int passo) {
    m_griglia->concludiModifica();
    m_elenco->sposta(passo);
    if (!m_elenco->hasFocus())
        m_griglia->prendiFuoco();
}

bool FinestraRilevamenti::puoChiudere() {
    m_griglia->concludiModifica();
    return true;
}

void FinestraRilevamenti::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Plus || evento->key() == Qt::Key_Minus) {
        cambiaEquipaggio(evento->key() == Qt::Key_Plus ? 1 : -1);
    } else {
        Finestra::keyPressEvent(evento);
    }
}

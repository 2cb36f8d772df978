#include "readings/FinestraRilevamenti.h"

#include "common/Dialoghi.h"
#include "readings/ElencoEquipaggi.h"
#include "readings/GrigliaRilevamenti.h"

#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>
#include <QShowEvent>

using namespace Qt::StringLiterals;

FinestraRilevamenti::FinestraRilevamenti(QWidget* padre) : Finestra(padre) {
    invioComeTab();
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_G), this), &QShortcut::activated, this,
            &FinestraRilevamenti::chiediNumero);
}

void FinestraRilevamenti::collega(ElencoEquipaggi* elenco, GrigliaRilevamenti* griglia, QLabel* etichetta) {
    m_elenco = elenco;
    m_griglia = griglia;
    m_etichetta = etichetta;
    connect(elenco, &ElencoEquipaggi::scelto, this, &FinestraRilevamenti::mostraEquipaggio);
    connect(griglia, &GrigliaRilevamenti::equipaggioRichiesto, this, &FinestraRilevamenti::cambiaEquipaggio);
    elenco->viewport()->installEventFilter(this);
    elenco->carica();
}

void FinestraRilevamenti::showEvent(QShowEvent* evento) {
    Finestra::showEvent(evento);
    // Not before: a grid that is hidden inside splitters does not become the window's focus.
    if (!evento->spontaneous())
        m_griglia->prendiFuoco();
}

void FinestraRilevamenti::mostraEquipaggio() {
    const std::optional<EquipaggioElenco> equipaggio = m_elenco->corrente();
    m_griglia->mostraEquipaggio(equipaggio->idEqu, equipaggio->asi);
    m_etichetta->setText(m_elenco->etichetta());
}

void FinestraRilevamenti::cambiaEquipaggio(int passo) {
    if (!m_griglia->concludiModifica())
        return;
    m_elenco->sposta(passo);
    if (!m_elenco->hasFocus())
        m_griglia->prendiFuoco();
}

void FinestraRilevamenti::chiediNumero() {
    if (!m_griglia->concludiModifica())
        return;
    const QString numero = Dialoghi::corrente()
                               .chiedi(u"Vai all'Equipaggio"_s, u"Numero dell'Equipaggio"_s, {})
                               .value_or(QString())
                               .trimmed();
    if (numero.isEmpty())
        return;
    bool intero = false;
    const int num = numero.toInt(&intero);
    if (!intero || !m_elenco->vaiAlNumero(num))
        avverti(u"Equipaggio NON Trovato"_s, u"Nessun Equipaggio ha il Numero %1"_s.arg(numero));
    m_griglia->prendiFuoco();
}

bool FinestraRilevamenti::eventFilter(QObject* oggetto, QEvent* evento) {
    // Before the row under the mouse becomes the current one.
    if (m_elenco && oggetto == m_elenco->viewport() && evento->type() == QEvent::MouseButtonPress &&
        !m_griglia->concludiModifica())
        return true;
    return Finestra::eventFilter(oggetto, evento);
}

bool FinestraRilevamenti::puoChiudere() {
    const bool via = lasciaDopo([this] { return m_griglia->concludiModifica(); },
                                [this] { return m_griglia->modificaInCorso(); });
    if (via)
        m_griglia->abbandonaModifica();
    return via;
}

void FinestraRilevamenti::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Plus || evento->key() == Qt::Key_Minus) {
        cambiaEquipaggio(evento->key() == Qt::Key_Plus ? 1 : -1);
    } else {
        Finestra::keyPressEvent(evento);
    }
}

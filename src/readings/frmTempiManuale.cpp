#include "readings/frmTempiManuale.h"

#include "common/Dialoghi.h"
#include "common/Subroutine.h"
#include "ui_frmTempiManuale.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

const QString CaptionCerca = u"&Cerca Tempi Errati/Mancanti"_s;
const QString CaptionNascondi = u"&Nascondi Lista"_s;

constexpr int PausaAvanzamento = 50;  // ms between two paintings of the panel

void avvisaNonCercati(const std::vector<int>& numeri) {
    if (numeri.empty())
        return;
    QStringList testi;
    for (const int numero : numeri)
        testi << QString::number(numero);
    avverti(u"Ricerca Tempi Errati/Mancanti"_s,
            u"La Ricerca Arriva al Numero %1.\nEquipaggi NON Cercati: %2"_s.arg(
                QString::number(NumeroMassimoRicerca), testi.join(u", "_s)));
}

}  // namespace

frmTempiManuale::frmTempiManuale(QWidget* padre)
    : FinestraRilevamenti(padre), m_ui(std::make_unique<Ui::frmTempiManuale>()) {
    m_ui->setupUi(this);
    mostraAlbero(false);
    m_ui->frmRicerca->hide();
    m_ui->divisore->setSizes({380, 940});
    m_ui->etichettaRilevamenti->setBuddy(m_ui->griglia->focusProxy());

    connect(m_ui->cmdTempiMancanti, &QPushButton::clicked, this, &frmTempiManuale::premutoTempiMancanti);
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QDialog::close);
    connect(m_ui->treeEq, &AlberoTempi::scelto, this, &frmTempiManuale::vaiAlNodo);
    connect(m_ui->treeEq, &AlberoTempi::lasciato, m_ui->griglia, &GrigliaRilevamenti::prendiFuoco);
    // Once the edit has come to its end: the search may show a box.
    connect(m_ui->griglia, &GrigliaRilevamenti::modificata, this, &frmTempiManuale::cercaAncora,
            Qt::QueuedConnection);

    m_ui->griglia->apri(ModoGriglia::Manuale);
    collega(m_ui->lstEq, m_ui->griglia, m_ui->lblEqu);
}

frmTempiManuale::~frmTempiManuale() = default;

void frmTempiManuale::premutoTempiMancanti() {
    if (!m_ui->griglia->concludiModifica(Uscita::Altrove))
        return;
    if (!esistonoProveSvolte()) {
        avverti(u"Impossibile Cercare Tempi Errati/Mancanti"_s, u"Nessuna Prova Svolta"_s);
        return;
    }
    if (m_alberoMostrato) {
        mostraAlbero(false);
        m_ui->griglia->prendiFuoco();
    } else {
        cerca();
    }
}

void frmTempiManuale::cerca() {
    RisultatoRicerca risultato;
    {
        const CursoreAttesa attesa;
        m_ultimoAvanzamento.invalidate();
        m_ui->frmRicerca->show();
        const auto nascondi = qScopeGuard([this] { m_ui->frmRicerca->hide(); });
        risultato = cercaTempi([this](FaseRicerca fase, int percento) { mostraAvanzamento(fase, percento); });
        m_ui->treeEq->mostra(risultato);
    }
    avvisaNonCercati(risultato.nonCercati);
    concludiRicerca(!risultato.equipaggi.empty());
    if (m_alberoMostrato)
        m_ui->treeEq->setFocus();
}

void frmTempiManuale::cercaAncora(int idEqu) {
    if (!m_alberoMostrato)
        return;
    m_ui->treeEq->sostituisci(idEqu, cercaTempi({}, idEqu));
    concludiRicerca(m_ui->treeEq->topLevelItemCount() > 0);
}

void frmTempiManuale::concludiRicerca(bool trovati) {
    mostraAlbero(trovati);
    if (!trovati) {
        Dialoghi::corrente().messaggio(u"Nessu Tempo Mancante Trovato"_s,
                                       u"Ogni Equipaggio ha Tutti i Rilevamenti e Corretti"_s,
                                       Icona::Informazione);
    }
}

void frmTempiManuale::mostraAvanzamento(FaseRicerca fase, int percento) {
    const QString testo = fase == FaseRicerca::Medie ? u"Calcolo Medie... %1%"_s : u"Ricerca Tempi... %1%"_s;
    m_ui->lblPerc->setText(testo.arg(percento));
    m_ui->pBar->setValue(percento);
    // The panel shows itself also in a long search; nothing can be pressed meanwhile.
    if (m_ultimoAvanzamento.isValid() && m_ultimoAvanzamento.elapsed() < PausaAvanzamento)
        return;
    m_ultimoAvanzamento.start();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmTempiManuale::mostraAlbero(bool mostra) {
    m_alberoMostrato = mostra;
    m_ui->albero->setVisible(mostra);
    m_ui->cmdTempiMancanti->setText(mostra ? CaptionNascondi : CaptionCerca);
}

void frmTempiManuale::vaiAlNodo(const QString& chiave) {
    const std::optional<NodoRicerca> nodo = leggiChiave(chiave);
    if (!nodo || !m_ui->griglia->concludiModifica() || !m_ui->lstEq->vaiA(nodo->idEqu))
        return;
    if (nodo->idPro) {
        m_ui->griglia->vaiA(*nodo->idPro, nodo->campo);
    } else {
        m_ui->griglia->prendiFuoco();
    }
}

#include "download/frmCorrezioneOffLine.h"

#include "archive/ErroreArchivio.h"
#include "download/RicercaErrori.h"
#include "readings/Rilevamenti.h"
#include "ui_frmCorrezioneOffLine.h"

#include <algorithm>

using namespace Qt::StringLiterals;

frmCorrezioneOffLine::frmCorrezioneOffLine(int idEqu, QWidget* padre)
    : Finestra(padre), m_ui(std::make_unique<Ui::frmCorrezioneOffLine>()) {
    m_ui->setupUi(this);
    m_ui->divisore->setSizes({900, 200});
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QWidget::close);

    const std::vector<EquipaggioElenco> equipaggi = leggiEquipaggi();
    const auto equipaggio = std::ranges::find(equipaggi, idEqu, &EquipaggioElenco::idEqu);
    if (equipaggio == equipaggi.end())
        throw Errore(u"L'equipaggio non è più nell'archivio."_s);
    m_ui->lblEqu->setText(
        u"N. %1 - %2 - %3"_s.arg(QString::number(equipaggio->num), equipaggio->nome, equipaggio->veicolo));
    mostraScartati(equipaggio->num);
    m_ui->etichettaRilevamenti->setBuddy(m_ui->griglia->focusProxy());
    m_ui->griglia->apri(ModoGriglia::Correzione);
    m_ui->griglia->mostraEquipaggio(idEqu, equipaggio->asi);
    m_ui->griglia->prendiFuoco();
}

frmCorrezioneOffLine::~frmCorrezioneOffLine() = default;

void frmCorrezioneOffLine::mostraScartati(int num) {
    for (const TempoScartato& tempo : leggiTempiScartati()) {
        if (tempo.num == 0) {
            m_ui->lstTempiScartati->addItem(tempo.tempo + u"  (senza numero)"_s);
        } else if (tempo.num == num) {
            m_ui->lstTempiScartati->addItem(tempo.tempo);
        }
    }
    m_ui->lstTempiScartati->setCurrentRow(0);
}

bool frmCorrezioneOffLine::puoChiudere() {
    const bool via = lasciaDopo([this] { return m_ui->griglia->concludiModifica(); },
                                [this] { return m_ui->griglia->modificaInCorso(); });
    if (via)
        m_ui->griglia->abbandonaModifica();
    return via;
}

#include "download/frmErroriTempiOffLine.h"

#include "common/Dialoghi.h"
#include "download/frmCorrezioneOffLine.h"
#include "download/IscrizioneOffLine.h"
#include "download/RicercaErrori.h"
#include "ui_frmErroriTempiOffLine.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

frmErroriTempiOffLine::frmErroriTempiOffLine(QWidget* padre)
    : Finestra(padre), m_ui(std::make_unique<Ui::frmErroriTempiOffLine>()) {
    m_ui->setupUi(this);
    m_ui->divisore->setSizes({800, 200});
    QTableWidget* griglia = m_ui->gridErrori;
    griglia->setColumnCount(Colonne);
    griglia->setHorizontalHeaderLabels(
        {u"IDEqu"_s, u"Numero"_s, u"Equipaggio"_s, u"Tempo"_s, u"Errore"_s, u"Vedi"_s});
    griglia->hideColumn(Chiave);
    griglia->verticalHeader()->hide();
    griglia->horizontalHeader()->setHighlightSections(false);
    griglia->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    griglia->horizontalHeader()->setSectionResizeMode(Equipaggio, QHeaderView::Stretch);
    griglia->installEventFilter(this);
    connect(griglia, &QTableWidget::cellClicked, this, [this](int riga, int colonna) {
        if (colonna == Vedi)
            correggi(riga);
    });
    connect(m_ui->cmdChiudi, &QPushButton::clicked, this, &QWidget::close);
    riempi();
    if (griglia->rowCount() > 0)
        griglia->setCurrentCell(0, Vedi);
    m_ui->lstTempiSenzaNumero->setCurrentRow(0);
    griglia->setFocus();
}

frmErroriTempiOffLine::~frmErroriTempiOffLine() = default;

void frmErroriTempiOffLine::riempi() {
    QHash<int, QStringList> scartati;
    for (const TempoScartato& tempo : leggiTempiScartati()) {
        if (tempo.num == 0) {
            m_ui->lstTempiSenzaNumero->addItem(tempo.tempo);
        } else {
            scartati[tempo.num] << tempo.tempo;
        }
    }
    for (const ErroreScarico& errore : leggiErrori()) {
        AggiungiRiga(errore.idEqu, errore.num, errore.equipaggio, scartati.value(errore.num).join(u", "_s),
                     errore.testo());
    }
}

void frmErroriTempiOffLine::AggiungiRiga(int idEqu, int numero, const QString& equipaggio,
                                         const QString& tempo, const QString& errore) {
    QTableWidget* griglia = m_ui->gridErrori;
    const int riga = griglia->rowCount();
    griglia->insertRow(riga);
    const QString testi[] = {QString::number(idEqu), QString::number(numero), equipaggio, tempo, errore,
                             u"[Correggi--->]"_s};
    for (int colonna = Chiave; colonna <= Vedi; ++colonna) {
        auto* cella = new QTableWidgetItem(testi[colonna]);
        cella->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        if (colonna == Numero)
            cella->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (colonna == Vedi)
            cella->setForeground(palette().color(QPalette::Link));
        griglia->setItem(riga, colonna, cella);
    }
}

QString frmErroriTempiOffLine::cella(int riga, Colonna colonna) const {
    return m_ui->gridErrori->item(riga, colonna)->text();
}

void frmErroriTempiOffLine::correggi(int riga) {
    if (cella(riga, Chiave) == "0"_L1 && !iscrivi(riga))
        return;
    frmCorrezioneOffLine(cella(riga, Chiave).toInt(), this).exec();
}

bool frmErroriTempiOffLine::iscrivi(int riga) {
    const QString numero = cella(riga, Numero);
    if (!Dialoghi::corrente().domanda(
            u"Equipaggio NON Iscritto"_s,
            u"Prima di Poter Correggere i Tempi dell'Equipaggio n. %1\n"
            "E' Necessario Iscriverlo alla Manifestazione.\nIscrivere l'Equipaggio n. %1 ?"_s.arg(numero),
            Icona::Domanda))
        return false;
    const QString idEqu = QString::number(iscriviDaScarico(numero.toInt()));
    for (int altra = 0; altra < m_ui->gridErrori->rowCount(); ++altra) {
        if (cella(altra, Numero) == numero)
            m_ui->gridErrori->item(altra, Chiave)->setText(idEqu);
    }
    return true;
}

bool frmErroriTempiOffLine::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == m_ui->gridErrori && evento->type() == QEvent::KeyPress) {
        const int tasto = static_cast<QKeyEvent&>(*evento).key();
        const int riga = m_ui->gridErrori->currentRow();
        if (riga >= 0 && (tasto == Qt::Key_Return || tasto == Qt::Key_Enter || tasto == Qt::Key_Space)) {
            correggi(riga);
            return true;
        }
    }
    return Finestra::eventFilter(oggetto, evento);
}

bool frmErroriTempiOffLine::puoChiudere() {
    return m_ui->gridErrori->rowCount() == 0 ||
           Dialoghi::corrente().domanda(u"Conferma Chiusura"_s,
                                        u"Ci Sono Ancora Probabili Errori Nei Tempi Scaricati.\n"
                                        "Chiudere Veramente la Finestra degli Errori ?"_s,
                                        Icona::Domanda);
}

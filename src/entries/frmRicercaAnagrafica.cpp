#include "entries/frmRicercaAnagrafica.h"

#include "common/Public.h"
#include "ui_frmRicercaAnagrafica.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {
constexpr int ColonnaIDEqu = 5;
}

frmRicercaAnagrafica::frmRicercaAnagrafica(QWidget* padre)
    : Finestra(padre), m_ui(std::make_unique<Ui::frmRicercaAnagrafica>()) {
    m_ui->setupUi(this);
    IDEqu = 0;
    m_persone = leggiAnagrafica();
    m_ui->lstEqu->setColumnHidden(ColonnaIDEqu, true);
    m_ui->lstEqu->installEventFilter(this);
    const int larghezze[] = {230, 210, 250, 50};
    for (int colonna = 0; colonna < std::ssize(larghezze); ++colonna)
        m_ui->lstEqu->setColumnWidth(colonna, larghezze[colonna]);
    connect(m_ui->txtRic, &QLineEdit::textChanged, this, &frmRicercaAnagrafica::riempi);
    connect(m_ui->lstEqu, &QTreeWidget::itemDoubleClicked, this, &frmRicercaAnagrafica::seleziona);
    connect(m_ui->cmdSeleziona, &QPushButton::clicked, this, &frmRicercaAnagrafica::seleziona);
    connect(m_ui->cmdAnnulla, &QPushButton::clicked, this, &QWidget::close);
    riempi();
}

frmRicercaAnagrafica::~frmRicercaAnagrafica() = default;

void frmRicercaAnagrafica::riempi() {
    const QString testo = m_ui->txtRic->text();
    QList<QTreeWidgetItem*> righe;
    for (const PersonaArchivio& persona : std::as_const(m_persone)) {
        if (!corrisponde(persona, testo))
            continue;
        righe << new QTreeWidgetItem({persona.conducente, persona.navigatore, persona.veicolo, persona.anno,
                                      persona.manifestazione, QString::number(persona.idEqu)});
    }
    m_ui->lstEqu->clear();
    m_ui->lstEqu->addTopLevelItems(righe);
}

void frmRicercaAnagrafica::seleziona() {
    const QList<QTreeWidgetItem*> scelte = m_ui->lstEqu->selectedItems();
    if (scelte.isEmpty())
        return;
    IDEqu = scelte.constFirst()->text(ColonnaIDEqu).toInt();
    accept();
}

bool frmRicercaAnagrafica::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto != m_ui->lstEqu)
        return Finestra::eventFilter(oggetto, evento);
    if (evento->type() == QEvent::KeyPress) {
        const int tasto = static_cast<QKeyEvent*>(evento)->key();
        if (tasto != Qt::Key_Return && tasto != Qt::Key_Enter)
            return false;
        seleziona();
        return true;
    }
    // Who comes to the list by the keyboard finds its first row chosen: Enter takes it.
    if (evento->type() == QEvent::FocusIn &&
        static_cast<QFocusEvent*>(evento)->reason() == Qt::TabFocusReason &&
        m_ui->lstEqu->selectedItems().isEmpty())
        m_ui->lstEqu->setCurrentItem(m_ui->lstEqu->topLevelItem(0));
    return false;
}

#include "shell/frmMain.h"

#include "archive/Aggiornamenti.h"
#include "archive/DataBase.h"
#include "archive/ErroreArchivio.h"
#include "archive/PercorsoApp.h"
#include "archive/Statement.h"
#include "common/Dialoghi.h"
#include "common/frmAiuto.h"
#include "common/Funzioni.h"
#include "common/Public.h"
#include "common/Subroutine.h"
#include "common/TastiMenu.h"
#include "shell/AggiornamentoSoftware.h"
#include "shell/AzioniMenu.h"
#include "shell/DisegnoASI.h"
#include "shell/Menu.h"
#include "shell/Salvataggio.h"
#include "ui_frmMain.h"

#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

const QString NessunaAttiva = u"Nessuna Manifestazione Attiva"_s;

// An archive that is missing beside its copies was lost: a new one in its place would be empty, and the next
// exit would put it over the day's good copy.
void controllaArchivioPerduto() {
    if (QFile::exists(percorsoArchivio()))
        return;
    const QStringList copie =
        QDir(percorsoNelProgramma(u"Backup"_s)).entryList({u"mdvlm-*.mdb"_s}, QDir::Files, QDir::Time);
    if (copie.isEmpty())
        return;
    throw Errore(
        u"L'archivio mdvlm.mdb non è più nella cartella del programma, ma la cartella Backup ne ha delle "
        u"copie; "
        "l'ultima è\n%1\n\nPer riprendere il lavoro copiarla nella cartella del programma con il nome "
        "mdvlm.mdb. "
        "Per cominciare con un archivio nuovo spostare altrove la cartella Backup."_s.arg(
            copie.constFirst()));
}

}  // namespace

frmMain::frmMain(QWidget* padre) : QMainWindow(padre), m_ui(std::make_unique<Ui::frmMain>()) {
    m_ui->setupUi(this);
    m_ui->imgASI->setPixmap(disegnoASI(devicePixelRatioF()));
    m_ui->cmdOrologio->hide();  // nothing stands behind it yet
    m_versione = new QLabel(this);
    m_versione->setObjectName(u"stVersione"_s);
    m_versione->setContentsMargins(0, 0, 8, 0);
    m_ui->stBar->addPermanentWidget(m_versione);
    creaMenu();
    new TastiMenu(this);
    try {
        carica();
    } catch (...) {
        ChiudiDataBase();
        throw;
    }
}

frmMain::~frmMain() {
    ChiudiDataBase();
}

void frmMain::carica() {
    const CursoreAttesa cursore;
    QFile::remove(percorsoNelProgramma(u"temp.mdb"_s));  // of an interrupted import
    impostaFileAiuto(percorsoNelProgramma(u"vlm help.hlp"_s));
    controllaArchivioPerduto();
    PreparaArchivio();
    ApriDataBase();
    VerificaArchivio();
    AggiornaArchivio();
    IDMan = leggiManifestazioneAttiva();
    const QString nome = NomeManifestazione(IDMan);
    m_ui->lblMani->setText(nome.isEmpty() ? NessunaAttiva : nome);
    m_versione->setText(u"Ver. "_s + testoVersione(versioneProgramma()));
    attivazione();  // before the first painting: the platform activates the window only later
}

void frmMain::creaMenu() {
    // The menu that takes the entries of each level.
    QWidget* contenitori[] = {m_ui->menu, nullptr, nullptr};
    for (const VoceMenu& voce : vociMenu()) {
        const QString testo = QString::fromUtf16(voce.testo);
        QWidget* contenitore = contenitori[voce.livello];
        if (voce.nome) {
            contenitore->addAction(creaVoce(voce));
            continue;
        }
        auto* menu = new QMenu(testo, this);
        contenitore->addAction(menu->menuAction());
        contenitori[voce.livello + 1] = menu;
    }
}

QAction* frmMain::creaVoce(const VoceMenu& voce) {
    auto* azione = new QAction(QString::fromUtf16(voce.testo), this);
    azione->setObjectName(QString::fromUtf16(voce.nome));
    connect(azione, &QAction::triggered, this, [this, &voce] { eseguiVoce(voce); });
    return azione;
}

void frmMain::eseguiVoce(const VoceMenu& voce) {
    m_pannelloGuasto = false;
    if (!controlla(voce.controllo))
        return;
    const QString nome = QString::fromUtf16(voce.nome);
    if (nonAncoraDisponibile(nome)) {
        Dialoghi::corrente().messaggio(u"Velmora"_s, u"Funzione non ancora disponibile"_s,
                                       Icona::Informazione);
        return;
    }
    azioneMenu(nome)(*this);
    // Not every platform activates this window again when the one over it closes.
    if (Conn().isOpen())
        attivazione();
}

void frmMain::attivazione() {
    m_ui->frmInfo->setVisible(IDMan != 0);
    if (IDMan == 0) {
        m_ui->lblMani->setText(NessunaAttiva);
    } else {
        aggiornaPannello();
    }
}

void frmMain::scriviNome(const QString& nome) {
    m_ui->lblMani->setText(nome);
}

void frmMain::aggiornaPannello() {
    Statement riga(
        u"SELECT m.Nom,m.Loc,m.DaDat,m.ADat,count(e.IDEqu),count(e.IDEqu) FILTER (WHERE e.Omo<>'') "
        "FROM Manifestazioni m LEFT JOIN Equipaggi e ON e.IDMan_FK=m.IDMan WHERE m.IDMan=? GROUP BY m.IDMan"_s);
    if (!riga.esegui({IDMan}).prossima())
        return;
    m_ui->lblNom->setText(riga.testo(0));
    m_ui->lblLoc->setText(riga.testo(1));
    m_ui->lblDat->setText(riga.testo(2) + u" - "_s + riga.testo(3));
    m_ui->lblEquipaggi->setText(u"Equipaggi Iscritti :   "_s + riga.testo(4) + u"   di cui ASI :   "_s +
                                riga.testo(5));
}

bool frmMain::event(QEvent* evento) {
    // A panel that cannot be read is told once: the box itself activates the window again when it closes.
    if (evento->type() == QEvent::WindowActivate && !m_pannelloGuasto && Conn().isOpen()) {
        m_pannelloGuasto = true;
        attivazione();
        m_pannelloGuasto = false;
    }
    return QMainWindow::event(evento);
}

void frmMain::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_F1) {
        mostraAiuto(this);
    } else {
        QMainWindow::keyPressEvent(evento);
    }
}

void frmMain::closeEvent(QCloseEvent* evento) {
    evento->accept();
    if (!Conn().isOpen())
        return;
    const CursoreAttesa cursore;
    ChiudiDataBase();
    salvaAllUscita();
}

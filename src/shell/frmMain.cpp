#include "shell/frmMain.h"

#include "archive/Aggiornamenti.h"
#include "archive/DataBase.h"
#include "archive/ErroreArchivio.h"
#include "archive/PercorsoApp.h"
#include "archive/Statement.h"
#include "common/Dialoghi.h"
#include "common/frmAiuto.h"
#include "common/Funzioni.h"
#include "common/Impostazioni.h"
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
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QProxyStyle>
#include <QStyleOptionMenuItem>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString NessunaAttiva = u"Nessuna Manifestazione Attiva"_s;

// The entry that the keyboard is on is drawn so, also while its menu is closed (after Alt alone, or Esc).
class StileMenu final : public QProxyStyle {
public:
    void drawControl(ControlElement elemento, const QStyleOption* opzione, QPainter* pittore,
                     const QWidget* controllo) const override {
        const auto* voce = qstyleoption_cast<const QStyleOptionMenuItem*>(opzione);
        if (elemento != CE_MenuBarItem || !voce || !(voce->state & State_Selected)) {
            QProxyStyle::drawControl(elemento, opzione, pittore, controllo);
            return;
        }
        QStyleOptionMenuItem aperta = *voce;
        aperta.state |= State_Sunken;
        QProxyStyle::drawControl(elemento, &aperta, pittore, controllo);
    }
};

// An archive that is missing beside its copies was lost: a new one in its place would be empty, and the next
// exit would put it over the day's good copy.
void controllaArchivioPerduto() {
    if (QFile::exists(percorsoArchivio()))
        return;
    const QString ultima = ultimaCopia();
    if (ultima.isEmpty())
        return;
    throw Errore(
        u"L'archivio mdvlm.mdb non è più nella cartella del programma, ma la cartella Backup ne ha delle "
        u"copie; "
        "l'ultima è\n%1\n\nPer riprendere il lavoro spostare altrove mdvlm.mdb-journal, se c'è, e copiare "
        "quella nella cartella del programma con il nome mdvlm.mdb. Per cominciare con un archivio nuovo "
        "spostare "
        "altrove la cartella Backup e, se c'è, mdvlm.mdb-journal."_s.arg(ultima));
}

// Personal data are for the one who works with them; where the disk knows no such thing, it stays as it is.
void chiudiAgliAltri(const QString& file) {
    constexpr QFile::Permissions SoloProprietario = QFile::ReadOwner | QFile::WriteOwner;
    constexpr QFile::Permissions Altri =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    if (QFile::permissions(file) & Altri)
        QFile::setPermissions(file, SoloProprietario);
}

}  // namespace

frmMain::frmMain(QWidget* padre) : QMainWindow(padre), m_ui(std::make_unique<Ui::frmMain>()) {
    m_ui->setupUi(this);
    m_ui->imgASI->setPixmap(disegnoASI(devicePixelRatioF()));
    auto* stile = new StileMenu;
    stile->setParent(this);
    m_ui->menu->setStyle(stile);
    m_ui->cmdOrologio->hide();  // nothing stands behind it yet
    m_versione = new QLabel(this);
    m_versione->setObjectName(u"stVersione"_s);
    m_versione->setTextFormat(Qt::PlainText);
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
    // Of an interrupted import; a journal left behind would be rolled into the next copy of that name.
    for (const QString& nome : {u"temp.mdb"_s, u"temp.mdb-journal"_s})
        QFile::remove(percorsoNelProgramma(nome));
    impostaFileAiuto(percorsoNelProgramma(u"vlm help.hlp"_s));
    controllaArchivioPerduto();
    if (const QString avviso = PreparaArchivio(); !avviso.isEmpty())
        avverti(u"Archivio"_s, avviso);
    ApriDataBase();
    VerificaArchivio();
    chiudiAgliAltri(percorsoArchivio());
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
    apriVoce(voce);
    // Not every platform activates this window again when the one over it closes.
    if (Conn().aperta())
        attivazione();
}

void frmMain::apriVoce(const VoceMenu& voce) {
    const QString nome = QString::fromUtf16(voce.nome);
    // One that could not be opened again, on a disk that was away, is tried once more: not in order to leave.
    if (nome != u"mnuEsci" && !Conn().aperta())
        ApriDataBase();
    if (!controlla(voce.controllo) || !domandaPrima(nome))
        return;
    if (nonAncoraDisponibile(nome)) {
        Dialoghi::corrente().messaggio(u"Velmora"_s, u"Funzione non ancora disponibile"_s,
                                       Icona::Informazione);
        return;
    }
    azioneMenu(nome)(*this);
}

void frmMain::attivazione() {
    if (IDMan != 0 && !aggiornaPannello())
        ImpostaManifestazioneAttiva(0);  // its row is gone
    m_ui->frmInfo->setVisible(IDMan != 0);
    if (IDMan == 0)
        m_ui->lblMani->setText(NessunaAttiva);
    if (const QString guasto = Impostazioni::corrente().guasto(); !guasto.isEmpty())
        avverti(u"Impostazioni Non Salvate"_s, guasto);
}

void frmMain::scriviNome(const QString& nome) {
    m_ui->lblMani->setText(nome);
}

// False, and the panel is empty, when the event has no row any more.
bool frmMain::aggiornaPannello() {
    Statement riga(
        u"SELECT m.Nom,m.Loc,m.DaDat,m.ADat,count(e.IDEqu),count(e.IDEqu) FILTER (WHERE e.Omo<>'') "
        "FROM Manifestazioni m LEFT JOIN Equipaggi e ON e.IDMan_FK=m.IDMan WHERE m.IDMan=? GROUP BY m.IDMan"_s);
    if (!riga.esegui({IDMan}).prossima()) {
        for (QLabel* etichetta : {m_ui->lblNom, m_ui->lblLoc, m_ui->lblDat, m_ui->lblEquipaggi})
            etichetta->clear();
        return false;
    }
    m_ui->lblNom->setText(riga.testo(0));
    m_ui->lblLoc->setText(riga.testo(1));
    m_ui->lblDat->setText(riga.testo(2) + u" - "_s + riga.testo(3));
    m_ui->lblEquipaggi->setText(u"Equipaggi Iscritti :   "_s + riga.testo(4) + u"   di cui ASI :   "_s +
                                riga.testo(5));
    return true;
}

bool frmMain::event(QEvent* evento) {
    // A panel that cannot be read is told once: the box itself activates the window again when it closes.
    if (evento->type() == QEvent::WindowActivate && !m_pannelloGuasto && Conn().aperta()) {
        m_pannelloGuasto = true;
        attivazione();
        m_pannelloGuasto = false;
    }
    return QMainWindow::event(evento);
}

void frmMain::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_F1) {
        mostraAiuto(this);
    } else if (evento->key() == Qt::Key_F10) {
        m_ui->menu->setActiveAction(m_ui->menu->actions().constFirst());
    } else {
        QMainWindow::keyPressEvent(evento);
    }
}

void frmMain::closeEvent(QCloseEvent* evento) {
    evento->accept();
    if (std::exchange(m_uscita, true))
        return;
    const CursoreAttesa cursore;
    salvaAllUscita();
}

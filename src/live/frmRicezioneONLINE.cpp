#include "live/frmRicezioneONLINE.h"

#include "common/Dialoghi.h"
#include "common/Impostazioni.h"
#include "common/Public.h"
#include "common/Subroutine.h"
#include "common/Valori.h"
#include "devices/DialoghiScarico.h"
#include "devices/Porta.h"
#include "devices/Tabellone.h"
#include "live/frmClassificaDiProvaInTempoReale.h"
#include "live/frmRXONLINE.h"
#include "scoring/Calcolo.h"
#include "scoring/TagliaTempo.h"
#include "ui_frmRicezioneONLINE.h"

#include <cmath>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimaPorta = 9;
constexpr int ColonnaNumero = 1;  // of lstEq

bool numeroDiPorta(double numero) {
    return numero >= 1 && numero <= MassimaPorta && numero == std::floor(numero);
}

QString parolaPrecisione(Precisione precisione) {
    switch (precisione) {
        case Precisione::Minuto:
            return u"MIN"_s;
        case Precisione::Secondo:
            return u"SEC"_s;
        case Precisione::Decimo:
            return u"DEC"_s;
        case Precisione::Centesimo:
            return u"CEN"_s;
        case Precisione::Nessuna:
            break;
    }
    return {};
}

// Tries a port by opening and closing it; false with its message.
bool provaPorta(Linea linea, int numero) {
    const std::unique_ptr<Porta> porta = FabbricaPorte::corrente().crea(linea);
    porta->impostaNumero(numero);
    if (porta->prova())
        return true;
    avvisaGuastoPorta(porta->guasto());
    return false;
}

}  // namespace

frmRicezioneONLINE::frmRicezioneONLINE(const Catena& catena, QWidget* padre)
    : Finestra(padre), m_ui(std::make_unique<Ui::frmRicezioneONLINE>()), m_catena(catena) {
    m_ui->setupUi(this);
    m_ui->divisore->setSizes({400, 780});
    m_ui->lblRilevamenti->setBuddy(m_ui->griglia->focusProxy());
    QStringList nomi;
    for (const ProvaCronometrata& prova : catena)
        nomi << prova.nom + u' ' + prova.tem;
    m_ui->lblPro->setText(nomi.join(u" - "_s));
    applicaFiltro(m_ui->txtNum, Filtro::Cifre);
    for (int porta = 1; porta <= MassimaPorta; ++porta)
        m_ui->cboPortaCOM->addItem(u"COM %1"_s.arg(porta), porta);
    ripristina();

    connect(m_ui->txtNum, &QLineEdit::textChanged, this, &frmRicezioneONLINE::cercaNumero);
    connect(m_ui->lstEq, &ElencoEquipaggi::scelto, this, &frmRicezioneONLINE::mostraEquipaggio);
    // Also the crew that is current already, after a wrong number.
    connect(m_ui->lstEq, &QTreeWidget::itemClicked, this, &frmRicezioneONLINE::mostraEquipaggio);
    connect(m_ui->griglia, &GrigliaRilevamenti::equipaggioRichiesto, this,
            &frmRicezioneONLINE::cambiaEquipaggio);
    connect(m_ui->chkTabellone, &QCheckBox::clicked, this, &frmRicezioneONLINE::cambiatoTabellone);
    connect(m_ui->cmdRX, &QPushButton::clicked, this, &frmRicezioneONLINE::ricevi);
    connect(m_ui->cmdClassifica, &QPushButton::clicked, this, &frmRicezioneONLINE::classifica);
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QDialog::close);

    m_ui->griglia->apri(ModoGriglia::Ricezione);
    m_ui->lstEq->carica();
    coloraNumero();
    m_ui->txtNum->setFocus();
    m_ui->txtNum->selectAll();
}

frmRicezioneONLINE::~frmRicezioneONLINE() = default;

void frmRicezioneONLINE::ripristina() {
    const Impostazioni& impostazioni = Impostazioni::corrente();
    const int dispositivo = impostazioni.leggi(u"chrono"_s, u"offline"_s, u"0"_s).toInt();
    m_ui->cboChrono->setCurrentIndex(dispositivo == 1 ? 1 : 0);
    const int porta = impostazioni.leggi(u"com"_s, u"online"_s, u"1"_s).toInt();
    m_ui->cboPortaCOM->setCurrentIndex(numeroDiPorta(porta) ? porta - 1 : 0);
    const int tabellone = impostazioni.leggi(u"com"_s, u"tabellone"_s, {}).toInt();
    m_tabellone = numeroDiPorta(tabellone) ? tabellone : 0;
    mostraTabellone();
}

void frmRicezioneONLINE::salvaImpostazioni() {
    Impostazioni& impostazioni = Impostazioni::corrente();
    impostazioni.scrivi(u"com"_s, u"online"_s, QString::number(portaCronometro()));
    impostazioni.scrivi(u"chrono"_s, u"offline"_s, QString::number(m_ui->cboChrono->currentIndex()));
    impostazioni.scrivi(u"com"_s, u"tabellone"_s,
                        m_tabellone == 0 ? QString() : QString::number(m_tabellone));
}

// The crew of the typed number becomes the current one.
void frmRicezioneONLINE::cercaNumero() {
    const QString numero = QString::number(m_ui->txtNum->text().toInt());
    const QList<QTreeWidgetItem*> trovati =
        m_ui->lstEq->findItems(numero, Qt::MatchExactly | Qt::MatchCaseSensitive, ColonnaNumero);
    m_numeroTrovato = !trovati.isEmpty() && !m_ui->txtNum->text().isEmpty();
    if (m_numeroTrovato)
        m_ui->lstEq->setCurrentItem(trovati.first());
    coloraNumero();
}

void frmRicezioneONLINE::mostraEquipaggio() {
    const std::optional<EquipaggioElenco> equipaggio = m_ui->lstEq->corrente();
    if (!equipaggio)
        return;
    m_ui->griglia->mostraEquipaggio(equipaggio->idEqu, equipaggio->asi);
    m_ui->lblEqu->setText(m_ui->lstEq->etichetta());
    // One crew is chosen: the number says the same as the list.
    if (m_ui->txtNum->text().toInt() != equipaggio->num || m_ui->txtNum->text().isEmpty()) {
        const QSignalBlocker zitto(m_ui->txtNum);
        m_ui->txtNum->setText(QString::number(equipaggio->num));
    }
    m_numeroTrovato = true;
    coloraNumero();
}

void frmRicezioneONLINE::cambiaEquipaggio(int passo) {
    m_ui->griglia->concludiModifica();
    m_ui->lstEq->sposta(passo);
}

void frmRicezioneONLINE::coloraNumero() {
    QPalette colori = m_ui->txtNum->palette();
    colori.setColor(QPalette::Base, m_numeroTrovato ? QColor(Qt::white) : QColor(192, 0, 0));
    colori.setColor(QPalette::Text, m_numeroTrovato ? QApplication::palette().color(QPalette::WindowText)
                                                    : QColor(Qt::white));
    m_ui->txtNum->setPalette(colori);
    m_ui->cmdRX->setEnabled(m_numeroTrovato);
}

bool frmRicezioneONLINE::eventFilter(QObject* oggetto, QEvent* evento) {
    const bool mangiato = Finestra::eventFilter(oggetto, evento);
    // The colour of a wrong number stays, with the focus or without.
    if (oggetto == m_ui->txtNum && !m_numeroTrovato &&
        (evento->type() == QEvent::FocusIn || evento->type() == QEvent::FocusOut))
        coloraNumero();
    return mangiato;
}

void frmRicezioneONLINE::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Plus || evento->key() == Qt::Key_Minus) {
        cambiaEquipaggio(evento->key() == Qt::Key_Plus ? 1 : -1);
    } else {
        Finestra::keyPressEvent(evento);
    }
}

int frmRicezioneONLINE::portaCronometro() const {
    return m_ui->cboPortaCOM->currentData().toInt();
}

void frmRicezioneONLINE::cambiatoTabellone(bool acceso) {
    m_tabellone = acceso ? chiediTabellone() : 0;
    mostraTabellone();
}

// Asks until the port is good; 0 when the operator gives up.
int frmRicezioneONLINE::chiediTabellone() const {
    for (;;) {
        const QString risposta =
            Dialoghi::corrente()
                .chiedi(u"Porta COM Tabellone"_s,
                        u"Inserire il Numero della Port COM (Seriale) a cui è Collegato il Tabellone"_s, {})
                .value_or(QString())
                .trimmed();
        if (risposta.isEmpty())
            return 0;
        const std::optional<double> numero = leggiNumero(risposta);
        if (!numero || !numeroDiPorta(*numero)) {
            avverti(u"Attenzione"_s, u"Numero di Porta Errato"_s);
            continue;
        }
        const int porta = static_cast<int>(*numero);
        if (!provaPorta(Linea::Tabellone, porta))
            continue;
        if (porta != portaCronometro())
            return porta;
        avverti(u"Attenzione"_s,
                u"La Porta COM (Seriale) Selezionata\nè Stata già Assegnata al Cronometro.\n"
                "Selezionare un'altra Porta COM Disponibile"_s);
    }
}

void frmRicezioneONLINE::mostraTabellone() {
    m_ui->chkTabellone->setChecked(m_tabellone != 0);
    m_ui->lblComTabellone->setText(m_tabellone == 0 ? QString() : u"(COM %1)"_s.arg(m_tabellone));
}

ParametriOnLine frmRicezioneONLINE::parametri() const {
    const EquipaggioElenco equipaggio = *m_ui->lstEq->corrente();
    const Impostazione impostazione = leggiImpostazione(IDMan);
    const bool asi = equipaggio.asi;
    ParametriOnLine dati;
    dati.dispositivo = static_cast<Dispositivo>(m_ui->cboChrono->currentIndex());
    dati.idEqu = equipaggio.idEqu;
    dati.num = equipaggio.num;
    dati.catena = m_catena;
    dati.precisione = parolaPrecisione(impostazione.taratura(asi, TipoProva::PA).precisione);
    dati.taglia = [impostazione, asi](const QString& tempo) {
        return tagliaTempo(impostazione, tempo, asi, TipoProva::PA);
    };
    dati.penalita = [impostazione, asi](int scarto) {
        // A net time of 0, so that the whole of the imposed time is the deviation.
        return penalitaProva(impostazione, asi, {.tipo = TipoProva::PA, .imposto = scarto},
                             {.esiste = true, .manca = false});
    };
    return dati;
}

void frmRicezioneONLINE::ricevi() {
    m_ui->griglia->concludiModifica();
    const int porta = portaCronometro();
    if (m_tabellone == porta) {
        avverti(u"Porta COM NON Valida"_s, u"La Porta COM %1 è Utilizzata dal Tabellone"_s.arg(porta));
        return;
    }
    if (!provaPorta(Linea::Cronometro, porta))
        return;
    frmRXONLINE ricezione(parametri(), m_ui->lblEqu->text(), porta, m_tabellone, this);
    if (ricezione.inizia())
        ricezione.exec();
    m_ui->griglia->ricarica();
    m_ui->txtNum->setFocus();
    m_ui->txtNum->selectAll();
}

void frmRicezioneONLINE::classifica() {
    m_ui->griglia->concludiModifica();
    frmClassificaDiProvaInTempoReale(m_catena, this).exec();
}

bool frmRicezioneONLINE::puoChiudere() {
    const bool via = lasciaDopo([this] { return m_ui->griglia->concludiModifica(); },
                                [this] { return m_ui->griglia->modificaInCorso(); });
    if (via)
        m_ui->griglia->abbandonaModifica();
    return via;
}

void frmRicezioneONLINE::done(int esito) {
    if (m_tabellone != 0) {
        const std::unique_ptr<Porta> commTab2 = FabbricaPorte::corrente().crea(Linea::Tabellone);
        commTab2->impostaNumero(m_tabellone);
        if (!AzzeraTabellone(*commTab2))
            avvisaGuastoPorta(commTab2->guasto());
    }
    salvaImpostazioni();
    Finestra::done(esito);
}

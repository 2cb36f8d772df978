#include "live/frmRXONLINE.h"

#include "common/Valori.h"
#include "devices/DialoghiScarico.h"
#include "devices/Tabellone.h"
#include "ui_frmRXONLINE.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

constexpr int OgniCentesimo = 10;  // milliseconds
constexpr int TraBeep = 200;       // so that two are heard
constexpr int CorpoTempo = 48;     // of lblTempo, points
constexpr int CorpoTempoRidotto = 28;

QColor colore(RicezioneOnLine::Sfondo sfondo, const QColor& normale) {
    switch (sfondo) {
        case RicezioneOnLine::Sfondo::Verde:
            return {0, 192, 0};
        case RicezioneOnLine::Sfondo::Arancio:
            return {255, 128, 0};
        case RicezioneOnLine::Sfondo::Rosso:
            return {255, 0, 0};
        case RicezioneOnLine::Sfondo::Chiaro:
            return {192, 255, 255};
        case RicezioneOnLine::Sfondo::Normale:
            break;
    }
    return normale;
}

}  // namespace

frmRXONLINE::frmRXONLINE(const ParametriOnLine& parametri, const QString& equipaggio, int cronometro,
                         int tabellone, QWidget* padre)
    : Finestra(padre),
      m_ui(std::make_unique<Ui::frmRXONLINE>()),
      m_ricezione(parametri),
      m_porta(FabbricaPorte::corrente().crea(Linea::Cronometro)) {
    m_ui->setupUi(this);
    m_ui->lblEqu->setText(equipaggio);
    m_ui->lblAvvisoTabellone->hide();
    m_porta->impostaNumero(cronometro);
    if (tabellone != 0) {
        m_tabellone = FabbricaPorte::corrente().crea(Linea::Tabellone);
        m_tabellone->impostaNumero(tabellone);
    }
    m_timer1.setTimerType(Qt::PreciseTimer);
    m_timer1.setInterval(OgniCentesimo);
    m_attesa.setTimerType(Qt::PreciseTimer);
    m_attesa.setSingleShot(true);
    connect(&m_timer1, &QTimer::timeout, this, &frmRXONLINE::mostraCronometro);
    connect(&m_attesa, &QTimer::timeout, this, [this] { esegui(m_ricezione.attesaFinita()); });
    connect(m_porta.get(), &Porta::ricevuto, this, &frmRXONLINE::ricevi);
    connect(m_porta.get(), &Porta::guasta, this, [this] { esegui(m_ricezione.perduta()); });
    connect(m_ui->cmdArrestaRicezione, &QPushButton::clicked, this, &QDialog::close);
}

frmRXONLINE::~frmRXONLINE() = default;

bool frmRXONLINE::inizia() {
    if (!m_porta->apri()) {
        avvisaGuastoPorta(m_porta->guasto());
        return false;
    }
    esegui(m_ricezione.inizia());
    return true;
}

void frmRXONLINE::done(int esito) {
    m_ricezione.ferma();
    m_timer1.stop();
    m_cronometro.invalidate();
    m_attesa.stop();
    mostraCronometro();
    m_porta->chiudi();
    Finestra::done(esito);
}

void frmRXONLINE::keyPressEvent(QKeyEvent* evento) {
    // With a car in test only the button, or the close box, stops the run.
    if (evento->matches(QKeySequence::Cancel) && m_ricezione.stato() == RicezioneOnLine::Stato::InProva)
        return;
    Finestra::keyPressEvent(evento);
}

void frmRXONLINE::ricevi() {
    const QPointer<frmRXONLINE> viva(this);  // a box lets other events run
    try {
        for (const FrameOnLine& frame : m_ricezione.ricevuti(m_porta->leggiTutto())) {
            esegui(m_ricezione.ricevuto(frame));
            if (!viva)
                return;
        }
    } catch (...) {
        // The archive has refused a reading: the run is over, the box comes from the top.
        inviaAlTabellone(TabelloneErrore);
        done(Rejected);
        throw;
    }
}

void frmRXONLINE::esegui(const RicezioneOnLine::Azioni& azioni) {
    const QPointer<frmRXONLINE> viva(this);
    for (const RicezioneOnLine::Azione& azione : azioni) {
        esegui(azione);
        if (!viva)
            return;
    }
}

void frmRXONLINE::esegui(const RicezioneOnLine::Azione& azione) {
    using enum RicezioneOnLine::Cosa;
    switch (azione.cosa) {
        case Mostra:
            mostra();
            break;
        case AvviaCronometro:
            m_cronometro.start();
            m_timer1.start();
            break;
        case AzzeraCronometro:
            m_cronometro.start();
            break;
        case FermaCronometro:
            m_timer1.stop();
            m_cronometro.invalidate();
            mostraCronometro();
            break;
        case Tabellone:
            inviaAlTabellone(azione.testo);
            break;
        case AzzeraTabellone:
            inviaAlTabellone({});
            break;
        case Suona:
            suona();
            break;
        case Attendi:
            m_attesa.start(azione.millisecondi);
            break;
        case DatoErrato:
            avvisaDatoErrato();
            break;
        case PortaPerduta:
            avvisaGuastoPorta(m_porta->guasto());
            break;
        case Chiudi:
            done(Accepted);
            break;
    }
}

void frmRXONLINE::mostra() {
    const RicezioneOnLine::Schermo& schermo = m_ricezione.schermo();
    QPalette colori = palette();
    colori.setColor(QPalette::Window,
                    colore(schermo.sfondo, QApplication::palette(this).color(QPalette::Window)));
    setPalette(colori);
    QFont carattere = m_ui->lblTempo->font();
    carattere.setPointSize(schermo.tempoRidotto ? CorpoTempoRidotto : CorpoTempo);
    m_ui->lblTempo->setFont(carattere);
    m_ui->lblImp->setText(schermo.lblImp);
    m_ui->lblTempo->setText(schermo.lblTempo);
    m_ui->cmdArrestaRicezione->setEnabled(schermo.arrestoPossibile);
}

void frmRXONLINE::mostraCronometro() {
    const qint64 centesimi = m_cronometro.isValid() ? m_cronometro.elapsed() / OgniCentesimo : 0;
    m_ui->lblCron->setText(CentesimiInTempo(static_cast<int>(centesimi)));
}

void frmRXONLINE::suona() {
    QApplication::beep();
    QTimer::singleShot(TraBeep, this, &QApplication::beep);
}

void frmRXONLINE::inviaAlTabellone(QStringView testo) {
    if (!m_tabellone)
        return;
    // The times go on without it.
    const bool inviato = InviaTabellone(*m_tabellone, testo);
    m_ui->lblAvvisoTabellone->setVisible(!inviato);
    if (!inviato)
        m_ui->lblAvvisoTabellone->setText(u"Tabellone : "_s + m_tabellone->guasto().testo());
}

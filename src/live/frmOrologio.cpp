#include "live/frmOrologio.h"

#include "common/Dialoghi.h"
#include "common/Impostazioni.h"
#include "devices/DialoghiScarico.h"
#include "devices/Tabellone.h"
#include "ui_frmOrologio.h"

#include <algorithm>
#include <QButtonGroup>

using namespace Qt::StringLiterals;

namespace {

// All options of a group off.
void spegni(QButtonGroup* gruppo) {
    gruppo->setExclusive(false);
    if (gruppo->checkedButton())
        gruppo->checkedButton()->setChecked(false);
    gruppo->setExclusive(true);
}

int scelta(const QButtonGroup* gruppo) {
    return std::max(0, gruppo->checkedId());
}

void seleziona(const QButtonGroup* gruppo, const QString& numero) {
    if (QAbstractButton* opzione = gruppo->button(numero.toInt()))
        opzione->setChecked(true);
}

void avvisaNonDisponibile(int numero) {
    avverti(u"Impossibile Impostare la Porta COM"_s, u"Porta COM %1 NON Disponibile"_s.arg(numero));
}

}  // namespace

frmOrologio::frmOrologio(QWidget* padre)
    : Finestra(padre),
      m_ui(std::make_unique<Ui::frmOrologio>()),
      m_optCOMTAB(new QButtonGroup(this)),
      m_optCOMTAG(new QButtonGroup(this)),
      m_optFormato(new QButtonGroup(this)),
      m_commTab(FabbricaPorte::corrente().crea(Linea::Tabellone)),
      m_commTag(FabbricaPorte::corrente().crea(Linea::Cronometro)) {
    m_ui->setupUi(this);
    const auto raccogli = [](QButtonGroup* gruppo, const QWidget* riquadro) {
        const QList<QRadioButton*> opzioni = riquadro->findChildren<QRadioButton*>();
        for (QRadioButton* opzione : opzioni)
            gruppo->addButton(opzione, opzione->objectName().section(u'_', 1).toInt());
    };
    raccogli(m_optCOMTAB, m_ui->fraCOMTAB);
    raccogli(m_optCOMTAG, m_ui->fraCOMTAG);
    raccogli(m_optFormato, m_ui->fraFormato);
    QSizePolicy posto = m_ui->frmAttesaSynchro->sizePolicy();
    posto.setRetainSizeWhenHidden(true);
    m_ui->frmAttesaSynchro->setSizePolicy(posto);
    ripristina();
    mostraAttesa(false);

    m_tempo.start();
    m_tmrOrologio.setTimerType(Qt::PreciseTimer);
    m_tmrOrologio.setSingleShot(true);
    connect(&m_tmrOrologio, &QTimer::timeout, this, &frmOrologio::batti);
    connect(m_commTag.get(), &Porta::ricevuto, this, &frmOrologio::ricevutoDalCronometro);
    connect(m_commTag.get(), &Porta::guasta, this, [this] { perduto(*m_commTag); });
    connect(m_commTab.get(), &Porta::guasta, this, [this] { perduto(*m_commTab); });
    for (QButtonGroup* gruppo : {m_optCOMTAB, m_optCOMTAG})
        connect(gruppo, &QButtonGroup::idClicked, this, [this, gruppo](int n) { sceltaPorta(gruppo, n); });
    connect(m_optFormato, &QButtonGroup::idClicked, this, [this](int n) { m_orologio.impostaFormato(n); });
    connect(m_ui->cmdSynchro, &QPushButton::clicked, this, &frmOrologio::sincronizza);
    connect(m_ui->cmdAnnulla, &QPushButton::clicked, this, &frmOrologio::annulla);
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QDialog::close);
}

frmOrologio::~frmOrologio() = default;

void frmOrologio::ripristina() {
    const Impostazioni& impostazioni = Impostazioni::corrente();
    seleziona(m_optCOMTAB, impostazioni.leggi(u"com"_s, u"TABOrologio"_s, u"0"_s));
    seleziona(m_optCOMTAG, impostazioni.leggi(u"com"_s, u"TAGOrologio"_s, u"0"_s));
    m_ui->optFormato_1->setChecked(true);
    seleziona(m_optFormato, impostazioni.leggi(u"Formato"_s, u"FormatoOrologio"_s, u"1"_s));
    m_orologio.impostaFormato(scelta(m_optFormato));
}

void frmOrologio::sceltaPorta(QButtonGroup* gruppo, int numero) {
    // A port that this window holds open is there.
    if ((m_commTab->aperta() && m_commTab->numero() == numero) ||
        (m_commTag->aperta() && m_commTag->numero() == numero))
        return;
    const std::unique_ptr<Porta> porta = FabbricaPorte::corrente().crea(Linea::Cronometro);
    porta->impostaNumero(numero);
    if (!porta->prova()) {
        avvisaNonDisponibile(numero);
        spegni(gruppo);
    }
}

void frmOrologio::sincronizza() {
    const int tabellone = scelta(m_optCOMTAB);
    const int cronometro = scelta(m_optCOMTAG);
    if (tabellone == 0 || cronometro == 0) {
        avverti(u"Impossibile Avviare la Sincronizzazione"_s,
                u"Specificare le Porte di Comunicazione\ndel Tabellone e del Cronometro TAG"_s);
        return;
    }
    // A clock that runs goes on, where its port is the same, until the new time comes. One line for both is
    // the chronometer's until then: the scoreboard stays dark.
    const bool unaLinea = tabellone == cronometro;
    if (m_commTab->aperta() && m_commTab->numero() != tabellone)
        chiudiTabellone();
    if (unaLinea)
        spegniTabellone();
    m_sincronismo = {};
    if (apri(*m_commTag, cronometro) && (unaLinea || apri(*m_commTab, tabellone))) {
        mostraAttesa(true);
    } else {
        annulla();
    }
}

bool frmOrologio::apri(Porta& porta, int numero) {
    if (porta.aperta())
        return true;
    porta.impostaNumero(numero);
    if (porta.apri())
        return true;
    avvisaNonDisponibile(numero);
    return false;
}

void frmOrologio::annulla() {
    m_commTag->chiudi();
    mostraAttesa(false);
    if (!m_inMoto || !apri(*m_commTab, m_commTab->numero()))
        chiudiTabellone();
}

void frmOrologio::ricevutoDalCronometro() {
    const std::optional<int> ora = m_sincronismo.aggiungi(m_commTag->leggiTutto());
    if (!ora || !m_commTag->aperta())
        return;
    m_orologio.sincronizza(*ora, m_tempo.nsecsElapsed());
    m_inMoto = true;
    m_commTag->chiudi();
    mostraAttesa(false);
    if (apri(*m_commTab, scelta(m_optCOMTAB))) {
        m_tmrOrologio.start(m_orologio.alProssimo(m_tempo.nsecsElapsed()));
    } else {
        chiudiTabellone();
    }
}

void frmOrologio::batti() {
    m_ui->lblOrario->setText(m_orologio.batti(m_tempo.nsecsElapsed()));
    if (m_commTab->aperta())
        InviaTabellone(*m_commTab, m_ui->lblOrario->text());
    m_tmrOrologio.start(m_orologio.alProssimo(m_tempo.nsecsElapsed()));
}

void frmOrologio::perduto(Porta& porta) {
    // Without the scoreboard there is no clock; without the chronometer, no new time for it.
    if (&porta == m_commTab.get() || porta.numero() == m_commTab->numero())
        fermaOrologio();
    annulla();
    avvisaGuastoPorta(porta.guasto());
}

void frmOrologio::mostraAttesa(bool attesa) {
    m_ui->cmdSynchro->setEnabled(!attesa);
    for (QWidget* riquadro : {m_ui->fraCOMTAB, m_ui->fraCOMTAG})
        riquadro->setEnabled(!attesa);
    m_ui->frmAttesaSynchro->setVisible(attesa);
    if (attesa)
        m_ui->cmdAnnulla->setFocus();
}

void frmOrologio::fermaOrologio() {
    m_tmrOrologio.stop();
    m_inMoto = false;
}

void frmOrologio::chiudiTabellone() {
    fermaOrologio();
    spegniTabellone();
}

void frmOrologio::spegniTabellone() {
    if (!m_commTab->aperta())
        return;
    AzzeraTabellone(*m_commTab);
    m_commTab->chiudi();
}

void frmOrologio::done(int esito) {
    chiudiTabellone();
    m_commTag->chiudi();
    Impostazioni& impostazioni = Impostazioni::corrente();
    impostazioni.scrivi(u"com"_s, u"TABOrologio"_s, QString::number(scelta(m_optCOMTAB)));
    impostazioni.scrivi(u"com"_s, u"TAGOrologio"_s, QString::number(scelta(m_optCOMTAG)));
    impostazioni.scrivi(u"Formato"_s, u"FormatoOrologio"_s, QString::number(scelta(m_optFormato)));
    Finestra::done(esito);
}

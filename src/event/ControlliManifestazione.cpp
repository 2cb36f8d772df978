#include "event/ControlliManifestazione.h"

#include "common/Subroutine.h"
#include "event/CampiEvento.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int CifreNumero = 9;  // fits 32 bits
// How much wider the window is with the column of the other crews.
constexpr int LarghezzaNoASI = (9825 - 7980) / 15;

}  // namespace

ControlliManifestazione::ControlliManifestazione(QWidget* finestra, Dove dove,
                                                 std::function<QList<Gruppo>()> gruppi)
    : QObject(finestra), m_finestra(finestra), m_dove(dove), m_gruppi(std::move(gruppi)), m_uscita(finestra) {
    for (const VoceManifestazione& voce : vociManifestazione())
        preparaControllo(voce);
    for (const QString& tipo : {u"PA"_s, u"PM"_s, u"CO"_s})
        preparaEtichetta(tipo);
    connect(finestra->findChild<QCheckBox*>(u"chkRagAuto"_s), &QCheckBox::clicked, this,
            &ControlliManifestazione::verificaRagAuto);
    connect(finestra->findChild<QCheckBox*>(u"chkOpzASI_NONASI"_s), &QCheckBox::toggled, this,
            [this](bool mostra) {
                mostraNoASI(mostra);
                m_finestra->resize(m_finestra->width() + (mostra ? LarghezzaNoASI : -LarghezzaNoASI),
                                   m_finestra->height());
            });
    scrivi(datiIniziali());
    mostraNoASI(false);
}

QString ControlliManifestazione::nomeControllo(const VoceManifestazione& voce) const {
    const bool altroNome = m_dove == Dove::Modifica && voce.controlloModifica;
    return QString::fromLatin1(altroNome ? voce.controlloModifica : voce.controllo);
}

QWidget* ControlliManifestazione::controllo(const VoceManifestazione& voce) const {
    return m_finestra->findChild<QWidget*>(nomeControllo(voce));
}

void ControlliManifestazione::preparaControllo(const VoceManifestazione& voce) {
    QWidget* quale = controllo(voce);
    if (auto* box = qobject_cast<QLineEdit*>(quale)) {
        preparaBox(voce, box);
    } else if (auto* combo = qobject_cast<QComboBox*>(quale)) {
        const bool precisione = voce.genere == GenereVoce::Precisione;
        combo->addItems(precisione ? parolePrecisione() : QStringList{siNo(false), siNo(true)});
        if (!precisione)
            connect(combo, &QComboBox::currentTextChanged, this, &ControlliManifestazione::aggiornaAttivi);
    } else if (voce.genere == GenereVoce::Interruttore) {
        connect(qobject_cast<QAbstractButton*>(quale), &QAbstractButton::toggled, this,
                &ControlliManifestazione::aggiornaAttivi);
    }
}

void ControlliManifestazione::preparaBox(const VoceManifestazione& voce, QLineEdit* box) {
    const bool numero = voce.genere == GenereVoce::Lungo || voce.genere == GenereVoce::Doppio;
    limitaTesto(box, numero ? CifreNumero : LunghezzaTesto);
    // The units of the time controls have never had a filter, unlike their siblings.
    const bool senzaFiltro = box->objectName().startsWith(u"txtPenUniCO"_s);
    if (voce.genere == GenereVoce::Data) {
        m_uscita.aggiungiMascherato(box, Maschera::Data);
    } else if (numero && !senzaFiltro) {
        applicaFiltro(box, voce.genere == GenereVoce::Lungo ? Filtro::Cifre : Filtro::CifreVirgola);
    }
}

void ControlliManifestazione::preparaEtichetta(const QString& tipo) {
    auto* etichetta = m_finestra->findChild<QLabel*>(u"lblPenUni"_s + tipo);
    const FormaEtichetta forma =
        m_dove == Dove::Creazione ? FormaEtichetta::Creazione : FormaEtichetta::Modifica;
    auto* precisioni = m_finestra->findChild<QComboBox*>(u"cboPre"_s + tipo);
    const auto scrivi = [=](const QString& precisione) {
        etichetta->setText(etichettaPenalita(tipo, precisione, forma));
    };
    connect(precisioni, &QComboBox::currentTextChanged, etichetta, scrivi);
    scrivi(precisioni->currentText());
}

QString ControlliManifestazione::testo(const VoceManifestazione& voce) const {
    QWidget* quale = controllo(voce);
    if (auto* combo = qobject_cast<QComboBox*>(quale))
        return combo->currentText();
    if (auto* box = qobject_cast<QLineEdit*>(quale))
        return voce.genere == GenereVoce::Data ? valoreMascherato(box, Maschera::Data) : box->text();
    const bool premuto = qobject_cast<QAbstractButton*>(quale)->isChecked();
    if (voce.genere == GenereVoce::TipoCO)
        return premuto ? u"PAR"_s : u"CON"_s;
    return siNo(premuto);
}

void ControlliManifestazione::imposta(const VoceManifestazione& voce, const QString& testo) {
    QWidget* quale = controllo(voce);
    if (auto* combo = qobject_cast<QComboBox*>(quale)) {
        combo->setCurrentIndex(combo->findText(testo));
    } else if (auto* box = qobject_cast<QLineEdit*>(quale)) {
        mostraTesto(box, testo);
    } else if (voce.genere == GenereVoce::TipoCO) {
        m_finestra->findChild<QRadioButton*>(testo == u"PAR"_s ? u"optCOPar"_s : u"optCOCon"_s)
            ->setChecked(true);
    } else {
        qobject_cast<QAbstractButton*>(quale)->setChecked(testo == siNo(true));
    }
}

DatiManifestazione ControlliManifestazione::leggi() const {
    DatiManifestazione dati;
    for (const VoceManifestazione& voce : vociManifestazione())
        dati[QString::fromLatin1(voce.colonna)] = testo(voce);
    return dati;
}

void ControlliManifestazione::scrivi(const DatiManifestazione& dati) {
    // Switches first: turning one on proposes a value, turning it off empties it.
    for (const bool interruttori : {true, false}) {
        for (const VoceManifestazione& voce : vociManifestazione()) {
            if ((voce.genere == GenereVoce::Interruttore) == interruttori &&
                (voceAttiva(voce, dati) || voce.genere == GenereVoce::Precisione))
                imposta(voce, dati.value(QString::fromLatin1(voce.colonna)));
        }
    }
    aggiornaAttivi();
}

void ControlliManifestazione::aggiornaAttivi() {
    const DatiManifestazione dati = leggi();
    for (const VoceManifestazione& voce : vociManifestazione()) {
        if (!voce.interruttore && !voce.soloNoASI)
            continue;
        QWidget* quale = controllo(voce);
        const bool attiva = voceAttiva(voce, dati);
        if (auto* box = qobject_cast<QLineEdit*>(quale); box && attiva != box->isEnabled())
            mostraTesto(box, attiva ? QString::fromLatin1(voce.proposta) : QString());
        quale->setEnabled(attiva);
    }
}

void ControlliManifestazione::mostraNoASI(bool mostra) {
    for (const VoceManifestazione& voce : vociManifestazione()) {
        if (voce.soloNoASI)
            controllo(voce)->setVisible(mostra);
    }
    for (const QString& titolo : {u"lblASI"_s, u"lblNoASI"_s})
        m_finestra->findChild<QLabel*>(titolo)->setVisible(mostra);
}

void ControlliManifestazione::verificaRagAuto() {
    auto* scelta = m_finestra->findChild<QCheckBox*>(u"chkRagAuto"_s);
    if (scelta->isChecked() && !accettato(m_finestra, verificaAssegnazione(m_gruppi())))
        scelta->setChecked(false);
}

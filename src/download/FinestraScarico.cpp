#include "download/FinestraScarico.h"

#include "common/Impostazioni.h"
#include "common/Public.h"
#include "devices/DialoghiScarico.h"
#include "scoring/TagliaTempo.h"

#include <QComboBox>
#include <QPushButton>

using namespace Qt::StringLiterals;
using Tono = PannelloStato::Tono;

namespace {

constexpr int PortaMassima = 9;

}  // namespace

FinestraScarico::FinestraScarico(QWidget* padre) : Finestra(padre) {
    connect(&m_scaricamento, &Scaricamento::mancheErrata, this, &avvisaMancheErrata);
    connect(&m_scaricamento, &Scaricamento::mancheRichiesta, this, &FinestraScarico::chiediManche);
    connect(&m_scaricamento, &Scaricamento::datiInArrivo, this, [this] {
        stato().mostra({u"RICEZIONE"_s, u"IN CORSO"_s}, Tono::Lavoro);
    });
    connect(&m_scaricamento, &Scaricamento::finito, this, &FinestraScarico::processa);
    connect(&m_scaricamento, &Scaricamento::guasta, this, &FinestraScarico::avvisaGuasto);
    connect(&m_scaricamento, &Scaricamento::nessunaRisposta, this, [this] {
        arresta();
        avvisaNessunaRisposta();
    });
}

void FinestraScarico::collega(const Controlli& controlli, const QString& chiave) {
    m_controlli = controlli;
    m_chiave = chiave;
    if (m_controlli.cboChrono) {
        m_controlli.cboChrono->addItems(
            {nomeDispositivo(Dispositivo::CP520), nomeDispositivo(Dispositivo::CP540)});
    }
    for (int porta = 1; porta <= PortaMassima; ++porta)
        m_controlli.cboPortaCOM->addItem(u"COM %1"_s.arg(porta));
    leggiImpostazioni();
    m_controlli.cmdArrestaRicezione->setEnabled(false);
    connect(m_controlli.cmdIniziaRicezione, &QPushButton::clicked, this, &FinestraScarico::inizia);
    connect(m_controlli.cmdArrestaRicezione, &QPushButton::clicked, this, &FinestraScarico::arresta);
}

void FinestraScarico::leggiImpostazioni() {
    const auto scegli = [](QComboBox* combo, int indice) {
        combo->setCurrentIndex(indice >= 0 && indice < combo->count() ? indice : 0);
    };
    const Impostazioni& impostazioni = Impostazioni::corrente();
    scegli(m_controlli.cboPortaCOM, impostazioni.leggi(u"com"_s, m_chiave, u"1"_s).toInt() - 1);
    if (m_controlli.cboChrono)
        scegli(m_controlli.cboChrono, impostazioni.leggi(u"chrono"_s, m_chiave, u"0"_s).toInt());
}

void FinestraScarico::scriviImpostazioni() const {
    Impostazioni& impostazioni = Impostazioni::corrente();
    impostazioni.scrivi(u"com"_s, m_chiave, QString::number(m_controlli.cboPortaCOM->currentIndex() + 1));
    if (m_controlli.cboChrono)
        impostazioni.scrivi(u"chrono"_s, m_chiave, QString::number(m_controlli.cboChrono->currentIndex()));
}

Dispositivo FinestraScarico::dispositivo() const {
    return m_controlli.cboChrono ? static_cast<Dispositivo>(m_controlli.cboChrono->currentIndex())
                                 : Dispositivo::CP520;
}

Taglio FinestraScarico::taglio() {
    return [impostazione = leggiImpostazione(IDMan)](const QString& tempo, bool asi, const QString& tipo) {
        return tagliaTempo(impostazione, tempo, asi, leggiTipoProva(tipo));
    };
}

void FinestraScarico::inizia() {
    stato().azzera();
    if (!prepara())
        return;
    blocca(true, m_controlli.cmdArrestaRicezione);
    if (!m_scaricamento.inizia(dispositivo(), m_controlli.cboPortaCOM->currentIndex() + 1)) {
        avvisaGuasto();
    } else if (dispositivo() == Dispositivo::CP520) {
        stato().mostra({u"ATTESA DATI"_s, u"DA TAG CP 520"_s}, Tono::Attesa);
    } else {
        stato().mostra({u"ATTESA RISPOSTA"_s, u"DA TAG CP540"_s}, Tono::Attesa);
    }
}

void FinestraScarico::arresta() {
    m_scaricamento.ferma();
    stato().azzera();
    blocca(false, m_controlli.cmdIniziaRicezione);
}

void FinestraScarico::blocca(bool attiva, QWidget* fuoco) {
    QList<QWidget*> bloccati = m_controlli.altri;
    bloccati << m_controlli.cboPortaCOM << m_controlli.cmdIniziaRicezione;
    if (m_controlli.cboChrono)
        bloccati << m_controlli.cboChrono;
    m_controlli.cmdArrestaRicezione->setEnabled(attiva);
    for (QWidget* controllo : bloccati)
        controllo->setEnabled(!attiva);
    fuoco->setFocus();
}

void FinestraScarico::avvisaGuasto() {
    arresta();
    avvisaGuastoPorta(m_scaricamento.guasto());
}

void FinestraScarico::chiediManche() {
    stato().mostra({u"Collegamento Stabilito"_s, u"Con TAG CP540"_s,
                    u"Numero di Serie : "_s + m_scaricamento.numeroDiSerie()},
                   Tono::Attesa);
    if (const std::optional<QString> manche = ::chiediManche()) {
        m_scaricamento.manche(*manche);
    } else {
        arresta();
    }
}

void FinestraScarico::processa(const QByteArray& flusso) {
    m_controlli.cmdArrestaRicezione->setEnabled(false);
    stato().mostra({u"ELABORAZIONE"_s, u"IN CORSO"_s}, Tono::Lavoro);
    try {
        // A copy: nothing that happens meanwhile may pull it away.
        elabora(dispositivo(), QByteArray(flusso));
    } catch (...) {
        arresta();
        throw;
    }
    blocca(false, prossimoControllo());
}

bool FinestraScarico::puoChiudere() {
    if (m_controlli.cmdArrestaRicezione->isEnabled())
        arresta();
    scriviImpostazioni();
    return true;
}

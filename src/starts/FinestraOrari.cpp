#include "starts/FinestraOrari.h"

#include "common/Dialoghi.h"
#include "common/Subroutine.h"
#include "common/Valori.h"
#include "download/frmRicezioneLista.h"
#include "starts/ElencoOrari.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString NonGenerati = u"Impossibile Generare gli Orari"_s;

void rifiuta(const QString& testo, QLineEdit* campo) {
    avverti(NonGenerati, testo);
    tornaSu(campo);
}

}  // namespace

FinestraOrari::FinestraOrari(QWidget* padre) : Finestra(padre), m_uscita(this) {}

void FinestraOrari::collega(const Controlli& controlli) {
    m_controlli = controlli;
    m_uscita.aggiungiMascherato(controlli.txtTem, Maschera::Ora);
    applicaFiltro(controlli.txtPrimoNumero, Filtro::Cifre);
    connect(controlli.cmdGenera, &QPushButton::clicked, this, &FinestraOrari::genera);
    connect(controlli.cmdRicezione, &QPushButton::clicked, this, &FinestraOrari::ricevi);
    connect(controlli.cmdSalva, &QPushButton::clicked, this, &FinestraOrari::salva);
    connect(controlli.cmdEsci, &QPushButton::clicked, this, &QDialog::close);
}

void FinestraOrari::genera() {
    if (!m_uscita.risolvi())
        return;
    const std::optional<int> primo = leggiOra(m_controlli.txtTem->text());
    const QString intervallo = m_controlli.txtIntervalloPartenze->text().trimmed();
    if (!primo)
        return rifiuta(u"Inserire l'Orario del Primo Veicolo"_s, m_controlli.txtTem);
    if (intervallo.isEmpty())
        return rifiuta(u"Inserire l'Intervallo tra le Partenze"_s, m_controlli.txtIntervalloPartenze);
    if (!verifica(NonGenerati))
        return;
    const std::optional<int> secondi = leggiIntervallo(intervallo);
    if (!secondi)
        return rifiuta(u"Intervallo NON Valido"_s, m_controlli.txtIntervalloPartenze);

    const auto orari = [&] {
        const CursoreAttesa attesa;
        return generaOrari(*primo, *secondi, m_controlli.txtPrimoNumero->text());
    }();
    if (!orari)
        return rifiuta(u"Il Numero dell'Equipaggio da Cui Iniziare NON Esiste"_s, m_controlli.txtPrimoNumero);
    m_controlli.lstOrari->mostra(*orari);
}

void FinestraOrari::ricevi() {
    if (!m_uscita.risolvi())
        return;
    const auto consegna = [this](const QList<TempoInLista>& tempi) {
        std::vector<OrarioPartenza> orari;
        for (const TempoInLista& tempo : tempi)
            orari.push_back({tempo.num, tempo.tempo, tempo.idEqu});
        m_controlli.lstOrari->mostra(orari);
    };
    frmRicezioneLista(consegna, this).exec();
}

void FinestraOrari::salva() {
    const QString nonSalvati = u"Impossibile Salvare"_s;
    if (m_controlli.lstOrari->topLevelItemCount() == 0) {
        avverti(nonSalvati, u"Orari di Partenza NON Ancora Generati"_s);
        return;
    }
    if (!verifica(nonSalvati))
        return;
    {
        const CursoreAttesa attesa;
        salvaOrari(m_controlli.lstOrari->orari(), daIDPro());
    }
    m_controlli.lstOrari->clear();
    MostraMessaggio(avvisoSalvato());
}

bool FinestraOrari::puoChiudere() {
    return m_controlli.lstOrari->topLevelItemCount() == 0 ||
           Dialoghi::corrente().domanda(u"Conferma Uscita"_s, u"Uscire Senza Salvare ?"_s, Icona::Domanda);
}

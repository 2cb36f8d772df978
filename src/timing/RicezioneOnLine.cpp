#include "timing/RicezioneOnLine.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "common/Valori.h"
#include "timing/Tabellone.h"

#include <cmath>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString TempoZero = u"00:00:00:00"_s;

// `colonna`: TPar or TArr. A reading whose row is missing is not lost for that.
void scriviLettura(const QString& colonna, const QString& tempo, int idEqu, int idPro) {
    if (esegui(u"UPDATE Rilevamenti SET %1=? WHERE IDEqu_FK=? AND IDPro_FK=?"_s.arg(colonna),
               {tempo, idEqu, idPro}) == 0) {
        inserisciRiga(u"Rilevamenti"_s, {{u"IDEqu_FK"_s, idEqu},
                                         {u"IDPro_FK"_s, idPro},
                                         {u"TPar"_s, QString(u""_s)},
                                         {u"TArr"_s, QString(u""_s)},
                                         {colonna, tempo}});
    }
}

QString treDecimali(double valore) {
    return numeroInTesto(std::round(valore * 1000) / 1000);
}

}  // namespace

RicezioneOnLine::RicezioneOnLine(CorsaOnLine corsa)
    : m_corsa(std::move(corsa)), m_ricevitore(m_corsa.dispositivo) {}

RicezioneOnLine::Azioni RicezioneOnLine::inizia() {
    m_schermo.lblTempo = u"IN PARTENZA..."_s;
    return {{Cosa::FermaCronometro},
            {Cosa::Mostra},
            {Cosa::AzzeraTabellone},
            {Cosa::Tabellone, tabellonePronto(m_corsa.num)}};
}

RicezioneOnLine::Azioni RicezioneOnLine::ricevuti(QByteArrayView caratteri) {
    Azioni azioni;
    if (!riceve())
        return azioni;
    for (const FrameOnLine& frame : m_ricevitore.aggiungi(caratteri)) {
        azioni += ricevuto(frame);
        if (!riceve())
            break;
    }
    return azioni;
}

RicezioneOnLine::Azioni RicezioneOnLine::ricevuto(const FrameOnLine& frame) {
    Azioni azioni;
    const bool inProva = m_stato == Stato::InProva;
    switch (frame.tipo) {
        case TipoFrame::Partenza:
            inProva ? rifiuta(u"START CON VEICOLO IN PROVA"_s, azioni) : partenza(azioni);
            return azioni;
        case TipoFrame::Tempo:
            inProva ? tempo(frame, azioni) : rifiuta(u"RESET NON ESEGUITO"_s, azioni);
            return azioni;
    }
    // A guard: no frame of another kind passes the receiver.
    m_schermo.sfondo = Sfondo::Rosso;
    m_schermo.lblTempo = u"Ricevuto Dato Errato"_s;
    return {{Cosa::Mostra}, {Cosa::Tabellone, QStringView(TabelloneErrore).toString()}};
}

void RicezioneOnLine::partenza(Azioni& azioni) {
    salva([&] { scriviLettura(u"TPar"_s, TempoZero, m_corsa.idEqu, m_corsa.catena.first().idPro); },
          u"La partenza dell'equipaggio n. %1 NON è stata salvata."_s.arg(m_corsa.num));
    m_stato = Stato::InProva;
    m_ricevuti = 0;
    m_precedente = 0;
    m_schermo.sfondo = Sfondo::Verde;
    m_schermo.lblTempo = u"PARTITO"_s;
    azioni << Azione{Cosa::AvviaCronometro} << Azione{Cosa::Mostra}
           << Azione{Cosa::Tabellone, tabellonePartito(m_corsa.num)};
}

void RicezioneOnLine::tempo(const FrameOnLine& frame, Azioni& azioni) {
    const std::optional<int> centesimi = tempoTrascorso(m_corsa.dispositivo, frame.record);
    if (!centesimi) {
        interrompi(Cosa::DatoErrato, azioni);
        return;
    }
    const ProvaCronometrata& prova = m_corsa.catena[m_ricevuti];
    ++m_ricevuti;
    const bool ultima = m_ricevuti == m_corsa.catena.size();
    const QString tempo = m_corsa.taglia(CentesimiInTempo(*centesimi));
    salva(
        [&] {
            Transazione transazione;
            scriviLettura(u"TArr"_s, tempo, m_corsa.idEqu, prova.idPro);
            // The tests of a chain share one clock.
            if (!ultima)
                scriviLettura(u"TPar"_s, tempo, m_corsa.idEqu, m_corsa.catena[m_ricevuti].idPro);
            transazione.conferma();
        },
        u"Il tempo %1 dell'equipaggio n. %2 sulla prova \"%3\" NON è stato salvato.\nScriverlo a mano."_s.arg(
            tempo, QString::number(m_corsa.num), prova.nom));
    azioni << Azione{Cosa::AzzeraCronometro} << Azione{Cosa::Suona};
    mostraTempo(tempo, azioni);
    if (ultima)
        fine(azioni);
}

void RicezioneOnLine::mostraTempo(const QString& tempo, Azioni& azioni) {
    const QString imposto = m_corsa.catena[m_ricevuti - 1].tem + u":00"_s;
    const int arrivo = TempoInCentesimi(tempo);
    const int parziale = arrivo - m_precedente;
    m_precedente = arrivo;
    const std::optional<double> penalita = m_corsa.penalita(std::abs(parziale - TempoInCentesimi(imposto)));
    m_totale += penalita.value_or(0);

    m_schermo.sfondo = Sfondo::Arancio;
    m_schermo.lblImp = u"TEMPO N° %1 : %2"_s.arg(QString::number(m_ricevuti), CentesimiInTempo(parziale));
    m_schermo.tempoRidotto = true;
    m_schermo.lblTempo =
        u"TEMPO IMPOSTO : %1\nPENALITA' : %2"_s.arg(imposto, penalita ? treDecimali(*penalita) : u"?????"_s);
    azioni << Azione{Cosa::Mostra}
           << Azione{Cosa::Tabellone, tabelloneParziale(parziale, m_corsa.precisione)};
}

void RicezioneOnLine::fine(Azioni& azioni) {
    m_stato = Stato::FineProva;
    m_schermo.arrestoPossibile = false;
    azioni << Azione{Cosa::FermaCronometro} << Azione{Cosa::Mostra}
           << Azione{Cosa::Attendi, {}, AtteseRicezione.fineProva};
}

void RicezioneOnLine::rifiuta(const QString& motivo, Azioni& azioni) {
    m_stato = Stato::Errata;
    m_schermo.sfondo = Sfondo::Rosso;
    m_schermo.arrestoPossibile = false;
    m_schermo.lblImp.clear();
    m_schermo.lblTempo = motivo;
    azioni << Azione{Cosa::FermaCronometro} << Azione{Cosa::Mostra}
           << Azione{Cosa::Tabellone, QStringView(TabelloneErrore).toString()}
           << Azione{Cosa::Attendi, {}, AtteseRicezione.errore};
}

void RicezioneOnLine::interrompi(Cosa motivo, Azioni& azioni) {
    m_stato = Stato::Chiusa;
    azioni << Azione{Cosa::FermaCronometro}
           << Azione{Cosa::Tabellone, QStringView(TabelloneErrore).toString()} << Azione{motivo}
           << Azione{Cosa::Chiudi};
}

RicezioneOnLine::Azioni RicezioneOnLine::attesaFinita() {
    switch (m_stato) {
        case Stato::FineProva: {
            m_stato = Stato::Totale;
            const QString totale = treDecimali(m_totale);
            m_schermo.sfondo = Sfondo::Chiaro;
            m_schermo.lblImp = u"PROVA TERMINATA"_s;
            m_schermo.lblTempo = u"PENALITA' TOTALI DELLA PROVA : "_s + totale;
            return {{Cosa::Mostra},
                    {Cosa::Tabellone, tabellonePenalita(totale)},
                    {Cosa::Attendi, {}, AtteseRicezione.totale}};
        }
        case Stato::Errata:
        case Stato::Totale:
            m_stato = Stato::Chiusa;
            return {{Cosa::Chiudi}};
        case Stato::AttesaPartenza:
        case Stato::InProva:
        case Stato::Chiusa:
            break;
    }
    return {};
}

RicezioneOnLine::Azioni RicezioneOnLine::ferma() {
    if (!riceve())
        return {};
    m_stato = Stato::Chiusa;
    return {{Cosa::FermaCronometro}, {Cosa::Chiudi}};
}

RicezioneOnLine::Azioni RicezioneOnLine::perduta() {
    Azioni azioni;
    if (riceve())
        interrompi(Cosa::PortaPerduta, azioni);
    return azioni;
}

void RicezioneOnLine::salva(const std::function<void()>& scrittura, const QString& perduto) {
    try {
        scrittura();
    } catch (const Errore& errore) {
        m_stato = Stato::Chiusa;
        throw Errore(perduto + u"\n\n"_s + errore.testo());
    }
}

#include "live/RicezioneOnLine.h"

#include "archive/ErroreArchivio.h"
#include "common/Valori.h"
#include "devices/Tabellone.h"

#include <cmath>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString treDecimali(double valore) {
    return numeroInTesto(std::round(valore * 1000) / 1000);
}

RicezioneOnLine::Azione erroreSulTabellone() {
    return {RicezioneOnLine::Cosa::Tabellone, QStringView(TabelloneErrore).toString()};
}

}  // namespace

RicezioneOnLine::RicezioneOnLine(ParametriOnLine parametri)
    : m_parametri(std::move(parametri)),
      m_ricevitore(m_parametri.dispositivo),
      m_corsa(m_parametri.dispositivo, static_cast<int>(m_parametri.catena.size()), m_parametri.taglia) {}

RicezioneOnLine::Azioni RicezioneOnLine::inizia() {
    m_schermo.lblTempo = u"IN PARTENZA..."_s;
    return {{Cosa::FermaCronometro},
            {Cosa::Mostra},
            {Cosa::AzzeraTabellone},
            {Cosa::Tabellone, tabellonePronto(m_parametri.num)}};
}

QList<FrameOnLine> RicezioneOnLine::ricevuti(QByteArrayView caratteri) {
    return riceve() ? m_ricevitore.aggiungi(caratteri) : QList<FrameOnLine>();
}

RicezioneOnLine::Azioni RicezioneOnLine::ricevuto(const FrameOnLine& frame) {
    Azioni azioni;
    if (!riceve())
        return azioni;
    if (frame.tipo != TipoFrame::Partenza && frame.tipo != TipoFrame::Tempo) {
        // A guard: no frame of another kind passes the receiver.
        m_schermo.sfondo = Sfondo::Rosso;
        m_schermo.lblTempo = u"Ricevuto Dato Errato"_s;
        return {{Cosa::Mostra}, erroreSulTabellone()};
    }
    const CorsaOnLine::Passo passo = m_corsa.ricevi(frame);
    switch (passo.evento) {
        case CorsaOnLine::Evento::Partenza:
            partenza(azioni);
            break;
        case CorsaOnLine::Evento::Tempo:
        case CorsaOnLine::Evento::UltimoTempo:
            tempo(passo, azioni);
            break;
        case CorsaOnLine::Evento::ResetNonEseguito:
            rifiuta(u"RESET NON ESEGUITO"_s, azioni);
            break;
        case CorsaOnLine::Evento::StartConVeicoloInProva:
            rifiuta(u"START CON VEICOLO IN PROVA"_s, azioni);
            break;
        case CorsaOnLine::Evento::DatoErrato:
            interrompi(Cosa::DatoErrato, azioni);
            break;
        case CorsaOnLine::Evento::Ignorato:
            break;
    }
    return azioni;
}

void RicezioneOnLine::partenza(Azioni& azioni) {
    salva([&] { scriviPartenza(m_parametri.idEqu, m_parametri.catena.first().idPro); },
          u"La partenza dell'equipaggio n. %1 NON è stata salvata."_s.arg(m_parametri.num));
    m_stato = Stato::InProva;
    m_schermo.sfondo = Sfondo::Verde;
    m_schermo.lblTempo = u"PARTITO"_s;
    azioni << Azione{Cosa::AvviaCronometro} << Azione{Cosa::Mostra}
           << Azione{Cosa::Tabellone, tabellonePartito(m_parametri.num)};
}

void RicezioneOnLine::tempo(const CorsaOnLine::Passo& passo, Azioni& azioni) {
    const ProvaCronometrata& prova = m_parametri.catena[passo.ricevuti - 1];
    const bool ultimo = passo.evento == CorsaOnLine::Evento::UltimoTempo;
    salva(
        [&] {
            scriviArrivo(m_parametri.idEqu, prova.idPro,
                         ultimo ? 0 : m_parametri.catena[passo.ricevuti].idPro, passo.tempo);
        },
        u"Il tempo %1 dell'equipaggio n. %2 sulla prova \"%3\" NON è stato salvato.\nScriverlo a mano."_s.arg(
            passo.tempo, QString::number(m_parametri.num), prova.nom));
    azioni << Azione{Cosa::AzzeraCronometro} << Azione{Cosa::Suona};
    m_schermo.arrestoPossibile = !ultimo;
    mostraTempo(passo, azioni);
    if (ultimo) {
        m_stato = Stato::FineProva;
        azioni << Azione{Cosa::FermaCronometro} << Azione{Cosa::Attendi, {}, AtteseRicezione.fineProva};
    }
}

void RicezioneOnLine::mostraTempo(const CorsaOnLine::Passo& passo, Azioni& azioni) {
    const QString imposto = m_parametri.catena[passo.ricevuti - 1].tem + u":00"_s;
    const std::optional<double> penalita =
        m_parametri.penalita(std::abs(passo.parziale - TempoInCentesimi(imposto)));
    m_totale += penalita.value_or(0);

    m_schermo.sfondo = Sfondo::Arancio;
    m_schermo.lblImp =
        u"TEMPO N° %1 : %2"_s.arg(QString::number(passo.ricevuti), CentesimiInTempo(passo.parziale));
    m_schermo.tempoRidotto = true;
    m_schermo.lblTempo =
        u"TEMPO IMPOSTO : %1\nPENALITA' : %2"_s.arg(imposto, penalita ? treDecimali(*penalita) : u"?????"_s);
    azioni << Azione{Cosa::Mostra}
           << Azione{Cosa::Tabellone, tabelloneParziale(passo.parziale, m_parametri.precisione)};
}

void RicezioneOnLine::rifiuta(const QString& motivo, Azioni& azioni) {
    m_stato = Stato::Errata;
    m_schermo.sfondo = Sfondo::Rosso;
    m_schermo.arrestoPossibile = false;
    m_schermo.lblImp.clear();
    m_schermo.lblTempo = motivo;
    azioni << Azione{Cosa::FermaCronometro} << Azione{Cosa::Mostra} << erroreSulTabellone()
           << Azione{Cosa::Attendi, {}, AtteseRicezione.errore};
}

void RicezioneOnLine::interrompi(Cosa motivo, Azioni& azioni) {
    m_stato = Stato::Chiusa;
    azioni << Azione{Cosa::FermaCronometro} << erroreSulTabellone() << Azione{motivo} << Azione{Cosa::Chiudi};
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

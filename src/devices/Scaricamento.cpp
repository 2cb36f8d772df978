#include "devices/Scaricamento.h"

#include <QPointer>

using Cosa = Conversazione::Cosa;

Scaricamento::Scaricamento(QObject* padre)
    : QObject(padre), m_porta(FabbricaPorte::corrente().crea(Linea::Cronometro)) {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);  // the others cut a wait short by up to a twentieth
    connect(&m_timer, &QTimer::timeout, this, &Scaricamento::scaduto);
    connect(m_porta.get(), &Porta::ricevuto, this,
            [this] { esegui(m_conversazione.ricevuti(m_porta->leggiTutto())); });
    connect(m_porta.get(), &Porta::guasta, this, &Scaricamento::perduta);
}

bool Scaricamento::inizia(Dispositivo dispositivo, int numeroPorta) {
    ferma();
    m_guasto = {};
    m_porta->impostaNumero(numeroPorta);
    m_conversazione = Conversazione(dispositivo);
    return esegui(m_conversazione.inizia());
}

void Scaricamento::manche(const QString& testo) {
    if (!esegui(m_conversazione.manche(testo)))
        Q_EMIT guasta();
}

void Scaricamento::ferma() {
    ++m_giro;
    m_timer.stop();
    m_porta->chiudi();
    m_conversazione.ferma();
}

void Scaricamento::scaduto() {
    // What has arrived and was not told yet came in time.
    const QPointer<Scaricamento> vivo(this);
    const int giro = m_giro;
    esegui(m_conversazione.ricevuti(m_porta->leggiTutto()));
    if (vivo && m_giro == giro && !m_timer.isActive())
        esegui(m_conversazione.scaduto());
}

void Scaricamento::perduta() {
    m_guasto = m_porta->guasto();
    ferma();
    Q_EMIT guasta();
}

// False when the port failed; the download has stopped then.
bool Scaricamento::esegui(const Conversazione::Azioni& azioni) {
    const QPointer<Scaricamento> vivo(this);
    const int giro = m_giro;
    for (const Conversazione::Azione& azione : azioni) {
        bool riuscita = true;
        switch (azione.cosa) {
            case Cosa::ApriPorta:
                riuscita = m_porta->apri();
                break;
            case Cosa::ChiudiPorta:
                m_porta->chiudi();
                break;
            case Cosa::Invia:
                riuscita = m_porta->scrivi(azione.dati);
                break;
            case Cosa::ArmaTimer:
                m_timer.start(azione.millisecondi);
                break;
            case Cosa::FermaTimer:
                m_timer.stop();
                break;
            default:
                avvisa(azione.cosa);
                if (!vivo || m_giro != giro)
                    return true;
        }
        if (!riuscita) {
            m_guasto = m_porta->guasto();
            ferma();
            return false;
        }
    }
    return true;
}

void Scaricamento::avvisa(Cosa cosa) {
    switch (cosa) {
        case Cosa::ChiediManche:
            Q_EMIT mancheRichiesta();
            break;
        case Cosa::MancheErrata:
            Q_EMIT mancheErrata();
            break;
        case Cosa::NessunaRisposta:
            Q_EMIT nessunaRisposta();
            break;
        case Cosa::DatiInArrivo:
            Q_EMIT datiInArrivo();
            break;
        case Cosa::Finita:
            Q_EMIT finito(m_conversazione.flusso());
            break;
        default:
            break;
    }
}

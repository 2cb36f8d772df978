#pragma once

#include "devices/Conversazione.h"
#include "devices/Porta.h"

#include <QTimer>

// A download on a real port: the conversation, its port and its timer, for the windows that read a
// chronometer's memory. Signals may be answered from within: ferma(), manche(), a modal box.
class Scaricamento final : public QObject {
    Q_OBJECT

public:
    explicit Scaricamento(QObject* padre = nullptr);
    Q_DISABLE_COPY_MOVE(Scaricamento)
    ~Scaricamento() override = default;

    // False when the port cannot be opened; guasto() tells why. A download under way is stopped first.
    bool inizia(Dispositivo dispositivo, int numeroPorta);
    void manche(const QString& testo);  // answer to mancheRichiesta(), as leggiManche gives it
    void ferma();                       // timers off, port closed, nothing more is told

    [[nodiscard]] Conversazione::Stato stato() const { return m_conversazione.stato(); }
    [[nodiscard]] const QString& numeroDiSerie() const { return m_conversazione.numeroDiSerie(); }
    [[nodiscard]] const GuastoPorta& guasto() const { return m_guasto; }

Q_SIGNALS:
    void mancheRichiesta();  // TAG CP540: identified (numeroDiSerie), or the last heat was refused
    void mancheErrata();     // comes just before mancheRichiesta
    void datiInArrivo();
    void finito(const QByteArray& flusso);  // for leggiRecord
    // The download has stopped:
    void nessunaRisposta();
    void guasta();  // the port could not be opened again or was lost; guasto() tells why

private:
    bool esegui(const Conversazione::Azioni& azioni);
    void avvisa(Conversazione::Cosa cosa);
    void scaduto();
    void perduta();

    Conversazione m_conversazione{Dispositivo::CP520};
    std::unique_ptr<Porta> m_porta;
    QTimer m_timer{this};
    GuastoPorta m_guasto;
    int m_giro = 0;  // changes when the download is stopped: what was still to be done no longer counts
};

#include "live/CorsaOnLine.h"

#include "archive/Statement.h"
#include "common/Valori.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// A reading whose row is missing is not lost for that.
void scriviLettura(const QString& colonna, const QString& tempo, int idEqu, int idPro) {
    if (esegui(u"UPDATE Rilevamenti SET %1=? WHERE IDEqu_FK=? AND IDPro_FK=?"_s.arg(colonna),
               {tempo, idEqu, idPro}) != 0)
        return;
    QVariantMap riga{{u"IDEqu_FK"_s, idEqu}, {u"IDPro_FK"_s, idPro}, {u"TPar"_s, u""_s}, {u"TArr"_s, u""_s}};
    riga[colonna] = tempo;
    inserisciRiga(u"Rilevamenti"_s, riga);
}

}  // namespace

CorsaOnLine::Passo CorsaOnLine::ricevi(const FrameOnLine& frame) {
    if (m_finita)
        return {};
    if (frame.tipo == TipoFrame::Partenza) {
        m_finita = m_inProva;
        return {std::exchange(m_inProva, true) ? Evento::StartConVeicoloInProva : Evento::Partenza,
                m_ricevuti,
                {},
                0};
    }
    m_finita = true;
    if (!m_inProva)
        return {Evento::ResetNonEseguito, 0, {}, 0};
    const std::optional<int> trascorso = tempoTrascorso(m_dispositivo, frame.record);
    if (!trascorso)
        return {Evento::DatoErrato, m_ricevuti, {}, 0};

    m_finita = ++m_ricevuti == m_lunghezza;
    const QString tempo = m_taglio(CentesimiInTempo(*trascorso));
    const int adesso = TempoInCentesimi(tempo);
    return {m_finita ? Evento::UltimoTempo : Evento::Tempo, m_ricevuti, tempo,
            adesso - std::exchange(m_precedente, adesso)};
}

void scriviPartenza(int idEqu, int idPro) {
    scriviLettura(u"TPar"_s, u"00:00:00:00"_s, idEqu, idPro);
}

void scriviArrivo(int idEqu, int idPro, int idProssima, const QString& tempo) {
    Transazione transazione;
    scriviLettura(u"TArr"_s, tempo, idEqu, idPro);
    if (idProssima != 0)
        scriviLettura(u"TPar"_s, tempo, idEqu, idProssima);
    transazione.conferma();
}

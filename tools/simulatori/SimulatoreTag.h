#pragma once

#include "devices/Dispositivo.h"
#include "simulatori/PseudoTerminale.h"

#include <optional>
#include <QList>
#include <QMap>
#include <QTime>

// A TAG CP520 or TAG CP540 on a pseudo-terminal: on-line runs, its memory, and, for the TAG CP540, its
// answers to "#ID" and "#DL_". Where its records may hold anything, they do.
class SimulatoreTag final : public QObject {
    Q_OBJECT

public:
    SimulatoreTag(Dispositivo dispositivo, PseudoTerminale& linea);
    Q_DISABLE_COPY_MOVE(SimulatoreTag)
    ~SimulatoreTag() override = default;

    // On-line.
    void partenza();
    void tempo(int centesimi);  // elapsed, below one hour

    // The memory: of one heat on the TAG CP540, of the whole device on the TAG CP520. Number 0: none.
    void scegliManche(int manche) { m_manche = manche; }
    void registra(int numero, QTime ora);       // ora: to the hundredth
    void registraRiga(const QByteArray& riga);  // as it is
    void trasmetti();                           // TAG CP520: the operator starts the transfer

    // How it behaves from now on.
    void setSerie(const QString& serie) { m_serie = serie; }
    void setMuto(bool muto) { m_muto = muto; }                            // answers nothing
    void setTaglio(std::optional<qsizetype> byte) { m_taglio = byte; }    // its data stop after so many bytes
    void setMancheInCoda(std::optional<int> manche) { m_coda = manche; }  // heat that the end frame names
    void spezza(qsizetype byte, int millisecondi);                        // 0: whole again
    void incolla() { m_incolla = true; }  // holds back what follows, to send it in one piece
    void fineIncolla();

    void invia(const QByteArray& dati);
    void disturbo(int byte);  // so many random ones, the same on each run

    // The commands that the program has sent, without their CR, LF.
    [[nodiscard]] const QList<QByteArray>& comandi() const { return m_comandi; }

    // Frames, for those who make recorded streams.
    static QByteArray framePartenza(Dispositivo dispositivo);
    static QByteArray frameTempo(Dispositivo dispositivo, int centesimi);
    static QByteArray rigaMemoria(Dispositivo dispositivo, int numero, QTime ora);

private:
    void ricevi(const QByteArray& dati);
    void rispondi(const QByteArray& comando);
    void inviaManche(const QByteArray& manche);
    void prossimoPezzo();

    Dispositivo m_dispositivo;
    PseudoTerminale& m_linea;
    QMap<int, QList<QByteArray>> m_memoria;
    int m_manche = 1;
    QString m_serie = QStringLiteral("04711");
    bool m_muto = false;
    std::optional<qsizetype> m_taglio;
    std::optional<int> m_coda;
    QByteArray m_ingresso;
    QList<QByteArray> m_comandi;
    bool m_incolla = false;
    QByteArray m_incollati;
    qsizetype m_pezzo = 0;
    QByteArray m_uscita;
    QTimer m_cadenza;
    quint32 m_seme = 1;
};

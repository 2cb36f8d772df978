#include "shell/ScaricoVersione.h"

#include "archive/ErroreArchivio.h"
#include "common/Subroutine.h"
#include "shell/ScaricoHttp.h"

#include <QProgressDialog>
#include <QPushButton>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

void scrivi(const QString& percorso, const QByteArray& dati) {
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly) || file.write(dati) != dati.size() || !file.commit())
        throw Errore(u"Il file %1 non si può scrivere (%2)."_s.arg(percorso, file.errorString()));
}

// The modal notice keeps every other entry, and the window's own close box, out of reach until the answer.
class AvvisoAttesa final {
public:
    explicit AvvisoAttesa(QWidget* padre)
        : m_finestra(u"Collegamento al Server di Aggiornamento..."_s, QString(), 0, 0, padre,
                     Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
        m_finestra.setObjectName(u"attesaAggiornamento"_s);
        m_finestra.setWindowTitle(u"Aggiornamento Software"_s);
        m_finestra.setAutoReset(false);
        // A second Enter from the menu must not give up the wait it has just begun.
        auto* annulla = new QPushButton(u"&Annulla"_s);
        annulla->setAutoDefault(false);
        m_finestra.setCancelButton(annulla);
    }
    Q_DISABLE_COPY_MOVE(AvvisoAttesa)
    ~AvvisoAttesa() = default;

    // Until the answer is over; false when the operator gave up.
    bool attendi(const ScaricoHttp& scarico) {
        QObject::connect(&m_finestra, &QProgressDialog::canceled, &m_finestra, &QDialog::reject);
        QObject::connect(&scarico, &ScaricoHttp::concluso, &m_finestra, &QDialog::accept);
        return scarico.finito() || m_finestra.exec() == QDialog::Accepted;
    }

private:
    QProgressDialog m_finestra;
};

}  // namespace

QUrl indirizzoVersione() {
    return QUrl(QStringLiteral(VELMORA_SERVER_AGGIORNAMENTI "/software/vlm/update/vlmver.txt"));
}

EsitoScarico scaricaVersione(const QUrl& indirizzo, const QString& percorso, QWidget* padre) {
    const CursoreAttesa cursore;
    AvvisoAttesa avviso(padre);
    ScaricoHttp scarico;
    scarico.avvia(indirizzo, MassimoScarico, AttesaScarico);
    if (!avviso.attendi(scarico))
        return EsitoScarico::Annullato;
    const std::optional<QByteArray> file = scarico.file();
    if (!file)
        return EsitoScarico::Fallito;
    scrivi(percorso, *file);
    return EsitoScarico::Riuscito;
}

void aggiornaViaInternet(QWidget* padre) {
    MezziAggiornamento mezzi;
    mezzi.scarica = [padre](const QString& percorso) {
        return scaricaVersione(indirizzoVersione(), percorso, padre);
    };
    aggiornaSoftware(mezzi);
}

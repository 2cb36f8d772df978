#include "common/Impostazioni.h"

#include "archive/ErroreArchivio.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>
#include <QSettings>
#include <QTemporaryDir>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QSettings dellUtente() {
    return QSettings(u"VLM"_s, u"VLM"_s);
}

void controlla(const QSettings& impostazioni) {
    if (impostazioni.status() == QSettings::AccessError)
        throw Errore(u"accesso negato"_s);
}

#ifdef Q_OS_WIN

void scriviSuDisco(const QString& chiave, const QString& valore) {
    QSettings impostazioni = dellUtente();
    impostazioni.setValue(chiave, valore);
    impostazioni.sync();
    controlla(impostazioni);
}

#else

// The present settings with one changed, as the text of their file.
QByteArray nuovoTesto(const QString& chiave, const QString& valore) {
    const QTemporaryDir cartella;
    const QString percorso = cartella.filePath(u"impostazioni"_s);
    {
        QSettings presenti = dellUtente();
        presenti.setFallbacksEnabled(false);
        controlla(presenti);
        QSettings nuove(percorso, QSettings::IniFormat);
        const QStringList chiavi = presenti.allKeys();
        for (const QString& presente : chiavi)
            nuove.setValue(presente, presenti.value(presente));
        nuove.setValue(chiave, valore);
    }
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        throw Errore(u"%1: %2"_s.arg(percorso, file.errorString()));
    return file.readAll();
}

// QSettings writes its file behind a lock file of its own and waits for that one without end, be it left by a
// process of another computer or by a clock that was wrong. It only makes the text, therefore, where nobody
// else looks: the file changes whole, by a rename, and needs no lock.
void scriviSuDisco(const QString& chiave, const QString& valore) {
    const QString percorso = dellUtente().fileName();
    const QByteArray testo = nuovoTesto(chiave, valore);
    QDir().mkpath(QFileInfo(percorso).path());
    QSaveFile file(percorso);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || file.write(testo) != testo.size() || !file.commit())
        throw Errore(file.errorString());
}

#endif

class ImpostazioniUtente final : public Impostazioni {
public:
    QString leggi(const QString& sezione, const QString& chiave, const QString& predefinito) const override {
        const QString percorso = sezione + u'/' + chiave;
        const auto scritta = m_scritte.constFind(percorso);
        return scritta != m_scritte.cend() ? *scritta : dellUtente().value(percorso, predefinito).toString();
    }

    // On disk at once: the setting holds the last decision even if the process dies.
    void scrivi(const QString& sezione, const QString& chiave, const QString& valore) override {
        const QString percorso = sezione + u'/' + chiave;
        m_scritte.insert(percorso, valore);
        try {
            scriviSuDisco(percorso, valore);
        } catch (const Errore& errore) {
            if (!std::exchange(m_guasto, true)) {
                m_daDire =
                    u"Le impostazioni dell'utente non si possono scrivere:\n%1\n(%2)\n\n"
                    "La manifestazione attiva e le porte scelte valgono fino all'uscita: al prossimo "
                    "avvio tornano quelle di prima."_s.arg(dellUtente().fileName(), errore.testo());
            }
        }
    }

    QString guasto() override { return std::exchange(m_daDire, {}); }

private:
    QHash<QString, QString> m_scritte;  // by this process
    bool m_guasto = false;
    QString m_daDire;
};

Impostazioni* installate = nullptr;

}  // namespace

Impostazioni& Impostazioni::corrente() {
    static ImpostazioniUtente utente;
    return installate ? *installate : utente;
}

void Impostazioni::installa(Impostazioni* impostazioni) {
    installate = impostazioni;
}

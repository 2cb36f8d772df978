#include "common/Impostazioni.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

class ImpostazioniUtente final : public Impostazioni {
public:
    QString leggi(const QString& sezione, const QString& chiave, const QString& predefinito) const override {
        return archivio().value(sezione + u'/' + chiave, predefinito).toString();
    }

    void scrivi(const QString& sezione, const QString& chiave, const QString& valore) override {
        QSettings impostazioni = archivio();
        impostazioni.setValue(sezione + u'/' + chiave, valore);
        // On disk now: the setting holds the last decision even if the process dies.
        impostazioni.sync();
    }

private:
    static QSettings archivio() { return QSettings(u"VLM"_s, u"VLM"_s); }
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

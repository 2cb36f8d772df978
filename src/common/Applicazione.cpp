#include "common/Applicazione.h"

#include "archive/ErroreArchivio.h"
#include "common/DialoghiQt.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

void mostraErrore(const QString& testo) {
    Dialoghi::corrente().messaggio(u"Velmora"_s, testo, Icona::Stop);
}

}  // namespace

Applicazione::Applicazione(int& argc, char** argv)
    : QApplication(argc, argv), m_dialoghi(std::make_unique<DialoghiQt>()) {
    setApplicationName(u"VLM"_s);
    setApplicationDisplayName(u"Velmora"_s);
    setApplicationVersion(QLatin1String(VELMORA_VERSIONE));
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    auto* testi = new QTranslator(this);
    if (testi->load(u"qtbase_it"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(testi);
    Dialoghi::installa(m_dialoghi.get());
}

Applicazione::~Applicazione() {
    Dialoghi::installa(nullptr);
}

bool Applicazione::notify(QObject* ricevente, QEvent* evento) {
    try {
        return QApplication::notify(ricevente, evento);
    } catch (const Errore& errore) {
        mostraErrore(errore.testo());
    } catch (const std::exception& errore) {
        mostraErrore(u"Errore imprevisto.\n(%1)"_s.arg(QString::fromUtf8(errore.what())));
    }
    return true;
}

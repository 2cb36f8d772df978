#include "prova/Regia.h"

#include "archive/ErroreArchivio.h"
#include "output/Pittore.h"
#include "shell/frmMain.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPixmap>
#include <QRegularExpression>
#include <QTextStream>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int PassoOcchio = 5;  // milliseconds between two looks for a window
constexpr std::chrono::seconds MassimaAttesa{20};

void racconta(const QString& testo) {
    QTextStream(stdout) << testo << Qt::endl;
}

QString nomeFile(QString titolo) {
    static const QRegularExpression segni(u"[^\\w]+"_s, QRegularExpression::UseUnicodePropertiesOption);
    return titolo.replace(segni, u"-"_s);
}

}  // namespace

Regia::Regia(const QString& cartella) : m_cartella(cartella) {
    if (!QDir().mkpath(cartella))
        throw Errore(u"La cartella %1 non si può creare."_s.arg(cartella));
    Dialoghi::installa(this);
    Anteprima::installa(this);
    Impostazioni::installa(this);
    guardaAncora();
}

Regia::~Regia() {
    Dialoghi::installa(nullptr);
    Anteprima::installa(nullptr);
    Impostazioni::installa(nullptr);
}

void Regia::quandoSiApre(const QString& finestra, const std::function<void(QWidget&)>& azione) {
    m_attese << Attesa{finestra, azione};
}

// A timer of its own each time: an action may open another window and wait inside it.
void Regia::guardaAncora() {
    QTimer::singleShot(PassoOcchio, this, [this] { guarda(); });
}

void Regia::guarda() {
    guardaAncora();
    QWidget* finestra = QApplication::activeModalWidget();
    if (!finestra || m_attese.isEmpty() || finestra->objectName() != m_attese.constFirst().finestra)
        return;
    const Attesa attesa = m_attese.takeFirst();
    try {
        attendi(u"la finestra è attiva"_s, [&] { return finestra->isActiveWindow(); });
        attesa.azione(*finestra);
    } catch (const std::exception& errore) {
        guasto(u"%1: %2"_s.arg(attesa.finestra, QString::fromUtf8(errore.what())));
        finestra->close();
    }
}

void Regia::scegli(frmMain& principale, const QString& voce) {
    racconta(u"menu: "_s + voce);
    if (auto* azione = principale.findChild<QAction*>(voce)) {
        azione->trigger();
    } else {
        guasto(u"manca la voce "_s + voce);
    }
    for (const Attesa& mancata : std::exchange(m_attese, {}))
        guasto(u"%1: non si è aperta %2"_s.arg(voce, mancata.finestra));
}

void Regia::fotografa(QWidget& finestra, const QString& nome) {
    const QString file =
        u"%1/%2-%3.png"_s.arg(m_cartella).arg(++m_figure, 2, 10, QChar(u'0')).arg(nomeFile(nome));
    // Texts just changed may have asked for more room.
    QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    if (!finestra.grab().save(file))
        guasto(u"non si scrive "_s + file);
    racconta(u"  figura: "_s + file);
}

void Regia::scrivi(QWidget& finestra, const QString& campo, const QString& testo) {
    auto& box = controllo<QLineEdit>(finestra, campo);
    box.setFocus();
    box.selectAll();
    box.insert(testo);
}

void Regia::scegliVoce(QWidget& finestra, const QString& combo, const QString& testo) {
    auto& scelta = controllo<QComboBox>(finestra, combo);
    const int voce = scelta.findText(testo);
    if (voce < 0)
        throw Errore(u"%1 non ha la voce %2"_s.arg(combo, testo));
    scelta.setCurrentIndex(voce);
}

void Regia::premi(QWidget& finestra, const QString& pulsante) {
    controllo<QAbstractButton>(finestra, pulsante).click();
}

void Regia::digita(const QString& testo) {
    for (const QChar c : testo)
        tasto(c.unicode(), c);
}

void Regia::tasto(int tasto, const QString& testo) {
    QWidget* bersaglio = QApplication::focusWidget();
    if (!bersaglio)
        throw Errore(u"nessun controllo ha il fuoco"_s);
    for (const QEvent::Type tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent evento(tipo, tasto, Qt::NoModifier, testo);
        QApplication::sendEvent(QApplication::focusWidget() ? QApplication::focusWidget() : bersaglio,
                                &evento);
    }
}

void Regia::attendi(const QString& che, const std::function<bool()>& condizione) {
    const QDeadlineTimer scadenza(MassimaAttesa);
    while (!condizione()) {
        if (scadenza.hasExpired())
            throw Errore(u"attesa inutile: "_s + che);
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, PassoOcchio);
    }
}

QWidget* Regia::trova(QWidget& finestra, const QString& nome) {
    auto* trovato = finestra.findChild<QWidget*>(nome);
    if (!trovato)
        throw Errore(u"manca il controllo "_s + nome);
    return trovato;
}

void Regia::guasto(const QString& testo) {
    racconta(u"  GUASTO: "_s + testo);
    m_guasti << testo;
}

void Regia::messaggio(const QString& titolo, const QString& testo, Icona icona) {
    racconta(u"  messaggio: [%1] %2"_s.arg(titolo, testo));
    if (icona != Icona::Informazione && !m_ammessi.removeOne(titolo))
        guasto(u"messaggio inatteso: "_s + titolo);
}

bool Regia::domanda(const QString& titolo, const QString& testo, Icona /*icona*/, Innocua /*innocua*/) {
    racconta(u"  domanda: [%1] %2 -> Sì"_s.arg(titolo, testo));
    return true;
}

QString Regia::prossimaRisposta(const QString& proposta) {
    return m_risposte.isEmpty() ? proposta : m_risposte.takeFirst();
}

std::optional<QString> Regia::chiedi(const QString& titolo, const QString& testo,
                                     const QString& predefinito) {
    const QString risposta = prossimaRisposta(predefinito);
    racconta(u"  chiede: [%1] %2 -> %3"_s.arg(titolo, testo, risposta));
    return risposta;
}

QString Regia::apriFile(const QString& titolo, const QString& /*cartella*/, const QString& /*filtro*/) {
    racconta(u"  apre: "_s + titolo);
    return prossimaRisposta({});
}

QString Regia::salvaFile(const QString& titolo, const QString& proposto, const QString& /*filtro*/) {
    racconta(u"  salva: "_s + titolo);
    return prossimaRisposta(m_cartella + u'/' + proposto);
}

void Regia::avviso(const QString& testo) {
    racconta(u"  avviso: "_s + testo);
}

void Regia::mostra(const Rapporto& rapporto) {
    const QString file =
        u"%1/%2-%3.pdf"_s.arg(m_cartella)
            .arg(++m_rapporti, 2, 10, QChar(u'0'))
            .arg(nomeFile(rapporto.titoloFinestra.isEmpty() ? rapporto.etichetta(u"lblTipoClas"_s)
                                                            : rapporto.titoloFinestra));
    scriviPdf(rapporto, file);
    racconta(u"  stampa: %1 (%2 righe)"_s.arg(file).arg(rapporto.righe().size()));
}

QString Regia::leggi(const QString& sezione, const QString& chiave, const QString& predefinito) const {
    return m_impostazioni.value(sezione + u'/' + chiave, predefinito);
}

void Regia::scrivi(const QString& sezione, const QString& chiave, const QString& valore) {
    m_impostazioni[sezione + u'/' + chiave] = valore;
}

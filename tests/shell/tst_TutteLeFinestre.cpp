#include "archive/DataBase.h"
#include "common/Applicazione.h"
#include "common/Aspetto.h"
#include "supporto/CatalogoFinestre.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDirIterator>
#include <QFile>
#include <QGroupBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include <cmath>

namespace {

QByteArray archivio() {
    QFile file(percorsoArchivio());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void elencaFinestre() {
    QTest::addColumn<int>("posto");
    int posto = 0;
    for (const FinestraInCatalogo& finestra : catalogoFinestre())
        QTest::newRow(finestra.nome) << posto++;
}

// The window of the row, on the screen and active.
class Aperta final {
public:
    explicit Aperta(int posto) {
        if (!Conn().aperta())
            ApriDataBase();  // the main window closes it behind itself
        finestra = catalogoFinestre()[static_cast<std::size_t>(posto)].crea();
        finestra->show();
        QVERIFY(QTest::qWaitForWindowActive(finestra.get()));
    }
    template <typename Controllo = QWidget>
    [[nodiscard]] QList<Controllo*> visibili() const {
        QList<Controllo*> trovati = finestra->findChildren<Controllo*>();
        trovati.removeIf([this](Controllo* c) {
            return !c->isVisibleTo(finestra.get()) || c->window() != finestra.get();
        });
        return trovati;
    }

    std::unique_ptr<QWidget> finestra;
};

bool campo(const QWidget* controllo) {
    return controllo->isEnabled() && controllo->focusPolicy() != Qt::NoFocus &&
           (qobject_cast<const QLineEdit*>(controllo) || qobject_cast<const QComboBox*>(controllo) ||
            qobject_cast<const QCheckBox*>(controllo) || qobject_cast<const QRadioButton*>(controllo) ||
            qobject_cast<const QAbstractItemView*>(controllo));
}

double luminanza(const QColor& colore) {
    const auto lineare = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * lineare(colore.redF()) + 0.7152 * lineare(colore.greenF()) +
           0.0722 * lineare(colore.blueF());
}

double contrasto(const QColor& uno, const QColor& altro) {
    const auto [minore, maggiore] = std::minmax({luminanza(uno), luminanza(altro)});
    return (maggiore + 0.05) / (minore + 0.05);
}

QString tasto(const QWidget* controllo) {
    if (const auto* pulsante = qobject_cast<const QAbstractButton*>(controllo))
        return pulsante->shortcut().toString();
    if (const auto* etichetta = qobject_cast<const QLabel*>(controllo))
        return etichetta->buddy() ? QKeySequence::mnemonic(etichetta->text()).toString() : QString();
    if (const auto* gruppo = qobject_cast<const QGroupBox*>(controllo))
        return QKeySequence::mnemonic(gruppo->title()).toString();
    return {};
}

struct Schermata {
    const char* nome;
    QSize misura;
    const char* scala;
    bool senzaScorrere;
};
constexpr Schermata Schermate[] = {{"1920x1080 al 100%", {1920, 1080}, "1", true},
                                   {"1920x1080 al 125%", {1920, 1080}, "1.25", true},
                                   {"1920x1080 al 150%", {1920, 1080}, "1.5", true},
                                   {"1920x1080 al 200%", {1920, 1080}, "2", false},
                                   {"1366x768", {1366, 768}, "1", true}};

const char SenzaScorrere[] = "VELMORA_SENZA_SCORRERE";

// In a process with the screen of the row: every window, measured.
int misura() {
    const ProgrammaPieno programma;
    QStringList difetti;
    int posto = 0;
    for (const FinestraInCatalogo& voce : catalogoFinestre()) {
        const Aperta aperta(posto++);
        const QWidget& finestra = *aperta.finestra;
        QTest::qWait(1);
        const QRect libera = finestra.screen()->availableGeometry();
        if (!libera.contains(finestra.frameGeometry()))
            difetti
                << QStringLiteral("%1: %2x%3").arg(voce.nome).arg(finestra.width()).arg(finestra.height());
        const auto* zona = finestra.findChild<QScrollArea*>("zonaScorrevole");
        if (qEnvironmentVariableIsSet(SenzaScorrere) && zona)
            difetti << QStringLiteral("%1 scorre").arg(voce.nome);
        for (QWidget* controllo : aperta.visibili()) {
            if (!zona || !zona->isAncestorOf(controllo) || !campo(controllo))
                continue;
            controllo->setFocus(Qt::TabFocusReason);
            if (controllo->visibleRegion().isEmpty())
                difetti << QStringLiteral("%1: %2 fuori vista").arg(voce.nome, controllo->objectName());
        }
    }
    QTextStream(stdout) << difetti.join('\n') << Qt::endl;
    return static_cast<int>(difetti.size());
}

}  // namespace

// What no window may lack, tried on all of them.
class tst_TutteLeFinestre final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_programma = std::make_unique<ProgrammaPieno>(); }
    void cleanupTestCase() { m_programma.reset(); }
    void complete();
    void invioTenuto_data() { elencaFinestre(); }
    void invioTenuto();
    void tasti_data() { elencaFinestre(); }
    void tasti();
    void leggibili_data() { elencaFinestre(); }
    void leggibili();
    void entroLoSchermo_data();
    void entroLoSchermo();

private:
    std::unique_ptr<ProgrammaPieno> m_programma;
};

void tst_TutteLeFinestre::complete() {
    QStringList attese{"Scatola", "frmAnteprima"};
    QDirIterator moduli(CARTELLA_SORGENTI, {"*.ui"}, QDir::Files, QDirIterator::Subdirectories);
    while (moduli.hasNext()) {
        moduli.next();
        attese << moduli.fileInfo().baseName();
    }
    QStringList trovate;
    for (const FinestraInCatalogo& finestra : catalogoFinestre())
        trovate << finestra.nome;
    attese.sort();
    trovate.sort();
    QCOMPARE(trovate, attese);
}

void tst_TutteLeFinestre::invioTenuto() {
    QFETCH(int, posto);
    const Aperta aperta(posto);
    const QByteArray prima = archivio();
    // A window that a held key opens over this one.
    QTimer guardia;
    QStringList sopra;
    connect(&guardia, &QTimer::timeout, &guardia, [&] {
        QWidget* altra = QApplication::activeModalWidget();
        if (altra && altra != aperta.finestra.get()) {
            sopra << altra->objectName();
            altra->close();
        }
    });
    guardia.start(0);
    for (QWidget* da : aperta.visibili()) {
        if (!campo(da) || qobject_cast<QAbstractItemView*>(da))
            continue;
        da->setFocus(Qt::TabFocusReason);
        for (int passo = 0; passo < 100 && aperta.finestra->isVisible(); ++passo) {
            QKeyEvent tenuto(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", passo > 0);
            QApplication::sendEvent(aperta.finestra->focusWidget(), &tenuto);
        }
        QVERIFY2(aperta.finestra->isVisible(), qPrintable(da->objectName()));
    }
    QCOMPARE(sopra, QStringList());
    QVERIFY(archivio() == prima);
}

void tst_TutteLeFinestre::tasti() {
    QFETCH(int, posto);
    const Aperta aperta(posto);
    QStringList difetti;
    QHash<QString, QString> usati;
    QSet<const QWidget*> raggiunti;
    for (QWidget* controllo : aperta.visibili()) {
        const QString suo = tasto(controllo);
        if (const auto* etichetta = qobject_cast<QLabel*>(controllo); etichetta && !suo.isEmpty())
            raggiunti << etichetta->buddy();
        if (qobject_cast<QGroupBox*>(controllo) && !suo.isEmpty())
            raggiunti << controllo;
        if (suo.isEmpty()) {
            if (qobject_cast<QPushButton*>(controllo))
                difetti << controllo->objectName() + " non ha un tasto";
        } else if (usati.contains(suo)) {
            difetti << suo + ": " + usati[suo] + ", " + controllo->objectName();
        }
        usati[suo] = controllo->objectName();
    }
    for (QAbstractItemView* lista : aperta.visibili<QAbstractItemView>()) {
        if (lista->focusPolicy() != Qt::NoFocus && !raggiunti.contains(lista) &&
            !raggiunti.contains(lista->parentWidget()))
            difetti << lista->objectName() + " non si raggiunge con un tasto";
    }
    QVERIFY2(difetti.isEmpty(), qPrintable('\n' + difetti.join('\n')));
}

void tst_TutteLeFinestre::leggibili() {
    QFETCH(int, posto);
    const Aperta aperta(posto);
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> coppie[] = {
        {QPalette::WindowText, QPalette::Window},  {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase}, {QPalette::PlaceholderText, QPalette::Base},
        {QPalette::ButtonText, QPalette::Button},  {QPalette::HighlightedText, QPalette::Highlight}};
    for (const QWidget* controllo : aperta.visibili()) {
        for (const QPalette::ColorGroup gruppo : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            for (const auto& [testo, sfondo] : coppie) {
                if (sfondo == QPalette::AlternateBase && !qobject_cast<const QAbstractItemView*>(controllo))
                    continue;
                const QColor fondo = controllo->palette().color(gruppo, sfondo);
                const QColor scritta = controllo->palette().color(gruppo, testo);
                // White on blue is the given colour of a focused field.
                QVERIFY2(fondo == SfondoEvidenziato || contrasto(scritta, fondo) >= 4.5,
                         qPrintable(controllo->objectName() + ": " + scritta.name() + " su " + fondo.name()));
            }
        }
        // A combo is drawn in shades of its own: its commonest pixel is the ground.
        auto* combo = const_cast<QComboBox*>(qobject_cast<const QComboBox*>(controllo));
        if (!combo || !combo->isEnabled() || combo->isEditable())
            continue;
        combo->setFocus();
        const QImage immagine = combo->grab().toImage();
        QHash<QRgb, int> quanti;
        for (int y = 4; y < immagine.height() - 4; ++y)
            for (int x = 4; x < immagine.width() - 4; ++x)
                ++quanti[immagine.pixel(x, y)];
        for (auto fondo = quanti.cbegin(); fondo != quanti.cend(); ++fondo) {
            QVERIFY2(fondo.value() < immagine.width() / 2 || contrasto(Qt::white, QColor(fondo.key())) >= 4.5,
                     qPrintable(combo->objectName() + QColor(fondo.key()).name()));
        }
    }
}

void tst_TutteLeFinestre::entroLoSchermo_data() {
    QTest::addColumn<int>("posto");
    int posto = 0;
    for (const Schermata& schermata : Schermate)
        QTest::newRow(schermata.nome) << posto++;
}

void tst_TutteLeFinestre::entroLoSchermo() {
    QFETCH(int, posto);
    const Schermata& schermata = Schermate[posto];
    const QTemporaryDir cartella;
    const QJsonObject schermo{{"name", "prova"},
                              {"x", 0},
                              {"y", 0},
                              {"width", schermata.misura.width()},
                              {"height", schermata.misura.height()},
                              {"logicalDpi", 96},
                              {"logicalBaseDpi", 96},
                              {"dpr", 1}};
    QFile file(cartella.filePath("schermo.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(QJsonObject{{"screens", QJsonArray{schermo}}}).toJson());
    file.close();
    QProcess processo;
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert("QT_SCALE_FACTOR", schermata.scala);
    if (schermata.senzaScorrere)
        ambiente.insert(SenzaScorrere, "1");
    processo.setProcessEnvironment(ambiente);
    processo.start(QApplication::applicationFilePath(),
                   {"-platform", "offscreen:configfile=" + file.fileName(), "misura"});
    QVERIFY(processo.waitForFinished(120'000));
    QVERIFY2(processo.exitStatus() == QProcess::NormalExit && processo.exitCode() == 0,
             processo.readAllStandardOutput().prepend('\n').constData());
}

int main(int argc, char** argv) {
    const Applicazione applicazione(argc, argv);
    if (QApplication::arguments().value(1) == "misura")
        return misura();
    tst_TutteLeFinestre prova;
    return QTest::qExec(&prova, argc, argv);
}

#include "tst_TutteLeFinestre.moc"

#include "common/Finestra.h"
#include "common/frmAiuto.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QResource>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

namespace {

const QString Radice = ":/aiuto/";

QStringList pagine() {
    return QDir(Radice).entryList({"*.html"});
}

// Opens a page as the help window does, and keeps what could not be loaded.
class Lettore final : public QTextBrowser {
public:
    explicit Lettore(const QString& pagina) { setSource(QUrl("qrc:/aiuto/" + pagina)); }

    QVariant loadResource(int tipo, const QUrl& indirizzo) override {
        QVariant risorsa = QTextBrowser::loadResource(tipo, indirizzo);
        if (!risorsa.isValid())
            mancate << indirizzo.toString();
        return risorsa;
    }

    [[nodiscard]] QStringList collegamenti() const {
        QStringList trovati;
        for (QTextBlock blocco = document()->begin(); blocco.isValid(); blocco = blocco.next()) {
            for (auto frammento = blocco.begin(); !frammento.atEnd(); ++frammento) {
                const QString indirizzo = frammento.fragment().charFormat().anchorHref();
                if (!indirizzo.isEmpty())
                    trovati << indirizzo;
            }
        }
        return trovati;
    }

    QStringList mancate;
};

class FinestraDiProva final : public Finestra {
public:
    explicit FinestraDiProva(const QString& nome) { setObjectName(nome); }
};

frmAiuto* guida() {
    for (QWidget* finestra : QApplication::topLevelWidgets()) {
        if (auto* aiuto = qobject_cast<frmAiuto*>(finestra))
            return aiuto;
    }
    return nullptr;
}

}  // namespace

class tst_Aiuto final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { QResource::unregisterResource(FILE_AIUTO); }
    void pagina_data();
    void pagina();
    void tutteDallIndice();
    void f1();
};

void tst_Aiuto::initTestCase() {
    QVERIFY2(QResource::registerResource(FILE_AIUTO), FILE_AIUTO);
    QVERIFY(pagine().size() > 5);
}

void tst_Aiuto::pagina_data() {
    QTest::addColumn<QString>("nome");
    for (const QString& nome : pagine())
        QTest::newRow(qPrintable(nome)) << nome;
}

void tst_Aiuto::pagina() {
    QFETCH(QString, nome);
    const Lettore lettore(nome);
    QCOMPARE(lettore.mancate, QStringList());
    QCOMPARE(lettore.document()->begin().blockFormat().headingLevel(), 1);
    QVERIFY(lettore.toPlainText().size() > 100);
    QVERIFY(!lettore.toPlainText().contains(QChar::ReplacementCharacter));
    const QStringList collegamenti = lettore.collegamenti();
    QVERIFY(!collegamenti.isEmpty());
    for (const QString& indirizzo : collegamenti) {
        const QUrl completo = QUrl("qrc:" + Radice.mid(1) + nome).resolved(QUrl(indirizzo));
        QVERIFY2(QFile::exists(':' + completo.path()), qPrintable(indirizzo));
    }
    if (nome != "index.html")
        QCOMPARE(collegamenti.constLast(), QStringLiteral("index.html"));
}

void tst_Aiuto::tutteDallIndice() {
    // The contents leads to every page.
    QStringList attese = pagine();
    attese.removeAll("index.html");
    QStringList elencate = Lettore("index.html").collegamenti();
    elencate.removeDuplicates();
    elencate.sort();
    attese.sort();
    QCOMPARE(elencate, attese);
}

void tst_Aiuto::f1() {
    const ProgrammaDiProva programma;
    impostaFileAiuto(FILE_AIUTO);
    const std::pair<const char*, const char*> casi[] = {{"frmInformazioni", "frmInformazioni"},
                                                        {"frmClassificaDiGruppo", "frmClassificaDiGruppo"},
                                                        {"frmSenzaPagina", "index"}};
    for (const auto& [finestra, attesa] : casi) {
        FinestraDiProva prova(finestra);
        prova.show();
        QTest::keyClick(&prova, Qt::Key_F1);
        frmAiuto* aperta = guida();
        QVERIFY(aperta);
        QVERIFY(aperta->isVisible());
        auto* testo = aperta->findChild<QTextBrowser*>("txtPagina");
        QCOMPARE(testo->source().fileName(), QString(attesa) + ".html");
        QVERIFY(testo->toPlainText().size() > 100);
        // In the style of the pages, not in the browser's own.
        const QTextCharFormat titolo = testo->document()->begin().begin().fragment().charFormat();
        QVERIFY(titolo.foreground().style() != Qt::NoBrush);
        QTest::mouseClick(aperta->findChild<QPushButton*>("cmdIndice"), Qt::LeftButton);
        QCOMPARE(testo->source().fileName(), QStringLiteral("index.html"));
    }
}

PROVA_FINESTRE(tst_Aiuto)
#include "tst_Aiuto.moc"

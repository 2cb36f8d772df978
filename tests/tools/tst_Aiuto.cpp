#include "supporto/ProvaFinestre.h"

#include <algorithm>
#include <QDir>
#include <QRegularExpression>
#include <QResource>
#include <QSet>
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
        static const QRegularExpression indirizzo("href=\"([^\"]*)\"");
        QStringList trovati;
        for (const QRegularExpressionMatch& trovato : indirizzo.globalMatch(toHtml()))
            trovati << trovato.captured(1);
        return trovati;
    }

    QStringList mancate;
};

}  // namespace

class tst_Aiuto final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { QResource::unregisterResource(FILE_AIUTO); }
    void tutteLePagine();
};

void tst_Aiuto::initTestCase() {
    QVERIFY2(QResource::registerResource(FILE_AIUTO), FILE_AIUTO);
    QVERIFY(pagine().size() > 5);
}

void tst_Aiuto::tutteLePagine() {
    const QStringList tutte = pagine();
    for (const QString& nome : tutte) {
        const Lettore lettore(nome);
        QCOMPARE(lettore.mancate, QStringList());
        QCOMPARE(lettore.document()->begin().blockFormat().headingLevel(), 1);
        QVERIFY2(lettore.toPlainText().size() > 100, qPrintable(nome));
        QVERIFY2(!lettore.toPlainText().contains(QChar::ReplacementCharacter), qPrintable(nome));
        const QStringList collegamenti = lettore.collegamenti();
        for (const QString& indirizzo : collegamenti) {
            const QUrl completo = QUrl("qrc:" + Radice.mid(1) + nome).resolved(QUrl(indirizzo));
            QVERIFY2(QFile::exists(':' + completo.path()), qPrintable(nome + indirizzo));
        }
        QVERIFY2(nome == "index.html" || collegamenti.value(collegamenti.size() - 1) == "index.html",
                 qPrintable(nome));
    }
    // The contents leads to every page.
    const QStringList elencate = Lettore("index.html").collegamenti();
    QCOMPARE(QSet<QString>(elencate.begin(), elencate.end()) << "index.html",
             QSet<QString>(tutte.begin(), tutte.end()));
}

PROVA_FINESTRE(tst_Aiuto)
#include "tst_Aiuto.moc"

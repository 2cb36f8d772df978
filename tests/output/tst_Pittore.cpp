#include "output/Pittore.h"
#include "supporto/ProvaFinestre.h"

#include <QDir>
#include <QFile>
#include <QPaintEngine>
#include <QPainter>
#include <QPrinter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <span>

class tst_Pittore final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void gruppiInsieme();
    void esclusiAlFondoOInCoda();
    void testiAlLoroPosto_data();
    void testiAlLoroPosto();
    void virgoleInColonna();
    void spezzaLeRighe();
    void pdf();
    void pdfNonScritto();
    void intervalloDiPagine();
};

namespace {

const QSizeF A4(539, 786);  // within its margins

Rapporto classifica(int righe) {
    Rapporto r;
    r.titoloFinestra = "CLASSIFICA ASSOLUTA";
    for (const char* nome : {"lblTitolo", "lblData", "lblTipoClas", "lblEsc"})
        r.etichette << Etichetta{nome, {}, nome == QString("lblEsc") ? "" : "Coppa delle Colline"};
    r.colonne = {{.testata = "POS.", .campo = "Pos", .allineamento = Allineamento::Centro},
                 {.testata = "EQUIPAGGIO", .campo = "Con", .larghezza = 6},
                 {.testata = "PEN.", .campo = "Pen", .allineamento = Allineamento::Destra}};
    GruppoRapporto gruppo;
    for (int i = 1; i <= righe; ++i)
        gruppo.righe << QStringList{QString::number(i), "D'ANGELO NICOLÒ", QString::number(i * 10)};
    r.gruppi = {gruppo};
    return r;
}

Rapporto schede(const QList<int>& prove) {
    Rapporto r = classifica(0);
    r.paginaPerGruppo = true;
    r.gruppi.clear();
    for (const int n : prove) {
        GruppoRapporto gruppo = classifica(n).gruppi.first();
        gruppo.testa = {{{"NUMERO : ", "1"}, {"EQUIPAGGIO : ", "ROSSI Mario"}}, {{"VEICOLO : ", "FIAT"}}};
        gruppo.piede = {{"Penalità Totali :", {"", "", "123456789,25"}, true}};
        r.gruppi << gruppo;
    }
    return r;
}

qsizetype righeDi(const Pagina& pagina) {
    return std::ranges::count(pagina.elementi, Pezzo::Riga, &Elemento::pezzo);
}

QList<Pezzo> pezziDi(const Pagina& pagina) {
    QList<Pezzo> pezzi;
    for (const Elemento& e : pagina.elementi) {
        if (pezzi.isEmpty() || pezzi.last() != e.pezzo)
            pezzi << e.pezzo;
    }
    return pezzi;
}

int pagineDelPdf(const QString& percorso) {
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QString contenuto = QString::fromLatin1(file.readAll());
    return static_cast<int>(contenuto.count(QRegularExpression("/Type\\s*/Page\\b(?!s)")));
}

struct Scritto {
    QString testo;
    QRectF zona;  // in points of the paper
    QFont font;
};

// Paper that keeps the texts drawn on it.
class CartaCheRicorda final : public QPaintDevice, private QPaintEngine {
public:
    CartaCheRicorda() : QPaintEngine(AllFeatures) {}
    [[nodiscard]] QPaintEngine* paintEngine() const override { return const_cast<CartaCheRicorda*>(this); }
    QList<Scritto> scritti;

private:
    [[nodiscard]] int metric(PaintDeviceMetric quale) const override {
        return quale == PdmDevicePixelRatio || quale == PdmDevicePixelRatioScaled ? 1 : 72;
    }
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    [[nodiscard]] Type type() const override { return User; }
    void drawRects(const QRectF*, int) override {}
    void drawTextItem(const QPointF& base, const QTextItem& testo) override {
        const double alto = QFontMetricsF(testo.font()).capHeight();
        scritti << Scritto{
            testo.text(),
            painter()->transform().mapRect(QRectF(base.x(), base.y() - alto, testo.width(), alto)),
            testo.font()};
    }
};

QList<Scritto> scrittiSu(Pittore& disegno, qsizetype pagina) {
    CartaCheRicorda carta;
    QPainter su(&carta);
    disegno.disegna(su, 72, pagina);
    return carta.scritti;
}

}  // namespace

// Teams stay together, and each card begins a page.
void tst_Pittore::gruppiInsieme() {
    Rapporto r = classifica(0);
    r.colonneGruppo = {{.testata = "SQUADRA", .campo = "Nom"}};
    GruppoRapporto squadra = classifica(6).gruppi.first();
    squadra.celle = {"Scuderia"};
    r.gruppi = QList<GruppoRapporto>(12, squadra);
    const Pittore squadre(r, A4);
    QVERIFY(squadre.pagine().size() > 1);
    for (const Pagina& pagina : squadre.pagine())
        QCOMPARE(righeDi(pagina) % 6, 0);
    QCOMPARE(Pittore(schede({5, 60, 3}), A4).pagine().size(), 4);
}

void tst_Pittore::esclusiAlFondoOInCoda() {
    Rapporto r = classifica(30);
    const auto conEsclusi = [&r](int quanti) {
        QStringList esclusi;
        while (esclusi.size() < quanti)
            esclusi << QStringLiteral("N. %1 Rilevamenti Mancanti").arg(esclusi.size() + 100);
        r.etichette.last().testo = "Esclusi : " + esclusi.join(" - ");
        return Pittore(r, A4);
    };
    const auto intero = [&](const Pittore& pittore) {
        return pittore.righeEsclusi().join(' ').replace(QChar(0xA0), ' ') == r.etichetta("lblEsc");
    };
    const Pittore pochi = conEsclusi(10);
    QVERIFY(pochi.righeEsclusi().size() > 1);  // goes on below rather than being cut
    QVERIFY(intero(pochi));
    QCOMPARE(pezziDi(pochi.pagine().last()), QList<Pezzo>({Pezzo::Testata, Pezzo::Riga}));
    const Pittore molti = conEsclusi(400);
    QVERIFY(intero(molti));
    qsizetype coda = 0;
    for (const Pagina& pagina : molti.pagine())
        coda += std::ranges::count(pagina.elementi, Pezzo::Coda, &Elemento::pezzo);
    QCOMPARE(coda, molti.righeEsclusi().size() + 1);
    QCOMPARE(righeDi(molti.pagine().first()), 30);  // the rows keep their room
}

void tst_Pittore::testiAlLoroPosto_data() {
    QTest::addColumn<Rapporto>("rapporto");
    const QString lungo = QStringLiteral("Scuderia dei Gentiluomini del Volante ").repeated(4).trimmed();
    const QString infinito = QStringLiteral("Precipitevolissimevolmente").repeated(8);
    QTest::newRow("classification") << classifica(120);
    QTest::newRow("cards") << schede({2, 70});
    Rapporto verifiche = classifica(3);
    verifiche.etichette << Etichetta{"lblClub", "Club Organizzatore :", {}};
    QTest::newRow("scrutineering without a club") << verifiche;
    Rapporto gruppo = schede({2});
    gruppo.gruppi[0].testa[1] << Voce{.etichetta = "di Raggruppamento :", .valore = lungo, .coda = "17"};
    QTest::newRow("card of a long group name") << gruppo;
    Rapporto squadre = classifica(0);
    squadre.colonneGruppo = {{.testata = "PENALITA'", .allineamento = Allineamento::Destra},
                             {.testata = "SQUADRA"}};
    squadre.gruppi = QList<GruppoRapporto>(2, classifica(60).gruppi.first());
    for (GruppoRapporto& squadra : squadre.gruppi)
        squadra.celle = {"ESCLUSA", lungo};
    QTest::newRow("teams of long names") << squadre;
    for (const QString& testo : {lungo, infinito}) {
        Rapporto tutto = classifica(40);
        for (Etichetta& etichetta : tutto.etichette)
            etichetta.testo = testo;
        tutto.gruppi[0].righe[0] = {testo, testo, "123456,789"};
        const ColonnaRapporto stretta{
            .testata = testo, .allineamento = Allineamento::Centro, .sotto = "00:01:00"};
        tutto.colonne << QList<ColonnaRapporto>(8, stretta);
        for (QStringList& riga : tutto.gruppi[0].righe)
            riga << QStringList(8, "00:01:00:12");
        QTest::newRow(testo == lungo ? "long texts everywhere" : "endless words everywhere") << tutto;
    }
}

// Whole, within the paper, and none over another.
void tst_Pittore::testiAlLoroPosto() {
    QFETCH(const Rapporto, rapporto);
    Pittore pittore(rapporto, A4);
    for (qsizetype pagina = 0; pagina < pittore.pagine().size(); ++pagina) {
        const QList<Scritto> scritti = scrittiSu(pittore, pagina);
        QVERIFY(scritti.size() > 3);
        for (qsizetype i = 0; i < scritti.size(); ++i) {
            const auto& [testo, zona, font] = scritti.at(i);
            QVERIFY2(QRectF(QPointF(0, 0), A4).contains(zona), qPrintable(testo));
            QVERIFY2(!testo.contains(QChar(0x2026)), qPrintable(testo));
            for (qsizetype j = 0; j < i; ++j)
                QVERIFY2(!scritti.at(j).zona.intersects(zona),
                         qPrintable(testo + " / " + scritti.at(j).testo));
        }
    }
}

void tst_Pittore::virgoleInColonna() {
    Rapporto r = schede({4});
    const QStringList numeri{"1100", "7,5", "-0,125", "ESC."};
    for (qsizetype i = 0; i < numeri.size(); ++i)
        r.gruppi[0].righe[i][2] = numeri.at(i);
    Pittore pittore(r, A4);
    QList<double> virgole;
    for (const auto& [testo, zona, font] : scrittiSu(pittore, 0)) {
        if (testo == "ESC.")
            QVERIFY(zona.right() > A4.width() - 5);
        else if (numeri.contains(testo) || testo == "123456789,25")
            virgole << zona.left() + QFontMetricsF(font).horizontalAdvance(testo.section(',', 0, 0)) / 10;
    }
    QCOMPARE(virgole.size(), 4);  // the sum too, in its larger font
    for (const double virgola : virgole)
        QVERIFY2(qAbs(virgola - virgole.first()) < 0.1, qPrintable(QString::number(virgola)));
}

void tst_Pittore::spezzaLeRighe() {
    const Carattere carattere(90, false);
    const QString testo = "Castelfranco-Piumazzo Nord/Sud";
    const double spazio = carattere.larghezza(u"Castelfranco-");
    QCOMPARE(carattere.spezza(testo, spazio), QStringList({"Castelfranco-", "Piumazzo", "Nord/Sud"}));
    QCOMPARE(carattere.spezza("", spazio), QStringList());
    const QStringList pezzi =
        carattere.spezza("Precipitevolissimevolmente", carattere.larghezza(u"Precipit"));
    QCOMPARE(pezzi.join(""), QStringLiteral("Precipitevolissimevolmente"));
    QVERIFY(pezzi.size() > 2);
    Caratteri caratteri;
    const double stretto = carattere.larghezza(testo) * 0.3;
    QCOMPARE(caratteri.suUnaRiga(testo, stretto * 3, carattere, 0.8).righe, QStringList(testo));  // smaller
    const TestoAdatto tagliato = caratteri.suUnaRiga(testo, stretto, carattere, 0.8);
    QVERIFY(tagliato.righe.first().endsWith(QChar(0x2026)));
    QVERIFY(tagliato.carattere->larghezza(tagliato.righe.first()) <= stretto);
    // Whatever the size and the room, the lines are the text and none is too long.
    for (double corpo = 5.03; corpo < 9; corpo += 0.17) {
        for (double largo = 30; largo < 160; largo += 1.3) {
            const auto [font, righe] = caratteri.adatta(testo, largo, caratteri.carattere(corpo), 0.78, 2);
            QCOMPARE(righe.join("").remove(' '), QString(testo).remove(' '));
            for (const QString& riga : righe)
                QVERIFY(font->larghezza(riga) <= largo);
        }
    }
}

void tst_Pittore::pdf() {
    const QTemporaryDir cartella;
    const QString percorso = cartella.filePath("Classifica è qui.pdf");
    const Rapporto r = classifica(100);
    scriviPdf(r, percorso);
    QCOMPARE(pagineDelPdf(percorso), 3);
    QFile comune(cartella.filePath("comune"));  // of the user's own mode
    QVERIFY(comune.open(QIODevice::WriteOnly));
    QCOMPARE(QFile::permissions(percorso), comune.permissions());
    comune.remove();
    scriviPdf(classifica(1), percorso);  // in the place of the older one
    QCOMPARE(pagineDelPdf(percorso), 1);
    QCOMPARE(QDir(cartella.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void tst_Pittore::pdfNonScritto() {
    const QTemporaryDir cartella;
    QVERIFY(QDir(cartella.path()).mkdir("cartella.pdf"));
    // In a folder that is not there, and where a folder stands under the very name.
    for (const char* nome : {"assente/classifica.pdf", "cartella.pdf"}) {
        const QString percorso = cartella.filePath(nome);
        QString testo;
        try {
            scriviPdf(classifica(1), percorso);
        } catch (const Errore& errore) {
            testo = errore.testo();
        }
        QVERIFY2(testo.startsWith("Impossibile scrivere il file PDF") && testo.contains(percorso), nome);
    }
    QCOMPARE(QDir(cartella.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList("cartella.pdf"));
}

void tst_Pittore::intervalloDiPagine() {
    const QTemporaryDir cartella;
    const Rapporto r = classifica(200);
    const auto stampate = [&](const char* nome, int da, int a) {
        QPrinter stampante(QPrinter::HighResolution);
        stampante.setOutputFormat(QPrinter::PdfFormat);
        stampante.setOutputFileName(cartella.filePath(nome));
        impostaPagina(stampante, r);
        if (da > 0) {
            stampante.setPrintRange(QPrinter::PageRange);
            stampante.setFromTo(da, a);
        }
        stampa(r, stampante);
        return pagineDelPdf(cartella.filePath(nome));
    };
    const int tutte = stampate("tutte.pdf", 0, 0);
    QCOMPARE(tutte, static_cast<int>(Pittore(r, A4).pagine().size()));
    QCOMPARE(stampate("due.pdf", 2, 3), 2);
    QCOMPARE(stampate("oltre.pdf", 2, 99), tutte - 1);
    QPrinter senzaCarta(QPrinter::HighResolution);
    senzaCarta.setOutputFormat(QPrinter::PdfFormat);
    senzaCarta.setOutputFileName(cartella.filePath("assente/x.pdf"));
    QVERIFY_EXCEPTION_THROWN(stampa(r, senzaCarta), Errore);
}

PROVA_FINESTRE(tst_Pittore)
#include "tst_Pittore.moc"

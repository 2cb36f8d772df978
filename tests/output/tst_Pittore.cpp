#include "output/Pittore.h"
#include "supporto/ProvaFinestre.h"

#include <QDir>
#include <QFile>
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
    void celleLungheVannoACapo();
    void nienteEsceDalFoglio_data();
    void nienteEsceDalFoglio();
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

}  // namespace

// Teams stay together, and each card begins a page.
void tst_Pittore::gruppiInsieme() {
    Rapporto r = classifica(0);
    r.colonneGruppo = {{.testata = "SQUADRA", .campo = "Nom"}};
    r.gruppi = QList<GruppoRapporto>(12, classifica(6).gruppi.first());
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

void tst_Pittore::celleLungheVannoACapo() {
    Rapporto r = classifica(3);
    r.gruppi[0].righe[1][1] = QStringLiteral("sosta oltre il tempo massimo ").repeated(12);
    const QList<Elemento> elementi = Pittore(r, A4).pagine().first().elementi;
    QVERIFY(elementi.at(2).altezza > elementi.at(1).altezza * 2);
    QCOMPARE(elementi.at(3).altezza, elementi.at(1).altezza);
}

void tst_Pittore::nienteEsceDalFoglio_data() {
    QTest::addColumn<Rapporto>("rapporto");
    QTest::newRow("classification") << classifica(120);
    QTest::newRow("cards") << schede({2, 70});
    Rapporto lungo = classifica(40);
    const QString infinito = QStringLiteral("Precipitevolissimevolmente").repeated(12);
    for (Etichetta& etichetta : lungo.etichette)
        etichetta.testo = infinito;
    lungo.gruppi[0].righe[0] = {infinito, infinito, infinito};
    const ColonnaRapporto stretta{.testata = infinito,
                                  .campo = "Net",
                                  .allineamento = Allineamento::Centro,
                                  .sopra = infinito,
                                  .sotto = "00:01:00"};
    lungo.colonne << QList<ColonnaRapporto>(12, stretta);
    for (QStringList& riga : lungo.gruppi[0].righe)
        riga << QStringList(12, "00:01:00:12");
    QTest::newRow("texts without end") << lungo;
    Rapporto testaLunga = schede({2});
    testaLunga.gruppi[0].testa[0][1].valore = infinito;
    testaLunga.gruppi[0].piede[0].etichetta = infinito;
    QTest::newRow("card of an endless name") << testaLunga;
}

// Every page painted with a broad border around its paper: all ink stands on the paper.
void tst_Pittore::nienteEsceDalFoglio() {
    QFETCH(const Rapporto, rapporto);
    const auto inchiostro = [](const QImage& immagine) {
        const std::span punti(reinterpret_cast<const QRgb*>(immagine.constBits()),
                              static_cast<std::size_t>(immagine.sizeInBytes()) / sizeof(QRgb));
        return std::ranges::count_if(punti, [](QRgb p) { return (p & 0xFFFFFF) != 0xFFFFFF; });
    };
    constexpr int Bordo = 60;
    const QRect foglio(QPoint(Bordo, Bordo), A4.toSize());
    Pittore pittore(rapporto, A4);
    for (qsizetype pagina = 0; pagina < pittore.pagine().size(); ++pagina) {
        QImage immagine(foglio.size() + QSize(2 * Bordo, 2 * Bordo), QImage::Format_RGB32);
        immagine.fill(Qt::white);
        {
            QPainter su(&immagine);
            su.translate(Bordo, Bordo);
            pittore.disegna(su, 72, pagina);
        }
        const auto sulFoglio = inchiostro(immagine.copy(foglio.adjusted(-2, -2, 3, 3)));
        QVERIFY2(sulFoglio > 1000, qPrintable(QString::number(pagina)));
        QCOMPARE(inchiostro(immagine), sulFoglio);
    }
}

void tst_Pittore::spezzaLeRighe() {
    const Carattere carattere(9, false);
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
    QCOMPARE(caratteri.adatta(testo, stretto * 3, carattere).righe, QStringList(testo));  // in a smaller body
    const TestoAdatto tagliato = caratteri.adatta(testo, stretto, carattere);
    QVERIFY(tagliato.righe.first().endsWith(QChar(0x2026)));
    QVERIFY(tagliato.carattere->larghezza(tagliato.righe.first()) <= stretto);
}

void tst_Pittore::pdf() {
    const QTemporaryDir cartella;
    const QString percorso = cartella.filePath("Classifica è qui.pdf");
    const Rapporto r = classifica(100);
    scriviPdf(r, percorso);
    QCOMPARE(pagineDelPdf(percorso), 3);
    QCOMPARE(QFile::permissions(percorso) & ~(QFile::ReadUser | QFile::WriteUser),
             QFile::ReadOwner | QFile::WriteOwner);
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

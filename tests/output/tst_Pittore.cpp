#include "archive/ErroreArchivio.h"
#include "output/Pittore.h"
#include "supporto/ProvaFinestre.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPrinter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

class tst_Pittore final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void testateSuOgniPagina();
    void squadreInsieme();
    void unaSchedaPerPagina();
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
    r.etichette = {{"lblTitolo", {}, "Coppa delle Colline"},
                   {"lblData", {}, "13/06/2026 14/06/2026"},
                   {"lblTipoClas", {}, "CLASSIFICA ASSOLUTA"},
                   {"lblEsc", {}, {}}};
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

void tst_Pittore::testateSuOgniPagina() {
    const Rapporto r = classifica(100);
    const Pittore pittore(r, A4);
    QCOMPARE(pittore.pagine().size(), 3);
    qsizetype righe = 0;
    for (const Pagina& pagina : pittore.pagine()) {
        QCOMPARE(pezziDi(pagina), QList<Pezzo>({Pezzo::Testata, Pezzo::Riga}));
        QCOMPARE(pagina.elementi.at(1).riga, righe);  // none lost, none twice
        righe += righeDi(pagina);
    }
    QCOMPARE(righe, 100);
    QVERIFY(pittore.pagine().at(0).testaIntera && !pittore.pagine().at(1).testaIntera);
    const Rapporto vuoto = classifica(0);
    QCOMPARE(Pittore(vuoto, A4).pagine().size(), 1);
}

void tst_Pittore::squadreInsieme() {
    Rapporto r = classifica(0);
    r.colonneGruppo = {{.testata = "SQUADRA", .campo = "Nom"}};
    r.gruppi.clear();
    for (int squadra = 0; squadra < 12; ++squadra) {
        GruppoRapporto gruppo = classifica(6).gruppi.first();
        gruppo.celle = {QStringLiteral("Squadra %1").arg(squadra)};
        r.gruppi << gruppo;
    }
    const Pittore pittore(r, A4);
    QVERIFY(pittore.pagine().size() > 1);
    for (const Pagina& pagina : pittore.pagine()) {
        QCOMPARE(pagina.elementi.first().pezzo, Pezzo::Testa);
        QCOMPARE(righeDi(pagina) % 6, 0);
    }
}

void tst_Pittore::unaSchedaPerPagina() {
    const Rapporto r = schede({5, 60, 3});
    const QList<Pagina> pagine = Pittore(r, A4).pagine();
    using P = QList<Pezzo>;
    QCOMPARE(pagine.size(), 4);
    QCOMPARE(pezziDi(pagine.at(0)), P({Pezzo::Testa, Pezzo::Testata, Pezzo::Riga, Pezzo::Piede}));
    QCOMPARE(pezziDi(pagine.at(1)), P({Pezzo::Testa, Pezzo::Testata, Pezzo::Riga}));
    QCOMPARE(pezziDi(pagine.at(2)), P({Pezzo::TestaSeguito, Pezzo::Testata, Pezzo::Riga, Pezzo::Piede}));
    QCOMPARE(righeDi(pagine.at(1)) + righeDi(pagine.at(2)), 60);
    QVERIFY(pagine.at(3).testaIntera);
}

void tst_Pittore::esclusiAlFondoOInCoda() {
    Rapporto r = classifica(30);
    QStringList esclusi;
    const auto scrivi = [&](int quanti) {
        while (esclusi.size() < quanti)
            esclusi << QStringLiteral("N. %1 Rilevamenti Mancanti").arg(esclusi.size() + 100);
        r.etichette.last().testo = "Esclusi : " + esclusi.join(" - ");
    };
    const auto intero = [&](const Pittore& pittore) {
        return pittore.righeEsclusi().join(' ').replace(QChar(0xA0), ' ') == r.etichetta("lblEsc");
    };
    scrivi(10);
    const Pittore pochi(r, A4);
    QVERIFY(pochi.righeEsclusi().size() > 1);  // goes on below rather than being cut
    QVERIFY(intero(pochi));
    QCOMPARE(pezziDi(pochi.pagine().last()), QList<Pezzo>({Pezzo::Testata, Pezzo::Riga}));
    scrivi(400);
    const Pittore molti(r, A4);
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
    for (int i = 0; i < 12; ++i) {
        lungo.colonne << ColonnaRapporto{.testata = infinito,
                                         .campo = "Net",
                                         .allineamento = Allineamento::Centro,
                                         .sopra = infinito,
                                         .sotto = "00:01:00"};
        for (QStringList& riga : lungo.gruppi[0].righe)
            riga << "00:01:00:12";
    }
    QTest::newRow("texts without end") << lungo;
    Rapporto testaLunga = schede({2});
    testaLunga.gruppi[0].testa[0][1].valore = infinito;
    testaLunga.gruppi[0].piede[0].etichetta = infinito;
    QTest::newRow("card of an endless name") << testaLunga;
}

// Every page painted with a broad border around its paper: the border must stay white.
void tst_Pittore::nienteEsceDalFoglio() {
    QFETCH(const Rapporto, rapporto);
    Pittore pittore(rapporto, A4);
    for (qsizetype pagina = 0; pagina < pittore.pagine().size(); ++pagina) {
        constexpr int Bordo = 60;
        QImage immagine(static_cast<int>(A4.width()) + 2 * Bordo, static_cast<int>(A4.height()) + 2 * Bordo,
                        QImage::Format_RGB32);
        immagine.fill(Qt::white);
        {
            QPainter su(&immagine);
            su.translate(Bordo, Bordo);
            pittore.disegna(su, 72, pagina);
        }
        int dentro = 0;
        for (int y = 0; y < immagine.height(); ++y) {
            for (int x = 0; x < immagine.width(); ++x) {
                if ((immagine.pixel(x, y) & 0xFFFFFF) == 0xFFFFFF)
                    continue;
                const bool sulFoglio = x >= Bordo - 2 && x <= immagine.width() - Bordo + 2 &&
                                       y >= Bordo - 2 && y <= immagine.height() - Bordo + 2;
                if (!sulFoglio)
                    QFAIL(qPrintable(QStringLiteral("page %1, ink at %2,%3").arg(pagina).arg(x).arg(y)));
                ++dentro;
            }
        }
        QVERIFY(dentro > 1000);
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
    const TestoAdatto ridotto = caratteri.adatta(testo, carattere.larghezza(testo) * 0.9, carattere);
    QCOMPARE(ridotto.righe, QStringList(testo));
    QVERIFY(ridotto.carattere->corpo() < 9);
    const TestoAdatto tagliato = caratteri.adatta(testo, carattere.larghezza(testo) * 0.3, carattere);
    QVERIFY(tagliato.righe.first().endsWith(QChar(0x2026)));
    QVERIFY(tagliato.carattere->larghezza(tagliato.righe.first()) <= carattere.larghezza(testo) * 0.3);
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
    const QString percorso = cartella.filePath("assente/classifica.pdf");
    try {
        scriviPdf(classifica(1), percorso);
        QFAIL("written in a folder that is not there");
    } catch (const Errore& errore) {
        QVERIFY(errore.testo().contains(percorso));
        QVERIFY(errore.testo().startsWith("Impossibile scrivere il file PDF"));
    }
    // A folder stands under the very name.
    QVERIFY(QDir(cartella.path()).mkdir("cartella.pdf"));
    QVERIFY_EXCEPTION_THROWN(scriviPdf(classifica(1), cartella.filePath("cartella.pdf")), Errore);
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

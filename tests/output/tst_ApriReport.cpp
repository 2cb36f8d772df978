#include "archive/DataBase.h"
#include "output/ApriReport.h"
#include "output/frmAnteprima.h"
#include "output/Pittore.h"
#include "supporto/AnteprimaDiProva.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QAction>
#include <QFileInfo>
#include <QPrinter>
#include <QPrintPreviewWidget>
#include <QTest>
#include <QTimer>

class tst_ApriReport final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anteprima();
    void senzaManifestazione();
    void salvaPdf_data();
    void salvaPdf();
};

// The program's own preview, with the ordinary pointer over it and the archive open behind it.
void tst_ApriReport::anteprima() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    for (int i = 1; i <= 100; ++i)
        nuovoEquipaggio(i);
    int pagine = 0;
    QString titolo;
    QTimer::singleShot(0, qApp, [&] {
        auto* finestra = qobject_cast<frmAnteprima*>(QApplication::activeModalWidget());
        if (!finestra)
            return;
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        QVERIFY(Conn().isOpen() && ConnShape().isOpen());
        titolo = finestra->windowTitle();
        pagine = finestra->findChild<QPrintPreviewWidget*>()->pageCount();
        QTest::keyClick(finestra, Qt::Key_Escape);
    });
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ApriReport("Lista", {}, "Elenco", {}, {});
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QApplication::restoreOverrideCursor();
    QCOMPARE(titolo, QStringLiteral("Elenco"));
    QCOMPARE(pagine, 3);
}

// None is active, or its row is gone.
void tst_ApriReport::senzaManifestazione() {
    ProgrammaDiProva programma;
    const AnteprimaDiProva anteprima;
    for (const bool sparita : {false, true}) {
        if (sparita)
            nuovaManifestazione();
        esegui("DELETE FROM Manifestazioni");
        programma.dialoghi.attendiMessaggio("Impossibile Generare la Classsifica",
                                            "Nessuna Manifestazione Attiva");
        ApriReport("Classifica", {}, {}, {}, {});
        QVERIFY(programma.dialoghi.finite());
        QCOMPARE(IDMan, 0);
    }
    QVERIFY(anteprima.mostrati.isEmpty());
}

void tst_ApriReport::salvaPdf_data() {
    QTest::addColumn<QString>("scelto");
    QTest::addColumn<bool>("giaPresente");
    QTest::addColumn<QString>("esito");  // saved, kept, refused
    const auto caso = [](const char* nome, const char* scelto, bool giaPresente, const char* esito) {
        QTest::newRow(nome) << scelto << giaPresente << esito;
    };
    caso("a name", "elenco.pdf", false, "saved");
    caso("without its ending", "elenco", false, "saved");
    caso("that ending is taken, replace", "elenco", true, "saved");
    caso("that ending is taken, keep", "elenco", true, "kept");
    caso("cancelled", "", false, "kept");
    caso("a folder that is not there", "assente/elenco.pdf", false, "refused");
}

void tst_ApriReport::salvaPdf() {
    QFETCH(const QString, scelto);
    QFETCH(const bool, giaPresente);
    QFETCH(const QString, esito);
    const bool salvato = esito == "saved";
    ProgrammaDiProva programma;
    const QString percorso = percorsoNelProgramma("elenco.pdf");
    QFile vecchio(percorso);
    if (giaPresente)
        QVERIFY(vecchio.open(QIODevice::WriteOnly) && vecchio.write("vecchio") == 7);
    vecchio.close();
    const Rapporto r{.titoloFinestra = "Lista 1/2", .colonne = {{.testata = "NUM."}}};
    QPrinter stampante;
    impostaPagina(stampante, r);
    frmAnteprima finestra(r, &stampante);
    programma.dialoghi.attendiSalvaFile(scelto.isEmpty() ? QString() : percorsoNelProgramma(scelto));
    if (giaPresente)
        programma.dialoghi.attendiDomanda("Salva PDF", QString(), salvato);
    if (salvato)
        programma.dialoghi.attendiAvviso("PDF Salvato");
    if (esito == "refused")
        programma.dialoghi.attendiMessaggio("Impossibile Salvare", QString());
    finestra.findChild<QAction*>("cmdSalvaPDF")->trigger();
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(QFileInfo(percorso).size() > 100, salvato);
    QCOMPARE(QFileInfo::exists(percorso), salvato || giaPresente);
}

PROVA_FINESTRE(tst_ApriReport)
#include "tst_ApriReport.moc"

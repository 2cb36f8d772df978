#include "archive/DataBase.h"
#include "output/ApriReport.h"
#include "output/frmAnteprima.h"
#include "output/Pittore.h"
#include "supporto/AnteprimaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QAction>
#include <QFileInfo>
#include <QPrinter>
#include <QPrintPreviewWidget>

class tst_ApriReport final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void anteprima();
    void senzaManifestazione();
    void salvaPdf();
};

// The program's own preview, with the ordinary pointer over it and the archive open behind it.
void tst_ApriReport::anteprima() {
    nuovaManifestazione();
    for (int i = 1; i <= 100; ++i)
        nuovoEquipaggio(i);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    inModale<frmAnteprima>([] { ApriReport("Lista", {}, "Elenco", {}, {}); },
                           [](frmAnteprima& finestra) {
                               QCOMPARE(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
                               QVERIFY(Conn().aperta() && ConnShape().aperta());
                               QCOMPARE(finestra.windowTitle(), QString("Elenco"));
                               QCOMPARE(finestra.findChild<QPrintPreviewWidget*>()->pageCount(), 3);
                               QTest::keyClick(&finestra, Qt::Key_Escape);
                           });
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QApplication::restoreOverrideCursor();
}

// None is active, or its row is gone.
void tst_ApriReport::senzaManifestazione() {
    const AnteprimaDiProva anteprima;
    for (const bool sparita : {false, true}) {
        if (sparita)
            nuovaManifestazione();
        esegui("DELETE FROM Manifestazioni");
        dialoghi().attendiMessaggio("Impossibile Generare la Classsifica", "Nessuna Manifestazione Attiva");
        ApriReport("Classifica", {}, {}, {}, {});
        QVERIFY(dialoghi().finite());
        QCOMPARE(IDMan, 0);
    }
    QVERIFY(anteprima.mostrati.isEmpty());
}

void tst_ApriReport::salvaPdf() {
    // The name that is chosen, whether elenco.pdf is there before, and what becomes of it.
    enum Esito { Salvato, Lasciato, Rifiutato };
    const std::tuple<const char*, bool, Esito> casi[] = {
        {"elenco.pdf", false, Salvato}, {"elenco", false, Salvato}, {"elenco", true, Salvato},
        {"elenco", true, Lasciato},     {"", false, Lasciato},      {"assente/elenco.pdf", false, Rifiutato}};
    for (const auto& [scelto, giaPresente, esito] : casi) {
        ricomincia();
        if (giaPresente)
            scriviFile("elenco.pdf", "vecchio");
        const Rapporto r{.titoloFinestra = "Lista 1/2", .colonne = {{.testata = "NUM."}}};
        QPrinter stampante;
        impostaPagina(stampante, r);
        const frmAnteprima finestra(r, &stampante);
        dialoghi().attendiSalvaFile(*scelto ? percorsoNelProgramma(scelto) : QString());
        if (giaPresente)
            dialoghi().attendiDomanda("Salva PDF", QString(), esito == Salvato);
        if (esito == Salvato)
            dialoghi().attendiAvviso("PDF Salvato");
        if (esito == Rifiutato)
            dialoghi().attendiMessaggio("Impossibile Salvare", QString());
        controllo<QAction>(finestra, "cmdSalvaPDF")->trigger();
        QVERIFY2(dialoghi().finite(), scelto);
        const QFileInfo file(percorsoNelProgramma("elenco.pdf"));
        QCOMPARE(file.size() > 100, esito == Salvato);
        QCOMPARE(file.exists(), esito == Salvato || giaPresente);
    }
}

PROVA_FINESTRE(tst_ApriReport)
#include "tst_ApriReport.moc"

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
    void mostra();
    void senzaManifestazione_data();
    void senzaManifestazione();
    void anteprimaDelProgramma();
    void salvaPdf_data();
    void salvaPdf();
    void salvaPdfFallito();
};

namespace {

// The preview records the pointer and whether the connections work while it is open.
class AnteprimaCurante final : public Anteprima {
public:
    AnteprimaCurante() { installa(this); }
    Q_DISABLE_COPY_MOVE(AnteprimaCurante)
    ~AnteprimaCurante() override { installa(nullptr); }
    void mostra(const Rapporto& rapporto) override {
        mostrato = rapporto;
        puntatore =
            QApplication::overrideCursor() ? QApplication::overrideCursor()->shape() : Qt::ArrowCursor;
        aperte = Conn().isOpen() && ConnShape().isOpen();
    }
    Rapporto mostrato;
    Qt::CursorShape puntatore = Qt::BlankCursor;
    bool aperte = false;
};

}  // namespace

void tst_ApriReport::mostra() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    nuovoEquipaggio(7);
    AnteprimaCurante anteprima;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ApriReport("Lista", {}, "Elenco", {}, {});
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QApplication::restoreOverrideCursor();
    QCOMPARE(anteprima.mostrato.celle("Num"), QStringList("7"));
    QCOMPARE(anteprima.mostrato.titoloFinestra, QStringLiteral("Elenco"));
    QCOMPARE(anteprima.puntatore, Qt::ArrowCursor);
    QVERIFY(anteprima.aperte);
}

void tst_ApriReport::senzaManifestazione_data() {
    QTest::addColumn<bool>("sparita");
    QTest::newRow("none") << false;
    QTest::newRow("its row is gone") << true;
}

void tst_ApriReport::senzaManifestazione() {
    QFETCH(const bool, sparita);
    ProgrammaDiProva programma;
    const AnteprimaDiProva anteprima;
    if (sparita) {
        nuovaManifestazione();
        esegui("DELETE FROM Manifestazioni");
    }
    for (const char* tipo : {"PenalitàAggiuntive", "Classifica", "VerificheTutti"}) {
        programma.dialoghi.attendiMessaggio("Impossibile Generare la Classsifica",
                                            "Nessuna Manifestazione Attiva", Icona::Esclamazione);
        ApriReport(QString::fromUtf8(tipo), {}, {}, {}, {});
        QVERIFY(programma.dialoghi.finite());
    }
    QVERIFY(anteprima.mostrati.isEmpty());
    QCOMPARE(IDMan, 0);
}

void tst_ApriReport::anteprimaDelProgramma() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    for (int i = 1; i <= 100; ++i)
        nuovoEquipaggio(i);
    QString titolo;
    int pagine = 0;
    bool modale = false;
    QTimer::singleShot(0, qApp, [&] {
        auto* finestra = qobject_cast<frmAnteprima*>(QApplication::activeModalWidget());
        if (!finestra)
            return;
        titolo = finestra->windowTitle();
        modale = finestra->isModal();
        pagine = finestra->findChild<QPrintPreviewWidget*>()->pageCount();
        QTest::keyClick(finestra, Qt::Key_Escape);
    });
    ApriReport("Lista", {}, {}, {}, {});
    QVERIFY(modale);
    QCOMPARE(titolo, QStringLiteral("LISTA DI PARTENZA"));
    QCOMPARE(pagine, 3);
}

void tst_ApriReport::salvaPdf_data() {
    QTest::addColumn<QString>("scelto");
    QTest::addColumn<bool>("giaPresente");
    QTest::addColumn<bool>("sostituire");
    QTest::addColumn<bool>("salvato");
    QTest::newRow("a name") << "elenco.pdf" << false << false << true;
    QTest::newRow("without its ending") << "elenco" << false << false << true;
    QTest::newRow("that ending is taken, replace") << "elenco" << true << true << true;
    QTest::newRow("that ending is taken, keep") << "elenco" << true << false << false;
    QTest::newRow("cancelled") << "" << false << false << false;
}

void tst_ApriReport::salvaPdf() {
    QFETCH(const QString, scelto);
    QFETCH(const bool, giaPresente);
    QFETCH(const bool, sostituire);
    QFETCH(const bool, salvato);
    ProgrammaDiProva programma;
    const QString percorso = percorsoNelProgramma("elenco.pdf");
    QFile vecchio(percorso);
    if (giaPresente)
        QVERIFY(vecchio.open(QIODevice::WriteOnly) && vecchio.write("vecchio") == 7);
    vecchio.close();
    Rapporto r{.titoloFinestra = "Lista 1/2", .colonne = {{.testata = "NUM."}}};
    QPrinter stampante;
    impostaPagina(stampante, r);
    frmAnteprima finestra(r, &stampante);
    programma.dialoghi.attendiSalvaFile(scelto.isEmpty() ? QString() : percorsoNelProgramma(scelto));
    if (giaPresente)
        programma.dialoghi.attendiDomanda("Salva PDF", QString(), sostituire);
    if (salvato)
        programma.dialoghi.attendiAvviso("PDF Salvato");
    finestra.findChild<QAction*>("cmdSalvaPDF")->trigger();
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(QFileInfo(percorso).size() > 100, salvato);
    QCOMPARE(QFileInfo::exists(percorso), salvato || giaPresente);
}

void tst_ApriReport::salvaPdfFallito() {
    ProgrammaDiProva programma;
    const Rapporto r{.titoloFinestra = "Lista", .colonne = {{.testata = "NUM."}}};
    QPrinter stampante;
    frmAnteprima finestra(r, &stampante);
    programma.dialoghi.attendiSalvaFile(percorsoNelProgramma("assente/elenco.pdf"));
    programma.dialoghi.attendiMessaggio("Impossibile Salvare", QString());
    finestra.findChild<QAction*>("cmdSalvaPDF")->trigger();
    QVERIFY(programma.dialoghi.finite());
}

PROVA_FINESTRE(tst_ApriReport)
#include "tst_ApriReport.moc"

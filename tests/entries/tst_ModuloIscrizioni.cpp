#include "entries/frmModuloIscrizioni.h"
#include "entries/frmRicercaAnagrafica.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <functional>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace {

constexpr char Impossibile[] = "Impossbile Salvare";
constexpr char Assegnato[] = "Numero Già Assegnato";
constexpr char SenzaNumero[] = "Inserire il Numero dell'Equipaggio";
constexpr char AnnoErrato[] = "Anno NON Valido";

}  // namespace

class tst_ModuloIscrizioni final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void colonneEControlli();
    void eventoVuoto();
    void salvataggio();
    void soloTastiera();
    void mostra();
    void riscrittura();
    void nonSiLascia_data();
    void nonSiLascia();
    void navigazione();
    void elenco();
    void ordinamento();
    void abbandono();
    void eliminazione_data();
    void eliminazione();
    void eliminaUnico();
    void anno_data();
    void anno();
    void gruppoAutomatico();
    void annoFermaLeAzioni();
    void date_data();
    void date();
    void copia();
    void filtri();
    void completamento_data();
    void completamento();
    void rotella();
    void discoPieno();
    void archivioGuastoInUscita();

private:
    template <typename Controllo>
    Controllo* trova(const char* nome) {
        return m_finestra->findChild<Controllo*>(QString::fromLatin1(nome));
    }
    QLineEdit* box(const char* nome) { return trova<QLineEdit>(nome); }
    QComboBox* combo(const char* nome) { return trova<QComboBox>(nome); }
    QTreeWidget* lista() { return trova<QTreeWidget>("lstEq"); }
    QString testo(const char* nome) { return box(nome)->text(); }
    void clic(const char* nome) { QTest::mouseClick(trova<QPushButton>(nome), Qt::LeftButton); }
    void clicRiga(int riga);
    void clicTestata(int colonna);
    void scrivi(const char* nome, const QString& testo);
    bool inserimento();  // also that every control agrees on it
    QStringList righe();
    int rigaScelta() { return lista()->currentIndex().row(); }
    void apri();
    // Three crews: 3 VERDI, 12 BRUNI, 20 ABATE.
    void apriConEquipaggi();
    void attendi(const char* titolo, const char* testo) {
        m_programma->dialoghi.attendiMessaggio(QString::fromUtf8(titolo), QString::fromUtf8(testo));
    }

    std::unique_ptr<ProgrammaDiProva> m_programma;
    std::unique_ptr<frmModuloIscrizioni> m_finestra;
};

void tst_ModuloIscrizioni::init() {
    m_programma = std::make_unique<ProgrammaDiProva>();
    nuovaManifestazione();
    nuovaProva();
    nuovaProva({{"Tip", "CO"}, {"Svo", 0}});
}

void tst_ModuloIscrizioni::cleanup() {
    QVERIFY(m_programma->dialoghi.finite());
    m_finestra.reset();
    m_programma.reset();
}

void tst_ModuloIscrizioni::apri() {
    m_finestra = std::make_unique<frmModuloIscrizioni>();
    m_finestra->show();
    QVERIFY(QTest::qWaitForWindowActive(m_finestra.get()));
}

void tst_ModuloIscrizioni::apriConEquipaggi() {
    nuovoEquipaggio(20, {{"Cog", "ABATE"}, {"Nom", "Ugo"}, {"Ann", 1950}});
    nuovoEquipaggio(3, {{"Cog", "VERDI"}, {"Nom", "Ada"}, {"Ann", 1965}});
    nuovoEquipaggio(12, {{"Cog", "BRUNI"}, {"Nom", "Leo"}, {"Ann", 1935}});
    apri();
}

void tst_ModuloIscrizioni::clicRiga(int riga) {
    QTest::mouseClick(lista()->viewport(), Qt::LeftButton, {},
                      lista()->visualItemRect(lista()->topLevelItem(riga)).center());
}

void tst_ModuloIscrizioni::clicTestata(int colonna) {
    QHeaderView* testata = lista()->header();
    QTest::mouseClick(testata->viewport(), Qt::LeftButton, {},
                      QPoint(testata->sectionViewportPosition(colonna) + 10, testata->height() / 2));
}

void tst_ModuloIscrizioni::scrivi(const char* nome, const QString& testo) {
    box(nome)->setFocus();
    box(nome)->selectAll();
    QTest::keyClicks(box(nome), testo);
}

bool tst_ModuloIscrizioni::inserimento() {
    const bool attivo = trova<QPushButton>("cmdSalva")->isEnabled();
    const auto tutti = [&](std::initializer_list<const char*> nomi, bool abilitati) {
        return std::ranges::all_of(
            nomi, [&](const char* nome) { return trova<QWidget>(nome)->isEnabled() == abilitati; });
    };
    [&] {
        QVERIFY(tutti({"cmdSalva", "cmdAnnulla"}, attivo));
        QVERIFY(tutti(
            {"cmdPrimo", "cmdPrecedente", "cmdSuccessivo", "cmdUltimo", "cmdNuovo", "cmdElimina", "lstEq"},
            !attivo));
        QVERIFY(tutti({"cmdRic", "cmdEsci"}, true));
        QCOMPARE(testo("txtIDEqu").isEmpty(), attivo || lista()->topLevelItemCount() == 0);
    }();
    return attivo;
}

QStringList tst_ModuloIscrizioni::righe() {
    QStringList testi;
    for (int i = 0; i < lista()->topLevelItemCount(); ++i)
        testi << lista()->topLevelItem(i)->text(1) + u' ' + lista()->topLevelItem(i)->text(2);
    return testi;
}

void tst_ModuloIscrizioni::colonneEControlli() {
    apri();
    QCOMPARE(m_finestra->windowTitle(), QStringLiteral("Modulo Iscrizioni"));
    for (const ColonnaEquipaggio& colonna : colonneEquipaggio())
        QVERIFY2(trova<QWidget>(colonna.controllo), colonna.controllo);
    const QList<QLabel*> etichette = m_finestra->findChildren<QLabel*>();
    for (const QLabel* etichetta : etichette)
        QVERIFY2(etichetta->buddy(), qPrintable(etichetta->text()));
    for (const auto& [nome, suggerimento] :
         {std::pair{"cmdPrimo", "Primo Equipaggio"}, std::pair{"cmdPrecedente", "Equipaggio Precedente"},
          std::pair{"cmdSuccessivo", "Equipaggio Successivo"}, std::pair{"cmdUltimo", "Ultimo Equipaggio"},
          std::pair{"cmdNuovo", "Nuovo Equipaggio"}, std::pair{"cmdElimina", "Elimina Equipaggio"}})
        QCOMPARE(trova<QPushButton>(nome)->toolTip(), QString::fromLatin1(suggerimento));
}

void tst_ModuloIscrizioni::eventoVuoto() {
    apri();
    QVERIFY(inserimento());
    QCOMPARE(QApplication::focusWidget(), box("txtNum"));
    QCOMPARE(combo("cboGruppo")->currentText(), QStringLiteral("Nessuno"));
    QCOMPARE(combo("cboSes")->currentIndex(), -1);
    QCOMPARE(box("txtDatNas")->displayText(), QStringLiteral("__/__/____"));
    for (int i = 0; i < 2; ++i) {
        attendi("Impossibile Uscire Adesso", "Salvare o Annullare l'Inserimento dell'Equipaggio");
        i == 0 ? clic("cmdEsci") : QTest::keyClick(m_finestra.get(), Qt::Key_Escape);
        QVERIFY(m_programma->dialoghi.finite() && m_finestra->isVisible());
    }
    clic("cmdAnnulla");
    QVERIFY(!m_finestra->isVisible());
    QCOMPARE(contaRighe("Equipaggi"), 0);
}

void tst_ModuloIscrizioni::salvataggio() {
    apriConEquipaggi();
    clic("cmdNuovo");
    QVERIFY(inserimento());
    attendi(Impossibile, SenzaNumero);
    clic("cmdSalva");
    scrivi("txtNum", "12");
    attendi(Impossibile, Assegnato);
    clic("cmdSalva");
    QVERIFY(m_programma->dialoghi.finite() && inserimento());
    scrivi("txtNum", "7");
    scrivi("txtTel", "011");
    scrivi("txtCel", "333");
    combo("cboSesNav")->setCurrentText("F");
    trova<QCheckBox>("chkEsc")->setChecked(true);
    clic("cmdSalva");
    QVERIFY(!inserimento());
    QCOMPARE(righe(), (QStringList{"3 VERDI Ada", "7  ", "12 BRUNI Leo", "20 ABATE Ugo"}));
    QCOMPARE(rigaScelta(), 1);
    QCOMPARE(QApplication::focusWidget(), box("txtNum"));
    QCOMPARE(testo("txtTel"), QStringLiteral("333"));
    QCOMPARE(testo("txtCel"), QString());
    QCOMPARE(combo("cboSesNav")->currentText(), QStringLiteral("F"));
    const QString suo = "IDEqu_FK=" + testo("txtIDEqu");
    QCOMPARE(contaRighe("Rilevamenti", suo), 2);
    QCOMPARE(contaRighe("Rilevamenti", suo + " AND TPar='' AND TArr=''"), 2);

    scrivi("txtCel", "347");
    clic("cmdSuccessivo");
    QCOMPARE(contaRighe("Equipaggi", "Num=7 AND Tel='333' AND Cel='347' AND Esc=1"), 1);
    QCOMPARE(contaRighe("Rilevamenti", suo), 2);
}

void tst_ModuloIscrizioni::soloTastiera() {
    // Two crews one after the other, the mouse never touched.
    apri();
    const auto batti = [](const QString& testo, int invii) {
        QTest::keyClicks(QApplication::focusWidget(), testo);
        while (invii-- > 0)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    };
    for (const int numero : {1, 2}) {
        batti(QString::number(numero), 3);
        batti("rossi", 1);
        batti("mario", 1);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        batti({}, 1);
        batti("31121950", 1);
        QCOMPARE(QApplication::focusWidget(), box("txtClu"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::AltModifier);
        QTRY_VERIFY(!inserimento());
        QCOMPARE(QApplication::focusWidget(), box("txtNum"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_N, Qt::AltModifier);
        QTRY_VERIFY(inserimento());
    }
    QCOMPARE(contaRighe("Equipaggi", "Cog='rossi' AND Nom='mario' AND Ses='M' AND DatNas='1950-12-31'"), 2);
    // On a button Enter moves on too.
    trova<QPushButton>("cmdSalva")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), trova<QPushButton>("cmdAnnulla"));
    QVERIFY(inserimento());
}

void tst_ModuloIscrizioni::mostra() {
    const int gruppo = inserisciRiga("Raggruppamenti", {{"IDMan_FK", IDMan}, {"Nom", "Classic"}, {"Fat", 1}});
    const int squadra = inserisciRiga("Squadre", {{"IDMan_FK", IDMan}, {"Nom", "Rossa"}});
    nuovoEquipaggio(1, {{"IDGru_FK", gruppo},
                        {"IDSqu_FK", squadra},
                        {"Ses", "m"},
                        {"SesNav", "x"},
                        {"DatNas", "1950-02-01"},
                        {"CAP", "D-80331"},
                        {"Cil", 1298.5},
                        {"Esc", 1}});
    apri();
    QCOMPARE(combo("cboGruppo")->currentText(), QStringLiteral("Classic"));
    QCOMPARE(combo("cboSquadra")->currentText(), QStringLiteral("Rossa"));
    QCOMPARE(combo("cboSes")->currentText(), QStringLiteral("M"));
    QCOMPARE(combo("cboSesNav")->currentIndex(), -1);
    QCOMPARE(testo("txtDatNas"), QStringLiteral("01/02/1950"));
    QCOMPARE(box("txtScaPat")->displayText(), QStringLiteral("__/__/____"));
    QVERIFY(trova<QCheckBox>("chkEsc")->isChecked());
    // Looking at a crew changes nothing of what the archive holds in another form.
    clic("cmdEsci");
    QCOMPARE(contaRighe("Equipaggi", "CAP='D-80331' AND Cil=1298.5 AND SesNav='x' AND DatNas='1950-02-01'"),
             1);
}

void tst_ModuloIscrizioni::riscrittura() {
    apriConEquipaggi();
    const std::function<void()> uscite[] = {[this] { clic("cmdSuccessivo"); }, [this] { clicRiga(2); },
                                            [this] {
                                                clic("cmdNuovo");
                                                clic("cmdAnnulla");
                                            },
                                            [this] { m_finestra->close(); }};
    int numero = 100;
    for (const auto& uscita : uscite) {
        clicRiga(0);
        scrivi("txtNum", QString::number(++numero));
        scrivi("txtTes", QString::number(numero));
        uscita();
        QCOMPARE(righe().constFirst(), QStringLiteral("%1 VERDI Ada").arg(numero));
        QCOMPARE(contaRighe("Equipaggi", QStringLiteral("Num=%1 AND Tes='%1' AND Cog='VERDI'").arg(numero)),
                 1);
    }
    QVERIFY(!m_finestra->isVisible());
}

void tst_ModuloIscrizioni::nonSiLascia_data() {
    QTest::addColumn<QString>("uscita");
    for (const char* uscita :
         {"cmdPrimo", "cmdPrecedente", "cmdSuccessivo", "cmdUltimo", "cmdNuovo", "cmdEsci", "list"})
        QTest::newRow(uscita) << QString::fromLatin1(uscita);
}

void tst_ModuloIscrizioni::nonSiLascia() {
    QFETCH(QString, uscita);
    apriConEquipaggi();
    clicRiga(1);
    scrivi("txtTes", "T5");
    for (const char* numero : {"20", ""}) {
        box("txtNum")->setText(numero);
        attendi(Impossibile, *numero ? Assegnato : SenzaNumero);
        uscita == "list" ? clicRiga(0) : clic(qPrintable(uscita));
        QVERIFY(m_programma->dialoghi.finite());
        QVERIFY(m_finestra->isVisible());
        QVERIFY(!inserimento());
        QCOMPARE(rigaScelta(), 1);
        QCOMPARE(testo("txtNum"), QString::fromLatin1(numero));
        QCOMPARE(testo("txtTes"), QStringLiteral("T5"));
        QCOMPARE(contaRighe("Equipaggi", "Num=12 AND Tes IS NULL"), 1);
    }
    box("txtNum")->setText("99999999999");
    attendi(Impossibile, "Numero dell'Equipaggio Troppo Grande");
    uscita == "list" ? clicRiga(0) : clic(qPrintable(uscita));
}

void tst_ModuloIscrizioni::navigazione() {
    apriConEquipaggi();
    const std::pair<const char*, const char*> passi[] = {
        {"cmdPrecedente", "VERDI"}, {"cmdSuccessivo", "BRUNI"}, {"cmdSuccessivo", "ABATE"},
        {"cmdSuccessivo", "ABATE"}, {"cmdPrecedente", "BRUNI"}, {"cmdPrimo", "VERDI"},
        {"cmdUltimo", "ABATE"}};
    QCOMPARE(testo("txtCog"), QStringLiteral("VERDI"));
    for (const auto& [pulsante, atteso] : passi) {
        clic(pulsante);
        QCOMPARE(testo("txtCog"), QString::fromLatin1(atteso));
        QVERIFY(lista()->currentItem()->text(2).startsWith(QLatin1String(atteso)));
    }
}

void tst_ModuloIscrizioni::elenco() {
    apriConEquipaggi();
    QCOMPARE(righe(), (QStringList{"3 VERDI Ada", "12 BRUNI Leo", "20 ABATE Ugo"}));
    QVERIFY(lista()->isColumnHidden(0));
    lista()->setFocus();
    QTest::keyClick(lista(), Qt::Key_Down);
    QTRY_COMPARE(testo("txtCog"), QStringLiteral("BRUNI"));
    QTest::keyClick(lista(), Qt::Key_End);
    QTRY_COMPARE(testo("txtCog"), QStringLiteral("ABATE"));
    // A refusal takes the list back to the crew on show.
    box("txtNum")->clear();
    attendi(Impossibile, SenzaNumero);
    QTest::keyClick(lista(), Qt::Key_Up);
    QTRY_VERIFY(m_programma->dialoghi.viste().size() == 1);
    QCOMPARE(rigaScelta(), 2);
    QCOMPARE(testo("txtCog"), QStringLiteral("ABATE"));
}

void tst_ModuloIscrizioni::ordinamento() {
    nuovoEquipaggio(100, {{"Cog", "carli"}, {"Nom", "Pia"}});
    apriConEquipaggi();
    clicRiga(1);
    clicTestata(2);
    QCOMPARE(righe(), (QStringList{"20 ABATE Ugo", "12 BRUNI Leo", "100 carli Pia", "3 VERDI Ada"}));
    QCOMPARE(testo("txtCog"), QStringLiteral("BRUNI"));
    clic("cmdPrecedente");
    QCOMPARE(testo("txtCog"), QStringLiteral("ABATE"));
    // The crew on show stays the same though its number was changed to that of another.
    scrivi("txtNum", "3");
    clicTestata(1);
    QCOMPARE(righe(), (QStringList{"3 VERDI Ada", "12 BRUNI Leo", "20 ABATE Ugo", "100 carli Pia"}));
    QCOMPARE(rigaScelta(), 2);
    attendi(Impossibile, Assegnato);
    clic("cmdPrimo");
    scrivi("txtNum", "20");
    clicTestata(2);
    clic("cmdNuovo");
    scrivi("txtNum", "50");
    scrivi("txtCog", "BALBO");
    clic("cmdSalva");
    QCOMPARE(righe().mid(0, 3), (QStringList{"20 ABATE Ugo", "50 BALBO ", "12 BRUNI Leo"}));
    QCOMPARE(rigaScelta(), 1);
}

void tst_ModuloIscrizioni::abbandono() {
    apriConEquipaggi();
    clicRiga(1);
    clic("cmdNuovo");
    scrivi("txtNum", "20");
    scrivi("txtAnn", "1700");  // abandoned, so not checked either
    clic("cmdAnnulla");
    QVERIFY(!inserimento());
    QCOMPARE(testo("txtCog"), QStringLiteral("BRUNI"));
    QCOMPARE(testo("txtAnn"), QStringLiteral("1935"));
    QCOMPARE(rigaScelta(), 1);
    QCOMPARE(QApplication::focusWidget(), box("txtNum"));
    QCOMPARE(contaRighe("Equipaggi"), 3);
}

void tst_ModuloIscrizioni::eliminazione_data() {
    QTest::addColumn<int>("riga");
    QTest::addColumn<QString>("poi");
    QTest::newRow("first") << 0 << "BRUNI";
    QTest::newRow("middle") << 1 << "VERDI";
    QTest::newRow("last") << 2 << "BRUNI";
}

void tst_ModuloIscrizioni::eliminazione() {
    QFETCH(int, riga);
    QFETCH(QString, poi);
    apriConEquipaggi();
    clicRiga(riga);
    const QString id = testo("txtIDEqu");
    for (const bool si : {false, true}) {
        QCOMPARE(contaRighe("Rilevamenti", "IDEqu_FK=" + id), 2);
        m_programma->dialoghi.attendiDomanda(
            "Eliminare l'Equipaggio ?",
            "Eliminando l'Equipaggio Verranno Cancellati Anche\nTutti i Relativi Rilevamenti Registrati.\n"
            "Confermare l'Eliminazione ?",
            si);
        clic("cmdElimina");
        QCOMPARE(m_programma->dialoghi.viste().constLast().icona, Icona::Domanda);
    }
    QCOMPARE(lista()->topLevelItemCount(), 2);
    QCOMPARE(contaRighe("Rilevamenti", "IDEqu_FK=" + id), 0);
    QCOMPARE(contaRighe("Rilevamenti"), 4);
    QCOMPARE(testo("txtCog"), poi);
    QVERIFY(lista()->currentItem()->text(2).startsWith(poi));
}

void tst_ModuloIscrizioni::eliminaUnico() {
    nuovoEquipaggio(1, {{"DatNas", "1950-02-01"}});
    apri();
    m_programma->dialoghi.attendiDomanda("Eliminare l'Equipaggio ?", {}, true);
    clic("cmdElimina");
    QVERIFY(!inserimento());
    QCOMPARE(testo("txtNum") + testo("txtCog") + testo("txtIDEqu"), QString());
    QCOMPARE(box("txtDatNas")->displayText(), QStringLiteral("__/__/____"));
    for (const char* fermo : {"cmdElimina", "cmdPrimo", "cmdSuccessivo", "cmdPrecedente", "cmdUltimo"})
        clic(fermo);
    clic("cmdNuovo");
    QVERIFY(inserimento());
    clic("cmdAnnulla");
    QVERIFY(!m_finestra->isVisible());
}

void tst_ModuloIscrizioni::anno_data() {
    QTest::addColumn<QString>("anno");
    QTest::addColumn<bool>("ammesso");
    QTest::newRow("too early") << "1849" << false;
    QTest::newRow("first") << "1850" << true;
    QTest::newRow("ten years old") << "2016" << true;
    QTest::newRow("nine years old") << "2017" << false;
    QTest::newRow("beyond all numbers") << "99999999999" << false;
    QTest::newRow("none") << "" << true;
}

void tst_ModuloIscrizioni::anno() {
    QFETCH(QString, anno);
    QFETCH(bool, ammesso);
    apri();
    scrivi("txtAnn", anno);
    if (!ammesso)
        attendi(AnnoErrato, "Anno NON Valido. Controllare.");
    QTest::keyClick(box("txtAnn"), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), ammesso ? box("txtCil") : box("txtAnn"));
    box("txtAnn")->setFocus();
    if (!ammesso)
        attendi(AnnoErrato, "Anno NON Valido. Controllare.");
    QTest::mouseClick(box("txtCog"), Qt::LeftButton);
    QCOMPARE(QApplication::focusWidget(), ammesso ? box("txtCog") : box("txtAnn"));
}

void tst_ModuloIscrizioni::gruppoAutomatico() {
    esegui("UPDATE Manifestazioni SET RagAuto=1");
    const auto gruppo = [](const char* nome, int da, int a) {
        return inserisciRiga("Raggruppamenti",
                             {{"IDMan_FK", IDMan}, {"Nom", nome}, {"Fat", 1}, {"DAAnn", da}, {"AAnn", a}});
    };
    gruppo("Antiche", 1800, 1899);
    const int post = gruppo("Post Classic", 1961, 1970);
    gruppo("Modern", 1970, 2017);
    apri();
    QVERIFY(!combo("cboGruppo")->isEnabled());
    QCOMPARE(combo("cboGruppo")->currentText(), QStringLiteral("Nessuno"));
    const auto lascia = [this](const char* anno) {
        scrivi("txtAnn", QString::fromLatin1(anno));
        QTest::keyClick(box("txtAnn"), Qt::Key_Tab);
        return combo("cboGruppo")->currentText();
    };
    QCOMPARE(lascia("1970"), QStringLiteral("Post Classic"));
    QCOMPARE(lascia("1950"), QString());
    QCOMPARE(combo("cboGruppo")->currentIndex(), -1);
    attendi(AnnoErrato, "Anno NON Valido. Controllare.");
    QCOMPARE(lascia("1849"), QStringLiteral("Antiche"));
    attendi(AnnoErrato, "Anno NON Valido. Controllare.");
    QCOMPARE(lascia("2017"), QStringLiteral("Modern"));
    QVERIFY(m_programma->dialoghi.finite());
    box("txtAnn")->clear();
    QCOMPARE(lascia(""), QString());
    // Still in the year when the crew is stored; and one whose year is in no group.
    for (const auto& [anno, atteso] : {std::pair{"1965", post}, std::pair{"1920", 0}}) {
        scrivi("txtNum", QString::fromLatin1(anno));
        scrivi("txtAnn", QString::fromLatin1(anno));
        clic("cmdSalva");
        QCOMPARE(
            leggiValore("SELECT IDGru_FK FROM Equipaggi WHERE Num=?", {QString::fromLatin1(anno)})->toInt(),
            atteso);
        clic("cmdNuovo");
    }
}

void tst_ModuloIscrizioni::annoFermaLeAzioni() {
    apriConEquipaggi();
    clicRiga(1);
    for (const char* azione : {"cmdPrimo", "cmdSuccessivo", "cmdNuovo", "cmdRic", "cmdEsci", "list"}) {
        scrivi("txtAnn", "1700");
        attendi(AnnoErrato, "Anno NON Valido. Controllare.");
        qstrcmp(azione, "list") == 0 ? clicRiga(0) : clic(azione);
        QVERIFY2(m_programma->dialoghi.finite(), azione);
        QCOMPARE(QApplication::focusWidget(), box("txtAnn"));
        QCOMPARE(rigaScelta(), 1);
        QVERIFY(m_finestra->isVisible());
    }
    QCOMPARE(contaRighe("Equipaggi", "Ann=1935"), 1);
    // A year that came from elsewhere is no matter of a click that leads away from another field.
    esegui("UPDATE Equipaggi SET Ann=1700 WHERE Num=3");
    scrivi("txtAnn", "1936");
    clicRiga(0);
    QCOMPARE(testo("txtAnn"), QStringLiteral("1700"));
    QCOMPARE(contaRighe("Equipaggi", "Ann=1936"), 1);
}

void tst_ModuloIscrizioni::date_data() {
    QTest::addColumn<QString>("cifre");
    QTest::addColumn<QString>("mostrata");  // empty when it is refused
    QTest::newRow("none") << ""
                          << "//";
    QTest::newRow("whole") << "29022024"
                           << "29/02/2024";
    QTest::newRow("no such day") << "30022024"
                                 << "";
    QTest::newRow("day alone") << "12"
                               << "";
    QTest::newRow("year of three digits") << "0102195"
                                          << "";
    QTest::newRow("year of two digits") << "010250"
                                        << "01/02/1950";
}

void tst_ModuloIscrizioni::date() {
    QFETCH(QString, cifre);
    QFETCH(QString, mostrata);
    apriConEquipaggi();
    for (const char* nome : {"txtDatNas", "txtScaPat", "txtScaPol"}) {
        QLineEdit* campo = box(nome);
        QTest::mouseClick(campo, Qt::LeftButton);
        QTRY_COMPARE(campo->cursorPosition(), 0);
        QTest::keyClicks(campo, cifre);
        if (mostrata.isEmpty())
            attendi("Data NON Valida", "Data NON Valida. Controllare.");
        QTest::keyClick(campo, Qt::Key_Tab);
        QCOMPARE(campo->hasFocus(), mostrata.isEmpty());
        QVERIFY(m_programma->dialoghi.finite());
        if (mostrata.isEmpty())
            campo->clear();
        else
            QCOMPARE(campo->text(), mostrata);
    }
}

void tst_ModuloIscrizioni::copia() {
    nuovoEquipaggio(40, {{"Cog", "zola"},
                         {"Nom", "Ida"},
                         {"Ses", "F"},
                         {"Not", "altra nota"},
                         {"Ema", "ida@posta.it"},
                         {"DatNas", QVariant()},
                         {"Esc", 1},
                         {"MotEsc", "altro"},
                         {"Mar", "fiat"},
                         {"Ann", 1966}});
    nuovaManifestazione({{"RagAuto", 1}});
    inserisciRiga("Raggruppamenti", {{"IDMan_FK", IDMan}, {"Nom", "G"}, {"DAAnn", 1900}, {"AAnn", 2000}});
    nuovoEquipaggio(5, {{"DatNas", "1950-02-01"}, {"Not", "mia"}, {"Ses", "M"}});
    apri();
    const auto scegli = [this](bool scelta) {
        QTimer::singleShot(0, m_finestra.get(), [scelta] {
            auto* ricerca = qobject_cast<frmRicercaAnagrafica*>(QApplication::activeModalWidget());
            QVERIFY(ricerca);
            QTest::keyClicks(ricerca->findChild<QLineEdit*>("txtRic"), "zol");
            auto* trovati = ricerca->findChild<QTreeWidget*>("lstEqu");
            QCOMPARE(trovati->topLevelItemCount(), 1);
            trovati->setCurrentItem(trovati->topLevelItem(0));
            QTest::mouseClick(ricerca->findChild<QPushButton*>(scelta ? "cmdSeleziona" : "cmdAnnulla"),
                              Qt::LeftButton);
        });
        clic("cmdRic");
        QCOMPARE(IDEqu, 0);
        m_finestra->activateWindow();  // which the offscreen platform does not do by itself
        QVERIFY(QTest::qWaitForWindowActive(m_finestra.get()));
    };
    scegli(false);
    QCOMPARE(testo("txtCog"), QStringLiteral("ROSSI"));
    scegli(true);
    QCOMPARE(testo("txtCog") + ' ' + testo("txtNom") + ' ' + testo("txtMar"),
             QStringLiteral("ZOLA IDA FIAT"));
    QCOMPARE(testo("txtEma"), QStringLiteral("ida@posta.it"));
    QCOMPARE(combo("cboSes")->currentText(), QStringLiteral("F"));
    QCOMPARE(testo("txtDatNas"), QStringLiteral("01/02/1950"));  // Null in the archive: kept
    QCOMPARE(testo("txtNum") + testo("txtNot") + testo("txtMotEsc"), QStringLiteral("5mia"));
    QVERIFY(!trova<QCheckBox>("chkEsc")->isChecked());
    // The group follows when the year is next left.
    QCOMPARE(combo("cboGruppo")->currentText(), QStringLiteral("Nessuno"));
    box("txtAnn")->setFocus();
    QTest::keyClick(box("txtAnn"), Qt::Key_Tab);
    QCOMPARE(combo("cboGruppo")->currentText(), QStringLiteral("G"));
}

void tst_ModuloIscrizioni::filtri() {
    apri();
    for (const char* nome : {"txtAnn", "txtCap", "txtCil", "txtNum"}) {
        QTest::keyClicks(box(nome), "1a9-,");
        QCOMPARE(testo(nome), QStringLiteral("19"));
        QApplication::clipboard()->setText(" x5 0");
        box(nome)->paste();
        QCOMPARE(testo(nome), QStringLiteral("1950"));
    }
}

void tst_ModuloIscrizioni::completamento_data() {
    QTest::addColumn<QString>("colonna");
    QTest::addColumn<bool>("completa");
    const QStringList complete{"CAP", "Cit",    "Clu", "Cog",    "CogNav", "Com", "Mar",
                               "Mod", "MotEsc", "Nom", "NomNav", "Not",    "Pro", "RilDa"};
    for (const ColonnaEquipaggio& colonna : colonneEquipaggio()) {
        if (colonna.tipo == TipoDato::Testo)
            QTest::newRow(colonna.nome)
                << QString::fromLatin1(colonna.nome) << complete.contains(colonna.nome);
    }
}

void tst_ModuloIscrizioni::completamento() {
    QFETCH(QString, colonna);
    QFETCH(bool, completa);
    nuovoEquipaggio(1, {{colonna, "7bello"}});
    nuovaManifestazione();
    apri();
    const auto definizione = std::ranges::find_if(
        colonneEquipaggio(), [&](const ColonnaEquipaggio& c) { return colonna == QLatin1String(c.nome); });
    QTest::keyClicks(box(definizione->controllo), "7");
    QCOMPARE(testo(definizione->controllo), completa ? QStringLiteral("7BELLO") : QStringLiteral("7"));
}

void tst_ModuloIscrizioni::rotella() {
    apriConEquipaggi();
    combo("cboSes")->setCurrentIndex(0);
    const QPointF centro = combo("cboSes")->rect().center();
    QWheelEvent giro(centro, combo("cboSes")->mapToGlobal(centro), {}, QPoint(0, -120), Qt::NoButton, {},
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(combo("cboSes"), &giro);
    QCOMPARE(combo("cboSes")->currentIndex(), 0);
}

void tst_ModuloIscrizioni::discoPieno() {
    apri();
    const int pagine = leggiValore("PRAGMA page_count")->toInt();
    leggiValore(QStringLiteral("PRAGMA max_page_count=%1").arg(pagine));
    scrivi("txtNum", "8");
    scrivi("txtCog", "Neri");
    box("txtNot")->setText(QString(30000, 'x'));
    m_programma->dialoghi.attendiMessaggio("Velmora", {}, Icona::Stop);
    clic("cmdSalva");
    QVERIFY(m_programma->dialoghi.viste().constLast().testo.contains("disco è pieno"));
    QVERIFY(inserimento());
    QCOMPARE(testo("txtNum") + testo("txtCog"), QStringLiteral("8Neri"));
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(contaRighe("Equipaggi") + contaRighe("Rilevamenti"), 0);
    leggiValore("PRAGMA max_page_count=100000");
    clic("cmdSalva");
    QVERIFY(!inserimento());
    QCOMPARE(contaRighe("Equipaggi", "Num=8 AND Cog='Neri'"), 1);
    QCOMPARE(contaRighe("Rilevamenti"), 2);
}

void tst_ModuloIscrizioni::archivioGuastoInUscita() {
    // A write-back that the archive refuses keeps the crew, what was typed, and the window.
    apriConEquipaggi();
    esegui("CREATE TRIGGER guasto BEFORE UPDATE ON Equipaggi BEGIN SELECT RAISE(ABORT,'guasto'); END");
    scrivi("txtTes", "T9");
    for (const char* uscita : {"cmdSuccessivo", "cmdNuovo", "cmdEsci", "list"}) {
        m_programma->dialoghi.attendiMessaggio("Velmora", {}, Icona::Stop);
        qstrcmp(uscita, "list") == 0 ? clicRiga(2) : clic(uscita);
        QVERIFY2(m_programma->dialoghi.finite(), uscita);
        QVERIFY(m_finestra->isVisible() && !inserimento());
        QCOMPARE(rigaScelta(), 0);
        QCOMPARE(testo("txtTes"), QStringLiteral("T9"));
    }
    esegui("DROP TRIGGER guasto");
    clic("cmdEsci");
    QVERIFY(!m_finestra->isVisible());
    QCOMPARE(contaRighe("Equipaggi", "Tes='T9' AND Cog='VERDI'"), 1);
}

PROVA_FINESTRE(tst_ModuloIscrizioni)
#include "tst_ModuloIscrizioni.moc"

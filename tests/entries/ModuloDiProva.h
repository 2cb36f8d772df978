#pragma once

#include "entries/frmModuloIscrizioni.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <memory>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

// The entry form of an event with two tests, and hands to work it with.
class ModuloDiProva {
protected:
    static constexpr char Impossibile[] = "Impossbile Salvare";
    static constexpr char Assegnato[] = "Numero Già Assegnato";
    static constexpr char AnnoErrato[] = "Anno NON Valido";
    static constexpr char SenzaNumero[] = "Inserire il Numero dell'Equipaggio";
    // The ways to leave the crew in the middle of the list.
    static constexpr const char* Uscite[] = {"cmdPrimo", "cmdPrecedente", "cmdSuccessivo", "cmdUltimo",
                                             "cmdNuovo", "cmdEsci",       "list"};

    void comincia() {
        m_programma = std::make_unique<ProgrammaDiProva>();
        nuovaManifestazione();
        nuovaProva();
        nuovaProva({{"Tip", "CO"}, {"Svo", 0}});
    }

    void finisci() {
        QVERIFY(m_programma->dialoghi.finite());
        m_finestra.reset();
        m_programma.reset();
    }

    template <typename Controllo>
    Controllo* trova(const char* nome) {
        return m_finestra->findChild<Controllo*>(QString(nome));
    }
    QLineEdit* box(const char* nome) { return trova<QLineEdit>(nome); }
    QComboBox* combo(const char* nome) { return trova<QComboBox>(nome); }
    QTreeWidget* lista() { return trova<QTreeWidget>("lstEq"); }
    QString testo(const char* nome) { return box(nome)->text(); }
    int rigaScelta() { return lista()->currentIndex().row(); }
    void clic(const char* nome) { QTest::mouseClick(trova<QPushButton>(nome), Qt::LeftButton); }
    void esci(const char* uscita, int riga = 0) {
        qstrcmp(uscita, "list") == 0 ? clicRiga(riga) : clic(uscita);
    }
    void attendi(const char* titolo, const char* testo) {
        m_programma->dialoghi.attendiMessaggio(QString::fromUtf8(titolo), QString::fromUtf8(testo));
    }

    void apri() {
        m_finestra = std::make_unique<frmModuloIscrizioni>();
        m_finestra->show();
        QVERIFY(QTest::qWaitForWindowActive(m_finestra.get()));
    }

    // 3 VERDI, 12 BRUNI, 20 ABATE.
    void apriConEquipaggi() {
        nuovoEquipaggio(20, {{"Cog", "ABATE"}, {"Nom", "Ugo"}, {"Ann", 1950}});
        nuovoEquipaggio(3, {{"Cog", "VERDI"}, {"Nom", "Ada"}, {"Ann", 1965}});
        nuovoEquipaggio(12, {{"Cog", "BRUNI"}, {"Nom", "Leo"}, {"Ann", 1935}});
        apri();
    }

    void clicRiga(int riga) {
        QTest::mouseClick(lista()->viewport(), Qt::LeftButton, {},
                          lista()->visualItemRect(lista()->topLevelItem(riga)).center());
    }

    void clicTestata(int colonna) {
        QHeaderView* testata = lista()->header();
        QTest::mouseClick(testata->viewport(), Qt::LeftButton, {},
                          QPoint(testata->sectionViewportPosition(colonna) + 10, testata->height() / 2));
    }

    void scrivi(const char* nome, const QString& testo) {
        box(nome)->setFocus();
        box(nome)->selectAll();
        QTest::keyClick(box(nome), Qt::Key_Delete);
        QTest::keyClicks(box(nome), testo);
    }

    // "txtTel=333;cboSes=F;chkEsc=SI" against what the controls show.
    void confronta(const QString& attesi) {
        QStringList trovati;
        for (const QString& voce : attesi.split(';')) {
            const QString nome = voce.section('=', 0, 0);
            const auto* quale = m_finestra->findChild<QWidget*>(nome);
            const bool spunta = nome.startsWith("chk");
            const char* proprieta = spunta                   ? "checked"
                                    : nome.startsWith("cbo") ? "currentText"
                                                             : "displayText";
            const QVariant valore = quale->property(proprieta);
            trovati << nome + '=' + (spunta ? QString(valore.toBool() ? "SI" : "NO") : valore.toString());
        }
        QCOMPARE(trovati.join(';'), attesi);
    }

    // Whether a new crew is being typed; every control must agree on it.
    bool inserimento() {
        const bool attivo = trova<QPushButton>("cmdSalva")->isEnabled();
        const auto tutti = [&](std::initializer_list<const char*> nomi, bool abilitati) {
            return std::ranges::all_of(
                nomi, [&](const char* nome) { return trova<QWidget>(nome)->isEnabled() == abilitati; });
        };
        [&] {
            QVERIFY(tutti({"cmdSalva", "cmdAnnulla"}, attivo));
            QVERIFY(tutti({"cmdPrimo", "cmdPrecedente", "cmdSuccessivo", "cmdUltimo", "cmdNuovo",
                           "cmdElimina", "lstEq"},
                          !attivo));
            QVERIFY(tutti({"cmdRic", "cmdEsci"}, true));
            QCOMPARE(testo("txtIDEqu").isEmpty(), attivo || lista()->topLevelItemCount() == 0);
        }();
        return attivo;
    }

    QStringList righe() {
        QStringList testi;
        for (int i = 0; i < lista()->topLevelItemCount(); ++i)
            testi << lista()->topLevelItem(i)->text(1) + u' ' + lista()->topLevelItem(i)->text(2);
        return testi;
    }

    std::unique_ptr<ProgrammaDiProva> m_programma;
    std::unique_ptr<frmModuloIscrizioni> m_finestra;
};

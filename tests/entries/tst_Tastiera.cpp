#include "entries/frmModuloIscrizioni.h"
#include "entries/frmRicercaAnagrafica.h"
#include "event/Elenco.h"
#include "event/frmCambiaManifestazione.h"
#include "event/frmModificaGruppo.h"
#include "event/frmModificaManifestazione.h"
#include "event/frmModificaProva.h"
#include "event/frmModificaSquadra.h"
#include "event/frmNuovaManifestazione.h"
#include "event/frmNuovaManifestazione2.h"
#include "event/frmNuovaManifestazione2Bis.h"
#include "event/frmNuovaManifestazione3.h"
#include "event/frmNuovaManifestazione4.h"
#include "event/frmProveSvolte.h"
#include "event/frmUtilityPMI.h"
#include "scoring/frmClassificaDiGruppo.h"
#include "supporto/ProgrammaDiProva.h"
#include "supporto/ProvaFinestre.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

// What holds for every window of an event and of its crews.
class tst_Tastiera final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void invioTenuto();
    void lettere();

private:
    std::unique_ptr<ProgrammaDiProva> m_programma;
    QList<Finestra*> m_finestre;
};

namespace {

template <typename... Finestre>
QList<Finestra*> apri() {
    return {new Finestre...};
}

template <typename Modifica>
Modifica* aperta(int chiave) {
    auto* finestra = new Modifica;
    finestra->carica(chiave);
    return finestra;
}

// Where a mnemonic leads: its button, the buddy of its label, a box of controls.
QWidget* meta(QWidget* controllo) {
    const auto* etichetta = qobject_cast<QLabel*>(controllo);
    return etichetta ? etichetta->buddy() : controllo;
}

QString lettera(const QWidget* controllo) {
    const char* testo = controllo->inherits("QGroupBox") ? "title" : "text";
    const bool puo = controllo->inherits("QLabel") || controllo->inherits("QAbstractButton") ||
                     controllo->inherits("QGroupBox");
    return puo ? QKeySequence::mnemonic(controllo->property(testo).toString()).toString() : QString();
}

}  // namespace

void tst_Tastiera::init() {
    m_programma = std::make_unique<ProgrammaDiProva>();
    nuovaManifestazione({{"RagAuto", 1}});
    // Two groups that hold the crew's year: it is in the one that a passing by would not choose.
    QList<int> gruppi;
    for (const char* nome : {"A", "B"}) {
        gruppi << inserisciRiga(
            "Raggruppamenti",
            {{"IDMan_FK", IDMan}, {"Nom", nome}, {"Fat", 1}, {"DAAnn", 1900}, {"AAnn", 1999}});
    }
    const int squadra = inserisciRiga("Squadre", {{"IDMan_FK", IDMan}, {"Nom", "S"}});
    const int prova = nuovaProva();
    nuovoEquipaggio(1, {{"Mar", "Lancia"}, {"IDGru_FK", gruppi[1]}, {"Ann", 1955}});
    nuovoEquipaggio(2);
    m_finestre = apri<frmModuloIscrizioni, frmRicercaAnagrafica, frmCambiaManifestazione,
                      frmModificaManifestazione, frmModificaGruppo, frmNuovaManifestazione,
                      frmNuovaManifestazione2, frmNuovaManifestazione2Bis, frmNuovaManifestazione3,
                      frmNuovaManifestazione4, frmProveSvolte, frmUtilityPMI, frmClassificaDiGruppo>();
    m_finestre << aperta<frmModificaGruppo>(gruppi[0]) << aperta<frmModificaProva>(prova)
               << aperta<frmModificaSquadra>(squadra);
}

void tst_Tastiera::cleanup() {
    qDeleteAll(m_finestre);
    m_programma.reset();
}

void tst_Tastiera::invioTenuto() {
    const int scritte = leggiValore("SELECT total_changes()")->toInt();
    for (Finestra* finestra : std::as_const(m_finestre)) {
        finestra->show();
        QVERIFY(QTest::qWaitForWindowActive(finestra));
        const QList<QWidget*> controlli = finestra->findChildren<QWidget*>();
        for (QWidget* campo : controlli) {
            if (!campo->isEnabled() || !campo->isVisible() ||
                !(campo->inherits("QLineEdit") || campo->inherits("QComboBox") ||
                  campo->inherits("QCheckBox")))
                continue;
            campo->setFocus();
            for (int passo = 0; passo < 100; ++passo) {
                QKeyEvent invio(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", passo > 0);
                QApplication::sendEvent(QApplication::focusWidget(), &invio);
            }
            QVERIFY2(finestra->isVisible(), qPrintable(campo->objectName()));
        }
        // Nor has anything been loaded, added or chosen meanwhile that leaving would write.
        if (!finestra->inherits("PaginaGuidata")) {
            QTest::keyClick(finestra, Qt::Key_Escape);
            QVERIFY2(!finestra->isVisible(), qPrintable(finestra->objectName()));
        }
        finestra->hide();
    }
    QCOMPARE(leggiValore("SELECT total_changes()")->toInt(), scritte);
    QVERIFY(m_programma->dialoghi.finite());
}

void tst_Tastiera::lettere() {
    for (Finestra* finestra : std::as_const(m_finestre)) {
        QHash<QString, QWidget*> mete;
        const QList<QWidget*> controlli = finestra->findChildren<QWidget*>();
        for (QWidget* controllo : controlli) {
            const QString sua = lettera(controllo);
            const QString dove = finestra->objectName() + ' ' + controllo->objectName();
            QVERIFY2(!mete.contains(sua), qPrintable(dove));
            if (!sua.isEmpty() && !controllo->isHidden())
                mete[sua] = meta(controllo);
            const auto* pulsante = qobject_cast<QPushButton*>(controllo);
            QVERIFY2(!pulsante || !pulsante->shortcut().isEmpty(), qPrintable(dove));
        }
        const QList<QWidget*> raggiunti = mete.values();
        for (const QWidget* controllo : controlli) {
            if (!controllo->inherits("QTreeWidget") && !controllo->inherits("QGroupBox"))
                continue;
            // By its own letter, by that of its box, or of what the box holds.
            const bool raggiunto = std::ranges::any_of(raggiunti, [&](const QWidget* meta) {
                return meta == controllo || controllo->isAncestorOf(meta) ||
                       (controllo->inherits("QTreeWidget") && meta == controllo->parentWidget());
            });
            const QList<QWidget*> suoi = controllo->findChildren<QWidget*>();
            const bool serve =
                controllo->inherits("QTreeWidget") || std::ranges::any_of(suoi, [](const QWidget* suo) {
                    return (suo->focusPolicy() & Qt::TabFocus) != 0;
                });
            QVERIFY2(raggiunto || !serve, qPrintable(finestra->objectName() + ' ' + controllo->objectName()));
        }
    }
}

PROVA_FINESTRE(tst_Tastiera)
#include "tst_Tastiera.moc"

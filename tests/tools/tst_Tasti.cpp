#include "common/frmAiuto.h"
#include "supporto/AnteprimaDiProva.h"
#include "supporto/CatalogoFinestre.h"
#include "supporto/ProvaFinestre.h"

#include <algorithm>
#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QDirIterator>
#include <QGraphicsView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

// The table of keys that the help is made of: each row is tried on its window. The last column says how:
//   steps => what is seen, the steps parted by "; "
//   altrove <test>: what the window alone cannot show, and the test that does.
class tst_Tasti final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ogniFinestra();
    void tasti_data();
    void tasti();

private:
    static void provaRiga(const QString& finestra, const QString& tasto, int posto, const QString& prova);
};

namespace {

struct Riga {
    QString finestra, tasti, effetto, prova;
};

QList<Riga> tabella() {
    QFile file(TABELLA_TASTI);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s", TABELLA_TASTI);
    QList<Riga> righe;
    for (const QString& riga : QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts).mid(1)) {
        const QStringList campi = riga.split('\t');
        righe << Riga{campi.value(0), campi.value(1), campi.value(2), campi.value(3)};
    }
    return righe;
}

QKeyCombination combinazione(QString nome) {
    static const QHash<QString, QString> nomi{
        {"Maiusc", "Shift"}, {"PagGiù", "PgDown"}, {"PagSu", "PgUp"},   {"Inizio", "Home"}, {"Fine", "End"},
        {"Canc", "Del"},     {"Invio", "Return"},  {"Spazio", "Space"}, {"Su", "Up"},       {"Giù", "Down"},
        {"Destra", "Right"}, {"Sinistra", "Left"}, {"cifre", "7"}};
    const QStringList parti = nome.split('+', Qt::SkipEmptyParts);
    for (const QString& parte : parti)
        nome.replace(parte, nomi.value(parte, parte));
    if (nome == "Shift+Tab")
        return Qt::SHIFT | Qt::Key_Backtab;  // as a keyboard sends it
    return QKeySequence(nome, QKeySequence::PortableText)[0];
}

class Banco final {
public:
    explicit Banco(const QString& nome) {
        const auto catalogo = catalogoFinestre();
        const auto voce = std::ranges::find_if(catalogo, [&](const auto& v) { return nome == v.nome; });
        finestra = voce->crea();
        impostaFileAiuto(FILE_AIUTO);
        finestra->show();
        attiva = QTest::qWaitForWindowActive(finestra.get());
        QObject::connect(&m_occhio, &QTimer::timeout, finestra.get(), [this] { guarda(); });
        m_occhio.start(10);
    }

    template <typename Cosa = QWidget>
    [[nodiscard]] Cosa* trova(const QString& nome) const {
        auto* trovata = finestra->findChild<Cosa*>(nome);
        if (!trovata)
            throw std::runtime_error("no " + nome.toStdString());
        return trovata;
    }
    [[nodiscard]] const QAbstractItemView* vista(const QString& nome) const {
        return trova<QAbstractItemView>(nome);
    }

    void batti(const QString& nome) {
        QWidget* fuoco = QApplication::focusWidget() ? QApplication::focusWidget() : finestra.get();
        if (nome == "Alt") {
            QTest::keyClick(fuoco, Qt::Key_Alt);
        } else {
            const QKeyCombination tasto = combinazione(nome);
            QTest::keyClick(fuoco, tasto.key(), tasto.keyboardModifiers());
        }
    }
    void passo(const QString& verbo, const QString& resto) {
        if (verbo == "su")
            trova(resto)->setFocus(Qt::TabFocusReason);
        else if (verbo == "premi")
            trova<QAbstractButton>(resto)->click();
        else if (verbo == "tasto")
            batti(resto);
        else if (verbo == "scrivi")
            QTest::keyClicks(QApplication::focusWidget(), resto);
        else
            throw std::runtime_error("no " + verbo.toStdString());
    }

    // Whether the window shows what a row says, compared with `prima`, what it showed before the key.
    [[nodiscard]] bool siVede(const QString& verbo, const QStringList& a, const QString& prima) const;
    // What can be compared of the window's state.
    [[nodiscard]] QString stato(const QString& verbo, const QStringList& a) const;
    void ascolta(const QString& verbo, const QString& nome);

    ProgrammaPieno programma;
    AnteprimaDiProva anteprima;
    std::unique_ptr<QWidget> finestra;
    bool attiva = false;
    QStringList aperte, premuti;

private:
    // Another window that has come over this one is noted and closed.
    void guarda() {
        for (QWidget* altra : QApplication::topLevelWidgets()) {
            if (altra != finestra.get() && altra->isVisible() && altra->objectName().startsWith("frm")) {
                aperte << altra->objectName();
                altra->close();
            }
        }
    }
    QTimer m_occhio;
};

void Banco::ascolta(const QString& verbo, const QString& nome) {
    const auto premuto = [this, nome] { premuti << nome; };
    if (verbo == "preme") {
        auto* pulsante = trova<QAbstractButton>(nome);
        QObject::disconnect(pulsante, &QAbstractButton::clicked, nullptr, nullptr);
        QObject::connect(pulsante, &QAbstractButton::clicked, finestra.get(), premuto);
    } else if (verbo == "aziona") {
        auto* azione = trova<QAction>(nome);
        QObject::disconnect(azione, &QAction::triggered, nullptr, nullptr);
        QObject::connect(azione, &QAction::triggered, finestra.get(), premuto);
    }
}

QString Banco::stato(const QString& verbo, const QStringList& a) const {
    if (verbo == "scorre")
        return QString::number(finestra->findChild<QGraphicsView*>()->verticalScrollBar()->value());
    if (verbo == "segnato")
        return QString::number(trova<QAbstractButton>(a.at(0))->isChecked());
    if (verbo == "muove") {
        const QModelIndex corrente = vista(a.at(0))->currentIndex();
        return QStringLiteral("%1 %2 %3")
            .arg(corrente.row())
            .arg(corrente.column())
            .arg(corrente.parent().row());
    }
    if (verbo != "segno")
        return {};
    const QModelIndex riga = vista(a.at(0))->model()->index(a.at(1).toInt(), 0);
    QStringList segni;
    for (int colonna = 0; colonna < riga.model()->columnCount(); ++colonna)
        segni << riga.siblingAtColumn(colonna).data(Qt::CheckStateRole).toString();
    return segni.join(',');
}

bool Banco::siVede(const QString& verbo, const QStringList& a, const QString& prima) const {
    const QWidget* fuoco = QApplication::focusWidget();
    const auto* editor = qobject_cast<const QLineEdit*>(fuoco);
    const auto* pagine = finestra->findChild<QPrintPreviewWidget*>();
    const auto& scatole = const_cast<ProgrammaPieno&>(programma).dialoghi().viste();
    const QString tutto = a.join(' ');
    const auto corrente = [&] { return vista(a.at(0))->currentIndex(); };
    const auto cambiato = [&] { return stato(verbo, a) != prima; };
    const QHash<QString, std::function<bool()>> verbi{
        {"fuoco", [&] { return fuoco && fuoco->objectName() == tutto; }},
        {"chiusa", [&] { return !finestra->isVisible(); }},
        {"resta", [&] { return finestra->isVisible() && aperte.isEmpty() && scatole.isEmpty(); }},
        {"apre", [&] { return aperte.contains(tutto); }},
        {"preme", [&] { return premuti.contains(tutto); }},
        {"aziona", [&] { return premuti.contains(tutto); }},
        {"chiede",
         [&] {
             return std::ranges::any_of(scatole,
                                        [&](const auto& s) { return tutto == "*" || s.titolo == tutto; });
         }},
        {"testo", [&] { return trova<QLineEdit>(a.at(0))->text() == a.mid(1).join(' '); }},
        {"riga", [&] { return corrente().row() == a.at(1).toInt(); }},
        {"cella",
         [&] { return corrente().row() == a.at(1).toInt() && corrente().column() == a.at(2).toInt(); }},
        {"righe", [&] { return vista(a.at(0))->model()->rowCount() == a.at(1).toInt(); }},
        {"scelta", [&] { return vista(a.at(0))->selectionModel()->hasSelection(); }},
        {"muove", cambiato},
        {"segno", cambiato},
        {"segnato", cambiato},
        {"scorre", [&] { return (stato(verbo, a).toInt() - prima.toInt()) * tutto.toInt() > 0; }},
        {"pagina", [&] { return pagine->currentPage() == (tutto == "prima" ? 1 : pagine->pageCount()); }},
        {"scrive",
         [&] {
             return editor && editor->parent()->parent()->inherits("QAbstractItemView") &&
                    (a.isEmpty() || editor->text() == tutto);
         }},
        {"menu",
         [&] {
             const QAction* voce = finestra->findChild<QMenuBar*>()->activeAction();
             return voce && (a.isEmpty() || voce->text() == tutto);
         }},
        {"stampa", [&] { return !anteprima.mostrati.isEmpty(); }},
    };
    if (!verbi.contains(verbo))
        throw std::runtime_error("no " + verbo.toStdString());
    return verbi.value(verbo)();
}

bool senzaGuida(const QString& finestra) {
    return finestra == "frmAiuto" || finestra == "frmMSG" || finestra == "Scatola";
}

}  // namespace

// A new window says its keys.
void tst_Tasti::ogniFinestra() {
    const QList<Riga> righe = tabella();
    for (const FinestraInCatalogo& finestra : catalogoFinestre()) {
        const QString nome = finestra.nome;
        QVERIFY2(nome == "frmMSG" || std::ranges::find(righe, nome, &Riga::finestra) != righe.end(),
                 finestra.nome);
    }
}

void tst_Tasti::tasti_data() {
    QTest::addColumn<QString>("finestra");
    QTest::addColumn<QString>("tasto");
    QTest::addColumn<int>("posto");
    QTest::addColumn<QString>("prova");
    for (const Riga& riga : tabella()) {
        QStringList finestre{riga.finestra};
        if (riga.finestra == "*") {
            finestre.clear();
            for (const FinestraInCatalogo& voce : catalogoFinestre())
                finestre << QStringList(senzaGuida(voce.nome) ? QStringList() : QStringList(voce.nome));
        }
        const QStringList tasti = riga.tasti.split(", ");
        for (const QString& finestra : finestre) {
            for (qsizetype i = 0; i < tasti.size(); ++i)
                QTest::addRow("%s, %s: %s", qPrintable(finestra), qPrintable(tasti[i]),
                              qPrintable(riga.effetto))
                    << finestra << tasti[i] << static_cast<int>(i) << riga.prova;
        }
    }
}

void tst_Tasti::tasti() {
    QFETCH(const QString, finestra);
    QFETCH(const QString, tasto);
    QFETCH(const int, posto);
    QFETCH(const QString, prova);
    if (prova.startsWith("altrove ")) {
        QDirIterator dove(CARTELLA_PROVE, {prova.section(' ', 1) + ".cpp"}, QDir::Files,
                          QDirIterator::Subdirectories);
        QVERIFY2(dove.hasNext(), qPrintable(prova));
        return;
    }
    try {
        provaRiga(finestra, tasto, posto, prova);
    } catch (const std::exception& errore) {
        QFAIL(errore.what());
    }
}

void tst_Tasti::provaRiga(const QString& finestra, const QString& tasto, int posto, const QString& prova) {
    Banco banco(finestra);
    QVERIFY(banco.attiva);
    for (const QString& passo : prova.section("=>", 0, 0).split("; ", Qt::SkipEmptyParts)) {
        if (!passo.trimmed().isEmpty())
            banco.passo(passo.trimmed().section(' ', 0, 0), passo.trimmed().section(' ', 1));
    }
    QStringList atteso = prova.section("=> ", 1).split(' ');
    const QString verbo = atteso.takeFirst();
    if (verbo == "lettere") {
        for (const auto* pulsante : banco.finestra->findChildren<QPushButton*>()) {
            const QString lettera = QKeySequence::mnemonic(pulsante->text()).toString();
            if (lettera.isEmpty() || !pulsante->isVisible() || !pulsante->isEnabled())
                continue;
            banco.ascolta("preme", pulsante->objectName());
            banco.batti(lettera);
            QTRY_VERIFY2(banco.premuti.contains(pulsante->objectName()), qPrintable(lettera));
        }
        return;
    }
    // One for each of the row's keys.
    if (verbo == "preme")
        atteso = {atteso.at(std::min<qsizetype>(posto, atteso.size() - 1))};
    banco.ascolta(verbo, atteso.join(' '));
    const QString prima = banco.stato(verbo, atteso);
    QVERIFY2(verbo == "resta" || !banco.siVede(verbo, atteso, prima), "it is so before the key");
    banco.batti(tasto);
    QTRY_VERIFY2_WITH_TIMEOUT(banco.siVede(verbo, atteso, prima), qPrintable(prova), 2000);
}

PROVA_FINESTRE(tst_Tasti)
#include "tst_Tasti.moc"

#include "common/frmAiuto.h"

#include "archive/ErroreArchivio.h"
#include "ui_frmAiuto.h"

#include <QFile>
#include <QResource>

using namespace Qt::StringLiterals;

namespace {

QString fileAiuto;
bool registrato = false;

QString pagina(const QString& finestra) {
    return u"/aiuto/%1.html"_s.arg(finestra);
}

}  // namespace

void impostaFileAiuto(const QString& percorso) {
    if (registrato)
        QResource::unregisterResource(fileAiuto);
    registrato = false;
    fileAiuto = percorso;
}

frmAiuto::frmAiuto(QWidget* padre) : QDialog(padre), m_ui(std::make_unique<Ui::frmAiuto>()) {
    m_ui->setupUi(this);
    connect(m_ui->cmdIndietro, &QPushButton::clicked, m_ui->txtPagina, &QTextBrowser::backward);
    connect(m_ui->cmdIndice, &QPushButton::clicked, this, [this] { mostraPagina(u"index"_s); });
    connect(m_ui->cmdEsci, &QPushButton::clicked, this, &QDialog::close);
    connect(m_ui->txtPagina, &QTextBrowser::backwardAvailable, m_ui->cmdIndietro, &QPushButton::setEnabled);
    m_ui->cmdIndietro->setEnabled(false);
}

frmAiuto::~frmAiuto() = default;

void frmAiuto::mostraPagina(const QString& finestra) {
    // Read at the first F1, not at start: the help must not delay the main window.
    registrato = registrato || QResource::registerResource(fileAiuto);
    if (!registrato)
        throw Errore(u"Il file della guida non si può leggere:\n%1"_s.arg(fileAiuto));
    // The browser takes no style sheet from a plain link of the page.
    QFile stile(u":/aiuto/stile.css"_s);
    if (stile.open(QIODevice::ReadOnly))
        m_ui->txtPagina->document()->setDefaultStyleSheet(QString::fromUtf8(stile.readAll()));
    const QString trovata = QFile::exists(u':' + pagina(finestra)) ? finestra : u"index"_s;
    m_ui->txtPagina->setSource(QUrl(u"qrc"_s + u':' + pagina(trovata)));
    show();
    raise();
    activateWindow();
}

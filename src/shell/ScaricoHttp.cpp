#include "shell/ScaricoHttp.h"

#include <QCoreApplication>
#include <QNetworkProxy>
#include <QSslSocket>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimoRinvii = 3;
constexpr int Ottimo = 200;
constexpr int PrimoRinvio = 300;
constexpr int DopoIRinvii = 400;
constexpr qsizetype PesoDeiPezzi = 8;      // in chunks of one byte each, every byte weighs six
constexpr qint64 MassimoInAttesa = 65536;  // bytes that a line holds unread

bool sicuro(const QUrl& indirizzo) {
    return indirizzo.scheme() == u"https";
}

bool raggiungibile(const QUrl& indirizzo) {
    return indirizzo.isValid() && !indirizzo.host().isEmpty() &&
           (sicuro(indirizzo) || indirizzo.scheme() == u"http");
}

QByteArray testoDomanda(const QUrl& indirizzo) {
    constexpr auto Tutto = QUrl::FullyEncoded;
    QByteArray risorsa = indirizzo.path(Tutto).toLatin1();
    if (risorsa.isEmpty())
        risorsa = "/";
    if (indirizzo.hasQuery())
        risorsa += '?' + indirizzo.query(Tutto).toLatin1();
    return "GET " + risorsa +
           " HTTP/1.1\r\nHost: " + indirizzo.adjusted(QUrl::RemoveUserInfo).authority(Tutto).toLatin1() +
           "\r\nUser-Agent: Velmora/" + QCoreApplication::applicationVersion().toLatin1() +
           "\r\nAccept-Encoding: identity\r\nCache-Control: no-cache\r\nConnection: close\r\n\r\n";
}

}  // namespace

ScaricoHttp::~ScaricoHttp() {
    chiudiLinea();
}

void ScaricoHttp::avvia(const QUrl& indirizzo, qsizetype massimo, std::chrono::milliseconds attesa) {
    m_massimo = massimo;
    m_scadenza.setSingleShot(true);
    connect(&m_scadenza, &QTimer::timeout, this, [this] { concludi(false); });
    m_scadenza.start(attesa);
    collega(indirizzo);
}

std::optional<QByteArray> ScaricoHttp::file() const {
    return m_riuscito ? std::optional(m_risposta->corpo()) : std::nullopt;
}

void ScaricoHttp::collega(const QUrl& indirizzo) {
    chiudiLinea();
    if (!raggiungibile(indirizzo)) {
        concludi(false);
        return;
    }
    constexpr int PortaHttp = 80;
    constexpr int PortaHttps = 443;
    m_indirizzo = indirizzo;
    m_risposta.emplace(m_massimo, m_massimo * PesoDeiPezzi);
    auto* cifrata = sicuro(indirizzo) ? new QSslSocket(this) : nullptr;
    m_linea = cifrata ? cifrata : new QTcpSocket(this);
    m_linea->setReadBufferSize(MassimoInAttesa);
    m_linea->setProxy(QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(indirizzo)).value(0));
    connect(m_linea, &QTcpSocket::readyRead, this, &ScaricoHttp::ricevi);
    connect(m_linea, &QTcpSocket::errorOccurred, this, [this](QAbstractSocket::SocketError errore) {
        if (errore != QAbstractSocket::RemoteHostClosedError)
            concludi(false);
    });
    connect(m_linea, &QTcpSocket::disconnected, this, [this] {
        const QTcpSocket* questa = m_linea;
        ricevi();
        if (m_linea == questa && !m_finito)  // and not one to where the server sent
            esamina(m_risposta->chiusa());
    });
    if (cifrata) {
        connect(cifrata, &QSslSocket::encrypted, this, &ScaricoHttp::domanda);
        cifrata->connectToHostEncrypted(indirizzo.host(), static_cast<quint16>(indirizzo.port(PortaHttps)));
    } else {
        connect(m_linea, &QTcpSocket::connected, this, &ScaricoHttp::domanda);
        m_linea->connectToHost(indirizzo.host(), static_cast<quint16>(indirizzo.port(PortaHttp)));
    }
}

// Often called from within the line's own signals: it must not go at once.
void ScaricoHttp::chiudiLinea() {
    if (!m_linea)
        return;
    m_linea->disconnect(this);
    m_linea->abort();
    m_linea->deleteLater();
    m_linea = nullptr;
}

void ScaricoHttp::domanda() {
    m_linea->write(testoDomanda(m_indirizzo));
}

void ScaricoHttp::ricevi() {
    while (m_linea && !m_finito && m_linea->bytesAvailable() > 0)
        esamina(m_risposta->aggiungi(m_linea->read(MassimoInAttesa)));
}

void ScaricoHttp::esamina(RispostaHttp::Stato stato) {
    if (stato == RispostaHttp::Stato::InArrivo)
        return;
    const int codice = m_risposta->codice();
    if (stato == RispostaHttp::Stato::Intera && codice >= PrimoRinvio && codice < DopoIRinvii) {
        segui();
    } else {
        concludi(stato == RispostaHttp::Stato::Intera && codice == Ottimo);
    }
}

void ScaricoHttp::segui() {
    const QUrl dove = m_indirizzo.resolved(QUrl::fromEncoded(m_risposta->destinazione()));
    const bool menoSicuro = sicuro(m_indirizzo) && !sicuro(dove);
    if (m_risposta->destinazione().isEmpty() || menoSicuro || ++m_rinvii > MassimoRinvii) {
        concludi(false);
    } else {
        collega(dove);
    }
}

void ScaricoHttp::concludi(bool riuscito) {
    if (m_finito)
        return;
    m_finito = true;
    m_riuscito = riuscito;
    m_scadenza.stop();
    chiudiLinea();
    Q_EMIT concluso();
}

#include "shell/ScaricoHttp.h"

#include <curl/curl.h>
#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr long MassimoRinvii = 3;
constexpr long Trovato = 200;  // the one HTTP status that brings the file
constexpr std::chrono::milliseconds Battito{10};

}  // namespace

struct ScaricoHttp::Trasferimento {
    Trasferimento() {
        static const CURLcode Libreria = curl_global_init(CURL_GLOBAL_DEFAULT);
        Q_UNUSED(Libreria)
        linea = curl_easy_init();
        tutti = curl_multi_init();
    }
    Q_DISABLE_COPY_MOVE(Trasferimento)
    ~Trasferimento() {
        curl_multi_remove_handle(tutti, linea);
        curl_easy_cleanup(linea);
        curl_multi_cleanup(tutti);
    }

    // The library's callbacks: fewer bytes than came end the transfer.
    static std::size_t testata(const char* /*dati*/, std::size_t uno, std::size_t byte, void* contesto) {
        auto& questo = *static_cast<Trasferimento*>(contesto);
        const std::size_t arrivati = uno * byte;
        questo.testate += static_cast<qsizetype>(arrivati);
        return questo.testate <= questo.massimo ? arrivati : 0;
    }
    static std::size_t contenuto(const char* dati, std::size_t uno, std::size_t byte, void* contesto) {
        auto& questo = *static_cast<Trasferimento*>(contesto);
        const std::size_t arrivati = uno * byte;
        questo.ricevuti.append(dati, static_cast<qsizetype>(arrivati));
        return questo.ricevuti.size() <= questo.massimo ? arrivati : 0;
    }

    template <typename Valore>
    void imposta(CURLoption opzione, Valore valore) {
        curl_easy_setopt(linea, opzione, valore);
    }

    CURL* linea = nullptr;
    CURLM* tutti = nullptr;
    qsizetype massimo = 0;
    qsizetype testate = 0;
    QByteArray ricevuti;
};

ScaricoHttp::ScaricoHttp() : m_trasferimento(std::make_unique<Trasferimento>()) {
    connect(&m_battito, &QTimer::timeout, this, &ScaricoHttp::avanza);
}

ScaricoHttp::~ScaricoHttp() = default;

void ScaricoHttp::avvia(const QUrl& indirizzo, qsizetype massimo, std::chrono::milliseconds attesa) {
    Trasferimento& t = *m_trasferimento;
    t.massimo = massimo;
    // A server may send elsewhere, but not to where anybody could answer for it.
    const bool sicuro = indirizzo.scheme() == "https"_L1;
    t.imposta(CURLOPT_PROTOCOLS_STR, "http,https");
    t.imposta(CURLOPT_REDIR_PROTOCOLS_STR, sicuro ? "https" : "http,https");
    t.imposta(CURLOPT_FOLLOWLOCATION, 1L);
    t.imposta(CURLOPT_MAXREDIRS, MassimoRinvii);
    t.imposta(CURLOPT_TIMEOUT_MS, static_cast<long>(attesa.count()));
    t.imposta(CURLOPT_NOSIGNAL, 1L);
    t.imposta(CURLOPT_QUICK_EXIT, 1L);  // a name that is still being looked up is not waited for
    t.imposta(CURLOPT_PROXY, "");       // none from the environment
    t.imposta(CURLOPT_HEADERFUNCTION, &Trasferimento::testata);
    t.imposta(CURLOPT_HEADERDATA, &t);
    t.imposta(CURLOPT_WRITEFUNCTION, &Trasferimento::contenuto);
    t.imposta(CURLOPT_WRITEDATA, &t);
    t.imposta(CURLOPT_USERAGENT, ("Velmora/" + QCoreApplication::applicationVersion().toUtf8()).constData());
    t.imposta(CURLOPT_URL, indirizzo.toEncoded().constData());
    curl_multi_add_handle(t.tutti, t.linea);
    m_battito.start(Battito);
}

void ScaricoHttp::avanza() {
    int inCorso = 0;
    if (curl_multi_perform(m_trasferimento->tutti, &inCorso) != CURLM_OK) {
        concludi(false);
        return;
    }
    if (inCorso > 0)
        return;
    int altri = 0;
    const CURLMsg* messaggio = curl_multi_info_read(m_trasferimento->tutti, &altri);
    long stato = 0;
    curl_easy_getinfo(m_trasferimento->linea, CURLINFO_RESPONSE_CODE, &stato);
    concludi(messaggio && messaggio->data.result == CURLE_OK && stato == Trovato);
}

void ScaricoHttp::concludi(bool riuscito) {
    m_battito.stop();
    m_finito = true;
    if (riuscito)
        m_file = m_trasferimento->ricevuti;
    m_trasferimento.reset();
    Q_EMIT concluso();
}

#include "output/Pittore.h"

#include "archive/ErroreArchivio.h"

#include <algorithm>
#include <QBuffer>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr double MargineFoglio = 28;  // points, about 1 cm
constexpr double CorpoTabella = 9;
constexpr double CorpoFondo = 7.5;
constexpr double PassoFondo = CorpoFondo * 1.3;
constexpr double CorpoVoci = 9.5;
constexpr double CorpoPrimaVoce = 12;
constexpr double CorpoPiede = 9.5;
constexpr double AltezzaPiede = CorpoPiede * 1.75;
constexpr qsizetype RigheEsclusiAlFondo = 5;  // beyond these they would crowd the rows out of every page

constexpr double AriaScheda = 6;  // between a card's heading and its rows
constexpr double MinimoTesta = 0.55;
constexpr double MinimoVoci = 0.65;
constexpr qsizetype RigheTesta = 2;  // a head gets smaller rather than longer than these

double altezzaPiedeGruppo(const GruppoRapporto& gruppo) {
    return gruppo.piede.isEmpty() ? 0 : static_cast<double>(gruppo.piede.size()) * AltezzaPiede + 8;
}

// The group's own cells where it goes on.
QStringList celleSeguito(const GruppoRapporto& gruppo) {
    QStringList celle = gruppo.celle;
    celle.last() += u" (segue)"_s;
    return celle;
}

}  // namespace

Pittore::Pittore(const Rapporto& rapporto, QSizeF foglio)
    : m_rapporto(rapporto), m_larghezza(foglio.width()), m_altezza(foglio.height()) {
    const bool fitta =
        std::ranges::any_of(rapporto.colonne, [](const auto& c) { return !c.sopra.isEmpty(); });
    QList<Tavola::Campione> campione;  // everything that must fit under one head
    QList<Tavola::Campione> gruppi;
    for (const GruppoRapporto& gruppo : rapporto.gruppi) {
        for (const QStringList& riga : gruppo.righe)
            campione.append({&riga});
        for (const RigaPiede& piede : gruppo.piede)
            campione.append({&piede.valori, &caratterePiede(piede)});
        gruppi.append({&gruppo.celle});
    }
    m_tavola = std::make_unique<Tavola>(
        rapporto.colonne, campione, m_larghezza,
        Tavola::Aspetto{
            .corpo = CorpoTabella, .minore = !rapporto.colonneGruppo.isEmpty(), .verticali = fitta},
        m_caratteri);
    if (!rapporto.colonneGruppo.isEmpty()) {
        m_tavolaGruppo = std::make_unique<Tavola>(rapporto.colonneGruppo, gruppi, m_larghezza,
                                                  Tavola::Aspetto{.corpo = 11, .gruppo = true}, m_caratteri);
    }
    m_testaIntera = componiTestaIntera();
    m_testaBreve = componiTestaBreve();
    // A number does not part from its "N.".
    const QString esclusi = rapporto.etichetta(u"lblEsc"_s).replace(u" N. "_s, u" N.\u00A0"_s);
    m_esclusi = m_caratteri.carattere(CorpoFondo).spezza(esclusi, m_larghezza);
    m_esclusiInCoda = m_esclusi.size() > RigheEsclusiAlFondo;
    m_pagine = impagina(ingombri());
}

double Pittore::altezzaTesta(bool intera) const {
    const double gruppo = m_tavolaGruppo ? m_tavolaGruppo->altezzaTestata() + 2 : 0;
    return (intera ? m_testaIntera : m_testaBreve).altezza() + gruppo;
}

double Pittore::altezzaFondo() const {
    return PassoFondo * static_cast<double>(1 + (m_esclusiInCoda ? 0 : m_esclusi.size())) + 8;
}

Ingombri Pittore::ingombri() {
    Ingombri risultato;
    risultato.primaPagina = m_altezza - altezzaTesta(true) - altezzaFondo();
    risultato.altraPagina = m_altezza - altezzaTesta(false) - altezzaFondo();
    risultato.paginaPerGruppo = m_rapporto.paginaPerGruppo;
    risultato.fraGruppi = 8;
    for (const GruppoRapporto& gruppo : m_rapporto.gruppi) {
        IngombroGruppo ingombro{.testata = m_tavola->altezzaTestata()};
        if (m_tavolaGruppo) {
            ingombro.testa = m_tavolaGruppo->altezzaRiga(gruppo.celle) + 2;
            ingombro.testaSeguito = m_tavolaGruppo->altezzaRiga(celleSeguito(gruppo)) + 2;
        }
        if (!gruppo.testa.isEmpty()) {
            ingombro.testa = componiTestaScheda(gruppo).altezza();
            ingombro.testaSeguito = componiSeguito(gruppo).altezza();
        }
        for (const QStringList& riga : gruppo.righe)
            ingombro.righe << m_tavola->altezzaRiga(riga);
        ingombro.piede = altezzaPiedeGruppo(gruppo);
        risultato.gruppi << ingombro;
    }
    if (risultato.gruppi.isEmpty() && !m_tavolaGruppo)
        risultato.gruppi << IngombroGruppo{.testata = m_tavola->altezzaTestata()};
    if (m_esclusiInCoda) {
        risultato.coda = QList<double>(m_esclusi.size(), PassoFondo);
        risultato.coda.prepend(6);  // apart from the rows
    }
    return risultato;
}

void Pittore::disegna(QPainter& pittore, double puntiPerPollice, qsizetype numero) {
    Penna penna(pittore, puntiPerPollice);
    const Pagina& pagina = m_pagine.at(numero);
    (pagina.testaIntera ? m_testaIntera : m_testaBreve).disegna(penna, 0);
    const double alto = altezzaTesta(pagina.testaIntera);
    if (m_tavolaGruppo)
        m_tavolaGruppo->disegnaTestata(penna, alto - m_tavolaGruppo->altezzaTestata() - 2);
    for (const Elemento& elemento : pagina.elementi)
        disegnaElemento(penna, elemento, alto + elemento.y);
    disegnaFondo(penna, numero);
}

QString Pittore::dicituraETesto(const QString& nome) const {
    const auto trovata = std::ranges::find(m_rapporto.etichette, nome, &Etichetta::nome);
    if (trovata == m_rapporto.etichette.cend())
        return {};
    return trovata->dicitura.isEmpty() ? trovata->testo : trovata->dicitura + u' ' + trovata->testo;
}

Blocco Pittore::componiTestaIntera() {
    const QString titolo = dicituraETesto(u"lblTitolo"_s) + dicituraETesto(u"lblNomeManifestazione"_s);
    const QString club = dicituraETesto(u"lblClub"_s);
    const Carattere& piccolo = m_caratteri.carattere(10);
    const TestoAdatto data =
        m_caratteri.adatta(dicituraETesto(u"lblData"_s), m_larghezza / 2, piccolo, 0.8, RigheTesta);
    double larghezzaData = 0;
    for (const QString& riga : data.righe)
        larghezzaData = std::max(larghezzaData, data.carattere->larghezza(riga));
    const double spazioNome = m_larghezza - larghezzaData - 16;
    const TestoAdatto nome =
        m_caratteri.adatta(titolo, spazioNome, m_caratteri.carattere(15, true), MinimoTesta, RigheTesta);
    Blocco testa;
    double y = testa.scrivi(nome, 0, spazioNome, Allineamento::Sinistra, 16, Colori::Titolo);
    y = std::max(
        y, testa.scrivi(data, spazioNome, m_larghezza - spazioNome, Allineamento::Destra, 16, Colori::Testo));
    if (!club.isEmpty()) {
        const TestoAdatto testo = m_caratteri.adatta(club, m_larghezza, piccolo, 0.7, RigheTesta);
        y = testa.scrivi(testo, 0, m_larghezza, Allineamento::Sinistra, y + 15, Colori::Testo) - 1;
    }
    testa.linea(0, m_larghezza, y + 7, 1.6, Colori::Titolo);
    const TestoAdatto tipo = m_caratteri.adatta(m_rapporto.etichetta(u"lblTipoClas"_s), m_larghezza,
                                                m_caratteri.carattere(13, true), MinimoTesta, RigheTesta);
    y = testa.scrivi(tipo, 0, m_larghezza, Allineamento::Centro, y + 28, Colori::Testo);
    testa.impostaAltezza(y + 12);
    return testa;
}

Blocco Pittore::componiTestaBreve() {
    const double meta = m_larghezza / 2 - 8;
    const QString nomeEvento =
        m_rapporto.etichetta(u"lblTitolo"_s) + m_rapporto.etichetta(u"lblNomeManifestazione"_s);
    const TestoAdatto titolo =
        m_caratteri.adatta(nomeEvento, meta, m_caratteri.carattere(8.5, true), 0.8, RigheTesta);
    const TestoAdatto tipo = m_caratteri.adatta(m_rapporto.etichetta(u"lblTipoClas"_s), meta,
                                                m_caratteri.carattere(8.5), 0.8, RigheTesta);
    Blocco testa;
    const double y =
        std::max(testa.scrivi(titolo, 0, meta, Allineamento::Sinistra, 9, Colori::Titolo),
                 testa.scrivi(tipo, m_larghezza - meta, meta, Allineamento::Destra, 9, Colori::Testo));
    testa.linea(0, m_larghezza, y + 5, 0.9, Colori::Titolo);
    testa.impostaAltezza(y + 11);
    return testa;
}

Blocco Pittore::componiTestaScheda(const GruppoRapporto& gruppo) {
    Blocco testa;
    double y = 4;
    for (qsizetype i = 0; i < gruppo.testa.size(); ++i)
        y = componiVoci(testa, gruppo.testa.at(i), y, i == 0 ? CorpoPrimaVoce : CorpoVoci);
    y += 4;
    testa.riempi(QRectF(0, 0, m_larghezza, y), Colori::Alterna);
    testa.riempi(QRectF(0, 0, 3, y), Colori::Titolo);
    testa.impostaAltezza(y + AriaScheda);
    return testa;
}

// Who it is, and that it is not its beginning.
Blocco Pittore::componiSeguito(const GruppoRapporto& gruppo) {
    QList<Voce> voci = gruppo.testa.first();
    voci.last().valore += u" (segue)"_s;
    Blocco testa;
    testa.impostaAltezza(componiVoci(testa, voci, 0, CorpoPrimaVoce) + 8);
    return testa;
}

double Pittore::componiVoci(Blocco& blocco, const QList<Voce>& voci, double y, double corpo) {
    double quote = 0;
    for (const Voce& voce : voci)
        quote += voce.larghezza;
    const double inizio = 10;
    double x = inizio;
    const double base = y + corpo * 1.25;
    double ultima = base;
    const Carattere& minuto = m_caratteri.carattere(CorpoVoci - 1.5);
    const Carattere& forte = m_caratteri.carattere(corpo, true);
    for (const Voce& voce : voci) {
        const double fine = x + (m_larghezza - inizio) * voce.larghezza / quote - 8;
        const TestoAdatto etichetta{&minuto, {voce.etichetta.trimmed()}};
        blocco.scrivi(etichetta, x, 0, Allineamento::Sinistra, base, Colori::Tenue);
        const double daValore = x + minuto.larghezza(etichetta.righe.first()) + 4;
        const double larghezzaCoda = voce.coda.isEmpty() ? 0 : forte.larghezza(voce.coda) + 8;
        const TestoAdatto valore =
            m_caratteri.adatta(voce.valore, fine - daValore - larghezzaCoda, forte, MinimoVoci, RigheTesta);
        ultima = std::max(ultima, blocco.scrivi(valore, daValore, fine - daValore, Allineamento::Sinistra,
                                                base, Colori::Testo));
        double daCoda = daValore;
        for (const QString& riga : valore.righe)
            daCoda = std::max(daCoda, daValore + valore.carattere->larghezza(riga) + 8);
        blocco.scrivi({&forte, {voce.coda}}, daCoda, 0, Allineamento::Sinistra, base, Colori::Testo);
        x = fine + 8;
    }
    return ultima + corpo * 0.5;
}

void Pittore::disegnaFondo(Penna& penna, qsizetype numero) {
    const Carattere& carattere = m_caratteri.carattere(CorpoFondo);
    double y = m_altezza - altezzaFondo() + 4;
    penna.linea(0, m_larghezza, y, 0.5, Colori::Filo);
    y += 2;
    if (!m_esclusiInCoda) {
        for (const QString& riga : m_esclusi) {
            penna.scrivi(carattere, 0, y + carattere.ascesa(), riga, Colori::Testo);
            y += PassoFondo;
        }
    }
    const QString pagina = numeroDiPagina(static_cast<int>(numero + 1), static_cast<int>(m_pagine.size()));
    penna.scrivi(carattere, m_larghezza - carattere.larghezza(pagina), y + carattere.ascesa(), pagina,
                 Colori::Tenue);
}

void Pittore::disegnaElemento(Penna& penna, const Elemento& elemento, double y) {
    static const GruppoRapporto Vuoto;
    const GruppoRapporto& gruppo =
        elemento.gruppo < m_rapporto.gruppi.size() ? m_rapporto.gruppi.at(elemento.gruppo) : Vuoto;
    switch (elemento.pezzo) {
        case Pezzo::Testa:
        case Pezzo::TestaSeguito:
            disegnaTestaGruppo(penna, gruppo, elemento, y);
            break;
        case Pezzo::Testata:
            m_tavola->disegnaTestata(penna, y);
            break;
        case Pezzo::Riga:
            m_tavola->disegnaRiga(penna, y, elemento.altezza, gruppo.righe.at(elemento.riga),
                                  elemento.riga % 2 == 1);
            break;
        case Pezzo::Piede:
            disegnaPiede(penna, gruppo, y);
            break;
        case Pezzo::Coda:
            disegnaCoda(penna, elemento, y);
            break;
    }
}

void Pittore::disegnaTestaGruppo(Penna& penna, const GruppoRapporto& gruppo, const Elemento& elemento,
                                 double y) {
    const bool seguito = elemento.pezzo == Pezzo::TestaSeguito;
    if (m_tavolaGruppo) {
        m_tavolaGruppo->disegnaRiga(penna, y, elemento.altezza - 2,
                                    seguito ? celleSeguito(gruppo) : gruppo.celle, false);
    } else {
        (seguito ? componiSeguito(gruppo) : componiTestaScheda(gruppo)).disegna(penna, y);
    }
}

const Carattere& Pittore::caratterePiede(const RigaPiede& piede) {
    return m_caratteri.carattere(piede.evidente ? CorpoPiede + 0.5 : CorpoPiede, piede.evidente);
}

void Pittore::disegnaPiede(Penna& penna, const GruppoRapporto& gruppo, double y) {
    double riga = y + 4;
    for (const RigaPiede& piede : gruppo.piede) {
        const Carattere& carattere = caratterePiede(piede);
        if (piede.evidente)
            penna.riempi(QRectF(0, riga, m_larghezza, AltezzaPiede + 2), Colori::Fascia);
        qsizetype prima = piede.valori.size();
        for (qsizetype i = piede.valori.size() - 1; i >= 0; --i) {
            if (piede.valori.at(i).isEmpty())
                continue;
            prima = i;
            m_tavola->disegnaCella(penna, i, riga + CorpoPiede * 0.35, piede.valori.at(i), carattere);
        }
        const double fine = prima < piede.valori.size() ? m_tavola->inizio(prima) - 12 : m_larghezza;
        const TestoAdatto testo = m_caratteri.suUnaRiga(piede.etichetta, fine, carattere, 0.8);
        penna.scrivi(*testo.carattere, fine - testo.carattere->larghezza(testo.righe.first()),
                     riga + CorpoPiede * 0.35 + carattere.ascesa(), testo.righe.first(), Colori::Testo);
        riga += AltezzaPiede;
    }
}

void Pittore::disegnaCoda(Penna& penna, const Elemento& elemento, double y) {
    if (elemento.riga == 0)
        return;  // the gap
    const Carattere& carattere = m_caratteri.carattere(CorpoFondo);
    penna.scrivi(carattere, 0, y + carattere.ascesa(), m_esclusi.at(elemento.riga - 1), Colori::Testo);
}

namespace {

// `prima` and `ultima` count from 0.
void disegnaSu(QPagedPaintDevice& dispositivo, Pittore& disegno, qsizetype prima, qsizetype ultima,
               const QString& fallito) {
    QPainter pittore;
    if (!pittore.begin(&dispositivo))
        throw Errore(fallito);
    for (qsizetype i = prima; i <= ultima; ++i) {
        if (i > prima && !dispositivo.newPage())
            throw Errore(fallito);
        disegno.disegna(pittore, dispositivo.logicalDpiX(), i);
    }
    if (!pittore.end())
        throw Errore(fallito);
}

QSizeF foglioUtile(const QPagedPaintDevice& dispositivo) {
    return dispositivo.pageLayout().paintRect(QPageLayout::Point).size();
}

}  // namespace

void impostaPagina(QPagedPaintDevice& dispositivo, const Rapporto& rapporto) {
    dispositivo.setPageLayout(QPageLayout(
        QPageSize(QPageSize::A4), rapporto.orizzontale ? QPageLayout::Landscape : QPageLayout::Portrait,
        QMarginsF(MargineFoglio, MargineFoglio, MargineFoglio, MargineFoglio), QPageLayout::Point));
}

void stampa(const Rapporto& rapporto, QPrinter& stampante) {
    Pittore disegno(rapporto, foglioUtile(stampante));
    qsizetype prima = 0;
    qsizetype ultima = disegno.pagine().size() - 1;
    if (stampante.printRange() == QPrinter::PageRange && stampante.fromPage() > 0) {
        prima = std::clamp<qsizetype>(stampante.fromPage() - 1, 0, ultima);
        ultima = std::clamp<qsizetype>(stampante.toPage() - 1, prima, ultima);
    }
    stampante.setDocName(rapporto.titoloFinestra);
    stampante.setCreator(u"Velmora"_s);
    disegnaSu(stampante, disegno, prima, ultima,
              u"La stampa non è riuscita: controllare che la stampante sia accesa e collegata."_s);
}

void scriviPdf(const Rapporto& rapporto, const QString& percorso) {
    const QString fallito = u"Impossibile scrivere il file PDF\n%1\n%2."_s;
    QBuffer contenuto;
    contenuto.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&contenuto);
        pdf.setTitle(rapporto.titoloFinestra);
        pdf.setCreator(u"Velmora"_s);
        impostaPagina(pdf, rapporto);
        Pittore disegno(rapporto, foglioUtile(pdf));
        disegnaSu(pdf, disegno, 0, disegno.pagine().size() - 1,
                  fallito.arg(percorso, u"Le pagine non si possono comporre"_s));
    }
    // Written beside and renamed: a full disk leaves an older file as it was.
    QSaveFile file(percorso);
    const bool scritto =
        file.open(QIODevice::WriteOnly) && file.write(contenuto.data()) == contenuto.size() && file.commit();
    if (!scritto)
        throw Errore(fallito.arg(percorso, file.errorString()));
}

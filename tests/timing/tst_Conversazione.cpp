#include "supporto/PorteDiProva.h"
#include "timing/Scaricamento.h"
#include "timing/Scarico.h"

#include <QTest>

class tst_Conversazione final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void passi_data();
    void passi();
    void nonSiRiapre();
    void gestoreCheFerma();
};

namespace {

using Cosa = Conversazione::Cosa;
using Stato = Conversazione::Stato;

const char* nome(Cosa cosa) {
    static constexpr const char* Nomi[] = {"apri",   "chiudi", "invia",   "arma",   "disarma",
                                           "manche", "errata", "nessuna", "arrivo", "finita"};
    return Nomi[static_cast<int>(cosa)];
}

QString passo(const Conversazione::Azioni& azioni) {
    QStringList testo;
    for (const Conversazione::Azione& azione : azioni) {
        testo << nome(azione.cosa);
        if (azione.cosa == Cosa::Invia)
            testo.last() += ' ' + QString::fromLatin1(azione.dati.trimmed());
        if (azione.cosa == Cosa::ArmaTimer)
            testo.last() += QStringLiteral(" %1").arg(azione.millisecondi);
    }
    return testo.join(", ");
}

// What happens, one word: "+" begins, "!" the timer fires, "." the operator stops, "#7" the heat, else
// characters that arrive.
QString fai(Conversazione& conversazione, const QByteArray& evento) {
    if (evento == "+")
        return passo(conversazione.inizia());
    if (evento == "!")
        return passo(conversazione.scaduto());
    if (evento == ".")
        return passo(conversazione.ferma());
    if (evento.startsWith('#'))
        return passo(conversazione.manche(QString::fromLatin1(evento.mid(1))));
    return passo(conversazione.ricevuti(evento));
}

constexpr char Dati[] = "H1\r\nH2\r\nA    1          10:00:00.00000\n";
constexpr char Avvio540[] = "apri, invia #ID, arma 5000";
constexpr char Richiesta[] = "disarma, chiudi, manche";

}  // namespace

void tst_Conversazione::passi_data() {
    QTest::addColumn<int>("dispositivo");
    QTest::addColumn<QList<QByteArray>>("eventi");
    QTest::addColumn<QStringList>("attesi");
    QTest::addColumn<int>("stato");
    const auto riga = [](const char* titolo, Dispositivo dispositivo, const QList<QByteArray>& eventi,
                         const QStringList& attesi, Stato stato) {
        QTest::newRow(titolo) << static_cast<int>(dispositivo) << eventi << attesi << static_cast<int>(stato);
    };
    const QByteArray si = frameAccettato();
    const QByteArray no = frameRifiutato();
    const QString avvio = Avvio540;
    const QString richiesta = Richiesta;

    riga("CP540, whole", Dispositivo::CP540, {"+", "SN 04711\r\n" + si, "#7", si, Dati, frameFine("7")},
         {avvio, richiesta, "apri, invia #DL_7, arma 5000", "disarma, arrivo", "", "chiudi, finita"},
         Stato::Terminata);
    riga("CP540, everything in one arrival", Dispositivo::CP540, {"+", si, "#7", si + Dati + frameFine("7")},
         {avvio, richiesta, "apri, invia #DL_7, arma 5000", "disarma, arrivo, chiudi, finita"},
         Stato::Terminata);
    riga("CP540, answers split within the checksum", Dispositivo::CP540,
         {"+", "SN 04711" + si.left(7), si.mid(7), "#7", si.left(10), si.mid(10)},
         {avvio, "", richiesta, "apri, invia #DL_7, arma 5000", "", "disarma, arrivo"}, Stato::Ricezione);
    riga("CP540, end frame split", Dispositivo::CP540,
         {"+", si, "#7", si + Dati, frameFine("7").left(6), frameFine("7").mid(6)},
         {avvio, richiesta, "apri, invia #DL_7, arma 5000", "disarma, arrivo", "", "chiudi, finita"},
         Stato::Terminata);
    riga("CP540, heat refused and asked again", Dispositivo::CP540, {"+", si, "#98", no, "#7", si},
         {avvio, richiesta, "apri, invia #DL_98, arma 5000", "disarma, chiudi, errata, manche",
          "apri, invia #DL_7, arma 5000", "disarma, arrivo"},
         Stato::Ricezione);
    riga("CP540, silent from the start", Dispositivo::CP540, {"+", "!"}, {avvio, "disarma, chiudi, nessuna"},
         Stato::Ferma);
    riga("CP540, silent after the heat", Dispositivo::CP540, {"+", si, "#7", "!"},
         {avvio, richiesta, "apri, invia #DL_7, arma 5000", "disarma, chiudi, nessuna"}, Stato::Ferma);
    riga("CP540, no watch once it sends", Dispositivo::CP540, {"+", si, "#7", si, "!", Dati},
         {avvio, richiesta, "apri, invia #DL_7, arma 5000", "disarma, arrivo", "", ""}, Stato::Ricezione);
    riga("CP540, no heat given", Dispositivo::CP540, {"+", si, "."}, {avvio, richiesta, "disarma, chiudi"},
         Stato::Ferma);
    riga("CP540, what comes outside of a conversation", Dispositivo::CP540, {si, "#7", "+", si, "stray", "!"},
         {"", "", avvio, richiesta, "", ""}, Stato::RichiestaManche);
    riga("CP540, stopped and begun again", Dispositivo::CP540, {"+", "SN 04711", ".", "+", si},
         {avvio, "", "disarma, chiudi", avvio, richiesta}, Stato::RichiestaManche);
    riga("CP520", Dispositivo::CP520, {"+", "T", "T", "!", "late"},
         {"apri", "arrivo, arma 3000", "arrivo, arma 3000", "chiudi, finita", ""}, Stato::Terminata);
    riga("CP520, waits without end", Dispositivo::CP520, {"+", "!", "."}, {"apri", "", "disarma, chiudi"},
         Stato::Ferma);
}

void tst_Conversazione::passi() {
    QFETCH(int, dispositivo);
    QFETCH(QList<QByteArray>, eventi);
    QFETCH(QStringList, attesi);
    Conversazione conversazione(static_cast<Dispositivo>(dispositivo));
    QStringList avuti;
    for (const QByteArray& evento : eventi)
        avuti << fai(conversazione, evento);
    QCOMPARE(avuti, attesi);
    QTEST(static_cast<int>(conversazione.stato()), "stato");
}

// The line goes away while the operator types the heat.
void tst_Conversazione::nonSiRiapre() {
    FabbricaDiProva fabbrica;
    Scaricamento scaricamento;
    PortaDiProva& porta = *fabbrica.ultima();
    int guasti = 0;
    connect(&scaricamento, &Scaricamento::guasta, this, [&] { ++guasti; });
    QVERIFY(scaricamento.inizia(Dispositivo::CP540, 1));
    porta.arriva(frameAccettato());
    porta.guastoInApertura = {9, "Porta Scollegata"};
    scaricamento.manche("7");
    QCOMPARE(guasti, 1);
    QCOMPARE(scaricamento.guasto().testo(), "Errore n. : 9 - Porta Scollegata");
    QCOMPARE(scaricamento.stato(), Stato::Ferma);
    porta.guastoInApertura = {};
    QVERIFY(scaricamento.inizia(Dispositivo::CP540, 1));
}

// A window that stops, or is deleted, from within a signal hears nothing more of the same arrival.
void tst_Conversazione::gestoreCheFerma() {
    FabbricaDiProva fabbrica;
    auto scaricamento = std::make_unique<Scaricamento>();
    int finiti = 0;
    connect(scaricamento.get(), &Scaricamento::datiInArrivo, this, [&] { scaricamento->ferma(); });
    connect(scaricamento.get(), &Scaricamento::finito, this, [&] { ++finiti; });
    QVERIFY(scaricamento->inizia(Dispositivo::CP540, 1));
    fabbrica.ultima()->arriva(frameAccettato());
    scaricamento->manche("7");
    fabbrica.ultima()->arriva(frameAccettato() + Dati + frameFine("7"));
    QCOMPARE(finiti, 0);
    QCOMPARE(scaricamento->stato(), Stato::Ferma);
}

QTEST_GUILESS_MAIN(tst_Conversazione)
#include "tst_Conversazione.moc"

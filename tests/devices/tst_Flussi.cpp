#include "devices/Conversazione.h"
#include "devices/Frame.h"
#include "devices/Scarico.h"
#include "supporto/ProgrammaDiProva.h"

#include <QDir>

// Recorded streams and what must be read from them, in pairs of files: <decoder>-<case>.flusso holds the
// bytes, <decoder>-<case>.atteso the expected lines. Each stream is fed whole, by groups and character by
// character.
class tst_Flussi final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void flusso_data();
    void flusso();
};

namespace {

QList<QByteArray> aPezzi(const QByteArray& flusso, qsizetype pezzo) {
    QList<QByteArray> pezzi;
    for (qsizetype i = 0; i < flusso.size(); i += pezzo)
        pezzi << flusso.mid(i, pezzo);
    return pezzi;
}

QString righe(const QList<RecordScarico>& record) {
    QString testo;
    for (const RecordScarico& r : record)
        testo += QStringLiteral("%1 %2\n").arg(r.numero).arg(r.tempo);
    return testo;
}

QString onLine(Dispositivo dispositivo, const QList<QByteArray>& pezzi) {
    RicevitoreFrame ricevitore(dispositivo);
    QString testo;
    for (const QByteArray& pezzo : pezzi) {
        for (const FrameOnLine& frame : ricevitore.aggiungi(pezzo)) {
            const std::optional<int> tempo = tempoTrascorso(dispositivo, frame.record);
            if (frame.tipo == TipoFrame::Partenza)
                testo += "partenza\n";
            else
                testo += tempo ? QStringLiteral("tempo %1\n").arg(*tempo) : QStringLiteral("errato\n");
        }
    }
    return testo + QStringLiteral("in attesa %1\n").arg(ricevitore.inAttesa());
}

QString scarico520(const QList<QByteArray>& pezzi) {
    Conversazione conversazione(Dispositivo::CP520);
    conversazione.inizia();
    for (const QByteArray& pezzo : pezzi)
        conversazione.ricevuti(pezzo);
    conversazione.scaduto();
    return righe(leggiRecord(Dispositivo::CP520, conversazione.flusso()));
}

// The first expected line names the heat that is asked for.
QString scarico540(const QList<QByteArray>& pezzi, const QByteArray& atteso) {
    using Stato = Conversazione::Stato;
    const QString prima = QString::fromLatin1(atteso.left(atteso.indexOf('\n')));
    Conversazione conversazione(Dispositivo::CP540);
    conversazione.inizia();
    conversazione.ricevuti(frameAccettato());
    conversazione.manche(prima.mid(7));
    for (const QByteArray& pezzo : pezzi)
        conversazione.ricevuti(pezzo);
    const Stato stato = conversazione.stato();
    return prima + '\n' +
           (stato == Stato::Terminata         ? righe(leggiRecord(Dispositivo::CP540, conversazione.flusso()))
            : stato == Stato::RichiestaManche ? "rifiutata\n"
            : stato == Stato::AttesaRisposta  ? "senza risposta\n"
                                              : "in ricezione\n");
}

QString identita(const QList<QByteArray>& pezzi) {
    Conversazione conversazione(Dispositivo::CP540);
    conversazione.inizia();
    for (const QByteArray& pezzo : pezzi)
        conversazione.ricevuti(pezzo);
    return conversazione.stato() == Conversazione::Stato::RichiestaManche
               ? QStringLiteral("serie %1\n").arg(conversazione.numeroDiSerie())
               : "senza risposta\n";
}

QString sincronismo(const QList<QByteArray>& pezzi) {
    // The clock takes one line at a time: its port is closed after each.
    Sincronismo orologio;
    QString testo;
    for (const QByteArray& pezzo : aPezzi(pezzi.join(), 1)) {
        if (const std::optional<int> ora = orologio.aggiungi(pezzo))
            testo += QStringLiteral("ora %1\n").arg(*ora);
    }
    return testo;
}

QString decodifica(const QString& decoder, const QList<QByteArray>& pezzi, const QByteArray& atteso) {
    return decoder == "online520"    ? onLine(Dispositivo::CP520, pezzi)
           : decoder == "online540"  ? onLine(Dispositivo::CP540, pezzi)
           : decoder == "scarico520" ? scarico520(pezzi)
           : decoder == "scarico540" ? scarico540(pezzi, atteso)
           : decoder == "identita"   ? identita(pezzi)
                                     : sincronismo(pezzi);
}

}  // namespace

void tst_Flussi::flusso_data() {
    QTest::addColumn<QString>("base");
    const QStringList flussi = QDir(FLUSSI).entryList({"*.flusso"}, QDir::Files);
    QVERIFY(!flussi.isEmpty());
    for (const QString& nome : flussi) {
        const QString base = nome.chopped(7);
        QTest::newRow(qPrintable(base)) << base;
    }
    QCOMPARE(QDir(FLUSSI).entryList({"*.atteso"}, QDir::Files).size(), flussi.size());
}

void tst_Flussi::flusso() {
    QFETCH(QString, base);
    const QByteArray flusso = leggiFile(QStringLiteral(FLUSSI "/%1.flusso").arg(base));
    const QByteArray atteso = leggiFile(QStringLiteral(FLUSSI "/%1.atteso").arg(base));
    for (const qsizetype pezzo : {flusso.size() + 1, qsizetype{7}, qsizetype{1}})
        QCOMPARE(decodifica(base.section('-', 0, 0), aPezzi(flusso, pezzo), atteso),
                 QString::fromUtf8(atteso));
}

QTEST_APPLESS_MAIN(tst_Flussi)
#include "tst_Flussi.moc"

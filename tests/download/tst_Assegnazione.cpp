#include "download/RicercaErrori.h"
#include "supporto/ProgrammaDiProva.h"

// From switches and records to readings, through the archive.
class tst_Assegnazione final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void pressostati();
    void testiERuoli();
    void posizionale();
    void salva();
    void ricerca();

private:
    void prepara() override { nuovaManifestazione(); }
};

namespace {

// Shows for what a time was cut: the class and the kind.
QString segnato(const QString& tempo, bool suaClasse, const QString& tipo) {
    return tempo.left(8) + (suaClasse ? '+' : '-') + tipo;
}

// "12@10:00:00:00", the number left out where the record has none.
QList<RecordScarico> leggi(const QString& testo) {
    QList<RecordScarico> record;
    for (const QString& parola : testo.split(' ', Qt::SkipEmptyParts))
        record << RecordScarico{parola.section('@', 0, 0).toInt(), parola.section('@', 1)};
    return record;
}

QList<EquipaggioCronometrato> unoEDue() {
    return {{101, 1, "ROSSI BIANCHI", "LANCIA APRILIA", true}, {102, 2, "VERDI NERI", "FIAT 1100", true}};
}

// Tests 1, 2... of these kinds; "+" marks a chained one.
QList<Pressostato> pressostatiDi(const QString& testo) {
    QList<ProvaCronometrata> elenco;
    for (const QString& parola : testo.split(' ')) {
        const int id = static_cast<int>(elenco.size()) + 1;
        elenco << ProvaCronometrata{id, parola.left(2), "Prova", "00:01:00",
                                    parola.endsWith('+') ? id - 1 : 0};
    }
    return elencaPressostati(elenco);
}

// The role and the test of a target or of a time.
template <typename T>
QString posto(Ruolo ruolo, const T& cosa) {
    return (ruolo == Ruolo::Start ? "S" : "A") + QString::number(cosa.idPro);
}

QString descrivi(const QList<TempoRicevuto>& tempi) {
    QStringList righe;
    for (const TempoRicevuto& t : tempi)
        righe << QStringLiteral("%1:%2=%3").arg(posto(t.ruolo, t)).arg(t.idEqu).arg(t.tempo.mid(6, 2));
    return righe.join(' ');
}

QString descrivi(const QList<ErroreScarico>& errori) {
    QStringList righe;
    for (const ErroreScarico& e : errori)
        righe << QStringLiteral("%1(%2) %3").arg(e.num).arg(e.idEqu).arg(e.testo());
    return righe.join("; ");
}

}  // namespace

void tst_Assegnazione::pressostati() {
    const std::pair<const char*, const char*> casi[] = {
        {"PA", "S1 | A1"},
        {"PA PA+ PA+", "S1 | A1,S2 | A2,S3 | A3"},
        {"PA CO PA+", "S1 | A1 | A2,S3 | A3"},
        {"CO PA CO+", "A1 | S2 | A2 | A3"},
        {"CO CO+ PA+", "A1,S2,S3 | A2,S3 | A3"},
        {"CO CO PA+", "A1,S3 | A2,S3 | A3"},
        {"CO CO+ CO+ PM+", "A1,S2,S4 | A2,S3,S4 | A3,S4 | A4"}};
    for (const auto& [prove, attese] : casi) {
        QStringList righe;
        for (const Pressostato& pressostato : pressostatiDi(prove)) {
            QStringList bersagli;
            for (const Bersaglio& b : pressostato)
                bersagli << posto(b.ruolo(), b);
            righe << bersagli.join(',');
        }
        QVERIFY2(righe.join(" | ") == attese, prove);
    }
}

// The role is read back from the text, so this name turns an arrival into a start.
void tst_Assegnazione::testiERuoli() {
    nuovaProva({{"Nom", "Re-start"}, {"Tip", "PM"}, {"Tem", "00:00:42"}});
    const Bersaglio arrivo = elencaPressostati(leggiProveCronometrate(IDMan)).last().first();
    QCOMPARE(arrivo.testo, "ARRIVO -> PM - Re-start - 00:00:42");
    QCOMPARE(arrivo.ruolo(), Ruolo::Start);
}

void tst_Assegnazione::posizionale() {
    const struct {
        bool soloPrimo;  // the number stands on the first switch's records alone
        const char *record, *tempi;
        QList<int> scartati;
    } casi[] = {{false, "", "", {}},
                {false,
                 "1@10:00:01:00 2@10:00:02:00 2@10:00:03:00 1@10:00:04:00",
                 "S1:101=01 S1:102=02 A1:102=03 A1:101=04",
                 {}},
                // The clock does not count; a third time; an unknown number; no number.
                {false, "1@10:00:09:00 1@10:00:05:00 1@10:00:03:00", "S1:101=09 A1:101=05", {1}},
                {false, "9@10:00:01:00 1@10:00:02:00 @10:00:03:00", "S1:101=02", {9, 0}},
                {true,
                 "1@10:00:01:00 @10:00:02:00 2@10:00:03:00 @10:00:04:00 @10:00:05:00",
                 "S1:101=01 A1:101=02 S1:102=03 A1:102=04",
                 {2}},
                {true, "@10:00:01:00 1@10:00:02:00", "S1:101=02", {0}},
                {true, "9@10:00:01:00 @10:00:02:00 1@10:00:03:00", "S1:101=03", {9, 9}}};
    for (const auto& [soloPrimo, record, tempi, attesi] : casi) {
        int sentiti = 0;
        const EsitoAssegnazione esito = assegnaTempi(leggi(record), unoEDue(), pressostatiDi("PA"), soloPrimo,
                                                     segnato, [&](const RecordScarico&) { ++sentiti; });
        QCOMPARE(descrivi(esito.tempi), QString(tempi));
        QCOMPARE(esito.validi, esito.tempi.size());
        QCOMPARE(sentiti, esito.validi);
        QCOMPARE(esito.previsti, 4);
        QList<int> scartati;
        for (const RecordScartato& scartato : esito.scartati)
            scartati << scartato.record.numero;
        QCOMPARE(scartati, attesi);
    }
}

// The last of two times counts; an empty one (no precision for the kind) and a crew that is not entered write
// nothing, nor does the test that was not chosen.
void tst_Assegnazione::salva() {
    const int prima = nuovaProva({{"Svo", 0}});
    nuovaProva({{"Svo", 0}});
    const int e1 = nuovoEquipaggio(1);
    const int e2 = nuovoEquipaggio(2);
    scriviRilevamento(e1, prima, "09:00:00:00", "09:01:00:00", 5);
    scriviTempRil({{prima, e1, 1, Ruolo::Arrivo, "10:00:00:01"},
                   {prima, e1, 1, Ruolo::Arrivo, "10:00:00:02"},
                   {prima, e2, 2, Ruolo::Arrivo, ""},
                   {prima, 0, 9, Ruolo::Arrivo, "10:00:00:03"}});
    salvaTempi(elencaPressostati(leggiProveCronometrate(IDMan)).mid(1, 1));
    QVERIFY(!ciSonoTempiRicevuti());
    QCOMPARE(contaRighe("Rilevamenti", "TPar='09:00:00:00' AND TArr='10:00:00:02' AND PenAgg=5"), 1);
    QCOMPARE(contaRighe("Rilevamenti", "TPar<>'' OR TArr<>''"), 1);
    QCOMPARE(contaRighe("Prove", "Svo=1"), 1);
}

// Crews 1 and 2 are entered, two switches.
void tst_Assegnazione::ricerca() {
    const struct {
        bool soloPrimo;
        const char *record, *tempi, *errori, *scartati;
    } casi[] = {
        {false, "1@10:00:01:00 1@10:00:02:00 2@10:00:03:00 2@10:00:04:00",
         "S1:101=01 A1:101=02 S1:102=03 A1:102=04", "", ""},
        {false, "1@10:00:01:00 @10:00:02:00", "S1:101=01", "1(101) Pochi Tempi; 2(102) Pochi Tempi", "0@02"},
        {false, "1@10:00:01:00 1@10:00:02:00 1@10:00:03:00 1@10:00:04:00 2@10:00:05:00 2@10:00:06:00",
         "S1:101=01 A1:101=02 S1:102=05 A1:102=06", "1(101) Troppi Tempi", "1@03 1@04"},
        {false, "9@10:00:01:00 9@10:00:02:00 9@10:00:03:00 8@10:00:01:00", "S1:0=01 A1:0=02 S1:0=01",
         "9(0) Equipaggio NON Iscritto, Troppi Tempi; 8(0) Equipaggio NON Iscritto, Pochi Tempi; "
         "1(101) Pochi Tempi; 2(102) Pochi Tempi",
         "9@03"},
        {true, "@10:00:01:00 1@10:00:02:00 @10:00:03:00 2@10:00:04:00 @10:00:05:00 @10:00:06:00",
         "S1:101=02 A1:101=03 S1:102=04 A1:102=05", "2(102) Troppi Tempi", "0@01 2@06"}};
    for (const auto& [soloPrimo, record, tempi, errori, attesi] : casi) {
        const EsitoRicerca esito = ricercaErrori(leggi(record), unoEDue(), pressostatiDi("PA"), soloPrimo,
                                                 segnato, [](const QString&) { return false; });
        QCOMPARE(descrivi(esito.tempi), QString(tempi));
        QCOMPARE(descrivi(esito.errori), QString(errori));
        QStringList scartati;
        for (const TempoScartato& t : esito.scartati)
            scartati << QStringLiteral("%1@%2").arg(t.num).arg(t.tempo.mid(6, 2));
        QCOMPARE(scartati.join(' '), QString(attesi));
    }
    // One number, two crews: nobody's.
    const EsitoRicerca gemelli =
        ricercaErrori(leggi("4@10:00:01:00 4@10:00:02:00"), {{103, 4, {}, {}}, {104, 4, {}, {}}},
                      pressostatiDi("PA"), false, segnato, [](const QString&) { return false; });
    QCOMPARE(descrivi(gemelli.errori), "4(0) Equipaggio NON Iscritto");
}

QTEST_GUILESS_MAIN(tst_Assegnazione)
#include "tst_Assegnazione.moc"

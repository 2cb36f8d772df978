#include "archive/ErroreArchivio.h"
#include "archive/Schema.h"
#include "event/ManifestazioneAttiva.h"
#include "event/NuovaManifestazione.h"
#include "supporto/ProgrammaDiProva.h"

#include <QTest>

namespace {

DatiManifestazione tuttoAcceso() {
    DatiManifestazione dati = datiIniziali();
    dati.insert({{"Nom", "Coppa d'Oro"},    {"FatAnn", "SI"},
                 {"AutoEsc", "SI"},         {"RagAuto", "SI"},
                 {"PrePA", "CENTESIMO"},    {"PrePM", "SECONDO"},
                 {"PreCO", "DECIMO"},       {"PenUniPA", "1"},
                 {"PenUniPM", "2"},         {"PenUniCO", "2,4"},
                 {"PenMaxAtt", "SI"},       {"PenMax", "300"},
                 {"PenProNonSvo", "SI"},    {"NumPenProNonSvo", "500"},
                 {"FatNoASI", "SI"},        {"NumFatNoASI", "2,5"},
                 {"TipoCO", "PAR"},         {"ASIeNONASI", "SI"},
                 {"PrePANoASI", "DECIMO"},  {"PrePMNoASI", "CENTESIMO"},
                 {"PreCONoASI", "SECONDO"}, {"PenUniPANoASI", "7"},
                 {"PenUniPMNoASI", "8"},    {"PenUniCONoASI", ""},
                 {"PenMaxNoASI", "900"}});
    return dati;
}

}  // namespace

class tst_Manifestazione final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ogniColonnaHaUnaVoce();
    void colonneSpente();
    void colonneAccese();
    void noASISenzaMassimo();
    void daEVerso();
    void vecchiaManifestazione();
    void controlliOrariAllaPartenza();
    void verifica();
    void etichette();
    void riepilogoDiTutto();
    void salvataggioSenzaSpazio();
    void elencoEdEliminazione();
    void eliminazioneRifiutata();
};

void tst_Manifestazione::ogniColonnaHaUnaVoce() {
    QStringList colonne;
    for (const VoceManifestazione& voce : vociManifestazione())
        colonne << voce.colonna;
    for (const Colonna& colonna : trovaTabella(u"Manifestazioni")->colonne)
        QCOMPARE(colonne.count(colonna.nome), QString(colonna.nome) == "IDMan" ? 0 : 1);
}

void tst_Manifestazione::colonneSpente() {
    const ProgrammaDiProva programma;
    const DatiManifestazione iniziali = datiIniziali();
    QVariantMap nuova = colonneManifestazione(iniziali, Scrittura::Nuova);
    const QVariantMap attese{{"Nom", ""},
                             {"Loc", ""},
                             {"Clu", ""},
                             {"DaDat", "14/06/2026"},
                             {"ADat", "14/06/2026"},
                             {"DatVer", "14/06/2026"},
                             {"FatAnn", 0},
                             {"AutoEsc", 0},
                             {"RagAuto", 0},
                             {"PrePA", "MIN"},
                             {"PrePM", "MIN"},
                             {"PreCO", "MIN"},
                             {"PenUniPA", 0LL},
                             {"PenUniPM", 0LL},
                             {"PenUniCO", 0LL},
                             {"PenMaxAtt", 0},
                             {"PenProNonSvo", 0},
                             {"FatNoASI", 0},
                             {"NumFatNoASI", 0},
                             {"TipoCO", "CON"},
                             {"ASIeNONASI", 0}};
    QCOMPARE(nuova, attese);
    // A change also writes 0 into what a switch turns off; the other crews' columns stay.
    QVariantMap atteseModifica = attese;
    atteseModifica.insert({{"PenMax", 0}, {"NumPenProNonSvo", 0}});
    QCOMPARE(colonneManifestazione(iniziali, Scrittura::Modifica), atteseModifica);

    DatiManifestazione senzaDate = iniziali;
    senzaDate["ADat"].clear();
    QVERIFY(!colonneManifestazione(senzaDate, Scrittura::Nuova).contains("ADat"));
}

void tst_Manifestazione::colonneAccese() {
    const ProgrammaDiProva programma;
    const QVariantMap colonne = colonneManifestazione(tuttoAcceso(), Scrittura::Nuova);
    QCOMPARE(colonne.size(), 30);
    const QVariantMap attese{
        {"FatAnn", 1},        {"AutoEsc", 1},        {"RagAuto", 1},        {"PrePA", "CEN"},
        {"PrePM", "SEC"},     {"PreCO", "DEC"},      {"PenUniPA", 1},       {"PenUniPM", 2},
        {"PenUniCO", 2},      {"PenMaxAtt", 1},      {"PenMax", 300},       {"PenProNonSvo", 1},
        {"FatNoASI", 1},      {"NumFatNoASI", 2.5},  {"TipoCO", "PAR"},     {"NumPenProNonSvo", 500},
        {"ASIeNONASI", 1},    {"PrePANoASI", "DEC"}, {"PrePMNoASI", "CEN"}, {"PreCONoASI", "SEC"},
        {"PenUniPANoASI", 7}, {"PenUniPMNoASI", 8},  {"PenUniCONoASI", 0},  {"PenMaxNoASI", 900}};
    for (auto attesa = attese.cbegin(); attesa != attese.cend(); ++attesa)
        QVERIFY2(colonne[attesa.key()].toString() == attesa->toString(), qPrintable(attesa.key()));
    QCOMPARE(colonneManifestazione(tuttoAcceso(), Scrittura::Modifica), colonne);
}

void tst_Manifestazione::noASISenzaMassimo() {
    DatiManifestazione dati = tuttoAcceso();
    dati["PenMaxAtt"] = "NO";
    const QVariantMap colonne = colonneManifestazione(dati, Scrittura::Nuova);
    QVERIFY(!colonne.contains("PenMaxNoASI") && !colonne.contains("PenMax"));
    QCOMPARE(colonne["PenUniPANoASI"].toInt(), 7);
}

void tst_Manifestazione::daEVerso() {
    const ProgrammaDiProva programma;
    const DatiManifestazione dati = tuttoAcceso();
    const int id = salvaManifestazione({.dati = dati, .gruppi = {}, .squadre = {}, .prove = {}});
    DatiManifestazione attesi = dati;
    attesi["PenUniCO"] = "2";
    attesi["PenUniCONoASI"] = "0";
    QCOMPARE(leggiManifestazione(id), attesi);
    modificaManifestazione(id, leggiManifestazione(id));
    QCOMPARE(leggiManifestazione(id), attesi);
}

void tst_Manifestazione::vecchiaManifestazione() {
    const ProgrammaDiProva programma;
    const int id = inserisciRiga("Manifestazioni", {{"Nom", "Vecchia"}, {"PrePA", "ORA"}, {"PrePM", "Sec"}});
    const DatiManifestazione dati = leggiManifestazione(id);
    for (const char* colonna : {"RagAuto", "FatNoASI", "PenProNonSvo", "ASIeNONASI", "PenMaxAtt"})
        QCOMPARE(dati[colonna], QString("NO"));
    QCOMPARE(dati["PrePA"], QString());
    QCOMPARE(dati["PrePM"], QString("SECONDO"));
    QCOMPARE(dati["DaDat"], QString());
    QCOMPARE(dati["TipoCO"], QString("CON"));
    QVERIFY(leggiManifestazione(id + 1).isEmpty());
}

void tst_Manifestazione::controlliOrariAllaPartenza() {
    const ProgrammaDiProva programma;
    DatiManifestazione dati = datiIniziali();
    const QList<Prova> prove{{.tip = "CO", .tem = "01:00:00"},
                             {.tip = "CO", .tem = "01:00:00", .concatenata = true},
                             {.tip = "PA", .tem = "00:00:10", .concatenata = true}};
    const int altra = salvaManifestazione({.dati = dati, .gruppi = {}, .squadre = {}, .prove = prove});
    const int id = salvaManifestazione({.dati = dati, .gruppi = {}, .squadre = {}, .prove = prove});
    dati["TipoCO"] = "PAR";
    modificaManifestazione(id, dati);
    QCOMPARE(contaRighe("Prove", QString("IDMan_FK=%1 AND ConA<>0").arg(id)), 1);
    QCOMPARE(contaRighe("Prove", QString("IDMan_FK=%1 AND ConA<>0").arg(altra)), 2);
}

void tst_Manifestazione::verifica() {
    DatiManifestazione dati = datiIniziali();
    dati["PenMaxAtt"] = "SI";
    QCOMPARE(verificaDati(dati)->testo, QString("Inserire Almeno il Nome della Manifestazione"));
    dati["Nom"] = "Coppa";
    const std::optional<Rifiuto> rifiuto = verificaDati(dati);
    QCOMPARE(rifiuto->titolo, QString("Attenzione"));
    QCOMPARE(rifiuto->icona, Icona::Esclamazione);
    QCOMPARE(rifiuto->testo, QString("E' Stato Attivata l'Opzione del Massimo delle Penalità,\n"
                                     "ma NON è Stato Inserito Nessun Valore per il Massimo\n"
                                     "Continuare Comunque ?"));
    dati["PenMax"] = "0";
    QVERIFY(!verificaDati(dati));
}

void tst_Manifestazione::etichette() {
    using enum FormaEtichetta;
    const QMap<QString, QString> attese{
        {etichettaPenalita("PA", "MINUTO", Creazione),
         "Penalità per Ogni MINUTO di Ritardo o Anticipo nelle Prove di Abilità : "},
        {etichettaPenalita("PM", "DECIMO", Creazione),
         "Penalità per Ogni DECIMO di Ritardo o Anticipo nelle Prove di Media Imposta : "},
        {etichettaPenalita("CO", "SECONDO", Creazione),
         "Penalità per Ogni SECONDO di Ritardo o Anticipo nei Controlli Orari : "},
        {etichettaPenalita("PA", "CENTESIMO", Riepilogo),
         "Penalità per Ogni CENTESIMO di Rit. o Ant. nelle Prove di Abilità : "},
        {etichettaPenalita("PM", "CENTESIMO", Riepilogo),
         "Penalità per Ogni CENTESIMO di Rit. o Ant. nelle Prove di Media Imposta : "},
        {etichettaPenalita("PA", "MINUTO", Modifica), "Penalità per Ogni MINUTO nelle P.A. : "},
        {etichettaPenalita("PM", "MINUTO", Modifica), "Penalità per Ogni MINUTO nelle P.M.I. : "},
        {etichettaPenalita("CO", "MINUTO", Modifica), "Penalità per Ogni MINUTO nei C.O. : "}};
    for (auto attesa = attese.cbegin(); attesa != attese.cend(); ++attesa)
        QCOMPARE(attesa.key(), attesa.value());
}

void tst_Manifestazione::riepilogoDiTutto() {
    const ProgrammaDiProva programma;
    QMap<QString, QString> spento = riepilogo(datiIniziali());
    for (const char* nome : {"txtMaxPen", "txtFatNoASI", "txtPenProvaNonSvolta", "txtRagAuto"})
        QCOMPARE(spento[nome], QString("NON Attivo"));
    QCOMPARE(spento["txtTipoCO"], QString("Concatenati l'uno con l'altro"));
    QCOMPARE(spento["txtPrePA"], QString("MINUTO"));
    QMap<QString, QString> acceso = riepilogo(tuttoAcceso());
    QCOMPARE(acceso["txtMaxPen"], QString("300"));
    QCOMPARE(acceso["txtFatNoASI"], QString("Attivo : 2,5"));
    QCOMPARE(acceso["txtPenProvaNonSvolta"], QString("Attivo : 500"));
    QCOMPARE(acceso["txtRagAuto"], QString("Attivo"));
    QCOMPARE(acceso["txtTipoCO"], QString("Riferiti all'Orario di partenza"));
    QCOMPARE(acceso["txtMaxPenNoASI"], QString("900"));
}

void tst_Manifestazione::salvataggioSenzaSpazio() {
    const ProgrammaDiProva programma;
    const NuovaManifestazione nuova{.dati = tuttoAcceso(),
                                    .gruppi = gruppiASI(),
                                    .squadre = QList<Squadra>(200, {.nom = QString(200, 's')}),
                                    .prove = QList<Prova>(20, {.tip = "PA", .tem = "00:01:00"})};
    const int pagine = leggiValore("PRAGMA page_count")->toInt();
    Statement(QString("PRAGMA max_page_count=%1").arg(pagine + 2)).esegui();
    QVERIFY_EXCEPTION_THROWN(salvaManifestazione(nuova), ErroreArchivio);
    for (const char* tabella : {"Manifestazioni", "Prove", "Squadre", "Raggruppamenti"})
        QCOMPARE(contaRighe(tabella), 0);
    Statement("PRAGMA max_page_count=100000").esegui();
    QVERIFY(salvaManifestazione(nuova) > 0);
    QCOMPARE(contaRighe("Squadre"), 200);
}

void tst_Manifestazione::elencoEdEliminazione() {
    ProgrammaDiProva programma;
    const auto riempi = [](const QString& nome) {
        const int id = nuovaManifestazione({{"Nom", nome}});
        nuovaProva();
        nuovaProva();
        aggiungiGruppo(id, {0, "A", "1", "", ""}, false);
        aggiungiSquadra(id, "S");
        const int prezzo = inserisciRiga("Prezzi", {{"IDMan_FK", id}, {"Des", "Iscrizione"}, {"Pre", 100}});
        for (int num = 1; num <= 3; ++num) {
            inserisciRiga("Incassi", {{"IDEqu_FK", nuovoEquipaggio(num)}, {"IDPre_FK", prezzo}, {"Qta", 1}});
        }
    };
    riempi("Prima");
    const int prima = IDMan;
    riempi("Seconda");
    const QList<VoceElencoManifestazioni> elenco = leggiManifestazioni();
    QCOMPARE(elenco.size(), 2);
    QCOMPARE(elenco[0].nom, QString("Seconda"));
    QCOMPARE(elenco[1].id, prima);
    QCOMPARE(elenco[1].date, QString("13/06/2026 - 14/06/2026"));

    programma.dialoghi.attendiDomanda("ELIMINARE LA MANIFESTAZIONE CORRENTE ?",
                                      "ELIMINANDO LA MANIFESTAZIONE VERRANNO ELIMINATI\n"
                                      "ANCHE TUTTI GLI EQUIPAGGI ISCRITTI E TUTTI I RELATIVI\n"
                                      "TEMPI INSERITI\n"
                                      "ELIMINARE VERAMENTE ?",
                                      true);
    programma.dialoghi.attendiAvviso("Manifestazione Eliminata");
    QVERIFY(EliminaManifestazione());
    QVERIFY(programma.dialoghi.finite());
    QCOMPARE(programma.dialoghi.viste().constFirst().icona, Icona::Domanda);
    // Of every table only the other event's rows are left.
    const QMap<QString, int> rimaste{{"Manifestazioni", 1}, {"Prove", 2},          {"Equipaggi", 3},
                                     {"Rilevamenti", 6},    {"Raggruppamenti", 1}, {"Squadre", 1},
                                     {"Prezzi", 1},         {"Incassi", 3}};
    for (auto attesa = rimaste.cbegin(); attesa != rimaste.cend(); ++attesa)
        QVERIFY2(contaRighe(attesa.key()) == attesa.value(), qPrintable(attesa.key()));
    for (const char* tabella : {"Prove", "Equipaggi", "Raggruppamenti", "Squadre", "Prezzi"})
        QCOMPARE(contaRighe(tabella, QString("IDMan_FK<>%1").arg(prima)), 0);
    QCOMPARE(IDMan, 0);
    QCOMPARE(programma.impostazioni.leggi("IDMan", "IDMan", "x"), QString("0"));
}

void tst_Manifestazione::eliminazioneRifiutata() {
    ProgrammaDiProva programma;
    const int id = nuovaManifestazione();
    programma.dialoghi.attendiDomanda("ELIMINARE LA MANIFESTAZIONE CORRENTE ?", QString(), false);
    QVERIFY(!EliminaManifestazione());
    QCOMPARE(contaRighe("Manifestazioni"), 1);
    QCOMPARE(IDMan, id);
}

QTEST_GUILESS_MAIN(tst_Manifestazione)
#include "tst_Manifestazione.moc"

#include "archive/ErroreArchivio.h"
#include "output/RapportiDefiniti.h"
#include "supporto/ProgrammaDiProva.h"

#include <algorithm>
#include <QTest>

class tst_RapportiDefiniti final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void classifica();
    void squadre();
    void penalitaAggiuntive();
    void coefficienti();
    void listaDiPartenza();
    void listaConOrari();
    void verifiche_data();
    void verifiche();
    void fogliDiProva_data();
    void fogliDiProva();
    void proveMancanti();
    void schedaComeLaPenalitaTotale_data();
    void schedaComeLaPenalitaTotale();
    void schedaIntera();
    void schedePerEquipaggio();
    void vuoti();
    void tipoSconosciuto();
};

namespace {

using Righe = QList<QStringList>;

Rapporto componi(const QString& tipo, const QString& titolo = {}, const QString& esclusi = {},
                 const QList<int>& prove = {}) {
    return componiRapporto(tipo, {}, titolo, esclusi, prove);
}

QStringList testate(const QList<ColonnaRapporto>& colonne) {
    QStringList testi;
    for (const ColonnaRapporto& colonna : colonne)
        testi << colonna.testata;
    return testi;
}

void riga(const char* tabella, const QVariantMap& valori) {
    inserisciRiga(QString::fromLatin1(tabella), valori);
}

}  // namespace

void tst_RapportiDefiniti::classifica() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    riga("Classifica", {{"Pos", 3}, {"Num", 8}, {"Con", "NERI"}, {"Pen", 999999999}, {"Gru", 4}});
    riga("Classifica", {{"Pos", 1},
                        {"Num", 12},
                        {"Con", "D'ANGELO NICOLÒ"},
                        {"Vei", "LANCIA Aprilia"},
                        {"Ann", 1938},
                        {"Pen", 160.5275},
                        {"PenNet", 79},
                        {"PenAgg", 50},
                        {"Coeff", 1.38}});
    riga("Classifica", {{"Pos", 2}, {"Num", 7}, {"Con", "ROSSI"}, {"Pen", 200.0}, {"Gru", 4}});
    const Rapporto r = componi("Classifica", "CLASSIFICA ASI", "Esclusi : N. 8 Ritirato");
    QCOMPARE(r.titoloFinestra, QStringLiteral("CLASSIFICA ASI"));
    QCOMPARE(r.etichetta("lblTipoClas"), QStringLiteral("CLASSIFICA ASI"));
    QCOMPARE(r.etichetta("lblTitolo"), QStringLiteral("Coppa delle Colline"));
    QCOMPARE(r.etichetta("lblData"), QStringLiteral("13/06/2026 14/06/2026"));
    QCOMPARE(r.etichetta("lblEsc"), QStringLiteral("Esclusi : N. 8 Ritirato"));
    QCOMPARE(testate(r.colonne), QStringList({"POS.", "NUM.", "PEN.", "EQUIPAGGIO", "VEICOLO", "ANNO",
                                              "P.NET.", "P.AGG.", "COEFF."}));
    QCOMPARE(r.righe(),
             Righe({{"1", "12", "160,5275", "D'ANGELO NICOLÒ", "LANCIA Aprilia", "1938", "79", "50", "1,38"},
                    {"2", "7", "200", "ROSSI", "", "", "", "", ""},
                    {"3", "8", "ESC.", "NERI", "", "", "", "", ""}}));
    QCOMPARE(componiRapporto("Classifica", "Gru=4", {}, {}, {}).celle("Num"), QStringList({"7", "8"}));
}

void tst_RapportiDefiniti::squadre() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const int grifone = inserisciRiga("Squadre", {{"IDMan_FK", IDMan}, {"Nom", "Grifone"}});
    const int volante = inserisciRiga("Squadre", {{"IDMan_FK", IDMan}, {"Nom", "Volante d'Oro"}});
    const auto equipaggio = [](int squ, int pos, double penSqu, int num, double pen) {
        riga("Classifica", {{"Squ", squ},
                            {"Pos", pos},
                            {"PenSqu", penSqu},
                            {"Num", num},
                            {"Pen", pen},
                            {"Con", "ROSSI Mario"},
                            {"Nav", "BIANCHI Anna"},
                            {"Vei", "FIAT 1100"}});
    };
    equipaggio(volante, 2, 1000000011.5, 9, 999999999);
    equipaggio(grifone, 1, 22.25, 5, 12.25);
    equipaggio(volante, 2, 1000000011.5, 2, 12.5);
    equipaggio(grifone, 1, 22.25, 3, 10);
    equipaggio(777, 3, 1, 4, 1);  // its team is gone
    const Rapporto r = componi("ClassificaSquadre", "Classifica per Squadre", "Esclusi : N. 9 Ritirato");
    QCOMPARE(r.titoloFinestra, QStringLiteral("Classifica Assoluta Per Squadre"));
    QCOMPARE(r.etichetta("lblTipoClas"), QStringLiteral("Classifica per Squadre"));
    QCOMPARE(r.etichetta("lblEsc"), QStringLiteral("Esclusi : N. 9 Ritirato"));
    QCOMPARE(testate(r.colonneGruppo), QStringList({"POS.", "PENALITA'", "SQUADRA"}));
    QCOMPARE(testate(r.colonne), QStringList({"NUM.", "PEN.", "CONDUCENTE", "NAVIGATORE", "VEICOLO"}));
    QCOMPARE(r.gruppi.size(), 2);
    QCOMPARE(r.gruppi.at(0).celle, QStringList({"1", "22,25", "Grifone"}));
    QCOMPARE(r.gruppi.at(1).celle, QStringList({"2", "ESCLUSA", "Volante d'Oro"}));
    QCOMPARE(r.gruppi.at(0).righe, Righe({{"3", "10", "ROSSI Mario", "BIANCHI Anna", "FIAT 1100"},
                                          {"5", "12,25", "ROSSI Mario", "BIANCHI Anna", "FIAT 1100"}}));
    QCOMPARE(r.celle("PenCla"), QStringList({"10", "12,25", "12,5", "ESC."}));
}

void tst_RapportiDefiniti::penalitaAggiuntive() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const int prima = nuovaProva({{"Nom", "Salita"}});
    const int seconda = nuovaProva({{"Nom", "Salita"}});
    const int dieci = nuovoEquipaggio(10, {{"Cog", "NERI"}, {"CogNav", QVariant()}});
    const int due = nuovoEquipaggio(2);
    nuovoEquipaggio(3);
    scriviRilevamento(dieci, seconda, "", "", -5.5);
    scriviRilevamento(dieci, prima, "", "", 100);
    scriviRilevamento(due, prima, "", "", 100);
    scriviRilevamento(due, seconda, "", "", 100);
    esegui("UPDATE Rilevamenti SET DesPenAgg='Salto\ndel CO' WHERE IDEqu_FK=? AND IDPro_FK=?",
           {dieci, prima});
    esegui("UPDATE Rilevamenti SET DesPenAgg='  ' WHERE IDEqu_FK NOT IN (?,?)", {dieci, due});
    const int tre = inserisciRiga("Rilevamenti", {{"IDEqu_FK", due}, {"IDPro_FK", prima}, {"PenAgg", 0}});
    esegui("UPDATE Rilevamenti SET DesPenAgg='Ammonizione' WHERE IDRil=?", {tre});
    const Rapporto r = componi("PenalitàAggiuntive", "Penalità Aggiuntive", "non qui");
    QCOMPARE(r.etichetta("lblTipoClas"), QStringLiteral("Penalità Aggiuntive"));
    QCOMPARE(r.etichetta("lblEsc"), QString());
    QCOMPARE(testate(r.colonne), QStringList({"NUM.", "EQUIPAGGIO", "PENALITA'", "DESCRIZIONE", "PROVA"}));
    // Two tests of one name are two penalties.
    QCOMPARE(r.celle("PenAgg"), QStringList({"100", "0", "100", "100", "-5,5"}));
    QCOMPARE(r.righe().at(3), QStringList({"10", "NERI", "100", "Salto del CO", "Salita"}));
    QCOMPARE(r.righe().at(1), QStringList({"2", "ROSSI BIANCHI", "0", "Ammonizione", "Salita"}));
}

void tst_RapportiDefiniti::coefficienti() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    riga("ProspCoeff",
         {{"Num", 5}, {"Equ", "ROSSI"}, {"PenNette", 10.0}, {"Coeff", -18.0}, {"PenTot", -180.0}});
    riga("ProspCoeff", {{"Num", 1},
                        {"Equ", "NERI BIANCHI"},
                        {"Vei", "FIAT 508"},
                        {"PenNette", 10.5},
                        {"Coeff", 1.33},
                        {"PenAgg", 0.0},
                        {"PenTot", 13.965}});
    const Rapporto r = componi("ProspettoPenCoeff", "Prospetto Penalità e Coefficienti");
    QCOMPARE(r.etichetta("lblTipoClas"), QStringLiteral("Prospetto Penalità e Coefficienti"));
    QCOMPARE(testate(r.colonne),
             QStringList({"NUM.", "EQUIPAGGIO", "VEICOLO", "NETTE", "COEFF.", "AGG.", "TOT."}));
    QCOMPARE(r.righe(), Righe({{"1", "NERI BIANCHI", "FIAT 508", "10,5", "1,33", "0", "13,965"},
                               {"5", "ROSSI", "", "10", "-18", "", "-180"}}));
}

void tst_RapportiDefiniti::listaDiPartenza() {
    ProgrammaDiProva programma;
    nuovaManifestazione({{"Nom", "Un'altra"}});
    nuovoEquipaggio(99);
    nuovaManifestazione();
    nuovoEquipaggio(20, {{"CogNav", QVariant()}, {"NomNav", ""}, {"Ann", QVariant()}, {"Cil", 1089.5}});
    nuovoEquipaggio(3, {{"Cil", 1098}});
    const Rapporto r = componi("Lista");
    QCOMPARE(r.etichetta("lblTipoClas"), QStringLiteral("LISTA DI PARTENZA"));
    QCOMPARE(r.titoloFinestra, QStringLiteral("LISTA DI PARTENZA"));
    QCOMPARE(testate(r.colonne),
             QStringList({"NUM.", "CONDUCENTE", "NAVIGATORE", "VEICOLO", "ANNO", "CIL."}));
    QCOMPARE(r.righe(), Righe({{"3", "ROSSI Mario", "BIANCHI Anna", "LANCIA APRILIA", "1955", "1098"},
                               {"20", "ROSSI Mario", "", "LANCIA APRILIA", "", "1089,5"}}));
}

void tst_RapportiDefiniti::listaConOrari() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const int co1 = nuovaProva({{"Tip", "CO"}});
    const int pa = nuovaProva({{"Tip", "PA"}});
    const int co2 = nuovaProva({{"Tip", "CO"}});
    const int due = nuovoEquipaggio(2);
    const int uno = nuovoEquipaggio(1);
    nuovoEquipaggio(3);  // no start time yet on either control
    scriviRilevamento(due, co1, "09:02:00:00", "");
    scriviRilevamento(due, pa, "09:10:00:00", "");
    scriviRilevamento(due, co2, "08:00:00:00", "");
    scriviRilevamento(uno, co1, "09:01:00:00", "");
    scriviRilevamento(uno, co2, "09:01:00:00", "");
    const Rapporto r = componi("ListaConOrari");
    QCOMPARE(r.etichetta("lblTipoClas"), QStringLiteral("LISTA e ORARI DI PARTENZA"));
    QCOMPARE(testate(r.colonne), QStringList({"NUM.", "CONDUCENTE", "NAVIGATORE", "VEICOLO", "ORARIO"}));
    QCOMPARE(r.celle("Num"), QStringList({"1", "2", "2", "3"}));
    QCOMPARE(r.celle("TPar"), QStringList({"09:01:00:00", "09:02:00:00", "08:00:00:00", ""}));
}

void tst_RapportiDefiniti::verifiche_data() {
    QTest::addColumn<QString>("tipo");
    QTest::addColumn<QStringList>("numeri");
    QTest::newRow("all") << "VerificheTutti" << QStringList({"1", "2", "3", "4"});
    QTest::newRow("ASI") << "VerificheASI" << QStringList({"2"});
    QTest::newRow("not ASI") << "VerificheNONASI" << QStringList({"1", "3", "4"});
}

void tst_RapportiDefiniti::verifiche() {
    QFETCH(const QString, tipo);
    QFETCH(const QStringList, numeri);
    ProgrammaDiProva programma;
    nuovaManifestazione();
    nuovoEquipaggio(4, {{"Omo", ""}});
    nuovoEquipaggio(3, {{"Omo", "   "}});
    nuovoEquipaggio(2, {{"Omo", "A 12"},
                        {"Tes", "T1"},
                        {"RilDa", "MCTC"},
                        {"Pat", "P1"},
                        {"ScaPat", "2027-03-09"},
                        {"Tar", "BO 1"},
                        {"Com", "Generali"},
                        {"Pol", "00123"},
                        {"ScaPol", "2026-12-31"}});
    nuovoEquipaggio(1, {{"Omo", QVariant()}});
    const Rapporto r = componi(tipo);
    QCOMPARE(r.celle("Num"), numeri);
    QCOMPARE(r.etichetta("lblTipoClas"), QStringLiteral("PROSPETTO VERIFICHE"));
    QCOMPARE(r.etichette.mid(0, 3),
             QList<Etichetta>({{"lblNomeManifestazione", "Manifestazione :", "Coppa delle Colline"},
                               {"lblClub", "Club Organizzatore :", "Club Auto d'Epoca"},
                               {"lblData", "Data :", "12/06/2026"}}));
    QStringList sopra;
    for (const ColonnaRapporto& colonna : r.colonne)
        sopra << colonna.sopra + ">" + colonna.testata;
    QCOMPARE(sopra, QStringList({">", "CONDUTTORE>NOMINATIVO", "CONDUTTORE>TESS. ASI", "PATENTE>Prefettura",
                                 "PATENTE>Numero", "PATENTE>Scadenza", "VEICOLO>MARCA e TIPO", "VEICOLO>ANNO",
                                 "VEICOLO>TARGA", "VEICOLO>OMOLOG. ASI N°", "ASSICURAZIONE>COMPAGNIA",
                                 "ASSICURAZIONE>NUMERO", "ASSICURAZIONE>SCADENZA"}));
    if (const qsizetype due = numeri.indexOf("2"); due >= 0) {
        QCOMPARE(r.righe().at(due),
                 QStringList({"2", "ROSSI Mario", "T1", "MCTC", "P1", "09/03/2027", "LANCIA APRILIA", "1955",
                              "BO 1", "A 12", "Generali", "00123", "31/12/2026"}));
    }
}

void tst_RapportiDefiniti::fogliDiProva_data() {
    QTest::addColumn<QString>("tipo");
    QTest::addColumn<QString>("tipoClas");
    QTest::addColumn<QStringList>("prima");
    QTest::addColumn<int>("colonneProva");
    QTest::addColumn<QStringList>("numeri");
    QTest::newRow("classification") << "ClassificaProva"
                                    << "CLASSIFICA PARZIALE"
                                    << QStringList({"Pos", "Num", "EQUIPAGGIO", "VEICOLO"}) << 10
                                    << QStringList({"9", "4"});
    QTest::newRow("times") << "ProspettoTempi"
                           << "PROSPETTO TEMPI" << QStringList({"Num", "EQUIPAGGIO", "VEICOLO"}) << 10
                           << QStringList({"4", "9"});
    QTest::newRow("narrow times") << "ProspettoTempiCompresso"
                                  << "PROSPETTO TEMPI" << QStringList({"Num"}) << 15
                                  << QStringList({"4", "9"});
}

void tst_RapportiDefiniti::fogliDiProva() {
    QFETCH(const QString, tipo);
    QFETCH(const QString, tipoClas);
    QFETCH(const QStringList, prima);
    QFETCH(const int, colonneProva);
    QFETCH(const QStringList, numeri);
    ProgrammaDiProva programma;
    nuovaManifestazione();
    QList<int> prove;
    for (const char* nome : {"Salita", "Città di Forlì", "Arrivo"})
        prove << nuovaProva({{"Nom", nome}, {"Tem", "00:01:30"}});
    const QVariantMap netti{{"Net1", "00:01:30:05"}, {"Net2", "00:01:29:95"}, {"Net3", "1:00:00:00"}};
    for (const auto& [num, pos] : {std::pair(9, 1), std::pair(4, 2)}) {
        QVariantMap valori{{"Num", num},    {"Pos", pos},  {"Equ", "ROSSI NERI"},
                           {"Vei", "FIAT"}, {"Pen", 12.5}, {"PenAgg", 7}};
        valori.insert(netti);
        riga("ClassificaProva", valori);
    }
    // The working list of the windows: free places hold 0.
    QList<int> elenco{prove.at(2), prove.at(0), prove.at(1)};
    elenco.resize(colonneProva);
    const Rapporto r = componi(tipo, "Classifica di Prova", "non qui", elenco);
    QCOMPARE(r.titoloFinestra, QStringLiteral("Classifica di Prova"));
    QCOMPARE(r.etichetta("lblTipoClas"), tipoClas);
    QCOMPARE(r.celle("Num"), numeri);
    QStringList vuote(colonneProva - 3);
    QCOMPARE(testate(r.colonne), prima + QStringList({"Arrivo", "Salita", "Città di Forlì"}) +
                                     QStringList(colonneProva - 3, QString("")) +
                                     QStringList({"P.A.", "Pen."}));
    QStringList sotto;
    for (const ColonnaRapporto& colonna : r.colonne.mid(prima.size(), colonneProva))
        sotto << colonna.sotto;
    QCOMPARE(sotto, QStringList(3, "00:01:30") + QStringList(colonneProva - 3, QString()));
    QCOMPARE(r.righe().first().mid(prima.size()), QStringList({"00:01:30:05", "00:01:29:95", "1:00:00:00"}) +
                                                      QStringList(colonneProva - 3, QString()) +
                                                      QStringList({"7", "12,5"}));
    QVERIFY(!r.orizzontale);
}

void tst_RapportiDefiniti::proveMancanti() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const int altra = nuovaProva({{"Nom", "Di un'altra"}});
    nuovaManifestazione();
    QList<int> molte;
    for (int i = 0; i < 10; ++i)
        molte << nuovaProva({{"Nom", QStringLiteral("Prova %1").arg(i)}});
    // A test of another event, one that is gone, and places that are not there.
    const Rapporto r = componi("ProspettoTempi", {}, {}, {altra, 12345, molte.first()});
    QCOMPARE(testate(r.colonne).mid(3, 4), QStringList({"", "", "Prova 0", ""}));
    QVERIFY(componi("ProspettoTempi", {}, {}, molte).orizzontale);
}

void tst_RapportiDefiniti::schedaComeLaPenalitaTotale_data() {
    QTest::addColumn<QVariant>("idGru");
    QTest::addColumn<QVariant>("fatGru");
    QTest::addColumn<bool>("fatAnnAtt");
    QTest::addColumn<QVariant>("fatAnn");
    QTest::addColumn<QStringList>("piede");  // words and value of each line after the first
    const QString anno = "Coefficiente per Veicolo :";
    const QString gruppo = "Coefficiente Raggruppamento :";
    const QString totale = "PENALITA' TOTALI MANIFESTAZIONE :";
    QTest::newRow("none") << QVariant(0) << QVariant(0.0) << false << QVariant(0.0)
                          << QStringList({totale, "1030,5"});
    QTest::newRow("year") << QVariant(0) << QVariant(0.0) << true << QVariant(1.55)
                          << QStringList({anno, "1,55", totale, "1597"});
    QTest::newRow("year and group") << QVariant(4) << QVariant(1.05) << true << QVariant(1.55)
                                    << QStringList({anno, "1,55", gruppo, "1,05", totale, "1676,825"});
    QTest::newRow("group of factor 0") << QVariant(4) << QVariant(0.0) << false << QVariant(0.0)
                                       << QStringList({gruppo, "1", totale, "1030,5"});
    QTest::newRow("group without a factor") << QVariant(4) << QVariant() << false << QVariant(0.0)
                                            << QStringList({gruppo, "1", totale, "1030,5"});
    QTest::newRow("a factor without a group does not count")
        << QVariant() << QVariant(2.0) << false << QVariant(3.0) << QStringList({totale, "1030,5"});
}

// The factors multiply the tests' penalties alone; what was added comes on top, and none is none.
void tst_RapportiDefiniti::schedaComeLaPenalitaTotale() {
    QFETCH(const QVariant, idGru);
    QFETCH(const QVariant, fatGru);
    QFETCH(const bool, fatAnnAtt);
    QFETCH(const QVariant, fatAnn);
    QFETCH(const QStringList, piede);
    ProgrammaDiProva programma;
    nuovaManifestazione();
    int idPro = 0;
    for (const auto& [pen, penAgg] :
         {std::pair(1000.0, QVariant()), std::pair(30.0, QVariant(0.0)), std::pair(0.0, QVariant(0.5))}) {
        riga("Schede", {{"Num", 1},
                        {"IDPro", ++idPro},
                        {"IDGru", idGru},
                        {"NomGru", "Vetture d'anteguerra"},
                        {"FatGru", fatGru},
                        {"FatAnnAtt", fatAnnAtt},
                        {"FatAnn", fatAnn},
                        {"Pen", pen},
                        {"PenAgg", penAgg}});
    }
    const GruppoRapporto scheda = componi("Schede").gruppi.first();
    QCOMPARE(scheda.piede.first().etichetta, QStringLiteral("Penalità Totali :"));
    QCOMPARE(scheda.piede.first().valori.mid(6), QStringList({"0,5", "1030"}));
    QStringList righe;
    for (const RigaPiede& riga : scheda.piede.mid(1))
        righe << riga.etichetta << riga.valori.last();
    QCOMPARE(righe, piede);
}

void tst_RapportiDefiniti::schedaIntera() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    const QVariantMap scheda{{"Num", 12},         {"Con", "D'ANGELO Niccolò"},
                             {"Nav", "ZANÈ Pia"}, {"Vei", "LANCIA Aprilia"},
                             {"Cil", 1352},       {"Ann", 1938},
                             {"IDGru", 3},        {"NomGru", "Vetture d'anteguerra"},
                             {"FatGru", 1.0},     {"ASI", 1},
                             {"FatAnnAtt", 0},    {"PosAss", "4"},
                             {"PosGru", "2"},     {"PosASIoNoASI", "3"}};
    QVariantMap seconda = scheda;
    seconda.insert({{"IDPro", 8}, {"NomPro", "Arrivo"}, {"TArr", "10:00:00:00"}, {"Pen", 7.5}});
    riga("Schede", seconda);
    QVariantMap prima = scheda;
    prima.insert({{"IDPro", 7},
                  {"NomPro", "Salita"},
                  {"TImp", "00:01:00"},
                  {"TPar", "09:00:00:00"},
                  {"TArr", "09:01:00:12"},
                  {"Net", "00:01:00:12"},
                  {"TSca", "00:00:00:12"},
                  {"Pen", 12.0},
                  {"PenAgg", 100.0}});
    riga("Schede", prima);
    const Rapporto r = componi("Schede", "Schede Individuali");
    QCOMPARE(r.titoloFinestra, QStringLiteral("Schede Individuali"));
    QCOMPARE(r.etichetta("lblTipoClas"), QStringLiteral("Scheda Individuale"));
    QVERIFY(r.paginaPerGruppo);
    QCOMPARE(testate(r.colonne), QStringList({"Prova", "T. Imposto", "T. Start", "T.Pass.", "T. Netto",
                                              "T. Scarto", "P.A.", "Penalità"}));
    QCOMPARE(r.righe(), Righe({{"Salita", "00:01:00", "09:00:00:00", "09:01:00:12", "00:01:00:12",
                                "00:00:00:12", "100", "12"},
                               {"Arrivo", "", "", "10:00:00:00", "", "", "", "7,5"}}));
    QStringList testa;
    for (const QList<Voce>& linea : r.gruppi.first().testa) {
        for (const Voce& voce : linea)
            testa << voce.etichetta.trimmed() + voce.valore;
    }
    QCOMPARE(testa,
             QStringList({"NUMERO :12", "EQUIPAGGIO :D'ANGELO Niccolò - ZANÈ Pia", "VEICOLO :LANCIA Aprilia",
                          "ANNO :1938", "CILINDRATA :1352", "Posizioni :", "Assoluta :4", "Class. ASI :3",
                          "di Raggruppamento :Vetture d'anteguerra  2"}));
}

void tst_RapportiDefiniti::schedePerEquipaggio() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    // Crews that came in under one number keep a card each.
    for (const char* con : {"ROSSI", "NERI"}) {
        for (const int idPro : {1, 2})
            riga("Schede", {{"Num", 5}, {"IDPro", idPro}, {"Con", con}, {"Pen", idPro}});
    }
    riga("Schede", {{"Num", 4}, {"IDPro", 1}, {"Con", "VERDI"}, {"PosAss", "ESC"}, {"ASI", QVariant()}});
    const Rapporto r = componi("Schede");
    QStringList schede;
    for (const GruppoRapporto& gruppo : r.gruppi)
        schede << QStringLiteral("%1 %2").arg(gruppo.testa.at(0).at(1).valore).arg(gruppo.righe.size());
    std::sort(schede.begin() + 1, schede.end());
    QCOMPARE(schede, QStringList({"VERDI 1", "NERI 2", "ROSSI 2"}));
    const QList<Voce> posizioni = r.gruppi.first().testa.at(2);
    QCOMPARE(posizioni.size(), 3);  // nothing on a group
    QCOMPARE(posizioni.at(1).valore, QStringLiteral("ESC"));
    QCOMPARE(posizioni.at(2).etichetta, QStringLiteral("Class. NON ASI :"));
}

void tst_RapportiDefiniti::vuoti() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    for (const char* tipo :
         {"Classifica", "PenalitàAggiuntive", "ProspettoPenCoeff", "Lista", "ListaConOrari", "VerificheTutti",
          "VerificheASI", "VerificheNONASI", "ClassificaProva", "ProspettoTempi", "ProspettoTempiCompresso",
          "Schede", "ClassificaSquadre"}) {
        const Rapporto r = componi(QString::fromUtf8(tipo));
        QVERIFY2(r.righe().isEmpty() && !r.colonne.isEmpty(), tipo);
        QVERIFY2(r == componi(QString::fromUtf8(tipo)), tipo);
    }
}

void tst_RapportiDefiniti::tipoSconosciuto() {
    ProgrammaDiProva programma;
    nuovaManifestazione();
    QVERIFY_EXCEPTION_THROWN(componi("classifica"), Errore);
}

QTEST_GUILESS_MAIN(tst_RapportiDefiniti)
#include "tst_RapportiDefiniti.moc"

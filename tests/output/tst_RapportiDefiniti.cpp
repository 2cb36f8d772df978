#include "output/RapportiDefiniti.h"
#include "supporto/ProgrammaDiProva.h"

#include <algorithm>

class tst_RapportiDefiniti final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void classifica();
    void squadre();
    void penalitaAggiuntive();
    void coefficienti();
    void listaDiPartenza();
    void listaConOrari();
    void verifiche();
    void fogliDiProva();
    void proveMancanti();
    void schedaComeLaPenalitaTotale();
    void schedaIntera();
    void schedePerEquipaggio();

private:
    void prepara() override { nuovaManifestazione(); }
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

// Fields with a comma between them.
QVariantMap valori(const char* campi, const QVariantList& elenco) {
    QVariantMap mappa;
    const QStringList nomi = QString(campi).split(',');
    for (qsizetype i = 0; i < nomi.size(); ++i)
        mappa[nomi[i]] = elenco[i];
    return mappa;
}

void riga(const char* tabella, const char* campi, const QVariantList& elenco) {
    inserisciRiga(tabella, valori(campi, elenco));
}

}  // namespace

void tst_RapportiDefiniti::classifica() {
    riga("Classifica", "Pos,Num,Con,Pen,Gru", {3, 8, "NERI", 999999999, 4});
    riga("Classifica", "Pos,Num,Con,Vei,Ann,Pen,PenNet,PenAgg,Coeff",
         {1, 12, "D'ANGELO NICOLÒ", "LANCIA Aprilia", 1938, 160.5275, 79, 50, 1.38});
    riga("Classifica", "Pos,Num,Con,Pen,Gru", {2, 7, "ROSSI", 200.0, 4});
    const Rapporto r = componi("Classifica", "CLASSIFICA ASI", "Esclusi : N. 8 Ritirato");
    QStringList testi{r.titoloFinestra};
    for (const char* nome : {"lblTipoClas", "lblTitolo", "lblData", "lblEsc"})
        testi << r.etichetta(nome);
    QCOMPARE(testi, QStringList({"CLASSIFICA ASI", "CLASSIFICA ASI", "Coppa delle Colline",
                                 "13/06/2026 14/06/2026", "Esclusi : N. 8 Ritirato"}));
    QCOMPARE(r.righe(),
             Righe({{"1", "12", "160,5275", "D'ANGELO NICOLÒ", "LANCIA Aprilia", "1938", "79", "50", "1,38"},
                    {"2", "7", "200", "ROSSI", "", "", "", "", ""},
                    {"3", "8", "ESC.", "NERI", "", "", "", "", ""}}));
    QCOMPARE(componiRapporto("Classifica", "Gru=4", {}, {}, {}).celle("Num"), QStringList({"7", "8"}));
}

void tst_RapportiDefiniti::squadre() {
    const int grifone = inserisciRiga("Squadre", {{"IDMan_FK", IDMan}, {"Nom", "Grifone"}});
    const int volante = inserisciRiga("Squadre", {{"IDMan_FK", IDMan}, {"Nom", "Volante d'Oro"}});
    const auto equipaggio = [](int squ, int pos, double penSqu, int num, double pen) {
        riga("Classifica", "Squ,Pos,PenSqu,Num,Pen,Con,Nav,Vei",
             {squ, pos, penSqu, num, pen, "ROSSI Mario", "BIANCHI Anna", "FIAT 1100"});
    };
    equipaggio(volante, 2, 1000000011.5, 9, 999999999);
    equipaggio(grifone, 1, 22.25, 5, 12.25);
    equipaggio(volante, 2, 1000000011.5, 2, 12.5);
    equipaggio(grifone, 1, 22.25, 3, 10);
    equipaggio(777, 3, 1, 4, 1);  // its team is gone
    const Rapporto r = componi("ClassificaSquadre", "Classifica per Squadre", "Esclusi : N. 9 Ritirato");
    QCOMPARE(r.titoloFinestra, QStringLiteral("Classifica Assoluta Per Squadre"));
    QCOMPARE(r.etichetta("lblEsc"), QStringLiteral("Esclusi : N. 9 Ritirato"));
    QCOMPARE(r.gruppi.size(), 2);
    QCOMPARE(r.gruppi.at(0).celle, QStringList({"1", "22,25", "Grifone"}));
    QCOMPARE(r.gruppi.at(1).celle, QStringList({"2", "ESCLUSA", "Volante d'Oro"}));
    QCOMPARE(r.gruppi.at(0).righe, Righe({{"3", "10", "ROSSI Mario", "BIANCHI Anna", "FIAT 1100"},
                                          {"5", "12,25", "ROSSI Mario", "BIANCHI Anna", "FIAT 1100"}}));
    QCOMPARE(r.celle("PenCla"), QStringList({"10", "12,25", "12,5", "ESC."}));
}

void tst_RapportiDefiniti::penalitaAggiuntive() {
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
    QCOMPARE(r.etichetta("lblEsc"), QString());
    // Two tests of one name are two penalties.
    QCOMPARE(r.celle("PenAgg"), QStringList({"100", "0", "100", "100", "-5,5"}));
    QCOMPARE(r.righe().at(3), QStringList({"10", "NERI", "100", "Salto del CO", "Salita"}));
    QCOMPARE(r.righe().at(1), QStringList({"2", "ROSSI BIANCHI", "0", "Ammonizione", "Salita"}));
}

void tst_RapportiDefiniti::coefficienti() {
    riga("ProspCoeff", "Num,Equ,PenNette,Coeff,PenTot", {5, "ROSSI", 10.0, -18.0, -180.0});
    riga("ProspCoeff", "Num,Equ,Vei,PenNette,Coeff,PenAgg,PenTot",
         {1, "NERI BIANCHI", "FIAT 508", 10.5, 1.33, 0.0, 13.965});
    const Rapporto r = componi("ProspettoPenCoeff", "Prospetto Penalità e Coefficienti");
    QCOMPARE(r.righe(), Righe({{"1", "NERI BIANCHI", "FIAT 508", "10,5", "1,33", "0", "13,965"},
                               {"5", "ROSSI", "", "10", "-18", "", "-180"}}));
}

void tst_RapportiDefiniti::listaDiPartenza() {
    nuovoEquipaggio(99);
    nuovaManifestazione();
    nuovoEquipaggio(20, {{"CogNav", QVariant()}, {"NomNav", ""}, {"Ann", QVariant()}, {"Cil", 1089.5}});
    nuovoEquipaggio(3, {{"Cil", 1098}});
    const Rapporto r = componi("Lista");
    QCOMPARE(r.titoloFinestra, QStringLiteral("LISTA DI PARTENZA"));
    QCOMPARE(r.righe(), Righe({{"3", "ROSSI Mario", "BIANCHI Anna", "LANCIA APRILIA", "1955", "1098"},
                               {"20", "ROSSI Mario", "", "LANCIA APRILIA", "", "1089,5"}}));
}

void tst_RapportiDefiniti::listaConOrari() {
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
    QCOMPARE(r.celle("Num"), QStringList({"1", "2", "2", "3"}));
    QCOMPARE(r.celle("TPar"), QStringList({"09:01:00:00", "09:02:00:00", "08:00:00:00", ""}));
}

void tst_RapportiDefiniti::verifiche() {
    nuovoEquipaggio(4, {{"Omo", ""}});
    nuovoEquipaggio(3, {{"Omo", "   "}});
    nuovoEquipaggio(
        2, valori("Omo,Tes,RilDa,Pat,ScaPat,Tar,Com,Pol,ScaPol",
                  {"A 12", "T1", "MCTC", "P1", "2027-03-09", "BO 1", "Generali", "00123", "2026-12-31"}));
    nuovoEquipaggio(1, {{"Omo", QVariant()}});
    QCOMPARE(componi("VerificheTutti").celle("Num"), QStringList({"1", "2", "3", "4"}));
    QCOMPARE(componi("VerificheNONASI").celle("Num"), QStringList({"1", "3", "4"}));
    const Rapporto r = componi("VerificheASI");
    QCOMPARE(r.etichette.mid(0, 3),
             QList<Etichetta>({{"lblNomeManifestazione", "Manifestazione :", "Coppa delle Colline"},
                               {"lblClub", "Club Organizzatore :", "Club Auto d'Epoca"},
                               {"lblData", "Data :", "12/06/2026"}}));
    QCOMPARE(r.righe(), Righe({{"2", "ROSSI Mario", "T1", "MCTC", "P1", "09/03/2027", "LANCIA APRILIA",
                                "1955", "BO 1", "A 12", "Generali", "00123", "31/12/2026"}}));
}

void tst_RapportiDefiniti::fogliDiProva() {
    QList<int> prove;
    for (const char* nome : {"Salita", "Città di Forlì", "Arrivo"})
        prove << nuovaProva({{"Nom", nome}, {"Tem", "00:01:30"}});
    for (const auto& [num, pos] : {std::pair(9, 1), std::pair(4, 2)})
        riga("ClassificaProva", "Num,Pos,Pen,PenAgg,Net1,Net2,Net3",
             {num, pos, 12.5, 7, "00:01:30:05", "00:01:29:95", "1:00:00:00"});
    // The first columns, how many for tests, and the crews.
    const std::tuple<const char*, QStringList, int, QStringList> casi[] = {
        {"ClassificaProva", {"Pos", "Num", "EQUIPAGGIO", "VEICOLO"}, 10, {"9", "4"}},
        {"ProspettoTempi", {"Num", "EQUIPAGGIO", "VEICOLO"}, 10, {"4", "9"}},
        {"ProspettoTempiCompresso", {"Num"}, 15, {"4", "9"}}};
    for (const auto& [tipo, prima, colonneProva, numeri] : casi) {
        // The working list of the windows: free places hold 0.
        QList<int> elenco{prove.at(2), prove.at(0), prove.at(1)};
        elenco.resize(colonneProva);
        const Rapporto r = componi(tipo, "Classifica di Prova", "non qui", elenco);
        QCOMPARE(r.titoloFinestra, QStringLiteral("Classifica di Prova"));
        QCOMPARE(r.celle("Num"), numeri);
        const QStringList vuote(colonneProva - 3, QString(""));
        QCOMPARE(testate(r.colonne), prima + QStringList({"Arrivo", "Salita", "Città di Forlì"}) + vuote +
                                         QStringList({"P.A.", "Pen."}));
        QCOMPARE(r.colonne.at(prima.size() + 2).sotto, QString("00:01:30"));
        QCOMPARE(r.colonne.at(prima.size() + 3).sotto, QString());
        QCOMPARE(
            r.righe().first().mid(prima.size()),
            QStringList({"00:01:30:05", "00:01:29:95", "1:00:00:00"}) + vuote + QStringList({"7", "12,5"}));
        QVERIFY(!r.orizzontale);
    }
}

void tst_RapportiDefiniti::proveMancanti() {
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

// The factors multiply the tests' penalties alone; what was added comes on top, and none is none.
void tst_RapportiDefiniti::schedaComeLaPenalitaTotale() {
    const QString anno = "Coefficiente per Veicolo :", gruppo = "Coefficiente Raggruppamento :";
    // The group and its factor, whether the year counts and its factor; the lines between the sums, the
    // total.
    const std::tuple<QVariantList, QStringList, const char*> casi[] = {
        {{0, 0.0, false, 0}, {}, "1030,5"},
        {{0, 0.0, true, 1.55}, {anno, "1,55"}, "1597"},
        {{4, 1.05, true, 1.55}, {anno, "1,55", gruppo, "1,05"}, "1676,825"},
        {{4, 0.0, false, 0}, {gruppo, "1"}, "1030,5"},
        {{4, {}, false, 0}, {gruppo, "1"}, "1030,5"},
        {{{}, 2.0, false, 3}, {}, "1030,5"}};
    for (const auto& [fattori, coefficienti, totale] : casi) {
        esegui("DELETE FROM Schede");
        int idPro = 0;
        for (const auto& [pen, penAgg] :
             {std::pair(1000.0, QVariant()), std::pair(30.0, QVariant(0.0)), std::pair(0.0, QVariant(0.5))})
            riga("Schede", "Num,IDPro,Pen,PenAgg,IDGru,FatGru,FatAnnAtt,FatAnn",
                 QVariantList{1, ++idPro, pen, penAgg} + fattori);
        const GruppoRapporto scheda = componi("Schede").gruppi.first();
        QCOMPARE(scheda.piede.first().etichetta, QStringLiteral("Penalità Totali :"));
        QCOMPARE(scheda.piede.first().valori.mid(6), QStringList({"0,5", "1030"}));
        QStringList righe;
        for (const RigaPiede& riga : scheda.piede.mid(1))
            righe << riga.etichetta << riga.valori.last();
        QCOMPARE(righe, coefficienti + QStringList({"PENALITA' TOTALI MANIFESTAZIONE :", totale}));
    }
}

void tst_RapportiDefiniti::schedaIntera() {
    const QVariantMap scheda =
        valori("Num,Con,Nav,Vei,Cil,Ann,IDGru,NomGru,FatGru,ASI,FatAnnAtt,PosAss,PosGru,PosASIoNoASI",
               {12, "D'ANGELO Niccolò", "ZANÈ Pia", "LANCIA Aprilia", 1352, 1938, 3, "Vetture d'anteguerra",
                1.0, 1, 0, "4", "2", "3"});
    QVariantMap seconda = valori("IDPro,NomPro,TArr,Pen", {8, "Arrivo", "10:00:00:00", 7.5});
    QVariantMap prima = valori(
        "IDPro,NomPro,TImp,TPar,TArr,Net,TSca,Pen,PenAgg",
        {7, "Salita", "00:01:00", "09:00:00:00", "09:01:00:12", "00:01:00:12", "00:00:00:12", 12.0, 100.0});
    for (QVariantMap* prova : {&seconda, &prima}) {
        prova->insert(scheda);
        inserisciRiga("Schede", *prova);
    }
    const Rapporto r = componi("Schede", "Schede Individuali");
    QCOMPARE(r.titoloFinestra, QStringLiteral("Schede Individuali"));
    QVERIFY(r.paginaPerGruppo);
    QCOMPARE(r.righe(), Righe({{"Salita", "00:01:00", "09:00:00:00", "09:01:00:12", "00:01:00:12",
                                "00:00:00:12", "100", "12"},
                               {"Arrivo", "", "", "10:00:00:00", "", "", "", "7,5"}}));
    QStringList testa;
    for (const QList<Voce>& linea : r.gruppi.first().testa)
        for (const Voce& voce : linea)
            testa << voce.etichetta.trimmed() + voce.valore + voce.coda;
    QCOMPARE(testa,
             QStringList({"NUMERO :12", "EQUIPAGGIO :D'ANGELO Niccolò - ZANÈ Pia", "VEICOLO :LANCIA Aprilia",
                          "ANNO :1938", "CILINDRATA :1352", "Posizioni :", "Assoluta :4", "Class. ASI :3",
                          "di Raggruppamento :Vetture d'anteguerra2"}));
}

void tst_RapportiDefiniti::schedePerEquipaggio() {
    // Crews that came in under one number keep a card each.
    for (const char* con : {"ROSSI", "NERI"}) {
        for (const int idPro : {1, 2})
            riga("Schede", "Num,IDPro,Con,Pen", {5, idPro, con, idPro});
    }
    riga("Schede", "Num,IDPro,Con,PosAss,ASI", {4, 1, "VERDI", "ESC", QVariant()});
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

QTEST_GUILESS_MAIN(tst_RapportiDefiniti)
#include "tst_RapportiDefiniti.moc"

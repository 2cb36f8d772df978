#include "event/Gruppi.h"
#include "supporto/ProgrammaDiProva.h"

namespace {

int gruppoDi(int idEqu) {
    return leggiValore("SELECT IDGru_FK FROM Equipaggi WHERE IDEqu=?", {idEqu})->toInt();
}

}  // namespace

class tst_Gruppi final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void verifica();
    void riassegnazione();
};

void tst_Gruppi::verifica() {
    const QString aggiungere = "Impossbile Aggiungere", mancanti = "Anni Mancanti", errato = "Anno Errato";
    const QString senzaNome = "Inserire il Nome del Raggruppamento";
    const QString senzaFattore = "Inserire il Fattore Moltiplicativo";
    const QString unoSolo = "Inserendo Almeno un Anno E' Obbligatorio Inserire Anche l'Altro";
    const QString perAnno =
        "La Manifestazione Prevede l'Inserimento Automatico\n"
        "degli Equipaggi nei Raggruppamenti in Base all'Anno del Veicolo.\n"
        "E' Obbligatorio Inserire Entrambi gli Anni del Ragruppamento";
    const QString inverso = "L'Anno di Inizio del Raggruppamento è Maggiore dell'Anno di Fine";
    const QString inizio = "L'Anno di Inizio del Raggruppamento Fa Parte di un Raggruppamento già Inserito";
    const QString fine = "L'Anno di Fine del Raggruppamento Fa Parte di un Raggruppamento già Inserito";
    // Name, factor and years; whether crews are assigned by year; the refusal, none when there is no title.
    const struct {
        QStringList campi;
        bool automatica;
        QString titolo = "", testo = "", campo = "";
    } casi[] = {{{"", "", "1950", ""}, true, aggiungere, senzaNome, "txtNom"},
                {{"A", "", "1950", ""}, true, aggiungere, senzaFattore, "txtFat"},
                {{"A", ",", "", ""}, false, aggiungere, senzaFattore, "txtFat"},
                {{"A", "1", "", ""}, true, mancanti, perAnno, "txtDaAnn"},
                {{"A", "1,5", "", ""}, false},
                {{"A", "1", "1950", ""}, false, mancanti, unoSolo, "txtDaAnn"},
                {{"A", "1", "", "1950"}, false, mancanti, unoSolo, "txtDaAnn"},
                {{"A", "1", "1946", "1940"}, false, "Anni Errati", inverso, "txtDaAnn"},
                {{"A", "1", "1945", "1950"}, true, errato, inizio, "txtDaAnn"},
                {{"A", "1", "1925", "1931"}, true, errato, fine, "txtAAnn"},
                {{"A", "1", "1930", "1950"}, true}};
    const QList<Gruppo> altri{{.nom = "Senza anni", .fat = "1"},
                              {.nom = "Post Vintage", .fat = "1", .daAnn = "1931", .aAnn = "1945"},
                              {.nom = "Post Classic", .fat = "1", .daAnn = "1961", .aAnn = "1970"}};
    for (const auto& [campi, automatica, titolo, testo, campo] : casi) {
        const Rifiuto rifiuto = verificaGruppo({0, campi[0], campi[1], campi[2], campi[3]}, altri, automatica,
                                               Operazione::Aggiunta)
                                    .value_or(Rifiuto());
        QCOMPARE((QStringList{rifiuto.titolo, rifiuto.testo, rifiuto.campo}),
                 (QStringList{titolo, testo, campo}));
        QCOMPARE(rifiuto.icona, titolo.startsWith("Imp") ? Icona::Stop : Icona::Esclamazione);
    }
}

void tst_Gruppi::riassegnazione() {
    nuovaManifestazione();
    const int estraneo = nuovoEquipaggio(1, {{"Ann", 1970}, {"IDGru_FK", 5}});
    nuovaManifestazione();
    const int del1970 = nuovoEquipaggio(1, {{"Ann", 1970}});
    const int senzaAnno = nuovoEquipaggio(2, {{"Ann", QVariant()}, {"IDGru_FK", 3}});
    const int fuori = nuovoEquipaggio(3, {{"Ann", 1849}, {"IDGru_FK", 3}});
    const int del1920 = nuovoEquipaggio(4, {{"Ann", 1920}, {"IDGru_FK", 3}});
    // Without automatic assignment the crews of the groups that are gone are in none.
    sostituisciConGruppiASI(IDMan, false);
    QCOMPARE(gruppoDi(del1920), 0);
    sostituisciConGruppiASI(IDMan, true);
    const QList<Gruppo> gruppi = leggiGruppi(IDMan);
    QCOMPARE(gruppi.size(), 7);
    QCOMPARE(gruppoDi(del1970), gruppi[6].id);  // the later of the two that hold the year
    QCOMPARE(gruppoDi(senzaAnno), 0);
    QCOMPARE(gruppoDi(fuori), 0);
    QCOMPARE(gruppoDi(del1920), gruppi[2].id);
    QCOMPARE(gruppoDi(estraneo), 5);

    // A change moves everybody; a group that lacks a year takes nobody.
    esegui("UPDATE Raggruppamenti SET AAnn=NULL WHERE IDGru=?", {gruppi[6].id});
    Gruppo vintage = gruppi[2];
    vintage.daAnn = "1921";
    modificaGruppo(IDMan, vintage, true);
    QCOMPARE(gruppoDi(del1970), gruppi[5].id);
    QCOMPARE(gruppoDi(del1920), 0);
    // An added group takes its own crews and leaves the others.
    const int nuovo = aggiungiGruppo(IDMan, {0, "Nuovo", "1", "1919", "1920"}, true);
    QCOMPARE(gruppoDi(del1920), nuovo);
    QCOMPARE(gruppoDi(del1970), gruppi[5].id);
}

QTEST_GUILESS_MAIN(tst_Gruppi)
#include "tst_Gruppi.moc"

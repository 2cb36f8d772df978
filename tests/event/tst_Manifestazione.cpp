#include "event/ManifestazioneAttiva.h"
#include "event/NuovaManifestazione.h"
#include "supporto/ProgrammaDiProva.h"

class tst_Manifestazione final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void elencoEdEliminazione();
};

void tst_Manifestazione::elencoEdEliminazione() {
    const auto riempi = [](const QString& nome) {
        const int id = nuovaManifestazione({{"Nom", nome}});
        nuovaProva();
        nuovaProva();
        aggiungiGruppo(id, {0, "A", "1", "", ""}, false);
        aggiungiSquadra(id, "S");
        const int prezzo = inserisciRiga("Prezzi", {{"IDMan_FK", id}, {"Des", "Iscrizione"}, {"Pre", 100}});
        for (int num = 1; num <= 3; ++num)
            inserisciRiga("Incassi", {{"IDEqu_FK", nuovoEquipaggio(num)}, {"IDPre_FK", prezzo}, {"Qta", 1}});
    };
    riempi("Prima");
    const int prima = IDMan;
    riempi("Seconda");
    const QList<VoceElencoManifestazioni> elenco = leggiManifestazioni();
    QCOMPARE(elenco.size(), 2);
    QCOMPARE(elenco[1].id, prima);
    QCOMPARE(elenco[1].date, QString("13/06/2026 - 14/06/2026"));

    const int seconda = IDMan;
    dialoghi().attendiDomanda("ELIMINARE LA MANIFESTAZIONE CORRENTE ?", QString(), false);
    QVERIFY(!EliminaManifestazione());
    QCOMPARE(IDMan, seconda);
    dialoghi().attendiDomanda("ELIMINARE LA MANIFESTAZIONE CORRENTE ?",
                              "ELIMINANDO LA MANIFESTAZIONE VERRANNO ELIMINATI\n"
                              "ANCHE TUTTI GLI EQUIPAGGI ISCRITTI E TUTTI I RELATIVI\n"
                              "TEMPI INSERITI\n"
                              "ELIMINARE VERAMENTE ?",
                              true);
    dialoghi().attendiAvviso("Manifestazione Eliminata");
    QVERIFY(EliminaManifestazione());
    QCOMPARE(dialoghi().viste().constFirst().icona, Icona::Domanda);
    // Of every table only the other event's rows are left.
    const QMap<QString, int> rimaste{{"Manifestazioni", 1}, {"Prove", 2},          {"Equipaggi", 3},
                                     {"Rilevamenti", 6},    {"Raggruppamenti", 1}, {"Squadre", 1},
                                     {"Prezzi", 1},         {"Incassi", 3}};
    for (auto attesa = rimaste.cbegin(); attesa != rimaste.cend(); ++attesa)
        QVERIFY2(contaRighe(attesa.key()) == attesa.value(), qPrintable(attesa.key()));
    QCOMPARE(IDMan, 0);
    QCOMPARE(m_programma->impostazioni.leggi("IDMan", "IDMan", "x"), QString("0"));
}

QTEST_GUILESS_MAIN(tst_Manifestazione)
#include "tst_Manifestazione.moc"

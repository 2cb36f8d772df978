#include "shell/Menu.h"
#include "supporto/ProgrammaDiProva.h"

#include <QSet>

namespace {

const QString NessunaAttiva("Nessuna Manifestazione Attiva");
const QString NessunaProva("Nessuna Prova Inserita per la Manifestazione Corrente");
const QString NessunEquipaggio("Nessun Equipaggio Iscritto alla Manifestazione Corrente");

QString nome(const VoceMenu& voce) {
    return voce.nome ? QString::fromUtf16(voce.nome) : QString();
}

}  // namespace

class tst_Menu final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void controlli();
    void titoliCheCambiano();
    void tasti();
};

// What each entry's guard asks, by title, as the operator's manual lists them.
void tst_Menu::controlli() {
    const std::tuple<const char*, bool, const char*> casi[] = {
        // true: tests and crews too
        {"Impossibile Modificare", false, "mnuModificaManifestazione"},
        {"Impossibile Eliminare", false, "mnuEliminaManifestazione"},
        {"Impossibile Accedere Alle Iscrizioni", false,
         "mnuTabellaIscrizioni mnuTabellaIscrizioniRapida mnuModuloIscrizioni "
         "mnuModuloIscrizionirapido"},
        {"Impossibile Accedere ai Prezzi di Iscrizione", false, "mnuPrezzi"},
        {"Impossibile Gestire le Prove", false, "mnuProveSvolte"},
        {"Impossibile Accedere All'Immissione Tempi", true, "mnuImmManuale mnuPenalitaAggiuntive"},
        {"Impossibile Accedere Alla Ricezione ONLINE", true, "mnuRXONLINE"},
        {"Impossibile Accedere Alla Gestione Degli Orari di Partenza", true, "mnuOrariDiPartenza"},
        {"Impossibile Creare Una Ripartenza", true, "mnuCreaRipartenza"},
        {"Impossibile Accedere Alla Classfica di Prova", true, "mnuClasProva mnuClasProvaExcel"},
        {"Impossibile Accedere Al Prospetto Tempi", true,
         "mnuStampaProspettoTempi mnuStampaProspettoTempiExcel mnuStampaProspettoTempiCompresso "
         "mnuStampaProspettoTempiCompressoExcel mnuStampaCoefficienti mnuStampaCoefficientiExcel"},
        {"Impossibile Accedere Alle Verifiche", false,
         "mnuVerificheTutti mnuVerificheASI mnuVerificheNONASI"},
        {"Impossibile Accedere Alla Stampa Schede", false, "mnuSchede"},
        {"Impossibile Accedere All'Iportazione", false, "mnuImportazioneIscrizionidaExcel"},
        {"Impossibile Generare la Classsifica", false,
         "mnuStampaListaDiPartenza mnuStampaListaDiPartenzaExcel mnuStampaListaDiPartenzaConOrari "
         "mnuStampaListaDiPartenzaConOrariinExcel mnuImportazioneProve mnuClasRaggruppamento "
         "mnuClasSquadre mnuClasGioSqu"}};
    for (const auto& [titolo, conDati, voci] : casi) {
        for (const QString& voce : QString(voci).split(' ')) {
            ricomincia();
            const auto trovata = std::ranges::find(vociMenu(), voce, nome);
            QVERIFY2(trovata != vociMenu().end(), qPrintable(voce));
            const auto rifiuta = [&, titolo = titolo](const QString& testo) {
                dialoghi().attendiMessaggio(titolo, testo);
                return !controlla(trovata->controllo) && dialoghi().finite();
            };
            QVERIFY2(rifiuta(NessunaAttiva), qPrintable(voce));
            IDMan = 99;  // a key whose row is gone
            QVERIFY2(rifiuta(NessunaAttiva), qPrintable(voce));
            nuovaManifestazione();
            if (conDati) {
                QVERIFY2(rifiuta(NessunaProva), qPrintable(voce));  // with neither, the tests are named
                const int pro = nuovaProva();
                QVERIFY2(rifiuta(NessunEquipaggio), qPrintable(voce));
                nuovoEquipaggio(1);
                esegui("DELETE FROM Prove WHERE IDPro=?", {pro});
                QVERIFY2(rifiuta(NessunaProva), qPrintable(voce));
                nuovaProva();
            }
            QVERIFY2(controlla(trovata->controllo), qPrintable(voce));
        }
    }
}

void tst_Menu::titoliCheCambiano() {
    const auto rifiuta = [&](Controllo controllo, const QString& titolo, const QString& testo) {
        dialoghi().attendiMessaggio("Impossibile Accedere " + titolo, testo);
        return !controlla(controllo) && dialoghi().finite();
    };
    QVERIFY(rifiuta(Controllo::Quote, "alle Quote di Iscrizione", NessunaAttiva));
    QVERIFY(rifiuta(Controllo::RicezioneOffLine, "Alla Ricezione Tempi", NessunaAttiva));
    IDMan = 99;
    QVERIFY(rifiuta(Controllo::Quote, "agli Incassi", NessunaAttiva));
    const int man = nuovaManifestazione();
    QVERIFY(rifiuta(Controllo::Quote, "alle Quote di Iscrizione", "Nessun Prezzo di Iscrizione Inserito"));
    QVERIFY(rifiuta(Controllo::RicezioneOffLine, "Alla Ricezione OFFLINE", NessunaProva));
    inserisciRiga("Prezzi", {{"IDMan_FK", man}});
    nuovaProva();
    QVERIFY(rifiuta(Controllo::Quote, "alle Quote di Iscrizione", NessunEquipaggio));
    QVERIFY(rifiuta(Controllo::RicezioneOffLine, "Alla Ricezione OFFLINE", NessunEquipaggio));
    nuovoEquipaggio(1);
    QVERIFY(controlla(Controllo::Quote));

    const auto invio = std::ranges::find(vociMenu(), QString("mnuInviaSMS"), nome)->controllo;
    esegui("UPDATE Prove SET Svo=NULL");
    QVERIFY(rifiuta(invio, "All'Invio degli SMS", "Nessuna Prova Svolta per la Manifestazione Corrente"));
    esegui("UPDATE Prove SET Svo=1");
    QVERIFY(controlla(invio));
    esegui("DELETE FROM Equipaggi");
    QVERIFY(rifiuta(invio, "All'Invio degli SMS", NessunEquipaggio));
    IDMan = 0;
    QVERIFY(rifiuta(invio, "All'Invio degli SMS", NessunaAttiva));
}

void tst_Menu::tasti() {
    // Each entry has a key, and in each menu no key stands for two, or the keyboard would stop at the first.
    QHash<int, QSet<QChar>> usati;
    for (const VoceMenu& voce : vociMenu()) {
        for (int livello = voce.livello + 1; livello < 3; ++livello)
            usati[livello].clear();
        const QString testo = QString::fromUtf16(voce.testo);
        const qsizetype posto = testo.indexOf('&');
        QVERIFY2(posto >= 0, qPrintable(testo));
        const QChar tasto = testo.at(posto + 1).toLower();
        QVERIFY2(!usati[voce.livello].contains(tasto), qPrintable(testo));
        usati[voce.livello].insert(tasto);
    }
}

QTEST_GUILESS_MAIN(tst_Menu)
#include "tst_Menu.moc"

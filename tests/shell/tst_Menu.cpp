#include "shell/Menu.h"
#include "supporto/ProgrammaDiProva.h"

#include <QSet>
#include <QTest>

namespace {

const QString NessunaAttiva("Nessuna Manifestazione Attiva");
const QString NessunaProva("Nessuna Prova Inserita per la Manifestazione Corrente");
const QString NessunEquipaggio("Nessun Equipaggio Iscritto alla Manifestazione Corrente");

QString nome(const VoceMenu& voce) {
    return voce.nome ? QString::fromUtf16(voce.nome) : QString();
}

}  // namespace

class tst_Menu final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void controlli_data();
    void controlli();
    void incassiCambiaTitolo();
    void offlineHaDueTitoli();
    void tasti();
};

// What each entry's guard asks, by title, as the operator's manual lists them.
void tst_Menu::controlli_data() {
    QTest::addColumn<QString>("voce");
    QTest::addColumn<QString>("titolo");
    QTest::addColumn<bool>("conDati");  // tests and crews too
    const auto righe = [](const char* titolo, bool conDati, const QStringList& voci) {
        for (const QString& voce : voci)
            QTest::newRow(qPrintable(voce)) << voce << QString::fromUtf8(titolo) << conDati;
    };
    righe("Impossibile Modificare", false, {"mnuModificaManifestazione"});
    righe("Impossibile Eliminare", false, {"mnuEliminaManifestazione"});
    righe("Impossibile Accedere Alle Iscrizioni", false,
          {"mnuTabellaIscrizioni", "mnuTabellaIscrizioniRapida", "mnuModuloIscrizioni",
           "mnuModuloIscrizionirapido"});
    righe("Impossibile Accedere ai Prezzi di Iscrizione", false, {"mnuPrezzi"});
    righe("Impossibile Gestire le Prove", false, {"mnuProveSvolte"});
    righe("Impossibile Accedere All'Immissione Tempi", true, {"mnuImmManuale", "mnuPenalitaAggiuntive"});
    righe("Impossibile Accedere Alla Ricezione ONLINE", true, {"mnuRXONLINE"});
    righe("Impossibile Accedere Alla Gestione Degli Orari di Partenza", true, {"mnuOrariDiPartenza"});
    righe("Impossibile Creare Una Ripartenza", true, {"mnuCreaRipartenza"});
    righe("Impossibile Accedere Alla Classfica di Prova", true, {"mnuClasProva", "mnuClasProvaExcel"});
    righe("Impossibile Accedere Al Prospetto Tempi", true,
          {"mnuStampaProspettoTempi", "mnuStampaProspettoTempiExcel", "mnuStampaProspettoTempiCompresso",
           "mnuStampaProspettoTempiCompressoExcel", "mnuStampaCoefficienti", "mnuStampaCoefficientiExcel"});
    righe("Impossibile Accedere Alle Verifiche", false,
          {"mnuVerificheTutti", "mnuVerificheASI", "mnuVerificheNONASI"});
    righe("Impossibile Accedere Alla Stampa Schede", false, {"mnuSchede"});
    righe("Impossibile Accedere All'Iportazione", false, {"mnuImportazioneIscrizionidaExcel"});
    righe("Impossibile Generare la Classsifica", false,
          {"mnuStampaListaDiPartenza", "mnuStampaListaDiPartenzaExcel", "mnuStampaListaDiPartenzaConOrari",
           "mnuStampaListaDiPartenzaConOrariinExcel", "mnuImportazioneProve", "mnuClasRaggruppamento"});
}

void tst_Menu::controlli() {
    QFETCH(QString, voce);
    QFETCH(QString, titolo);
    QFETCH(bool, conDati);
    ProgrammaDiProva programma;
    const auto trovata = std::ranges::find(vociMenu(), voce, nome);
    QVERIFY(trovata != vociMenu().end());
    const auto rifiuta = [&](const QString& testo) {
        programma.dialoghi.attendiMessaggio(titolo, testo);
        return !controlla(trovata->controllo) && programma.dialoghi.finite();
    };
    QVERIFY(rifiuta(NessunaAttiva));
    IDMan = 99;  // a key whose row is gone
    QVERIFY(rifiuta(NessunaAttiva));
    nuovaManifestazione();
    if (conDati) {
        QVERIFY(rifiuta(NessunaProva));  // with neither, the tests are named
        const int pro = nuovaProva();
        QVERIFY(rifiuta(NessunEquipaggio));
        nuovoEquipaggio(1);
        esegui("DELETE FROM Prove WHERE IDPro=?", {pro});
        QVERIFY(rifiuta(NessunaProva));
        nuovaProva();
    }
    QVERIFY(controlla(trovata->controllo));
}

void tst_Menu::incassiCambiaTitolo() {
    ProgrammaDiProva programma;
    const QString titolo("Impossibile Accedere alle Quote di Iscrizione");
    const auto rifiuta = [&](const QString& conTitolo, const QString& testo) {
        programma.dialoghi.attendiMessaggio(conTitolo, testo);
        return !controlla(Controllo::Quote) && programma.dialoghi.finite();
    };
    QVERIFY(rifiuta(titolo, NessunaAttiva));
    IDMan = 99;
    QVERIFY(rifiuta("Impossibile Accedere agli Incassi", NessunaAttiva));
    const int man = nuovaManifestazione();
    QVERIFY(rifiuta(titolo, "Nessun Prezzo di Iscrizione Inserito"));
    inserisciRiga("Prezzi", {{"IDMan_FK", man}});
    QVERIFY(rifiuta(titolo, NessunEquipaggio));
    nuovoEquipaggio(1);
    QVERIFY(controlla(Controllo::Quote));
}

void tst_Menu::offlineHaDueTitoli() {
    ProgrammaDiProva programma;
    const auto rifiuta = [&](const QString& titolo, const QString& testo) {
        programma.dialoghi.attendiMessaggio(titolo, testo);
        return !controlla(Controllo::RicezioneOffLine) && programma.dialoghi.finite();
    };
    QVERIFY(rifiuta("Impossibile Accedere Alla Ricezione Tempi", NessunaAttiva));
    nuovaManifestazione();
    QVERIFY(rifiuta("Impossibile Accedere Alla Ricezione OFFLINE", NessunaProva));
    nuovaProva();
    QVERIFY(rifiuta("Impossibile Accedere Alla Ricezione OFFLINE", NessunEquipaggio));
}

void tst_Menu::tasti() {
    // In each menu no key stands for two entries, or the keyboard would stop at the first.
    QHash<int, QSet<QChar>> usati;
    for (const VoceMenu& voce : vociMenu()) {
        for (int livello = voce.livello + 1; livello < 3; ++livello)
            usati[livello].clear();
        const QString testo = QString::fromUtf16(voce.testo);
        const qsizetype posto = testo.indexOf('&');
        if (posto < 0)
            continue;
        const QChar tasto = testo.at(posto + 1).toLower();
        QVERIFY2(!usati[voce.livello].contains(tasto), qPrintable(testo));
        usati[voce.livello].insert(tasto);
    }
}

QTEST_GUILESS_MAIN(tst_Menu)
#include "tst_Menu.moc"

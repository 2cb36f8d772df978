#include "event/NuovaManifestazione.h"
#include "supporto/ProgrammaDiProva.h"

namespace {

// "PA CO+ PM": kinds in order, chained ones with a plus.
QList<Prova> elenco(const QString& testo) {
    QList<Prova> prove;
    const QStringList tipi = testo.split(' ', Qt::SkipEmptyParts);
    for (const QString& tipo : tipi) {
        const bool concatenata = tipo.endsWith('+');
        prove << Prova{.tip = tipo.left(2), .tem = "00:10:00", .concatenata = concatenata};
    }
    return prove;
}

// An event with these tests; the keys of the tests.
QList<int> salva(const QString& testo) {
    ImpostaManifestazioneAttiva(
        salvaManifestazione({.dati = datiIniziali(), .gruppi = {}, .squadre = {}, .prove = elenco(testo)}));
    QList<int> chiavi;
    for (const Prova& prova : leggiProve(IDMan))
        chiavi << prova.id;
    return chiavi;
}

// What each test is chained to, by position from 1; 0 for none.
QString catena(const QList<int>& chiavi) {
    QStringList posizioni;
    for (const QString& conA :
         leggiColonna("SELECT ConA FROM Prove WHERE IDMan_FK=? ORDER BY IDPro", {IDMan}))
        posizioni << QString::number(chiavi.indexOf(conA.toInt()) + 1);
    return posizioni.join(' ');
}

}  // namespace

class tst_Prove final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void verifica();
    void catene();
};

void tst_Prove::verifica() {
    const char* senzaTempo = "Inserire il Tempo Imposto della Prova";
    const char* prima = "La Prima Prova non può Essere\nConcatenata con la Precedente";
    const char* primoCO = "Il Primo CO non può Essere\nConcatenato con il Precedente";
    // The list, the place, the test that goes there, why not (empty: it may).
    const struct {
        const char* elenco;
        int posizione;
        const char *prova, *testo, *tempo = "00:01:00";
    } casi[] = {
        // Added.
        {"", 0, "CO+", senzaTempo, ""},
        {"", 0, "PA+", prima},
        {"PA PM", 2, "CO+", primoCO},
        {"CO", 1, "PA+", "", "00:00:00"},
        // Changed: only what comes before counts.
        {"PA CO", 0, "PA+", prima},
        {"PA PA CO", 1, "CO+", primoCO},
        {"CO PA CO", 1, "CO+", ""},
    };
    for (const auto& caso : casi) {
        Prova nuova = elenco(caso.prova).constFirst();
        nuova.tem = caso.tempo;
        const std::optional<Rifiuto> rifiuto = verificaProva(nuova, elenco(caso.elenco), caso.posizione);
        QCOMPARE(rifiuto ? rifiuto->testo : "", QString(caso.testo));
        if (rifiuto) {
            QCOMPARE(rifiuto->titolo, QString("Impossibile Aggiungere"));
            QCOMPARE(rifiuto->icona, Icona::Stop);
        }
    }
}

void tst_Prove::catene() {
    // The tests, the one worked on (-1: none), what it becomes (empty: deleted), and what each is chained to
    // in the end, by its place before a deletion.
    const struct {
        const char* prima;
        int posizione;
        const char *nuova, *attesa;
    } casi[] = {
        // Saved: to the one before; a CO over other kinds; what a deletion has left chained.
        {"PA PA+ PM+ PA", -1, "", "0 1 2 0"},
        {"CO PA+ PM+ CO+ PA CO+", -1, "", "0 1 2 1 0 4"},
        {"PA+ CO+ PA+", -1, "", "0 0 2"},
        // Added.
        {"CO CO PA PM", 4, "CO+", "0 0 0 0 2"},
        {"", 0, "PA", "0"},
        // Changed, without a CO or with one before and after: the later chains stay.
        {"PA PA+ PA+", 1, "PA", "0 0 2"},
        {"CO PA CO+", 1, "PA+", "0 1 1"},
        // A CO no more: the first later CO goes to the CO before, or to none.
        {"CO PA CO+ PM CO+", 2, "PA+", "0 0 2 0 1"},
        {"PA CO PA CO+", 1, "PM+", "0 1 0 0"},
        // Now a CO: the first later CO goes to it, unless it is not chained.
        {"CO PA PM CO+", 1, "CO+", "0 1 0 2"},
        {"CO PA CO CO+", 1, "CO+", "0 1 0 3"},
        // Deleted: the next loses its chain, and after a CO the first later CO.
        {"PA PA+ PM+ PA+", 1, "", "0 0 3"},
        {"CO PA+ PM CO+ CO+", 0, "", "0 0 0 4"},
        {"CO CO+ CO CO+", 1, "", "0 0 3"},
        {"CO PM+ CO+ PA+", 1, "", "0 1 3"},
        {"PA", 0, "", ""},
    };
    for (const auto& [prima, posizione, nuova, attesa] : casi) {
        ricomincia();
        salva("CO PA");  // of another event: no chain reaches them, nor do its crews get readings
        nuovoEquipaggio(9);
        QList<int> chiavi = salva(prima);
        nuovoEquipaggio(1);
        if (posizione >= 0 && !*nuova) {
            eliminaProva(IDMan, chiavi[posizione]);
            QVERIFY_EXCEPTION_THROWN(modificaProva(IDMan, {.id = chiavi[posizione], .tip = "PA"}), Errore);
        } else if (posizione == chiavi.size()) {
            chiavi << aggiungiProva(IDMan, elenco(nuova).constFirst());
        } else if (posizione >= 0) {
            Prova prova = elenco(nuova).constFirst();
            prova.id = chiavi[posizione];
            modificaProva(IDMan, prova);
        }
        QCOMPARE(contaRighe("Rilevamenti", "TPar='' AND TArr='' AND PenAgg IS NULL"),
                 2 + leggiProve(IDMan).size());
        QVERIFY2(catena(chiavi) == attesa,
                 qPrintable(QString(prima) + " -> " + nuova + ": " + catena(chiavi)));
    }
}

QTEST_GUILESS_MAIN(tst_Prove)
#include "tst_Prove.moc"

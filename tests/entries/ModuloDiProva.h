#pragma once

#include "entries/frmModuloIscrizioni.h"
#include "supporto/ProvaFinestre.h"

#include <memory>
#include <QCheckBox>

// The entry form of an event with two tests, and hands to work it with.
class ModuloDiProva : public ProvaConProgramma {
protected:
    static constexpr char Impossibile[] = "Impossbile Salvare";
    static constexpr char Assegnato[] = "Numero Già Assegnato";
    static constexpr char AnnoErrato[] = "Anno NON Valido";
    static constexpr char SenzaNumero[] = "Inserire il Numero dell'Equipaggio";
    // The ways to leave the crew in the middle of the list.
    static constexpr const char* Uscite[] = {"cmdPrimo", "cmdPrecedente", "cmdSuccessivo", "cmdUltimo",
                                             "cmdNuovo", "cmdEsci",       "list"};

    void prepara() override {
        nuovaManifestazione();
        nuovaProva();
        nuovaProva({{"Tip", "CO"}, {"Svo", 0}});
    }

    void chiudi() override { m_finestra.reset(); }

    template <typename Controllo>
    Controllo* trova(const char* nome) {
        return controllo<Controllo>(*m_finestra, nome);
    }
    QLineEdit* box(const char* nome) { return trova<QLineEdit>(nome); }
    QComboBox* combo(const char* nome) { return trova<QComboBox>(nome); }
    QTreeWidget* lista() { return trova<QTreeWidget>("lstEq"); }
    QString testo(const char* nome) { return box(nome)->text(); }
    int rigaScelta() { return lista()->currentIndex().row(); }
    void clic(const char* nome) { premi(*m_finestra, nome); }
    void esci(const char* uscita, int riga = 0) {
        qstrcmp(uscita, "list") == 0 ? clicRiga(riga) : clic(uscita);
    }
    void attendi(const char* titolo, const char* testo) {
        m_programma->dialoghi.attendiMessaggio(QString::fromUtf8(titolo), QString::fromUtf8(testo));
    }

    void apri() {
        m_finestra = std::make_unique<frmModuloIscrizioni>();
        ::mostra(*m_finestra);
    }

    // 3 VERDI, 12 BRUNI, 20 ABATE.
    void apriConEquipaggi() {
        nuovoEquipaggio(20, {{"Cog", "ABATE"}, {"Nom", "Ugo"}, {"Ann", 1950}});
        nuovoEquipaggio(3, {{"Cog", "VERDI"}, {"Nom", "Ada"}, {"Ann", 1965}});
        nuovoEquipaggio(12, {{"Cog", "BRUNI"}, {"Nom", "Leo"}, {"Ann", 1935}});
        apri();
    }

    void clicRiga(int riga) { ::clicRiga(lista(), riga); }
    void clicTestata(int colonna) { ::clicTestata(lista()->header(), colonna); }
    void scrivi(const char* nome, const QString& testo) { ::scrivi(*m_finestra, nome, testo); }
    void confronta(const QString& attesi) { ::confronta(*m_finestra, attesi); }

    // Whether a new crew is being typed; every control must agree on it.
    bool inserimento() {
        const bool attivo = trova<QPushButton>("cmdSalva")->isEnabled();
        const auto tutti = [&](std::initializer_list<const char*> nomi, bool abilitati) {
            return std::ranges::all_of(
                nomi, [&](const char* nome) { return trova<QWidget>(nome)->isEnabled() == abilitati; });
        };
        [&] {
            QVERIFY(tutti({"cmdSalva", "cmdAnnulla"}, attivo));
            QVERIFY(tutti({"cmdPrimo", "cmdPrecedente", "cmdSuccessivo", "cmdUltimo", "cmdNuovo",
                           "cmdElimina", "lstEq"},
                          !attivo));
            QVERIFY(tutti({"cmdRic", "cmdEsci"}, true));
            QCOMPARE(testo("txtIDEqu").isEmpty(), attivo || lista()->topLevelItemCount() == 0);
        }();
        return attivo;
    }

    QStringList righe() {
        QStringList testi;
        for (int i = 0; i < lista()->topLevelItemCount(); ++i)
            testi << lista()->topLevelItem(i)->text(1) + u' ' + lista()->topLevelItem(i)->text(2);
        return testi;
    }

    std::unique_ptr<frmModuloIscrizioni> m_finestra;
};

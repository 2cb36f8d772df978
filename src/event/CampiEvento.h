#pragma once

#include "common/Campi.h"
#include "event/Elenco.h"
#include "event/Gruppi.h"
#include "event/Prove.h"

class QComboBox;

// What the pages of the creation and the windows of the editing share: their fields and the rows of their
// lists.

// Shows a refusal and moves the focus; true when there is none.
bool accettato(QWidget* finestra, const std::optional<Rifiuto>& rifiuto);

// The road of Enter through the fields ends on cmdMod when a row was opened, on cmdAgg when not.
void chiudiPercorso(QWidget* finestra, const QString& ultimoCampo, bool rigaAperta);

Elenco::Riga rigaElenco(const Prova& prova);  // "Tipo", "Nome", "Località", "Tem. Imp.", "Data", "Conc."
Elenco::Riga rigaElenco(const Gruppo& gruppo);
Elenco::Riga rigaElenco(const Squadra& squadra);

template <typename T>
void riempiElenco(Elenco* elenco, const QList<T>& valori) {
    QList<Elenco::Riga> righe;
    for (const T& valore : valori)
        righe << rigaElenco(valore);
    elenco->riempi(righe);
}

// The fields of a test: cboPro, txtNom, txtLoc, txtTem, Dat, cboCon of a window.
class CampiProva final : public QObject {
    Q_OBJECT

public:
    explicit CampiProva(QWidget* finestra);

    // Time controls measured from the start: they cannot be chained.
    void impostaAllaPartenza(bool allaPartenza);
    [[nodiscard]] Prova leggi() const;
    void scrivi(const Prova& prova);
    // Ready for the next test; the day stays, unless it is to go too.
    void azzera(bool ancheData);
    void proponiData(const QString& data);
    bool risolvi() { return m_uscita.risolvi(); }

private:
    void aggiornaConcatenazione();

    QComboBox* m_pro;
    QLineEdit* m_nom;
    QLineEdit* m_loc;
    QLineEdit* m_tem;
    QLineEdit* m_dat;
    QComboBox* m_con;
    bool m_allaPartenza = false;
    ControlliUscita m_uscita;
};

// The fields of a group: txtNom, txtFat, txtDaAnn, txtAAnn of a window.
class CampiGruppo final : public QObject {
    Q_OBJECT

public:
    explicit CampiGruppo(QWidget* finestra);

    [[nodiscard]] Gruppo leggi() const;
    void scrivi(const Gruppo& gruppo);
    void azzera();
    bool risolvi() { return m_uscita.risolvi(); }

private:
    QLineEdit* m_nom;
    QLineEdit* m_fat;
    QLineEdit* m_daAnn;
    QLineEdit* m_aAnn;
    ControlliUscita m_uscita;
};

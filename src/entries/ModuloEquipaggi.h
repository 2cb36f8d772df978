#pragma once

#include "common/Finestra.h"
#include "entries/CampiEquipaggio.h"

class ElencoIscritti;
class QComboBox;
class QLineEdit;
class QPushButton;

// An entry form: one crew at a time beside the list of all crews of the event. A stored crew is written back
// whenever the operator leaves it; a new one passes through "Salva" or "Annulla". The forms built on it
// differ in their controls alone.
class ModuloEquipaggi : public Finestra {
    Q_OBJECT

public:
    Q_DISABLE_COPY_MOVE(ModuloEquipaggi)
    ~ModuloEquipaggi() override = default;

    bool eventFilter(QObject* oggetto, QEvent* evento) override;

protected:
    explicit ModuloEquipaggi(QWidget* padre);
    // To be called once, when the form has its controls.
    void apri();

    bool puoChiudere() override;

private:
    void trovaControlli();
    void collegaPulsanti();
    void preparaElenco();
    void preparaCampiEquipaggio();
    void riempiScelte();
    void riempiElenco();

    void nuovo();
    void salva();
    void annulla();
    void elimina();
    void copia();
    void ordina(int colonna);
    bool rigaScelta();  // false when the crew on show stays

    [[nodiscard]] bool inserimento() const;
    void impostaInserimento(bool attivo);
    [[nodiscard]] int righe() const;
    bool mostraRiga(int riga);  // false when the crew on show cannot be left
    bool vai(int riga);
    bool riscrivi();
    void svuota();
    void vaiAlNumero();

    // Checks on leaving a field; false keeps the operator in it.
    bool controllaCampo(QLineEdit* campo);
    bool controllaAnno();
    bool lasciaCampo();

    std::optional<CampiEquipaggio> m_campi;
    SchedaEquipaggio m_mostrata;    // the crew on show as it came
    bool m_annoDaValidare = false;  // typed or copied since
    QList<QLineEdit*> m_date;
    ElencoIscritti* m_lstEq = nullptr;
    QLineEdit* m_txtIDEqu = nullptr;
    QLineEdit* m_txtNum = nullptr;
    QLineEdit* m_txtAnn = nullptr;
    QComboBox* m_cboGruppo = nullptr;
    QPushButton* m_cmdPrimo = nullptr;
    QPushButton* m_cmdPrecedente = nullptr;
    QPushButton* m_cmdSuccessivo = nullptr;
    QPushButton* m_cmdUltimo = nullptr;
    QPushButton* m_cmdNuovo = nullptr;
    QPushButton* m_cmdSalva = nullptr;
    QPushButton* m_cmdAnnulla = nullptr;
    QPushButton* m_cmdElimina = nullptr;
    int m_indice = -1;  // row of the list on show
    int m_ordine = -1;  // column that the list is sorted on, once one was chosen
    bool m_senzaControlli = false;
};

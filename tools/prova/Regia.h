#pragma once

#include "common/Dialoghi.h"
#include "common/Impostazioni.h"
#include "output/Anteprima.h"

#include <functional>
#include <QHash>
#include <QList>
#include <QObject>
#include <QString>

class frmMain;
class QWidget;

// The stand-in for the operator in a rehearsal: chooses from the menu, works the windows that open, answers
// the boxes and keeps what comes out, reports as PDF files and windows as pictures, in one folder.
class Regia final : public QObject, public Dialoghi, public Anteprima, public Impostazioni {
public:
    explicit Regia(const QString& cartella);
    Q_DISABLE_COPY_MOVE(Regia)
    ~Regia() override;

    // Waits for the next modal window of that name, which `azione` works and closes. In the order asked.
    void quandoSiApre(const QString& finestra, const std::function<void(QWidget&)>& azione);
    void scegli(frmMain& principale, const QString& voce);
    void fotografa(QWidget& finestra, const QString& nome);
    // A control of a window, by its name; throws when there is none.
    template <typename Controllo>
    Controllo& controllo(QWidget& finestra, const QString& nome);
    // The operator's hand on a control of the window, by its name: types into a box, chooses in a combo,
    // presses.
    void scrivi(QWidget& finestra, const QString& campo, const QString& testo);
    void scegliVoce(QWidget& finestra, const QString& combo, const QString& testo);
    void premi(QWidget& finestra, const QString& pulsante);
    void digita(const QString& testo);  // into the control that has the focus
    void tasto(int tasto, const QString& testo = {});
    // Lets the program go on until the condition holds; throws when it does not in good time.
    void attendi(const QString& che, const std::function<bool()>& condizione);
    // What the next input boxes and file dialogs are answered; without any, what they propose.
    void rispondi(const QString& risposta) { m_risposte << risposta; }
    // The title of a box that may come; any other failure box ends the rehearsal as failed.
    void ammetti(const QString& titolo) { m_ammessi << titolo; }
    // What went wrong, one line each; empty when all went as it should.
    [[nodiscard]] const QStringList& guasti() const { return m_guasti; }
    [[nodiscard]] int rapporti() const { return m_rapporti; }

    void messaggio(const QString& titolo, const QString& testo, Icona icona) override;
    bool domanda(const QString& titolo, const QString& testo, Icona icona, Innocua innocua) override;
    std::optional<QString> chiedi(const QString& titolo, const QString& testo,
                                  const QString& predefinito) override;
    QString apriFile(const QString& titolo, const QString& cartella, const QString& filtro) override;
    QString salvaFile(const QString& titolo, const QString& proposto, const QString& filtro) override;
    void avviso(const QString& testo) override;
    void mostra(const Rapporto& rapporto) override;
    [[nodiscard]] QString leggi(const QString& sezione, const QString& chiave,
                                const QString& predefinito) const override;
    void scrivi(const QString& sezione, const QString& chiave, const QString& valore) override;

private:
    struct Attesa {
        QString finestra;
        std::function<void(QWidget&)> azione;
    };
    void guarda();
    void guardaAncora();
    void guasto(const QString& testo);
    QWidget* trova(QWidget& finestra, const QString& nome);
    QString prossimaRisposta(const QString& proposta);

    QString m_cartella;
    QList<Attesa> m_attese;
    QStringList m_risposte;
    QStringList m_ammessi;
    QStringList m_guasti;
    QHash<QString, QString> m_impostazioni;
    int m_rapporti = 0;
    int m_figure = 0;
};

template <typename Controllo>
Controllo& Regia::controllo(QWidget& finestra, const QString& nome) {
    return dynamic_cast<Controllo&>(*trova(finestra, nome));
}

#pragma once

#include "common/Finestra.h"
#include "devices/PannelloStato.h"
#include "devices/Scaricamento.h"
#include "download/Assegnazione.h"

class QComboBox;
class QPushButton;

// A window that reads the memory of a chronometer: device and port, start and stop, the status panel, the
// heat and what can go wrong on the line.
class FinestraScarico : public Finestra {
    Q_OBJECT

public:
    Q_DISABLE_COPY_MOVE(FinestraScarico)
    ~FinestraScarico() override = default;

protected:
    struct Controlli {
        QComboBox* cboChrono;  // nullptr: the TAG CP520 alone
        QComboBox* cboPortaCOM;
        QPushButton* cmdIniziaRicezione;
        QPushButton* cmdArrestaRicezione;
        PannelloStato* frmStatus;
        QList<QWidget*> altri = {};  // locked as well while a download is under way
    };

    explicit FinestraScarico(QWidget* padre);
    // Once the form is set up. `chiave`: of the settings "com" and "chrono".
    void collega(const Controlli& controlli, const QString& chiave);

    // Before the line is opened; false when the operator has been told why nothing can be received.
    virtual bool prepara() { return true; }
    // The lines of a download that has ended.
    virtual void elabora(Dispositivo dispositivo, const QByteArray& flusso) = 0;
    // The control that a finished download leads to.
    [[nodiscard]] virtual QWidget* prossimoControllo() const = 0;
    virtual void scriviImpostazioni() const;

    bool puoChiudere() override;  // stops the download, keeps the settings
    // Cuts to the precisions of the active event as they are now.
    [[nodiscard]] static Taglio taglio();
    [[nodiscard]] PannelloStato& stato() const { return *m_controlli.frmStatus; }

private:
    void leggiImpostazioni();
    void inizia();
    void arresta();
    void blocca(bool attiva, QWidget* fuoco);
    void chiediManche();
    void processa(const QByteArray& flusso);
    void avvisaGuasto();
    [[nodiscard]] Dispositivo dispositivo() const;

    Controlli m_controlli{};
    QString m_chiave;
    Scaricamento m_scaricamento;
};

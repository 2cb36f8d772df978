#pragma once

#include "archive/Statement.h"
#include "common/Impostazioni.h"
#include "common/Orologio.h"
#include "common/Public.h"
#include "supporto/DialoghiDiProva.h"

#include <QHash>
#include <QTemporaryDir>

class ImpostazioniDiProva final : public Impostazioni {
public:
    QString leggi(const QString& sezione, const QString& chiave, const QString& predefinito) const override {
        return valori.value(sezione + u'/' + chiave, predefinito);
    }
    void scrivi(const QString& sezione, const QString& chiave, const QString& valore) override {
        valori[sezione + u'/' + chiave] = valore;
    }
    QHash<QString, QString> valori;
};

class OrologioDiProva final : public Orologio {
public:
    [[nodiscard]] QDateTime adesso() const override { return ora; }
    QDateTime ora{QDate(2026, 6, 14), QTime(10, 0)};
};

// A program of its own for one test: a temporary program folder with a new archive, open, and all seams
// replaced.
class ProgrammaDiProva final {
public:
    enum class Archivio { Aperto, Nessuno };
    explicit ProgrammaDiProva(Archivio archivio = Archivio::Aperto);
    Q_DISABLE_COPY_MOVE(ProgrammaDiProva)
    ~ProgrammaDiProva();

    DialoghiDiProva dialoghi;
    ImpostazioniDiProva impostazioni;
    OrologioDiProva orologio;

private:
    QTemporaryDir m_cartella;
};

// Rows with the defaults of an ordinary event; what the test names replaces them. They give the new key.
int nuovaManifestazione(const QVariantMap& valori = {});  // and makes it the active one
int nuovaProva(const QVariantMap& valori = {});           // of the active event
// Of the active event, with one reading row per test that exists.
int nuovoEquipaggio(int num, const QVariantMap& valori = {});
void scriviRilevamento(int idEqu, int idPro, const QString& tPar, const QString& tArr,
                       const QVariant& penAgg = {});
int contaRighe(const QString& tabella, const QString& dove = {});

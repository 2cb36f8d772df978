#pragma once

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "common/Impostazioni.h"
#include "common/Orologio.h"
#include "common/Public.h"
#include "supporto/DialoghiDiProva.h"

#include <QHash>
#include <QTemporaryDir>
#include <QTest>

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

// A test class in which every test has a program of its own. The boxes that it expects must have come at its
// end.
class ProvaConProgramma : public QObject {
    Q_OBJECT

protected Q_SLOTS:
    void init();
    void cleanup();

protected:
    using Archivio = ProgrammaDiProva::Archivio;
    explicit ProvaConProgramma(Archivio archivio = Archivio::Aperto) : m_archivio(archivio) {}

    virtual void prepara() {}  // what every test begins with, in the new program
    virtual void chiudi() {}   // what must go before the program: windows, lines
    void ricomincia();         // a program anew, for the next case of a table
    DialoghiDiProva& dialoghi() { return m_programma->dialoghi; }

    std::unique_ptr<ProgrammaDiProva> m_programma;

private:
    Archivio m_archivio;
};

// Files, by their whole path or by the one in the program's folder. What cannot be read is "(none)"; a file
// is written with the folder it needs.
QByteArray leggiFile(const QString& nome);
void scriviFile(const QString& nome, const QByteArray& dati);

// The text of the failure; empty when there was none.
QString erroreDi(const std::function<void()>& azione);
// Makes every such change of a table fail, as a disk that goes wrong: "UPDATE ON Prove WHEN NEW.IDPro=3".
void guasta(const QString& cambiamento);
// Leaves the archive no room but what it holds and so many pages.
void riempiDisco(int libere = 0);

// Rows with the defaults of an ordinary event; what the test names replaces them. They give the new key.
int nuovaManifestazione(const QVariantMap& valori = {});  // and makes it the active one
int nuovaProva(const QVariantMap& valori = {});           // of the active event
// Of the active event, with one reading row per test that exists.
int nuovoEquipaggio(int num, const QVariantMap& valori = {});
void scriviRilevamento(int idEqu, int idPro, const QString& tPar, const QString& tArr,
                       const QVariant& penAgg = {});
// The first column of a query.
QStringList leggiColonna(const QString& sql, const QVariantList& valori = {});
int contaRighe(const QString& tabella, const QString& dove = {});

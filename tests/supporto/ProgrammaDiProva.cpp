#include "supporto/ProgrammaDiProva.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace {

QVariantMap con(QVariantMap predefiniti, const QVariantMap& valori) {
    predefiniti.insert(valori);
    return predefiniti;
}

}  // namespace

ProgrammaDiProva::ProgrammaDiProva(Archivio archivio) {
    // A statement or a transaction left open across a closing of the archive.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("still in use")));
    PercorsoApp = m_cartella.path();
    IDMan = 0;
    IDEqu = 0;
    Dialoghi::installa(&dialoghi);
    Impostazioni::installa(&impostazioni);
    Orologio::installa(&orologio);
    if (archivio == Archivio::Aperto) {
        PreparaArchivio();
        ApriDataBase();
    }
}

ProgrammaDiProva::~ProgrammaDiProva() {
    ChiudiDataBase();
    Dialoghi::installa(nullptr);
    Impostazioni::installa(nullptr);
    Orologio::installa(nullptr);
    IDMan = 0;
}

void ProvaConProgramma::init() {
    m_programma = std::make_unique<ProgrammaDiProva>(m_archivio);
    prepara();
}

void ProvaConProgramma::cleanup() {
    const bool finite = dialoghi().finite();
    chiudi();
    m_programma.reset();
    QVERIFY(finite);
}

void ProvaConProgramma::ricomincia() {
    cleanup();
    init();
}

QByteArray leggiFile(const QString& nome) {
    QFile file(QDir(PercorsoApp).filePath(nome));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

void scriviFile(const QString& nome, const QByteArray& dati) {
    const QFileInfo info(QDir(PercorsoApp), nome);
    QVERIFY(QDir().mkpath(info.path()));
    QFile file(info.filePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(dati), dati.size());
}

QString erroreDi(const std::function<void()>& azione) {
    try {
        azione();
        return {};
    } catch (const Errore& errore) {
        return errore.testo();
    }
}

void guasta(const QString& cambiamento) {
    esegui(QStringLiteral("CREATE TRIGGER guasto BEFORE %1 BEGIN SELECT RAISE(ABORT,'disco guasto'); END")
               .arg(cambiamento));
}

void riempiDisco(int libere) {
    const int pagine = leggiValore(QStringLiteral("PRAGMA page_count"))->toInt() + libere;
    leggiValore(QStringLiteral("PRAGMA max_page_count=%1").arg(pagine));
}

int nuovaManifestazione(const QVariantMap& valori) {
    const QVariantMap predefiniti{{"Nom", "Coppa delle Colline"},
                                  {"Loc", "Asti"},
                                  {"Clu", "Club Auto d'Epoca"},
                                  {"DaDat", "13/06/2026"},
                                  {"ADat", "14/06/2026"},
                                  {"DatVer", "12/06/2026"},
                                  {"FatAnn", 0},
                                  {"AutoEsc", 0},
                                  {"RagAuto", 0},
                                  {"PrePA", "CEN"},
                                  {"PrePM", "SEC"},
                                  {"PreCO", "MIN"},
                                  {"PenUniPA", 1},
                                  {"PenUniPM", 2},
                                  {"PenUniCO", 60},
                                  {"PenMaxAtt", 0},
                                  {"ASIeNONASI", 0},
                                  {"FatNoASI", 0},
                                  {"TipoCO", "CON"},
                                  {"PenProNonSvo", 0}};
    const int id = inserisciRiga(QStringLiteral("Manifestazioni"), con(predefiniti, valori));
    ImpostaManifestazioneAttiva(id);
    return id;
}

int nuovaProva(const QVariantMap& valori) {
    const QVariantMap predefiniti{{"IDMan_FK", IDMan}, {"Nom", "Prova"},      {"Loc", "Asti"}, {"Tip", "PA"},
                                  {"Tem", "00:01:00"}, {"Dat", "13/06/2026"}, {"ConA", 0},     {"Svo", 1}};
    return inserisciRiga(QStringLiteral("Prove"), con(predefiniti, valori));
}

int nuovoEquipaggio(int num, const QVariantMap& valori) {
    const QVariantMap predefiniti{
        {"IDMan_FK", IDMan},   {"Num", num},       {"Cog", "ROSSI"}, {"Nom", "Mario"},  {"Ses", "M"},
        {"CogNav", "BIANCHI"}, {"NomNav", "Anna"}, {"SesNav", "F"},  {"Mar", "LANCIA"}, {"Mod", "APRILIA"},
        {"Ann", 1955},         {"Omo", "A123"},    {"IDGru_FK", 0},  {"IDSqu_FK", 0},   {"Esc", 0}};
    const int id = inserisciRiga(QStringLiteral("Equipaggi"), con(predefiniti, valori));
    esegui(QStringLiteral("INSERT INTO Rilevamenti (IDEqu_FK,IDPro_FK,TPar,TArr) "
                          "SELECT ?,IDPro,'','' FROM Prove WHERE IDMan_FK=? ORDER BY IDPro"),
           {id, IDMan});
    return id;
}

void scriviRilevamento(int idEqu, int idPro, const QString& tPar, const QString& tArr,
                       const QVariant& penAgg) {
    if (esegui(
            QStringLiteral("UPDATE Rilevamenti SET TPar=?,TArr=?,PenAgg=? WHERE IDEqu_FK=? AND IDPro_FK=?"),
            {tPar, tArr, penAgg, idEqu, idPro}) == 0) {
        inserisciRiga(
            QStringLiteral("Rilevamenti"),
            {{"IDEqu_FK", idEqu}, {"IDPro_FK", idPro}, {"TPar", tPar}, {"TArr", tArr}, {"PenAgg", penAgg}});
    }
}

QStringList leggiColonna(const QString& sql, const QVariantList& valori) {
    QStringList colonna;
    Statement lettura(sql);
    lettura.esegui(valori);
    while (lettura.prossima())
        colonna << lettura.testo(0);
    return colonna;
}

int contaRighe(const QString& tabella, const QString& dove) {
    const QString filtro = dove.isEmpty() ? QString() : QStringLiteral(" WHERE ") + dove;
    return leggiValore(QStringLiteral("SELECT count(*) FROM %1%2").arg(tabella, filtro))->toInt();
}

#include "shell/Salvataggio.h"

#include "archive/DataBase.h"
#include "archive/Disco.h"
#include "archive/ErroreArchivio.h"
#include "archive/Giornale.h"
#include "archive/PercorsoApp.h"
#include "common/Orologio.h"
#include "shell/AggiornamentoSoftware.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <system_error>
#include <utility>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions SoloProprietario = QFile::ReadOwner | QFile::WriteOwner;
constexpr qint64 Blocco = 1 << 20;

void sincronizza(const QFile& file) {
#ifdef Q_OS_WIN
    const int esito = ::_commit(file.handle());
#else
    const int esito = ::fsync(file.handle());
#endif
    if (esito != 0)
        throw Errore(QString::fromStdString(std::generic_category().message(errno)));
}

// A file written beside its final place. Unless it is put somewhere, it goes with the object; one left by a
// process that was killed is overwritten.
class FileAParte final {
public:
    FileAParte(const QString& destinazione, QFile::Permissions permessi)
        : m_destinazione(destinazione), m_file(destinazione + u".nuovo"_s) {
        m_file.remove();
        if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly, permessi))
            throw Errore(m_file.errorString());
    }
    Q_DISABLE_COPY_MOVE(FileAParte)
    ~FileAParte() {
        if (m_aPosto)
            return;
        m_file.close();  // its own remove() gives up when the disk is full and what it still holds is lost
        QFile::remove(m_file.fileName());
    }

    void copia(const QString& origine) {
        QFile sorgente(origine);
        if (!sorgente.open(QIODevice::ReadOnly))
            throw Errore(sorgente.errorString());
        while (!sorgente.atEnd()) {
            const QByteArray blocco = sorgente.read(Blocco);
            if (blocco.isEmpty())
                throw Errore(sorgente.errorString());
            if (m_file.write(blocco) != blocco.size())
                throw Errore(m_file.errorString());
        }
        if (!m_file.flush())
            throw Errore(m_file.errorString());
        sincronizza(m_file);
        m_file.close();
    }

    [[nodiscard]] QString percorso() const { return m_file.fileName(); }

    void mettiAPosto() { mettiIn(m_destinazione); }

    void mettiIn(const QString& destinazione) {
        const QFileInfo finale(destinazione);
        std::error_code errore;
        std::filesystem::rename(m_file.filesystemFileName(), finale.filesystemAbsoluteFilePath(), errore);
        if (errore)
            throw Errore(QString::fromStdString(errore.message()));
        m_aPosto = true;
        sincronizzaCartella(finale.path());
    }

private:
    QString m_destinazione;
    QFile m_file;
    bool m_aPosto = false;
};

void copiaIntera(const QString& origine, const QString& destinazione, QFile::Permissions permessi) {
    FileAParte copia(destinazione, permessi);
    copia.copia(origine);
    copia.mettiAPosto();
}

QString cartellaCopie() {
    return percorsoNelProgramma(u"Backup"_s);
}

// What copies that were killed half-way left behind, on whatever day.
void togliResti() {
    const QFileInfoList resti = QDir(cartellaCopie()).entryInfoList({u"mdvlm-*.mdb.nuovo"_s}, QDir::Files);
    for (const QFileInfo& resto : resti)
        QFile::remove(resto.filePath());
}

// What is wrong with a copy that was just made. The file alone is not the whole archive while the journal of
// an interrupted action stands beside it.
QString difettoDellaCopia(const QString& copia) {
    if (QFileInfo(percorsoGiornale(percorsoArchivio())).size() > 0)
        return u"è incompleto (accanto all'archivio c'è mdvlm.mdb-journal, di un'operazione interrotta)"_s;
    return difettoArchivio(copia);
}

// A folder that is only linked here is somebody else's.
bool collegata(const QString& cartella) {
    const QFileInfo info(cartella);
    return info.isSymLink() || info.isJunction();
}

bool uguali(const QString& primo, const QString& secondo) {
    QFile a(primo);
    QFile b(secondo);
    return a.size() == b.size() && a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly) &&
           a.readAll() == b.readAll();
}

// The present updater stays in its place until the new one is whole beside it.
void mettiNuovoAggiornatore(const QString& nuovo) {
    const QString presente = percorsoAggiornatore();
    const QString precedente = percorsoNelProgramma(u"VLMUpdater.ex_"_s);
    FileAParte copia(presente, QFile::permissions(nuovo));
    copia.copia(nuovo);
    if (QFileInfo(presente).isFile()) {
        copiaIntera(presente, precedente, QFile::permissions(presente));
    } else if (QFileInfo(precedente).isFile() && !QFile::remove(precedente)) {
        throw Errore(u"%1 non si può cancellare"_s.arg(precedente));
    }
    copia.mettiAPosto();
}

void vuotaCartella(const QString& cartella) {
    const QFileInfoList files =
        QDir(cartella).entryInfoList(QDir::Files | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    QStringList rimasti;
    for (const QFileInfo& file : files) {
        if (!QFile::remove(file.filePath()))
            rimasti << file.fileName();
    }
    if (!rimasti.isEmpty()) {
        throw Errore(u"Nella cartella %1 non si possono cancellare i file:\n%2"_s.arg(cartella,
                                                                                      rimasti.join(u", "_s)));
    }
}

}  // namespace

QString percorsoCopiaDelGiorno() {
    return cartellaCopie() + Orologio::corrente().oggi().toString(u"'/mdvlm-'dd-MM-yyyy'.mdb'"_s);
}

QString ultimaCopia() {
    // By the day in the name: a copy of the folder gives every file the same age.
    const QStringList nomi = QDir(cartellaCopie()).entryList({u"mdvlm-*.mdb"_s}, QDir::Files);
    const auto eta = [](const QString& nome) {
        const bool intera = !nome.contains(u"-danneggiato"_s);
        return std::pair(intera, QDate::fromString(nome.mid(6, 10), u"dd-MM-yyyy"_s));
    };
    const auto ultima = std::ranges::max_element(nomi, {}, eta);
    return ultima == nomi.end() ? QString() : *ultima;
}

void salvaCopiaDelGiorno() {
    const QString copia = percorsoCopiaDelGiorno();
    QString difetto;
    QString daParte = copia;
    daParte.insert(copia.size() - 4, u"-danneggiato"_s);
    try {
        if (!QFileInfo(cartellaCopie()).isDir() && !QDir().mkdir(cartellaCopie()))
            throw Errore(u"la cartella %1 non si può creare"_s.arg(cartellaCopie()));
        togliResti();
        FileAParte nuova(copia, SoloProprietario);
        nuova.copia(percorsoArchivio());
        difetto = difettoDellaCopia(nuova.percorso());
        nuova.mettiIn(difetto.isEmpty() ? copia : daParte);
    } catch (const Errore& errore) {
        throw Errore(
            u"La copia di sicurezza di oggi non è stata fatta:\n%1\n(%2)\n\n"
            "L'archivio è stato chiuso e le copie precedenti non sono state toccate."_s.arg(copia,
                                                                                            errore.testo()));
    }
    if (!difetto.isEmpty()) {
        throw Errore(
            u"Il file copiato dall'archivio %1.\n\nLa copia di oggi è stata messa da parte come\n%2\n"
            "e quelle buone non sono state toccate. Prima di riprendere il lavoro spostare altrove mdvlm.mdb "
            "e, "
            "se c'è, mdvlm.mdb-journal, e rimettere al loro posto l'ultima copia buona (guida: L'archivio)."_s
                .arg(difetto, daParte));
    }
}

void sostituisciAggiornatore() {
    const QString cartella = percorsoNelProgramma(u"update"_s);
    const QString nuovo = u"%1/%2"_s.arg(cartella, NomeAggiornatore);
    // One that stays in its folder would otherwise push the previous one out at the next exit.
    if (QFileInfo(nuovo).isFile() && !(collegata(cartella) && uguali(nuovo, percorsoAggiornatore()))) {
        try {
            mettiNuovoAggiornatore(nuovo);
        } catch (const Errore& errore) {
            // The folder keeps its files: the next exit tries again.
            throw Errore(u"Il nuovo programma di aggiornamento non è stato messo a posto:\n%1\n(%2)"_s.arg(
                percorsoAggiornatore(), errore.testo()));
        }
    }
    if (QFileInfo(cartella).isDir() && !collegata(cartella))
        vuotaCartella(cartella);
}

void salvaAllUscita() {
    QStringList falliti;
    for (void (*passo)() : {&ChiudiDataBase, &salvaCopiaDelGiorno, &sostituisciAggiornatore}) {
        try {
            passo();
        } catch (const Errore& errore) {
            falliti << errore.testo();
        }
    }
    if (!falliti.isEmpty())
        throw Errore(falliti.join(u"\n\n"_s));
}

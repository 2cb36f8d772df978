#include "archive/Giornale.h"

#include "archive/DataBase.h"
#include "archive/ErroreArchivio.h"

#include <optional>
#include <QDateTime>
#include <QFile>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

const QByteArray Firma("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);
const QByteArray FirmaArchivio("SQLite format 3", 16);
constexpr qint64 TestataGiornale = 28;
constexpr qint64 TestataArchivio = 100;
// Places in page 1, which begins with the archive's header; four bytes each, the highest first.
constexpr qsizetype PostoContatore = 24;
constexpr qsizetype PostoIdentificativo = 68;

quint32 numero(const QByteArray& dati, qsizetype posto) {
    return qFromBigEndian<quint32>(dati.constData() + posto);
}

struct Testata {
    quint32 record = 0;      // pages synced in it
    quint32 pagineFile = 0;  // of the archive before the action
    quint32 settore = 0;     // where the first record begins
    quint32 grandePagina = 0;

    [[nodiscard]] bool plausibile() const {
        const auto potenza = [](quint32 n) { return n != 0 && (n & (n - 1)) == 0; };
        return potenza(settore) && potenza(grandePagina) && settore >= 32 && settore <= 0x10000 &&
               grandePagina >= 512 && grandePagina <= 0x10000;
    }
};

// Page 1 as it was before the action: the first 100 bytes of it.
std::optional<QByteArray> cercaPrimaPagina(QFile& giornale, const Testata& testata) {
    const qint64 lungo = qint64{testata.grandePagina} + 8;  // its number before it, its checksum after it
    for (qint64 posto = testata.settore; posto + lungo <= giornale.size(); posto += lungo) {
        if (!giornale.seek(posto))
            break;
        const QByteArray inizio = giornale.read(4 + TestataArchivio);
        if (inizio.size() == 4 + TestataArchivio && numero(inizio, 0) == 1)
            return inizio.mid(4);
    }
    return std::nullopt;
}

bool appartiene(const QByteArray& primaPagina, const QByteArray& testataArchivio, const Testata& testata,
                qint64 grandeArchivio) {
    if (numero(primaPagina, PostoIdentificativo) != quint32{IdentificativoArchivio})
        return false;
    if (testataArchivio.size() == TestataArchivio && testataArchivio.startsWith(FirmaArchivio) &&
        numero(testataArchivio, PostoIdentificativo) == quint32{IdentificativoArchivio}) {
        const quint32 prima = numero(primaPagina, PostoContatore);
        const quint32 ora = numero(testataArchivio, PostoContatore);
        return ora == prima || ora == prima + 1;
    }
    // An action only makes the file longer.
    return grandeArchivio >= qint64{testata.pagineFile} * testata.grandePagina;
}

}  // namespace

QString percorsoGiornale(const QString& archivio) {
    return archivio + u"-journal"_s;
}

Giornale riconosciGiornale(const QString& archivio) {
    QFile giornale(percorsoGiornale(archivio));
    if (!giornale.exists())
        return Giornale::Innocuo;
    if (!giornale.open(QIODevice::ReadOnly)) {
        throw ErroreArchivio(u"Il giornale dell'archivio\n%1\nnon si può leggere (%2)."_s.arg(
            giornale.fileName(), giornale.errorString()));
    }
    const QByteArray inizio = giornale.read(TestataGiornale);
    // Made and not yet written, or already ended: the engine only removes it.
    if (inizio.isEmpty() || inizio.startsWith('\0'))
        return Giornale::Innocuo;
    if (inizio.size() < TestataGiornale || !inizio.startsWith(Firma))
        return Giornale::Estraneo;
    const Testata testata{numero(inizio, 8), numero(inizio, 16), numero(inizio, 20), numero(inizio, 24)};
    QFile file(archivio);
    if (!testata.plausibile() || !file.open(QIODevice::ReadOnly))
        return Giornale::Estraneo;
    // Nothing synced means nothing written to the archive.
    if (testata.record == 0 && file.size() == qint64{testata.pagineFile} * testata.grandePagina)
        return Giornale::Innocuo;
    const std::optional<QByteArray> primaPagina = cercaPrimaPagina(giornale, testata);
    return primaPagina && appartiene(*primaPagina, file.read(TestataArchivio), testata, file.size())
               ? Giornale::Proprio
               : Giornale::Estraneo;
}

QString mettiDaParteGiornale(const QString& archivio) {
    const QString giornale = percorsoGiornale(archivio);
    if (!QFile::exists(giornale))
        return {};
    const QString radice = giornale + QDateTime::currentDateTime().toString(u"'-'yyyy-MM-dd-HHmmss"_s);
    QString nuovo = radice;
    for (int i = 2; QFile::exists(nuovo); ++i)
        nuovo = radice + u'-' + QString::number(i);
    if (!QFile::rename(giornale, nuovo)) {
        throw ErroreArchivio(
            u"Il file\n%1\nè di un altro archivio e non si può mettere da parte: controllare i permessi."_s
                .arg(giornale));
    }
    return nuovo;
}

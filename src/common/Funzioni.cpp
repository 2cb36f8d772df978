#include "common/Funzioni.h"

#include "archive/ErroreArchivio.h"
#include "archive/Schema.h"
#include "archive/Statement.h"
#include "common/Public.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Backspace = 8;

// One column of the event; the place where a stale active event heals.
QVariant colonnaManifestazione(const QString& sql, int idMan) {
    if (IDMan == 0)
        return {};
    const std::optional<QVariant> valore = leggiValore(sql, {idMan});
    if (!valore)
        ImpostaManifestazioneAttiva(0);
    return valore.value_or(QVariant());
}

}  // namespace

int FiltroCifreValore(int tasto) {
    return (tasto >= '0' && tasto <= '9') || tasto == Backspace ? tasto : 0;
}

int FiltroCifre(int& tasto) {
    return tasto = FiltroCifreValore(tasto);
}

int FiltroCifreVirgola(int& tasto) {
    return tasto = tasto == ',' ? tasto : FiltroCifreValore(tasto);
}

QString TestoInHTML(QString& testo) {
    // The order is part of the result.
    static constexpr struct {
        char16_t da;
        const char16_t* a;
    } Sostituzioni[] = {
        {u'"', u"&quot;"},   {u'£', u"&pound;"},  {u'&', u"&pound;"},  {u'<', u"&lt;"},
        {u'>', u"&gt;"},     {u'è', u"&egrave;"}, {u'é', u"&eacute;"}, {u'à', u"&agrave;"},
        {u'ì', u"&igrave;"}, {u'ò', u"&ograve;"}, {u'ù', u"&ugrave;"}, {u'ç', u"&ccedil;"},
        {u'°', u"&deg;"},
    };
    for (const auto& sostituzione : Sostituzioni)
        testo.replace(QChar(sostituzione.da), QString::fromUtf16(sostituzione.a));
    return testo;
}

std::optional<QString> primoCompletamento(const QString& tabella, const QString& colonna,
                                          const QString& inizio) {
    const Tabella* definizione = trovaTabella(tabella);
    if (!definizione || !haColonna(*definizione, colonna))
        throw ErroreArchivio(u"Nell'archivio manca la colonna %1 di %2."_s.arg(colonna, tabella));
    QString modello = inizio;
    for (const char16_t speciale : {u'\\', u'%', u'_'})
        modello.replace(QChar(speciale), QString(u'\\') + QChar(speciale));
    const std::optional<QVariant> valore = leggiValore(
        u"SELECT [%1] FROM [%2] WHERE [%1] LIKE ? ESCAPE '\\' ORDER BY [%1] COLLATE ITALIANO LIMIT 1"_s.arg(
            colonna, tabella),
        {modello + u'%'});
    if (!valore)
        return std::nullopt;
    return valore->toString();
}

QString NomeManifestazione(int idMan) {
    return colonnaManifestazione(u"SELECT Nom FROM Manifestazioni WHERE IDMan=?"_s, idMan).toString();
}

QString DateManifestazione(int idMan) {
    return colonnaManifestazione(
               u"SELECT coalesce(DaDat,'')||' '||coalesce(ADat,'') FROM Manifestazioni WHERE IDMan=?"_s,
               idMan)
        .toString();
}

QString DatVerManifestazione(int idMan) {
    return colonnaManifestazione(u"SELECT DatVer FROM Manifestazioni WHERE IDMan=?"_s, idMan).toString();
}

QString ClubManifestazione(int idMan) {
    return colonnaManifestazione(u"SELECT Clu FROM Manifestazioni WHERE IDMan=?"_s, idMan).toString();
}

bool FatAnnManifestazione(int idMan) {
    return colonnaManifestazione(u"SELECT FatAnn FROM Manifestazioni WHERE IDMan=?"_s, idMan).toBool();
}

bool AutoEscManifestazione(int idMan) {
    return colonnaManifestazione(u"SELECT AutoEsc FROM Manifestazioni WHERE IDMan=?"_s, idMan).toBool();
}

bool RagAutoManifestazione(int idMan) {
    return colonnaManifestazione(u"SELECT RagAuto FROM Manifestazioni WHERE IDMan=?"_s, idMan).toBool();
}

bool ASIeNONASIManifestazione(int idMan) {
    return colonnaManifestazione(u"SELECT ASIeNONASI FROM Manifestazioni WHERE IDMan=?"_s, idMan).toBool();
}

bool equipaggioASI(const QString& omologazione) {
    // Blanks alone, as in SQL: a crew must not be ASI in one list and not in another.
    return std::ranges::any_of(omologazione, [](QChar c) { return c != u' '; });
}

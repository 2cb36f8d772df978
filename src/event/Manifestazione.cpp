#include "event/Manifestazione.h"

#include "archive/Statement.h"
#include "common/Orologio.h"
#include "common/Valori.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using enum GenereVoce;

constexpr VoceManifestazione Voci[] = {
    {"txtNom", "Nom", Testo},
    {"txtLoc", "Loc", Testo},
    {"txtClu", "Clu", Testo},
    {"DaDat", "DaDat", Data},
    {"ADat", "ADat", Data},
    {"DatVer", "DatVer", Data},
    {.controllo = "cboFatAnn", .colonna = "FatAnn", .genere = Interruttore, .iniziale = "NO"},
    {.controllo = "chkEscAuto", .colonna = "AutoEsc", .genere = Interruttore, .iniziale = "NO"},
    {.controllo = "chkRagAuto", .colonna = "RagAuto", .genere = Interruttore, .iniziale = "NO"},
    {.controllo = "cboPrePA", .colonna = "PrePA", .genere = Precisione, .iniziale = "MINUTO"},
    {.controllo = "cboPrePM", .colonna = "PrePM", .genere = Precisione, .iniziale = "MINUTO"},
    {.controllo = "cboPreCO", .colonna = "PreCO", .genere = Precisione, .iniziale = "MINUTO"},
    {"txtPenUniPA", "PenUniPA", Lungo},
    {"txtPenUniPM", "PenUniPM", Lungo},
    {"txtPenUniCO", "PenUniCO", Lungo},
    {.controllo = "cboMaxPen", .colonna = "PenMaxAtt", .genere = Interruttore, .iniziale = "NO"},
    {.controllo = "txtMaxPen", .colonna = "PenMax", .genere = Lungo, .interruttore = "PenMaxAtt"},
    {.controllo = "cboPenProvaNonSvolta",
     .colonna = "PenProNonSvo",
     .genere = Interruttore,
     .iniziale = "NO",
     .controlloModifica = "cboPenProNonSvo"},
    {.controllo = "txtPenProvaNonSvolta",
     .colonna = "NumPenProNonSvo",
     .genere = Lungo,
     .interruttore = "PenProNonSvo",
     .proposta = "500",
     .controlloModifica = "txtPenProNonSvo"},
    {.controllo = "cboFatNoASI", .colonna = "FatNoASI", .genere = Interruttore, .iniziale = "NO"},
    {.controllo = "txtNumFatNoASI",
     .colonna = "NumFatNoASI",
     .genere = Doppio,
     .zeroSeSpento = true,
     .interruttore = "FatNoASI",
     .proposta = "3"},
    {.controllo = "optCOPar", .colonna = "TipoCO", .genere = TipoCO, .iniziale = "CON"},
    {.controllo = "chkOpzASI_NONASI", .colonna = InterruttoreNoASI, .genere = Interruttore, .iniziale = "NO"},
    {.controllo = "cboPrePANoASI",
     .colonna = "PrePANoASI",
     .genere = Precisione,
     .soloNoASI = true,
     .iniziale = "MINUTO"},
    {.controllo = "cboPrePMNoASI",
     .colonna = "PrePMNoASI",
     .genere = Precisione,
     .soloNoASI = true,
     .iniziale = "MINUTO"},
    {.controllo = "cboPreCONoASI",
     .colonna = "PreCONoASI",
     .genere = Precisione,
     .soloNoASI = true,
     .iniziale = "MINUTO"},
    {.controllo = "txtPenUniPANoASI", .colonna = "PenUniPANoASI", .genere = Lungo, .soloNoASI = true},
    {.controllo = "txtPenUniPMNoASI", .colonna = "PenUniPMNoASI", .genere = Lungo, .soloNoASI = true},
    {.controllo = "txtPenUniCONoASI", .colonna = "PenUniCONoASI", .genere = Lungo, .soloNoASI = true},
    {.controllo = "txtMaxPenNoASI",
     .colonna = "PenMaxNoASI",
     .genere = Lungo,
     .soloNoASI = true,
     .interruttore = "PenMaxAtt"},
};

const QString Attivo = u"Attivo"_s;
const QString NonAttivo = u"NON Attivo"_s;

QVariant valoreInColonna(GenereVoce genere, const QString& testo) {
    switch (genere) {
        case Interruttore:
            return testo == QLatin1String("SI") ? 1 : 0;
        case Precisione:
            return testo.left(3).toUpper();
        case Lungo:
            return static_cast<qlonglong>(std::lrint(valoreNumerico(testo)));
        case Doppio:
            return valoreNumerico(testo);
        default:
            return testo;
    }
}

// A precision that was never stored shows the initial one; only a word that is none leaves its combo unset.
QString valoreInTesto(const VoceManifestazione& voce, const Statement& riga, int colonna) {
    switch (voce.genere) {
        case Data:
            return scriviData(leggiData(riga.testo(colonna)).value_or(QDate()));
        case Interruttore:
            return siNo(riga.vero(colonna));
        case Precisione:
            return riga.nullo(colonna) ? QString::fromLatin1(voce.iniziale)
                                       : parolaPrecisione(riga.testo(colonna));
        case Lungo:
        case Doppio:
            return riga.nullo(colonna) ? QString() : numeroInTesto(riga.reale(colonna));
        case TipoCO:
            return riga.testo(colonna) == QLatin1String("PAR") ? u"PAR"_s : u"CON"_s;
        default:
            return riga.testo(colonna);
    }
}

// Takes out the columns whose text is what the archive's own value shows: a value that a window shows in
// another form (a long number, a foreign word) stays as it is stored until someone changes it.
void togliIntatte(int idMan, const DatiManifestazione& dati, QVariantMap& colonne) {
    Statement lettura(u"SELECT * FROM Manifestazioni WHERE IDMan=?"_s);
    if (!lettura.esegui({idMan}).prossima())
        return;
    for (const VoceManifestazione& voce : Voci) {
        const QString nome = QString::fromLatin1(voce.colonna);
        const int colonna = lettura.colonna(nome);
        const bool valore = voce.genere == Precisione || voce.genere == Lungo || voce.genere == Doppio;
        if (voceAttiva(voce, dati) && ((valore && !lettura.nullo(colonna)) || voce.genere == Testo) &&
            dati.value(nome) == valoreInTesto(voce, lettura, colonna))
            colonne.remove(nome);
    }
}

QString seAcceso(const DatiManifestazione& dati, const QString& interruttore, const QString& testo) {
    return acceso(dati, interruttore) ? testo : NonAttivo;
}

}  // namespace

std::span<const VoceManifestazione> vociManifestazione() {
    return Voci;
}

QString siNo(bool valore) {
    return valore ? u"SI"_s : u"NO"_s;
}

bool acceso(const DatiManifestazione& dati, const QString& colonna) {
    return dati.value(colonna) == QLatin1String("SI");
}

bool voceAttiva(const VoceManifestazione& voce, const DatiManifestazione& dati) {
    return (!voce.soloNoASI || acceso(dati, QLatin1String(InterruttoreNoASI))) &&
           (!voce.interruttore || acceso(dati, QLatin1String(voce.interruttore)));
}

QStringList parolePrecisione() {
    return {u"MINUTO"_s, u"SECONDO"_s, u"DECIMO"_s, u"CENTESIMO"_s};
}

QString parolaPrecisione(const QString& abbreviazione) {
    const QStringList parole = abbreviazione.size() == 3 ? parolePrecisione() : QStringList();
    for (const QString& parola : parole) {
        if (parola.startsWith(abbreviazione, Qt::CaseInsensitive))
            return parola;
    }
    return {};
}

DatiManifestazione datiIniziali() {
    DatiManifestazione dati;
    for (const VoceManifestazione& voce : Voci) {
        dati[QLatin1String(voce.colonna)] = voce.genere == Data ? scriviData(Orologio::corrente().oggi())
                                                                : QString::fromLatin1(voce.iniziale);
    }
    return dati;
}

DatiManifestazione leggiManifestazione(int idMan) {
    DatiManifestazione dati;
    Statement lettura(u"SELECT * FROM Manifestazioni WHERE IDMan=?"_s);
    if (!lettura.esegui({idMan}).prossima())
        return dati;
    for (const VoceManifestazione& voce : Voci) {
        const QString colonna = QString::fromLatin1(voce.colonna);
        dati[colonna] = valoreInTesto(voce, lettura, lettura.colonna(colonna));
    }
    return dati;
}

QVariantMap colonneManifestazione(const DatiManifestazione& dati, Scrittura scrittura) {
    QVariantMap colonne;
    for (const VoceManifestazione& voce : Voci) {
        const QString colonna = QString::fromLatin1(voce.colonna);
        const QString testo = dati.value(colonna);
        if (!voceAttiva(voce, dati)) {
            if (!voce.soloNoASI && (voce.zeroSeSpento || scrittura == Scrittura::Modifica))
                colonne[colonna] = 0;
        } else if (voce.genere != Data || leggiData(testo)) {
            colonne[colonna] = valoreInColonna(voce.genere, testo);
        }
    }
    return colonne;
}

std::optional<Rifiuto> verificaDati(const DatiManifestazione& dati) {
    if (dati.value(u"Nom"_s).isEmpty()) {
        return Rifiuto{u"Impossibile Proseguire"_s, u"Inserire Almeno il Nome della Manifestazione"_s,
                       Icona::Stop, u"txtNom"_s};
    }
    if (acceso(dati, u"PenMaxAtt"_s) && dati.value(u"PenMax"_s).isEmpty()) {
        return Rifiuto{u"Attenzione"_s,
                       u"E' Stato Attivata l'Opzione del Massimo delle Penalità,\n"
                       "ma NON è Stato Inserito Nessun Valore per il Massimo\n"
                       "Continuare Comunque ?"_s};
    }
    return std::nullopt;
}

void modificaManifestazione(int idMan, const DatiManifestazione& dati) {
    Transazione transazione;
    QVariantMap colonne = colonneManifestazione(dati, Scrittura::Modifica);
    togliIntatte(idMan, dati, colonne);
    if (dati.value(u"TipoCO"_s) == QLatin1String("PAR"))
        esegui(u"UPDATE Prove SET ConA=0 WHERE IDMan_FK=? AND Tip='CO'"_s, {idMan});
    if (!colonne.isEmpty())
        aggiornaRiga(u"Manifestazioni"_s, u"IDMan"_s, idMan, colonne);
    transazione.conferma();
}

QString etichettaPenalita(const QString& tipo, const QString& precisione, FormaEtichetta forma) {
    static const QMap<QString, QString> lunghe{{u"PA"_s, u"nelle Prove di Abilità"_s},
                                               {u"PM"_s, u"nelle Prove di Media Imposta"_s},
                                               {u"CO"_s, u"nei Controlli Orari"_s}};
    static const QMap<QString, QString> brevi{
        {u"PA"_s, u"nelle P.A."_s}, {u"PM"_s, u"nelle P.M.I."_s}, {u"CO"_s, u"nei C.O."_s}};
    const QString inizio = u"Penalità per Ogni "_s + precisione;
    switch (forma) {
        case FormaEtichetta::Creazione:
            return inizio + u" di Ritardo o Anticipo "_s + lunghe[tipo] + u" : "_s;
        case FormaEtichetta::Riepilogo:
            return inizio + u" di Rit. o Ant. "_s + lunghe[tipo] + u" : "_s;
        case FormaEtichetta::Modifica:
            break;
    }
    return inizio + u' ' + brevi[tipo] + u" : "_s;
}

QMap<QString, QString> riepilogo(const DatiManifestazione& dati) {
    QMap<QString, QString> testi;
    for (const QString& colonna :
         {u"Nom"_s, u"Loc"_s, u"Clu"_s, u"DaDat"_s, u"ADat"_s, u"DatVer"_s, u"PrePA"_s, u"PrePM"_s,
          u"PreCO"_s, u"PenUniPA"_s, u"PenUniPM"_s, u"PenUniCO"_s, u"PrePANoASI"_s, u"PrePMNoASI"_s,
          u"PreCONoASI"_s, u"PenUniPANoASI"_s, u"PenUniPMNoASI"_s, u"PenUniCONoASI"_s})
        testi[u"txt"_s + colonna] = dati.value(colonna);
    testi[u"txtFatAnn"_s] = seAcceso(dati, u"FatAnn"_s, Attivo);
    testi[u"txtEscAuto"_s] = seAcceso(dati, u"AutoEsc"_s, Attivo);
    testi[u"txtRagAuto"_s] = seAcceso(dati, u"RagAuto"_s, Attivo);
    testi[u"txtMaxPen"_s] = seAcceso(dati, u"PenMaxAtt"_s, dati.value(u"PenMax"_s));
    testi[u"txtMaxPenNoASI"_s] = seAcceso(dati, u"PenMaxAtt"_s, dati.value(u"PenMaxNoASI"_s));
    testi[u"txtFatNoASI"_s] = seAcceso(dati, u"FatNoASI"_s, u"Attivo : "_s + dati.value(u"NumFatNoASI"_s));
    testi[u"txtPenProvaNonSvolta"_s] =
        seAcceso(dati, u"PenProNonSvo"_s, u"Attivo : "_s + dati.value(u"NumPenProNonSvo"_s));
    testi[u"txtTipoCO"_s] = dati.value(u"TipoCO"_s) == QLatin1String("PAR")
                                ? u"Riferiti all'Orario di partenza"_s
                                : u"Concatenati l'uno con l'altro"_s;
    return testi;
}

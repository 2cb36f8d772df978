#include "entries/Equipaggi.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"
#include "common/Orologio.h"
#include "common/Public.h"
#include "common/Valori.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr bool Completa = true;
constexpr bool SoloCifre = true;
constexpr int PrimoAnno = 1850;
constexpr int EtaMinima = 10;  // calendar years

// In the order in which a crew is written: `Cel` must follow `Tel`.
constexpr ColonnaEquipaggio Colonne[] = {
    {"IDGru_FK", "cboGruppo", TipoDato::Chiave},
    {"IDSqu_FK", "cboSquadra", TipoDato::Chiave},
    {"Num", "txtNum", TipoDato::Numero, Copia::No, false, SoloCifre},
    {"Cog", "txtCog", TipoDato::Testo, Copia::Maiuscola, Completa},
    {"Nom", "txtNom", TipoDato::Testo, Copia::Maiuscola, Completa},
    {"Ses", "cboSes", TipoDato::Sesso, Copia::Uguale},
    {"Clu", "txtClu", TipoDato::Testo, Copia::Maiuscola, Completa},
    {"Tes", "txtTes", TipoDato::Testo, Copia::Uguale},
    {"DatNas", "txtDatNas", TipoDato::Data, Copia::Uguale},
    {"Tel", "txtTel", TipoDato::Testo, Copia::Uguale},
    {"Cel", "txtCel", TipoDato::Testo, Copia::Uguale},
    {"Fax", "txtFAX", TipoDato::Testo, Copia::Uguale},
    {"Ind", "txtInd", TipoDato::Testo, Copia::Maiuscola},
    {"Ema", "txtEma", TipoDato::Testo, Copia::Uguale},
    {"CAP", "txtCap", TipoDato::Testo, Copia::Uguale, Completa, SoloCifre},
    {"Cit", "txtCit", TipoDato::Testo, Copia::Maiuscola, Completa},
    {"Pro", "txtPro", TipoDato::Testo, Copia::Maiuscola, Completa},
    {"Pat", "txtNumPat", TipoDato::Testo, Copia::Uguale},
    {"RilDa", "txtRilDa", TipoDato::Testo, Copia::Maiuscola, Completa},
    {"ScaPat", "txtScaPat", TipoDato::Data, Copia::Uguale},
    {"Mar", "txtMar", TipoDato::Testo, Copia::Maiuscola, Completa},
    {"Mod", "txtMod", TipoDato::Testo, Copia::Maiuscola, Completa},
    {"Ann", "txtAnn", TipoDato::Cifre, Copia::Uguale, false, SoloCifre},
    {"Cil", "txtCil", TipoDato::Cifre, Copia::Uguale, false, SoloCifre},
    {"Tar", "txtTar", TipoDato::Testo, Copia::Maiuscola},
    {"Omo", "txtOmo", TipoDato::Testo, Copia::Uguale},
    {"Com", "txtCom", TipoDato::Testo, Copia::Maiuscola, Completa},
    {"Pol", "txtNumPol", TipoDato::Testo, Copia::Uguale},
    {"ScaPol", "txtScaPol", TipoDato::Data, Copia::Uguale},
    {"CogNav", "txtCogNav", TipoDato::Testo, Copia::Maiuscola, Completa},
    {"NomNav", "txtNomNav", TipoDato::Testo, Copia::Maiuscola, Completa},
    {"SesNav", "cboSesNav", TipoDato::Sesso, Copia::Uguale},
    {"Not", "txtNot", TipoDato::Testo, Copia::No, Completa},
    {"Esc", "chkEsc", TipoDato::Spunta},
    {"MotEsc", "txtMotEsc", TipoDato::Testo, Copia::No, Completa},
};

QString testoColonna(const ColonnaEquipaggio& colonna, const QVariant& valore) {
    QString testo = valore.toString();
    switch (colonna.tipo) {
        case TipoDato::Cifre:
            return valore.typeId() == QMetaType::Double ? numeroInTesto(valore.toDouble()) : testo;
        case TipoDato::Data:
            return testo.isEmpty() ? testo : dataPerMaschera(testo);
        case TipoDato::Sesso: {
            const QString sesso = testo.toUpper();
            return sesso == "M"_L1 || sesso == "F"_L1 ? sesso : QString();
        }
        case TipoDato::Chiave:
        case TipoDato::Spunta:
            return QString::number(valore.toInt());
        case TipoDato::Numero:
        case TipoDato::Testo:
            break;
    }
    return testo;
}

// What a control's text stores; Null for a number or a date that is none.
QVariant valoreColonna(const ColonnaEquipaggio& colonna, const QString& testo) {
    switch (colonna.tipo) {
        case TipoDato::Cifre: {
            const std::optional<double> numero = leggiNumero(testo);
            return numero ? QVariant(*numero) : QVariant();
        }
        case TipoDato::Data: {
            const std::optional<QDate> data = leggiData(testo);
            return data ? QVariant(data->toString(Qt::ISODate)) : QVariant();
        }
        case TipoDato::Numero:
        case TipoDato::Chiave:
        case TipoDato::Spunta:
            return testo.toInt();
        case TipoDato::Testo:
        case TipoDato::Sesso:
            break;
    }
    return testo.isNull() ? u""_s : testo;  // a Null string would be stored as Null
}

Statement& trova(Statement& lettura, int idEqu) {
    if (!lettura.esegui({idEqu}).prossima())
        throw ErroreArchivio(u"L'equipaggio non è più nell'archivio."_s);
    return lettura;
}

// Calls the action with each column that the entry windows work on, its definition and its stored value.
template <typename Azione>
void leggiColonne(int idEqu, Azione azione) {
    Statement lettura(u"SELECT * FROM Equipaggi WHERE IDEqu=?"_s);
    trova(lettura, idEqu);
    for (const ColonnaEquipaggio& colonna : Colonne) {
        const QString nome = QString::fromLatin1(colonna.nome);
        azione(nome, colonna, lettura.valore(nome));
    }
}

QList<VoceScelta> elencoScelte(const QString& sql) {
    QList<VoceScelta> voci;
    Statement lettura(sql);
    lettura.esegui({IDMan});
    while (lettura.prossima())
        voci << VoceScelta{lettura.intero(0), lettura.testo(1)};
    return voci;
}

}  // namespace

std::span<const ColonnaEquipaggio> colonneEquipaggio() {
    return Colonne;
}

QString dataPerMaschera(const QString& data) {
    if (const QDate giorno = QDate::fromString(data, Qt::ISODate); giorno.isValid())
        return scriviData(giorno);
    const qsizetype anno = data.lastIndexOf(u'/') + 1;
    return data.left(anno) + data.mid(anno).rightJustified(4, u'0');
}

SchedaEquipaggio leggiEquipaggio(int idEqu) {
    SchedaEquipaggio scheda;
    leggiColonne(idEqu, [&](const QString& nome, const ColonnaEquipaggio& colonna, const QVariant& valore) {
        scheda[nome] = testoColonna(colonna, valore);
    });
    return scheda;
}

SchedaEquipaggio copiaDaArchivio(int idEqu) {
    SchedaEquipaggio scheda;
    leggiColonne(idEqu, [&](const QString& nome, const ColonnaEquipaggio& colonna, const QVariant& valore) {
        if (colonna.copia == Copia::No || valore.isNull())
            return;
        const QString testo = testoColonna(colonna, valore);
        scheda[nome] = colonna.copia == Copia::Maiuscola ? testo.toUpper() : testo;
    });
    return scheda;
}

EsitoNumero controllaNumero(const QString& numero, std::optional<int> attuale) {
    if (numero.isEmpty())
        return EsitoNumero::Mancante;
    bool intero = false;
    const int num = numero.toInt(&intero);
    if (!intero)
        return EsitoNumero::TroppoGrande;
    if (attuale == num)
        return EsitoNumero::Valido;
    const bool assegnato =
        esisteRiga(u"SELECT Num FROM Equipaggi WHERE Num=? AND IDMan_FK=?"_s, {num, IDMan});
    return assegnato ? EsitoNumero::Assegnato : EsitoNumero::Valido;
}

int inserisciEquipaggio(const SchedaEquipaggio& scheda) {
    QVariantMap valori{{u"IDMan_FK"_s, IDMan}, {u"IDGru_FK"_s, 0}, {u"IDSqu_FK"_s, 0}};
    for (const ColonnaEquipaggio& colonna : Colonne) {
        QString nome = QString::fromLatin1(colonna.nome);
        const QString testo = scheda.value(nome);
        if (testo.isEmpty())
            continue;
        if (nome == "Cel"_L1)
            nome = u"Tel"_s;
        if (const QVariant valore = valoreColonna(colonna, testo); !valore.isNull())
            valori[nome] = valore;
    }
    Transazione transazione;
    const int idEqu = inserisciRiga(u"Equipaggi"_s, valori);
    creaRilevamenti(idEqu);
    transazione.conferma();
    return idEqu;
}

void aggiornaEquipaggio(int idEqu, const SchedaEquipaggio& scheda) {
    QVariantMap valori{{u"IDMan_FK"_s, IDMan}};
    for (const ColonnaEquipaggio& colonna : Colonne) {
        const auto testo = scheda.constFind(QString::fromLatin1(colonna.nome));
        if (testo == scheda.cend() || (colonna.tipo == TipoDato::Sesso && testo->isEmpty()))
            continue;
        valori[testo.key()] = valoreColonna(colonna, *testo);
    }
    if (aggiornaRiga(u"Equipaggi"_s, u"IDEqu"_s, idEqu, valori) == 0)
        throw ErroreArchivio(u"L'equipaggio non è più nell'archivio."_s);
}

void eliminaEquipaggio(int idEqu) {
    esegui(u"DELETE FROM Equipaggi WHERE IDEqu=?"_s, {idEqu});
}

void creaRilevamenti(int idEqu) {
    esegui(
        u"INSERT INTO Rilevamenti (IDEqu_FK,IDPro_FK,TPar,TArr) "
        "SELECT IDEqu,IDPro,'','' FROM Equipaggi JOIN Prove ON Prove.IDMan_FK=Equipaggi.IDMan_FK "
        "WHERE IDEqu=? ORDER BY IDPro"_s,
        {idEqu});
}

QList<RigaEquipaggio> elencoEquipaggi() {
    QList<RigaEquipaggio> righe;
    Statement lettura(
        u"SELECT IDEqu,Num,coalesce(Cog,'')||' '||coalesce(Nom,'') FROM Equipaggi "
        "WHERE IDMan_FK=? ORDER BY Num,IDEqu"_s);
    lettura.esegui({IDMan});
    while (lettura.prossima())
        righe << RigaEquipaggio{lettura.intero(0), lettura.intero(1), lettura.testo(2)};
    return righe;
}

QList<VoceScelta> elencoRaggruppamenti() {
    return elencoScelte(u"SELECT IDGru,Nom FROM Raggruppamenti WHERE IDMan_FK=? ORDER BY IDGru"_s);
}

QList<VoceScelta> elencoSquadre() {
    return elencoScelte(u"SELECT IDSqu,Nom FROM Squadre WHERE IDMan_FK=? ORDER BY IDSqu"_s);
}

bool annoAmmesso(int anno) {
    return anno >= PrimoAnno && anno <= Orologio::corrente().oggi().year() - EtaMinima;
}

std::optional<int> raggruppamentoPerAnno(int anno) {
    const std::optional<QVariant> chiave = leggiValore(
        u"SELECT IDGru FROM Raggruppamenti WHERE IDMan_FK=? AND DAAnn<=? AND AAnn>=? ORDER BY IDGru"_s,
        {IDMan, anno, anno});
    if (!chiave)
        return std::nullopt;
    return chiave->toInt();
}

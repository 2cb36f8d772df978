#include "archive/Schema.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using enum TipoColonna;

constexpr Colonna Manifestazioni[] = {
    {"IDMan", Contatore},
    {"Nom", Testo},
    {"Loc", Testo},
    {"Clu", Testo},
    {"DaDat", Testo},
    {"ADat", Testo},
    {"DatVer", Testo},
    {"FatAnn", Bit},
    {"AutoEsc", Bit},
    {"RagAuto", Bit, 7},
    {"PrePA", Testo},
    {"PrePM", Testo},
    {"PreCO", Testo},
    {"PenUniPA", Lungo},
    {"PenUniPM", Lungo},
    {"PenUniCO", Lungo},
    {"PenMaxAtt", Bit},
    {"PenMax", Lungo},
    {"ASIeNONASI", Bit},
    {"PrePANoASI", Testo},
    {"PrePMNoASI", Testo},
    {"PreCONoASI", Testo},
    {"PenUniPANoASI", Lungo},
    {"PenUniPMNoASI", Lungo},
    {"PenUniCONoASI", Lungo},
    {"PenMaxNoASI", Lungo},
    {"FatNoASI", Bit, 3},
    {"NumFatNoASI", Doppio, 3},
    {"TipoCO", Testo},
    {"PenProNonSvo", Bit, 9},
    {"NumPenProNonSvo", Lungo, 9},
};

constexpr Colonna Prove[] = {
    {"IDPro", Contatore}, {"IDMan_FK", Lungo, 0, "Manifestazioni"},
    {"Nom", Testo},       {"Loc", Testo},
    {"Tip", Testo},       {"Tem", Testo},
    {"Dat", Testo},       {"ConA", Lungo},
    {"Svo", Bit},
};

constexpr Colonna Equipaggi[] = {
    {"IDEqu", Contatore}, {"IDMan_FK", Lungo, 0, "Manifestazioni"},
    {"IDGru_FK", Lungo},  {"IDSqu_FK", Lungo},
    {"Num", Lungo},       {"Cog", Testo},
    {"Nom", Testo},       {"Ses", Testo},
    {"DatNas", Data},     {"Ind", Testo},
    {"Cap", Testo},       {"Cit", Testo},
    {"Pro", Testo},       {"Tel", Testo},
    {"Cel", Testo},       {"Fax", Testo},
    {"Ema", Testo},       {"Clu", Testo},
    {"Tes", Testo},       {"Pat", Testo},
    {"RilDa", Testo},     {"ScaPat", Data},
    {"Mar", Testo},       {"Mod", Testo},
    {"Ann", Lungo},       {"Cil", Numero},
    {"Tar", Testo},       {"Omo", Testo},
    {"Com", Testo},       {"Pol", Testo},
    {"ScaPol", Data},     {"CogNav", Testo},
    {"NomNav", Testo},    {"SesNav", Testo},
    {"Not", Testo},       {"Esc", Bit},
    {"MotEsc", Testo},
};

constexpr Colonna Rilevamenti[] = {
    {"IDRil", Contatore},
    {"IDEqu_FK", Lungo, 0, "Equipaggi"},
    {"IDPro_FK", Lungo, 0, "Prove"},
    {"TPar", Testo},
    {"TArr", Testo},
    {"PenAgg", Doppio},
    {"DesPenAgg", Testo, 10},
};

constexpr Colonna Raggruppamenti[] = {
    {"IDGru", Contatore}, {"IDMan_FK", Lungo, 0, "Manifestazioni"},
    {"Nom", Testo},       {"Fat", Doppio},
    {"DAAnn", Lungo, 8},  {"AAnn", Lungo, 8},
};

constexpr Colonna Squadre[] = {
    {"IDSqu", Contatore},
    {"IDMan_FK", Lungo, 0, "Manifestazioni"},
    {"Nom", Testo},
};

constexpr Colonna Prezzi[] = {
    {"IDPre", Contatore},
    {"IDMan_FK", Lungo, 0, "Manifestazioni"},
    {"Des", Testo},
    {"Pre", Doppio},
};

constexpr Colonna Incassi[] = {
    {"IDEqu_FK", Lungo, 0, "Equipaggi"},
    {"IDPre_FK", Lungo, 0, "Prezzi"},
    {"Qta", Numero},
};

constexpr Colonna Classifica[] = {
    {"Gru", Lungo},        {"Squ", Lungo}, {"Num", Lungo},     {"Con", Testo},         {"Nav", Testo},
    {"Vei", Testo},        {"Ann", Lungo}, {"Pen", Doppio},    {"PenNet", Doppio, 11}, {"PenAgg", Doppio, 13},
    {"Coeff", Doppio, 12}, {"Pos", Lungo}, {"PenSqu", Doppio},
};

constexpr Colonna ClassificaProva[] = {
    {"Num", Lungo},       {"Equ", Testo},       {"Vei", Testo},       {"Pen", Doppio},
    {"PenAgg", Lungo},    {"Pos", Lungo},       {"Nom1", Testo},      {"Nom2", Testo},
    {"Nom3", Testo},      {"Nom4", Testo},      {"Nom5", Testo},      {"Nom6", Testo},
    {"Nom7", Testo},      {"Nom8", Testo},      {"Nom9", Testo},      {"Nom10", Testo},
    {"TImp1", Testo},     {"TImp2", Testo},     {"TImp3", Testo},     {"TImp4", Testo},
    {"TImp5", Testo},     {"TImp6", Testo},     {"TImp7", Testo},     {"TImp8", Testo},
    {"TImp9", Testo},     {"TImp10", Testo},    {"Net1", Testo},      {"Net2", Testo},
    {"Net3", Testo},      {"Net4", Testo},      {"Net5", Testo},      {"Net6", Testo},
    {"Net7", Testo},      {"Net8", Testo},      {"Net9", Testo},      {"Net10", Testo},
    {"Net11", Testo, 2},  {"Net12", Testo, 2},  {"Net13", Testo, 2},  {"Net14", Testo, 2},
    {"Net15", Testo, 2},  {"TImp11", Testo, 2}, {"TImp12", Testo, 2}, {"TImp13", Testo, 2},
    {"TImp14", Testo, 2}, {"TImp15", Testo, 2}, {"Nom11", Testo, 2},  {"Nom12", Testo, 2},
    {"Nom13", Testo, 2},  {"Nom14", Testo, 2},  {"Nom15", Testo, 2},
};

constexpr Colonna Schede[] = {
    {"Num", Lungo},     {"IDPro", Lungo},   {"Con", Testo},    {"Nav", Testo},
    {"Vei", Testo},     {"Cil", Numero},    {"Ann", Lungo},    {"IDGru", Lungo},
    {"NomGru", Testo},  {"FatGru", Doppio}, {"ASI", Bit},      {"FatAnnAtt", Bit},
    {"FatAnn", Doppio}, {"PosAss", Testo},  {"PosGru", Testo}, {"PosASIoNoASI", Testo},
    {"NomPro", Testo},  {"TImp", Testo},    {"TPar", Testo},   {"TArr", Testo},
    {"Net", Testo},     {"TSca", Testo},    {"Pen", Doppio},   {"PenAgg", Doppio, 14},
};

constexpr Colonna ProspCoeff[] = {
    {"IDEqu_FK", Lungo},  {"Num", Lungo},    {"Equ", Testo},     {"Vei", Testo},
    {"PenNette", Doppio}, {"Coeff", Doppio}, {"PenAgg", Doppio}, {"PenTot", Doppio},
};

constexpr Colonna TempRil[] = {
    {"IDPro_FK", Lungo}, {"IDEqu_FK", Lungo}, {"TPar", Testo}, {"TArr", Testo}, {"Num", Lungo, 1},
};

constexpr Colonna ErroriSca[] = {
    {"IDEqu_FK", Lungo}, {"Num", Lungo},     {"Equ", Testo},  {"Vei", Testo},
    {"ErrTroTem", Bit},  {"ErrPocTem", Bit}, {"ErrIsc", Bit},
};

constexpr Colonna TempScar[] = {{"Num", Lungo}, {"Tem", Testo}};

constexpr bool Appoggio = true;

// Parents before children.
constexpr Tabella Tabelle[] = {
    {"Manifestazioni", Manifestazioni},
    {"Prove", Prove},
    {"Equipaggi", Equipaggi},
    {"Rilevamenti", Rilevamenti},
    {"Raggruppamenti", Raggruppamenti},
    {"Squadre", Squadre},
    {"Prezzi", Prezzi},
    {"Incassi", Incassi},
    {"Classifica", Classifica, 0, Appoggio},
    {"ClassificaProva", ClassificaProva, 0, Appoggio},
    {"Schede", Schede, 0, Appoggio},
    {"ProspCoeff", ProspCoeff, 6, Appoggio},
    {"TempRil", TempRil, 0, Appoggio},
    {"ErroriSca", ErroriSca, 4, Appoggio},
    {"TempScar", TempScar, 5, Appoggio},
};

// Index names are one family for the whole file, so each bears its table's name. Those on references keep the
// cascades and the bulk reads from walking whole tables.
constexpr Indice Indici[] = {
    {"TempRil_Numero", "TempRil", "Num", 1},
    {"ErroriSca_Numero", "ErroriSca", "Num", 4},
    {"ErroriSca_IDEquipaggio", "ErroriSca", "IDEqu_FK", 4},
    {"TempScar_Numero", "TempScar", "Num", 5},
    {"ProspCoeff_Numero", "ProspCoeff", "Num", 6},
    {"ProspCoeff_IDEquipaggio", "ProspCoeff", "IDEqu_FK", 6},
    {"Prove_Manifestazione", "Prove", "IDMan_FK"},
    {"Equipaggi_Manifestazione", "Equipaggi", "IDMan_FK"},
    {"Rilevamenti_Equipaggio", "Rilevamenti", "IDEqu_FK,IDPro_FK"},
    {"Rilevamenti_Prova", "Rilevamenti", "IDPro_FK"},
    {"Raggruppamenti_Manifestazione", "Raggruppamenti", "IDMan_FK"},
    {"Squadre_Manifestazione", "Squadre", "IDMan_FK"},
    {"Prezzi_Manifestazione", "Prezzi", "IDMan_FK"},
    {"Incassi_Equipaggio", "Incassi", "IDEqu_FK"},
    {"Incassi_Prezzo", "Incassi", "IDPre_FK"},
};

QString sqlTipo(TipoColonna tipo) {
    switch (tipo) {
        case Contatore:
            return u"INTEGER PRIMARY KEY AUTOINCREMENT"_s;
        case Lungo:
        case Bit:
            return u"INTEGER"_s;
        case Doppio:
            return u"REAL"_s;
        case Numero:
            return u"NUMERIC"_s;
        case Testo:
        case Data:
            break;
    }
    return u"TEXT COLLATE NOCASE"_s;
}

bool uguali(const char* nome, QStringView altro) {
    return altro.compare(QLatin1String(nome), Qt::CaseInsensitive) == 0;
}

}  // namespace

std::span<const Tabella> tabelle() {
    return Tabelle;
}

std::span<const Indice> indici() {
    return Indici;
}

const Tabella* trovaTabella(QStringView nome) {
    const auto trovata =
        std::ranges::find_if(Tabelle, [&](const Tabella& t) { return uguali(t.nome, nome); });
    return trovata == std::end(Tabelle) ? nullptr : &*trovata;
}

bool haColonna(const Tabella& tabella, QStringView nome) {
    return std::ranges::any_of(tabella.colonne, [&](const Colonna& c) { return uguali(c.nome, nome); });
}

QString sqlColonna(const Colonna& colonna) {
    QString testo = u"[%1] %2"_s.arg(QLatin1String(colonna.nome), sqlTipo(colonna.tipo));
    if (colonna.padre) {
        const Tabella* padre = trovaTabella(QString::fromLatin1(colonna.padre));
        testo += u" REFERENCES %1([%2]) ON DELETE CASCADE"_s.arg(QLatin1String(padre->nome),
                                                                 QLatin1String(padre->colonne.front().nome));
    }
    return testo;
}

QString sqlCreaTabella(const Tabella& tabella, int primaDelPasso) {
    QStringList colonne;
    for (const Colonna& colonna : tabella.colonne) {
        if (primaDelPasso == 0 || colonna.passo < primaDelPasso) {
            colonne << sqlColonna(colonna);
        } else if (colonna.passo == 14) {  // the one column that an upgrade alters rather than adds
            colonne << u"[%1] INTEGER"_s.arg(QLatin1String(colonna.nome));
        }
    }
    return u"CREATE TABLE %1 (%2)"_s.arg(QLatin1String(tabella.nome), colonne.join(u", "));
}

QString sqlCreaIndice(const Indice& indice) {
    return u"CREATE INDEX %1 ON %2 (%3)"_s.arg(QLatin1String(indice.nome), QLatin1String(indice.tabella),
                                               QLatin1String(indice.colonne));
}

#include "output/DefinizioniRapporti.h"

namespace {

using enum Allineamento;

// Null joins like the empty text.
#define UNISCI(a, b) "trim(coalesce(" a ",'')||' '||coalesce(" b ",''))"
#define PEN_CLASSIFICA "CASE WHEN Pen=999999999 THEN 'ESC.' ELSE Pen END"

constexpr CampoRapporto Classifica[] = {
    {u"POS.", "Pos", 5, Centro, Evidente},
    {u"NUM.", "Num", 5, Centro},
    {u"PEN.", "PenCla", 9, Destra, Evidente, PEN_CLASSIFICA},
    {u"EQUIPAGGIO", "Con", 30},
    {u"VEICOLO", "Vei", 30},
    {u"ANNO", "Ann", 6, Centro},
    {u"P.NET.", "PenNet", 9, Destra},
    {u"P.AGG.", "PenAgg", 7, Destra},
    {u"COEFF.", "Coeff", 7, Destra},
};

constexpr CampoRapporto PenalitaAggiuntive[] = {
    {u"NUM.", "Num", 6, Centro, Evidente},
    {u"EQUIPAGGIO", "Equ", 22, Sinistra, NessunaOpzione, UNISCI("Cog", "CogNav")},
    {u"PENALITA'", "PenAgg", 10, Destra, Evidente},
    {u"DESCRIZIONE", "DesPenAgg", 48},
    {u"PROVA", "NomPro", 20, Sinistra, NessunaOpzione, "Prove.Nom"},
};

constexpr CampoRapporto Coefficienti[] = {
    {u"NUM.", "Num", 6, Centro, Evidente},
    {u"EQUIPAGGIO", "Equ", 30},
    {u"VEICOLO", "Vei", 30},
    {u"NETTE", "PenNette", 10, Destra},
    {u"COEFF.", "Coeff", 8, Destra},
    {u"AGG.", "PenAgg", 8, Destra},
    {u"TOT.", "PenTot", 10, Destra, Evidente},
};

constexpr CampoRapporto Lista[] = {
    {u"NUM.", "Num", 6, Centro, Evidente},
    {u"CONDUCENTE", "Con", 26, Sinistra, NessunaOpzione, UNISCI("Cog", "Nom")},
    {u"NAVIGATORE", "Nav", 26, Sinistra, NessunaOpzione, UNISCI("CogNav", "NomNav")},
    {u"VEICOLO", "Vei", 30, Sinistra, NessunaOpzione, UNISCI("Mar", "[Mod]")},
    {u"ANNO", "Ann", 6, Centro},
    {u"CIL.", "Cil", 7, Destra},
};

constexpr CampoRapporto ListaConOrari[] = {
    {u"NUM.", "Num", 6, Centro, Evidente},
    {u"CONDUCENTE", "Conducente", 26, Sinistra, NessunaOpzione, UNISCI("Cog", "Equipaggi.Nom")},
    {u"NAVIGATORE", "Navigatore", 26, Sinistra, NessunaOpzione, UNISCI("CogNav", "NomNav")},
    {u"VEICOLO", "Veicolo", 30, Sinistra, NessunaOpzione, UNISCI("Mar", "[Mod]")},
    {u"ORARIO", "TPar", 12, Centro, Evidente},
};

constexpr CampoRapporto Verifiche[] = {
    {u"", "Num", 4, Centro, Evidente},
    {u"NOMINATIVO", "Con", 26, Sinistra, NessunaOpzione, UNISCI("Cog", "Nom"), u"CONDUTTORE"},
    {u"TESS. ASI", "Tes", 10, Centro, NessunaOpzione, nullptr, u"CONDUTTORE"},
    {u"Prefettura", "RilDa", 16, Sinistra, NessunaOpzione, nullptr, u"PATENTE"},
    {u"Numero", "Pat", 14, Sinistra, NessunaOpzione, nullptr, u"PATENTE"},
    {u"Scadenza", "ScaPat", 11, Centro, Data, nullptr, u"PATENTE"},
    {u"MARCA e TIPO", "Vei", 26, Sinistra, NessunaOpzione, UNISCI("Mar", "[Mod]"), u"VEICOLO"},
    {u"ANNO", "Ann", 6, Centro, NessunaOpzione, nullptr, u"VEICOLO"},
    {u"TARGA", "Tar", 10, Centro, NessunaOpzione, nullptr, u"VEICOLO"},
    {u"OMOLOG. ASI N°", "Omo", 12, Centro, NessunaOpzione, nullptr, u"VEICOLO"},
    {u"COMPAGNIA", "Com", 18, Sinistra, NessunaOpzione, nullptr, u"ASSICURAZIONE"},
    {u"NUMERO", "Pol", 14, Sinistra, NessunaOpzione, nullptr, u"ASSICURAZIONE"},
    {u"SCADENZA", "ScaPol", 11, Centro, Data, nullptr, u"ASSICURAZIONE"},
};

// Of the sheets with test columns the last two stand after these.
constexpr CampoRapporto ClassificaProva[] = {
    {u"Pos", "Pos", 4, Centro, Evidente}, {u"Num", "Num", 4, Centro},
    {u"EQUIPAGGIO", "Equ", 22},           {u"VEICOLO", "Vei", 20},
    {u"P.A.", "PenAgg", 5, Destra},       {u"Pen.", "Pen", 8, Destra, Evidente},
};

constexpr CampoRapporto ProspettoTempi[] = {
    {u"Num", "Num", 4, Centro, Evidente},
    {u"EQUIPAGGIO", "Equ", 22},
    {u"VEICOLO", "Vei", 20},
    {u"P.A.", "PenAgg", 5, Destra},
    {u"Pen.", "Pen", 8, Destra, Evidente},
};

constexpr CampoRapporto ProspettoCompresso[] = {
    {u"Num", "Num", 4, Centro, Evidente},
    {u"P.A.", "PenAgg", 5, Destra},
    {u"Pen.", "Pen", 8, Destra, Evidente},
};

constexpr CampoRapporto Squadre[] = {
    {u"POS.", "Pos", 8, Centro, Evidente},
    {u"PENALITA'", "PenClaSqu", 14, Destra, Evidente,
     "CASE WHEN PenSqu>=999999999 THEN 'ESCLUSA' ELSE PenSqu END"},
    {u"SQUADRA", "Nom", 60, Sinistra, Evidente},
};

constexpr CampoRapporto EquipaggiSquadre[] = {
    {u"NUM.", "Num", 6, Centro}, {u"PEN.", "PenCla", 10, Destra, NessunaOpzione, PEN_CLASSIFICA},
    {u"CONDUCENTE", "Con", 26},  {u"NAVIGATORE", "Nav", 26},
    {u"VEICOLO", "Vei", 30},
};

constexpr CampoRapporto ProveScheda[] = {
    {u"Prova", "NomPro", 34},          {u"T. Imposto", "TImp", 12, Centro},
    {u"T. Start", "TPar", 14, Centro}, {u"T.Pass.", "TArr", 14, Centro},
    {u"T. Netto", "Net", 14, Centro},  {u"T. Scarto", "TSca", 14, Centro},
    {u"P.A.", "PenAgg", 8, Destra},    {u"Penalità", "Pen", 10, Destra, Evidente},
};

// A key is read, never headed.
constexpr CampoRapporto chiave(const char* campo, const char* espressione = nullptr) {
    return {u"", campo, 1, Sinistra, NessunaOpzione, espressione};
}

// A group factor of 0 counts as 1.
constexpr CampoRapporto ChiaviScheda[] = {
    chiave("Num"),
    chiave("Con"),
    chiave("Nav"),
    chiave("Vei"),
    chiave("Ann"),
    chiave("Cil"),
    chiave("PosAss"),
    chiave("ClassASIeNONASI", "CASE WHEN ASI<>0 THEN 'Class. ASI :' ELSE 'Class. NON ASI :' END"),
    chiave("PosASIoNoASI"),
    chiave("EticClassRaggr", "CASE WHEN IDGru<>0 THEN 'di Raggruppamento :' END"),
    chiave("StampaNomGru", "CASE WHEN IDGru<>0 THEN NomGru END"),
    chiave("ClassRaggr", "CASE WHEN IDGru<>0 THEN PosGru END"),
    chiave("EticFatAnn", "CASE WHEN FatAnnAtt<>0 THEN 'Coefficiente per Veicolo :' END"),
    chiave("StampaFatAnn", "CASE WHEN FatAnnAtt<>0 THEN FatAnn END"),
    chiave("EticFatGru", "CASE WHEN IDGru<>0 THEN 'Coefficiente Raggruppamento :' END"),
    chiave("StampaFatGru", "CASE WHEN IDGru<>0 THEN coalesce(nullif(FatGru,0),1) END"),
};

#define RILEVAMENTI_DELL_EVENTO                                                 \
    "Equipaggi INNER JOIN Rilevamenti ON Equipaggi.IDEqu=Rilevamenti.IDEqu_FK " \
    "INNER JOIN Prove ON Prove.IDPro=Rilevamenti.IDPro_FK WHERE Equipaggi.IDMan_FK=? AND "

constexpr DefinizioneRapporto Definizioni[] = {
    {.tipo = u"Classifica", .da = "Classifica", .ordine = "Pos", .colonne = Classifica, .esclusi = true},
    {.tipo = u"PenalitàAggiuntive",
     .da = RILEVAMENTI_DELL_EVENTO "(PenAgg<>0 OR trim(DesPenAgg)<>'')",
     .ordine = "Num,IDPro",
     .colonne = PenalitaAggiuntive,
     .evento = true,
     .shape = true},
    {.tipo = u"ProspettoPenCoeff", .da = "ProspCoeff", .ordine = "Num", .colonne = Coefficienti},
    {.tipo = u"Lista",
     .tipoClas = u"LISTA DI PARTENZA",
     .da = "Equipaggi WHERE IDMan_FK=?",
     .ordine = "Num",
     .colonne = Lista,
     .evento = true},
    {.tipo = u"ListaConOrari",
     .tipoClas = u"LISTA e ORARI DI PARTENZA",
     .da = RILEVAMENTI_DELL_EVENTO "Prove.Tip='CO'",
     .ordine = "Num,IDPro",
     .colonne = ListaConOrari,
     .forma = FormaRapporto::Distinte,
     .evento = true,
     .shape = true},
    {.tipo = u"VerificheTutti",
     .tipoClas = u"PROSPETTO VERIFICHE",
     .da = "Equipaggi WHERE IDMan_FK=?",
     .ordine = "Num",
     .colonne = Verifiche,
     .orizzontale = true,
     .evento = true,
     .verifiche = true},
    {.tipo = u"VerificheASI",
     .tipoClas = u"PROSPETTO VERIFICHE",
     .da = "Equipaggi WHERE IDMan_FK=? AND trim(Omo)<>'' AND Omo IS NOT NULL",
     .ordine = "Num",
     .colonne = Verifiche,
     .orizzontale = true,
     .evento = true,
     .verifiche = true},
    {.tipo = u"VerificheNONASI",
     .tipoClas = u"PROSPETTO VERIFICHE",
     .da = "Equipaggi WHERE IDMan_FK=? AND (trim(Omo)='' OR Omo IS NULL)",
     .ordine = "Num",
     .colonne = Verifiche,
     .orizzontale = true,
     .evento = true,
     .verifiche = true},
    {.tipo = u"ClassificaProva",
     .tipoClas = u"CLASSIFICA PARZIALE",
     .da = "ClassificaProva",
     .ordine = "Pos",
     .colonne = ClassificaProva,
     .prove = 10,
     .proveVerticali = 3},
    {.tipo = u"ProspettoTempi",
     .tipoClas = u"PROSPETTO TEMPI",
     .da = "ClassificaProva",
     .ordine = "Num",
     .colonne = ProspettoTempi,
     .prove = 10,
     .proveVerticali = 3},
    {.tipo = u"ProspettoTempiCompresso",
     .tipoClas = u"PROSPETTO TEMPI",
     .da = "ClassificaProva",
     .ordine = "Num",
     .colonne = ProspettoCompresso,
     .prove = 15,
     .proveVerticali = 7},
    {.tipo = u"Schede",
     .tipoClas = u"Scheda Individuale",
     .da = "Schede",
     .ordine = "Num,IDPro",
     .chiavi = ChiaviScheda,
     .colonne = ProveScheda,
     .forma = FormaRapporto::Schede,
     .shape = true},
    {.tipo = u"ClassificaSquadre",
     .finestra = u"Classifica Assoluta Per Squadre",
     .da = "Classifica INNER JOIN Squadre ON Squadre.IDSqu=Classifica.Squ",
     .ordine = "Pos,Num",
     .chiavi = Squadre,
     .colonne = EquipaggiSquadre,
     .forma = FormaRapporto::Squadre,
     .shape = true,
     .esclusi = true},
};

}  // namespace

const char PenCorrScheda[] =
    "coalesce(Pen,0)*(CASE WHEN FatAnnAtt<>0 THEN coalesce(FatAnn,0) ELSE 1 END)"
    "*(CASE WHEN IDGru<>0 THEN coalesce(nullif(FatGru,0),1) ELSE 1 END)+coalesce(PenAgg,0)";

std::span<const DefinizioneRapporto> definizioniRapporti() {
    return Definizioni;
}

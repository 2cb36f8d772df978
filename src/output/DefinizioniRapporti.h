#pragma once

#include "output/Rapporto.h"

#include <span>

// The kinds of report as data: what each prints and where it reads it.

enum OpzioniCampo : unsigned {
    NessunaOpzione = 0,
    Evidente = 1,  // what the reader looks for first
    Data = 2,      // a date, stored the ISO way
};

// A column: its head, the field it is bound to and where the field comes from.
struct CampoRapporto {
    const char16_t* testata;
    const char* campo;
    double larghezza = 1;
    Allineamento allineamento = Allineamento::Sinistra;
    unsigned opzioni = NessunaOpzione;
    const char* espressione = nullptr;  // SQL; by default the column of the field's name
    const char16_t* sopra = u"";
};

enum class FormaRapporto {
    Elenco,    // one row of the query, one row of the report
    Distinte,  // rows alike are printed once
    Squadre,   // a group per team
    Schede,    // a page per crew
};

struct DefinizioneRapporto {
    QStringView tipo;
    QStringView tipoClas = u"";  // fixed lblTipoClas; empty where it bears the title
    QStringView finestra = u"";  // fixed window title
    const char* da;              // FROM and WHERE
    const char* ordine;
    std::span<const CampoRapporto> chiavi = {};  // what the rows of one group have in common
    std::span<const CampoRapporto> colonne;
    FormaRapporto forma = FormaRapporto::Elenco;
    int prove = 0;           // test columns, before the last two
    int proveVerticali = 0;  // more tests than these need the paper's long side
    bool orizzontale = false;
    bool evento = false;     // the query binds the event's key
    bool shape = false;      // parents and children: read on ConnShape
    bool verifiche = false;  // the head of the scrutineering sheets
    bool esclusi = false;    // the page foot tells the excluded crews
};

std::span<const DefinizioneRapporto> definizioniRapporti();

// What a card says of its crew, in the order of its keys.
enum ChiaveScheda {
    Num,
    Con,
    Nav,
    Vei,
    Ann,
    Cil,
    PosAss,
    ClassASIeNONASI,
    PosASIoNoASI,
    EticClassRaggr,
    StampaNomGru,
    ClassRaggr,
    EticFatAnn,
    StampaFatAnn,
    EticFatGru,
    StampaFatGru,
};

// A card row's share of the crew's total, so that the sum agrees with the total.
extern const char PenCorrScheda[];

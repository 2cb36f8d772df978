#pragma once

#include <array>
#include <QString>

// Scoring settings of an event, read once per computation. Null settings: numbers 0, switches off, words
// empty.

enum class Precisione { Nessuna, Minuto, Secondo, Decimo, Centesimo };
enum class TipoProva { PA, PM, CO, Altro };

Precisione leggiPrecisione(const QString& parola);  // "MIN", "SEC", "DEC", "CEN"; Nessuna for any other word
TipoProva leggiTipoProva(const QString& parola);    // "PA", "PM", "CO"; Altro for any other word

struct Taratura {
    Precisione precisione = Precisione::Nessuna;
    int penalitaUnita = 0;  // points per unit of the precision
};

// One set for ASI crews and one for the others; equal when the event does not tell them apart.
struct ImpostazioneClasse {
    std::array<Taratura, 3> tarature;  // by TipoProva: PA, PM, CO
    int penalitaMassima = 0;           // cap per test
};

struct Impostazione {
    ImpostazioneClasse asi;
    ImpostazioneClasse nonASI;
    bool massimoAttivo = false;
    bool fissaSeManca = false;  // a test with a missing reading gets the fixed penalty
    double penalitaFissa = 0;
    bool fattoreAnno = false;    // the vehicle's year gives the coefficient
    bool fattoreNonASI = false;  // crews that are not ASI get the fixed coefficient
    double coefficienteNonASI = 0;

    [[nodiscard]] const ImpostazioneClasse& classe(bool diASI) const { return diASI ? asi : nonASI; }
    // Nothing for a kind other than the three.
    [[nodiscard]] Taratura taratura(bool diASI, TipoProva tipo) const;
};

// Throws Errore when the event has no row.
Impostazione leggiImpostazione(int idMan);

#include "scoring/Impostazione.h"

#include "archive/ErroreArchivio.h"
#include "archive/Statement.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<const char*, 3> Tipi{"PA", "PM", "CO"};

ImpostazioneClasse leggiClasse(const Statement& riga, const QString& coda) {
    ImpostazioneClasse classe;
    for (std::size_t i = 0; i < Tipi.size(); ++i) {
        const QString tipo = QString::fromLatin1(Tipi[i]);
        classe.tarature[i].precisione = leggiPrecisione(riga.testo(u"Pre"_s + tipo + coda));
        classe.tarature[i].penalitaUnita = riga.valore(u"PenUni"_s + tipo + coda).toInt();
    }
    classe.penalitaMassima = riga.valore(u"PenMax"_s + coda).toInt();
    return classe;
}

}  // namespace

Precisione leggiPrecisione(const QString& parola) {
    if (parola == u"MIN")
        return Precisione::Minuto;
    if (parola == u"SEC")
        return Precisione::Secondo;
    if (parola == u"DEC")
        return Precisione::Decimo;
    return parola == u"CEN" ? Precisione::Centesimo : Precisione::Nessuna;
}

TipoProva leggiTipoProva(const QString& parola) {
    for (std::size_t i = 0; i < Tipi.size(); ++i) {
        if (parola == QLatin1String(Tipi[i]))
            return static_cast<TipoProva>(i);
    }
    return TipoProva::Altro;
}

Taratura Impostazione::taratura(bool diASI, TipoProva tipo) const {
    return tipo == TipoProva::Altro ? Taratura{} : classe(diASI).tarature[static_cast<std::size_t>(tipo)];
}

Impostazione leggiImpostazione(int idMan) {
    Statement riga(u"SELECT * FROM Manifestazioni WHERE IDMan=?"_s);
    if (!riga.esegui({idMan}).prossima())
        throw Errore(u"La manifestazione attiva non è più nell'archivio."_s);
    const auto acceso = [&](const QString& colonna) { return riga.valore(colonna).toInt() != 0; };
    Impostazione impostazione;
    impostazione.asi = leggiClasse(riga, {});
    impostazione.nonASI = acceso(u"ASIeNONASI"_s) ? leggiClasse(riga, u"NoASI"_s) : impostazione.asi;
    impostazione.massimoAttivo = acceso(u"PenMaxAtt"_s);
    impostazione.fissaSeManca = acceso(u"PenProNonSvo"_s);
    impostazione.penalitaFissa = riga.valore(u"NumPenProNonSvo"_s).toDouble();
    impostazione.fattoreAnno = acceso(u"FatAnn"_s);
    impostazione.fattoreNonASI = acceso(u"FatNoASI"_s);
    impostazione.coefficienteNonASI = riga.valore(u"NumFatNoASI"_s).toDouble();
    return impostazione;
}

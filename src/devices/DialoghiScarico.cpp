#include "devices/DialoghiScarico.h"

#include "common/Dialoghi.h"
#include "devices/Porta.h"
#include "devices/Scarico.h"

using namespace Qt::StringLiterals;

std::optional<QString> chiediManche() {
    for (;;) {
        const QString risposta = Dialoghi::corrente()
                                     .chiedi(u"Inserimento Numero della Manche da Scaricare"_s,
                                             u"Numero della Manche da Scaricare"_s, {})
                                     .value_or(QString());
        if (risposta.isEmpty())
            return std::nullopt;
        if (std::optional<QString> manche = leggiManche(risposta))
            return manche;
        avverti(u"Attenzione"_s, u"Numero di Manche NON Corretto"_s);
    }
}

void avvisaMancheErrata() {
    avverti(u"Impossibile Ricevere i Tempi"_s, u"Numero di Manche Errato"_s);
}

void avvisaNessunaRisposta() {
    avverti(u"Errore di Comunicazione"_s,
            u"Nessuna Risposta Ricevuta dal CP540.\nControllare I Collegamenti e Quindi Riprovare."_s);
}

void avvisaGuastoPorta(const GuastoPorta& guasto) {
    avverti(u"Errore"_s, guasto.testo());
}

void avvisaDatoErrato() {
    Dialoghi::corrente().messaggio(u"ATTENZIONE!"_s,
                                   u"E' Stato Ricevuto un Dato Errato.\nLa Ricezione Sarà Interrotta.\n"
                                   "Verificare i Cavi di Collegamento e le Impostazioni del TAG CP520."_s,
                                   Icona::Stop);
}

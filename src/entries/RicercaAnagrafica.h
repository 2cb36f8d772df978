#pragma once

#include <QList>
#include <QString>

// The crews ever entered, of all events: where a returning person is found.

struct PersonaArchivio {
    int idEqu = 0;
    QString conducente;  // surname, first name: what the search runs on
    QString navigatore;
    QString veicolo;
    QString anno;  // empty when unknown
    QString manifestazione;
};

QList<PersonaArchivio> leggiAnagrafica();  // by surname and first name

// Whether surname and first name begin with the text, case aside; a blank text takes everyone.
bool corrisponde(const PersonaArchivio& persona, const QString& testo);

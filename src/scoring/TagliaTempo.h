#pragma once

#include "scoring/Impostazione.h"

// Cuts a reading (hh:mm:ss:cc) to the precision in force for a kind of test and a class of crew, before it is
// stored: a truncation, never a rounding. A blank text, a kind or a precision word that is none gives empty
// text.
QString TagliaTempo(const QString& tempo, bool asi, const QString& tipo);
// The same on settings already read.
QString tagliaTempo(const Impostazione& impostazione, const QString& tempo, bool asi, TipoProva tipo);

// Whether the ASI precision of a kind is at least as fine as that of the other crews; a word that is none
// counts as the minute. The stored words are compared, whether or not the event tells the two classes apart.
bool PrecisioneASINonInferiore(const QString& tipo);

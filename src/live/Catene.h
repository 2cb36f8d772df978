#pragma once

#include "download/Pressostati.h"

// The chains of skill tests that are timed on-line: a head and the tests chained to it, one after the other.
// Tests of other kinds between them are not timed and do not break a chain.
using Catena = QList<ProvaCronometrata>;  // never empty

// `prove`: an event's tests in their order. A chained test with no skill test before it is a head too.
QList<Catena> elencaCatene(const QList<ProvaCronometrata>& prove);

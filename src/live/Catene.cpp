#include "live/Catene.h"

using namespace Qt::StringLiterals;

QList<Catena> elencaCatene(const QList<ProvaCronometrata>& prove) {
    QList<Catena> catene;
    for (const ProvaCronometrata& prova : prove) {
        if (prova.tip != "PA"_L1)
            continue;
        if (prova.conA == 0 || catene.isEmpty())
            catene << Catena{};
        catene.last() << prova;
    }
    return catene;
}

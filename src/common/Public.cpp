#include "common/Public.h"

#include "common/Impostazioni.h"

using namespace Qt::StringLiterals;

namespace {
const QString Sezione = u"IDMan"_s;
}

void ImpostaManifestazioneAttiva(int idMan) {
    IDMan = idMan;
    Impostazioni::corrente().scrivi(Sezione, Sezione, QString::number(idMan));
}

int leggiManifestazioneAttiva() {
    return Impostazioni::corrente().leggi(Sezione, Sezione, u"0"_s).toInt();
}

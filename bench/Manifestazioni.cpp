#include "Manifestazioni.h"

#include "archive/Statement.h"
#include "common/Public.h"
#include "common/Valori.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

QString orario(int centesimi) {
    return QString::asprintf("%02d:%02d:%02d:%02d", centesimi / CentesimiAllOra,
                             centesimi / CentesimiAlMinuto % 60, centesimi / CentesimiAlSecondo % 60,
                             centesimi % 100);
}

void scriviProve(int idMan, int prove) {
    Statement prova(
        u"INSERT INTO Prove (IDMan_FK,Nom,Tip,Tem,Dat,ConA,Svo) VALUES (?,?,?,'00:01:00',?,0,1)"_s);
    const QString tipi[] = {u"PA"_s, u"PM"_s, u"CO"_s};
    for (int i = 0; i < prove; ++i)
        prova.esegui({idMan, u"Prova %1"_s.arg(i + 1), tipi[i % 3],
                      i < prove / 2 ? u"13/06/2026"_s : u"14/06/2026"_s});
}

void scriviEquipaggi(int idMan, int equipaggi) {
    Statement equipaggio(
        u"INSERT INTO Equipaggi (IDMan_FK,IDGru_FK,IDSqu_FK,Num,Cog,Nom,CogNav,NomNav,Mar,[Mod],Ann,"
        "Omo,Esc) VALUES (?,(SELECT max(IDGru) FROM Raggruppamenti),0,?,'ROSSI','Mario','BIANCHI',"
        "'Anna','LANCIA','APRILIA',?,?,0)"_s);
    for (int i = 0; i < equipaggi; ++i)
        equipaggio.esegui({idMan, i + 1, 1925 + i % 65, i % 3 ? u"A123"_s : QString()});
}

void scriviLetture() {
    QRandomGenerator caso(7);
    QList<QPair<int, int>> coppie;
    Statement lettura(
        u"SELECT IDEqu,IDPro FROM Equipaggi JOIN Prove USING (IDMan_FK) ORDER BY IDEqu,IDPro"_s);
    lettura.esegui();
    while (lettura.prossima())
        coppie << qMakePair(lettura.intero(0), lettura.intero(1));
    Statement riga(u"INSERT INTO Rilevamenti (IDEqu_FK,IDPro_FK,TPar,TArr,PenAgg) VALUES (?,?,?,?,0)"_s);
    for (const auto& [idEqu, idPro] : coppie) {
        const int partenza = caso.bounded(6 * CentesimiAllOra, 20 * CentesimiAllOra);
        riga.esegui({idEqu, idPro, orario(partenza), orario(partenza + 5900 + caso.bounded(200))});
    }
}

void scriviManifestazione(int equipaggi, int prove) {
    IDMan = inserisciRiga(u"Manifestazioni"_s, {{u"Nom"_s, u"Misura"_s},
                                                {u"FatAnn"_s, 1},
                                                {u"AutoEsc"_s, 1},
                                                {u"PrePA"_s, u"CEN"_s},
                                                {u"PrePM"_s, u"SEC"_s},
                                                {u"PreCO"_s, u"MIN"_s},
                                                {u"PenUniPA"_s, 1},
                                                {u"PenUniPM"_s, 2},
                                                {u"PenUniCO"_s, 60},
                                                {u"PenMaxAtt"_s, 1},
                                                {u"PenMax"_s, 300},
                                                {u"ASIeNONASI"_s, 0}});
    inserisciRiga(u"Raggruppamenti"_s, {{u"IDMan_FK"_s, IDMan}, {u"Nom"_s, u"Classic"_s}, {u"Fat"_s, 1.1}});
    scriviProve(IDMan, prove);
    scriviEquipaggi(IDMan, equipaggi);
}

}  // namespace

ManifestazioneDiMisura::ManifestazioneDiMisura(int equipaggi, int prove, int manifestazioni) {
    PercorsoApp = m_cartella.path();
    PreparaArchivio();
    ApriDataBase();
    Transazione transazione;
    for (int i = 0; i < manifestazioni; ++i)
        scriviManifestazione(equipaggi, prove);
    scriviLetture();
    transazione.conferma();
}

ManifestazioneDiMisura::~ManifestazioneDiMisura() {
    ChiudiDataBase();
    IDMan = 0;
}

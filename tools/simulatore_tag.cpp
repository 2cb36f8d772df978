// Plays a TAG CP520 or TAG CP540 for the program: see the help text below.

#include "simulatori/Programma.h"
#include "simulatori/SimulatoreTag.h"

#include "archive/ErroreArchivio.h"

#include <QCoreApplication>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr char Aiuto[] = R"(Fa la parte di un cronometro TAG CP520 o TAG CP540.

Uso: simulatore_tag [--dispositivo CP520|CP540] [--programma CARTELLA] [--com N] [COPIONE]

Collega uno pseudo-terminale come porta N (porte/comN nella cartella del programma) ed esegue il copione, un
comando per riga; senza copione legge i comandi dalla tastiera. "#" apre un commento. Scrive quando il programma
apre la porta e quando la chiude.
Se non si dicono, la cartella è quella in cui ci si trova e N è 1; il cronometro è un CP540.

  partenza                  impulso di partenza (on-line)
  tempo M:SS.CC             tempo trascorso (on-line)
  manche N                  i record che seguono sono della manche N (CP540; all'inizio 1)
  record NUM HH:MM:SS.CC    un passaggio in memoria; NUM 0: senza numero
  riga TESTO                una riga di memoria così com'è, compreso il suo fine riga
  trasmetti                 scarica la memoria (CP520; il CP540 risponde da sé a #ID e #DL_)
  serie TESTO               numero di serie, 5 caratteri
  muto | parla              non risponde più | risponde di nuovo
  taglia N | taglia no      lo scarico si interrompe dopo N byte | arriva intero
  coda N | coda no          il fine scarico nomina la manche N | quella giusta
  spezza N MS | spezza no   N byte alla volta, ogni MS millisecondi | tutto insieme
  incolla | fine-incolla    trattiene quel che segue | e lo invia in un pezzo solo
  invia TESTO               byte qualsiasi; \r \n \t \\ \xHH
  disturbo N                N byte a caso
)";

QString secondi(SimulatoreTag& tag, const QString& testo) {
    static const QRegularExpression forma(uR"(^(\d{1,2}):(\d{2})\.(\d{2})$)"_s);
    const QRegularExpressionMatch parti = forma.match(testo);
    if (!parti.hasMatch())
        return u"il tempo si scrive M:SS.CC"_s;
    tag.tempo(parti.captured(1).toInt() * 6000 + parti.captured(2).toInt() * 100 + parti.captured(3).toInt());
    return {};
}

QString passaggio(SimulatoreTag& tag, const QString& testo) {
    bool letto = false;
    const int numero = testo.section(u' ', 0, 0).toInt(&letto);
    const QString tempo = testo.section(u' ', 1).trimmed();
    const QTime ora = QTime::fromString(tempo, u"hh:mm:ss.zzz"_s);
    const QTime alCentesimo = ora.isValid() ? ora : QTime::fromString(tempo + u'0', u"hh:mm:ss.zzz"_s);
    if (!letto || numero < 0 || numero > 9999 || !alCentesimo.isValid())
        return u"il record si scrive NUM HH:MM:SS.CC"_s;
    tag.registra(numero, alCentesimo);
    return {};
}

// "no", or a number from the lowest on.
QString conNumero(const QString& testo, int minimo, const std::function<void(std::optional<int>)>& imposta) {
    if (testo == "no"_L1) {
        imposta(std::nullopt);
        return {};
    }
    bool letto = false;
    const int numero = testo.toInt(&letto);
    if (!letto || numero < minimo)
        return u"manca un numero"_s;
    imposta(numero);
    return {};
}

QString grezzi(const QString& testo, const std::function<void(const QByteArray&)>& azione) {
    const std::optional<QByteArray> byte = leggiByte(testo);
    if (!byte)
        return u"sequenza \\ non valida"_s;
    azione(*byte);
    return {};
}

QString memoria(SimulatoreTag& tag, const Copione::Comando& c) {
    if (c.nome == "manche"_L1)
        return conNumero(c.resto, 1, [&](std::optional<int> n) { tag.scegliManche(n.value_or(1)); });
    if (c.nome == "record"_L1)
        return passaggio(tag, c.resto);
    if (c.nome == "riga"_L1)
        return grezzi(c.resto, [&](const QByteArray& b) { tag.registraRiga(b); });
    if (c.nome == "trasmetti"_L1) {
        tag.trasmetti();
    } else {
        return u"comando sconosciuto: "_s + c.nome;
    }
    return {};
}

QString esegui(SimulatoreTag& tag, const Copione::Comando& c) {
    static const QStringList Soli{u"partenza"_s, u"trasmetti"_s, u"muto"_s,
                                  u"parla"_s,    u"incolla"_s,   u"fine-incolla"_s};
    if (Soli.contains(c.nome) && !c.resto.isEmpty())
        return u"%1 si scrive da solo"_s.arg(c.nome);
    if (c.nome == "partenza"_L1) {
        tag.partenza();
    } else if (c.nome == "tempo"_L1) {
        return secondi(tag, c.resto);
    } else if (c.nome == "serie"_L1) {
        if (c.resto.isEmpty())
            return u"manca il numero di serie"_s;
        tag.setSerie(c.resto);
    } else if (c.nome == "muto"_L1 || c.nome == "parla"_L1) {
        tag.setMuto(c.nome == "muto"_L1);
    } else if (c.nome == "taglia"_L1) {
        return conNumero(c.resto, 0, [&](std::optional<int> n) { tag.setTaglio(n); });
    } else if (c.nome == "coda"_L1) {
        return conNumero(c.resto, 1, [&](std::optional<int> n) { tag.setMancheInCoda(n); });
    } else if (c.nome == "spezza"_L1) {
        bool letti = false;
        const int millisecondi = c.resto.section(u' ', 1).toInt(&letti);
        if (c.resto != "no"_L1 && (!letti || millisecondi < 1))
            return u"si scrive: spezza N MS, oppure spezza no"_s;
        return conNumero(c.resto.section(u' ', 0, 0), 1,
                         [&](std::optional<int> n) { tag.spezza(n.value_or(0), millisecondi); });
    } else if (c.nome == "incolla"_L1) {
        tag.incolla();
    } else if (c.nome == "fine-incolla"_L1) {
        tag.fineIncolla();
    } else if (c.nome == "invia"_L1) {
        return grezzi(c.resto, [&](const QByteArray& b) { tag.invia(b); });
    } else if (c.nome == "disturbo"_L1) {
        return conNumero(c.resto, 0, [&](std::optional<int> n) { tag.disturbo(n.value_or(0)); });
    } else {
        return memoria(tag, c);
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication applicazione(argc, argv);
    const OpzioniSimulatore opzioni(QString::fromUtf8(Aiuto), {{u"dispositivo"_s, true, u"CP540"_s}});
    const QString dispositivo = opzioni.valore(u"dispositivo"_s).toUpper();
    if (dispositivo != "CP520"_L1 && dispositivo != "CP540"_L1)
        RigaDiComando::rifiuta(u"--dispositivo: CP520 oppure CP540"_s);
    try {
        PseudoTerminale linea(opzioni.cartella(), opzioni.porta());
        QObject::connect(&linea, &PseudoTerminale::cambiata, &linea,
                         [](bool aperta) { scriviRiga(aperta ? u"porta aperta"_s : u"porta chiusa"_s); });
        SimulatoreTag tag(dispositivo == "CP520"_L1 ? Dispositivo::CP520 : Dispositivo::CP540, linea);
        Copione copione(linea, [&tag](const Copione::Comando& comando) { return esegui(tag, comando); });
        return recita(copione, opzioni);
    } catch (const Errore& errore) {
        return fallisci(errore.testo());
    }
}

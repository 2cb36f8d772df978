#include "RigaDiComando.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

RigaDiComando::RigaDiComando(const QStringList& argomenti, const QString& aiuto,
                             const QList<Opzione>& opzioni, std::pair<int, int> quanti) {
    if (argomenti.contains(u"--help"_s) || argomenti.contains(u"-h"_s)) {
        std::printf("%s", qUtf8Printable(aiuto));
        std::exit(EXIT_SUCCESS);
    }
    for (const Opzione& opzione : opzioni) {
        if (!opzione.predefinito.isNull())
            m_valori[opzione.nome] = opzione.predefinito;
    }
    for (auto argomento = argomenti.begin(); argomento != argomenti.end(); ++argomento) {
        if (!argomento->startsWith(u'-') || argomento->size() == 1) {
            m_argomenti << *argomento;
            continue;
        }
        const QString nome = argomento->section(u'=', 0, 0);
        const auto nota = std::ranges::find(opzioni, nome, [](const Opzione& o) { return u"--"_s + o.nome; });
        if (nota == opzioni.end())
            rifiuta(u"opzione sconosciuta: "_s + nome);
        const bool unita = argomento->size() > nome.size();
        if (unita && !nota->conValore)
            rifiuta(u"l'opzione %1 non vuole un valore"_s.arg(nome));
        if (!unita && nota->conValore && argomento + 1 == argomenti.end())
            rifiuta(u"all'opzione %1 manca il valore"_s.arg(nome));
        m_valori[nota->nome] = unita             ? argomento->sliced(nome.size() + 1)
                               : nota->conValore ? *++argomento
                                                 : QString();
    }
    if (m_argomenti.size() < quanti.first)
        rifiuta(u"mancano degli argomenti"_s);
    if (m_argomenti.size() > quanti.second)
        rifiuta(u"argomento di troppo: "_s + m_argomenti.at(quanti.second));
}

void RigaDiComando::rifiuta(const QString& motivo) {
    std::fprintf(stderr, "%s\nCon --help si legge come si usa.\n", qUtf8Printable(motivo));
    std::exit(2);
}

QStringList argomentiDi(int argc, char** argv) {
    QStringList argomenti;
    for (int i = 1; i < argc; ++i)
        argomenti << QString::fromLocal8Bit(argv[i]);
    return argomenti;
}

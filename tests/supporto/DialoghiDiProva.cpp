#include "supporto/DialoghiDiProva.h"

#include <QTest>

namespace {

QString descrivi(const DialoghiDiProva::Scatola& scatola) {
    return QStringLiteral("box %1, icon %2, title \"%3\", text \"%4\"")
        .arg(static_cast<int>(scatola.tipo))
        .arg(static_cast<int>(scatola.icona))
        .arg(scatola.titolo, scatola.testo);
}

void fallisci(const QString& motivo) {
    QTest::qFail(qPrintable(motivo), __FILE__, __LINE__);
}

}  // namespace

std::optional<QString> DialoghiDiProva::mostra(const Scatola& scatola) {
    m_viste << scatola;
    if (m_accettaTutto)
        return scatola.risposta.value_or(QString());
    if (m_attese.isEmpty()) {
        fallisci(QStringLiteral("unexpected ") + descrivi(scatola));
        return std::nullopt;
    }
    const Scatola attesa = m_attese.takeFirst();
    const bool stessoTesto = attesa.testo.isNull() || attesa.testo == scatola.testo;
    const bool stessoTitolo = attesa.titolo.isNull() || attesa.titolo == scatola.titolo;
    const bool conIcona = attesa.tipo == Tipo::Messaggio;
    if (attesa.tipo != scatola.tipo || !stessoTitolo || !stessoTesto ||
        (conIcona && attesa.icona != scatola.icona))
        fallisci(QStringLiteral("came: %1\nexpected: %2").arg(descrivi(scatola), descrivi(attesa)));
    return attesa.risposta;
}

bool DialoghiDiProva::finite() {
    const QList<Scatola> mancate = std::exchange(m_attese, {});
    for (const Scatola& mancata : mancate)
        qWarning("never came: %s", qPrintable(descrivi(mancata)));
    return mancate.isEmpty();
}

void DialoghiDiProva::attendiMessaggio(const QString& titolo, const QString& testo, Icona icona) {
    m_attese << Scatola{Tipo::Messaggio, titolo, testo, icona, std::nullopt};
}

void DialoghiDiProva::attendiDomanda(const QString& titolo, const QString& testo, bool si) {
    m_attese << Scatola{Tipo::Domanda, titolo, testo, Icona::Nessuna,
                        si ? std::optional(QString()) : std::nullopt};
}

void DialoghiDiProva::attendiChiedi(const QString& titolo, const QString& testo,
                                    const std::optional<QString>& risposta) {
    m_attese << Scatola{Tipo::Chiedi, titolo, testo, Icona::Nessuna, risposta};
}

void DialoghiDiProva::attendiSalvaFile(const QString& percorso) {
    m_attese << Scatola{Tipo::SalvaFile, {}, {}, Icona::Nessuna, percorso};
}

void DialoghiDiProva::attendiAvviso(const QString& testo) {
    m_attese << Scatola{Tipo::Avviso, {}, testo, Icona::Nessuna, std::nullopt};
}

void DialoghiDiProva::messaggio(const QString& titolo, const QString& testo, Icona icona) {
    mostra({Tipo::Messaggio, titolo, testo, icona, std::nullopt});
}

bool DialoghiDiProva::domanda(const QString& titolo, const QString& testo, Icona icona, Innocua /*innocua*/) {
    return mostra({Tipo::Domanda, titolo, testo, icona, std::nullopt}).has_value();
}

std::optional<QString> DialoghiDiProva::chiedi(const QString& titolo, const QString& testo,
                                               const QString& predefinito) {
    return mostra({Tipo::Chiedi, titolo, testo, Icona::Nessuna, predefinito});
}

QString DialoghiDiProva::apriFile(const QString& titolo, const QString& cartella, const QString& /*filtro*/) {
    return mostra({Tipo::ApriFile, titolo, cartella, Icona::Nessuna, std::nullopt}).value_or(QString());
}

QString DialoghiDiProva::salvaFile(const QString& titolo, const QString& proposto,
                                   const QString& /*filtro*/) {
    return mostra({Tipo::SalvaFile, titolo, {}, Icona::Nessuna, proposto}).value_or(QString());
}

void DialoghiDiProva::avviso(const QString& testo) {
    mostra({Tipo::Avviso, {}, testo, Icona::Nessuna, std::nullopt});
}

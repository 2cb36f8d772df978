#include "common/DialoghiQt.h"

#include "common/frmMSG.h"
#include "common/Scatola.h"
#include "common/Subroutine.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

enum Risposta { Negativa, Positiva };

}  // namespace

void DialoghiQt::messaggio(const QString& titolo, const QString& testo, Icona icona) {
    const CursoreNormale cursore;
    Scatola scatola(titolo, testo, icona);
    scatola.aggiungi(u"&OK"_s, Negativa);
    scatola.chiedi();
}

bool DialoghiQt::domanda(const QString& titolo, const QString& testo, Icona icona, Innocua innocua) {
    const CursoreNormale cursore;
    Scatola scatola(titolo, testo, icona);
    scatola.aggiungi(u"&Sì"_s, Positiva);
    scatola.aggiungi(u"&No"_s, Negativa);
    scatola.imposta(innocua == Innocua::Si ? Positiva : Negativa);
    return scatola.chiedi() == Positiva;
}

std::optional<QString> DialoghiQt::chiedi(const QString& titolo, const QString& testo,
                                          const QString& predefinito) {
    const CursoreNormale cursore;
    Scatola scatola(titolo, testo, Icona::Nessuna);
    const QLineEdit* campo = scatola.aggiungiCampo(predefinito, Positiva);
    scatola.aggiungi(u"&OK"_s, Positiva);
    scatola.aggiungi(u"&Annulla"_s, Negativa);
    if (scatola.chiedi() != Positiva)
        return std::nullopt;
    return campo->text();
}

QString DialoghiQt::apriFile(const QString& titolo, const QString& cartella, const QString& filtro) {
    const CursoreNormale cursore;
    return QFileDialog::getOpenFileName(finestraAttiva(), titolo, cartella, filtro);
}

QString DialoghiQt::salvaFile(const QString& titolo, const QString& proposto, const QString& filtro) {
    QString percorso = proposto;
    do {
        const CursoreNormale cursore;
        percorso = QFileDialog::getSaveFileName(finestraAttiva(), titolo, percorso, filtro, nullptr,
                                                QFileDialog::DontConfirmOverwrite);
    } while (
        QFileInfo::exists(percorso) &&
        !Dialoghi::domanda(titolo, u"Il file %1 esiste già.\nSostituirlo ?"_s.arg(percorso), Icona::Domanda));
    return percorso;
}

void DialoghiQt::avviso(const QString& testo) {
    frmMSG(testo, finestraAttiva()).exec();
}

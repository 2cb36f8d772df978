#include "common/DialoghiQt.h"

#include "common/frmMSG.h"
#include "common/Subroutine.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

QMessageBox::Icon icona(Icona quale) {
    switch (quale) {
        case Icona::Informazione:
            return QMessageBox::Information;
        case Icona::Esclamazione:
            return QMessageBox::Warning;
        case Icona::Stop:
            return QMessageBox::Critical;
        case Icona::Domanda:
            return QMessageBox::Question;
        case Icona::Nessuna:
            break;
    }
    return QMessageBox::NoIcon;
}

constexpr qsizetype MassimoRighe = 20;

// A list of crews can be longer than the screen: the box shows its beginning, the rest is one click away.
void scriviTesto(QMessageBox& scatola, const QString& testo) {
    const QStringList righe = testo.trimmed().split(u'\n');
    if (righe.size() <= MassimoRighe) {
        scatola.setText(testo);
        return;
    }
    scatola.setText(righe.first(MassimoRighe).join(u'\n') +
                    u"\n... (altre %1 righe)"_s.arg(righe.size() - MassimoRighe));
    scatola.setDetailedText(testo);
}

int mostra(const QString& titolo, const QString& testo, Icona quale, QMessageBox::StandardButtons pulsanti) {
    const CursoreNormale cursore;
    QMessageBox scatola(icona(quale), titolo, {}, pulsanti, QApplication::activeWindow());
    scatola.setTextFormat(Qt::PlainText);  // typed texts may hold "<"
    scriviTesto(scatola, testo);
    return scatola.exec();
}

}  // namespace

void DialoghiQt::messaggio(const QString& titolo, const QString& testo, Icona quale) {
    mostra(titolo, testo, quale, QMessageBox::Ok);
}

bool DialoghiQt::domanda(const QString& titolo, const QString& testo, Icona quale) {
    return mostra(titolo, testo, quale, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

std::optional<QString> DialoghiQt::chiedi(const QString& titolo, const QString& testo,
                                          const QString& predefinito) {
    const CursoreNormale cursore;
    bool confermato = false;
    const QString risposta = QInputDialog::getText(QApplication::activeWindow(), titolo, testo,
                                                   QLineEdit::Normal, predefinito, &confermato);
    if (!confermato)
        return std::nullopt;
    return risposta;
}

QString DialoghiQt::apriFile(const QString& titolo, const QString& cartella, const QString& filtro) {
    const CursoreNormale cursore;
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), titolo, cartella, filtro);
}

QString DialoghiQt::salvaFile(const QString& titolo, const QString& proposto, const QString& filtro) {
    const CursoreNormale cursore;
    return QFileDialog::getSaveFileName(QApplication::activeWindow(), titolo, proposto, filtro);
}

void DialoghiQt::avviso(const QString& testo) {
    frmMSG(testo, QApplication::activeWindow()).exec();
}

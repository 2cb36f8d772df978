#include "event/FinestraModifica.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QTreeWidget>

void FinestraModifica::ricorda() {
    m_ricordato = contenuto();
}

void FinestraModifica::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape && contenuto() != m_ricordato)
        return;
    Finestra::keyPressEvent(evento);
}

QMap<QString, QString> FinestraModifica::contenuto() const {
    QMap<QString, QString> testi;
    const QList<QWidget*> controlli = findChildren<QWidget*>();
    for (const QWidget* controllo : controlli) {
        const QString nome = controllo->objectName();
        if (const auto* box = qobject_cast<const QLineEdit*>(controllo)) {
            testi[nome] = box->text();
        } else if (const auto* combo = qobject_cast<const QComboBox*>(controllo)) {
            testi[nome] = combo->currentText();
        } else if (const auto* pulsante = qobject_cast<const QAbstractButton*>(controllo)) {
            testi[nome] = QString::number(pulsante->isChecked());
        } else if (const auto* elenco = qobject_cast<const QTreeWidget*>(controllo)) {
            // Its ticks alone: the rows themselves are what the archive holds.
            for (int i = 0; i < elenco->topLevelItemCount(); ++i)
                testi[nome] += elenco->topLevelItem(i)->data(0, Qt::CheckStateRole).toString();
        }
    }
    return testi;
}

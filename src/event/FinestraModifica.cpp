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

QStringList FinestraModifica::contenuto() const {
    QStringList testi;
    const QList<QWidget*> controlli = findChildren<QWidget*>();
    for (const QWidget* controllo : controlli) {
        if (const auto* box = qobject_cast<const QLineEdit*>(controllo)) {
            testi << box->text();
        } else if (const auto* combo = qobject_cast<const QComboBox*>(controllo)) {
            testi << combo->currentText();
        } else if (const auto* pulsante = qobject_cast<const QAbstractButton*>(controllo)) {
            testi << QString::number(pulsante->isChecked());
        } else if (const auto* elenco = qobject_cast<const QTreeWidget*>(controllo)) {
            // The rows themselves are what the archive holds.
            for (int i = 0; i < elenco->topLevelItemCount(); ++i) {
                if (const QVariant segno = elenco->topLevelItem(i)->data(0, Qt::CheckStateRole);
                    segno.isValid())
                    testi << segno.toString();
            }
        }
    }
    return testi;
}

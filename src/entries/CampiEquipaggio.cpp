#include "entries/CampiEquipaggio.h"

#include "common/Subroutine.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

QString leggiControllo(const ColonnaEquipaggio& colonna, const QWidget* controllo) {
    if (const auto* box = qobject_cast<const QLineEdit*>(controllo))
        return box->text();
    if (const auto* spunta = qobject_cast<const QCheckBox*>(controllo))
        return spunta->isChecked() ? u"1"_s : u"0"_s;
    const auto* combo = qobject_cast<const QComboBox*>(controllo);
    // With no group chosen (no group for the year) there is no key to read: 0, as for none.
    return colonna.tipo == TipoDato::Chiave ? QString::number(combo->currentData().toInt())
                                            : combo->currentText();
}

void scriviControllo(const ColonnaEquipaggio& colonna, QWidget* controllo, const QString& testo) {
    if (auto* box = qobject_cast<QLineEdit*>(controllo)) {
        mostraTesto(box, testo);
    } else if (auto* spunta = qobject_cast<QCheckBox*>(controllo)) {
        spunta->setChecked(testo.toInt() != 0);
    } else if (auto* combo = qobject_cast<QComboBox*>(controllo)) {
        combo->setCurrentIndex(colonna.tipo == TipoDato::Chiave ? combo->findData(testo.toInt())
                                                                : combo->findText(testo));
    }
}

}  // namespace

CampiEquipaggio::CampiEquipaggio(QWidget* finestra) {
    for (const ColonnaEquipaggio& colonna : colonneEquipaggio()) {
        if (auto* controllo = finestra->findChild<QWidget*>(QString::fromLatin1(colonna.controllo)))
            m_campi << Campo{&colonna, controllo};
    }
}

SchedaEquipaggio CampiEquipaggio::leggi() const {
    SchedaEquipaggio scheda;
    perOgnuno([&](const ColonnaEquipaggio& colonna, const QWidget* controllo) {
        scheda[QString::fromLatin1(colonna.nome)] = leggiControllo(colonna, controllo);
    });
    return scheda;
}

void CampiEquipaggio::mostra(const SchedaEquipaggio& scheda) {
    perOgnuno([&](const ColonnaEquipaggio& colonna, QWidget* controllo) {
        const auto testo = scheda.constFind(QString::fromLatin1(colonna.nome));
        if (testo != scheda.cend())
            scriviControllo(colonna, controllo, *testo);
    });
}

void CampiEquipaggio::svuota() {
    perOgnuno([](const ColonnaEquipaggio& colonna, QWidget* controllo) {
        scriviControllo(colonna, controllo, {});
    });
}

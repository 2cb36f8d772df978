#include "readings/DelegatoRilevamenti.h"

#include "common/Aspetto.h"
#include "common/Subroutine.h"
#include "readings/EditorTempo.h"
#include "readings/ModelloRilevamenti.h"

#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

constexpr int LunghezzaMotivo = 255;
constexpr qsizetype CifreIntere = 6;  // hours, minutes and seconds
constexpr QColor SfondoRiga(0xE3, 0xEA, 0xFF);

Tinta tintaScarto(StileScarto stile) {
    switch (stile) {
        case StileScarto::Positivo:
            return {QColor(0xD6, 0xE9, 0xFF), QColor(0x00, 0x3C, 0x96)};
        case StileScarto::Negativo:
            return {QColor(0xFF, 0xDF, 0xD6), QColor(0x9A, 0x1F, 0x00)};
        case StileScarto::Netto:
            return {QColor(0xD8, 0xF3, 0xD8), QColor(0x00, 0x5A, 0x14)};
        case StileScarto::Errato:
            break;
    }
    return {QColor(0xB0, 0x1E, 0x1E), Qt::white};
}

const ModelloRilevamenti& modello(const QModelIndex& indice) {
    return static_cast<const ModelloRilevamenti&>(*indice.model());
}

QLineEdit* editorPenalita(QWidget* padre, ModoGriglia modo) {
    auto* editor = new QLineEdit(padre);
    editor->setAlignment(Qt::AlignRight);
    // Whatever is typed by hand among the times passes the filter of digits; sanctions can be any number.
    static const QRegularExpression cifre(u"\\d{0,9}"_s);
    static const QRegularExpression numero(u"[+-]?\\d{0,9}([.,]\\d*)?"_s);
    editor->setValidator(
        new QRegularExpressionValidator(modo == ModoGriglia::Manuale ? cifre : numero, editor));
    return editor;
}

}  // namespace

std::optional<Mossa> mossaDelTasto(int tasto) {
    switch (tasto) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Tab:
            return Mossa::Avanti;
        case Qt::Key_Backtab:
            return Mossa::Indietro;
        case Qt::Key_Up:
            return Mossa::Su;
        case Qt::Key_Down:
            return Mossa::Giu;
        case Qt::Key_Plus:
            return Mossa::EquipaggioDopo;
        case Qt::Key_Minus:
            return Mossa::EquipaggioPrima;
        default:
            return std::nullopt;
    }
}

bool aMeta(const QLineEdit& editor) {
    const auto* tempo = qobject_cast<const EditorTempo*>(&editor);
    return tempo && tempo->cifre() < CifreIntere;
}

DelegatoRilevamenti::DelegatoRilevamenti(QTableView* griglia)
    : QStyledItemDelegate(griglia), m_griglia(griglia) {}

QWidget* DelegatoRilevamenti::createEditor(QWidget* padre, const QStyleOptionViewItem& /*opzioni*/,
                                           const QModelIndex& indice) const {
    QLineEdit* editor = nullptr;
    if (ModelloRilevamenti::diTempo(indice.column())) {
        editor = new EditorTempo(padre);
    } else if (indice.column() == ModelloRilevamenti::PenAgg) {
        editor = editorPenalita(padre, modello(indice).modo());
    } else {
        editor = new QLineEdit(padre);
        editor->setMaxLength(LunghezzaMotivo);
    }
    editor->setFrame(false);
    EvidenziaCampo(editor);
    m_editor = editor;
    m_cella = indice;
    return editor;
}

void DelegatoRilevamenti::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& opzioni,
                                               const QModelIndex& /*indice*/) const {
    editor->setGeometry(opzioni.rect);
}

void DelegatoRilevamenti::setModelData(QWidget* editor, QAbstractItemModel* modelloDati,
                                       const QModelIndex& indice) const {
    const auto& riga = static_cast<const QLineEdit&>(*editor);
    if (riga.isModified() && !aMeta(riga))
        QStyledItemDelegate::setModelData(editor, modelloDati, indice);
}

void DelegatoRilevamenti::destroyEditor(QWidget* editor, const QModelIndex& indice) const {
    // A closed editor lives on until the event loop deletes it.
    if (m_editor == editor)
        m_editor.clear();
    QStyledItemDelegate::destroyEditor(editor, indice);
}

void DelegatoRilevamenti::chiudi() {
    if (m_editor)
        Q_EMIT closeEditor(m_editor, NoHint);
}

bool DelegatoRilevamenti::soleCifre() const {
    return m_cella.column() == ModelloRilevamenti::PenAgg && modello(m_cella).modo() == ModoGriglia::Manuale;
}

bool DelegatoRilevamenti::cambiaEquipaggio(int tasto) const {
    if (m_cella.column() == ModelloRilevamenti::DesPenAgg)
        return false;
    // A sanction below zero begins with a minus.
    const bool vuoto = m_editor->text().isEmpty() || m_editor->selectedText() == m_editor->text();
    return tasto == Qt::Key_Plus || !vuoto || modello(m_cella).modo() != ModoGriglia::PenalitaAggiuntive;
}

bool DelegatoRilevamenti::tasto(const QKeyEvent& evento) {
    if (soleCifre() && (evento.text() == ","_L1 || evento.text() == "."_L1)) {
        Q_EMIT virgolaRifiutata();
        return true;
    }
    const std::optional<Mossa> verso = mossaDelTasto(evento.key());
    const bool diEquipaggio = verso == Mossa::EquipaggioDopo || verso == Mossa::EquipaggioPrima;
    if (!verso || (diEquipaggio && !cambiaEquipaggio(evento.key())))
        return false;
    Q_EMIT mossa(*verso);
    return true;
}

bool DelegatoRilevamenti::eventFilter(QObject* oggetto, QEvent* evento) {
    // One that is going with its window is no line edit any more.
    const auto* editor = qobject_cast<QLineEdit*>(oggetto);
    if (!editor || editor != m_editor)
        return QStyledItemDelegate::eventFilter(oggetto, evento);
    if (evento->type() == QEvent::KeyPress && tasto(static_cast<QKeyEvent&>(*evento)))
        return true;
    if (evento->type() == QEvent::FocusOut) {
        const Qt::FocusReason motivo = static_cast<QFocusEvent&>(*evento).reason();
        // Another window over this one, the help or a box, ends nothing.
        if (motivo != Qt::ActiveWindowFocusReason && motivo != Qt::PopupFocusReason)
            Q_EMIT fuocoPerso();
        return false;
    }
    return QStyledItemDelegate::eventFilter(oggetto, evento);
}

void DelegatoRilevamenti::initStyleOption(QStyleOptionViewItem* opzioni, const QModelIndex& indice) const {
    QStyledItemDelegate::initStyleOption(opzioni, indice);
    opzioni->state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
    const QModelIndex corrente = m_griglia->currentIndex();
    Tinta tinta{Qt::white, Qt::black};
    if (const QVariant stile = indice.data(ModelloRilevamenti::RuoloStile); stile.isValid()) {
        tinta = tintaScarto(static_cast<StileScarto>(stile.toInt()));
    } else if (indice == corrente) {
        tinta = tintaCellaCorrente(m_griglia);
    } else if (indice.row() == corrente.row()) {
        tinta.sfondo = SfondoRiga;
    } else if (!modello(indice).modificabile(indice.column())) {
        tinta.sfondo = QColor(0xF6, 0xF6, 0xF4);
    }
    opzioni->backgroundBrush = tinta.sfondo;
    opzioni->palette.setColor(QPalette::Text, tinta.testo);
    opzioni->font.setBold(indice.row() == corrente.row());
}

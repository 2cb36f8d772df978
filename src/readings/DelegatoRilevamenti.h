#pragma once

#include <optional>
#include <QLineEdit>
#include <QPointer>
#include <QStyledItemDelegate>

// Where the operator goes when a cell is done.
enum class Mossa { Avanti, Indietro, Su, Giu, EquipaggioDopo, EquipaggioPrima };

// Draws the cells of a readings grid (the current row and cell stand out, the deviation in the colour of its
// style) and edits them. Enter, Tab and the arrows up and down store the cell and move on.
class DelegatoRilevamenti final : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit DelegatoRilevamenti(class QTableView* griglia);

    QWidget* createEditor(QWidget* padre, const QStyleOptionViewItem& opzioni,
                          const QModelIndex& indice) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& opzioni,
                              const QModelIndex& indice) const override;
    // A cell that was opened and not changed is not written: writing runs along its chain.
    void setModelData(QWidget* editor, QAbstractItemModel* modello, const QModelIndex& indice) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& indice) const override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

    void concludi();  // stores and closes the open editor, if there is one
    [[nodiscard]] QLineEdit* editor() const { return m_editor; }  // nullptr when none is open

Q_SIGNALS:
    void mossa(Mossa verso);

protected:
    void initStyleOption(QStyleOptionViewItem* opzioni, const QModelIndex& indice) const override;

private:
    // Times and numbers: plus and minus are not part of them and change the crew.
    [[nodiscard]] bool cambiaEquipaggio(const QObject* editor) const;

    QTableView* m_griglia;
    mutable QPointer<QLineEdit> m_editor;  // made in const functions of the base
};

// The move of a key in a grid, in an editor or out of it; nothing for any other key.
std::optional<Mossa> mossaDelTasto(int tasto);

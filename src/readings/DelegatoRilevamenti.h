#pragma once

#include <optional>
#include <QLineEdit>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

// Where the operator goes when a cell is done.
enum class Mossa { Avanti, Indietro, Su, Giu, EquipaggioDopo, EquipaggioPrima };

// Draws the cells of a readings grid (the current row and cell stand out, the deviation in the colour of its
// style) and opens them. How an open cell ends is the grid's own to decide.
class DelegatoRilevamenti final : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit DelegatoRilevamenti(class QTableView* griglia);

    QWidget* createEditor(QWidget* padre, const QStyleOptionViewItem& opzioni,
                          const QModelIndex& indice) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& opzioni,
                              const QModelIndex& indice) const override;
    // For a cell that the view itself leaves: what was not changed, or only half typed, is not written.
    void setModelData(QWidget* editor, QAbstractItemModel* modello, const QModelIndex& indice) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& indice) const override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

    void chiudi();                                                // the open editor, without storing it
    [[nodiscard]] QLineEdit* editor() const { return m_editor; }  // nullptr when none is open
    [[nodiscard]] QModelIndex cella() const { return m_cella; }   // that it was opened on

Q_SIGNALS:
    void mossa(Mossa verso);  // asked for in the editor
    void fuocoPerso();        // to another control of the window
    void virgolaRifiutata();  // typed where only digits are taken

protected:
    void initStyleOption(QStyleOptionViewItem* opzioni, const QModelIndex& indice) const override;

private:
    bool tasto(const class QKeyEvent& evento);
    // Whether plus and minus are not part of what is being typed, and change the crew.
    [[nodiscard]] bool cambiaEquipaggio(int tasto) const;
    [[nodiscard]] bool soleCifre() const;

    QTableView* m_griglia;
    mutable QPointer<QLineEdit> m_editor;  // made in const functions of the base
    mutable QPersistentModelIndex m_cella;
};

// The move of a key in a grid, in an editor or out of it; nothing for any other key.
std::optional<Mossa> mossaDelTasto(int tasto);

// A time begun and not typed to the seconds: six digits or more are meant as a time.
bool aMeta(const QLineEdit& editor);

#pragma once

#include "download/Pressostati.h"

#include <QTreeWidget>

// `lstPre`: a row with a check box per switch; up to three targets, each with its `IDPro` in a hidden column.
class ElencoPressostati final : public QTreeWidget {
    Q_OBJECT

public:
    explicit ElencoPressostati(QWidget* padre = nullptr);

    void mostra(const QList<Pressostato>& pressostati);
    [[nodiscard]] QList<int> righeScelte() const;     // ascending
    [[nodiscard]] QList<Pressostato> scelti() const;  // as the rows say
};

#pragma once

#include <QLineEdit>

// A time being typed: digits alone, always shown in the mask hh:mm:ss:cc, which fills from the right. What
// stands in it is what will be stored.
class EditorTempo final : public QLineEdit {
    Q_OBJECT

public:
    explicit EditorTempo(QWidget* padre = nullptr);

private:
    void ricomponi();
};

#include "readings/EditorTempo.h"

#include "readings/Rilevamenti.h"

#include <algorithm>

namespace {

bool cifra(QChar c) {
    return c >= u'0' && c <= u'9';
}

}  // namespace

EditorTempo::EditorTempo(QWidget* padre) : QLineEdit(padre) {
    setAlignment(Qt::AlignCenter);
    connect(this, &QLineEdit::textEdited, this, &EditorTempo::ricomponi);
}

void EditorTempo::ricomponi() {
    // The place is kept by the digits to the right of the cursor: the mask grows on the left.
    const QString scritto = text();
    auto aDestra = std::count_if(scritto.cbegin() + cursorPosition(), scritto.cend(), cifra);
    const QString mascherato = mascheraTempo(scritto);
    setText(mascherato);
    setModified(true);
    qsizetype posto = mascherato.size();
    while (posto > 0 && aDestra > 0)
        aDestra -= cifra(mascherato.at(--posto)) ? 1 : 0;
    setCursorPosition(static_cast<int>(posto));
}

#include "readings/EditorTempo.h"

#include "readings/Rilevamenti.h"

#include <algorithm>

namespace {

constexpr qsizetype CifreDelTempo = 8;

bool cifra(QChar c) {
    return c >= u'0' && c <= u'9';
}

QString soleCifre(QString testo) {
    return testo.removeIf([](QChar c) { return !cifra(c); });
}

}  // namespace

EditorTempo::EditorTempo(QWidget* padre) : QLineEdit(padre) {
    setAlignment(Qt::AlignCenter);
    connect(this, &QLineEdit::textEdited, this, &EditorTempo::ricomponi);
    // Told after the one above: there it is still the text before the key.
    connect(this, &QLineEdit::textChanged, this, [this] { m_accettato = text(); });
}

qsizetype EditorTempo::cifre() const {
    return soleCifre(text()).size() - m_riempimento;
}

void EditorTempo::ricomponi() {
    const QString scritto = text();
    QString cifre = soleCifre(scritto);
    const auto zeri = std::ranges::find_if(cifre, [](QChar c) { return c != u'0'; }) - cifre.cbegin();
    cifre.remove(0, std::min<qsizetype>(m_riempimento, zeri));
    const bool troppe = cifre.size() > CifreDelTempo;
    // The place is kept by the digits to the right of the cursor: the mask grows on the left.
    auto aDestra = std::count_if(scritto.cbegin() + cursorPosition(), scritto.cend(), cifra);
    if (!troppe) {
        m_cambiato = true;
        m_riempimento = cifre.isEmpty() ? 0 : CifreDelTempo - cifre.size();
    }
    const QString mascherato = troppe ? QString(m_accettato) : mascheraTempo(cifre);
    setText(mascherato);
    setModified(m_cambiato);
    qsizetype posto = mascherato.size();
    while (posto > 0 && aDestra > 0)
        aDestra -= cifra(mascherato.at(--posto)) ? 1 : 0;
    setCursorPosition(static_cast<int>(posto));
}

#pragma once

#include <QString>
#include <QtGlobal>

class QLineEdit;
class QWidget;

// Helpers of the windows.

// Focus colours of an entry field: white on blue while it has the focus.
void EvidenziaCampo(QWidget* campo);
void RipristinaCampo(QWidget* campo);

void CentraFinestra(QWidget* finestra);
// The window that a box or a notice stands over; nothing before the first one.
QWidget* finestraAttiva();
// What a title bar needs to show the whole of its text, in pixels.
int larghezzaTitolo(const QString& titolo);
// Whether a window of that class name exists, shown or hidden; case counts. Nothing is loaded by asking.
bool FinestraCaricata(const QString& nome);

// Opens a document or an address with the desktop's own program; an empty text does nothing, failures are
// ignored.
void ApriDocumento(const QString& documento);

// Type-ahead, after a key has been released (`tasto`: Qt::Key): the first value of the column that begins
// with the text goes into the box in upper case, its tail selected so that typing on overwrites it. Nothing
// happens while the tail of the box is selected, nor away from the end of the text.
void CompletaTesto(QLineEdit* campo, const QString& tabella, const QString& colonna, int tasto);
// Calls CompletaTesto when a key is released with which a character was typed: no other key, and no text that
// the program shows, completes anything.
void attivaCompletamento(QLineEdit* campo, const QString& tabella, const QString& colonna);

// Keeps a box to what a key filter lets through, for keys and for pasted text (which loses the rest). A text
// set by the program stays as it is until the user changes it.
enum class Filtro { Cifre, CifreVirgola };
void applicaFiltro(QLineEdit* campo, Filtro filtro);

// What may be typed into a box: as much as its column holds. A longer text shown by the program stays whole.
inline constexpr int LunghezzaTesto = 255;
void limitaTesto(QLineEdit* campo, int lunghezza = LunghezzaTesto);
// Shows a text from its beginning, however long.
void mostraTesto(QLineEdit* campo, const QString& testo);

// The help page of a window; it stays open beside it.
void mostraAiuto(QWidget* finestra);

// The hourglass, for as long as the object lives.
class CursoreAttesa final {
public:
    CursoreAttesa();
    Q_DISABLE_COPY_MOVE(CursoreAttesa)
    ~CursoreAttesa();
};

// The ordinary pointer for the time of a box, also in the middle of long work.
class CursoreNormale final {
public:
    CursoreNormale();
    Q_DISABLE_COPY_MOVE(CursoreNormale)
    ~CursoreNormale();
};

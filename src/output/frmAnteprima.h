#pragma once

#include "output/Rapporto.h"

#include <QPrintPreviewDialog>

class QPrinter;

// The preview of a report: pages, zoom, printing, and the report as a PDF file.
class frmAnteprima final : public QPrintPreviewDialog {
    Q_OBJECT

public:
    // The printer, set up for the report's paper, must outlive the window.
    frmAnteprima(const Rapporto& rapporto, QPrinter* stampante, QWidget* padre = nullptr);
    Q_DISABLE_COPY_MOVE(frmAnteprima)
    ~frmAnteprima() override = default;

protected:
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void preparaBarra();
    void disegna(QPrinter* stampante);
    void salvaPdf();

    const Rapporto m_rapporto;
    bool m_mostrata = false;
};

#pragma once

#include "output/Rapporto.h"

#include <QPrintPreviewDialog>

class QGraphicsView;
class QPrinter;
class QPrintPreviewWidget;

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
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void preparaBarra();
    void preparaPagine();
    // Whether a key turned the pages: those that the view itself does not know, or knows otherwise.
    bool sfoglia(int tasto);
    void disegna(QPrinter* stampante);
    void salvaPdf();

    const Rapporto m_rapporto;
    QPrintPreviewWidget* m_pagine;
    QGraphicsView* m_vista;
    bool m_mostrata = false;
};

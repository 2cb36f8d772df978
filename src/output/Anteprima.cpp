#include "output/Anteprima.h"

#include "output/frmAnteprima.h"
#include "output/Pittore.h"

#include <QApplication>
#include <QPrinter>

namespace {

Anteprima* installata = nullptr;

class AnteprimaQt final : public Anteprima {
public:
    void mostra(const Rapporto& rapporto) override {
        QPrinter stampante(QPrinter::HighResolution);
        impostaPagina(stampante, rapporto);
        frmAnteprima(rapporto, &stampante, QApplication::activeWindow()).exec();
    }
};

}  // namespace

Anteprima& Anteprima::corrente() {
    static AnteprimaQt delProgramma;
    return installata ? *installata : delProgramma;
}

void Anteprima::installa(Anteprima* anteprima) {
    installata = anteprima;
}

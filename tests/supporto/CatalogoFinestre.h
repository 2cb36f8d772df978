#pragma once

#include "supporto/ProgrammaDiProva.h"

#include <functional>
#include <memory>
#include <span>

class QWidget;

// Every window of the program, made as the program makes it, for the tests that go through all of them. A
// window that is not here fails tst_Catalogo.
struct FinestraInCatalogo {
    const char* nome;
    std::function<std::unique_ptr<QWidget>()> crea;  // on the archive of a ProgrammaPieno
};

std::span<const FinestraInCatalogo> catalogoFinestre();

// A program on the sample rally, the active event, with a download just received; any box is accepted.
class ProgrammaPieno final {
public:
    ProgrammaPieno();
    Q_DISABLE_COPY_MOVE(ProgrammaPieno)
    ~ProgrammaPieno();

    [[nodiscard]] DialoghiDiProva& dialoghi() { return m_programma.dialoghi; }

private:
    ProgrammaDiProva m_programma{ProgrammaDiProva::Archivio::Nessuno};
};

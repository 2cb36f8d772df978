#include "Confronti.h"

std::vector<Confronto>& confronti() {
    static std::vector<Confronto> tutti;
    return tutti;
}

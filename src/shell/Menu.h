#pragma once

#include "shell/Controlli.h"

#include <span>

// The menu of the main window as data, in the order in which it is shown.
struct VoceMenu {
    int livello;                     // 0 in the bar, 1 in a menu, 2 in its submenu
    const char16_t* testo;           // caption; "&" marks its key
    const char16_t* nome = nullptr;  // name of the action; nullptr for a menu
    Controllo controllo = Controllo::Nessuno;
};

std::span<const VoceMenu> vociMenu();

// Entries whose window does not exist yet: they pass their guard and their question, and then say so.
bool nonAncoraDisponibile(QStringView nome);

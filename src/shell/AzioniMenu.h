#pragma once

#include <functional>
#include <QString>

class frmMain;

// What an entry of the menu does once its guard has passed; empty for an entry whose window does not exist
// yet.
using AzioneMenu = std::function<void(frmMain&)>;
AzioneMenu azioneMenu(const QString& nome);

// What an entry asks after its guard and before its action; false when the operator thought better of it.
bool domandaPrima(const QString& nome);

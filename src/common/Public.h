#pragma once

#include "archive/PercorsoApp.h"

// State of the process. The active event lives here and, as its last decision, in the per-user setting.

inline int IDMan = 0;  // key of the active event; 0 for none
inline int IDEqu = 0;  // crew chosen in the person search; 0 for none

// Makes an event the active one (0 for none) and writes the setting in the same step.
void ImpostaManifestazioneAttiva(int idMan);
// The setting as it was left by the last run.
int leggiManifestazioneAttiva();

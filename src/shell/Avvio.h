#pragma once

// The life of the program once its program folder is known: refusal of a second instance, splash, main
// window, event loop. Gives the exit code.
int avvia();

#pragma once

#include <QString>

// Folder of the executable, without trailing separator; set once at start. Every path is built on it.
inline QString PercorsoApp;

// Path of a file or folder of the program folder.
inline QString percorsoNelProgramma(const QString& nome) {
    return PercorsoApp + u'/' + nome;
}

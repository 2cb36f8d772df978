#pragma once

#include <cstdio>
#include <cstdlib>
#include <QByteArrayView>

// What must hold for every input; a breach is a finding.
inline void verifica(bool vero, const char* cosa) {
    if (vero)
        return;
    std::fprintf(stderr, "broken: %s\n", cosa);
    std::abort();
}

inline QByteArrayView ingresso(const uint8_t* dati, size_t lunghezza) {
    return {dati, static_cast<qsizetype>(lunghezza)};
}

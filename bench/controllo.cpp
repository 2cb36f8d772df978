// The check of the archive at the path given, in a process that does nothing else.

#include "archive/DataBase.h"

int main(int /*argc*/, char** argv) {
    return difettoArchivio(QString::fromLocal8Bit(argv[1])).isEmpty() ? 0 : 1;
}

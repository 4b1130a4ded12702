// studydesk-soundgen: synthesises the program's short sound clips from scratch.
// Usage: studydesk-soundgen OUTPUT_FOLDER

#include "soundgen.h"

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s OUTPUT_FOLDER\n", argv[0]);
        return 2;
    }
    QString error;
    if (!sd::soundgen::writeClips(QString::fromLocal8Bit(argv[1]), &error)) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error));
        return 1;
    }
    return 0;
}

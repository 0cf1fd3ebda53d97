#include "say.h"

#include <cstdio>

void sayLine(const QString& text)
{
    std::fprintf(stdout, "%s\n", text.toLocal8Bit().constData());
    std::fflush(stdout);
}

void sayNote(const QString& text)
{
    std::fprintf(stderr, "wrench_simulator: %s\n", text.toLocal8Bit().constData());
}

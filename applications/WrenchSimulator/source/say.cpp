#include "say.h"

#include "visible_text.h"

#include <cstdio>

void sayLine(const QString& text)
{
    std::fprintf(stdout, "%s\n", visibleText(text).toLocal8Bit().constData());
    std::fflush(stdout);
}

void sayNote(const QString& text)
{
    std::fprintf(stderr, "wrench_simulator: %s\n", visibleText(text).toLocal8Bit().constData());
}
